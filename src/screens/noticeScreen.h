#pragma once

#include "screens/noticeForm.h"

#include <string>

class QKeySequence;

namespace screens {

class NoticeWalk;

// A notice screen at work: the buttons, the moves from notice to notice and from section to section, Update,
// Delete and Print. It holds no copy of the notice; its controls are the working copy of the session's one.
class NoticeScreen : public NoticeForm
{
    Q_OBJECT
public:
    // The walk must outlive the screen.
    NoticeScreen(ScreenType type, std::string dbName, NoticeWalk& walk, QWidget* parent);

    // What happens when the screen comes up, before it is shown. Throws what filling it throws.
    void load();

private:
    using Neighbour = bool (*)(std::int32_t& index);

    void connectButtons();
    void connectOptions();
    void addShortcut(const QKeySequence& keys, const char* button);

    void setNavButtons() const;
    void move(Neighbour neighbour);
    void showMoved();
    void nextAntenna();
    void previousAntenna();
    void updateNotice();
    void deleteNotice();
    void goOnAfterDelete();
    void print();
    void setEnabled(const char* button, bool enabled) const;

    std::string m_dbName;
    NoticeWalk& m_walk;
};

} // namespace screens
