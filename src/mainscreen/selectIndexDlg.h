#pragma once

#include <QDialog>

#include <cstdint>

class QLineEdit;

namespace mainscreen {

// Asks for the number of one notice.
class SelectIndexDlg : public QDialog
{
    Q_OBJECT
public:
    explicit SelectIndexDlg(QWidget* parent = nullptr);

    // What the text begins with, rounded; 0 without OK. Throws RuntimeError 6 for more than 32 bits: the
    // asker has a handler, the dialog has none.
    [[nodiscard]] std::int32_t number() const;

private:
    QLineEdit* m_index;
};

} // namespace mainscreen
