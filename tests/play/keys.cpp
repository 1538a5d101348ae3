#include "play/keys.h"

#include <algorithm>
#include <array>

namespace play {

namespace {

struct NamedKey
{
    const char* name;
    Qt::Key code;
    const char* text;
};

constexpr std::array namedKeys = {
    NamedKey{"Enter", Qt::Key_Return, "\r"},    NamedKey{"Backspace", Qt::Key_Backspace, "\b"},
    NamedKey{"Tab", Qt::Key_Tab, "\t"},         NamedKey{"Delete", Qt::Key_Delete, "\x7f"},
    NamedKey{"Escape", Qt::Key_Escape, "\x1b"}, NamedKey{"Up", Qt::Key_Up, ""},
    NamedKey{"Down", Qt::Key_Down, ""},         NamedKey{"Left", Qt::Key_Left, ""},
    NamedKey{"Right", Qt::Key_Right, ""},       NamedKey{"PgUp", Qt::Key_PageUp, ""},
    NamedKey{"PgDn", Qt::Key_PageDown, ""},     NamedKey{"Home", Qt::Key_Home, ""},
    NamedKey{"End", Qt::Key_End, ""},
};

struct NamedModifier
{
    const char* prefix;
    Qt::KeyboardModifier modifier;
};

constexpr std::array namedModifiers = {NamedModifier{"Ctrl+", Qt::ControlModifier},
                                       NamedModifier{"Shift+", Qt::ShiftModifier},
                                       NamedModifier{"Alt+", Qt::AltModifier}};

// Takes one off the front of the name.
Qt::KeyboardModifiers takeModifier(QString& name)
{
    for (const auto& [prefix, modifier] : namedModifiers) {
        const QLatin1String start(prefix);
        if (!name.startsWith(start) || name.size() == start.size())
            continue;
        name.remove(0, start.size());
        return modifier;
    }
    return {};
}

std::optional<Key> plainKey(const QString& name)
{
    for (const auto& [keyName, code, text] : namedKeys) {
        if (name == QLatin1String(keyName))
            return Key{code, {}, QString::fromLatin1(text)};
    }
    if (name.size() == 1)
        return keyFor(name[0]);
    return std::nullopt;
}

// What a keyboard makes of a key with others held down. In "Ctrl+F" and "Alt+O" the letter stands for its
// key.
Key withModifiers(Key key, Qt::KeyboardModifiers modifiers)
{
    if ((modifiers & (Qt::ControlModifier | Qt::AltModifier)) != Qt::NoModifier) {
        key.modifiers = {};
        key.text = key.text.toLower();
    }
    key.modifiers |= modifiers;
    if (key.code == Qt::Key_Tab && key.modifiers.testFlag(Qt::ShiftModifier))
        key.code = Qt::Key_Backtab;
    if (key.modifiers.testFlag(Qt::ControlModifier))
        key.text.clear();
    return key;
}

} // namespace

Key keyFor(QChar character)
{
    if (character == u'\n')
        return {Qt::Key_Return, {}, QStringLiteral("\r")};
    if (character == u'\t')
        return {Qt::Key_Tab, {}, QStringLiteral("\t")};
    const Qt::KeyboardModifiers shift = character.isUpper() ? Qt::ShiftModifier : Qt::NoModifier;
    return {static_cast<Qt::Key>(character.toUpper().unicode()), shift, character};
}

std::optional<Key> keyNamed(const std::string& name)
{
    auto rest = QString::fromStdString(name);
    Qt::KeyboardModifiers modifiers;
    while (const auto taken = takeModifier(rest))
        modifiers |= taken;
    const auto key = plainKey(rest);
    return key ? std::optional(withModifiers(*key, modifiers)) : std::nullopt;
}

} // namespace play
