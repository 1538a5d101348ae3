#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QtTest/QtTest>

#include <set>
#include <stdexcept>
#include <string>

// The operator's hands on a window: real keys and clicks, controls by their names.
namespace windows {

template <class Control>
Control& control(const QWidget& window, const char* name)
{
    auto* found = window.findChild<Control*>(name);
    if (!found)
        throw std::runtime_error(std::string("no such control: ") + name);
    return *found;
}

// On the screen and active, as it is when an operator works in it.
inline void open(QWidget& window)
{
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(&window))
        throw std::runtime_error("the window doesn't become active");
}

inline std::string focusName(const QWidget& window)
{
    const auto* focus = window.focusWidget();
    return focus ? focus->objectName().toStdString() : "none";
}

inline void click(const QWidget& window, const char* name)
{
    QTest::mouseClick(&control<QWidget>(window, name), Qt::LeftButton);
}

// A key where the focus is.
inline void press(const QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    auto* focus = window.focusWidget();
    if (!focus)
        throw std::runtime_error("nothing has the focus");
    QTest::keyClick(focus, key, modifiers);
}

// Text typed where the focus is, in the place of what is selected.
inline void type(const QWidget& window, const QString& text)
{
    QTest::keyClicks(window.focusWidget(), text);
}

// What is wrong with the names of the window's controls, nothing when each has one of its own and one that is
// read out.
inline std::string badNames(const QWidget& window)
{
    std::string bad;
    std::set<QString> names;
    for (auto* child : window.findChildren<QWidget*>()) {
        const auto name = child->objectName();
        const bool isControl = qobject_cast<QAbstractButton*>(child) || qobject_cast<QLineEdit*>(child) ||
                               qobject_cast<QLabel*>(child) || qobject_cast<QGroupBox*>(child) ||
                               qobject_cast<QListWidget*>(child) || qobject_cast<QPlainTextEdit*>(child);
        if (!isControl || name.startsWith("qt_"))
            continue;
        const auto* spoken = QAccessible::queryAccessibleInterface(child);
        if (name.isEmpty() || !names.insert(name).second || !spoken ||
            spoken->text(QAccessible::Name).isEmpty())
            bad += std::string(child->metaObject()->className()) + " " + name.toStdString() + "\n";
    }
    return bad;
}

} // namespace windows
