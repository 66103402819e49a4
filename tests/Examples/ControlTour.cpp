// SPDX-License-Identifier: MIT
#include "Examples/ControlTour.h"

#include "Controls/Cells/ZelSegmentedControl.h"
#include "Controls/Fields/ZelTextField.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/Ranges/ZelStepper.h"
#include "Controls/ZelColorPanel.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorFontProperty.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "ViewController/ZelView.h"

#include <QApplication>
#include <QMenu>
#include <QMetaProperty>
#include <QScrollArea>
#include <QTableView>
#include <QTest>
#include <QWidgetAction>
#include <QWindow>

namespace {

void settle()
{
    for (int i = 0; i < 4; ++i)
        QCoreApplication::processEvents();
}

/// Keys go to the pop-up in front, or else to the window that is active.
QWindow *keyWindow()
{
    const QWidget *popup = QApplication::activePopupWidget();
    return popup ? popup->windowHandle() : QGuiApplication::focusWindow();
}

void press(int key, Qt::KeyboardModifiers modifiers = {})
{
    if (QWindow *window = keyWindow())
        QTest::keyClick(window, Qt::Key(key), modifiers);
    settle();
}

void type(const QString &text)
{
    for (const QChar character : text) {
        if (QWindow *window = keyWindow())
            QTest::keyClick(window, character.toLatin1());
    }
    settle();
}

/// A controller that has an owner: an editor, or a container such as a chooser.
QObject *controllerOf(const QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        const auto *view = qobject_cast<const ZelView *>(widget);
        QObject *controller = view ? view->viewController() : nullptr;
        if (controller && !controller->property("keyPath").toString().isEmpty())
            return controller;
        if (controller && qobject_cast<ZelInspectorProperty *>(controller))
            return controller;
    }
    return nullptr;
}

QObject *ownerOf(const QObject *controller)
{
    return controller->property("owner").value<QObject *>();
}

/// The objects that the editor of a widget stands for. Editors inside of others have these as their owners.
QObjectList objectsOf(const QWidget *widget)
{
    for (QObject *controller = controllerOf(widget); controller;) {
        QObject *owner = ownerOf(controller);
        const QString path = controller->property("keyPath").toString();
        if (owner && path.contains(u".selection.")) {
            const QVariant array = ZelValueForKeyPath(owner, ZelKeyPath(path.section(".selection.", 0, -2)));
            return ZelValueForKey(array, ZelKey("selectedObjects")).value<QObjectList>();
        }
        if (!owner || !ownerOf(owner))
            return owner && !path.isEmpty() ? QObjectList{owner} : QObjectList();
        controller = owner;
    }
    return {};
}

QString nameOf(const QWidget *widget)
{
    QStringList parts;
    for (const QObject *controller = controllerOf(widget); controller && ownerOf(controller);
         controller = ownerOf(controller)) {
        const QString title = controller->property("title").toString();
        parts.prepend(controller->property("keyPath").toString().section(u'.', -1) +
                      (title.isEmpty() ? QString() : u'(' + title + u')'));
    }
    const QString accessibleName = widget->accessibleName();
    parts.append(QString::fromLatin1(widget->metaObject()->className()) +
                 (accessibleName.isEmpty() ? QString() : u'(' + accessibleName + u')'));
    return parts.join(u'/');
}

bool isMixed(const QWidget *widget)
{
    for (const char *name : {"objectValue", "selectedIndex"}) {
        if (ZelIsMarker(widget->property(name), ZelMultipleValuesMarker))
            return true;
    }
    const QVariant color = widget->property("color");
    return widget->property("checkState").toInt() == Qt::PartiallyChecked ||
           (color.isValid() && !color.value<QColor>().isValid());
}

bool isEditable(const QWidget *widget)
{
    if (const auto *table = qobject_cast<const QTableView *>(widget))
        return table->model()->rowCount() > 0;
    const QVariant editable = widget->property("editable");
    const QVariant readOnly = widget->property("readOnly");
    return (!editable.isValid() || editable.toBool()) && (!readOnly.isValid() || !readOnly.toBool());
}

QWidget *openWindow(const char *className)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->inherits(className))
            return window;
    }
    return nullptr;
}

/// By design, the steps of a cell of a list and of the size of a font have no name.
bool mayBeUnnamed(const QWidget *widget)
{
    const QObject *controller = controllerOf(widget);
    const bool isSize = qobject_cast<const ZelStepper *>(widget) || qobject_cast<const ZelTextField *>(widget);
    return qobject_cast<const QTableView *>(widget) ||
           (isSize && (!controller || qobject_cast<const ZelInspectorFontProperty *>(controller)));
}

