#pragma once

#include <QComboBox>

#include <string>
#include <vector>

namespace screens {

// A box that collects several values in its drop-down list. What is typed is no value until Enter takes it
// into the list. One entry is selected when it was shown by code or picked from the list, until something is
// typed. No completion, no insertion or selection by the toolkit, no change by the wheel; equal entries are
// allowed.
class MultiValueBox : public QComboBox
{
    Q_OBJECT
public:
    explicit MultiValueBox(QWidget* parent = nullptr);

    [[nodiscard]] std::vector<std::string> entries() const;
    // Empties the list and the text.
    void clearAll();
    // Adds at the end of the list; the text stays.
    void addEntry(const std::string& entry);
    // Shows and selects the first entry of the list; with an empty list the text becomes blank.
    void showFirstEntry();
    // Position of the selected entry in the list; -1 for none.
    [[nodiscard]] int selectedEntry() const;

signals:
    // Enter was pressed with text in the box: whoever listens tests the value and adds it.
    void entered();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void show(int entry);
    void removeSelectedOrBlank();
    bool pickByArrow(int key);

    bool m_selected = false; // the entry at currentIndex is the one shown
};

} // namespace screens
