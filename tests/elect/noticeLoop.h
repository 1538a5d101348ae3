#pragma once

#include "elect/readFromFileToNtc.h"
#include "model/InitializeNtc.h"
#include "platform/fileNumbers.h"

// Walks the heads and notices of file number 1 as a load does, without a database. The record is emptied
// before each notice but for what belongs to the whole load.
template <class TakeNotice>
void walkNotices(Ntc& ntc, TakeNotice takeNotice)
{
    using namespace readFromFileToNtc;
    while (!platform::endOfFile(1)) {
        advance();
        if (currentLine == "<HEAD>") {
            advance();
            readHeadFromFile(ntc);
        }
        if (currentLine != "<NOTICE>")
            continue;
        advance();
        InitializeNtc::initNtc(ntc);
        readNtcFromFile(ntc);
        takeNotice(ntc);
    }
}
