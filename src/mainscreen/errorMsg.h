#pragma once

#include <QDialog>

#include <string>

class QLineEdit;
class QListWidget;

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
};

} // namespace mainscreen
