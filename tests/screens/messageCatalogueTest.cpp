#include "screens/messageCatalogue.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

using namespace screens::messageCatalogue;

TEST(MessageCatalogue, holdsTheReservedWords)
{
    std::vector<std::string> words{missingKeys, noProvision,  noAdministration, noUnit,
                                   noEastWest,  noNorthSouth, editNotice,       editAntenna,
                                   noticeTitle, antennaTitle, createRefused,    tooManyPoints};
    words.insert(words.end(), keyLabels.begin(), keyLabels.end());

    std::ifstream file(ZEPH_TEST_DIR "/screens/reservedWords.txt");
    std::vector<std::string> expected;
    for (std::string line; std::getline(file, line);)
        expected.push_back(line);
    EXPECT_EQ(words, expected);
}

} // namespace
