#pragma once

#include "model/Ntc.h"
#include "screens/screenType.h"

#include <QDialog>

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>

namespace screens {

class HintLine;
class MultiValueBox;

// What of a notice its screen does not show, and an update drops.
struct Hidden
{
    std::array<int, decltype(Ntc::antenna)::size()> stations{}; // by section
    bool coordination = false;                                  // the eleventh administration
};

// The controls of one notice screen, arranged. Code that fills, reads, checks or names them finds them by
// their fixed names, an array element without its index ("freq" is the control "freq(0)"); a name that the
// screen has not gives the empty answer, so that tables can be shared between screens.
class NoticeForm : public QDialog
{
    Q_OBJECT
public:
    explicit NoticeForm(ScreenType type, QWidget* parent = nullptr);

    [[nodiscard]] ScreenType type() const { return m_type; }

    // Null where the screen has none of that name.
    [[nodiscard]] QWidget* control(std::string_view name) const;
    template <class Control>
    [[nodiscard]] Control* control(std::string_view name) const
    {
        return qobject_cast<Control*>(control(name));
    }
    [[nodiscard]] bool has(std::string_view name) const { return control(name) != nullptr; }

    // Text boxes, the edit text of multi-value boxes, and TxtRemarks with CR LF between its lines. Setting is
    // no edit of the operator and raises no check; a text longer than the box lets an operator type is shown
    // and read whole.
    [[nodiscard]] std::string text(std::string_view name) const;
    void setText(std::string_view name, const std::string& text) const;

    // Option buttons. Selecting one clears the others of its set, and runs what a click on it runs; each set
    // can stand with none selected.
    [[nodiscard]] bool isSelected(std::string_view name) const;
    void setSelected(std::string_view name, bool selected) const;

    // Null where the screen has no multi-value box of that name.
    [[nodiscard]] MultiValueBox* multiValueBox(std::string_view name) const;

    // Told by whoever fills the controls.
    void setHidden(const Hidden& hidden);
    [[nodiscard]] const Hidden& hidden() const { return m_hidden; }

    // What stands on the screen, from the top: the page, which a small window scrolls, and the buttons at the
    // foot.
    struct Parts
    {
        QWidget& page;
        QWidget& bar;
    };
    [[nodiscard]] Parts parts() const { return {*m_page, *m_bar}; }

    [[nodiscard]] QSize sizeHint() const override;
    void setVisible(bool visible) override;

private:
    ScreenType m_type;
    std::unordered_map<std::string, QWidget*> m_controls; // by their names without index
    QWidget* m_page = nullptr;
    QWidget* m_bar = nullptr;
    HintLine* m_hints = nullptr;
    Hidden m_hidden;
};

} // namespace screens
