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
    // Closed by its frame it leaves the number as it was. The number must outlive the dialog.
    explicit SelectIndexDlg(std::int32_t& number, QWidget* parent = nullptr);

private:
    void takeNumber();

    std::int32_t& m_number;
    QLineEdit* m_index;
};

} // namespace mainscreen
