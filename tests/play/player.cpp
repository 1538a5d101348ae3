#include "play/player.h"

#include "play/commands.h"
#include "widgets/application.h"

#include <QAbstractEventDispatcher>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace play {

namespace {

constexpr int mostActivations = 20;   // without a window manager it may never come
constexpr int buttonPatience = 10;    // milliseconds
constexpr int mostButtonRounds = 300; // one may stand down for good

} // namespace

Player::Player(Stage& stage, std::vector<Command> commands, Patience patience)
    : m_stage(stage), m_commands(std::move(commands)), m_patience(patience)
{}

void Player::start()
{
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            widgets::guarded([this] { onIdle(); }));
}

void Player::onIdle()
{
    if (!m_waiting)
        onIdleAfter(m_patience.milliseconds);
}

void Player::onIdleAfter(int milliseconds)
{
    m_waiting = true;
    QTimer::singleShot(milliseconds, this, widgets::guarded([this] { nextRound(); }));
}

// A button that an access key has pressed stands down for a moment before it acts.
bool Player::buttonGoesUpByItself() const
{
    const auto* const window = m_stage.activeWindow();
    if (window == nullptr || m_stage.heldButton)
        return false;
    const auto buttons = window->findChildren<QPushButton*>();
    // The file dialog keeps a tool button down to show which view is on.
    return std::any_of(buttons.begin(), buttons.end(), [](const QPushButton* button) {
        return button->isDown() && qobject_cast<const QToolButton*>(button) == nullptr;
    });
}

void Player::nextRound()
{
    if (m_stage.isInTheMiddle) {
        onIdleAfter(m_patience.milliseconds);
        return;
    }
    m_waiting = false;
    if (m_buttonRounds < mostButtonRounds && buttonGoesUpByItself()) {
        ++m_buttonRounds;
        onIdleAfter(buttonPatience);
        return;
    }
    if (m_activations < mostActivations && activates()) {
        ++m_activations;
        m_round = 0;
    } else if (++m_round >= m_patience.rounds) {
        m_round = m_activations = 0;
        step();
    }
}

// As a window manager does with the window that came up last.
bool Player::activates() const
{
    auto* const window = m_stage.activeWindow();
    if (window == nullptr || window->isActiveWindow())
        return false;
    window->activateWindow();
    return true;
}

void Player::step()
{
    m_buttonRounds = 0;
    m_stage.copyFault.over();
    if (const auto letGo = std::exchange(m_stage.heldButton, nullptr))
        letGo();
    if (m_next == m_commands.size())
        endInside();
    runCommand();
}

void Player::runCommand()
{
    execute(m_stage, m_commands[m_next++]);
}

int Player::finish()
{
    m_stage.copyFault.over();
    while (m_next < m_commands.size())
        runCommand();
    const auto names = m_stage.windows.openNames();
    m_stage.transcript.line(names.empty() ? "end" : "end: " + names);
    return exitStatus();
}

// No window unloads: nothing is offered, nothing logged.
void Player::endInside()
{
    const int status = finish();
    std::fflush(nullptr);
    std::_Exit(status);
}

} // namespace play
