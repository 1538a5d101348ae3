#include "play/commands.h"
#include "play/controls.h"
#include "play/listRows.h"
#include "play/menus.h"
#include "play/numberArgument.h"
#include "play/operatorHands.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <QWindow>

#include <array>

namespace play {

namespace {

constexpr std::size_t anyNumber = 10000;

void menu(Stage& stage, const Arguments& arguments)
{
    triggerMenuItem(stage, arguments[0]);
}

void choose(Stage& stage, const Arguments& arguments)
{
    auto* const dialog = qobject_cast<QFileDialog*>(&stage.window());
    if (dialog == nullptr)
        throw Refusal("no file dialog is open");
    QDialog& answered = *dialog;
    if (arguments[0] == "cancel")
        return answered.reject();
    auto* const name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (name == nullptr)
        throw Refusal("the file dialog has no field for a name");
    name->setText(QDir::current().absoluteFilePath(QString::fromStdString(arguments[0])));
    answered.accept();
}

// The first in sight, or else any.
QAbstractButton& buttonWithCaption(const QWidget& window, const std::string& caption)
{
    const auto wanted = QString::fromStdString(caption).remove(u'&');
    QAbstractButton* found = nullptr;
    for (auto* const button : window.findChildren<QAbstractButton*>()) {
        if (button->window() != &window || button->text().remove(u'&') != wanted)
            continue;
        if (found == nullptr || !found->isVisible())
            found = button;
    }
    if (found == nullptr)
        throw Refusal("no button " + caption);
    return *found;
}

void press(Stage& stage, const Arguments& arguments)
{
    auto& button = buttonWithCaption(stage.window(), arguments[0]);
    requireWorkable(button, arguments[0]);
    OperatorHands(stage).clickControl(button);
}

void click(Stage& stage, const Arguments& arguments)
{
    OperatorHands(stage).clickControl(stage.workableControl(arguments[0]));
}

void row(Stage& stage, const Arguments& arguments)
{
    auto& list = listOf(stage);
    requireWorkable(list, listName);
    OperatorHands(stage).doubleClick(*list.viewport(), placeOfRow(list, numberArgument(arguments[0])));
}

// False for a control that holds no text to be typed.
bool selectAll(QWidget& control)
{
    auto* const combo = qobject_cast<QComboBox*>(&control);
    QWidget* const field = combo != nullptr ? combo->lineEdit() : &control;
    if (auto* const line = qobject_cast<QLineEdit*>(field))
        line->selectAll();
    else if (auto* const text = qobject_cast<QPlainTextEdit*>(field))
        text->selectAll();
    else if (auto* const rich = qobject_cast<QTextEdit*>(field))
        rich->selectAll();
    else
        return false;
    return true;
}

void type(Stage& stage, const Arguments& arguments)
{
    auto& control = stage.workableControl(arguments[0]);
    if (isLocked(control))
        throw Refusal(arguments[0] + " is locked");
    OperatorHands hands(stage);
    if (!hands.focus(control))
        return;
    if (!selectAll(control))
        throw Refusal(arguments[0] + " takes no text");
    const QPointer<QWidget> window = control.window();
    const auto text = QString::fromStdString(arguments[1]);
    if (text.isEmpty())
        hands.press(*window, *keyNamed("Delete"));
    for (const auto character : text) {
        if (window.isNull() || !hands.press(*window, keyFor(character)))
            return;
    }
}

std::vector<Key> keysNamed(const Arguments& names)
{
    std::vector<Key> keys;
    for (const auto& name : names) {
        const auto key = keyNamed(name);
        if (!key)
            throw Refusal("no key " + name);
        keys.push_back(*key);
    }
    return keys;
}

void pressKeys(Stage& stage, const OperatorHands& hands, const std::vector<Key>& keys)
{
    const QPointer<QWidget> window = &stage.window();
    for (const auto& key : keys) {
        if (window.isNull() || !window->isVisible() || !hands.press(*window, key))
            return;
    }
}

void key(Stage& stage, const Arguments& arguments)
{
    const auto keys = keysNamed(Arguments(arguments.begin() + 1, arguments.end()));
    OperatorHands hands(stage);
    if (arguments[0] == "-" || hands.focus(stage.workableControl(arguments[0])))
        pressKeys(stage, hands, keys);
}

void tab(Stage& stage, const Arguments&)
{
    OperatorHands hands(stage);
    pressKeys(stage, hands, keysNamed({"Tab"}));
}

void backtab(Stage& stage, const Arguments&)
{
    OperatorHands hands(stage);
    pressKeys(stage, hands, keysNamed({"Shift+Tab"}));
}

QModelIndex entryOf(const QAbstractItemView& view, int number, const std::string& name)
{
    const auto entry =
        view.model() != nullptr ? view.model()->index(number, 0, view.rootIndex()) : QModelIndex();
    if (!entry.isValid())
        throw Refusal(name + " has no entry " + std::to_string(number));
    return entry;
}

void pickFromCombo(const OperatorHands& hands, QComboBox& combo, int number, const std::string& name)
{
    auto* const view = combo.view();
    const auto entry = combo.model()->index(number, combo.modelColumn(), combo.rootModelIndex());
    if (!entry.isValid())
        throw Refusal(name + " has no entry " + std::to_string(number));
    if (!hands.focus(combo))
        return;
    combo.showPopup();
    view->setCurrentIndex(entry);
    hands.press(*view, *keyNamed("Enter"));
}

void pickFromList(OperatorHands& hands, QAbstractItemView& list, int number, const std::string& name)
{
    const auto entry = entryOf(list, number, name);
    if (!hands.focus(list))
        return;
    list.scrollTo(entry);
    const auto place = list.visualRect(entry).intersected(list.viewport()->rect());
    hands.click(*list.viewport(), place.center());
}

void pick(Stage& stage, const Arguments& arguments)
{
    auto& control = stage.workableControl(arguments[0]);
    if (isLocked(control))
        throw Refusal(arguments[0] + " is locked");
    const int number = numberArgument(arguments[1]);
    OperatorHands hands(stage);
    if (auto* const combo = qobject_cast<QComboBox*>(&control))
        pickFromCombo(hands, *combo, number, arguments[0]);
    else if (auto* const list = qobject_cast<QAbstractItemView*>(&control))
        pickFromList(hands, *list, number, arguments[0]);
    else
        throw Refusal(arguments[0] + " has no list");
}

void close(Stage& stage, const Arguments&)
{
    if (auto* const handle = stage.window().windowHandle())
        handle->close();
}

void window(Stage& stage, const Arguments& arguments)
{
    if (stage.windows.named(arguments[0]) == nullptr)
        throw Refusal("no window " + arguments[0]);
    stage.namedWindow = arguments[0];
}

constexpr std::array rows = {
    CommandRow{"menu", 1, 1, menu},       CommandRow{"choose", 1, 1, choose},
    CommandRow{"press", 1, 1, press},     CommandRow{"click", 1, 1, click},
    CommandRow{"row", 1, 1, row},         CommandRow{"type", 2, 2, type},
    CommandRow{"key", 2, anyNumber, key}, CommandRow{"tab", 0, 0, tab},
    CommandRow{"backtab", 0, 0, backtab}, CommandRow{"pick", 2, 2, pick},
    CommandRow{"close", 0, 0, close},     CommandRow{"window", 1, 1, window},
};

} // namespace

std::span<const CommandRow> handCommands()
{
    return rows;
}

} // namespace play
