#include "db/writeNtcToDB.h"
#include "mainscreen/noticeListView.h"
#include "mainscreen/openScreen.h"
#include "model/session.h"
#include "screens/multiValueBox.h"
#include "screens/noticeScreen.h"
#include "support/noticeBuilder.h"
#include "support/windows.h"
#include "support/workingDatabase.h"
#include "x11/watchedHost.h"

#include <gtest/gtest.h>
#include <QAbstractItemView>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QScrollArea>
#include <QStyle>
#include <QStyleOptionComboBox>

#include <array>

// The notice screens under a window manager: who has the keyboard, what a click or a key is stopped by.
namespace {

using screens::MultiValueBox;
using screens::NoticeScreen;
using namespace x11;
using Told = std::vector<std::string>;
using Entries = std::vector<std::string>;

constexpr const char* badMonth = "Value should be between [1,12]"; // of T11
constexpr const char* badCountry = "Value must have only characters";
constexpr const char* onlyForChanges = "Only allowed for Mod/Sup/Wdraw notices";
constexpr const char* updateQuestion = "Update No : 1 in the database? ";

class HearingHost : public WatchedHost
{
public:
    void beep() override
    {
        ++beeps;
        WatchedHost::beep();
    }

    int beeps = 0;
};

class NoticeScreenOnDisplay : public testing::Test
{
protected:
    NoticeScreenOnDisplay()
    {
        session::language = "E";
        host.fileToOpen = work.path();
    }

    void store(const std::vector<std::string>& types)
    {
        const auto database = work.open();
        for (const auto& type : types) {
            Ntc notice;
            notice.notice_typ = type;
            notice.adm = "D";
            notice.fragment = "NTFD_RR";
            notice.intent = "ADD";
            notice.freq_assgn = "151.3375";
            notice.geo.present = true; // the list shows no notice without a site
            notice.geo.pt[0] = aPoint(0);
            notice.antenna[0].present = true;
            notice.antenna[0].pwr_dbw = "7";
            writeNtcToDB::insertNtc(notice, dao::DBEngine::Workspaces(0), database);
        }
        database->Close();
    }

    mainscreen::NoticeListView& list()
    {
        return windows::control<mainscreen::NoticeListView>(mainScreen, "DBGridView");
    }
    // Null for none; the one in sight.
    NoticeScreen* screenInSight()
    {
        for (auto* const screen : mainScreen.findChildren<NoticeScreen*>()) {
            if (screen->isVisible())
                return screen;
        }
        return nullptr;
    }
    NoticeScreen& screen()
    {
        auto* const found = screenInSight();
        if (found == nullptr)
            throw std::runtime_error("no notice screen is in sight");
        return *found;
    }
    QWidget& at(const char* name)
    {
        auto* const found = screen().control(name);
        if (found == nullptr)
            throw std::runtime_error(std::string("no such control: ") + name);
        return *found;
    }

    void showList()
    {
        ask([this] { mainScreen.show(); });
        awaitActive(mainScreen);
        press({"ctrl+m"});
        await("the list is there", [this] { return list().isVisible() && list().hasFocus(); });
    }
    void open(const std::vector<std::string>& types)
    {
        ask([&] { store(types); });
        showList();
        settle();
        press({"Return"});
        awaitScreen(types.front());
    }
    void awaitScreen(const std::string& type)
    {
        await("the screen of " + type, [this, type] {
            const auto* const shown = screenInSight();
            return shown != nullptr && screens::typeName(shown->type()) == type;
        });
        awaitActive(*ask([this] { return screenInSight(); }));
        settle();
    }
    void awaitBackInScreen()
    {
        awaitNoBox();
        awaitActive(*ask([this] { return &screen(); }));
        settle();
    }
    void awaitBackInList()
    {
        await("the screen is gone", [this] { return screenInSight() == nullptr; });
        awaitActive(mainScreen);
        await("the list has the focus", [this] { return list().hasFocus(); });
        settle();
    }