QString text(const QVariant &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text.left(120);
}

} // namespace

/// Notes what the library and Qt report, in the place of raising it.
class ControlTour::Messages : public ZelAssertionHandler, public ZelExceptionReporter
{
public:
    Messages()
    {
        list.clear();
        m_handler = ZelAssertionHandler::setCurrent(this);
        m_reporter = ZelExceptionReporter::setCurrent(this);
        m_former = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
            const bool isOfPlatform = text.startsWith(u"This plugin does not support"); // without a screen
            if (type != QtDebugMsg && type != QtInfoMsg && !isOfPlatform)
                list.append(text);
            if (type == QtFatalMsg)
                std::fprintf(stderr, "%s\n", qPrintable(text));
        });
    }
    ~Messages() override
    {
        ZelAssertionHandler::setCurrent(m_handler);
        ZelExceptionReporter::setCurrent(m_reporter);
        qInstallMessageHandler(m_former);
    }
    void handleFailure(const QString &, const QString &message, const ZelSourcePlace &place) override
    {
        list.append(place.appendedTo(message));
    }
    void reportException(const QString &message, const ZelSourcePlace &place) override
    {
        list.append(place.appendedTo(message));
    }

    static inline QStringList list;

private:
    ZelAssertionHandler *m_handler;
    ZelExceptionReporter *m_reporter;
    QtMessageHandler m_former;
};

ControlTour::ControlTour(const Program &program)
    : m_program(program)
    , m_messages(std::make_unique<Messages>())
{
}

ControlTour::~ControlTour() = default;

const ControlTour::Kind *ControlTour::kindOf(const QWidget *widget)
{
    static const Kind kinds[] = {
        {"QAbstractScrollArea", Contains, nullptr},
        {"ZelTextField", Edits, &ControlTour::typeText, 4},
        {"ZelGrowingTextField", Edits, &ControlTour::typeText, 2},
        {"ZelComboBox", Edits, &ControlTour::typeText, 2},
        {"ZelGrowingTextView", Edits, &ControlTour::typeParagraph},
        {"ZelCheckBox", Edits, &ControlTour::clickMark},
        {"ZelStepper", Edits, &ControlTour::clickStepper, 2},
        {"ZelSlider", Edits, &ControlTour::dragSlider, 2},
        {"ZelPopUpButton", Edits, &ControlTour::chooseItem, 4},
        {"ZelSegmentedControl", Edits, &ControlTour::clickSegment},
        {"ZelDatePicker", Edits, &ControlTour::stepDate, 2},
        {"QTableView", Edits, &ControlTour::typeIntoCell},
        {"SwatchRow", Edits, &ControlTour::clickSwatch, 2},
        {"ZelHoverButton", Acts, &ControlTour::clickCentre},
        {"ZelPushButton", Acts, &ControlTour::clickCentre},
        {"ZelExpandableHeader", Shows, &ControlTour::foldAndOpen},
        {"ZelOriginSelectionView", Shows, &ControlTour::clickAnchor, 2},
    };
    for (const QMetaObject *metaObject = widget->metaObject(); metaObject; metaObject = metaObject->superClass()) {
        for (const Kind &kind : kinds) {
            if (qstrcmp(kind.className, metaObject->className()) == 0)
                return &kind;
        }
    }
    return nullptr;
}

void ControlTour::collect(QWidget *widget, QList<Control> &controls)
{
    const Kind *kind = kindOf(widget);
    if (!kind && widget->focusPolicy() != Qt::NoFocus && widget->isEnabled()) {
        fault(QStringLiteral("is of a class that is not known: ") + nameOf(widget));
        return;
    }
    if (kind && kind->effect != Contains) {
        const auto *segments = qobject_cast<ZelSegmentedControl *>(widget);
        for (int part = 0; part < (segments ? int(segments->segmentCount()) : 1); ++part) {
            QString name = m_outer.name + nameOf(widget);
            if (segments)
                name += u'#' + QString::number(part);
            const QObject *controller = controllerOf(widget);
            if (kind->effect != Shows && isEditable(widget) &&
                (!controller || controller->property("enabled") != false))
                m_found.insert(name);
            if (!segments || segments->isSegmentEnabled(part))
                controls.append({widget, controller ? widget : m_outer.subject.data(), kind, name, part});
        }
        return;
    }
    for (QObject *child : widget->children()) {
        auto *childWidget = qobject_cast<QWidget *>(child);
        if (childWidget && !childWidget->isWindow() && childWidget->isVisible())
            collect(childWidget, controls);
    }
}

