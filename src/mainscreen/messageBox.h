#pragma once

#include "platform/host.h"

#include <QMessageBox>

#include <string>

namespace mainscreen {

// A box of plain text as the host shows it: a question is answered by one of its buttons only, and the frame
// has the title that it was given and no other.
class MessageBox : public QMessageBox
{
public:
    // An empty title stands for none. The parent is the window that it stands over.
    MessageBox(const std::string& text, platform::Buttons buttons, platform::Icon icon,
               const std::string& title, QWidget* parent);

    // Shows it and waits for the answer.
    [[nodiscard]] platform::Answer ask();

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] bool isQuestion() const { return standardButtons().testFlag(QMessageBox::No); }
    void makeRoomForTitle();
};

} // namespace mainscreen
