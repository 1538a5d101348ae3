// A notice screen at work: what comes up, Update, Delete, the keys, and how it closes.
#include "platform/numberText.h"
#include "screens/labels.h"
#include "screens/recordMapping.h"
#include "shownNotices.h"

#include <QLineEdit>

namespace {

using screens::NoticeScreen;
using screens::ScreenType;

class LoadedScreen : public ShownNotices, public testing::WithParamInterface<ScreenType>
{};

class AScreen : public ShownNotices
{
protected:
    void answer(platform::Answer given) { host.answers.push_back(given); }
};

std::string screenName(const testing::TestParamInfo<ScreenType>& test)
{
    return std::string(screens::typeName(test.param));
}

const platform::Answer yes = platform::Answer::Yes;
const platform::Answer no = platform::Answer::No;

} // namespace

INSTANTIATE_TEST_SUITE_P(All, LoadedScreen,
                         testing::Values(ScreenType::T11, ScreenType::T12, ScreenType::T13, ScreenType::T14),
                         screenName);

TEST_P(LoadedScreen, HasTitleKeyTypeContentAndButtonsBeforeItIsShown)
{
    const auto type = std::string(screens::typeName(GetParam()));
    addAll({type, type, type});
    read(0);
    NoticeScreen first(GetParam(), work.path(), walk, &mainScreen);
    first.load();
    EXPECT_FALSE(first.isVisible());
    screens::NoticeForm captioned(GetParam());
    screens::setScreenLabels(type, captioned);
    EXPECT_FALSE(first.windowTitle().isEmpty());
    EXPECT_EQ(first.windowTitle(), captioned.windowTitle());
    EXPECT_EQ(first.text("TxtVeldakey"), platform::integerText(session::currentVeldaKey));
    EXPECT_TRUE(first.control<QLineEdit>("TxtVeldakey")->isReadOnly());
    EXPECT_EQ(session::currentScreenType, type);
    EXPECT_EQ(first.text("addr_cde"), "0");
    EXPECT_EQ(first.text("TxtAntennaCnt"), "1");
    EXPECT_FALSE(first.control("ButtonPrevNtc")->isEnabled());
    EXPECT_TRUE(first.control("ButtonNextNtc")->isEnabled());

    read(2);
    NoticeScreen last(GetParam(), work.path(), walk, &mainScreen);
    last.load();
    EXPECT_TRUE(last.control("ButtonPrevNtc")->isEnabled());
    EXPECT_FALSE(last.control("ButtonNextNtc")->isEnabled());
}

TEST_P(LoadedScreen, LosesFromTheDatabaseWhatWasNeitherTypedNorUpdated)
{
    const auto type = std::string(screens::typeName(GetParam()));
    addAll({type, type});
    show(0);
    this->type("addr_cde", "7");
    click("ButtonNextNtc");
    click("ButtonPrevNtc");
    EXPECT_EQ(numberInSight(), "0");
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(stored(session::currentVeldaKey).addr_code, "0");
}

TEST_P(LoadedScreen, StoresWhatIsOnItByUpdateAndStaysAsItIs)
{
    const auto type = std::string(screens::typeName(GetParam()));
    const auto key = add(smallNotice(type, 0));
    show(0);
    auto* const before = &screen();
    this->type("addr_cde", "77");
    this->type("radiated", "9");
    host.answers.push_back(yes);
    click("ButtonUpdate");
    const FakeHost::Box asked{"Update notice in the database", "Update No : 1 in the database? ",
                              platform::Icon::None, platform::Buttons::YesNo};
    EXPECT_EQ(host.boxes, std::vector{asked});
    EXPECT_TRUE(session::ntcChanged);
    EXPECT_EQ(&screen(), before);
    EXPECT_EQ(numberInSight(), "77");
    const auto notice = stored(key);
    EXPECT_EQ(notice.addr_code, "77");
    EXPECT_EQ(notice.antenna[0].pwr_dbw, "9");
    EXPECT_NE(failureOf([] { session::db->requireSound(); }), 0) << "the database is still open";
}

TEST_F(AScreen, ChangesNothingWhenUpdateIsAnsweredByNo)
{
    const auto key = add(smallNotice("T12", 0));
    show(0);
    const auto before = work.contents();
    type("addr_cde", "77");
    answer(no);
    click("ButtonUpdate");
    EXPECT_FALSE(session::ntcChanged);
    EXPECT_EQ(session::notice.addr_code, "0");
    EXPECT_EQ(work.contents(), before);
    EXPECT_EQ(stored(key).addr_code, "0");
}

