#pragma once

#include <QString>

#include <optional>
#include <string>

namespace play {

// One key with what is held down besides, and the text that it gives.
struct Key
{
    Qt::Key code = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers;
    QString text;
};

// "Enter", "Shift+Tab", "Ctrl+A", "x"; nothing for a name that no key has.
[[nodiscard]] std::optional<Key> keyNamed(const std::string& name);

// The key that writes a character; a line feed is Enter, a tab Tab.
[[nodiscard]] Key keyFor(QChar character);

} // namespace play
