#pragma once

#include <QFileDialog>

namespace mainscreen {

// Asks for an existing file. The toolkit's own dialog takes a quotation mark for the sign that parts several
// names; here it is a character of a name as any other.
class OpenFileDialog : public QFileDialog
{
    Q_OBJECT
public:
    // How the operator left it: size, columns, view. It lasts as long as the program; no file keeps it.
    struct Look
    {
        QSize size;
        QByteArray state;
    };
    OpenFileDialog(QWidget* parent, const QString& folder, const Look& look = {});

    [[nodiscard]] Look look() const { return {size(), saveState()}; }
    // Its path once the dialog was accepted.
    [[nodiscard]] QString chosenFile() const;

    void accept() override;

private:
    QString m_chosen; // by a name that the toolkit would have taken apart
};

} // namespace mainscreen
