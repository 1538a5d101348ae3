#include "load/checkTarget.h"

#include "db/MainModule.h"
#include "db/readDBToNtc.h"
#include "db/updateNtcInDB.h"
#include "load/targetQueries.h"
#include "model/InitializeNtc.h"
#include "model/session.h"
#include "platform/ansiText.h"
#include "platform/host.h"
#include "platform/numberText.h"

#include <algorithm>
#include <limits>

namespace checkTarget {

namespace {

using targetQueries::Among;
using targetQueries::QueryRef;
using RecordsetRef = dao::Ref<dao::Recordset>;

std::vector<std::int32_t> keys;

// The last row wins, and a Null leaves what an earlier one gave.
void takeLast(const RecordsetRef& rows, const char* column, std::string& text)
{
    auto value = rows->Fields(column);
    if (!value.isNull())
        text = std::move(value).text();
}

void walk(const RecordsetRef& rows, std::string& site, std::string& ctry)
{
    if (rows->RecordCount() > 0) {
        for (; !rows->EOF_(); rows->MoveNext()) {
            takeLast(rows, "site_name", site);
            takeLast(rows, "ctry", ctry);
        }
    }
    // The true number only now, behind the last row.
    const auto found = rows->RecordCount();
    if (found == 0)
        site = noTarget;
    else if (found > 1)
        site = severalTargets;
}

// Runs a query whose own parameters `setOthers` sets beside those that all three shapes have. A failure is
// shown, and what was found until then is the result.
template <class SetOthers>
std::string siteBy(const std::string& text, const Assignment& assignment, const std::string& intent,
                   const DatabaseRef& reference, std::string& ctry, SetOthers setOthers)
{
    auto padded = assignment;
    padded.emi_cls = padEmission(assignment.emi_cls);
    std::string site;
    MainModule::showingFailure([&] {
        const auto query = reference->CreateQueryDef("", text);
        targetQueries::setAssignment(query, padded);
        targetQueries::set(query, "IsNotice", intent == "SUPPRESS" ? "FALSE" : "TRUE");
        setOthers(query);
        const auto rows = query->OpenRecordset(dao::dbOpenDynaset);
        walk(rows, site, ctry);
        rows->Close();
    });
    return site;
}

std::string siteOf(const Ntc& ntc, const DatabaseRef& reference, std::string& ctry)
{
    const auto assignment = targetValues::assignmentOf(ntc);
    if (!ntc.geo.zone_id.empty())
        return siteByZone(assignment, ntc.geo.zone_id, ntc.intent, reference, ctry);
    const auto position = targetValues::positionOf(ntc.geo.pt[0]);
    if (ntc.op_cls.empty())
        return siteByPoint(assignment, position, ntc.intent, reference, ctry);
    return siteByPointAndOpCls(assignment, ntc.op_cls, position, ntc.intent, reference, ctry);
}

std::int16_t trueCount(const RecordsetRef& rows)
{
    rows->MoveLast();
    const auto count = rows->RecordCount();
    if (count > std::numeric_limits<std::int16_t>::max())
        platform::raise(platform::errOverflow);
    return static_cast<std::int16_t>(count);
}

void takeKeys(const RecordsetRef& rows, std::int16_t count)
{
    keys.assign(static_cast<std::size_t>(count), 0);
    std::size_t index = 0;
    for (rows->MoveFirst(); !rows->EOF_(); rows->MoveNext()) {
        const auto key = rows->Fields("veldakey");
        if (!key.isNull())
            keys.at(index++) = key.toLong();
    }
}

void openDatabases()
{
    MainModule::openWorkspace(session::ws);
    MainModule::openDatabase(false, session::workingDbPath, session::db);
    MainModule::openDatabase(true, session::referenceDbPath, session::refDb);
}

void closeDatabases()
{
    MainModule::closeDatabase(session::db);
    MainModule::closeDatabase(session::refDb);
    MainModule::closeWorkspace(session::ws);
}

// The window of the messages has its buttons back, however the check ends.
template <class Check>
void showingCheck(const std::string& countText, bool hidesSave, Check check)
{
    platform::host().openCheck(
        {"Sitename for SUPPRESS and WITHDRAW in " + session::referenceDbPath, countText, hidesSave});
    try {
        check();
    } catch (...) {
        platform::host().endCheck();
        throw;
    }
    platform::host().endCheck();
}

// Empties the session's notice and reads the one of the key into it.
bool readNotice(std::int32_t key)
{
    InitializeNtc::clearNtcAdm(session::notice);
    InitializeNtc::initNtc(session::notice);
    session::currentVeldaKey = key;
    return readDBToNtc::readNtc(key, session::notice, session::db);
}

void addLine(std::int32_t key, const char* outcome)
{
    platform::host().addErrorLine("Notice No: " + platform::integerText(key) + outcome);
}

// The one target of the session's notice gives it its site name and country, also when it has none.
void checkNotice(std::int32_t key)
{
    std::string ctry;
    auto site = lookUpTargetSite(session::notice, session::refDb, ctry);
    if (site == noTarget) {
        addLine(key, " has no target");
    } else if (site == severalTargets) {
        addLine(key, " has more than one target");
    } else {
        addLine(key, " target found");
        session::notice.geo.site_name = std::move(site);
        session::notice.geo.ctry = std::move(ctry);
        updateNtcInDB::updateNtc(key, session::notice, session::ws, session::db);
    }
}

constexpr const char* pleaseWait = "Please wait....";
constexpr const char* done = "DONE";

} // namespace

void checkAllNtc()
{
    openDatabases();
    const auto count = loadCheckKeys(
        "SELECT veldakey FROM kvr_velda where (intent = 'SUPPRESS' OR intent = 'WITHDRAW') ", session::db);
    showingCheck(platform::integerText(count) + " notice(s) to be checked. ", true, [count] {
        if (count >= 1)
            platform::host().appendCheckText(pleaseWait);
        for (std::int16_t index = 0; index < count; ++index) {
            const auto key = keys.at(static_cast<std::size_t>(index));
            readNotice(key); // one that could not be read is looked for as far as it was
            checkNotice(key);
            platform::host().selectErrorLine(index);
        }
        platform::host().addErrorLine(done);
    });
    closeDatabases();
}

void checkOneNtc(std::int32_t veldakey)
{
    openDatabases();
    showingCheck(" 1 notice to be checked. ", false, [veldakey] {
        platform::host().appendCheckText(pleaseWait);
        const bool isThere = readNotice(veldakey);
        if (isThere)
            checkNotice(veldakey);
        else
            platform::host().addErrorLine("Make sure that the selected notice is in the database");
        platform::host().selectErrorLine(0);
        if (isThere)
            platform::host().addErrorLine(done);
    });
    closeDatabases();
}

const std::vector<std::int32_t>& checkKeys()
{
    return keys;
}

std::int16_t loadCheckKeys(const std::string& query, const DatabaseRef& database)
{
    std::int16_t result = 0;
    MainModule::markingFailure([&] {
        const auto rows = database->CreateQueryDef("", query)->OpenRecordset(dao::dbOpenDynaset);
        std::int16_t count = 0;
        if (rows->RecordCount() > 0) {
            count = trueCount(rows);
            takeKeys(rows, count);
        }
        rows->Close();
        result = count;
    });
    return result;
}

std::string lookUpTargetSite(const Ntc& ntc, const DatabaseRef& reference, std::string& ctry)
{
    const auto site = siteOf(ntc, reference, ctry);
    ctry = platform::trimBlanks(ctry);
    return std::string(platform::trimBlanks(site));
}

std::string siteByPoint(const Assignment& assignment, const Position& position, const std::string& intent,
                        const DatabaseRef& reference, std::string& ctry)
{
    static const auto text = targetQueries::byPoint(Among::References);
    return siteBy(text, assignment, intent, reference, ctry,
                  [&](const QueryRef& query) { targetQueries::setPosition(query, position); });
}

std::string siteByPointAndOpCls(const Assignment& assignment, const std::string& op_cls,
                                const Position& position, const std::string& intent,
                                const DatabaseRef& reference, std::string& ctry)
{
    static const auto text = targetQueries::byPointAndOpCls(Among::References);
    return siteBy(text, assignment, intent, reference, ctry, [&](const QueryRef& query) {
        targetQueries::set(query, "OpCls", op_cls);
        targetQueries::setPosition(query, position);
    });
}

std::string siteByZone(const Assignment& assignment, const std::string& zone_id, const std::string& intent,
                       const DatabaseRef& reference, std::string& ctry)
{
    static const auto text = targetQueries::byZone(Among::References);
    return siteBy(text, assignment, intent, reference, ctry,
                  [&](const QueryRef& query) { targetQueries::set(query, "ZoneID", zone_id); });
}

std::string padEmission(const std::string& emi_cls)
{
    constexpr std::size_t length = 5;
    const auto given = platform::characterCount(emi_cls);
    return emi_cls + std::string(length - std::min(given, length), '-');
}

} // namespace checkTarget
