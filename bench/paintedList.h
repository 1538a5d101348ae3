#pragma once

#include "mainscreen/dataSource.h"
#include "mainscreen/noticeListModel.h"
#include "mainscreen/noticeListView.h"

#include <QObject>
#include <QWidget>

#include <string>

// Counts the paintings of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override;

    int count = 0;
};

// The list of the main screen in a window of 1280 x 800, as it is brought up to date there.
class PaintedList
{
public:
    explicit PaintedList(const std::string& database);

    // From the file to the painted window, with the session's keys. Throws when nothing was painted or rows
    // are missing.
    void refresh(int expectedRows);

private:
    QWidget m_window;
    mainscreen::NoticeListModel m_model;
    mainscreen::NoticeListView m_view;
    mainscreen::DataSource m_source;
    PaintCounter m_paintings{m_view.viewport()};
};