void ControlTour::visitAll(QWidget *root)
{
    QList<Control> controls;
    m_current = QString::fromLatin1(root->metaObject()->className());
    collect(root, controls);
    const QPointer<QWidget> alive(root);
    for (const Control &control : std::as_const(controls)) {
        if (!alive || !alive->isVisible())
            return fault("closes the window too soon"); // only the last button of a popover may close it
        m_current = control.name;
        if (!control.widget || !control.widget->isVisible()) {
            fault("went away while others were changed");
            continue;
        }
        prepare(control);
        if (control.widget->isEnabled())
            visit(control);
    }
}

/// Selects what the control changes, where that is a part of the value.
void ControlTour::prepare(const Control &control)
{
    for (QObject *controller = controllerOf(control.subject); controller; controller = ownerOf(controller)) {
        if (const auto *text = qobject_cast<ZelInspectorAttributedStringProperty *>(controller))
            text->textView()->selectAll();
        if (const auto *list = qobject_cast<ZelInspectorArrayProperty *>(controller);
            list && list->numberOfRows() > 0) {
            // What was undone last is shown a little later, and so is what can be done to the selection.
            QTableView *table = list->tableView();
            const QPoint cell = table->visualRect(table->model()->index(0, 0)).center();
            click(table, table->viewport()->mapTo(table, cell));
            (void)QTest::qWaitFor([&control] { return control.widget->isEnabled(); }, 1000);
        }
    }
    settle();
    if (control.widget->isEnabled() || !m_outer.widget)
        return;
    // What was chosen before may have made it meaningless, until the window is opened again.
    press(Qt::Key_Escape);
    (this->*m_outer.kind->change)(m_outer.widget, m_outer.part);
}

void ControlTour::visit(const Control &control)
{
    const State before = state();
    const QVariant situation = m_program.situation();
    const int index = m_program.undoStack->index();
    const auto *segments = qobject_cast<ZelSegmentedControl *>(control.widget.data());
    const bool isChosen = segments && !segments->selectsAny() && segments->isSegmentSelected(control.part);
    const QObject *controller = controllerOf(control.subject);
    const bool edits =
        control.kind->effect == Edits && controller && !controller->property("keyPath").toString().isEmpty();
    const bool mustChange = edits && !isChosen && isEditable(control.widget) && !objectsOf(control.subject).isEmpty();
    QWidget *window = nullptr;
    for (int attempt = 0; attempt < control.kind->attempts && control.widget; ++attempt) {
        (this->*control.kind->change)(control.widget, control.part + attempt);
        if (!m_outer.widget)
            window = openWindow("ZelPopoverWindow") ? openWindow("ZelPopoverWindow") : openWindow("QColorDialog");
        if (window || state() != before || m_program.situation() != situation)
            break;
    }
    const bool isClosing = m_outer.widget && control.widget && !control.widget->isVisible();
    if (isClosing && control.kind->effect == Acts)
        m_changed.insert(control.name);
    if (window) {
        visitOpened(control, window);
    } else {
        if (mustChange && state() == before)
            fault("changes nothing");
        if (control.kind->effect == Shows || (edits && !mustChange))
            compare(state(), before, "changes what it should not");
        check(control, before, situation, m_program.undoStack->index() - index);
    }
    for (const QString &message : std::exchange(Messages::list, {}))
        fault(message);
    if (const QWidget *modal = QApplication::activeModalWidget())
        fault(QStringLiteral("opened ") + modal->metaObject()->className());
}

void ControlTour::visitOpened(const Control &control, QWidget *opened)
{
    m_changed.insert(control.name);
    m_outer = control;
    m_outer.name += u'/';
    const QPointer<QWidget> alive(opened);
    if (opened->inherits("QColorDialog"))
        visitColorPanel(opened);
    else
        visitAll(opened);
    m_outer = {};
    m_current = control.name;
    if (!alive || !alive->isVisible())
        return;
    if (alive->inherits("QColorDialog"))
        ZelColorPanel::sharedColorPanel()->close();
    else
        press(Qt::Key_Escape);
    if (alive && alive->isVisible())
        fault("opened what does not close");
}

/// The standard colours stand for the other controls of Qt's own dialog.
void ControlTour::visitColorPanel(QWidget *panel)
{
    static const Kind kind{"", Edits, &ControlTour::clickColor, 2};
    for (QWidget *widget : panel->findChildren<QWidget *>()) {
        if (QByteArray(widget->metaObject()->className()).endsWith("QWellArray"))
            return visit({widget, m_outer.subject, &kind, m_outer.name + "colour"});
    }
    fault("opened a panel that offers no colours");
}

