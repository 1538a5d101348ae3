#include "play/commands.h"
#include "play/controls.h"
#include "play/listRows.h"
#include "play/menus.h"
#include "play/sessionValues.h"

#include "model/session.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QPixmap>

#include <array>

namespace play {

namespace {

void current(Stage& stage, const Arguments&)
{
    stage.transcript.line("current row " + std::to_string(listOf(stage).currentIndex().row()));
}

void changed(Stage&, const Arguments&)
{
    session::ntcChanged = true;
}

void fail(Stage& stage, const Arguments& arguments)
{
    if (arguments[0] == "print") {
        stage.printFails = true;
        return;
    }
    if (arguments[0] != "copy")
        throw Refusal("nothing called " + arguments[0] + " can be made to fail");
    if (!CopyFault::isAvailable())
        throw Refusal("this host can't make a copy fail");
    stage.copyFault.arm();
}

void get(Stage& stage, const Arguments& arguments)
{
    stage.transcript.line(described(stage.control(arguments[0])));
}

void dump(Stage& stage, const Arguments&)
{
    for (const auto* const control : namedControls(stage.window()))
        stage.transcript.line(described(*control));
}

void tip(Stage& stage, const Arguments& arguments)
{
    const auto& control = stage.control(arguments[0]);
    stage.transcript.line("tip " + control.objectName().toStdString() + ' ' + quoted(control.toolTip()));
}

void tabs(Stage& stage, const Arguments&)
{
    std::string line = "tabs:";
    for (const auto* const control : tabStops(stage.window()))
        line += ' ' + control->objectName().toStdString();
    stage.transcript.line(line);
}

void menus(Stage& stage, const Arguments&)
{
    printMenus(stage);
}

void rows(Stage& stage, const Arguments&)
{
    printRows(stage);
}

void lines(Stage& stage, const Arguments& arguments)
{
    const auto& control = stage.control(arguments[0]);
    const auto* const combo = qobject_cast<const QComboBox*>(&control);
    const auto* const view = qobject_cast<const QAbstractItemView*>(&control);
    const auto* const model = combo != nullptr ? combo->model() : view != nullptr ? view->model() : nullptr;
    if (model == nullptr)
        throw Refusal(arguments[0] + " has no list");
    for (int row = 0; row < model->rowCount(); ++row)
        stage.transcript.line(model->index(row, 0).data().toString().toStdString());
}

void focus(Stage& stage, const Arguments&)
{
    const auto name = controlNameOf(stage.window().focusWidget());
    stage.transcript.line("focus: " + (name.empty() ? "-" : name));
}

void printSessionValue(Stage& stage, const Arguments& arguments)
{
    stage.transcript.line("session " + arguments[0] + " = " + sessionValue(stage, arguments[0]));
}

void language(Stage&, const Arguments& arguments)
{
    session::language = arguments[0];
}

void shot(Stage& stage, const Arguments& arguments)
{
    const auto path = QDir::current().absoluteFilePath(QString::fromStdString(arguments[0]));
    if (!stage.window().grab().save(path, "PNG"))
        throw Refusal("can't write " + arguments[0]);
}

void echo(Stage& stage, const Arguments& arguments)
{
    std::string line;
    for (const auto& word : arguments)
        line += (line.empty() ? "" : " ") + word;
    stage.transcript.line(line);
}

constexpr std::size_t anyNumber = 10000;

constexpr std::array table = {
    CommandRow{"current", 0, 0, current},   CommandRow{"changed", 0, 0, changed},
    CommandRow{"fail", 1, 1, fail},         CommandRow{"get", 1, 1, get},
    CommandRow{"dump", 0, 0, dump},         CommandRow{"tip", 1, 1, tip},
    CommandRow{"tabs", 0, 0, tabs},         CommandRow{"menus", 0, 0, menus},
    CommandRow{"rows", 0, 0, rows},         CommandRow{"lines", 1, 1, lines},
    CommandRow{"focus", 0, 0, focus},       CommandRow{"session", 1, 1, printSessionValue},
    CommandRow{"language", 1, 1, language}, CommandRow{"shot", 1, 1, shot},
    CommandRow{"echo", 0, anyNumber, echo},
};

} // namespace

std::span<const CommandRow> lookCommands()
{
    return table;
}

} // namespace play
