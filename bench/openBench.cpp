#include "bareNoticeQueries.h"
#include "db/MainModule.h"
#include "db/readDBToNtc.h"
#include "fixtures.h"
#include "model/InitializeNtc.h"
#include "model/session.h"
#include "registry.h"

namespace {

using benchmark::State;

// The keys of a database by turns, far apart.
class Keys
{
public:
    explicit Keys(const std::string& database) : m_keys(fixtures::keysOf(database)) {}

    std::int32_t next()
    {
        m_place = (m_place + 7919) % m_keys.size();
        return m_keys[m_place];
    }

private:
    std::vector<std::int32_t> m_keys;
    std::size_t m_place = 0;
};

void openByProduct(State& state, int notices)
{
    const auto database = fixtures::loadedDatabase(fixtures::Shape::Diverse, notices);
    Keys keys(database);
    for ([[maybe_unused]] auto turn : state) {
        InitializeNtc::initNtc(session::notice);
        MainModule::openDatabase(true, database, session::db);
        if (!readDBToNtc::readNtc(keys.next(), session::notice, session::db))
            state.SkipWithError("no notice");
        MainModule::closeDatabase(session::db);
    }
}

void openByFloor(State& state, int notices)
{
    const auto database = fixtures::loadedDatabase(fixtures::Shape::Diverse, notices);
    Keys keys(database);
    for ([[maybe_unused]] auto turn : state) {
        const auto connection = bare::open(database, true);
        bare::NoticeQueries queries(connection.get());
        benchmark::DoNotOptimize(bare::readNotice(queries, keys.next()));
    }
}

} // namespace

void registry::addOpening()
{
    std::vector<int> sizes = {1000};
    if (fixtures::withLarge())
        sizes.push_back(fixtures::large);
    for (const int size : sizes) {
        const auto notices = std::to_string(size);
        add({"open/ours/" + notices, benchmark::kMicrosecond,
             [size](State& state) { openByProduct(state, size); }});
        add({"open/floor/" + notices, benchmark::kMicrosecond,
             [size](State& state) { openByFloor(state, size); }});
        compare({"opening a notice of " + notices, "open/ours/" + notices, "open/floor/" + notices, 1.5});
    }
    for (const std::string side : {"open/ours", "open/floor"})
        compare({side + ": 200000 to 1000", side + "/200000", side + "/1000", 0});
}
