#pragma once

#include <QLineEdit>

namespace screens {

// A text box as wide as the text that it is for. What an operator puts in goes through a widgets::TextEntry;
// a text set by code is shown whole.
class FieldEdit : public QLineEdit
{
    Q_OBJECT
public:
    // `sample` is a text of the width wanted, `limit` the characters that an operator may put in, 0 for any
    // number.
    explicit FieldEdit(QString sample, int limit = 0, QWidget* parent = nullptr);

    // Wide enough to stand in one column with the other.
    void alignWith(const QWidget* other) { m_widthOf = other; }
    // Hatched: what stands in it is not stored.
    void markNotStored();

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_sample;
    const QWidget* m_widthOf = nullptr;
    bool m_notStored = false;
};

// Read only: its text can be selected and copied with the mouse, and Tab passes it by.
void lock(FieldEdit& field);

} // namespace screens
