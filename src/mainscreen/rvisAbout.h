#pragma once

#include <QDialog>

#include <string>

class QPlainTextEdit;

namespace mainscreen {

// The lines of ZEPH_RvisAbout.txt in the program's directory, or what is shown in their place when the file
// can't be read. Line ends are CR LF.
[[nodiscard]] std::string aboutText();

// Shows the description of the program; a click on the text or the frame closes it, Escape does not.
class RvisAbout : public QDialog
{
    Q_OBJECT
public:
    explicit RvisAbout(QWidget* parent = nullptr);

    bool eventFilter(QObject* receiver, QEvent* event) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    // Its property "text" holds the text with the line ends that the box has no use for.
    QPlainTextEdit* m_about;
    bool m_pressed = false;
};

} // namespace mainscreen
