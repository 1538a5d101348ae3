#include "dao/engineError.h"
#include "db/currentNotice.h"
#include "db/noticeList.h"
#include "mainscreen/noticeListModel.h"
#include "mainscreen/noticeListView.h"
#include "mainscreen/openScreen.h"
#include "mainscreen/qtHost.h"
#include "model/session.h"
#include "platform/numberText.h"
#include "screens/noticeWalk.h"

#include <QAction>
#include <QLabel>
#include <QLayout>
#include <QScrollBar>

// The list of notices: refresh, sort, filter, and the way to a notice and back.
namespace mainscreen {

std::string OpenScreen::buildNoticeQuery() const
{
    const auto sort =
        m_menu.item("mnuSortAdmFreq")->isChecked() ? noticeList::Sort::AdmFreq : noticeList::Sort::Index;
    return noticeList::buildNoticeQuery(m_filter.whereClause, sort);
}

void OpenScreen::refreshNoticeList(FileCheck check)
{
    showLoading();
    m_host.setPointer(platform::pointerHourglass);
    m_dataNtcPub.DatabaseName = m_dbName;
    m_dataNtcPub.Exclusive = false;
    m_dataNtcPub.ReadOnly = true;
    m_dataNtcPub.RecordSource = buildNoticeQuery();
    openDataSource(check);
    // From here on a failure is shown and goes no further.
    try {
        if (!m_keysValid || session::ntcChanged)
            loadNoticeKeys();
        m_host.setPointer(platform::pointerDefault);
        showList();
        m_menu.setEnabled("mnuTools", true);
    } catch (const platform::RuntimeError& failure) {
        m_host.setPointer(platform::pointerDefault);
        if (failure.number != 0)
            platform::showFailure(failure);
    }
}

// Its failure is the caller's; nothing is being loaded any more.
void OpenScreen::openDataSource(FileCheck check)
{
    try {
        m_dataNtcPub.Refresh(check == FileCheck::Quick);
    } catch (...) {
        m_lblLoadDB->hide();
        hideList();
        throw;
    }
}

void OpenScreen::loadNoticeKeys()
{
    m_keysValid = true;
    noticeList::loadNoticeKeys(m_dataNtcPub.Recordset());
    m_lblCount->setText(QString::fromStdString(platform::integerText(session::keyCount) + " record(s)"));
    m_lblCount->show();
}

void OpenScreen::showLoading()
{
    m_hint->hide();
    m_dbGridView->hide();
    m_lblLoadDB->show();
    // At once and without the event loop: what the operator types or clicks meanwhile has to wait.
    centralWidget()->layout()->activate();
    repaint();
}

void OpenScreen::showList()
{
    m_list->setRows(m_dataNtcPub.rows());
    m_lblLoadDB->hide();
    m_hint->hide();
    m_dbGridView->show();
    m_dbGridView->sizeColumnsOnce();
    m_dbGridView->setCurrentRow(0);
    m_dbGridView->setFocus();
}

void OpenScreen::hideList()
{
    m_dbGridView->hide();
    m_hint->setVisible(!m_lblLoadDB->isVisibleTo(this));
}

void OpenScreen::sortBy(const char* chosen)
{
    for (const char* item : {"mnuSortIndex", "mnuSortAdmFreq"})
        m_menu.item(item)->setChecked(std::string_view(item) == chosen);
    m_keysValid = false;
    refreshNoticeList();
}

void OpenScreen::filterNotices()
{
    SelectDlg(m_filter, this).exec();
    m_keysValid = false;
    refreshNoticeList();
}

std::int32_t OpenScreen::keyOfCurrentRow() const
{
    const int row = m_dbGridView->currentRow();
    if (row < 0)
        dao::raiseEngineError(dao::errNoCurrentRecord);
    return m_dataNtcPub.rows()->value(static_cast<std::size_t>(row), 0).toLong();
}

void OpenScreen::openNotice()
{
    session::ntcChanged = false;
    m_host.setPointer(platform::pointerHourglass);
    try {
        session::currentVeldaKey = keyOfCurrentRow();
        m_dataNtcPub.closeRecordset();
        m_dataNtcPub.closeDatabase();
        noticeList::locateCurrentKey();
        currentNotice::read(m_dbName);
        m_host.setPointer(platform::pointerDefault);
        showNotice();
        returnToList();
    } catch (const platform::RuntimeError& failure) {
        platform::showFailure(failure);
    }
}

void OpenScreen::showNotice()
{
    const auto screen = screens::screenOf(session::notice.notice_typ);
    if (session::notice.adm.empty())
        platform::showMessage("No notice this should never happen");
    else if (screen)
        screens::NoticeWalk(this).show(*screen, m_dbName);
    else
        platform::showMessage("Sorry! T15, T16 and T17 screens aren't ready yet");
}

void OpenScreen::returnToList()
{
    const int place = m_dbGridView->verticalScrollBar()->value();
    repaint();
    hideList();
    refreshNoticeList();
    const auto& rows = m_dataNtcPub.Recordset();
    rows->FindFirst("veldakey = " + platform::integerText(session::currentVeldaKey));
    if (rows->NoMatch())
        return;
    m_dbGridView->verticalScrollBar()->setValue(place);
    m_dbGridView->setCurrentRow(rows->AbsolutePosition());
}

} // namespace mainscreen
