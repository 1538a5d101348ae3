#include "mainscreen/readingWindow.h"

#include "mainscreen/dialogParts.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace mainscreen {

namespace {

QLabel* title()
{
    auto* label = named("LblTitle", new QLabel("Reading old files. Please wait."));
    auto font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

} // namespace

ReadingWindow::ReadingWindow(const QStringList& files, QWidget* parent)
    : QFrame(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFrameStyle(QFrame::Panel | QFrame::Raised);
    setLineWidth(2);
    auto* names = named("LblFiles", new QLabel(files.join('\n')));
    names->setTextFormat(Qt::PlainText);
    auto* bar = named("PrgReading", new QProgressBar, "Reading");
    bar->setRange(0, 0); // how long it takes can't be told
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 16, 20, 16);
    layout->setSpacing(12);
    layout->addWidget(title());
    layout->addWidget(names);
    layout->addWidget(bar);
    layout->addWidget(named("LblReading", new QLabel("This is done once. The next time they open at once.")));
}

} // namespace mainscreen
