#include "screens/captionLabel.h"
#include "screens/fieldEdit.h"
#include "screens/formLists.h"
#include "screens/labels.h"
#include "screens/multiValueBox.h"
#include "screens/noticeForm.h"
#include "support/fakeHost.h"
#include "support/windows.h"

#include <gtest/gtest.h>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>
#include <iterator>
#include <set>
#include <sstream>

using screens::FieldEdit;
using screens::NoticeForm;
using screens::ScreenType;
using Names = std::vector<std::string>;

namespace {

// Each test once for every screen, 1 to 4.
class Form : public testing::TestWithParam<int>
{
protected:
    NoticeForm form{static_cast<ScreenType>(GetParam() - 1)};

    static std::string plain(const std::string& name) { return name.substr(0, name.find('(')); }
    [[nodiscard]] QWidget& control(const std::string& name) const { return *form.control(plain(name)); }
    void open() { windows::open(form); }

    // The stops of the Tab key: a set of options is one, at its first.
    [[nodiscard]] Names stops() const
    {
        std::set<std::string> later;
        for (const auto& set : formLists::optionSets(GetParam()))
            for (auto rest = set.find(' '); rest != std::string::npos; rest = set.find(' ', rest + 1))
                later.insert(set.substr(rest + 1, set.find(' ', rest + 1) - rest - 1));
        auto all = formLists::tabOrder(GetParam());
        std::erase_if(all, [&later](const std::string& name) { return later.contains(name); });
        return all;
    }

