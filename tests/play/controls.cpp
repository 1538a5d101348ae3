#include "play/controls.h"

#include "play/transcript.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>
#include <array>

namespace play {

namespace {

struct KindRow
{
    const char* className;
    const char* kind;
};

// The first row that fits tells the kind. No kind: parts of the window that are no control.
constexpr std::array kinds = {
    KindRow{"QMenu", nullptr},
    KindRow{"QMenuBar", nullptr},
    KindRow{"QStatusBar", nullptr},
    KindRow{"QScrollBar", nullptr},
    KindRow{"QHeaderView", nullptr},
    KindRow{"QSizeGrip", nullptr},
    KindRow{"QSplitterHandle", nullptr},
    KindRow{"QComboBox", "combo"},
    KindRow{"QRadioButton", "option"},
    KindRow{"QCheckBox", "check"},
    KindRow{"QAbstractButton", "button"},
    KindRow{"QLabel", "label"},
    KindRow{"QTableView", "grid"},
    KindRow{"QAbstractItemView", "list"},
    KindRow{"QLineEdit", "text"},
    KindRow{"QTextEdit", "text"},
    KindRow{"QPlainTextEdit", "text"},
    KindRow{"QAbstractSpinBox", "text"},
    KindRow{"QWidget", "frame"},
};

const char* kindOf(const QWidget& widget)
{
    const auto* const row = std::find_if(kinds.begin(), kinds.end(),
                                         [&](const KindRow& r) { return widget.inherits(r.className); });
    return row->kind;
}

bool isNamedControl(const QWidget& widget)
{
    const auto name = widget.objectName();
    const bool isPart = qobject_cast<const QComboBox*>(widget.parentWidget()) != nullptr;
    return !name.isEmpty() && !isPart && !name.startsWith(QLatin1String("qt_")) && kindOf(widget) != nullptr;
}

bool isOn(const QWidget& control)
{
    const auto* const button = qobject_cast<const QAbstractButton*>(&control);
    return button != nullptr && button->isChecked();
}

bool isHidden(const QWidget& control)
{
    return !control.isVisibleTo(control.window());
}

// The current entry in the first column of its row.
QString currentLine(const QAbstractItemView& view)
{
    const auto current = view.currentIndex();
    return current.isValid() ? current.siblingAtColumn(0).data().toString() : QString();
}

// A property of its own holds the text when the widget could not keep its line ends.
QString textOfLines(const QWidget& control)
{
    const auto kept = control.property("text");
    if (kept.isValid())
        return kept.toString();
    return control.property("plainText").toString().replace(QLatin1String("\n"), QLatin1String("\r\n"));
}

// Nothing for no limit. A field that bounds what is typed, but not a text set by code, has its limit in a
// property of its own.
QString maxLengthOf(const QWidget& control)
{
    constexpr int unlimited = 32767;
    const auto* const combo = qobject_cast<const QComboBox*>(&control);
    const QWidget* const field = combo != nullptr ? combo->lineEdit() : &control;
    if (field == nullptr)
        return {};
    const auto ofInput = field->property("inputLimit");
    const auto limit = ofInput.isValid() ? ofInput : field->property("maxLength");
    return limit.isValid() && limit.toInt() != unlimited ? limit.toString() : QString();
}

int itemsOf(const QWidget& control)
{
    if (const auto* const combo = qobject_cast<const QComboBox*>(&control))
        return combo->count();
    const auto* const view = qobject_cast<const QAbstractItemView*>(&control);
    return view != nullptr && !control.inherits("QTableView") && view->model() ? view->model()->rowCount()
                                                                               : -1;
}

std::string wordsOf(const QWidget& control)
{
    std::string words;
    if (isOn(control))
        words += " on";
    if (isHidden(control))
        words += " hidden";
    if (!control.isEnabled())
        words += " disabled";
    if (isLocked(control))
        words += " locked";
    if (const auto limit = maxLengthOf(control); !limit.isEmpty())
        words += " max=" + limit.toStdString();
    if (const int items = itemsOf(control); items >= 0)
        words += " items=" + std::to_string(items);
    return words;
}

} // namespace

QList<QWidget*> namedControls(const QWidget& window)
{
    QList<QWidget*> controls;
    const auto widgets = window.findChildren<QWidget*>();
    std::copy_if(widgets.begin(), widgets.end(), std::back_inserter(controls), [&](const QWidget* widget) {
        return widget->window() == &window && isNamedControl(*widget);
    });
    std::stable_sort(controls.begin(), controls.end(), [](const QWidget* left, const QWidget* right) {
        return left->objectName().toStdString() < right->objectName().toStdString();
    });
    return controls;
}

QWidget* findControl(const QWidget& window, const std::string& name)
{
    const auto whole = QString::fromStdString(name);
    QList<QWidget*> elements;
    for (auto* const control : namedControls(window)) {
        if (control->objectName() == whole)
            return control;
        if (control->objectName().startsWith(whole + u'('))
            elements << control;
    }
    const auto firstThat = [&](auto holds) {
        const auto found = std::find_if(elements.begin(), elements.end(), holds);
        return found != elements.end() ? *found : nullptr;
    };
    if (auto* const selected = firstThat([](const QWidget* control) { return isOn(*control); }))
        return selected;
    if (auto* const inSight = firstThat([](const QWidget* control) { return !isHidden(*control); }))
        return inSight;
    return elements.value(0);
}

std::string controlNameOf(const QWidget* widget)
{
    while (widget != nullptr && !widget->isWindow()) {
        if (isNamedControl(*widget))
            return widget->objectName().toStdString();
        widget = widget->parentWidget();
    }
    return {};
}

QString textOf(const QWidget& control)
{
    if (const auto* const combo = qobject_cast<const QComboBox*>(&control))
        return combo->currentText();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&control))
        return button->text();
    if (const auto* const label = qobject_cast<const QLabel*>(&control))
        return label->text();
    if (const auto* const view = qobject_cast<const QAbstractItemView*>(&control))
        return currentLine(*view);
    if (const auto* const box = qobject_cast<const QGroupBox*>(&control))
        return box->title();
    if (const auto* const field = qobject_cast<const QLineEdit*>(&control))
        return field->text();
    return textOfLines(control);
}

bool isLocked(const QWidget& control)
{
    if (const auto* const combo = qobject_cast<const QComboBox*>(&control))
        return combo->lineEdit() != nullptr && combo->lineEdit()->isReadOnly();
    return control.property("readOnly").toBool();
}

std::string described(const QWidget& control)
{
    return control.objectName().toStdString() + ' ' + kindOf(control) + ' ' + quoted(textOf(control)) +
           wordsOf(control);
}

QList<QWidget*> tabStops(QWidget& window)
{
    QList<QWidget*> stops;
    for (auto* widget = window.nextInFocusChain(); widget != &window; widget = widget->nextInFocusChain()) {
        const bool visited = (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget->isEnabled() &&
                             !isHidden(*widget) && widget->focusProxy() == nullptr;
        if (visited && widget->window() == &window && isNamedControl(*widget))
            stops << widget;
    }
    return stops;
}

} // namespace play
