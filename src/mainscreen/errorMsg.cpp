#include "mainscreen/errorMsg.h"

#include "load/readNtcAndWriteToDB.h"
#include "mainscreen/dialogParts.h"
#include "model/session.h"
#include "platform/fileNumbers.h"
#include "platform/hostFormat.h"
#include "widgets/application.h"

#include <QAction>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>

namespace mainscreen {

namespace {

constexpr int reportFile = 3;

// One that is hidden during a check keeps its place: the list doesn't jump when it comes back.
QPushButton* makeButton(const char* name, const char* caption)
{
    auto* button = named(name, new QPushButton(caption));
    button->setAutoDefault(false);
    auto policy = button->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    button->setSizePolicy(policy);
    return button;
}

} // namespace

// Gives every line the width of the widest one: a list that asks for one size only comes up at once whatever
// its length, and can be scrolled to the end of each line.
class LineDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void forget() { m_widest = 0; }
    void measure(const QFontMetrics& font, const QString& line)
    {
        m_widest = std::max(m_widest, font.horizontalAdvance(line) + 2 * margin);
    }
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index).expandedTo({m_widest, 0});
    }

private:
    static constexpr int margin = 8;

    int m_widest = 0;
};

ErrorMsg::ErrorMsg(QWidget* parent)
    : QDialog(parent),
      m_lines(named("ListErrors", new QListWidget, "Messages")),
      m_delegate(new LineDelegate(this)),
      m_count(named("TxtNbNtcs", new QLineEdit, "Notices to be checked"))
{
    setWindowTitle("Messages");
    resize(720, 420);
    auto* layout = new QVBoxLayout(this);
    addList();
    layout->addWidget(m_lines);
    m_count->setReadOnly(true);
    layout->addWidget(m_count);
    addButtons();
}

void ErrorMsg::addList()
{
    m_lines->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_lines->setItemDelegate(m_delegate);
    m_lines->setUniformItemSizes(true);
    m_lines->setTextElideMode(Qt::ElideNone);
    m_lines->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    auto* copy = new QAction("Copy", m_lines);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, widgets::guarded([this](bool) { copySelectedLines(); }));
    m_lines->addAction(copy);
    m_lines->setContextMenuPolicy(Qt::ActionsContextMenu);
}

// Neither button is the one that Enter stands for: one would throw the messages away, the other would write
// over the report of an earlier load.
void ErrorMsg::addButtons()
{
    m_save = makeButton("ButtonSave", "Save");
    m_close = makeButton("ButtonClose", "Close");
    connect(m_save, &QPushButton::clicked, this, widgets::guarded([this](bool) {
                saveReport();
                accept();
            }));
    connect(m_close, &QPushButton::clicked, this, widgets::guarded([this](bool) { reject(); }));
    auto* buttons = new QDialogButtonBox;
    for (auto* button : {m_save, m_close})
        buttons->addButton(button, QDialogButtonBox::ActionRole);
    layout()->addWidget(buttons);
}

void ErrorMsg::clear()
{
    m_lines->clear();
    m_delegate->forget();
}

void ErrorMsg::addLine(const std::string& line)
{
    const auto text = QString::fromStdString(line);
    m_delegate->measure(m_lines->fontMetrics(), text);
    m_lines->addItem(text);
}

int ErrorMsg::lineCount() const
{
    return m_lines->count();
}

std::string ErrorMsg::line(int number) const
{
    const auto* item = m_lines->item(number);
    return item ? item->text().toStdString() : std::string();
}

void ErrorMsg::setCountLine(const std::string& text)
{
    m_count->setText(QString::fromStdString(text));
}

void ErrorMsg::appendCountText(const std::string& text)
{
    m_count->setText(m_count->text() + QString::fromStdString(text));
}

void ErrorMsg::beginCheck(const platform::CheckStart& start)
{
    setWindowTitle(QString::fromStdString(start.title));
    setCountLine(start.countText);
    m_close->hide();
    m_save->setVisible(!start.hidesSave);
}

void ErrorMsg::selectLine(int number)
{
    m_lines->setCurrentRow(number, QItemSelectionModel::ClearAndSelect);
}

void ErrorMsg::endCheck()
{
    m_close->show();
    m_save->show();
    m_lines->scrollToBottom();
}

void ErrorMsg::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (enter && button)
        button->click();
    else
        QDialog::keyPressEvent(event);
}

void ErrorMsg::copySelectedLines() const
{
    QStringList lines;
    for (int row = 0; row < m_lines->count(); ++row)
        if (m_lines->item(row)->isSelected())
            lines.append(m_lines->item(row)->text());
    if (!lines.empty())
        QGuiApplication::clipboard()->setText(lines.join('\n'));
}

void ErrorMsg::saveReport() const
{
    platform::openForOutput(reportFile, readNtcAndWriteToDB::reportFileOf(session::workingDbPath));
    const auto moment = platform::now();
    platform::printLine(reportFile, "Report created on " + platform::shortDateText(moment) + "-" +
                                        platform::longTimeText(moment));
    platform::printLine(reportFile, "Processed by " + session::getUserName());
    // Readers of reports are used to the empty line at the end: it is the one past the last.
    for (int number = 0; number <= lineCount(); ++number)
        platform::printLine(reportFile, line(number));
    platform::closeFile(reportFile);
}

} // namespace mainscreen
