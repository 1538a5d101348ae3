// The road of one file without a window: zeph_rvis_demo NOTICE_FILE FOLDER copies the notice file into the
// folder, loads it there into a working database, says what the operator would be told, and writes the `.upd`
// file.
#include "db/MainModule.h"
#include "db/noticeList.h"
#include "elect/writeNtcToElect.h"
#include "load/readNtcAndWriteToDB.h"
#include "model/InitializeNtc.h"
#include "model/ScreenModule.h"
#include "model/session.h"
#include "platform/host.h"
#include "platform/hostFormat.h"

#include <filesystem>
#include <iostream>

namespace {

namespace fs = std::filesystem;

class ConsoleHost : public platform::Host
{
public:
    ConsoleHost() { platform::setHost(this); }
    ~ConsoleHost() override { platform::setHost(nullptr); }
    ConsoleHost(const ConsoleHost&) = delete;
    ConsoleHost& operator=(const ConsoleHost&) = delete;

    platform::Answer msgBox(const std::string& text, platform::Buttons buttons, platform::Icon,
                            const std::string&) override
    {
        std::cout << text << '\n';
        ++m_messages;
        return buttons == platform::Buttons::Ok ? platform::Answer::Ok : platform::Answer::No;
    }
    void beep() override {}
    void setPointer(int) override {}
    void clearErrorLines() override {}
    void addErrorLine(const std::string& line) override { std::cout << line << '\n'; }

    [[nodiscard]] int messages() const { return m_messages; }

private:
    int m_messages = 0;
};

// The folder becomes the current one and the paths plain names: the path of a working database is cut at the
// first dot anywhere, and the way to the folder may hold one.
void prepare(const fs::path& noticeFile, const fs::path& folder)
{
    fs::create_directories(folder);
    fs::copy_file(noticeFile, folder / noticeFile.filename(), fs::copy_options::overwrite_existing);
    fs::current_path(folder);
    session::electFileName = noticeFile.filename().string();
    session::workingDbPath = readNtcAndWriteToDB::workingDatabaseOf(session::electFileName);
}

void load()
{
    auto& notice = session::notice;
    InitializeNtc::clearNtcRcvDate(notice);
    notice.d_rcv = ScreenModule::formatDateDots(platform::shortDateText(platform::now()));
    MainModule::copyMasterDatabase(session::workingDbPath);
    readNtcAndWriteToDB::openElectFile(notice);
    readNtcAndWriteToDB::loadElectFile(notice, session::workingDbPath);
}

void listNotices()
{
    MainModule::openDatabase(true, session::workingDbPath, session::db);
    noticeList::loadNoticeKeys(session::db->OpenRecordset(
        noticeList::buildNoticeQuery("", noticeList::Sort::Index), dao::dbOpenDynaset));
    MainModule::closeDatabase(session::db);
}

std::string save()
{
    auto fileName = readNtcAndWriteToDB::updateFileOf(session::workingDbPath);
    MainModule::openDatabase(false, session::workingDbPath, session::db);
    writeNtcToElect::writeElectFile(fileName, session::db);
    MainModule::closeDatabase(session::db);
    return fileName;
}

} // namespace

int main(int count, char** arguments)
try {
    if (count != 3) {
        std::cerr << "usage: zeph_rvis_demo NOTICE_FILE FOLDER\n";
        return 2;
    }
    const ConsoleHost host;
    prepare(arguments[1], arguments[2]);
    std::cout << "Loading " << session::electFileName << '\n';
    load();
    listNotices();
    std::cout << "WORKING DATABASE : " << session::workingDbPath << '\n'
              << session::keyCount << " record(s)\n";
    std::cout << "The file : " << save() << " has been created\n";
    return host.messages() == 0 ? 0 : 1;
} catch (const platform::RuntimeError& failure) {
    std::cerr << "run-time error " << failure.number << ": " << failure.description() << '\n';
    return 3;
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 3;
}
