#pragma once

#include <QLineEdit>

namespace screens {

// A text box as wide as the text that it is for. What an operator types or pastes is bounded by the input
// limit (its dynamic property "inputLimit", where it has one); a text set by code is shown whole.
class FieldEdit : public QLineEdit
{
    Q_OBJECT
public:
    // `sample` is a text of the width wanted.
    explicit FieldEdit(QString sample, QWidget* parent = nullptr);

    void setInputLimit(int characters);
    // Wide enough to stand in one column with the other.
    void alignWith(const QWidget* other) { m_widthOf = other; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

private:
    QString m_sample;
    const QWidget* m_widthOf = nullptr;
};

// Read only: its text can be selected and copied with the mouse, and Tab passes it by.
void lock(FieldEdit& field);

} // namespace screens
