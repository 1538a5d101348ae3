#include "bareChange.h"
#include "db/deleteNtcFromDB.h"
#include "db/MainModule.h"
#include "db/readDBToNtc.h"
#include "db/updateNtcInDB.h"
#include "fixtures.h"
#include "model/session.h"
#include "registry.h"

#include <map>

namespace {

using benchmark::State;

constexpr int changesARun = 60; // notices changed in one repetition
constexpr int repetitions = 5;

// A database of one side, changed all along, and its notices by turns, far apart. Each comes up once.
class Stock
{
public:
    Stock(int notices, const std::string& side)
        : m_database(fixtures::copyDatabase(fixtures::loadedDatabase(fixtures::Shape::Diverse, notices),
                                            "changed" + side + std::to_string(notices))),
          m_keys(fixtures::keysOf(m_database))
    {}

    [[nodiscard]] const std::string& database() const { return m_database; }
    std::int32_t next()
    {
        m_place = (m_place + 7919) % m_keys.size();
        return m_keys[m_place];
    }

private:
    std::string m_database;
    std::vector<std::int32_t> m_keys;
    std::size_t m_place = 0;
};

Stock& stock(int notices, const std::string& side)
{
    static std::map<std::string, Stock> all;
    return all.try_emplace(side + std::to_string(notices), notices, side).first->second;
}

// Notices as a screen holds them: read, and changed a little.
struct Edited
{
    std::vector<std::int32_t> keys;
    std::vector<Ntc> notices;
};

Edited editedNotices(Stock& source)
{
    Edited edited;
    edited.notices.resize(changesARun);
    MainModule::openDatabase(true, source.database(), session::db);
    for (auto& ntc : edited.notices) {
        edited.keys.push_back(source.next());
        if (!readDBToNtc::readNtc(edited.keys.back(), ntc, session::db))
            throw std::runtime_error("no notice");
        ntc.geo.site_name = "ANOTHER PLACE";
        ntc.rmk_text += ";one remark more";
    }
    MainModule::closeDatabase(session::db);
    return edited;
}

void openForChange(const std::string& database)
{
    MainModule::openWorkspace(session::ws);
    MainModule::openDatabase(false, database, session::db);
}

void closeAfterChange()
{
    MainModule::closeDatabase(session::db);
    MainModule::closeWorkspace(session::ws);
}

void updateByProduct(State& state, int notices)
{
    auto& source = stock(notices, "Ours");
    auto edited = editedNotices(source);
    std::size_t place = 0;
    for ([[maybe_unused]] auto turn : state) {
        session::currentVeldaKey = edited.keys[place];
        openForChange(source.database());
        updateNtcInDB::updateNtc(edited.keys[place], edited.notices[place], session::ws, session::db);
        closeAfterChange();
        ++place;
    }
}

void updateByFloor(State& state, int notices)
{
    auto& source = stock(notices, "Floor");
    const auto edited = editedNotices(source);
    std::vector<bare::Notice> bareNotices;
    for (const auto& ntc : edited.notices)
        bareNotices.push_back(bare::noticeOf(ntc));
    std::size_t place = 0;
    for ([[maybe_unused]] auto turn : state) {
        bare::updateNotice(source.database(), edited.keys[place], bareNotices[place],
                           edited.notices[place].target.present);
        ++place;
    }
}

void deleteByProduct(State& state, int notices)
{
    auto& source = stock(notices, "Ours");
    for ([[maybe_unused]] auto turn : state) {
        // As if it had no target before: an earlier notice's would go too.
        session::currentTargetKey = 0;
        openForChange(source.database());
        deleteNtcFromDB::deleteNtc(source.next(), session::ws, session::db);
        closeAfterChange();
    }
}

void deleteByFloor(State& state, int notices)
{
    auto& source = stock(notices, "Floor");
    for ([[maybe_unused]] auto turn : state)
        bare::deleteNotice(source.database(), source.next());
}

void addPair(const std::string& name, const std::string& label, int notices, void (*ours)(State&, int),
             void (*floor)(State&, int))
{
    const auto size = std::to_string(notices);
    const auto add = [&](const std::string& side, void (*run)(State&, int)) {
        registry::add({name + side + size, benchmark::kMicrosecond,
                       [run, notices](State& state) { run(state, notices); }, changesARun, repetitions});
    };
    add("/ours/", ours);
    add("/floor/", floor);
    const auto above = name + "/ours/" + size;
    const auto below = name + "/floor/" + size;
    registry::compare({label + " a notice of " + size, above, below, 2});
    registry::compare({label + " a notice of " + size + ", real time", above, below, 1.3, true});
}

} // namespace

void registry::addChanges()
{
    std::vector<int> sizes = {1000};
    if (fixtures::withLarge())
        sizes.push_back(fixtures::large);
    for (const int size : sizes) {
        addPair("update", "updating", size, updateByProduct, updateByFloor);
        addPair("delete", "deleting", size, deleteByProduct, deleteByFloor);
    }
    for (const std::string side : {"update/ours", "update/floor", "delete/ours", "delete/floor"}) {
        compare({side + ": 200000 to 1000", side + "/200000", side + "/1000", 0});
        compare({side + ": 200000 to 1000, real time", side + "/200000", side + "/1000", 0, true});
    }
}
