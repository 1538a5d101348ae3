#pragma once

#include <QDialog>

#include <array>
#include <cstdint>
#include <string>

class QCheckBox;
class QVBoxLayout;

namespace mainscreen {

// What the filter dialog remembers between its showings.
struct NoticeFilter
{
    std::string whereClause; // of the list's query; empty for all notices
    // 1 or 0: T11 to T14; Add, Modify, Suppress, Withdraw.
    std::array<std::int16_t, 4> typeChecked{};
    std::array<std::int16_t, 4> intentChecked{};
};

// Narrows the list by type of notice and intent. Closing it by its frame, or Escape, is Cancel.
class SelectDlg : public QDialog
{
    Q_OBJECT
public:
    // The filter must outlive the dialog.
    explicit SelectDlg(NoticeFilter& filter, QWidget* parent = nullptr);

    void reject() override;

private:
    using Boxes = std::array<QCheckBox*, 4>;

    void addBoxes(QVBoxLayout& column);
    void connectBoxes();
    void showFilter();
    void selectAllChanged(bool checked);
    void typeChanged(std::size_t type, bool checked);
    void intentChanged(std::size_t intent, bool checked);
    void takeFilter();

    NoticeFilter& m_filter;
    Boxes m_types{};
    Boxes m_intents{};
    QCheckBox* m_selectAll;
};

} // namespace mainscreen
