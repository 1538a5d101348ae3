// The walk from notice to notice and from section to section.
#include "screens/recordMapping.h"
#include "shownNotices.h"

#include <QTimer>

#include <functional>
#include <iostream>

namespace {

// How deep the stack is when the pointer changes in the midst of a move, and how many windows there are.
class MeasuringHost : public FakeHost
{
public:
    void setPointer(int pointer) override
    {
        FakeHost::setPointer(pointer);
        const char here = 0;
        lowest = std::min(lowest, reinterpret_cast<std::uintptr_t>(&here));
        windows = std::max(windows, static_cast<int>(QApplication::topLevelWidgets().size()));
    }
    void forget()
    {
        lowest = UINTPTR_MAX;
        windows = 0;
        pointers.clear();
    }

    std::uintptr_t lowest = UINTPTR_MAX;
    int windows = 0;
};

class AMove : public ShownNotices
{
protected:
    // Runs inside the loop of the walk, once for each round of it, until it says that it is done.
    void showAndWork(int place, std::function<bool()> round)
    {
        QTimer rounds;
        QObject::connect(&rounds, &QTimer::timeout, &rounds, [&, round = std::move(round)] {
            if (round())
                return;
            rounds.stop();
            screen().close();
        });
        rounds.start(0);
        walk.show(read(place), work.path());
    }
};

class Paging : public ShownNotices
{
protected:
    void showSections(int sections, const char* type = "T12")
    {
        add(smallNotice(type, 0, sections));
        show(0);
    }
    void expect(const char* number, bool previous, bool next)
    {
        EXPECT_EQ(screen().text("TxtAntennaCnt"), number);
        EXPECT_EQ(isEnabled("ButtonPrevAnt"), previous) << number;
        EXPECT_EQ(isEnabled("ButtonNextAnt"), next) << number;
    }
};

constexpr int stepsInOrdinaryRun = 200;

int stepsOfWalk()
{
    const int wanted = qEnvironmentVariableIntValue("ZEPH_WALK_STEPS");
    return wanted > 0 ? wanted : stepsInOrdinaryRun;
}

const auto afterFailure = testing::ExitedWithCode(3);

} // namespace

