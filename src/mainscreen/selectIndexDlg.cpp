#include "mainscreen/selectIndexDlg.h"

#include "mainscreen/dialogParts.h"
#include "platform/numberText.h"
#include "widgets/textEntry.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace mainscreen {

SelectIndexDlg::SelectIndexDlg(QWidget* parent)
    : QDialog(parent), m_index(named("TxtIndex", new QLineEdit, "Index number"))
{
    setWindowTitle("Notice");
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* row = new QHBoxLayout;
    row->addWidget(named("LblIndex", new QLabel("Index number")));
    row->addWidget(m_index);
    layout->addLayout(row);

    addOkAndCancel(*this, named("OKButton", new QPushButton("OK")),
                   named("CancelButton", new QPushButton("Cancel")), [this] { accept(); });
    new widgets::TextEntry(*m_index);
    m_index->setFocus();
}

std::int32_t SelectIndexDlg::number() const
{
    if (result() != Accepted)
        return 0;
    return platform::roundToLong(platform::readNumber(m_index->text().toStdString()));
}

} // namespace mainscreen
