#include "screens/targetRefusal.h"

#include "platform/host.h"
#include "screens/fieldRuleTable.h"
#include "widgets/leaveGate.h"

#include <QFocusEvent>

#include <array>

namespace screens {

namespace {

struct TargetFields
{
    const char* controls;
    ScreenSet screens;
};
constexpr std::array targetFields = {
    TargetFields{"trgadmRefID trgFreq Unit trgStnCls trgBdwdth trgEmi trgOphhFr trgOphhTo trgDeg trgMin "
                 "trgsec EW trgLdeg trgLMin trgLsec NS",
                 onAll},
    TargetFields{"trgOpCls", onT11},
    TargetFields{"trgZoneID", onT14},
};

std::vector<std::string> targetsOn(ScreenType screen)
{
    std::vector<std::string> all;
    for (const auto& fields : targetFields) {
        if (!contains(fields.screens, screen))
            continue;
        const auto names = namesIn(fields.controls);
        all.insert(all.end(), names.begin(), names.end());
    }
    return all;
}

// Sits before the target fields of a form and is owned by it.
class TargetGuard : public QObject
{
public:
    explicit TargetGuard(NoticeForm& form) : QObject(&form), m_form(form) {}

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusOut && !static_cast<QWidget*>(watched)->isVisible())
            noteHiding();
        else if (event->type() == QEvent::FocusIn && !m_refusing && isEntered(*event) && !takesTarget(m_form))
            refuse();
        return QObject::eventFilter(watched, event);
    }

private:
    // The one in hand gets the focus back from a box, a pop-up or another window: nobody goes there.
    static bool isEntered(const QEvent& focusIn)
    {
        const auto reason = static_cast<const QFocusEvent&>(focusIn).reason();
        return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
               reason != Qt::MenuBarFocusReason;
    }

    // When the fields are hidden one by one, the toolkit hands the focus on from one to the next.
    void noteHiding()
    {
        m_hiding = true;
        QMetaObject::invokeMethod(
            this, [this] { m_hiding = false; }, Qt::QueuedConnection);
    }

    void refuse()
    {
        m_refusing = true; // the field may get the focus back from the box
        if (!m_hiding) {
            platform::host().beep();
            platform::showMessage("Only allowed for Mod/Sup/Wdraw notices");
        }
        // Not by a reason of leaving: what was never entered is not checked. A field in hand whose notice
        // changes beneath it is checked like any other.
        widgets::sendFocusTo(m_form.control("freq"), Qt::NoFocusReason);
        m_refusing = false;
    }

    NoticeForm& m_form;
    bool m_refusing = false;
    bool m_hiding = false; // until the events of the moment are done
};

} // namespace

bool takesTarget(const NoticeForm& form)
{
    return form.isSelected("Int_Mod") || form.isSelected("Int_Sup") || form.isSelected("Int_Wdraw");
}

void refuseTargetFields(NoticeForm& form)
{
    auto* const guard = new TargetGuard(form);
    for (const auto& name : targetsOn(form.type())) {
        if (auto* const field = form.control(name))
            field->installEventFilter(guard);
    }
}

} // namespace screens
