#include "load/findTarget.h"

#include "db/MainModule.h"
#include "load/targetQueries.h"
#include "model/session.h"

namespace findTarget {

namespace {

using targetQueries::Among;
using targetQueries::QueryRef;

// Runs a query whose own parameters `setOthers` sets beside those that all three shapes have.
template <class SetOthers>
bool found(const DatabaseRef& database, const std::string& text, const Assignment& assignment,
           SetOthers setOthers)
{
    bool result = false;
    MainModule::showingFailure([&] {
        const auto query = database->CreateQueryDef("", text);
        targetQueries::setAssignment(query, assignment);
        setOthers(query);
        const auto rows = query->OpenRecordset(dao::dbOpenDynaset);
        if (rows->RecordCount() >= 1) {
            result = true;
            session::currentVeldaKey = rows->Fields("veldakey").toLong();
        }
        rows->Close();
    });
    return result;
}

} // namespace

bool findTargetByPoint(const Assignment& assignment, const Position& position, const DatabaseRef& database)
{
    static const auto text = targetQueries::byPoint(Among::StoredNotices);
    return found(database, text, assignment,
                 [&](const QueryRef& query) { targetQueries::setPosition(query, position); });
}

bool findTargetByPointAndOpCls(const Assignment& assignment, const std::string& op_cls,
                               const Position& position, const DatabaseRef& database)
{
    static const auto text = targetQueries::byPointAndOpCls(Among::StoredNotices);
    return found(database, text, assignment, [&](const QueryRef& query) {
        targetQueries::set(query, "OpCls", op_cls);
        targetQueries::setPosition(query, position);
    });
}

bool findTargetByZone(const Assignment& assignment, const std::string& zone_id, const DatabaseRef& database)
{
    static const auto text = targetQueries::byZone(Among::StoredNotices);
    return found(database, text, assignment,
                 [&](const QueryRef& query) { targetQueries::set(query, "ZoneID", zone_id); });
}

} // namespace findTarget
