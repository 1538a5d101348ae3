// The picture of a notice screen that goes to the printer.
#include "shownNotices.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>

#include <new>

namespace {

constexpr int sharpness = 3;
constexpr const char* sevenLines = "one\r\ntwo\r\nthree\r\nfour\r\nfive\r\nsix\r\nseven";

// A region of the screen's page in the picture of it.
QRect inPicture(const QRect& place)
{
    return {place.topLeft() * sharpness, place.size() * sharpness};
}

// Around all that differs.
QRect differenceOf(const QImage& left, const QImage& right)
{
    QRect all;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            if (left.pixel(x, y) != right.pixel(x, y))
                all |= QRect(x, y, 1, 1);
        }
    }
    return all;
}

// Places where black meets white from one dot to the next, and not where a dot of the screen ends.
int sharpEdges(const QImage& picture)
{
    int edges = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 1; x < picture.width(); ++x) {
            const int step = qGray(picture.pixel(x, y)) - qGray(picture.pixel(x - 1, y));
            edges += std::abs(step) > 200 && x % sharpness != 0 ? 1 : 0;
        }
    }
    return edges;
}

double darkPart(const QImage& picture)
{
    constexpr int dark = 128;
    double count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += qGray(picture.pixel(x, y)) < dark ? 1 : 0;
    }
    return count / picture.width() / picture.height();
}

class PrintedScreen : public ShownNotices
{
protected:
    void showNotice(const char* type)
    {
        add(smallNotice(type, 0));
        show(0);
        resizeTo(screen().sizeHint());
    }
    void resizeTo(QSize size)
    {
        screen().resize(size);
        QCoreApplication::processEvents();
    }
    void makeSmall()
    {
        const auto whole = screen().sizeHint();
        resizeTo({1, 1});
        ASSERT_LT(screen().width(), whole.width() * 2 / 3);
        ASSERT_LT(screen().height(), whole.height() / 2);
    }
    QImage print()
    {
        click("ButtonPrint");
        if (host.printed.empty())
            throw std::runtime_error("nothing was printed");
        const auto& picture = host.printed.back();
        return QImage(picture.pixels.data(), picture.width, picture.height, QImage::Format_RGB32).copy();
    }
    QRect placeOnPage(const char* name)
    {
        const auto* const control = screen().control(name);
        return {control->mapTo(&screen().parts().page, QPoint()), control->size()};
    }
    // The line of hints is about what is being typed: it is not printed.
    QSize sizeWithoutHints() const
    {
        return screen().size() - QSize(0, screen().control("LblHint")->height());
    }
    QImage look() { return screen().grab().toImage(); }
    QList<QPalette> palettes()
    {
        QList<QPalette> all;
        for (const auto* const widget : screen().findChildren<QWidget*>())
            all << widget->palette();
        return all;
    }
    QLineEdit& line(const char* name) { return *screen().control<QLineEdit>(name); }
};

class EachPrintedScreen : public PrintedScreen, public testing::WithParamInterface<const char*>
{};

// While it lives the desktop is dark.
class DarkDesktop
{
public:
    DarkDesktop()
    {
        QPalette dark(QColor(0x32, 0x32, 0x32), QColor(0x1e, 0x1e, 0x1e));
        dark.setColor(QPalette::Highlight, QColor(0x2a, 0x82, 0xda));
        QApplication::setPalette(dark);
        QCoreApplication::processEvents();
    }
    ~DarkDesktop()
    {
        QApplication::setPalette(m_before);
        QCoreApplication::processEvents();
    }
    DarkDesktop(const DarkDesktop&) = delete;
    DarkDesktop& operator=(const DarkDesktop&) = delete;

private:
    QPalette m_before = QApplication::palette();
};

// A host without a printer.
class NoPrinter : public FakeHost
{
public:
    void print(const platform::Picture&) override { platform::raise(platform::errPrinter); }
};

