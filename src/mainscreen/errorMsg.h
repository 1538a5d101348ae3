#pragma once

#include "platform/host.h"

#include <QDialog>

#include <string>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace mainscreen {

class LineDelegate;

// Shows what a load or a check had to say, a line a message, and saves it as a report.
class ErrorMsg : public QDialog
{
    Q_OBJECT
public:
    explicit ErrorMsg(QWidget* parent = nullptr);

    void clear();
    void addLine(const std::string& line);
    [[nodiscard]] int lineCount() const;
    [[nodiscard]] std::string line(int number) const; // from 0; empty past the last one
    // The count line of the site-name check.
    void setCountLine(const std::string& text);
    void appendCountText(const std::string& text);

    // As a check begins: its title and count, no button to close by, and none to save by if it says so.
    void beginCheck(const platform::CheckStart& start);
    // Selects the line and brings it in sight.
    void selectLine(int number);
    // The buttons are back, and the last line is in sight.
    void endCheck();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addList();
    void addButtons();
    void copySelectedLines() const;
    void saveReport() const;

    QListWidget* m_lines;
    LineDelegate* m_delegate;
    QLineEdit* m_count;
    QPushButton* m_save = nullptr;
    QPushButton* m_close = nullptr;
};

} // namespace mainscreen
