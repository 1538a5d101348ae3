// A picture on its way to the printer; a PDF stands for the paper.
#include "mainscreen/qtHost.h"
#include "support/failures.h"
#include "support/temporaryFolder.h"

#include <gtest/gtest.h>
#include <QImage>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

// All of one colour, so that no two rows of pixels can be mistaken.
platform::Picture aPicture(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    return {width, height,
            std::vector<std::uint8_t>(image.constBits(), image.constBits() + image.sizeInBytes())};
}

// What the groups of the pattern hold where it is first met; nothing when it is not.
std::vector<double> numbersIn(const QString& text, const std::string& pattern)
{
    const auto found = QRegularExpression(QString::fromStdString(pattern)).match(text);
    std::vector<double> numbers;
    for (int group = 1; group <= found.lastCapturedIndex(); ++group)
        numbers.push_back(found.captured(group).toDouble());
    return numbers;
}

class Printing : public testing::Test
{
protected:
    Printing()
    {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(folder.file("page.pdf")));
    }

    // The numbers behind a key of the PDF, of its first occurrence.
    std::vector<double> numbersBehind(const std::string& key, int count) const
    {
        const auto bytes = folder.read("page.pdf");
        std::string pattern = key;
        for (int number = 0; number < count; ++number)
            pattern += "\\s*(-?[0-9.]+)";
        return numbersIn(QString::fromLatin1(QByteArray::fromStdString(bytes)), pattern);
    }

    // Width and height of the one picture on the page, in units of the PDF's page content.
    std::vector<double> sizeOfPicture() const
    {
        const auto bytes = QByteArray::fromStdString(folder.read("page.pdf"));
        // A picture of one unit is scaled to its pixels, and these to the page.
        const std::string scale = "(-?[0-9.]+) 0 0 (-?[0-9.]+) -?[0-9.]+ -?[0-9.]+ cm\\s*";
        for (qsizetype at = bytes.indexOf("stream\n"); at >= 0; at = bytes.indexOf("stream\n", at + 1)) {
            // The toolkit unpacks what begins with the length of the result.
            const auto content =
                QString::fromLatin1(qUncompress(QByteArray::fromHex("00010000") + bytes.mid(at + 7)));
            const auto found = numbersIn(content, scale + scale + "/Im");
            if (found.size() == 4)
                return {std::abs(found[0] * found[2]), std::abs(found[1] * found[3])};
        }
        return {};
    }

    TemporaryFolder folder;
    QPrinter printer{QPrinter::HighResolution};
};

} // namespace

TEST_F(Printing, GoesOnOneLandscapePage)
{
    mainscreen::printOn(printer, aPicture(400, 300));
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
    const auto paper = numbersBehind("/MediaBox \\[", 4);
    ASSERT_EQ(paper.size(), 4U);
    EXPECT_GT(paper[2], paper[3]);
    EXPECT_EQ(numbersBehind("/Count", 1), std::vector<double>{1});
}

TEST_F(Printing, KeepsTheAspectOfThePicture)
{
    for (const auto& [width, height] : {std::pair{400, 300}, {300, 400}, {1000, 100}}) {
        mainscreen::printOn(printer, aPicture(width, height));
        const auto size = sizeOfPicture();
        ASSERT_EQ(size.size(), 2U) << width;
        EXPECT_NEAR(size[0] / size[1], static_cast<double>(width) / height, 0.01 * width / height) << width;
        const QSizeF page = printer.pageRect(QPrinter::DevicePixel).size();
        EXPECT_TRUE(std::abs(size[0] - page.width()) < 2 || std::abs(size[1] - page.height()) < 2)
            << size[0] << " x " << size[1] << " on " << page.width() << " x " << page.height();
    }
}

TEST_F(Printing, ToAFileThatCannotBeWrittenFails)
{
    printer.setOutputFileName(QString::fromStdString(folder.file("no folder/page.pdf")));
    EXPECT_FAILURE(platform::errPrinter, mainscreen::printOn(printer, aPicture(40, 30)));
}

TEST_F(Printing, OfNothingFails)
{
    EXPECT_FAILURE(platform::errPrinter, mainscreen::printOn(printer, platform::Picture{}));
}

TEST_F(Printing, WithoutAPrinterFails)
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "this host has a printer";
    mainscreen::QtHost host;
    EXPECT_FAILURE(platform::errPrinter, host.print(aPicture(40, 30)));
}
