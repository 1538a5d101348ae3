#include "mainscreen/openFileDialog.h"

#include <QLineEdit>

namespace mainscreen {

OpenFileDialog::OpenFileDialog(QWidget* parent, const QString& folder, const Look& look)
    : QFileDialog(parent, QStringLiteral("Open"), folder)
{
    setObjectName(QStringLiteral("CMDialog"));
    setFileMode(QFileDialog::ExistingFile);
    if (look.state.isEmpty())
        return;
    const auto here = directory();
    restoreState(look.state); // the folder too, which is not how it looks
    setDirectory(here);
    resize(look.size);
}

QString OpenFileDialog::chosenFile() const
{
    return m_chosen.isEmpty() ? selectedFiles().value(0) : m_chosen;
}

// A dialog of the desktop's own has no such field, and no such trouble.
void OpenFileDialog::accept()
{
    auto* const name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const auto text = name != nullptr ? name->text() : QString();
    const QFileInfo file(directory(), text);
    if (!text.contains(u'"') || !file.exists()) {
        QFileDialog::accept();
    } else if (file.isDir()) {
        setDirectory(file.absoluteFilePath());
        name->clear();
    } else {
        m_chosen = file.absoluteFilePath();
        done(Accepted);
    }
}

} // namespace mainscreen
