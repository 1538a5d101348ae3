// What nothing catches ends the process at once, wherever it comes from.
#include "widgets/application.h"
#include "platform/host.h"
#include "support/fakeHost.h"

#include <gtest/gtest.h>
#include <QDialog>
#include <QTimer>

namespace {

class Thrower : public QObject
{
public:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::User)
            platform::raise(platform::errTypeMismatch);
        return QObject::event(event);
    }
};

// Tells what the report said, on the stream that a test of a process's end can look at.
class TellingHost : public FakeHost
{
public:
    platform::Answer msgBox(const std::string& text, platform::Buttons, platform::Icon icon,
                            const std::string& title) override
    {
        EXPECT_EQ(icon, platform::Icon::Critical);
        std::cerr << "[" << title << "|" << text << "|" << (pointers.empty() ? -1 : pointers.back()) << "]";
        return platform::Answer::Ok;
    }
};

struct LastWord
{
    ~LastWord() { std::cerr << "unwound"; }
};

const auto afterFailure = testing::ExitedWithCode(3);

} // namespace

class UncaughtFailure : public testing::Test
{
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "fast"); }
    TellingHost host;
};

TEST_F(UncaughtFailure, OfAHandlerIsReportedAndEndsTheProcess)
{
    EXPECT_EXIT(widgets::guarded([] { platform::raise(platform::errOverflow); })(), afterFailure,
                "run-time error 6: Overflow\n\\[ZEPH_Rvis\\|Run-time error '6':\n\nOverflow\\|0\\]$");
}

TEST_F(UncaughtFailure, IsNotUnwoundBeyondItsHandler)
{
    EXPECT_EXIT(
        {
            const LastWord lastWord;
            widgets::guarded([] { platform::raise(platform::errOverflow); })();
        },
        afterFailure, "\\|0\\]$");
}

TEST_F(UncaughtFailure, OfAnEventHandlerEndsTheProcessToo)
{
    Thrower thrower;
    EXPECT_EXIT(
        {
            QEvent event(QEvent::User);
            QCoreApplication::sendEvent(&thrower, &event);
        },
        afterFailure, "run-time error 13: Type mismatch");
}

TEST_F(UncaughtFailure, InsideAModalLoopNeverReachesTheCallerOfTheLoop)
{
    EXPECT_EXIT(
        {
            QDialog dialog;
            QTimer::singleShot(0, &dialog, widgets::guarded([] { platform::raise(platform::errSubscript); }));
            try {
                dialog.exec();
            } catch (const platform::RuntimeError&) {
                std::cerr << "caught by the wrong one";
            }
        },
        afterFailure, "Subscript out of range\\|0\\]$");
}

TEST_F(UncaughtFailure, OfAnotherKindHasANumberToo)
{
    EXPECT_EXIT(widgets::guarded([] { throw std::bad_alloc(); })(), afterFailure,
                "run-time error 7: Out of memory");
    EXPECT_EXIT(widgets::guarded([] { throw std::logic_error("odd"); })(), afterFailure,
                "run-time error 51: Internal error \\(odd\\)");
    EXPECT_EXIT(widgets::guarded([] { throw 5; })(), afterFailure, "run-time error 51: Internal error");
}

TEST_F(UncaughtFailure, WithoutAnybodyToShowItStillEndsTheProcess)
{
    platform::setHost(nullptr);
    EXPECT_EXIT(widgets::guarded([] { platform::raise(platform::errOverflow); })(), afterFailure,
                "run-time error 6: Overflow");
    platform::setHost(&host);
}

TEST_F(UncaughtFailure, DuringTheReportEndsTheProcessAtOnce)
{
    EXPECT_EXIT(
        {
            widgets::setReporter([](const platform::RuntimeError&) {
                std::cerr << "report";
                widgets::guarded([] { platform::raise(platform::errSubscript); })();
                std::cerr << "never said";
            });
            widgets::guarded([] { platform::raise(platform::errOverflow); })();
        },
        afterFailure, "run-time error 6: Overflow\nreport$");
}

TEST(Handler, ThatSucceedsIsRunAsItIs)
{
    int sum = 0;
    widgets::guarded([&sum](int left, int right) { sum = left + right; })(2, 3);
    EXPECT_EQ(sum, 5);
}