    // A field of a window that is larger than the display may be out of sight.
    QWidget& inSight(const char* name)
    {
        return *ask([&] {
            auto& widget = at(name);
            auto& area = *screen().findChild<QScrollArea*>();
            if (area.isAncestorOf(&widget))
                area.ensureWidgetVisible(&widget);
            if (!widget.isVisible())
                throw std::runtime_error(std::string("is hidden: ") + name);
            return &widget;
        });
    }
    void clickOn(const char* name) { click(inSight(name)); }
    std::string focus()
    {
        return ask([this] {
            const auto* const widget = QApplication::focusWidget();
            return widget != nullptr ? widget->objectName().section('(', 0, 0).toStdString() : "none";
        });
    }
    void awaitFocus(const char* name)
    {
        await(std::string("the focus is in ") + name, [this, name] { return at(name).hasFocus(); });
    }
    void enter(const char* name)
    {
        clickOn(name);
        awaitFocus(name);
    }
    void fill(const char* name, const char* text)
    {
        enter(name);
        press({"ctrl+a"});
        type(text);
        await(std::string("the text is typed into ") + name,
              [this, name, text] { return screen().text(name) == text; });
    }
    void enterFirstAdministration()
    {
        if (focus() == "opAgcy") { // empty, it sends on itself
            clickOn("nAdm");
            awaitFocus("addr_cde");
        }
        enter("cAdm1");
    }
    std::string text(const char* name)
    {
        return ask([this, name] { return screen().text(name); });
    }
    static QLineEdit* lineOf(QWidget* field)
    {
        if (auto* const box = qobject_cast<QComboBox*>(field))
            return box->lineEdit();
        return qobject_cast<QLineEdit*>(field);
    }

    Told told()
    {
        return ask([this] { return std::exchange(host.told, {}); });
    }
    // The operator is back in the field with its text selected, and nothing went through.
    void expectBackIn(const char* name, const char* content)
    {
        awaitBackInScreen();
        EXPECT_EQ(focus(), name);
        ask([&] {
            EXPECT_EQ(lineOf(&at(name))->selectedText().toStdString(), content);
            EXPECT_EQ(session::currentIndex, 0);
            EXPECT_FALSE(session::ntcChanged);
            for (const auto* const button : screen().findChildren<QAbstractButton*>())
                EXPECT_FALSE(button->isDown()) << button->objectName().toStdString();
        });
    }

