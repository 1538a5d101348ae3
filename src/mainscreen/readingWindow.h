#pragma once

#include <QFrame>
#include <QStringList>

namespace mainscreen {

// Stands on the screen while old files are read whole. It can't be answered, takes no focus, and has no frame
// of the window system's, whose buttons would do nothing.
class ReadingWindow : public QFrame
{
    Q_OBJECT
public:
    // The names of the files, without their folders.
    explicit ReadingWindow(const QStringList& files, QWidget* parent = nullptr);
};

} // namespace mainscreen
