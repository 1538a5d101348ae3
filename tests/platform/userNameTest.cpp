#include "platform/userName.h"

#include <cstdlib>
#include <gtest/gtest.h>

#ifndef _WIN32
#include <pwd.h>
#include <unistd.h>
#endif

namespace {

class UserName : public testing::Test
{
protected:
    void TearDown() override { platform::setHostUserName(std::nullopt); }
};

TEST_F(UserName, canBeGivenAndTakenBack)
{
    const auto own = platform::hostUserName();
    platform::setHostUserName("somebody else");
    EXPECT_EQ(platform::hostUserName(), "somebody else");
    platform::setHostUserName("");
    EXPECT_EQ(platform::hostUserName(), "");
    platform::setHostUserName(std::nullopt);
    EXPECT_EQ(platform::hostUserName(), own);
}

#ifndef _WIN32

TEST_F(UserName, isThatOfTheAccountWhateverTheEnvironmentSays)
{
    setenv("USER", "mallory", 1);
    setenv("LOGNAME", "mallory", 1);
    const passwd* const account = getpwuid(geteuid());
    ASSERT_NE(account, nullptr);
    EXPECT_EQ(platform::hostUserName(), account->pw_name);
}

#endif

} // namespace