TEST_F(AScreen, UpdatesANoticeWithoutSectionsWithoutReadingOne)
{
    auto notice = smallNotice("T12", 0, 0);
    notice.intent = "SUPPRESS";
    notice.target.present = true;
    notice.target.trg_adm_ref_id = "REF";
    const auto key = add(notice);
    show(0);
    EXPECT_EQ(screen().text("TxtAntennaCnt"), "0");
    type("addr_cde", "77");
    answer(yes);
    click("ButtonUpdate");
    EXPECT_EQ(stored(key).addr_code, "77");
    EXPECT_EQ(work.count("kvr_ant"), 0);
}

TEST_F(AScreen, ShowsTheFollowingNoticeAfterDelete)
{
    addAll({"T12", "T12", "T12"});
    show(1);
    answer(yes);
    click("ButtonDelete");
    const FakeHost::Box asked{"Delete notice from database", "Delete No : 2 from the database? ",
                              platform::Icon::None, platform::Buttons::YesNoDefaultNo};
    EXPECT_EQ(host.boxes, std::vector{asked});
    EXPECT_TRUE(session::ntcChanged);
    EXPECT_EQ(numberInSight(), "2");
    EXPECT_EQ(session::currentIndex, 2);
    EXPECT_EQ(session::keyArray, (std::vector<std::int32_t>{1, session::deletedKey, 3}));
    EXPECT_EQ(work.count("kvr_velda"), 2);
    EXPECT_FALSE(isEnabled("ButtonNextNtc"));
    click("ButtonPrevNtc");
    EXPECT_EQ(numberInSight(), "0");
    EXPECT_FALSE(isEnabled("ButtonPrevNtc"));
}

TEST_F(AScreen, ShowsTheNoticeBeforeWhenTheLastIsDeleted)
{
    addAll({"T12", "T13", "T12"});
    show(2);
    answer(yes);
    click("ButtonDelete");
    EXPECT_EQ(typeInSight(), "T13");
    EXPECT_EQ(numberInSight(), "1");
    EXPECT_EQ(session::currentIndex, 1);
    EXPECT_FALSE(isEnabled("ButtonNextNtc"));
}

TEST_F(AScreen, ClosesWhenTheOnlyNoticeIsDeleted)
{
    addAll({"T12"});
    show(0);
    answer(yes);
    click("ButtonDelete");
    EXPECT_FALSE(isShown());
    EXPECT_EQ(work.count("kvr_velda"), 0);
    EXPECT_EQ(session::keyArray.front(), session::deletedKey);
}

TEST_F(AScreen, EndsTheProgramWhenItDeletesBesideTheKeys)
{
    const auto deletes = [&](const char* what) {
        answer(yes);
        EXPECT_EXIT(click("ButtonDelete"), testing::ExitedWithCode(3),
                    "run-time error 9: Subscript out of range")
            << what;
        host.answers.clear();
    };
    addAll({"T12", "T12"});
    show(1);
    session::keyArray.resize(1);
    deletes("too short");
    for (const auto index : {-1, 2, INT32_MAX}) {
        session::currentIndex = index;
        deletes("an index beside the list");
    }
    session::currentIndex = 0;
    session::keyArray.clear();
    deletes("empty");
    session::keyCount = 0;
    deletes("empty and known to be");
}

TEST_F(AScreen, StaysOnItsNoticeWhereThereAreNoKeys)
{
    addAll({"T12", "T12", "T12"});
    show(1);
    session::keyArray.clear();
    session::keyCount = 0;
    click("ButtonNextNtc");
    click("ButtonPrevNtc");
    EXPECT_EQ(numberInSight(), "1");
    session::keyCount = 3;
    for (const char* const button : {"ButtonNextNtc", "ButtonPrevNtc"})
        EXPECT_EXIT(click(button), testing::ExitedWithCode(3), "run-time error 9: Subscript out of range");
}

TEST_F(AScreen, DeletesNothingAfterNo)
{
    addAll({"T12", "T12"});
    show(0);
    answer(no);
    click("ButtonDelete");
    EXPECT_FALSE(session::ntcChanged);
    EXPECT_EQ(work.count("kvr_velda"), 2);
    EXPECT_EQ(numberInSight(), "0");
}

