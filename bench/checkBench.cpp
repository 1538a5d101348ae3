#include "bareChange.h"
#include "bareLookUp.h"
#include "db/MainModule.h"
#include "db/readDBToNtc.h"
#include "fixtures.h"
#include "load/checkTarget.h"
#include "model/session.h"
#include "registry.h"

#include <memory>

namespace {

using benchmark::State;

constexpr int acting = 1000; // notices that end an assignment
constexpr int assignments = 2'000'000;

// The notices as a working database holds them, loaded when first asked for. Not to be written.
const std::string& loaded()
{
    static const auto database = [] {
        auto path = fixtures::emptyDatabase("acting");
        fixtures::loadByProduct(fixtures::actingNotices(acting), path);
        return path;
    }();
    return database;
}

const std::vector<Ntc>& notices()
{
    static const auto all = [] {
        std::vector<Ntc> read(acting);
        MainModule::openDatabase(true, loaded(), session::db);
        for (int key = 1; key <= acting; ++key) {
            if (!readDBToNtc::readNtc(key, read[static_cast<std::size_t>(key - 1)], session::db))
                throw std::runtime_error("no notice");
        }
        MainModule::closeDatabase(session::db);
        return read;
    }();
    return all;
}

std::string setFolder(bool withIndexes)
{
    return fixtures::referenceSetFor(fixtures::actingNotices(acting), assignments, withIndexes);
}

std::string referenceDatabase(bool withIndexes)
{
    return setFolder(withIndexes) + "/VELDABASEBETA.mdb";
}

// By turns, far apart.
class Turn
{
public:
    std::size_t next() { return m_place = (m_place + 619) % acting; }

private:
    std::size_t m_place = 0;
};

std::string oldReferenceDatabase(int size)
{
    return fixtures::oldReferenceSet(size) + "/VELDABASEBETA.mdb";
}

void lookUpByProduct(State& state, const std::string& reference)
{
    const auto& sought = notices();
    MainModule::openDatabase(true, reference, session::refDb);
    Turn turn;
    std::string ctry;
    // The first look-up in old files may wait for what is made of them.
    static_cast<void>(checkTarget::lookUpTargetSite(sought[turn.next()], session::refDb, ctry));
    for ([[maybe_unused]] auto lap : state) {
        const auto site = checkTarget::lookUpTargetSite(sought[turn.next()], session::refDb, ctry);
        if (site == checkTarget::noTarget || site == checkTarget::severalTargets)
            state.SkipWithError("not one target");
    }
    MainModule::closeDatabase(session::refDb);
}

// From closed files to the answer; what is made of old files stands there from the turn before.
void openByProduct(State& state, const std::string& reference)
{
    const auto& sought = notices();
    Turn turn;
    const auto find = [&] {
        std::string ctry;
        MainModule::openDatabase(true, reference, session::refDb);
        auto site = checkTarget::lookUpTargetSite(sought[turn.next()], session::refDb, ctry);
        MainModule::closeDatabase(session::refDb);
        return site;
    };
    if (find() == checkTarget::noTarget)
        state.SkipWithError("no target");
    for ([[maybe_unused]] auto lap : state)
        benchmark::DoNotOptimize(find());
}

void lookUpByFloor(State& state, bool withIndexes, bool mapped)
{
    std::vector<bare::Sought> sought;
    for (const auto& ntc : notices())
        sought.push_back(bare::soughtBy(ntc));
    bare::LookUps lookUps(setFolder(withIndexes), mapped);
    Turn turn;
    for ([[maybe_unused]] auto lap : state) {
        if (lookUps.find(sought[turn.next()]).count != 1)
            state.SkipWithError("not one target");
    }
}

void checkAllByProduct(State& state)
{
    const auto database = fixtures::copyDatabase(loaded(), "checkedOurs");
    const auto reference = referenceDatabase(true);
    for ([[maybe_unused]] auto turn : state) {
        if (fixtures::checkByProduct(database, reference) != acting)
            state.SkipWithError("not all notices were checked");
    }
}

// The updates alone: nothing is read or looked up before.
void updateAllByFloor(State& state)
{
    auto changed = notices();
    std::vector<bare::Notice> written;
    for (auto& ntc : changed) {
        ntc.geo.site_name = "ANOTHER PLACE";
        ntc.geo.ctry = "QVA";
        written.push_back(bare::noticeOf(ntc));
    }
    const auto database = fixtures::copyDatabase(loaded(), "checkedFloor");
    for ([[maybe_unused]] auto turn : state) {
        bare::Updates updates(database);
        for (std::size_t place = 0; place < written.size(); ++place)
            updates.update(static_cast<int>(place) + 1, written[place], changed[place].target.present);
    }
}

void linkByProduct(State& state, const std::string& reference)
{
    for ([[maybe_unused]] auto turn : state)
        fixtures::linkByProduct(reference);
}

void addLookUps(const std::string& name, const std::string& label, bool withIndexes, benchmark::TimeUnit unit)
{
    using registry::add;
    add({name + "/ours", unit,
         [=](State& state) { lookUpByProduct(state, referenceDatabase(withIndexes)); }});
    add({name + "/floor", unit, [=](State& state) { lookUpByFloor(state, withIndexes, false); }});
    add({name + "/mapped", unit, [=](State& state) { lookUpByFloor(state, withIndexes, true); }});
    registry::compare({label, name + "/ours", name + "/floor", 2});
    registry::compare({label + ", mapped floor", name + "/ours", name + "/mapped", 0});
}

// A set of old files.
void addOldSet(int size)
{
    using registry::add;
    const auto name = std::to_string(size);
    add({"oldLink/" + name, benchmark::kMillisecond,
         [size](State& state) { linkByProduct(state, oldReferenceDatabase(size)); }});
    add({"oldOpen/" + name, benchmark::kMillisecond,
         [size](State& state) { openByProduct(state, oldReferenceDatabase(size)); }});
    add({"oldLookUp/" + name, benchmark::kMicrosecond,
         [size](State& state) { lookUpByProduct(state, oldReferenceDatabase(size)); }});
}

} // namespace

void registry::addCheck()
{
    addLookUps("lookUp", "looking up a site, indexes", true, benchmark::kMicrosecond);
    addLookUps("lookUpPlain", "looking up a site, no indexes", false, benchmark::kMillisecond);
    add({"checkAll/ours", benchmark::kMillisecond, checkAllByProduct, 1, 5});
    add({"checkAll/floor", benchmark::kMillisecond, updateAllByFloor, 1, 5});
    compare({"checking 1000 notices", "checkAll/ours", "checkAll/floor", 0});
    compare({"checking 1000 notices, real time", "checkAll/ours", "checkAll/floor", 1.3, true});
    add({"link", benchmark::kMillisecond,
         [](State& state) { linkByProduct(state, referenceDatabase(true)); }});
    for (const int size : fixtures::oldSetSizes())
        addOldSet(size);
}