    WorkingDatabase work;
    HearingHost host;
    mainscreen::OpenScreen mainScreen{host};
};

// A bad field is never left.

struct BadField
{
    const char* screen;
    const char* name;
    const char* text;
    const char* message;
};
constexpr std::array<BadField, 2> badFields = {{
    {"T11", "dNtcMM", "13", badMonth},
    {"T12", "ctry", "A1", badCountry},
}};

// How an operator tries to leave a field: a click on a control, or a key.
struct Way
{
    const char* name;
    const char* control; // null: the key
    const char* key;
};
// clang-format off
constexpr std::array ways = {
    Way{"aClickOnAnotherField", "nAdm",          nullptr},
    Way{"aClickOnABoxOfValues", "natsrv",        nullptr},
    Way{"aClickOnAnOption",     "Int_Mod",       nullptr},
    Way{"aClickOnClose",        "ButtonCancel",  nullptr},
    Way{"aClickOnNext",         "ButtonNextNtc", nullptr},
    Way{"aClickOnUpdate",       "ButtonUpdate",  nullptr},
    Way{"Tab",                  nullptr,         "Tab"},
    Way{"ShiftTab",             nullptr,         "shift+Tab"},
    Way{"CtrlS",                nullptr,         "ctrl+s"},
    Way{"CtrlPgDn",             nullptr,         "ctrl+Next"},
    Way{"CtrlShiftPgDn",        nullptr,         "ctrl+shift+Next"},
    Way{"AltC",                 nullptr,         "alt+c"},
};
// clang-format on

class LeavingABadFieldNoticeScreenOnDisplay : public NoticeScreenOnDisplay,
                                              public testing::WithParamInterface<std::tuple<BadField, Way>>
{};

TEST_P(LeavingABadFieldNoticeScreenOnDisplay, isToldOnceAndLeadsBackToIt)
{
    const auto& field = std::get<BadField>(GetParam());
    const auto& way = std::get<Way>(GetParam());
    play([&] {
        open({field.screen, "T13"});
        fill(field.name, field.text);
        if (way.control != nullptr)
            clickOn(way.control);
        else
            press({way.key});
        answer(awaitBox(), Answering::Enter);
        expectBackIn(field.name, field.text);
        EXPECT_EQ(told(), Told{field.message});
        EXPECT_EQ(ask([&] { return host.beeps; }), 1);
        ask([&] {
            EXPECT_FALSE(screen().isSelected("Int_Mod"));
            EXPECT_EQ(screen().text("TxtAntennaCnt"), "1");
        });
    });
}

std::string nameOf(const testing::TestParamInfo<std::tuple<BadField, Way>>& info)
{
    const auto& [field, way] = info.param;
    return std::string(field.name) + "By" + way.name;
}

INSTANTIATE_TEST_SUITE_P(OnDisplay, LeavingABadFieldNoticeScreenOnDisplay,
                         testing::Combine(testing::ValuesIn(badFields), testing::ValuesIn(ways)), nameOf);

TEST_F(NoticeScreenOnDisplay, aBadFieldIsGivenUpWithoutAWord)
{
    play([&] {
        ask([this] { store({"T11"}); });
        showList();
        const std::vector<std::function<void()>> givingUp = {
            [] { press({"Escape"}); },
            [] { press({"alt+F4"}); },
            [&] { clickClose(*ask([&] { return &screen(); })); },
        };
        for (const auto& giveUp : givingUp) {
            settle();
            press({"Return"});
            awaitScreen("T11");
            fill("dNtcMM", "13");
            giveUp();
            awaitBackInList();
            EXPECT_EQ(told(), Told{});
        }
    });
}

TEST_F(NoticeScreenOnDisplay, twoBadNeighboursDoNotTakeTheFocusFromOneAnother)
{
    play([&] {
        open({"T11"});
        ask([&] { screen().setText("dNtcMM", "13"); });
        fill("dNtcDD", "32");
        const auto* const badDay = "Value should be between [1,31]";
        for (const auto how : {Answering::Click, Answering::Enter, Answering::Escape}) {
            clickOn("dNtcMM");
            answer(awaitBox(), how);
            expectBackIn("dNtcDD", "32");
            EXPECT_EQ(told(), Told{badDay});
        }
        type("31");
        enter("dNtcMM");
        clickOn("dNtcDD");
        answer(awaitBox(), Answering::Click);
        expectBackIn("dNtcMM", "13");
        EXPECT_EQ(told(), Told{badMonth});
    });
}

// Behind the box of a check.

TEST_F(NoticeScreenOnDisplay, theMainScreenCannotBeReachedFromTheBoxOfACheck)
{
    play([&] {
        open({"T11", "T12"});
        ask([&] { // beside one another
            screen().setGeometry(20, 320, 1000, 400);
            mainScreen.setGeometry(20, 40, 700, 200);
        });
        awaitActive(*ask([&] { return &screen(); }));
        settle();
        fill("dNtcMM", "13");
        press({"Tab"});
        const auto& box = awaitBox();
        click(mainScreen, QPoint(300, 120));
        click(mainScreen, QPoint(20, 8));
        activate(mainScreen);
        awaitActive(box);
        settle();
        EXPECT_EQ(ask(boxOnScreen), &box);
        EXPECT_EQ(ask(QApplication::activePopupWidget), nullptr);
        answer(box, Answering::Escape);
        expectBackIn("dNtcMM", "13");
        EXPECT_EQ(told(), Told{badMonth});
        EXPECT_EQ(ask([&] { return list().currentRow(); }), 0);
        EXPECT_EQ(session::currentVeldaKey, 1);
    });
}

// Target fields of a notice that is new.

TEST_F(NoticeScreenOnDisplay, theTargetZoneOfANewNoticeSendsToTheFrequency)
{
    play([&] {
        open({"T14"});
        ASSERT_TRUE(ask([&] { return screen().isSelected("Int_Add"); }));
        for (const char* before : {"nAdm", "natsrv", "freq"}) {
            enter(before);
            clickOn("trgZoneID");
            answer(awaitBox(), Answering::Enter);
            awaitBackInScreen();
            EXPECT_EQ(focus(), "freq") << before;
            EXPECT_EQ(told(), Told{onlyForChanges}) << before;
            EXPECT_EQ(ask([&] { return std::exchange(host.beeps, 0); }), 1) << before;
        }
        type("7"); // in the place of what is selected
        settle();
        EXPECT_EQ(text("freq"), "7");
        EXPECT_EQ(text("trgZoneID"), "");
    });
}

TEST_F(NoticeScreenOnDisplay, aTargetFieldThatIsInSightSendsToTheFrequency)
{
    play([&] {
        open({"T11"});
        for (const char* target : {"trgFreq", "trgOpCls", "NS"}) {
            enter("nAdm");
            ask([&] { at(target).show(); });
            clickOn(target);
            answer(awaitBox(), Answering::Click);
            awaitBackInScreen();
            EXPECT_EQ(focus(), "freq") << target;
            EXPECT_EQ(told(), Told{onlyForChanges}) << target;
            EXPECT_EQ(ask([&] { return std::exchange(host.beeps, 0); }), 1) << target;
        }
    });
}

TEST_F(NoticeScreenOnDisplay, aBadFieldIsToldBeforeATargetFieldIsRefused)
{
    play([&] {
        open({"T14"});
        fill("nAdm", "A1");
        clickOn("trgZoneID");
        answer(awaitBox(), Answering::Enter);
        expectBackIn("nAdm", "A1");
        EXPECT_EQ(told(), Told{badCountry});
    });
}

// Jumps.

TEST_F(NoticeScreenOnDisplay, anEmptyAdministrationSendsOnToTheAgencies)
{
    const auto leave = [&](const std::function<void()>& how) {
        enterFirstAdministration();
        how();
        awaitFocus("opAgcy");
        settle();
        EXPECT_EQ(focus(), "opAgcy");
    };
    play([&] {
        open({"T11"});
        leave([] { press({"Tab"}); });
        leave([&] { clickOn("siteName"); });
        leave([&] { clickOn("natsrv"); });
        EXPECT_EQ(told(), Told{});
        EXPECT_FALSE(ask([&] { return screen().isSelected("Int_Mod"); }));
    });
}

TEST_F(NoticeScreenOnDisplay, aButtonIsPressedFromAnEmptyAdministration)
{
    const std::vector<std::function<void(const QMessageBox&)>> noes = {
        [](const QMessageBox& box) { click(*ask([&] { return box.button(QMessageBox::No); })); },
        [](const QMessageBox&) { press({"alt+n"}); },
    };
    play([&] {
        open({"T11"});
        for (const auto& answerNo : noes) {
            enterFirstAdministration();
            clickOn("ButtonUpdate");
            const auto& box = awaitBox();
            EXPECT_EQ(told(), Told{updateQuestion});
            answerNo(box);
            awaitBackInScreen();
            EXPECT_EQ(focus(), "opAgcy");
            EXPECT_FALSE(ask([&] { return at("ButtonUpdate").hasFocus() || session::ntcChanged; }));
        }
        enterFirstAdministration();
        clickOn("ButtonCancel");
        awaitBackInList();
        EXPECT_EQ(told(), Told{});
    });
}

TEST_F(NoticeScreenOnDisplay, aYesToTheQuestionFromAnEmptyAdministrationUpdates)
{
    play([&] {
        // Otherwise the end of the test would be asked whether to save.
        const auto forget = qScopeGuard([] { ask([] { session::ntcChanged = false; }); });
        open({"T11"});
        fill("addr_cde", "Z9");
        enter("cAdm1");
        clickOn("ButtonUpdate");
        const auto& box = awaitBox();
        click(*ask([&] { return box.button(QMessageBox::Yes); }));
        awaitBackInScreen();
        EXPECT_EQ(focus(), "opAgcy");
        EXPECT_EQ(told(), Told{updateQuestion});
        EXPECT_TRUE(ask([] { return session::ntcChanged; }));
        EXPECT_EQ(ask([] { return session::notice.addr_code; }), "Z9");
    });
}

TEST_F(NoticeScreenOnDisplay, enterDoesNotDelete)
{
    play([&] {
        const auto forget = qScopeGuard([] { ask([] { session::ntcChanged = false; }); });
        open({"T11"});
        clickOn("ButtonDelete");
        awaitBox();
        EXPECT_EQ(told(), Told{"Delete No : 1 from the database? "});
        press({"Return"});
        awaitBackInScreen();
        EXPECT_FALSE(ask([] { return session::ntcChanged; }));
        EXPECT_EQ(ask([this] { return work.count("kvr_velda"); }), 1);
    });
}

// Boxes of several values.

class BoxOfValuesNoticeScreenOnDisplay : public NoticeScreenOnDisplay
{
protected:
    MultiValueBox& services() { return *screen().multiValueBox("natsrv"); }
    Entries entries()
    {
        return ask([&] { return services().entries(); });
    }
    int selected()
    {
        return ask([&] { return services().selectedEntry(); });
    }
    // To the text, not to the arrow.
    void enterBox()
    {
        inSight("natsrv");
        click(*ask([&] { return services().lineEdit(); }));
        awaitFocus("natsrv");
    }
    void addByEnter(const Entries& all)
    {
        enterBox();
        press({"BackSpace"});
        for (const auto& entry : all) {
            type(QString::fromStdString(entry));
            press({"Return"});
            await("the entry is taken", [&] { return services().currentText().isEmpty(); });
        }
    }
    void openWithEntries()
    {
        open({"T11", "T12"});
        addByEnter({"cp", "co", "fx"});
        settle();
    }
    // One way and back.
    void turnWheel()
    {
        for (const char* button : {"5", "4"}) {
            pointAt(inSight("natsrv"));
            xdotool({"click", "--repeat", "3", button});
            settle();
        }
    }
    void pick(int row)
    {
        auto& box = *ask([&] { return &services(); });
        click(box, ask([&] {
                  QStyleOptionComboBox option;
                  option.initFrom(&box);
                  option.editable = true;
                  return box.style()
                      ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &box)
                      .center();
              }));
        awaitList();
        auto& view = *ask([&] { return box.view(); });
        click(*ask([&] { return view.viewport(); }),
              ask([&] { return view.visualRect(view.model()->index(row, 0)).center(); }));
        awaitListClosed();
    }
    void openByKey()
    {
        press({"alt+Down"});
        awaitList();
        settle();
    }
    static void awaitList()
    {
        await("the list opens", [] {
            const auto* const popup = QApplication::activePopupWidget();
            return popup != nullptr && popup->windowHandle()->isExposed();
        });
    }
    void awaitListClosed()
    {
        await("the list closes", [] { return QApplication::activePopupWidget() == nullptr; });
        awaitBackInScreen();
    }
    std::string marked()
    {
        return ask([&] { return services().view()->currentIndex().data().toString().toStdString(); });
    }
};

