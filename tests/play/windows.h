#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <list>
#include <string>

class QWidget;

namespace play {

class Transcript;

// Sees every window come up and go, and prints it.
class Windows : public QObject
{
public:
    explicit Windows(Transcript& transcript);

    // How many have come up so far.
    [[nodiscard]] int openings() const { return m_openings; }
    // In the order of opening; a message box is "box".
    [[nodiscard]] std::string openNames() const;
    // The one opened last of this name; null for none.
    [[nodiscard]] QWidget* named(const std::string& name) const;

    // Called before the line of a window that comes up, and after that of one that goes.
    std::function<void()> onOpening;
    std::function<void(const std::string& name)> onClosed;

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Entry
    {
        const QWidget* identity = nullptr; // not to be looked into
        QPointer<QWidget> window;          // null once its destruction has begun
        std::string name;
        bool isBox = false;
    };

    void opened(QWidget& window);
    void closed(const QWidget& window);

    Transcript& m_transcript;
    std::list<Entry> m_open;
    int m_openings = 0;
};

} // namespace play
