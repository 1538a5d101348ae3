#include "recordMappingNotices.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

#include <set>

using namespace mapping;
using namespace screens;

namespace {

template <class Rows>
void expectWhereClaimed(const NoticeForm& form, const Rows& rows)
{
    for (const auto& row : rows)
        EXPECT_EQ(form.has(row.control), contains(row.screens, form.type()))
            << row.control << " on " << nameOf(form.type());
}

std::string withoutIndex(const QString& name)
{
    return name.section('(', 0, 0).toStdString();
}

bool takesValue(const QWidget* widget)
{
    if (qobject_cast<const MultiValueBox*>(widget->parentWidget()))
        return false;
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget) ||
           qobject_cast<const MultiValueBox*>(widget) || qobject_cast<const QRadioButton*>(widget);
}

std::set<std::string> valueControlsOn(const NoticeForm& form)
{
    std::set<std::string> names;
    for (const auto* widget : form.findChildren<QWidget*>()) {
        if (takesValue(widget) && form.has(withoutIndex(widget->objectName())))
            names.insert(withoutIndex(widget->objectName()));
    }
    return names;
}

void addTo(std::set<std::string>& names, const std::vector<std::string>& more)
{
    names.insert(more.begin(), more.end());
}

} // namespace

TEST(RecordMappingFields, EveryRowClaimsExactlyTheScreensThatHaveItsControl)
{
    for (const auto type : allScreens) {
        const NoticeForm form(type);
        expectWhereClaimed(form, fields::noticeTexts);
        expectWhereClaimed(form, fields::assignmentPairs);
        expectWhereClaimed(form, fields::positionPairs);
        expectWhereClaimed(form, fields::zonePairs);
        expectWhereClaimed(form, fields::siteTexts);
        expectWhereClaimed(form, fields::sitePointTexts);
        expectWhereClaimed(form, fields::lists);
        expectWhereClaimed(form, fields::antennaTexts);
        expectWhereClaimed(form, fields::intents);
        expectWhereClaimed(form, fields::resubmissions);
    }
}

TEST(RecordMappingFields, EveryNamedControlStandsOnTheScreen)
{
    for (const auto type : allScreens) {
        const NoticeForm form(type);
        for (const auto& control : fields::noticeControls(type))
            EXPECT_TRUE(form.has(control)) << control << " on " << nameOf(type);
        for (const auto& control : fields::antennaControls(type))
            EXPECT_TRUE(form.has(control)) << control << " on " << nameOf(type);
    }
}

TEST(RecordMappingFields, EveryControlThatTakesAValueBelongsToTheNoticeOrToTheAntenna)
{
    for (const auto type : allScreens) {
        SCOPED_TRACE(nameOf(type));
        const NoticeForm form(type);
        std::set<std::string> named{"TxtVeldakey", "TxtAntennaCnt"};
        addTo(named, fields::noticeControls(type));
        addTo(named, fields::antennaControls(type));
        EXPECT_EQ(valueControlsOn(form), named);
    }
}

TEST(RecordMappingFields, InitalizeNoticeBlanksTheNoticeSectionAlone)
{
    for (const auto type : allScreens) {
        SCOPED_TRACE(nameOf(type));
        NoticeForm form(type);
        putSomething(form, fields::noticeControls(type));
        putSomething(form, fields::antennaControls(type));
        form.setText("TxtVeldakey", "4711");
        setAntennaNumber(form, 7);
        const bool wasBlank = isBlank(form, "pwrant");

        InitalizeNotice(form);

        for (const auto& control : fields::noticeControls(type))
            EXPECT_TRUE(isBlank(form, control)) << control;
        EXPECT_FALSE(wasBlank);
        EXPECT_EQ(form.text("pwrant"), "something");
        EXPECT_EQ(form.text("TxtVeldakey"), "4711");
        EXPECT_EQ(form.text("TxtAntennaCnt"), "1");
    }
}

TEST(RecordMappingFields, InitalizeAntennaBlanksTheAntennaSectionAlone)
{
    for (const auto type : allScreens) {
        SCOPED_TRACE(nameOf(type));
        NoticeForm form(type);
        putSomething(form, fields::noticeControls(type));
        putSomething(form, fields::antennaControls(type));
        form.setText("TxtVeldakey", "4711");
        setAntennaNumber(form, 7);

        InitalizeAntenna(form);

        for (const auto& control : fields::antennaControls(type))
            EXPECT_TRUE(isBlank(form, control)) << control;
        for (const auto& control : fields::noticeControls(type)) {
            const bool isOption = form.control<QAbstractButton>(control); // one alone of a set is selected
            EXPECT_TRUE(isOption || !isBlank(form, control)) << control;
        }
        EXPECT_TRUE(form.isSelected("Int_Wdraw"));
        EXPECT_EQ(form.text("TxtVeldakey"), "4711");
        EXPECT_EQ(form.text("TxtAntennaCnt"), "7");
    }
}

TEST(RecordMappingFields, ClearTargetControlsBlanksTheTargetAlone)
{
    for (const auto type : allScreens) {
        SCOPED_TRACE(nameOf(type));
        NoticeForm form(type);
        putSomething(form, fields::noticeControls(type));
        const auto targets = fields::targetControls(type);

        clearTargetControls(form);

        for (const auto& control : fields::noticeControls(type)) {
            if (form.control<QAbstractButton>(control))
                continue;
            const bool isTarget = std::find(targets.begin(), targets.end(), control) != targets.end();
            EXPECT_EQ(isBlank(form, control), isTarget) << control;
        }
        EXPECT_EQ(targets.size(), type == ScreenType::T11 || type == ScreenType::T14 ? 17U : 16U);
    }
}
