#include "play/script.h"
#include "play/keys.h"
#include "play/options.h"
#include "play/transcript.h"

#include <gtest/gtest.h>

namespace {

using Words = std::vector<std::string>;

play::Command only(const std::string& text)
{
    const auto commands = play::parseScript(text);
    EXPECT_EQ(commands.size(), 1U) << text;
    return commands.empty() ? play::Command() : commands.front();
}

bool isRefused(const std::vector<std::string>& arguments)
{
    try {
        static_cast<void>(play::parseOptions(arguments));
        return false;
    } catch (const play::UsageError&) {
        return true;
    }
}

} // namespace

TEST(Script, OneCommandALineCommentsAndBlankLinesPass)
{
    const auto commands = play::parseScript("# first\n\n  # second\ntabs\r\n \t\nfocus");
    ASSERT_EQ(commands.size(), 2U);
    EXPECT_EQ(commands[0].line, "tabs");
    EXPECT_EQ(commands[0].name, "tabs");
    EXPECT_EQ(commands[1].name, "focus");
}

TEST(Script, WordsArePartedByBlanksAndQuotesKeepThem)
{
    const auto command = only(R"(type  TxtSite "two words" "")");
    EXPECT_EQ(command.line, R"(type  TxtSite "two words" "")");
    EXPECT_EQ(command.name, "type");
    EXPECT_EQ(command.words, (Words{"TxtSite", "two words", ""}));
    EXPECT_EQ(command.problem, "");
}

TEST(Script, InQuotesFourEscapesAreKnownAndOthersStand)
{
    EXPECT_EQ(only(R"(echo "a\"b\\c\td\ne\f")").words, (Words{"a\"b\\c\td\ne\\f"}));
    EXPECT_EQ(only(R"(choose m:\new\tab)").words, (Words{R"(m:\new\tab)"}));
}

TEST(Script, AQuoteThatIsNotClosedOrGoesOnIsAProblem)
{
    EXPECT_EQ(only(R"(echo "open)").problem, "unclosed quote");
    EXPECT_EQ(only(R"(echo "one"two)").problem, "no blank behind a closing quote");
}

TEST(Keys, HaveNamesAndOthersHeldDownBefore)
{
    const auto enter = play::keyNamed("Enter");
    ASSERT_TRUE(enter);
    EXPECT_EQ(enter->code, Qt::Key_Return);
    const auto back = play::keyNamed("Shift+Tab");
    ASSERT_TRUE(back);
    EXPECT_EQ(back->code, Qt::Key_Backtab);
    EXPECT_EQ(back->modifiers, Qt::ShiftModifier);
    const auto plus = play::keyNamed("Ctrl++");
    ASSERT_TRUE(plus);
    EXPECT_EQ(plus->code, Qt::Key_Plus);
    EXPECT_EQ(plus->modifiers, Qt::ControlModifier);
    EXPECT_FALSE(play::keyNamed("Ctrl+Nothing"));
    EXPECT_FALSE(play::keyNamed(""));
}

TEST(Keys, ALetterIsTypedWithItsCaseAndStandsForItsKeyBehindCtrl)
{
    const auto capital = play::keyNamed("F");
    ASSERT_TRUE(capital);
    EXPECT_EQ(capital->modifiers, Qt::ShiftModifier);
    EXPECT_EQ(capital->text, QStringLiteral("F"));
    const auto shortcut = play::keyNamed("Ctrl+F");
    ASSERT_TRUE(shortcut);
    EXPECT_EQ(shortcut->code, Qt::Key_F);
    EXPECT_EQ(shortcut->modifiers, Qt::ControlModifier);
    EXPECT_EQ(shortcut->text, QString());
    EXPECT_EQ(play::keyFor(u'é').text, QStringLiteral("é"));
}

TEST(Options, AreReadAroundTheScript)
{
    const auto options = play::parseOptions({"--user", "", "a.play", "--now", "2026-03-04 05:06:07",
                                             "--locale", "de_DE.UTF-8", "--platform", "xcb"});
    EXPECT_EQ(options.script, "a.play");
    EXPECT_EQ(options.user, "");
    EXPECT_EQ(options.now, (platform::LocalTime{2026, 3, 4, 5, 6, 7}));
    EXPECT_EQ(options.locale, "de_DE.UTF-8");
    EXPECT_EQ(options.platform, "xcb");
    EXPECT_EQ(options.programDirectory, std::nullopt);
    EXPECT_EQ(play::parseOptions({"-"}).script, "-");
}

TEST(Options, ThatAreUnknownOrLackTheirValueAreRefused)
{
    EXPECT_TRUE(isRefused({}));
    EXPECT_TRUE(isRefused({"a", "b"}));
    EXPECT_TRUE(isRefused({"--user"}));
    EXPECT_TRUE(isRefused({"--unknown", "a"}));
    EXPECT_TRUE(isRefused({"--now", "today", "a"}));
    EXPECT_TRUE(isRefused({"--now", "2026-03-04 05:06:07 ", "a"}));
    EXPECT_FALSE(isRefused({"--now", "2026-03-04 05:06:07", "a"}));
}

TEST(Transcript, TextsAreWrittenSoThatALineStaysOne)
{
    EXPECT_EQ(play::quoted(QStringLiteral("é\r\n\t\"\\")), R"("é\r\n\t\"\\")");
}