class NoMemory : public FakeHost
{
public:
    void print(const platform::Picture&) override { throw std::bad_alloc(); }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(All, EachPrintedScreen, testing::Values("T11", "T12", "T13", "T14"),
                         [](const auto& test) { return std::string(test.param); });

TEST_P(EachPrintedScreen, IsThreeTimesAsFineAsTheScreen)
{
    showNotice(GetParam());
    const auto picture = print();
    EXPECT_EQ(picture.size(), sizeWithoutHints() * sharpness);
    EXPECT_EQ(sharpEdges(look().scaled(picture.size())), 0) << "a screen blown up has no edges of its own";
    EXPECT_GT(sharpEdges(picture), 1000);
    EXPECT_TRUE(host.messages.empty());
}

TEST_P(EachPrintedScreen, IsTheWholeOneInASmallWindowToo)
{
    showNotice(GetParam());
    screen().setText("TxtRemarks", sevenLines);
    const auto whole = print();
    makeSmall();
    EXPECT_EQ(print(), whole);
    resizeTo({screen().sizeHint().width(), 1});
    EXPECT_EQ(print(), whole);
}

TEST_P(EachPrintedScreen, HasTheColoursOfPaperOnADarkDesktop)
{
    showNotice(GetParam());
    const auto light = print();
    EXPECT_LT(darkPart(light), 0.1);
    EXPECT_EQ(light.pixelColor(0, 0), QColor(Qt::white));
    const DarkDesktop desktop;
    ASSERT_GT(darkPart(look()), 0.5);
    EXPECT_EQ(print(), light);
    EXPECT_GT(darkPart(look()), 0.5);
}

TEST_P(EachPrintedScreen, LeavesTheScreenAsItWas)
{
    showNotice(GetParam());
    screen().setText("TxtRemarks", sevenLines);
    const DarkDesktop desktop;
    print(); // the button has the focus
    for (const auto& size : {screen().sizeHint(), QSize(1, 1), QSize(800, 300)}) {
        resizeTo(size);
        auto& scrolled = *screen().findChild<QScrollArea*>();
        scrolled.horizontalScrollBar()->setValue(50);
        scrolled.verticalScrollBar()->setValue(70);
        auto& ofRemarks = *screen().control<QPlainTextEdit>("TxtRemarks")->verticalScrollBar();
        ofRemarks.setValue(2);
        const int lineBefore = ofRemarks.value();
        const auto before = look();
        const auto paletteBefore = palettes();
        print();
        EXPECT_EQ(look(), before);
        QCoreApplication::processEvents();
        EXPECT_EQ(look(), before);
        EXPECT_TRUE(palettes() == paletteBefore);
        EXPECT_EQ(ofRemarks.value(), lineBefore);
    }
}

TEST_F(PrintedScreen, GrowsWithTheWindow)
{
    showNotice("T12");
    resizeTo(screen().sizeHint() + QSize(200, 100));
    EXPECT_EQ(print().size(), sizeWithoutHints() * sharpness);
}

TEST_F(PrintedScreen, ShowsWhatIsOutOfSight)
{
    showNotice("T12");
    const auto place = inPicture(placeOnPage("Rradius"));
    makeSmall();
    const auto without = print();
    screen().setText("Rradius", "12345");
    ASSERT_TRUE(screen().control("Rradius")->visibleRegion().isEmpty());
    const auto changed = differenceOf(without, print());
    EXPECT_FALSE(changed.isEmpty());
    EXPECT_TRUE(place.contains(changed));
}

TEST_F(PrintedScreen, ShowsLongRemarksToTheirEnd)
{
    showNotice("T11");
    const auto height = print().height();
    std::string remarks;
    for (int line = 1; line <= 25; ++line)
        remarks += "line " + std::to_string(line) + "\r\n";
    screen().setText("TxtRemarks", remarks);
    const auto inSight = print();
    EXPECT_GT(inSight.height(), height);
    screen().setText("TxtRemarks", remarks + "the end");
    const auto withEnd = print();
    EXPECT_EQ(withEnd.size(), inSight.size());
    EXPECT_FALSE(differenceOf(inSight, withEnd).isEmpty());
    for (int line = 1; line <= 1000; ++line)
        remarks += "more\r\n";
    screen().setText("TxtRemarks", remarks);
    EXPECT_LE(print().height(), 2 * height); // the rest stays readable
}

TEST_F(PrintedScreen, ShowsNeitherSelectionNorCursorOfTheFieldInHand)
{
    showNotice("T11");
    const auto insideOf = [&](const QImage& picture, const char* name) {
        return picture.copy(inPicture(placeOnPage(name).adjusted(3, 3, -3, -3)));
    };
    const auto plain = insideOf(print(), "freq");
    screen().control("admRefID")->setFocus();
    const auto inHand = insideOf(print(), "freq"); // this field sends on to it and selects its text
    ASSERT_EQ(focus(), "freq");
    EXPECT_EQ(inHand, plain);
    EXPECT_EQ(line("freq").selectedText(), line("freq").text());
    key(Qt::Key_7);
    EXPECT_EQ(screen().text("freq"), "7");
}

TEST_F(PrintedScreen, ShowsNoSelectionOfAListOrOfTheRemarks)
{
    showNotice("T11");
    screen().setText("TxtRemarks", "some remarks");
    screen().setText("natsrv", "CP");
    const auto plain = print();
    for (const char* const name : {"TxtRemarks", "natsrv"}) {
        auto* const field = screen().control(name);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        const auto inside = inPicture(placeOnPage(name).adjusted(3, 3, -20, -3));
        screen().control("ButtonPrint")->setFocusPolicy(Qt::NoFocus); // the field keeps the focus
        EXPECT_EQ(print().copy(inside), plain.copy(inside)) << name;
        EXPECT_EQ(focus(), name);
        QTest::keyClick(field, Qt::Key_X);
        EXPECT_EQ(screen().text(name), "x");
    }
}

TEST_F(PrintedScreen, KeepsLockedFieldsLocked)
{
    showNotice("T13");
    line("TxtVeldakey").setFocus();
    print();
    EXPECT_TRUE(line("TxtVeldakey").isReadOnly());
    EXPECT_FALSE(line("freq").isReadOnly());
}

TEST_F(PrintedScreen, StaysWhenItCannotBePrinted)
{
    showNotice("T14");
    const auto expectTold = [&](const FakeHost& told) {
        const auto before = look();
        click("ButtonPrint");
        const FakeHost::Box box{"", "The form can't be printed.", platform::Icon::None,
                                platform::Buttons::Ok};
        EXPECT_EQ(told.boxes, std::vector{box});
        EXPECT_TRUE(isShown());
        EXPECT_EQ(look(), before);
    };
    print(); // the button has the focus
    expectTold(NoPrinter());
    expectTold(NoMemory());
}
