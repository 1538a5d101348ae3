#include "mainscreen/frmWaiting.h"

#include "mainscreen/dialogParts.h"
#include "platform/runtimeError.h"

#include <QLabel>
#include <QVBoxLayout>

namespace mainscreen {

FrmWaiting::FrmWaiting(QWidget* parent) : QDialog(parent)
{
    setWindowTitle("Creating Indexes");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(named("LblWaiting", new QLabel("Please wait.... ")));
    layout->addWidget(named("LblTimeEstimate", new QLabel("Estimated time: 10-15 minutes")));
    // The animation's file name, turnbook.gif in the program's directory, and its visibility are set here,
    // but the window holds no animation to set them on. Callers rely on the failure: the making of indexes
    // ends with it.
    platform::raise(platform::errObjectRequired);
}

} // namespace mainscreen
