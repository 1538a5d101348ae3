#include "play/playHost.h"

#include <QPrinter>
#include <QTemporaryDir>

#include <utility>

namespace play {

void PlayHost::beep()
{
    m_stage.transcript.line("beep");
}

void PlayHost::setPointer(int newPointer)
{
    if (newPointer != pointer())
        m_stage.transcript.line("pointer " + std::to_string(newPointer));
    QtHost::setPointer(newPointer);
}

void PlayHost::print(const platform::Picture& picture)
{
    const QTemporaryDir folder;
    const bool fails = std::exchange(m_stage.printFails, false);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    // No file can take the place of a folder.
    printer.setOutputFileName(fails ? folder.path() : folder.filePath(QStringLiteral("page.pdf")));
    try {
        mainscreen::printOn(printer, picture);
    } catch (const platform::RuntimeError&) {
        m_stage.transcript.line("print: failed");
        throw;
    }
    const bool wide = printer.pageLayout().orientation() == QPageLayout::Landscape;
    m_stage.transcript.line(wide ? "print: landscape" : "print: portrait");
}

void PlayHost::workOffPainting()
{
    m_stage.isInTheMiddle = true;
    QtHost::workOffPainting();
    m_stage.isInTheMiddle = false;
}

} // namespace play
