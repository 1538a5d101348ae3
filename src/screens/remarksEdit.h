#pragma once

#include <QPlainTextEdit>

namespace screens {

// A text of several lines. Characters that notice files can't hold are refused, however they come.
class RemarksEdit : public QPlainTextEdit
{
    Q_OBJECT
public:
    explicit RemarksEdit(QWidget* parent = nullptr);

signals:
    void refused(const QString& characters);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    QString accepted(const QString& entry);
};

} // namespace screens
