#include "mainscreen/selectDlg.h"

#include "mainscreen/dialogParts.h"
#include "widgets/application.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace mainscreen {

namespace {

struct BoxRow
{
    const char* name;
    const char* caption;
    const char* firstText; // of the clause, when the box is the first one checked
    const char* laterText; // behind another one
};
using BoxRows = std::array<BoxRow, 4>;

constexpr BoxRows typeRows = {{
    // clang-format off
    {"chkT11", "T11", "WHERE kvr_velda.notice_typ = 'T11' ", "OR kvr_velda.notice_typ = 'T11' "},
    {"ChkT12", "T12", "WHERE kvr_velda.notice_typ = 'T12' ", "OR kvr_velda.notice_typ = 'T12'  "},
    {"ChkT13", "T13", "WHERE kvr_velda.notice_typ = 'T13' ", "OR kvr_velda.notice_typ = 'T13' "},
    {"ChkT14", "T14", "WHERE kvr_velda.notice_typ = 'T14' ", "OR kvr_velda.notice_typ = 'T14' "},
}}; // clang-format on
constexpr BoxRows intentRows = {{
    {"ChkAdd", "Add", "WHERE kvr_velda.intent = 'ADD' ", "AND kvr_velda.intent = 'ADD' "},
    {"ChkMod", "Modify", "WHERE kvr_velda.intent = 'MODIFY' ", "AND kvr_velda.intent = 'MODIFY' "},
    {"ChkSup", "Suppress", "WHERE kvr_velda.intent = 'SUPPRESS' ", "AND kvr_velda.intent = 'SUPPRESS' "},
    {"ChkWdraw", "Withdraw", "WHERE kvr_velda.intent = 'WITHDRAW' ", "AND kvr_velda.intent = 'WITHDRAW' "},
}};

QGroupBox* frameOf(const char* name, const char* caption, const BoxRows& rows,
                   std::array<QCheckBox*, 4>& boxes)
{
    auto* frame = named(name, new QGroupBox(caption));
    auto* column = new QVBoxLayout(frame);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        boxes[i] = named(rows[i].name, new QCheckBox(rows[i].caption));
        column->addWidget(boxes[i]);
    }
    return frame;
}

void appendChecked(const std::array<QCheckBox*, 4>& boxes, const BoxRows& rows, std::string& clause,
                   bool& whereStarted)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!boxes[i]->isChecked())
            continue;
        clause += whereStarted ? rows[i].laterText : rows[i].firstText;
        whereStarted = true;
    }
}

} // namespace

SelectDlg::SelectDlg(NoticeFilter& filter, QWidget* parent)
    : QDialog(parent), m_filter(filter), m_selectAll(named("ChkSelectAll", new QCheckBox("Select All")))
{
    setWindowTitle("Filter");
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    addBoxes(*layout);
    addOkAndCancel(*this, named("OKButton", new QPushButton("OK")),
                   named("CancelButton", new QPushButton("Cancel")), [this] { takeFilter(); });
    connectBoxes();
    showFilter();
}

void SelectDlg::addBoxes(QVBoxLayout& column)
{
    auto* frames = new QHBoxLayout;
    frames->addWidget(frameOf("FrmNoticeTpe", "Notice type", typeRows, m_types));
    frames->addWidget(named("Lbl", new QLabel("AND")));
    frames->addWidget(frameOf("FrmIntent", "Intent", intentRows, m_intents));
    column.addLayout(frames);
    column.addWidget(m_selectAll);
}

// A box that code sets changes by the same rule as one that the operator clicks.
void SelectDlg::connectBoxes()
{
    connect(m_selectAll, &QCheckBox::toggled, this,
            widgets::guarded([this](bool checked) { selectAllChanged(checked); }));
    for (std::size_t i = 0; i < m_types.size(); ++i) {
        connect(m_types[i], &QCheckBox::toggled, this,
                widgets::guarded([this, i](bool checked) { typeChanged(i, checked); }));
        connect(m_intents[i], &QCheckBox::toggled, this,
                widgets::guarded([this, i](bool checked) { intentChanged(i, checked); }));
    }
}

// The first box that is set empties the clause; OK writes it anew.
void SelectDlg::showFilter()
{
    if (m_filter.whereClause.empty()) {
        m_selectAll->setChecked(true); // which clears all the states
        return;
    }
    for (std::size_t i = 0; i < m_types.size(); ++i)
        if (m_filter.typeChecked[i] == 1)
            m_types[i]->setChecked(true);
    for (std::size_t i = 0; i < m_intents.size(); ++i)
        if (m_filter.intentChecked[i] == 1)
            m_intents[i]->setChecked(true);
}

void SelectDlg::selectAllChanged(bool checked)
{
    m_filter.whereClause.clear();
    if (!checked)
        return;
    for (auto* box : m_types)
        box->setChecked(false);
    for (auto* box : m_intents)
        box->setChecked(false);
    m_filter.typeChecked = {};
    m_filter.intentChecked = {};
}

// Another type, by its state, switches the choice of an intent off, and so does the one left of two when the
// second is unchecked. The marks of the intents stay.
void SelectDlg::typeChanged(std::size_t type, bool checked)
{
    m_filter.whereClause.clear();
    if (checked)
        m_selectAll->setChecked(false);
    bool otherTypes = false;
    for (std::size_t i = 0; i < m_types.size(); ++i)
        otherTypes = otherTypes || (i != type && m_filter.typeChecked[i] != 0);
    m_filter.typeChecked[type] = checked ? 1 : 0;
    for (auto* box : m_intents)
        box->setEnabled(!otherTypes);
}

void SelectDlg::intentChanged(std::size_t intent, bool checked)
{
    m_filter.whereClause.clear();
    if (checked)
        m_selectAll->setChecked(false);
    for (std::size_t i = 0; i < m_intents.size(); ++i)
        if (i != intent)
            m_intents[i]->setEnabled(!checked);
    m_filter.intentChecked[intent] = checked ? 1 : 0;
}

// A disabled box counts as it is marked, and the text gets no parentheses: the list's query binds AND first.
void SelectDlg::takeFilter()
{
    if (m_selectAll->isChecked()) {
        m_filter.whereClause.clear();
    } else {
        bool whereStarted = false;
        appendChecked(m_types, typeRows, m_filter.whereClause, whereStarted);
        appendChecked(m_intents, intentRows, m_filter.whereClause, whereStarted);
    }
    accept();
}

// Cancel drops the filter rather than keeping the old one.
void SelectDlg::reject()
{
    m_filter.whereClause.clear();
    QDialog::reject();
}

} // namespace mainscreen
