#pragma once

#include <QDialog>

#include <string>

class QGridLayout;
class QLineEdit;
class QPushButton;

namespace mainscreen {

// Asks for the date of receipt before a load.
class RcvDate : public QDialog
{
    Q_OBJECT
public:
    explicit RcvDate(QWidget* parent = nullptr);

    // Year, month and day as typed, parted by "-" ("2002-5-15"); empty when the dialog was cancelled or
    // closed by its frame.
    [[nodiscard]] const std::string& dateRcv() const { return m_dateRcv; }

    void reject() override;

private:
    QLineEdit* addField(QGridLayout& row, int column);
    void takeDate();

    QLineEdit* m_day = nullptr;
    QLineEdit* m_month = nullptr;
    QLineEdit* m_year = nullptr;
    QPushButton* m_ok;
    std::string m_dateRcv;
};

} // namespace mainscreen