TEST_F(BoxOfValuesNoticeScreenOnDisplay, enterAddsAndPressesNoButton)
{
    play([&] {
        openWithEntries();
        EXPECT_EQ(entries(), (Entries{"CP", "CO", "FX"}));
        press({"Return", "Return"}); // of an empty box
        settle();
        EXPECT_EQ(entries(), (Entries{"CP", "CO", "FX"}));
        EXPECT_EQ(focus(), "natsrv");
        EXPECT_EQ(told(), Told{});
        EXPECT_EQ(session::currentIndex, 0);
        EXPECT_EQ(text("TxtAntennaCnt"), "1");
    });
}

TEST_F(BoxOfValuesNoticeScreenOnDisplay, anEntryPickedFromTheListIsSelectedAndRemoved)
{
    play([&] {
        openWithEntries();
        pick(1);
        EXPECT_EQ(selected(), 1);
        EXPECT_EQ(text("natsrv"), "CO");
        EXPECT_EQ(focus(), "natsrv");
        press({"BackSpace"});
        settle();
        EXPECT_EQ(entries(), (Entries{"CP", "FX"}));
        EXPECT_EQ(text("natsrv"), "");
        type("xy");
        settle();
        pick(0);
        EXPECT_EQ(selected(), 0);
        EXPECT_EQ(text("natsrv"), "CP");
        EXPECT_EQ(told(), Told{});
    });
}

