#pragma once

#include <QDialog>

namespace mainscreen {

// Stands on the screen while indexes are made. Its animation is set up when it loads: without one, as in the
// program, loading it is failure 424.
class FrmWaiting : public QDialog
{
    Q_OBJECT
public:
    // The animation is not owned and takes its settings as the properties "fileName" and "Visible"; null for
    // none.
    explicit FrmWaiting(QObject* animation, QWidget* parent = nullptr);
};

} // namespace mainscreen