TEST_F(AScreen, DoesNothingForTheButtonThatCreatesNotices)
{
    addAll({"T11"});
    show(0);
    const auto before = work.contents();
    click("ButtonNTC");
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(host.beeps, 0);
    EXPECT_EQ(work.contents(), before);
    EXPECT_EQ(numberInSight(), "0");
}

TEST_F(AScreen, MovesAndUpdatesByItsShortcuts)
{
    add(smallNotice("T12", 0, 2));
    add(smallNotice("T12", 1, 2));
    show(0);
    const auto control = Qt::ControlModifier;
    for (const char* field : {"addr_cde", "TxtRemarks", "natsrv", "Int_Add"}) {
        screen().control(field)->setFocus();
        key(Qt::Key_PageDown, control);
        EXPECT_EQ(numberInSight(), "1") << field;
        screen().control(field)->setFocus();
        key(Qt::Key_PageUp, control);
        EXPECT_EQ(numberInSight(), "0") << field;
        key(Qt::Key_PageDown, control | Qt::ShiftModifier);
        EXPECT_EQ(screen().text("TxtAntennaCnt"), "2") << field;
        key(Qt::Key_PageUp, control | Qt::ShiftModifier);
        EXPECT_EQ(screen().text("TxtAntennaCnt"), "1") << field;
        answer(no);
        screen().control(field)->setFocus();
        key(Qt::Key_S, control);
        EXPECT_TRUE(host.answers.empty()) << field;
    }
}

TEST_F(AScreen, AShortcutOfADisabledButtonDoesNothing)
{
    addAll({"T12"});
    show(0);
    screen().control("natsrv")->setFocus();
    for (const auto code : {Qt::Key_PageDown, Qt::Key_PageUp})
        key(code, Qt::ControlModifier);
    key(Qt::Key_PageUp, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(numberInSight(), "0");
    EXPECT_EQ(screen().text("TxtAntennaCnt"), "1");
    EXPECT_EQ(session::currentIndex, 0);
}

TEST_F(AScreen, AShortcutChecksTheFieldInHandFirst)
{
    addAll({"T12", "T12"});
    show(0);
    type("dUseDD", "32");
    key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(host.messages, std::vector<std::string>{"Value should be between 1 and 31 "});
    EXPECT_EQ(numberInSight(), "0");
    EXPECT_EQ(focus(), "dUseDD");
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(host.boxes.size(), 2U);
    EXPECT_EQ(host.boxes.back().text, "Value should be between 1 and 31 ");
}

TEST_F(AScreen, AShortcutIsPressedThoughAnEmptyFieldSendsTheFocusOn)
{
    addAll({"T12", "T12"});
    show(0);
    screen().control("opAgcy")->setFocus();
    ASSERT_EQ(focus(), "opAgcy");
    answer(no);
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(host.answers.empty());
    EXPECT_EQ(focus(), "addr_cde");
    screen().control("opAgcy")->setFocus();
    key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(numberInSight(), "1");
}

TEST_F(AScreen, EscapeAndTheFrameCloseItWithoutACheck)
{
    addAll({"T12"});
    for (const bool byKey : {true, false}) {
        show(0);
        type("dUseDD", "32");
        if (byKey)
            key(Qt::Key_Escape);
        else
            screen().close();
        EXPECT_FALSE(isShown());
        EXPECT_TRUE(host.messages.empty());
    }
    EXPECT_EQ(stored(session::currentVeldaKey).d_inuse, "");
}

TEST_F(AScreen, CancelLeavesTheFieldInHandBeforeItCloses)
{
    addAll({"T12"});
    show(0);
    type("dUseDD", "32");
    click("ButtonCancel");
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_TRUE(isShown());
    type("dUseDD", "31");
    click("ButtonCancel");
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_FALSE(isShown());
    EXPECT_FALSE(session::ntcChanged);
}

TEST_F(AScreen, EnterPressesNoButton)
{
    addAll({"T12", "T12"});
    show(0);
    for (const char* control : {"addr_cde", "ButtonNextNtc", "ButtonCancel", "ButtonUpdate"}) {
        screen().control(control)->setFocus();
        key(Qt::Key_Return);
        EXPECT_EQ(numberInSight(), "0") << control;
    }
    EXPECT_TRUE(host.messages.empty());
}
