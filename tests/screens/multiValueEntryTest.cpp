// Enter in the boxes that collect values: the test, the warning of a duplicate, and what gets into the list.
#include "ruledForm.h"

namespace {

using screens::ScreenType;
using Entries = std::vector<std::string>;

class Entering : public testing::TestWithParam<ScreenAndLanguage>
{
protected:
    Entering() : work(std::get<0>(GetParam()), std::get<1>(GetParam())) {}

    void expectOutcome(const RuleRow& row, const std::string& name)
    {
        const bool passed = row.kind == "ok";
        EXPECT_EQ(work.host.beeps, expectedBeeps(row));
        EXPECT_EQ(work.host.boxes, expectedBoxes(row, std::get<1>(GetParam())));
        EXPECT_EQ(work.form.multiValueBox(name)->entries(), passed ? Entries{row.text} : Entries());
        if (passed && name == "max_to") {
            EXPECT_EQ(work.focus(), "max_fr");
        } else {
            EXPECT_EQ(work.focus(), name);
            EXPECT_EQ(work.form.text(name), passed ? "" : row.text);
        }
    }

    RuledForm work;
};

FakeHost::Box duplicate(const char* title)
{
    return {title, "Duplicate value", platform::Icon::Exclamation, platform::Buttons::Ok};
}

} // namespace

TEST_P(Entering, TestsTheValueAndTakesAGoodOneIntoTheList)
{
    for (const auto& row : readRuleRows("multiValueRules.tsv")) {
        if (!isOn(row, work.form.type()))
            continue;
        for (const auto& name : controlsOf(row)) {
            SCOPED_TRACE(name + " \"" + row.value + "\"");
            work.enter(name);
            work.put(name, row.value);
            work.key(Qt::Key_Return);
            expectOutcome(row, name);
            work.form.multiValueBox(name)->clearAll();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllScreens, Entering,
                         testing::Combine(testing::ValuesIn(allScreens), testing::Values("E", "F", "S")),
                         screenAndLanguage);

namespace {

class Entry : public testing::Test
{
protected:
    void takeIn(const std::string& name, const std::string& value)
    {
        work.enter(name);
        work.put(name, value);
        work.key(Qt::Key_Return);
    }
    Entries entries(const char* name) const { return work.form.multiValueBox(name)->entries(); }

    RuledForm work{ScreenType::T11};
};

} // namespace

TEST_F(Entry, ADuplicateIsToldAndTakenAllTheSame)
{
    for (const auto* name : {"callSign", "natsrv", "opAgcy", "max_fr", "max_to"}) {
        takeIn(name, "12");
        EXPECT_EQ(work.host.beeps, 0);
        takeIn(name, "12");
        EXPECT_EQ(work.host.beeps, 1);
        EXPECT_EQ(work.host.boxes, std::vector{duplicate("Error")});
        EXPECT_EQ(entries(name), (Entries{"12", "12"}));
        takeIn(name, "13");
        EXPECT_EQ(work.host.beeps, 0);
    }
}

TEST_F(Entry, ThereIsOneBoxForEachEqualEntry)
{
    session::language = "F";
    for (int times = 0; times < 3; ++times)
        takeIn("natsrv", "cp");
    EXPECT_EQ(work.host.boxes, (std::vector{duplicate("Erreur"), duplicate("Erreur")}));
    EXPECT_EQ(work.host.beeps, 2);
    EXPECT_EQ(entries("natsrv"), (Entries{"CP", "CP", "CP"}));
}

TEST_F(Entry, EntriesThatDifferInCaseAreNotEqual)
{
    takeIn("opAgcy", "ab");
    takeIn("opAgcy", "AB");
    EXPECT_EQ(work.host.beeps, 0);
    EXPECT_EQ(entries("opAgcy"), (Entries{"ab", "AB"}));
}

TEST_F(Entry, TheBoxesOfTheSixthRowTakeDuplicatesInSilence)
{
    takeIn("RDeg6", "005");
    takeIn("RDeg6", "005");
    EXPECT_EQ(work.host.beeps, 0);
    EXPECT_EQ(entries("RDeg6"), (Entries{"005", "005"}));
}

TEST_F(Entry, AnEntryShownIsEnteredOnceMore)
{
    takeIn("natsrv", "cp");
    work.tab();
    work.enter("natsrv");
    EXPECT_EQ(work.form.text("natsrv"), "CP");
    work.key(Qt::Key_Return);
    EXPECT_EQ(work.host.boxes, std::vector{duplicate("Error")});
    EXPECT_EQ(entries("natsrv"), (Entries{"CP", "CP"}));
}

TEST_F(Entry, MoreThanSixAreTaken)
{
    for (const auto* value : {"a", "b", "c", "d", "e", "f", "g"})
        takeIn("natsrv", value);
    EXPECT_EQ(entries("natsrv").size(), 7U);
    EXPECT_EQ(work.host.beeps, 0);
}

TEST_F(Entry, PairsAreTypedInTurn)
{
    takeIn("max_fr", "10");
    EXPECT_EQ(work.focus(), "max_fr");
    takeIn("max_to", "20");
    EXPECT_EQ(work.focus(), "max_fr");
    EXPECT_EQ(work.form.text("max_to"), "20"); // left, so its first entry is shown
    work.type("30");
    work.key(Qt::Key_Return);
    EXPECT_EQ(entries("max_fr"), (Entries{"10", "30"}));
    EXPECT_EQ(work.host.beeps, 0);
}

TEST_F(Entry, TextLeftWithoutEnterIsLost)
{
    takeIn("natsrv", "cp");
    work.type("ot");
    work.tab();
    EXPECT_EQ(work.form.text("natsrv"), "CP");
    EXPECT_EQ(entries("natsrv"), Entries{"CP"});
    work.enter("callSign");
    work.type("lost");
    work.tab();
    EXPECT_EQ(work.form.text("callSign"), "");
    EXPECT_EQ(work.host.beeps, 0);
}

TEST_F(Entry, ABadTextStaysAndKeepsTheFocus)
{
    takeIn("RLdeg6", "95");
    EXPECT_EQ(work.host.messages, std::vector<std::string>{"Value must be between [0,180]"});
    EXPECT_EQ(work.form.text("RLdeg6"), "95");
    work.key(Qt::Key_Backspace);
    EXPECT_EQ(work.form.text("RLdeg6"), "");
    work.tab();
    EXPECT_NE(work.focus(), "RLdeg6");
    EXPECT_EQ(work.host.beeps, 1);
}

TEST_F(Entry, PickingFromTheListAndBackspaceRemoveAnEntry)
{
    for (const auto* value : {"a", "b", "c"})
        takeIn("natsrv", value);
    work.tab();
    work.enter("natsrv");
    work.key(Qt::Key_Down);
    EXPECT_EQ(work.form.text("natsrv"), "B");
    work.key(Qt::Key_Backspace);
    EXPECT_EQ(entries("natsrv"), (Entries{"A", "C"}));
    work.tab();
    EXPECT_EQ(work.form.text("natsrv"), "A");
}

TEST_F(Entry, AnEntryOfARecordThatIsTooLongKeepsTheFocus)
{
    work.form.multiValueBox("natsrv")->addEntry("LONG");
    work.form.multiValueBox("natsrv")->showFirstEntry();
    work.enter("natsrv");
    work.tab();
    EXPECT_EQ(work.focus(), "natsrv");
    EXPECT_EQ(work.host.messages, std::vector<std::string>{"Max 2 characters"});
}
