#include "screens/printing.h"

#include "platform/host.h"
#include "screens/noticeForm.h"

#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>

#include <algorithm>

namespace screens {

namespace {

constexpr int sharpness = 3; // dots of the picture for one of the screen, in each direction

// Dark on white whatever the desktop looks like. What is selected looks like the rest.
QPalette paperColours()
{
    QPalette colours(QColor(0xef, 0xef, 0xef), Qt::white);
    colours.setColor(QPalette::Highlight, Qt::white);
    colours.setColor(QPalette::HighlightedText, Qt::black);
    return colours;
}

// A widget in the colours of paper while this lives. No event is worked off meanwhile, so the screen never
// shows them.
class OnPaper
{
public:
    explicit OnPaper(QWidget& widget)
        : m_widget(widget), m_before(widget.testAttribute(Qt::WA_SetPalette) ? widget.palette() : QPalette())
    {
        widget.setPalette(paperColours());
    }
    ~OnPaper() { m_widget.setPalette(m_before); }
    OnPaper(const OnPaper&) = delete;
    OnPaper& operator=(const OnPaper&) = delete;

private:
    QWidget& m_widget;
    QPalette m_before; // its own; one that sets nothing for none
};

// The screen laid out as in a window with room for all of it, long remarks included, while this lives. Beyond
// the height of the screen itself they would make the rest too small to read.
class AtFullSize
{
public:
    AtFullSize(const NoticeForm::Parts& parts, const QPlainTextEdit& remarks)
        : m_parts(parts),
          m_pageBefore(parts.page.size()),
          m_leastBefore(parts.page.minimumSize()),
          m_barBefore(parts.bar.size())
    {
        // A plain resizing of the page would be undone by what scrolls it.
        const auto full = m_pageBefore.expandedTo(parts.page.sizeHint());
        parts.page.setMinimumSize(full);
        const int linesOutOfSight = remarks.verticalScrollBar()->maximum();
        const int more = std::min(linesOutOfSight * remarks.fontMetrics().lineSpacing(), full.height());
        parts.page.setMinimumHeight(full.height() + more);
        parts.bar.resize(std::max(parts.page.width(), m_barBefore.width()), m_barBefore.height());
    }
    ~AtFullSize()
    {
        m_parts.page.setMinimumSize(m_leastBefore);
        m_parts.page.resize(m_pageBefore);
        m_parts.bar.resize(m_barBefore);
    }
    AtFullSize(const AtFullSize&) = delete;
    AtFullSize& operator=(const AtFullSize&) = delete;

private:
    NoticeForm::Parts m_parts;
    QSize m_pageBefore, m_leastBefore, m_barBefore;
};

// The remarks without a bar to scroll them while this lives: nobody scrolls paper.
class WithoutScrollBar
{
public:
    explicit WithoutScrollBar(QPlainTextEdit& remarks)
        : m_remarks(remarks), m_before(remarks.verticalScrollBar()->value())
    {
        remarks.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    ~WithoutScrollBar()
    {
        m_remarks.setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        m_remarks.verticalScrollBar()->setValue(m_before);
    }
    WithoutScrollBar(const WithoutScrollBar&) = delete;
    WithoutScrollBar& operator=(const WithoutScrollBar&) = delete;

private:
    QPlainTextEdit& m_remarks;
    int m_before;
};

// The field in hand without its cursor while this lives: on paper it would be read as one character more.
class WithoutCursor
{
public:
    explicit WithoutCursor(QWidget* field)
    {
        auto* const box = qobject_cast<QComboBox*>(field);
        QWidget* const text = box != nullptr ? box->lineEdit() : field;
        if (text != nullptr && text->property(readOnly) == QVariant(false))
            m_text = text;
        set(true);
    }
    ~WithoutCursor() { set(false); }
    WithoutCursor(const WithoutCursor&) = delete;
    WithoutCursor& operator=(const WithoutCursor&) = delete;

private:
    static constexpr const char* readOnly = "readOnly";

    void set(bool on)
    {
        if (m_text != nullptr)
            m_text->setProperty(readOnly, on);
    }

    QWidget* m_text = nullptr; // that can be typed into; null for none
};

// Painted at the size of the picture, so that its text is as sharp as its dots allow.
QImage imageOf(const NoticeForm& form)
{
    const auto parts = form.parts();
    const OnPaper page(parts.page);
    const OnPaper bar(parts.bar);
    const WithoutCursor field(form.focusWidget());
    auto& remarks = *form.control<QPlainTextEdit>("TxtRemarks");
    const WithoutScrollBar allLines(remarks);
    const AtFullSize all(parts, remarks);
    const auto scale = sharpness * parts.page.devicePixelRatioF();
    const QSizeF size(parts.bar.width(), parts.page.height() + parts.bar.height());
    QImage image((size * scale).toSize(), QImage::Format_RGB32);
    if (image.isNull())
        platform::raise(platform::errPrinter);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    parts.page.render(&image);
    parts.bar.render(&image, QPoint(0, parts.page.height()));
    return image;
}

} // namespace

void printScreen(const NoticeForm& form)
{
    const auto image = imageOf(form);
    const auto* const bytes = image.constBits();
    platform::host().print(
        {image.width(), image.height(), std::vector<std::uint8_t>(bytes, bytes + image.sizeInBytes())});
}

} // namespace screens