void ControlTour::check(const Control &control, const State &before, const QVariant &situation, int steps)
{
    const State after = state();
    if (after == before) {
        if (steps != 0)
            fault(QStringLiteral("makes %1 undo steps of no change").arg(steps));
        if (m_program.situation() != situation)
            m_changed.insert(control.name);
    } else {
        m_changed.insert(control.name);
        if (steps != 1)
            fault(QStringLiteral("makes %1 undo steps of one edit").arg(steps));
        if (m_program.undoStack->undoText().isEmpty() && !mayBeUnnamed(control.widget))
            fault("makes an undo step without a name");
        if (control.kind->effect == Edits && control.widget && control.subject)
            checkReach(control, before, after);
        checkUndo(control, before, after);
    }
    while (m_program.undoStack->canUndo() && state() != before)
        m_program.undoStack->undo();
    if (m_program.situation() != situation)
        m_program.restore();
    settle();
}

void ControlTour::checkReach(const Control &control, const State &before, const State &after)
{
    QObject *controller = controllerOf(control.subject);
    if (after.size() != before.size() || !controller || controller->property("keyPath").toString().isEmpty())
        return;
    const QObjectList objects = objectsOf(control.subject);
    for (int i = 0; i < after.size(); ++i) {
        if (after[i] != before[i] && !objects.contains(after[i].first))
            fault("changes an object that is not selected");
    }
    // What the editor reads back is one value only if all objects have it.
    for (; controller; controller = ownerOf(controller)) {
        if (auto *property = qobject_cast<ZelInspectorProperty *>(controller))
            property->updateView();
    }
    if (isMixed(control.widget))
        fault("does not reach every selected object");
}

void ControlTour::checkUndo(const Control &control, const State &before, const State &after)
{
    const bool isInFront = !m_outer.widget && control.widget && control.widget->window()->isActiveWindow();
    isInFront ? m_program.undo() : m_program.undoStack->undo();
    settle();
    compare(state(), before, "after undo");
    isInFront ? m_program.redo() : m_program.undoStack->redo();
    settle();
    compare(state(), after, "after redo");
    m_program.undoStack->undo();
    settle();
    compare(state(), before, "after a second undo");
}

void ControlTour::compare(const State &actual, const State &expected, const QString &when)
{
    if (actual.size() != expected.size())
        fault(QStringLiteral("%1: %2 objects, not %3").arg(when).arg(actual.size()).arg(expected.size()));
    for (int i = 0; i < qMin(actual.size(), expected.size()); ++i) {
        if (actual[i].first != expected[i].first)
            return fault(when + ": the objects have another order");
        for (const QString &key : expected[i].second.keys()) {
            const QVariant is = actual[i].second.value(key);
            const QVariant was = expected[i].second.value(key);
            if (is != was)
                return fault(QStringLiteral("%1: %2 is %3, not %4").arg(when, key, text(is), text(was)));
        }
    }
}

void ControlTour::fault(const QString &text)
{
    m_faults.append(m_current + ": " + text);
}

ControlTour::State ControlTour::state() const
{
    State state;
    for (QObject *model : m_program.models()) {
        QVariantMap values;
        const QMetaObject *metaObject = model->metaObject();
        for (int i = QObject::staticMetaObject.propertyCount(); i < metaObject->propertyCount(); ++i)
            values.insert(QString::fromLatin1(metaObject->property(i).name()), metaObject->property(i).read(model));
        state.append({model, values});
    }
    return state;
}

// What the user does

QPoint ControlTour::reach(QWidget *widget, const QPoint &position)
{
    for (QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(parent))
            area->ensureWidgetVisible(widget, 0, 0);
    }
    QWidget *window = widget->window();
    if (!QApplication::activePopupWidget() && !window->isActiveWindow()) {
        window->activateWindow(); // there is no window manager to do it
        (void)QTest::qWaitForWindowActive(window);
    }
    settle();
    const QPoint place = widget->mapTo(window, position);
    const QWidget *hit = window->childAt(place);
    if (!hit || (hit != widget && !widget->isAncestorOf(hit)))
        fault(QStringLiteral("is out of the mouse's reach, below ") + (hit ? nameOf(hit) : QStringLiteral("nothing")));
    return place;
}

void ControlTour::click(QWidget *widget, const QPoint &position)
{
    const QPoint place = reach(widget, position);
    QTest::mouseClick(widget->window()->windowHandle(), Qt::LeftButton, {}, place);
    settle();
}

