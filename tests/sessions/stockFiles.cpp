#include "sessions/stockFiles.h"

#include "dao/databaseFile.h"
#include "load/readNtcAndWriteToDB.h"
#include "model/session.h"
#include "platform/hostFormat.h"
#include "platform/paths.h"
#include "platform/userName.h"
#include "support/fakeHost.h"

#include <sqlite3.h>

#include <array>
#include <fstream>
#include <memory>
#include <span>
#include <stdexcept>

namespace {

using TakeRow = int (*)(void* rows, int count, char** values, char** columns);

void run(const std::string& file, const std::string& sql, TakeRow takeRow, std::string* rows)
{
    sqlite3* opened = nullptr;
    const int result = sqlite3_open(file.c_str(), &opened);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close_v2)> database(opened, sqlite3_close_v2);
    if (result != SQLITE_OK || sqlite3_exec(opened, sql.c_str(), takeRow, rows, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(opened));
}

int appendRow(void* rows, int count, char** values, char** /*columns*/)
{
    auto& text = *static_cast<std::string*>(rows);
    const char* separator = "";
    for (const char* value : std::span(values, static_cast<std::size_t>(count))) {
        text += std::string(separator) + (value != nullptr ? value : "(null)");
        separator = "\t";
    }
    text += '\n';
    return SQLITE_OK;
}

} // namespace

void executeSql(const std::string& file, const std::string& sql)
{
    run(file, sql, nullptr, nullptr);
}

std::string rowsOf(const std::string& file, const std::string& sql)
{
    std::string rows;
    run(file, sql, appendRow, &rows);
    return rows;
}

namespace {

namespace fs = std::filesystem;
using Folder = const TemporaryFolder&;

const std::string sample = ZEPH_DATA_DIR "/samples/sample12.txt";
constexpr const char* masterName = "MasterKVR_QRS.mdb";
constexpr const char* aboutName = "ZEPH_RvisAbout.txt";

std::string installed(const char* name)
{
    return platform::programDirectory() + '/' + name;
}

void copyOver(const fs::path& from, const fs::path& to)
{
    fs::copy_file(from, to, fs::copy_options::overwrite_existing);
}

void makeEmpty(Folder folder, const std::string& name)
{
    dao::copyDatabaseFile(installed(masterName), folder.file(name));
}

// The session values and the host are this process's own, not those of the session that is played.
void makeLoaded(Folder folder, const std::string& name)
{
    const FakeHost host;
    platform::setClock(platform::LocalTime{2026, 1, 2, 3, 4, 5});
    platform::setHostUserName("operator");
    makeEmpty(folder, name);
    session::electFileName = sample;
    session::notice = Ntc();
    session::notice.d_rcv = "2026-1-2";
    readNtcAndWriteToDB::openElectFile(session::notice);
    readNtcAndWriteToDB::loadElectFile(session::notice, folder.file(name));
}

void makeNotices(Folder folder, const std::string& name)
{
    copyOver(sample, folder.file(name));
}

void makeOneNotice(Folder folder, const std::string& name)
{
    folder.write(name,
                 "<HEAD>\r\nt_adm=QVA\r\n</HEAD>\r\n\r\n<NOTICE>\r\nt_notice_type=T12\r\nt_action=ADD\r\n"
                 "t_freq_assgn=151.3375\r\nt_geo_type=POINT\r\nt_site_name=Halgen Ridge\r\nt_ctry=QVA\r\n"
                 "t_long=+0123045\r\nt_lat=-081512\r\nt_op_hh_fr=00:00\r\nt_op_hh_to=24:00\r\n"
                 "t_stn_cls=FB\r\nt_emi_cls=F3E--\r\nt_bdwdth_cde=8K00\r\nt_adm_ref_id=QREF-1\r\n"
                 "</NOTICE>\r\n");
}

void makeOddTypes(Folder folder, const std::string& name)
{
    makeLoaded(folder, name);
    executeSql(folder.file(name), "UPDATE kvr_velda SET notice_typ = 'T15' WHERE veldakey = 1;"
                                  "UPDATE kvr_velda SET adm = '' WHERE veldakey = 2;");
}

void makeWithoutTables(Folder folder, const std::string& name)
{
    dao::createDatabaseFile(folder.file(name), "");
}

void makeForeign(Folder folder, const std::string& name)
{
    executeSql(folder.file(name), "CREATE TABLE kvr_velda (veldakey INTEGER PRIMARY KEY)");
}

void makeText(Folder folder, const std::string& name)
{
    folder.write(name, "This is no database, but a text that is long enough to hold the header of one.\r\n");
}

// The header stays as it is.
void makeDamaged(Folder folder, const std::string& name)
{
    constexpr std::size_t page = 4096;
    makeLoaded(folder, name);
    auto bytes = folder.read(name);
    bytes.replace(page, bytes.size() - page, bytes.size() - page, '\xA5');
    folder.write(name, bytes);
}

// The file of a set that was changed last tells when; a session prints it.
constexpr const char* setMoment = "UPDATE zeph_objects SET changed = '2025-12-31 23:59:58'";

void makeReferences(Folder folder, const std::string& name)
{
    fs::copy(fs::path(ZEPH_SAMPLES_DIR) / name, folder.file(name), fs::copy_options::recursive);
    for (const char* file : {"VELDABASEBETA.mdb", "VELDAKVR1.mdb", "VELDAKVR3.mdb"})
        executeSql(folder.file(name + file), setMoment);
}

// As they stand among the data of the tests, but writable.
void makeOldFiles(Folder folder, const std::string& name)
{
    fs::copy(fs::path(ZEPH_TEST_DIR) / "data/jet" / name, folder.file(name), fs::copy_options::recursive);
    for (const auto& entry : fs::recursive_directory_iterator(folder.file(name)))
        fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
}

struct StockFile
{
    const char* name;
    void (*make)(Folder folder, const std::string& name);
};

constexpr std::array stock = {
    StockFile{"notices.txt", makeNotices}, StockFile{"one.txt", makeOneNotice},
    StockFile{"nodot", makeNotices},       StockFile{"empty.mdb", makeEmpty},
    StockFile{"work.mdb", makeLoaded},     StockFile{"T15.mdb", makeOddTypes},
    StockFile{"text.mdb", makeText},       StockFile{"notables.mdb", makeWithoutTables},
    StockFile{"foreign.mdb", makeForeign}, StockFile{"damaged.mdb", makeDamaged},
    StockFile{"ref/", makeReferences},     StockFile{"refnoindex/", makeReferences},
    StockFile{"jet4/", makeOldFiles},      StockFile{"jet3/", makeOldFiles},
};

} // namespace

void StockFiles::makeProgramDirectory() const
{
    const auto program = m_folder.path() / "program";
    fs::create_directories(program / "drives/m/kdlmn/qrs/ostrand/KVR_test");
    copyOver(installed(masterName), program / masterName);
    if (fs::exists(installed(aboutName)))
        copyOver(installed(aboutName), program / aboutName);
}

void StockFiles::make(const std::string& script) const
{
    makeProgramDirectory();
    for (const auto& file : stock) {
        if (script.find(file.name) != std::string::npos)
            file.make(m_folder, file.name);
    }
}