TEST_F(BoxOfValuesNoticeScreenOnDisplay, theSameEntryPickedAgainIsSelectedAgain)
{
    play([&] {
        openWithEntries();
        pick(1);
        press({"ctrl+a"});
        type("q");
        settle();
        EXPECT_EQ(selected(), -1);
        pick(1);
        EXPECT_EQ(selected(), 1);
        EXPECT_EQ(text("natsrv"), "CO");
    });
}

TEST_F(BoxOfValuesNoticeScreenOnDisplay, keysAreForTheOpenList)
{
    play([&] {
        openWithEntries();
        openByKey();
        EXPECT_EQ(marked(), "CP");
        const auto expectMarked = [&](const char* key, const char* entry) {
            press({key});
            settle();
            EXPECT_EQ(marked(), entry) << key;
            EXPECT_EQ(text("natsrv"), "") << key;
        };
        expectMarked("Down", "CO");
        expectMarked("Down", "FX");
        expectMarked("Down", "FX");
        expectMarked("Up", "CO");
        expectMarked("BackSpace", "CO");
        expectMarked("f", "FX");
        press({"Return"});
        awaitListClosed();
        EXPECT_EQ(selected(), 2);
        EXPECT_EQ(text("natsrv"), "FX");
        EXPECT_EQ(entries(), (Entries{"CP", "CO", "FX"}));
        EXPECT_EQ(focus(), "natsrv");
        EXPECT_EQ(told(), Told{});
    });
}