void ControlTour::clickCentre(QWidget *widget, int)
{
    click(widget, widget->rect().center());
}

void ControlTour::clickMark(QWidget *widget, int)
{
    click(widget, {8, widget->height() / 2});
}

void ControlTour::foldAndOpen(QWidget *widget, int)
{
    const int height = widget->parentWidget()->height();
    clickCentre(widget, 0);
    if (!QTest::qWaitFor([&] { return widget->parentWidget()->height() < height; }, 2000))
        fault("does not fold");
    clickCentre(widget, 0);
    if (!QTest::qWaitFor([&] { return widget->parentWidget()->height() == height; }, 2000))
        fault("does not open again");
}

void ControlTour::clickSegment(QWidget *widget, int segment)
{
    click(widget, qobject_cast<ZelSegmentedControl *>(widget)->segmentRect(segment).center());
}

void ControlTour::clickStepper(QWidget *widget, int attempt)
{
    click(widget, {widget->width() / 2, widget->height() * (attempt == 0 ? 1 : 3) / 4});
}

void ControlTour::clickSwatch(QWidget *widget, int attempt)
{
    click(widget, {widget->width() / 8 + attempt * widget->width() / 2, widget->height() / 2});
}

void ControlTour::clickAnchor(QWidget *widget, int attempt)
{
    click(widget, attempt == 0 ? QPoint(5, 5) : QPoint(widget->width() - 5, widget->height() / 2));
}

void ControlTour::clickColor(QWidget *widget, int attempt)
{
    click(widget, {widget->width() * (5 + 2 * attempt) / 8, widget->height() / 2});
}

void ControlTour::dragSlider(QWidget *widget, int attempt)
{
    const QPoint start = reach(widget, {widget->width() * (attempt == 0 ? 1 : 3) / 4, widget->height() / 2});
    const QPoint end = reach(widget, {widget->width() * 3 / 5, widget->height() * 2 / 3});
    QWindow *window = widget->window()->windowHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, start);
    QTest::mouseMove(window, (start + end) / 2);
    QTest::mouseMove(window, end);
    QTest::mouseRelease(window, Qt::LeftButton, {}, end);
    settle();
}

void ControlTour::chooseItem(QWidget *widget, int attempt)
{
    auto *button = qobject_cast<ZelPopUpButton *>(widget);
    clickCentre(button, 0);
    if (!QTest::qWaitFor([button] { return button->isMenuOpen(); }, 500))
        return;
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QList<QAction *> items;
    for (QAction *item : menu->actions()) {
        const bool isOther = item != button->selectedItem() && !item->isSeparator() && !item->menu();
        const bool isInReach = item->isEnabled() && menu->rect().contains(menu->actionGeometry(item).center());
        if (isOther && isInReach && !qobject_cast<QWidgetAction *>(item))
            items.append(item);
    }
    if (items.isEmpty())
        return press(Qt::Key_Escape);
    const QRect place = menu->actionGeometry(items[(items.size() / 2 + attempt) % items.size()]);
    QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {}, place.center());
    settle();
    if (button->isMenuOpen())
        press(Qt::Key_Escape);
}

void ControlTour::typeText(QWidget *widget, int attempt)
{
    click(widget, {widget->width() / 3, widget->height() / 2});
    if (isEditable(widget)) // else the window selects all shapes
        press(Qt::Key_A, Qt::ControlModifier);
    type(QStringList{"37", "3", "0.3", "4711"}.at(attempt)); // some number that the field takes
    press(Qt::Key_Return);
}

void ControlTour::typeParagraph(QWidget *widget, int)
{
    clickCentre(widget, 0);
    press(Qt::Key_End, Qt::ControlModifier);
    type("more");
    press(Qt::Key_Return, Qt::ControlModifier);
}

void ControlTour::typeIntoCell(QWidget *widget, int)
{
    auto *table = qobject_cast<QTableView *>(widget);
    const QRect cell = table->visualRect(table->model()->index(0, 0));
    if (!cell.isValid())
        return;
    const QPoint place = table->viewport()->mapTo(table, cell.center());
    click(table, place);
    QTest::mouseDClick(table->window()->windowHandle(), Qt::LeftButton, {}, table->mapTo(table->window(), place));
    settle();
    press(Qt::Key_A, Qt::ControlModifier);
    type("cell");
    press(Qt::Key_Return);
}

void ControlTour::stepDate(QWidget *widget, int attempt)
{
    click(widget, {8, widget->height() / 2});
    press(attempt == 0 ? Qt::Key_Up : Qt::Key_Down);
    press(Qt::Key_Return);
}