    Names walk(Qt::Key key, std::size_t steps)
    {
        Names names;
        for (std::size_t step = 0; step < steps; ++step) {
            names.push_back(windows::focusName(form));
            QTest::keyClick(form.focusWidget(), key,
                            key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        }
        return names;
    }
};

INSTANTIATE_TEST_SUITE_P(Screens, Form, testing::Range(1, 5));

} // namespace

TEST_P(Form, HasTheNameOfItsScreen)
{
    EXPECT_EQ(form.objectName().toStdString(), "T1" + std::to_string(GetParam()) + "Screen");
}

TEST_P(Form, HasExactlyTheControlsOfItsScreenEachOnce)
{
    std::multiset<std::string> expected;
    for (const auto& name : formLists::tabOrder(GetParam()))
        expected.insert(name);
    for (const auto& name : formLists::others(GetParam()))
        expected.insert(name);
    std::multiset<std::string> actual;
    for (const auto* child : form.findChildren<QWidget*>()) {
        const auto name = child->objectName().toStdString();
        const bool isOurs = !name.empty() && !name.starts_with("qt_") && !name.starts_with("caption") &&
                            !name.starts_with("group");
        if (isOurs && (!child->parentWidget() || !qobject_cast<QComboBox*>(child->parentWidget())))
            actual.insert(name);
    }
    EXPECT_EQ(actual, expected);
}

TEST_P(Form, FindsEveryControlWithoutItsIndexAndNoneOfAnotherScreen)
{
    std::set<std::string> here;
    for (auto names : {formLists::tabOrder(GetParam()), formLists::others(GetParam())})
        for (const auto& name : names) {
            here.insert(plain(name));
            ASSERT_TRUE(form.has(plain(name))) << name;
            EXPECT_EQ(control(name).objectName().toStdString(), name);
        }
    for (int screen = 1; screen <= 4; ++screen)
        for (const auto& name : formLists::tabOrder(screen))
            EXPECT_EQ(form.has(plain(name)), here.contains(plain(name))) << name;
}

TEST_P(Form, GivesEveryFieldANameThatIsReadOut)
{
    for (const auto* child : form.findChildren<QWidget*>()) {
        const bool isField = form.has(plain(child->objectName().toStdString())) &&
                             !qobject_cast<const QLabel*>(child) &&
                             !qobject_cast<const QAbstractButton*>(child);
        EXPECT_TRUE(!isField || !child->accessibleName().isEmpty()) << child->objectName().toStdString();
    }
}

TEST_P(Form, GivesEverythingElseANameToo)
{
    screens::setScreenLabels("T1" + std::to_string(GetParam()), form);
    EXPECT_EQ(windows::badNames(form), "");
}

TEST_P(Form, SaysWhichFieldsAreNotStored)
{
    std::set<std::string> expected{"cAdm11", "cAdm12", "cAdm13"};
    if (GetParam() <= 2)
        expected.insert("pwrMax");
    for (int zone = 16; (GetParam() == 2 || GetParam() == 3) && zone <= 24; ++zone)
        expected.insert("Rzone" + std::to_string(zone));
    std::set<std::string> actual;
    for (const auto* child : form.findChildren<QWidget*>())
        if (child->accessibleName().endsWith("(not stored)"))
            actual.insert(child->objectName().toStdString());
    EXPECT_EQ(actual, expected);
}

TEST_P(Form, TabGoesThroughAllStopsInTheirOrderAndRoundAgain)
{
    open();
    const auto expected = stops();
    control(expected.front()).setFocus();
    EXPECT_EQ(walk(Qt::Key_Tab, expected.size()), expected);
    EXPECT_EQ(windows::focusName(form), expected.front());
}

TEST_P(Form, ShiftTabGoesTheSameWayBack)
{
    open();
    auto expected = stops();
    std::reverse(expected.begin(), expected.end());
    control(expected.front()).setFocus();
    EXPECT_EQ(walk(Qt::Key_Backtab, expected.size()), expected);
    EXPECT_EQ(windows::focusName(form), expected.front());
}

TEST_P(Form, TabStopsOfASetAtItsSelectedOption)
{
    open();
    form.setSelected("Int_Sup", true);
    control("nAdm").setFocus();
    EXPECT_EQ(walk(Qt::Key_Tab, 3), (Names{"nAdm", "Int_Sup", "dNtcDD"}));
}

TEST_P(Form, SetsStandWithNoneSelectedAndAreExclusive)
{
    for (const auto& set : formLists::optionSets(GetParam())) {
        std::istringstream words(set);
        const Names names{std::istream_iterator<std::string>(words), {}};
        for (const auto& name : names)
            EXPECT_FALSE(form.isSelected(name)) << name;
        for (const auto& name : names) {
            form.setSelected(name, true);
            for (const auto& other : names)
                EXPECT_EQ(form.isSelected(other), other == name) << other << " after " << name;
        }
        form.setSelected(names.back(), false);
        for (const auto& name : names)
            EXPECT_FALSE(form.isSelected(name)) << name;
    }
}

TEST_P(Form, SelectingAnOptionOfOneSetLeavesTheOthersAlone)
{
    for (const auto& set : formLists::optionSets(GetParam()))
        form.setSelected(set.substr(0, set.find(' ')), true);
    for (const auto& set : formLists::optionSets(GetParam()))
        EXPECT_TRUE(form.isSelected(set.substr(0, set.find(' ')))) << set;
}

TEST_P(Form, AnOptionTellsOnceThatItWasSelectedWhenTheOthersAreClear)
{
    open();
    form.setSelected("Int_Add", true);
    auto& modify = windows::control<QRadioButton>(form, "Int_Mod");
    int told = 0;
    QObject::connect(&modify, &QRadioButton::toggled, &form, [&](bool selected) {
        told += selected ? 1 : 0;
        EXPECT_TRUE(!selected || !form.isSelected("Int_Add"));
    });
    form.setSelected("Int_Mod", true);
    EXPECT_EQ(told, 1);
    form.setSelected("Int_Add", true);
    windows::click(form, "Int_Mod");
    EXPECT_EQ(told, 2);
    windows::click(form, "Int_Mod"); // stays selected
    EXPECT_EQ(told, 2);
    EXPECT_TRUE(form.isSelected("Int_Mod"));
}

TEST_P(Form, ArrowKeysGoRoundASetAndSelect)
{
    open();
    control("Int_Add").setFocus();
    Names selected;
    for (const auto key :
         {Qt::Key_Right, Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Up, Qt::Key_Left}) {
        windows::press(form, key);
        selected.push_back(windows::focusName(form));
        EXPECT_TRUE(form.isSelected(selected.back()));
    }
    EXPECT_EQ(selected, (Names{"Int_Mod", "Int_Sup", "Int_Wdraw", "Int_Add", "Int_Wdraw", "Int_Sup"}));
}

TEST_P(Form, SpaceSelectsTheFirstOptionOfAnEmptySet)
{
    open();
    control("Int_Add").setFocus();
    windows::press(form, Qt::Key_Space);
    EXPECT_TRUE(form.isSelected("Int_Add"));
}

TEST_P(Form, LimitsWhatIsTyped)
{
    open();
    for (const auto& [name, limit] : formLists::inputLimits(GetParam())) {
        auto& edit = dynamic_cast<QLineEdit&>(control(name));
        EXPECT_EQ(edit.property("inputLimit").toInt(), limit) << name;
        edit.setFocus();
        QTest::keyClicks(&edit, QString(limit + 2, '1'));
        EXPECT_EQ(form.text(name), std::string(static_cast<std::size_t>(limit), '1')) << name;
    }
}

TEST_P(Form, TakesNoLimitToFieldsThatHaveNone)
{
    std::set<std::string> limited;
    for (const auto& [name, limit] : formLists::inputLimits(GetParam()))
        limited.insert(name);
    for (const auto* edit : form.findChildren<FieldEdit*>()) {
        const auto name = edit->objectName().toStdString();
        EXPECT_EQ(edit->property("inputLimit").isValid(), limited.contains(plain(name))) << name;
    }
}

TEST_P(Form, ShowsTextFromCodeWhole)
{
    const std::string text = "longer than any limit of any box on the screen";
    for (const auto& [name, limit] : formLists::inputLimits(GetParam())) {
        form.setText(name, text);
        EXPECT_EQ(form.text(name), text) << name;
    }
}

// A new text is passed on from row to group to window, a round of the event loop for each.
static void letArrange()
{
    for (int round = 0; round < 20; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

TEST_P(Form, ShowsWholeOnAScreenOf1280By800)
{
    // What windows have around them leaves this.
    EXPECT_LE(form.sizeHint().width(), 1270);
    EXPECT_LE(form.sizeHint().height(), 760);
}

TEST_P(Form, ComesUpAtTheSizeThatShowsEverything)
{
    open();
    EXPECT_EQ(form.size(), form.sizeHint().boundedTo(form.screen()->availableSize()));
}

TEST_P(Form, NothingMovesWhenAFieldIsHidden)
{
    open();
    const auto before = control("NS").geometry();
    const auto freqBefore = control("freq(0)").geometry();
    for (const auto* name : {"trgadmRefID", "trgFreq", "Unit", "trgDeg", "trgMin", "trgsec", "EW", "trgLdeg"})
        control(name).hide();
    QTest::qWait(10);
    EXPECT_EQ(control("NS").geometry(), before);
    EXPECT_EQ(control("freq(0)").geometry(), freqBefore);
}

TEST_P(Form, DrawsCaptionsOfColumnsAboveTheirFields)
{
    open();
    for (const auto& caption : formLists::captionsOfColumns(GetParam()))
        for (const auto& text : caption.texts) {
            auto& label = dynamic_cast<screens::CaptionLabel&>(control(caption.label));
            label.setText(QString::fromStdString(text));
            letArrange();
            EXPECT_EQ(label.text().toStdString(), text);
            ASSERT_EQ(label.pieces().size(), static_cast<qsizetype>(caption.below.size())) << text;
            int right = -1;
            for (int piece = 0; piece < label.pieces().size(); ++piece) {
                const auto drawn = label.pieceRect(piece).translated(label.pos());
                const auto& below = caption.below.at(static_cast<std::size_t>(piece));
                EXPECT_GT(drawn.left(), right) << text << ", piece " << piece;
                right = drawn.right();
                EXPECT_LE(right, label.geometry().right()) << text;
                if (below.empty())
                    continue;
                EXPECT_EQ(drawn.left(), control(below).geometry().left()) << text << " over " << below;
                EXPECT_LT(drawn.bottom(), control(below).geometry().top()) << text << " over " << below;
            }
        }
}

TEST_P(Form, EnterPressesNoButton)
{
    open();
    int pressed = 0;
    for (auto* button : form.findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->isDefault() || button->autoDefault()) << button->objectName().toStdString();
        QObject::connect(button, &QPushButton::clicked, &form, [&pressed] { ++pressed; });
    }
    for (const auto& name : formLists::tabOrder(GetParam()))
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
            control(name).setFocus();
            QTest::keyClick(&control(name), key);
            EXPECT_TRUE(form.isVisible()) << name;
        }
    EXPECT_EQ(pressed, 0);
}

TEST_P(Form, EscapeClosesAsTheFrameDoes)
{
    for (const auto& name : {"nAdm", "Int_Add", "natsrv", "TxtRemarks", "ButtonPrint", "TxtVeldakey"}) {
        open();
        control(name).setFocus();
        QTest::keyClick(&control(name), Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible()) << name;
        EXPECT_EQ(form.result(), QDialog::Rejected);
    }
}

TEST_P(Form, LockedFieldsAreCopiedWithTheMouseAndNotChanged)
{
    open();
    for (const auto* name : {"TxtVeldakey", "TxtDateRcv", "TxtAntennaCnt"}) {
        auto& edit = windows::control<QLineEdit>(form, name);
        form.setText(name, "12");
        QTest::mouseDClick(&edit, Qt::LeftButton, {}, QPoint(8, edit.height() / 2));
        EXPECT_EQ(edit.selectedText(), "12") << name;
        QTest::keyClicks(&edit, "7");
        EXPECT_EQ(form.text(name), "12") << name;
        EXPECT_FALSE(edit.focusPolicy() & Qt::TabFocus) << name;
    }
}

TEST_P(Form, ScrollsWhenTheWindowIsSmallAndShowsWhereTheFocusIs)
{
    form.resize(500, 400);
    open();
    for (const auto& name : {"TxtRemarks", "nAdm", "addr_cde"}) {
        control(name).setFocus(Qt::OtherFocusReason);
        EXPECT_FALSE(control(name).visibleRegion().isEmpty()) << name;
    }
    EXPECT_FALSE(control("ButtonCancel").visibleRegion().isEmpty());
}

TEST_P(Form, GivesSpareHeightToTheLastGroupsAndSpareWidthToTheRemarks)
{
    form.resize(form.sizeHint());
    open();
    const auto target = control("trgFreq").size();
    const auto antenna = control("pwrant(0)").mapTo(&form, QPoint());
    const auto remarks = control("TxtRemarks").size();
    form.resize(1920, 1050);
    QTest::qWait(10);
    EXPECT_EQ(control("trgFreq").size(), target);
    EXPECT_EQ(control("pwrant(0)").mapTo(&form, QPoint()), antenna);
    EXPECT_GT(control("TxtRemarks").width(), remarks.width() + 200);
    EXPECT_GT(control("TxtRemarks").height(), remarks.height() + 200);
}

TEST_P(Form, FollowsAChangeOfThePalette)
{
    open();
    const auto before = QApplication::palette();
    auto dark = before;
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::Base, Qt::black);
    QApplication::setPalette(dark);
    QTest::qWait(10);
    for (const auto& name : {"TxtVeldakey", "nAdm", "natsrv", "TxtRemarks"})
        EXPECT_EQ(control(name).palette().color(QPalette::Text), QColor(Qt::white)) << name;
    EXPECT_EQ(control("nAdm").palette().color(QPalette::Base), QColor(Qt::black));
    EXPECT_EQ(control("Label12").palette().color(QPalette::WindowText), QColor(Qt::white));
    QApplication::setPalette(before);
    QTest::qWait(10);
}

