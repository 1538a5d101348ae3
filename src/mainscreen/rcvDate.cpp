#include "mainscreen/rcvDate.h"

#include "mainscreen/dialogParts.h"
#include "model/ScreenModule.h"
#include "model/session.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "widgets/leaveGate.h"
#include "widgets/textEntry.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>
#include <optional>

namespace mainscreen {

namespace {

// Rows of the table of messages.
enum Fault : std::uint8_t
{
    DayRange,
    MonthRange,
    YearLength,
    YearRange
};

struct Message
{
    const char* title;
    const char* text;
};
struct FaultMessages
{
    Message french, spanish, other;
};

// Nobody has written the Spanish texts but one, and that one is the text of a field of the notice screens:
// the boxes come up all the same, empty or in English.
constexpr const char* yearRange = "Invalid year in date of bringing to use (2c)";
constexpr std::array<FaultMessages, 4> messages = {{
    // clang-format off
    {{"Erreur", "La valeur doit être entre [1,31]"},  {"Error", ""},        {"Error", "Value should be between [1,31]"}},
    {{"Erreur", "La valeur doit être entre [1,12]"},  {"Error", ""},        {"Error", "Value should be between [1,12]"}},
    {{"Erreur", "L'année doit avoir ce format YYYY"}, {"Error", ""},        {"Error", "The year must be entered as YYYY"}},
    {{"Erreur", yearRange},                           {"Error", yearRange}, {"Error", yearRange}},
}}; // clang-format on

const Message& messageOf(Fault fault)
{
    const auto& row = messages[fault];
    if (session::language == "F")
        return row.french;
    return session::language == "S" ? row.spanish : row.other;
}

void tell(Fault fault)
{
    const auto& message = messageOf(fault);
    platform::host().beep();
    platform::host().msgBox(message.text, platform::Buttons::Ok, platform::Icon::Exclamation, message.title);
}

// The checks of the fields; a field that is empty has no fault.
using FaultOf = std::optional<Fault> (*)(const std::string& text);

std::optional<Fault> dayFault(const std::string& text)
{
    return ScreenModule::readsAs(ScreenModule::isValidDay, text) ? std::nullopt : std::optional(DayRange);
}

std::optional<Fault> monthFault(const std::string& text)
{
    return ScreenModule::readsAs(ScreenModule::isValidMonth, text) ? std::nullopt : std::optional(MonthRange);
}

std::optional<Fault> yearFault(const std::string& text)
{
    if (QString::fromStdString(text).size() != 4)
        return YearLength;
    return ScreenModule::readsAs(ScreenModule::isValidYear, text) ? std::nullopt : std::optional(YearRange);
}

struct FieldRow
{
    const char* name;
    const char* spokenName;
    const char* labelName;
    const char* label;
    int maxLength;
    FaultOf faultOf;
};
constexpr std::array<FieldRow, 3> fields = {{
    {"TxtDay", "Day of receipt", "LabeDay", "dd", 2, dayFault},
    {"TxtMonth", "Month of receipt", "LabelMonth", "mm", 2, monthFault},
    {"TxtYear", "Year of receipt", "LabelYY", "yyyy", 4, yearFault},
}};

} // namespace

RcvDate::RcvDate(QWidget* parent) : QDialog(parent), m_ok(named("ButtonOK", new QPushButton("&OK")))
{
    setWindowTitle("Received Date");
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* row = new QGridLayout;
    layout->addLayout(row);
    row->addWidget(named("LabelDateRcv", new QLabel("Date of Receipt")), 1, 0);
    m_day = addField(*row, 0);
    m_month = addField(*row, 1);
    m_year = addField(*row, 2);

    auto* cancel = named("ButtonCancel", new QPushButton("Cancel"));
    cancel->setFocusPolicy(Qt::TabFocus); // a press on it leaves no field: it gives up, whatever was typed
    addOkAndCancel(*this, m_ok, cancel, [this] { takeDate(); });
    setTabOrder(m_day, m_month);
    setTabOrder(m_month, m_year);
    setTabOrder(m_year, m_ok);
    setTabOrder(m_ok, cancel);
    m_day->setFocus();
}

QLineEdit* RcvDate::addField(QGridLayout& row, int column)
{
    const auto& [name, spokenName, labelName, label, maxLength, faultOf] =
        fields[static_cast<std::size_t>(column)];
    row.addWidget(named(labelName, new QLabel(label)), 0, column + 1);
    auto* field = named(name, new QLineEdit, spokenName);
    new widgets::TextEntry(*field, maxLength);
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(QString(maxLength + 2, 'M')));
    row.addWidget(field, 1, column + 1);
    widgets::checkOnLeaving(field, [this, field, check = faultOf] {
        const auto text = field->text().toStdString();
        const auto fault = text.empty() ? std::nullopt : check(text);
        if (fault)
            tell(*fault);
        m_ok->setEnabled(!text.empty()); // so it follows the field left last
        return !fault;
    });
    return field;
}

void RcvDate::takeDate()
{
    m_dateRcv = (m_year->text() + "-" + m_month->text() + "-" + m_day->text()).toStdString();
    if (!m_dateRcv.empty())
        accept();
    else // the dashes keep it from ever coming to this
        platform::showMessage("Please enter the date of reception");
}

void RcvDate::reject()
{
    m_dateRcv.clear();
    QDialog::reject();
}

} // namespace mainscreen
