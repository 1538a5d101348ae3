#include "paintedList.h"

#include "db/noticeList.h"
#include "model/session.h"

#include <QApplication>
#include <QEvent>

#include <stdexcept>

bool PaintCounter::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint)
        ++count;
    return QObject::eventFilter(watched, event);
}

PaintedList::PaintedList(const std::string& database) : m_view(&m_window)
{
    m_source.DatabaseName = database;
    m_source.ReadOnly = true;
    m_source.RecordSource = noticeList::buildNoticeQuery("", noticeList::Sort::Index);
    m_window.resize(1280, 800);
    m_view.resize(m_window.size());
    m_view.setModel(&m_model);
    m_window.show();
    QApplication::processEvents();
}

void PaintedList::refresh(int expectedRows)
{
    m_paintings.count = 0;
    m_source.Refresh(false);
    noticeList::loadNoticeKeys(m_source.Recordset());
    m_model.setRows(m_source.rows());
    m_view.sizeColumnsOnce();
    m_view.setCurrentRow(0);
    m_window.repaint();
    if (m_paintings.count == 0 || session::keyCount != expectedRows || m_model.rowCount() != expectedRows)
        throw std::runtime_error("the list was not painted whole");
}
