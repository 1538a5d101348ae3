// An operator who knows nothing: whatever is typed and clicked, no step brings the program down but by a
// failure that it reports, and the database stays sound.
#include "shownNotices.h"
#include "widgets/application.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <random>

namespace {

constexpr int stepsInOrdinaryRun = 400;
constexpr int stepsOfASession = 100;

int numberFrom(const char* variable, int otherwise)
{
    const int wanted = qEnvironmentVariableIntValue(variable);
    return wanted > 0 ? wanted : otherwise;
}

constexpr std::array texts = {
    "",  "0",  "1", "12", "45", "151.3375", "1e300",    "-7",           "abc", "R",    "X",          "E", "N",
    "K", "TX", "D", "F",  "FX", "7K60FXX",  "\xc3\x9c", "\xe6\xbc\xa2", "31",  "2002", "99999999999"};
constexpr std::array keys = {Qt::Key_Return, Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Backspace,
                             Qt::Key_Delete, Qt::Key_Up,    Qt::Key_Down,    Qt::Key_Left,
                             Qt::Key_Home,   Qt::Key_Escape};
constexpr std::array buttons = {"ButtonNextNtc", "ButtonPrevNtc", "ButtonNextAnt", "ButtonPrevAnt",
                                "ButtonUpdate",  "ButtonUpdate",  "ButtonDelete",  "ButtonPrint",
                                "ButtonNTC",     "ButtonCancel"};
constexpr std::array shortcuts = {Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_S};

class RandomOperator : public ShownNotices
{
protected:
    RandomOperator()
    {
        for (int number = 0; number < 6; ++number) {
            for (const std::string type : {"T11", "T12", "T13", "T14"})
                add(smallNotice(type, number, number % 4));
        }
    }

    // Opens notices and works in the loop of the walk, as the main screen would have it. The number of steps
    // is the status that the process ends with.
    void work(unsigned seed)
    {
        random.seed(seed);
        loadKeys();
        int steps = 0;
        while (steps < stepsOfASession && chooseNotice()) {
            QTimer rounds;
            QObject::connect(&rounds, &QTimer::timeout, &rounds, [&] {
                if (!isShown())
                    return;
                if (++steps < stepsOfASession)
                    step();
                else
                    screen().close();
            });
            rounds.start(0);
            walk.show(screens::screenOf(session::notice.notice_typ).value(), ShownNotices::work.path());
        }
    }

private:
    int below(std::size_t bound)
    {
        return std::uniform_int_distribution<int>(0, static_cast<int>(bound) - 1)(random);
    }
    template <class Choices>
    auto oneOf(const Choices& choices)
    {
        return choices[static_cast<std::size_t>(below(choices.size()))];
    }

    // What the sessions before have left.
    void loadKeys()
    {
        session::keyArray.clear();
        for (const auto& key : ShownNotices::work.rows("SELECT veldakey FROM kvr_velda"))
            session::keyArray.push_back(std::stoi(key));
        session::keyCount = static_cast<std::int32_t>(session::keyArray.size());
    }

    bool chooseNotice()
    {
        std::vector<int> places;
        for (int place = 0; place < session::keyCount; ++place) {
            if (session::keyArray[static_cast<std::size_t>(place)] != session::deletedKey)
                places.push_back(place);
        }
        if (places.empty())
            return false;
        read(oneOf(places));
        return true;
    }

    void step()
    {
        answer();
        switch (below(8)) {
        case 0:
        case 1:
        case 2:
            typeIntoField();
            break;
        case 3:
            QTest::mouseClick(oneOf(controls<QRadioButton>()), Qt::LeftButton);
            break;
        case 4:
            QTest::keyClick(target(), oneOf(keys));
            break;
        case 5:
            QTest::keyClick(target(), oneOf(shortcuts),
                            below(2) == 0 ? Qt::ControlModifier : Qt::ControlModifier | Qt::ShiftModifier);
            break;
        case 6:
            QTest::mouseClick(oneOf(controls<QWidget>()), Qt::LeftButton);
            break;
        default:
            QTest::mouseClick(screen().control(oneOf(buttons)), Qt::LeftButton);
        }
    }

    // One question at the most comes up in a step; it is answered by Yes two times of three.
    void answer()
    {
        host.answers.assign(1, below(3) == 0 ? platform::Answer::No : platform::Answer::Yes);
        host.printed.clear();
    }

    template <class Control>
    std::vector<Control*> controls()
    {
        std::vector<Control*> all;
        for (auto* const control : screen().findChildren<Control*>()) {
            if (control->isVisible() && control->isEnabled() && !control->objectName().isEmpty())
                all.push_back(control);
        }
        return all;
    }
    QWidget* target()
    {
        auto* const focus = screen().focusWidget();
        return focus != nullptr ? focus : &screen();
    }

    void typeIntoField()
    {
        std::vector<QWidget*> fields;
        for (auto* const control : controls<QWidget>()) {
            if ((control->focusPolicy() & Qt::TabFocus) != 0 && !qobject_cast<QAbstractButton*>(control))
                fields.push_back(control);
        }
        oneOf(fields)->setFocus();
        if (below(2) == 0)
            QTest::keyClick(target(), Qt::Key_A, Qt::ControlModifier);
        for (const QChar character : QString::fromUtf8(oneOf(texts)))
            QTest::sendKeyEvent(QTest::Click, target(), Qt::Key_unknown, character, Qt::NoModifier);
        if (below(3) == 0)
            QTest::keyClick(target(), Qt::Key_Return);
    }

    std::mt19937 random;
};

// What text that is no value of its field, or a section that is none, may lead to.
void endUnlessKnown(const platform::RuntimeError& failure)
{
    constexpr std::array known = {5, 6, 9, 13, 3421};
    constexpr int exitUnknown = 4;
    if (std::find(known.begin(), known.end(), failure.number) == known.end())
        std::_Exit(exitUnknown);
}

// The end of a session: all steps done, or a failure that the program reported.
bool isFairEnd(int status)
{
    return WIFEXITED(status) && (WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == 3);
}

} // namespace

// Each session is a process of its own, for a reported failure ends it.
TEST_F(RandomOperator, NeverBringsTheProgramDownAndLeavesASoundDatabase)
{
    const int sessions = numberFrom("ZEPH_RANDOM_STEPS", stepsInOrdinaryRun) / stepsOfASession;
    const auto firstSeed = static_cast<unsigned>(numberFrom("ZEPH_RANDOM_SEED", 1));
    for (unsigned seed = firstSeed; seed < firstSeed + static_cast<unsigned>(sessions); ++seed) {
        EXPECT_EXIT(
            {
                widgets::setReporter(endUnlessKnown);
                work(seed);
                std::_Exit(0);
            },
            isFairEnd, "")
            << "ZEPH_RANDOM_SEED=" << seed;
        const auto database = ShownNotices::work.open(true);
        EXPECT_NO_THROW(database->requireSound()) << "ZEPH_RANDOM_SEED=" << seed;
        database->Close();
    }
}
