#pragma once

#include <QDialog>

namespace mainscreen {

// Stands on the screen while indexes are made. Its animation is set up when it loads, through an object that
// the window has not: loading it is failure 424.
class FrmWaiting : public QDialog
{
    Q_OBJECT
public:
    explicit FrmWaiting(QWidget* parent = nullptr);
};

} // namespace mainscreen