TEST_F(BoxOfValuesNoticeScreenOnDisplay, escapeClosesTheOpenListAlone)
{
    play([&] {
        openWithEntries();
        pick(1);
        openByKey();
        press({"Up", "Escape"});
        awaitListClosed();
        EXPECT_EQ(selected(), 1);
        EXPECT_EQ(text("natsrv"), "CO");
        EXPECT_EQ(focus(), "natsrv");
        press({"Escape"});
        awaitBackInList();
        EXPECT_EQ(told(), Told{});
    });
}

TEST_F(BoxOfValuesNoticeScreenOnDisplay, aClickBesideTheOpenListClosesItAlone)
{
    play([&] {
        openWithEntries();
        openByKey();
        press({"Down"});
        settle();
        clickOn("nAdm");
        awaitListClosed();
        EXPECT_EQ(focus(), "natsrv");
        EXPECT_EQ(selected(), -1);
        EXPECT_EQ(text("natsrv"), "");
        EXPECT_EQ(told(), Told{});
    });
}

TEST_F(BoxOfValuesNoticeScreenOnDisplay, theWheelChangesNothing)
{
    const auto expect = [&](int entry, const char* shown) {
        EXPECT_EQ(entries(), (Entries{"CP", "CO", "FX"}));
        EXPECT_EQ(selected(), entry);
        EXPECT_EQ(text("natsrv"), shown);
    };
    play([&] {
        openWithEntries();
        pick(1);
        turnWheel();
        expect(1, "CO");
        press({"ctrl+a"});
        type("x");
        settle();
        turnWheel();
        expect(-1, "x");
        fill("nAdm", "D");
        expect(0, "CP");
        turnWheel();
        expect(0, "CP");
        EXPECT_EQ(told(), Told{});
    });
}

TEST_F(BoxOfValuesNoticeScreenOnDisplay, theWheelOverItIsNoLeavingOfAField)
{
    play([&] {
        open({"T11"});
        fill("dNtcMM", "12");
        turnWheel();
        EXPECT_EQ(focus(), "dNtcMM");
        fill("dNtcMM", "13");
        turnWheel();
        EXPECT_EQ(focus(), "dNtcMM");
        EXPECT_EQ(told(), Told{});
    });
}

// From screen to screen.

TEST_F(NoticeScreenOnDisplay, theNextScreenTakesTheKeyboardOver)
{
    const auto handOver = [&](const char* type, const std::function<void()>& how) {
        const QPointer<NoticeScreen> old = ask([&] { return &screen(); });
        how();
        awaitScreen(type);
        ask([&] {
            EXPECT_TRUE(old.isNull());
            EXPECT_EQ(mainScreen.findChildren<NoticeScreen*>().size(), 1);
            EXPECT_EQ(QApplication::activeModalWidget(), &screen());
            auto* const line = lineOf(QApplication::focusWidget());
            ASSERT_NE(line, nullptr);
            ASSERT_EQ(line->window(), &screen());
        });
        press({"ctrl+a"});
        x11::type("7");
        settle();
        EXPECT_EQ(ask([&] { return lineOf(QApplication::focusWidget())->text(); }), "7") << type;
        press({"ctrl+a", "Delete"}); // it may be a field with a check
    };
    play([&] {
        open({"T11", "T12", "T14"});
        handOver("T12", [&] { clickOn("ButtonNextNtc"); });
        handOver("T14", [] { press({"ctrl+Next"}); });
        handOver("T12", [] { press({"ctrl+Prior"}); });
        handOver("T11", [&] { clickOn("ButtonPrevNtc"); });
        EXPECT_EQ(told(), Told{});
        clickOn("ButtonCancel");
        awaitBackInList();
        EXPECT_EQ(ask([&] { return list().currentRow(); }), 0);
    });
}

TEST_F(NoticeScreenOnDisplay, theListHasTheFocusAtTheNoticeThatWasShownLast)
{
    play([&] {
        open({"T11", "T11", "T12"});
        clickOn("ButtonNextNtc");
        await("the next notice", [] { return session::currentVeldaKey == 2; });
        clickOn("ButtonCancel");
        awaitBackInList();
        EXPECT_EQ(ask([&] { return list().currentRow(); }), 1);
        press({"Down", "Return"});
        awaitScreen("T12");
        press({"alt+c"});
        awaitBackInList();
        EXPECT_EQ(ask([&] { return list().currentRow(); }), 2);
        EXPECT_EQ(told(), Told{});
    });
}

} // namespace
