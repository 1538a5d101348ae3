#pragma once

#include <QString>

#include <functional>

class QDialog;
class QPushButton;

// What the dialogs share.
namespace mainscreen {

// Gives a control its fixed name, and the name that assistive technology reads out; a control with a caption
// needs none but the caption.
template <class Control>
Control* named(const char* name, Control* control, const QString& spokenName = {})
{
    control->setObjectName(name);
    if (!spokenName.isEmpty())
        control->setAccessibleName(spokenName);
    return control;
}

// Puts the two buttons at the foot of the dialog, which has its layout; the first is the default one and does
// the work, the second rejects the dialog.
void addOkAndCancel(QDialog& dialog, QPushButton* ok, QPushButton* cancel, const std::function<void()>& work);

} // namespace mainscreen
