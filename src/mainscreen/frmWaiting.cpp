#include "mainscreen/frmWaiting.h"

#include "mainscreen/dialogParts.h"
#include "platform/paths.h"
#include "platform/runtimeError.h"

#include <QLabel>
#include <QVariant>
#include <QVBoxLayout>

namespace mainscreen {

FrmWaiting::FrmWaiting(QObject* animation, QWidget* parent) : QDialog(parent)
{
    setWindowTitle("Creating Indexes");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(named("LblWaiting", new QLabel("Please wait.... ")));
    layout->addWidget(named("LblTimeEstimate", new QLabel("Estimated time: 10-15 minutes")));
    // The program's window holds no animation to set anything on. Callers rely on the failure: the making of
    // indexes ends with it.
    if (!animation)
        platform::raise(platform::errObjectRequired);
    animation->setProperty("fileName",
                           QString::fromStdString(platform::programDirectory() + "/turnbook.gif"));
    animation->setProperty("Visible", true);
}

} // namespace mainscreen
