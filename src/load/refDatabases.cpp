#include "load/refDatabases.h"

#include "db/MainModule.h"
#include "model/session.h"
#include "platform/ansiText.h"
#include "platform/host.h"
#include "platform/paths.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace refDatabases {

namespace {

constexpr const char* kvr1File = "VELDAKVR1.mdb";
constexpr const char* kvr3File = "VELDAKVR3.mdb";

constexpr const char* geoIndex = "GeoIndex";
constexpr std::array geoIndexFields = {"geo_key", "long_deg", "long_min", "long_sec", "long_ew",
                                       "lat_deg", "lat_min",  "lat_sec",  "lat_ns"};
constexpr const char* veldaIndex = "VeldaIndex";
constexpr std::array veldaIndexFields = {"freq_assgn", "op_hh_fr",   "op_hh_to", "op_cls",
                                         "emi_cls",    "bdwdth_cde", "stn_cls",  "is_notice"};

// A file beside the reference database. Always so many characters are cut, whatever file was picked: one of
// another name leads to a folder that is not there, and opening then says so.
std::string besideReference(const char* name)
{
    constexpr std::size_t length = std::string_view("VELDABASEBETA.mdb").size();
    const auto& reference = session::referenceDbPath;
    const auto characters = platform::characterCount(reference);
    if (characters < length)
        platform::raise(platform::errInvalidCall);
    return std::string(platform::mid(reference, 1, characters - length)) + name;
}

// The path itself, or that of the file that is there under a name in other letters.
std::string asItIsThere(const std::string& path)
{
    try {
        const auto derived = platform::hostPath(path);
        const auto there = platform::anyCasePath(derived);
        return there == derived ? path : platform::utf8Path(there);
    } catch (const platform::RuntimeError&) {
        return path; // a drive that is not there: opening says so
    }
}

bool hasIndex(const dao::Ref<dao::TableDef>& table, std::string_view name)
{
    return std::ranges::any_of(table->Indexes(), [&](const auto& index) { return index.Name() == name; });
}

template <class Names>
void appendIndex(const dao::Ref<dao::TableDef>& table, const char* name, const Names& fields)
{
    const auto index = dao::TableDef::CreateIndex(name);
    platform::host().paintWaiting();
    for (const char* field : fields)
        index->Fields().Append(dao::Index::CreateField(field));
    table->Indexes().Append(index);
    table->Indexes().Refresh();
    platform::host().paintWaiting();
}

bool wantsIndexes()
{
    return platform::host().msgBox("Index not available, do you want to create now ?",
                                   platform::Buttons::YesNo, platform::Icon::None,
                                   "Create index") == platform::Answer::Yes;
}

} // namespace

void RefDatabases::checkRefIndexes()
{
    openRefDbsReadOnly();
    takeTableDefs();
    const bool found = hasIndex(m_kvr_geo_pt, geoIndex);
    // The other is looked for as well, and counts for nothing: with the first alone both are told as there.
    static_cast<void>(hasIndex(m_kvr_velda, veldaIndex));
    if (found) {
        tellUpdated();
    } else {
        closeRefDbs();
        openRefDbsReadWrite();
        offerIndexes();
    }
    closeRefDbs();
}

void RefDatabases::offerIndexes()
{
    if (!wantsIndexes()) {
        m_indexInfo = "No index available";
        return;
    }
    takeTableDefs();
    buildRefIndexes();
    tellUpdated();
}

void RefDatabases::createRefIndexes()
{
    deleteRefIndexesIfAny();
    openRefDbsReadWrite();
    takeTableDefs();
    buildRefIndexes();
    closeRefDbs();
}

void RefDatabases::deleteRefIndexesIfAny()
{
    openRefDbsReadWrite();
    takeTableDefs();
    if (hasIndex(m_kvr_geo_pt, geoIndex) || hasIndex(m_kvr_velda, veldaIndex))
        dropRefIndexes();
    closeRefDbs();
}

void RefDatabases::openRefDbsReadOnly()
{
    openRefDbs(true);
}

void RefDatabases::openRefDbsReadWrite()
{
    openRefDbs(false);
}

void RefDatabases::openRefDbs(bool readOnly)
{
    const auto kvr3 = asItIsThere(besideReference(kvr3File));
    const auto kvr1 = asItIsThere(besideReference(kvr1File));
    MainModule::openDatabase(readOnly, kvr3, m_kvr3Db);
    MainModule::openDatabase(readOnly, kvr1, m_kvr1Db);
}

void RefDatabases::closeRefDbs()
{
    MainModule::closeDatabase(m_kvr3Db);
    MainModule::closeDatabase(m_kvr1Db);
}

void RefDatabases::takeTableDefs()
{
    m_kvr_geo_pt = m_kvr1Db->TableDefs("kvr_geo_pt");
    m_kvr_velda = m_kvr3Db->TableDefs("kvr_velda");
}

// A window that can't be loaded ends this before an index comes into being, with the files open.
void RefDatabases::buildRefIndexes()
{
    auto& host = platform::host();
    host.showWaiting();
    host.paintWaiting();
    appendIndex(m_kvr_geo_pt, geoIndex, geoIndexFields);
    appendIndex(m_kvr_velda, veldaIndex, veldaIndexFields);
    host.closeWaiting();
    tellUpdated();
}

// Both in any case: without one of them its deletion fails.
void RefDatabases::dropRefIndexes()
{
    m_kvr_geo_pt->Indexes().Delete(geoIndex);
    m_kvr_velda->Indexes().Delete(veldaIndex);
    m_indexInfo = "No indexes on VeldaKvr1 and VeldaKvr3";
}

void RefDatabases::tellUpdated()
{
    m_indexInfo = "Indexes on VeldaKvr1 and VeldaKvr3 were updated on " +
                  platform::generalDateText(m_kvr_velda->LastUpdated());
}

} // namespace refDatabases
