#include "mainscreen/rvisAbout.h"

#include "platform/paths.h"
#include "support/temporaryFolder.h"
#include "support/windows.h"

#include <gtest/gtest.h>
#include <QPlainTextEdit>

#include <fstream>
#include <sstream>

#ifndef _WIN32
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#endif

namespace {

using mainscreen::aboutText;
using mainscreen::RvisAbout;
using namespace windows;

constexpr const char* fileName = "ZEPH_RvisAbout.txt";

std::string apology(const std::string& number)
{
    return "Error " + number +
           " : \n\rFile ZEPH_RvisAbout.txt containing short description of the software was not found\r\n\r\n"
           "KD/LMN/QRS - Version 1.5 - 15.05.2002";
}

class About : public testing::Test
{
protected:
    About() { platform::setProgramDirectory(folder.path().string()); }
    ~About() override { platform::setProgramDirectory(""); }

    TemporaryFolder folder;
};

TEST_F(About, takesTheLinesOfTheFile)
{
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},
        {"one line", "one line\r\n"},
        {"a, \"b\"\r\n  c\n\rd\r\n\r\n", "a, \"b\"\r\n  c\r\n\r\nd\r\n\r\n"},
        {"caf\xE9\r\n", "café\r\n"},
    };
    for (const auto& [bytes, text] : rows) {
        folder.write(fileName, bytes);
        EXPECT_EQ(aboutText(), text);
        EXPECT_EQ(aboutText(), text) << "the file was closed";
    }
}

TEST_F(About, apologisesWhenTheFileIsMissing)
{
    EXPECT_EQ(aboutText(), apology("53"));
}

TEST_F(About, apologisesWhenTheFileCannotBeOpened)
{
    std::filesystem::create_directory(folder.path() / fileName);
    EXPECT_EQ(aboutText(), apology("75"));
}

#ifdef __linux__
TEST_F(About, apologisesWhenTheFileCannotBeReadAndClosesIt)
{
    // It opens, and its first byte can't be read.
    std::filesystem::create_symlink("/proc/self/mem", folder.path() / fileName);
    EXPECT_EQ(aboutText(), apology("57"));
    EXPECT_EQ(aboutText(), apology("57"));
}
#endif

#ifndef _WIN32

// A file that gives its bytes and then fails: a pipe, and signals that interrupt whoever waits for more.
class FailingFile
{
public:
    FailingFile(const std::string& path, const std::string& bytes)
    {
        struct sigaction interrupt = {};
        interrupt.sa_handler = [](int) {};
        sigaction(SIGUSR1, &interrupt, &m_before);
        EXPECT_EQ(mkfifo(path.c_str(), S_IRUSR | S_IWUSR), 0);
        m_writer = std::jthread([this, path, bytes](const std::stop_token& enough) {
            const int pipe = ::open(path.c_str(), O_WRONLY | O_CLOEXEC); // waits for the reader
            EXPECT_EQ(write(pipe, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
            for (int unread = 1; unread > 0 && !enough.stop_requested();)
                ioctl(pipe, FIONREAD, &unread);
            while (!enough.stop_requested()) {
                pthread_kill(m_reader, SIGUSR1);
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
            ::close(pipe);
        });
    }
    ~FailingFile()
    {
        m_writer.request_stop();
        m_writer.join();
        sigaction(SIGUSR1, &m_before, nullptr);
    }
    FailingFile(const FailingFile&) = delete;
    FailingFile& operator=(const FailingFile&) = delete;

private:
    pthread_t m_reader = pthread_self();
    struct sigaction m_before = {};
    std::jthread m_writer;
};

TEST_F(About, keepsWhatItReadBeforeAFailure)
{
    const FailingFile file(folder.file(fileName), "one\r\ntwo\r\n");
    EXPECT_EQ(aboutText(), "one\r\ntwo\r\n" + apology("57"));
}

#endif

TEST_F(About, showsTheTextReadOnly)
{
    folder.write(fileName, "one\r\ntwo <b>\r\n");
    RvisAbout about;
    EXPECT_EQ(badNames(about), "");
    EXPECT_EQ(about.windowTitle(), "ZEPH Record Revision (Rvis)");
    const auto& box = control<QPlainTextEdit>(about, "TxtAbout");
    EXPECT_TRUE(box.isReadOnly());
    EXPECT_EQ(box.toPlainText(), "one\ntwo <b>\n");
    EXPECT_EQ(box.property("text").toString(), "one\r\ntwo <b>\r\n");
}

TEST_F(About, isClosedByAClickOnTheText)
{
    RvisAbout about;
    open(about);
    auto* text = control<QPlainTextEdit>(about, "TxtAbout").viewport();
    QTest::mouseClick(text, Qt::RightButton);
    QTest::mouseRelease(text, Qt::LeftButton); // of a click that began elsewhere
    EXPECT_TRUE(about.isVisible());
    QTest::mousePress(text, Qt::LeftButton);
    EXPECT_TRUE(about.isVisible());
    QTest::mouseRelease(text, Qt::LeftButton);
    EXPECT_FALSE(about.isVisible());
}

TEST_F(About, isClosedByTheFrameButByNoKey)
{
    RvisAbout about;
    open(about);
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
        press(about, key);
    EXPECT_TRUE(about.isVisible());
    about.close();
    EXPECT_FALSE(about.isVisible());
}

TEST_F(About, textCanBeMarkedWithTheMouse)
{
    folder.write(fileName, "a line that is long enough\r\n");
    RvisAbout dialog;
    open(dialog);
    auto& text = control<QPlainTextEdit>(dialog, "TxtAbout");
    QTest::mousePress(text.viewport(), Qt::LeftButton, {}, QPoint(6, 12));
    QMouseEvent drag(QEvent::MouseMove, QPointF(90, 12), text.viewport()->mapToGlobal(QPointF(90, 12)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(text.viewport(), &drag);
    QTest::mouseRelease(text.viewport(), Qt::LeftButton, {}, QPoint(90, 12));
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(text.textCursor().hasSelection());
    QTest::mouseClick(text.viewport(), Qt::LeftButton, {}, QPoint(6, 60));
    EXPECT_FALSE(dialog.isVisible());
}

TEST(AboutText, standsBesideTheProgramsInPlainText)
{
    std::ostringstream shipped;
    shipped << std::ifstream(std::string(ZEPH_DATA_DIR) + "/" + fileName, std::ios::binary).rdbuf();
    std::string expected;
    for (const char byte : shipped.str()) {
        EXPECT_TRUE(byte == '\n' || (byte >= ' ' && byte <= '~')) << int(byte);
        expected += byte == '\n' ? "\r\n" : std::string(1, byte);
    }
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(aboutText(), expected);
}

} // namespace
