// A load that is meant to be killed: killable_load FILE DATABASE [torn] loads the file and prints a line for
// each notice that is about to be stored, so that all before it are committed. With "torn" nothing is in a
// transaction: the control that shows what a kill does then.
#include "db/MainModule.h"
#include "db/writeNtcToDB.h"
#include "elect/readFromFileToNtc.h"
#include "load/readNtcAndWriteToDB.h"
#include "model/InitializeNtc.h"
#include "model/session.h"
#include "platform/fileNumbers.h"
#include "printingHost.h"

#include <cstdio>
#include <string>

namespace {

// The rows of a notice one by one, each committed by itself.
void storeWithoutTransaction(const Ntc& ntc)
{
    const auto& database = session::db;
    writeNtcToDB::drawVeldaKey(database);
    const auto rows = database->OpenRecordset("kvr_velda", dao::dbOpenTable);
    rows->AddNew();
    rows->setCollect("veldakey", session::currentVeldaKey);
    rows->Update(dao::dbUpdateRegular, false);
    writeNtcToDB::insertRmks(ntc, database);
    writeNtcToDB::insertCallSigns(ntc, database);
    writeNtcToDB::insertNatSrv(ntc, database);
    writeNtcToDB::insertAntenna(1, ntc.antenna[0], writeNtcToDB::StationKind::RX, database);
}

void tornLoad(const std::string& path)
{
    MainModule::openDatabase(false, path, session::db);
    session::db->beginBulkLoad({});
    int number = 0;
    while (!platform::endOfFile(1)) {
        readFromFileToNtc::advance();
        if (readFromFileToNtc::currentLine != "<NOTICE>")
            continue;
        readFromFileToNtc::advance();
        InitializeNtc::initNtc(session::notice);
        readFromFileToNtc::readNtcFromFile(session::notice);
        platform::host().addErrorLine("Notice No: " + std::to_string(++number));
        storeWithoutTransaction(session::notice);
    }
}

} // namespace

int main(int count, char** arguments)
try {
    if (count < 3)
        return 2;
    PrintingHost host;
    platform::setHost(&host);
    session::electFileName = arguments[1];
    readNtcAndWriteToDB::openElectFile(session::notice);
    if (count > 3)
        tornLoad(arguments[2]);
    else
        readNtcAndWriteToDB::loadElectFile(session::notice, arguments[2]);
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
}