TEST_P(Form, AClickOnTheBackgroundLeavesTheFocusWhereItIs)
{
    open();
    control("nAdm").setFocus();
    auto& page = *control("nAdm").parentWidget();
    QTest::mouseClick(&page, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(windows::focusName(form), "nAdm");
}

TEST_P(Form, RemarksTakeLinesButNoCharacterThatNoFileHolds)
{
    FakeHost host;
    open();
    auto& remarks = control("TxtRemarks");
    remarks.setFocus();
    QGuiApplication::clipboard()->setText("one \u0141\n two\u2028three");
    QTest::keyClick(&remarks, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.text("TxtRemarks"), "one \r\n two\r\nthree");
    EXPECT_EQ(host.beeps, 1);
    QKeyEvent press(QEvent::KeyPress, 0x141, Qt::NoModifier, "\u0141");
    QApplication::sendEvent(&remarks, &press);
    EXPECT_EQ(form.text("TxtRemarks"), "one \r\n two\r\nthree");
    EXPECT_EQ(host.beeps, 2);
}

TEST_P(Form, RemarksHaveLinesAndLetTabOut)
{
    open();
    form.setText("TxtRemarks", "first\r\nsecond\r\n\r\nfourth");
    EXPECT_EQ(form.text("TxtRemarks"), "first\r\nsecond\r\n\r\nfourth");
    form.setText("TxtRemarks", "10\u00a0kW");
    EXPECT_EQ(form.text("TxtRemarks"), "10\u00a0kW");
    form.setText("TxtRemarks", "");
    EXPECT_EQ(form.text("TxtRemarks"), "");
    control("TxtRemarks").setFocus();
    QTest::keyClicks(form.focusWidget(), "a");
    QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    QTest::keyClicks(form.focusWidget(), "b");
    windows::press(form, Qt::Key_Tab);
    EXPECT_EQ(form.text("TxtRemarks"), "a\r\nb");
    EXPECT_EQ(windows::focusName(form), "ButtonPrevNtc");
}

TEST_P(Form, ANameThatTheScreenHasNotIsEmpty)
{
    EXPECT_EQ(form.control("noSuchField"), nullptr);
    EXPECT_EQ(form.text("noSuchField"), "");
    EXPECT_FALSE(form.isSelected("noSuchField"));
    EXPECT_EQ(form.multiValueBox("nAdm"), nullptr);
    form.setText("noSuchField", "x");
    form.setSelected("noSuchField", true);
}

TEST_P(Form, MultiValueBoxesAreWhatTheyAreToldToBe)
{
    std::set<std::string> expected{"natsrv", "opAgcy"};
    if (GetParam() <= 2)
        expected.insert({"callSign", "max_fr", "max_to"});
    if (GetParam() == 1)
        expected.insert({"Rsite6", "Rctry6", "RDeg6", "RMin6", "Rsec6", "REW6", "RLdeg6", "RLMin6", "RLsec6",
                         "RNS6", "noisTmp6"});
    std::set<std::string> actual;
    for (const auto* box : form.findChildren<screens::MultiValueBox*>())
        actual.insert(box->objectName().toStdString());
    EXPECT_EQ(actual, expected);
}

TEST(FormOfT14, PassesByTheZoneOfTheTargetWithAdd)
{
    const NoticeForm form(ScreenType::T14);
    const auto* zone = form.control("trgZoneID");
    EXPECT_EQ(zone->focusPolicy(), Qt::StrongFocus);
    form.setSelected("Int_Add", true);
    EXPECT_EQ(zone->focusPolicy(), Qt::ClickFocus);
    form.setSelected("Int_Wdraw", true);
    EXPECT_EQ(zone->focusPolicy(), Qt::StrongFocus);
}

TEST(FormOfT11, RowsOfTheReceivingStationsStandInColumns)
{
    NoticeForm form(ScreenType::T11);
    windows::open(form);
    for (const auto* column :
         {"Rsite", "Rctry", "RDeg", "RMin", "Rsec", "REW", "RLdeg", "RLMin", "RLsec", "RNS"})
        for (int row = 1; row <= 5; ++row) {
            const auto* field = form.control(column + std::to_string(row));
            const auto* last = form.control(column + std::string("6"));
            EXPECT_EQ(field->x(), last->x()) << column << row;
            EXPECT_EQ(field->width(), last->width()) << column << row;
        }
}
