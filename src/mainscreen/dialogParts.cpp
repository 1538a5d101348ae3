#include "mainscreen/dialogParts.h"

#include "widgets/application.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLayout>
#include <QPushButton>

namespace mainscreen {

void addOkAndCancel(QDialog& dialog, QPushButton* ok, QPushButton* cancel, const std::function<void()>& work)
{
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(ok, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancel, QDialogButtonBox::RejectRole);
    dialog.layout()->addWidget(buttons);
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, &dialog, widgets::guarded([work](bool) { work(); }));
    QObject::connect(cancel, &QPushButton::clicked, &dialog,
                     widgets::guarded([&dialog](bool) { dialog.reject(); }));
}

} // namespace mainscreen