TEST_F(AMove, WithinATypeFillsTheSameScreen)
{
    addAll({"T13", "T13", "T13"});
    show(0);
    const auto* const same = &screen();
    click("ButtonNextNtc");
    EXPECT_EQ(&screen(), same);
    EXPECT_EQ(numberInSight(), "1");
    EXPECT_EQ(screen().text("TxtVeldakey"), "2");
    EXPECT_EQ(session::currentVeldaKey, 2);
    EXPECT_EQ(session::currentIndex, 1);
    EXPECT_EQ(host.pointers, (std::vector<int>{11, 0}));
    EXPECT_TRUE(isEnabled("ButtonPrevNtc") && isEnabled("ButtonNextNtc"));
    click("ButtonNextNtc");
    EXPECT_FALSE(isEnabled("ButtonNextNtc"));
    click("ButtonNextNtc");
    EXPECT_EQ(numberInSight(), "2");
    click("ButtonPrevNtc");
    click("ButtonPrevNtc");
    EXPECT_EQ(numberInSight(), "0");
    EXPECT_FALSE(isEnabled("ButtonPrevNtc"));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(AMove, ToAnotherTypeReplacesTheScreen)
{
    addAll({"T11", "T12", "T13", "T14"});
    show(0);
    for (const std::string type : {"T12", "T13", "T14"}) {
        click("ButtonNextNtc");
        EXPECT_EQ(typeInSight(), type);
        EXPECT_EQ(session::currentScreenType, type);
        EXPECT_EQ(session::notice.notice_typ, type);
        EXPECT_EQ(screen().text("TxtVeldakey"), std::to_string(session::currentVeldaKey));
        EXPECT_EQ(mainScreen.findChildren<screens::NoticeScreen*>().size(), 1);
    }
    EXPECT_EQ(numberInSight(), "3");
    EXPECT_FALSE(isEnabled("ButtonNextNtc"));
    EXPECT_TRUE(isEnabled("ButtonPrevNtc"));
    for (const std::string type : {"T13", "T12", "T11"}) {
        click("ButtonPrevNtc");
        EXPECT_EQ(typeInSight(), type);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(AMove, PassesByNoticesThatWereDeleted)
{
    addAll({"T12", "T12", "T12"});
    session::keyArray[1] = session::deletedKey;
    show(0);
    click("ButtonNextNtc");
    EXPECT_EQ(numberInSight(), "2");
    click("ButtonPrevNtc");
    EXPECT_EQ(numberInSight(), "0");
    session::keyArray[2] = session::deletedKey;
    click("ButtonNextNtc");
    EXPECT_EQ(numberInSight(), "0");
    EXPECT_EQ(session::currentIndex, 0);
}

TEST_F(AMove, ToATypeWithoutScreenLeavesTheOldControlsUnderTheNewKey)
{
    addAll({"T12", "T15", "T12"});
    show(0);
    click("ButtonNextNtc");
    EXPECT_EQ(host.beeps, 1);
    const FakeHost::Box told{"", "Sorry, screens aren't ready yet!!", platform::Icon::None,
                             platform::Buttons::Ok};
    EXPECT_EQ(host.boxes, std::vector{told});
    EXPECT_EQ(numberInSight(), "0");
    EXPECT_EQ(screen().text("TxtVeldakey"), "2");
    EXPECT_EQ(session::currentVeldaKey, 2);
    EXPECT_EQ(session::notice.notice_typ, "T15");
    EXPECT_FALSE(isEnabled("ButtonPrevNtc"));
    click("ButtonNextNtc");
    EXPECT_EQ(numberInSight(), "2");
}

TEST_F(AMove, ToANoticeThatIsGoneSaysSo)
{
    addAll({"T12", "T12"});
    work.execute("DELETE FROM kvr_velda WHERE veldakey = 2");
    show(0);
    click("ButtonNextNtc");
    const FakeHost::Box told{"", "No notice - This should not happen", platform::Icon::None,
                             platform::Buttons::Ok};
    EXPECT_EQ(host.boxes, std::vector{told});
    EXPECT_EQ(host.beeps, 0);
    EXPECT_EQ(host.pointers, (std::vector<int>{11, 0}));
    EXPECT_EQ(numberInSight(), "0");
    EXPECT_EQ(screen().text("TxtVeldakey"), "2");
    EXPECT_TRUE(isEnabled("ButtonNextNtc"));
}

TEST_F(AMove, LeavesTheLoopWhenTheLastScreenIsClosed)
{
    addAll({"T11", "T12"});
    int rounds = 0;
    showAndWork(0, [&] {
        EXPECT_TRUE(screen().isModal());
        EXPECT_EQ(QApplication::activeModalWidget(), &screen());
        QTest::mouseClick(screen().control("ButtonNextNtc"), Qt::LeftButton);
        return ++rounds < 2;
    });
    EXPECT_FALSE(isShown());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(session::currentScreenType, "T12");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(mainScreen.findChildren<screens::NoticeScreen*>().empty());
}

TEST_F(AMove, HoweverOftenNeitherStackNorWindowsGrow)
{
    MeasuringHost measuring;
    addAll({"T11", "T12", "T13", "T14"});
    std::uintptr_t lowestAtFirst = 0;
    int windowsAtFirst = 0;
    int steps = 0;
    const char* button = "ButtonNextNtc";
    showAndWork(0, [&] {
        if (!isEnabled(button))
            button = std::string_view(button) == "ButtonNextNtc" ? "ButtonPrevNtc" : "ButtonNextNtc";
        QTest::mouseClick(screen().control(button), Qt::LeftButton);
        if (++steps == 20) {
            lowestAtFirst = measuring.lowest;
            windowsAtFirst = measuring.windows;
        }
        return steps < stepsOfWalk();
    });
    EXPECT_EQ(measuring.pointers.size(), 2U * static_cast<unsigned>(stepsOfWalk()));
    EXPECT_EQ(measuring.lowest, lowestAtFirst);
    EXPECT_EQ(measuring.windows, windowsAtFirst);
    EXPECT_TRUE(measuring.messages.empty());
}

TEST_F(AMove, AFailureOfTheFirstScreenGoesToWhoeverShowsIt)
{
    auto notice = smallNotice("T12", 0);
    add(notice);
    read(0);
    session::notice.d_inuse = "no date";
    EXPECT_FAILURE(platform::errInvalidCall, walk.show(screens::ScreenType::T12, work.path()));
    EXPECT_FALSE(isShown());
    EXPECT_TRUE(mainScreen.findChildren<screens::NoticeScreen*>().empty());
    read(0);
    walk.handOver(screens::ScreenType::T12, work.path());
    EXPECT_EQ(numberInSight(), "0");
}

TEST_F(AMove, AFailureOfTheNextScreenEndsTheProgram)
{
    for (const std::string type : {"T12", "T13"}) {
        session::keyArray.clear();
        session::keyCount = 0;
        addAll({"T12"});
        add(smallNotice(type, 1));
        work.execute("UPDATE kvr_velda SET d_inuse = 'no date' WHERE veldakey = " +
                     std::to_string(session::currentVeldaKey));
        show(0);
        EXPECT_EXIT(click("ButtonNextNtc"), afterFailure, "run-time error 5: ") << type;
        click("ButtonCancel");
    }
}

TEST_F(Paging, KeepsWhatWasTypedInEachSection)
{
    showSections(3);
    expect("1", false, true);
    type("radiated", "8");
    click("ButtonNextAnt");
    expect("2", true, true);
    EXPECT_EQ(screen().text("radiated"), "2");
    EXPECT_EQ(session::notice.antenna[0].pwr_dbw, "8");
    click("ButtonNextAnt");
    expect("3", true, false);
    click("ButtonPrevAnt");
    click("ButtonPrevAnt");
    expect("1", false, true);
    EXPECT_EQ(screen().text("radiated"), "8");
    EXPECT_EQ(host.beeps, 0);
}

TEST_F(Paging, BeyondTheLastSectionStaysOnIt)
{
    showSections(2);
    session::notice.antenna[2].present = true;
    click("ButtonNextAnt");
    expect("2", true, true);
    session::notice.antenna[2] = {};
    click("ButtonNextAnt");
    expect("2", true, false);
    EXPECT_EQ(host.beeps, 1);
    EXPECT_EQ(screen().text("radiated"), "2");
}

TEST_F(Paging, BeforeASectionThatIsMissingStaysOnIt)
{
    showSections(3);
    click("ButtonNextAnt");
    click("ButtonNextAnt");
    session::notice.antenna[1] = {};
    click("ButtonPrevAnt");
    expect("3", false, true);
    EXPECT_EQ(host.beeps, 1);
}

TEST_F(Paging, InANoticeWithoutSectionsGoesDownToNoneAndNoFurther)
{
    showSections(0);
    expect("1", false, true);
    EXPECT_EQ(host.beeps, 1);
    click("ButtonNextAnt");
    expect("1", true, false);
    EXPECT_EQ(host.beeps, 2);
    click("ButtonPrevAnt");
    expect("0", false, true);
    EXPECT_EXIT(click("ButtonNextAnt"), afterFailure, "run-time error 9: Subscript out of range");
}

TEST_F(Paging, BeyondTheFifteenthSectionReadsNoMore)
{
    showSections(15);
    for (int section = 2; section <= 15; ++section)
        click("ButtonNextAnt");
    expect("15", true, true);
    click("ButtonNextAnt");
    expect("16", true, false);
    EXPECT_EQ(host.beeps, 0);
    EXPECT_EQ(screen().text("radiated"), "15");
    EXPECT_EXIT(click("ButtonPrevAnt"), afterFailure, "run-time error 9: Subscript out of range");
    host.answers.push_back(platform::Answer::Yes);
    EXPECT_EXIT(click("ButtonUpdate"), afterFailure, "run-time error 9: Subscript out of range");
    host.answers.clear();
}

TEST_F(Paging, HasNoWayInANoticeThatIsSuppressed)
{
    auto notice = smallNotice("T12", 0, 0);
    notice.intent = "SUPPRESS";
    notice.target.present = true;
    add(notice);
    show(0);
    expect("0", false, false);
    click("ButtonNextAnt");
    click("ButtonPrevAnt");
    expect("0", false, false);
}
