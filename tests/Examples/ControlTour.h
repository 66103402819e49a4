// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Cells/ZelSegmentedControl.h"
#include "Controls/Fields/ZelTextField.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/Ranges/ZelStepper.h"
#include "Controls/ZelColorPanel.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Inspector/Properties/ZelInspectorAttributedStringProperty.h"
#include "Inspector/Properties/ZelInspectorFontProperty.h"
#include "Support/Failures.h"
#include "Support/Reports.h"
#include "Support/User.h"
#include "ViewController/ZelView.h"

/// Changes every control of an inspector as a user does, with mouse and keyboard, and notes what is wrong.
///
/// Controls are found in the window: whatever can be clicked or takes the focus is one, and is known by its class. One
/// of an unknown class is a fault, as is one that does nothing. An edit must reach all objects that its editor stands
/// for and no other, in one named undo step. Undo brings back every object's own values, and redo the later ones. What
/// an edit opens (a popover, the colour panel) is visited as well. Everything is undone in the end.
class ControlTour
{
public:
    struct Program
    {
        QUndoStack *undoStack;
        std::function<QObjectList()> models; ///< all that edits may change, in their order
        std::function<QVariant()> situation; ///< what else buttons may change, such as the selection
        std::function<void()> restore;       ///< brings the former situation back
        std::function<void()> undo, redo;    ///< as the user does in the window
    };

    explicit ControlTour(const Program &program)
        : m_program(program)
    {
    }

    void visitAll(QWidget *root)
    {
        QList<Control> controls;
        m_current = root->metaObject()->className();
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
    static bool isControl(const QWidget *widget)
    {
        const Kind *kind = kindOf(widget);
        return kind && kind->effect != Contains;
    }
    /// What is wrong, a line for each.
    QString faults() const { return m_faults.join('\n'); }
    QSet<QString> found;   ///< the names of all, also while they could not be used
    QSet<QString> changed; ///< the names of those that have changed something

private:
    enum Effect { Edits, Acts, Shows, Contains };
    struct Kind
    {
        const char *className;
        Effect effect;
        /// Where it is clicked, up to 1 as parts of its size and beyond in points, and the keys and texts that follow:
        /// one after the other, until there is an effect.
        QList<QPointF> places;
        QStringList keys;
        void (*change)(ControlTour &, QWidget *, int attempt) = nullptr; ///< instead
        int attempts = 1;
    };
    struct Control
    {
        QPointer<QWidget> widget;
        QPointer<QWidget> subject; ///< is in the editor that it changes
        const Kind *kind = nullptr;
        QString name;
        int part = 0; // of a widget with several
    };
    using State = QList<std::pair<QObject *, QVariantMap>>;
    static const Kind *kindOf(const QWidget *widget)
    {
        static const Kind kinds[] = {
            {"QAbstractScrollArea", Contains},
            {"ZelTextField",
             Edits,
             {{0.3, 0.5}},
             {"Ctrl+A 37 Return", "Ctrl+A 3 Return", "Ctrl+A 0.3 Return",
              "Ctrl+A 4711 Return"}}, // some one that it takes
            {"ZelGrowingTextField", Edits, {{0.3, 0.5}}, {"Ctrl+A 37 Return", "Ctrl+A 3 Return"}},
            {"ZelComboBox", Edits, {{0.3, 0.5}}, {"Ctrl+A 37 Return", "Ctrl+A 3 Return"}},
            {"ZelGrowingTextView", Edits, {{0.5, 0.5}}, {"Ctrl+End more Ctrl+Return"}},
            {"ZelCheckBox", Edits, {{8, 0.5}}},
            {"ZelStepper", Edits, {{0.5, 0.25}, {0.5, 0.75}}},
            {"ZelSlider", Edits, {}, {}, dragSlider, 2},
            {"ZelPopUpButton", Edits, {}, {}, chooseItem, 4},
            {"ZelSegmentedControl", Edits, {}, {}, clickSegment},
            {"ZelDatePicker", Edits, {{8, 0.5}}, {"Up Return", "Down Return"}},
            {"QTableView", Edits, {}, {}, typeIntoCell},
            {"SwatchRow", Edits, {{0.125, 0.5}, {0.625, 0.5}}},
            {"QWellArray", Edits, {{0.625, 0.5}, {0.875, 0.5}}}, // of the colour panel
            {"ZelHoverButton", Acts, {{0.5, 0.5}}},
            {"ZelPushButton", Acts, {{0.5, 0.5}}},
            {"ZelExpandableHeader", Shows, {}, {}, foldAndOpen},
            {"ZelOriginSelectionView", Shows, {{5, 5}, {0.9, 0.5}}},
        };
        for (const QMetaObject *metaObject = widget->metaObject(); metaObject; metaObject = metaObject->superClass()) {
            for (const Kind &kind : kinds) {
                if (QByteArray(metaObject->className()).endsWith(kind.className)) // some are in namespaces
                    return &kind;
            }
        }
        return nullptr;
    }

    // What is known of a control

    /// A controller that has an owner: an editor, or a container such as a chooser.
    static QObject *controllerOf(const QWidget *widget)
    {
        for (; widget; widget = widget->parentWidget()) {
            const auto *view = qobject_cast<const ZelView *>(widget);
            QObject *controller = view ? view->viewController() : nullptr;
            if (controller && (!controller->property("keyPath").toString().isEmpty() ||
                               qobject_cast<ZelInspectorProperty *>(controller)))
                return controller;
        }
        return nullptr;
    }
    static QObject *ownerOf(const QObject *controller) { return controller->property("owner").value<QObject *>(); }
    /// The objects that the editor of a widget stands for. Editors inside of others have these as their owners.
    static QObjectList objectsOf(const QWidget *widget)
    {
        for (QObject *controller = controllerOf(widget); controller;) {
            QObject *owner = ownerOf(controller);
            const QString path = controller->property("keyPath").toString();
            if (owner && path.contains(u".selection.")) {
                const QVariant array = ZelValueForKeyPath(owner, ZelKeyPath(path.section(".selection.", 0, -2)));
                QObjectList objects = ZelValueForKey(array, ZelKey("selectedObjects")).value<QObjectList>();
                const QString inner = path.section(".selection.", -1).section('.', 0, -2); // to a part of each
                for (QObject *&object : objects)
                    object = inner.isEmpty() ? object : ZelObject(ZelValueForKeyPath(object, ZelKeyPath(inner)));
                return objects;
            }
            if (!owner || !ownerOf(owner))
                return owner && !path.isEmpty() ? QObjectList{owner} : QObjectList();
            controller = owner;
        }
        return {};
    }
    static QString nameOf(const QWidget *widget)
    {
        QString name = widget->metaObject()->className() + ('(' + widget->accessibleName() + ')');
        for (const QObject *controller = controllerOf(widget); controller && ownerOf(controller);
             controller = ownerOf(controller))
            name.prepend(controller->property("keyPath").toString().section('.', -1) + '(' +
                         controller->property("title").toString() + ")/");
        return name;
    }
    static bool isMixed(const QWidget *widget)
    {
        const QVariant color = widget->property("color");
        return ZelIsMarker(widget->property("objectValue"), ZelMultipleValuesMarker) ||
               ZelIsMarker(widget->property("selectedIndex"), ZelMultipleValuesMarker) ||
               widget->property("checkState").toInt() == Qt::PartiallyChecked ||
               (color.isValid() && !color.value<QColor>().isValid());
    }
    static bool isEditable(const QWidget *widget)
    {
        if (const auto *table = qobject_cast<const QTableView *>(widget))
            return table->model()->rowCount() > 0;
        const QVariant editable = widget->property("editable");
        return (!editable.isValid() || editable.toBool()) && !widget->property("readOnly").toBool();
    }
    /// By design, the steps of a cell of a list and of the size of a font have no name.
    static bool mayBeUnnamed(const QWidget *widget)
    {
        const QObject *controller = controllerOf(widget);
        const bool isSize = qobject_cast<const ZelStepper *>(widget) || qobject_cast<const ZelTextField *>(widget);
        return qobject_cast<const QTableView *>(widget) ||
               (isSize && (!controller || qobject_cast<const ZelInspectorFontProperty *>(controller)));
    }
    static QWidget *openedWindow()
    {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && (window->inherits("ZelPopoverWindow") || window->inherits("QColorDialog")))
                return window;
        }
        return nullptr;
    }

    void collect(QWidget *widget, QList<Control> &controls)
    {
        const Kind *kind = kindOf(widget);
        if (!kind && widget->focusPolicy() != Qt::NoFocus && widget->isEnabled())
            return fault("is of a class that is not known: " + nameOf(widget));
        if (isControl(widget)) {
            const auto *segments = qobject_cast<ZelSegmentedControl *>(widget);
            const QObject *controller = controllerOf(widget);
            const bool isEnabled = !controller || controller->property("enabled") != false;
            for (int part = 0; part < (segments ? int(segments->segmentCount()) : 1); ++part) {
                const QString name =
                    m_outer.name + nameOf(widget) + (segments ? '#' + QString::number(part) : QString());
                if (kind->effect != Shows && isEditable(widget) && isEnabled)
                    found.insert(name);
                if (!segments || segments->isSegmentEnabled(part))
                    controls.append({widget, controller ? widget : m_outer.subject.data(), kind, name, part});
            }
            return;
        }
        for (QWidget *child : widget->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!child->isWindow() && child->isVisible())
                collect(child, controls);
        }
    }

    /// Selects what the control changes, where that is a part of the value.
    void prepare(const Control &control)
    {
        for (QObject *controller = controllerOf(control.subject); controller; controller = ownerOf(controller)) {
            if (const auto *text = qobject_cast<ZelInspectorAttributedStringProperty *>(controller))
                text->textView()->selectAll();
            if (const auto *list = qobject_cast<ZelInspectorArrayProperty *>(controller);
                list && list->numberOfRows() > 0) {
                // What was undone last is shown a little later, and so is what can be done to the selection.
                click(list->tableView(), firstCell(list->tableView()));
                (void)QTest::qWaitFor([&control] { return control.widget->isEnabled(); }, 1000);
            }
        }
        User::settle();
        if (control.widget->isEnabled() || !m_outer.widget)
            return;
        // What was chosen before may have made it meaningless, until the window is opened again.
        press("Escape");
        change(m_outer, 0);
    }

    void visit(const Control &control)
    {
        const State before = state();
        const QVariant situation = m_program.situation();
        const int index = m_program.undoStack->index();
        const auto *segments = qobject_cast<ZelSegmentedControl *>(control.widget.data());
        const bool isChosen = segments && !segments->selectsAny() && segments->isSegmentSelected(control.part);
        const QObject *controller = controllerOf(control.subject);
        const bool edits =
            control.kind->effect == Edits && controller && !controller->property("keyPath").toString().isEmpty();
        const bool mustChange =
            edits && !isChosen && isEditable(control.widget) && !objectsOf(control.subject).isEmpty();
        QWidget *window = nullptr;
        const Kind &kind = *control.kind;
        const int attempts = std::max({kind.attempts, int(kind.places.size()), int(kind.keys.size())});
        for (int attempt = 0; attempt < attempts && control.widget; ++attempt) {
            change(control, attempt);
            if (!m_outer.widget)
                window = openedWindow();
            if (window || state() != before || m_program.situation() != situation)
                break;
        }
        if (m_outer.widget && control.widget && !control.widget->isVisible() && control.kind->effect == Acts)
            changed.insert(control.name); // it closes the window
        if (window) {
            visitOpened(control, window);
        } else {
            if (mustChange && state() == before)
                fault("changes nothing");
            if (control.kind->effect == Shows || (edits && !mustChange))
                compare(state(), before, "changes what it should not");
            check(control, before, situation, m_program.undoStack->index() - index);
        }
        for (const QString &message : m_failures.taken() + std::exchange(Reports::messages, {}))
            fault(message);
        if (const QWidget *modal = QApplication::activeModalWidget())
            fault(QString("opened ") + modal->metaObject()->className());
    }

    void visitOpened(const Control &control, QWidget *opened)
    {
        changed.insert(control.name);
        m_outer = control;
        m_outer.name += '/';
        const QPointer<QWidget> alive(opened);
        const bool isColorPanel = opened->inherits("QColorDialog");
        isColorPanel ? visitColorPanel(opened) : visitAll(opened);
        m_outer = {};
        m_current = control.name;
        if (alive && alive->isVisible())
            isColorPanel ? void(ZelColorPanel::sharedColorPanel()->close()) : press("Escape");
        if (alive && alive->isVisible())
            fault("opened what does not close");
    }

    /// The standard colours stand for the other controls of Qt's own dialog.
    void visitColorPanel(QWidget *panel)
    {
        for (QWidget *widget : panel->findChildren<QWidget *>()) {
            if (QByteArray(widget->metaObject()->className()).endsWith("QWellArray"))
                return visit({widget, m_outer.subject, kindOf(widget), m_outer.name + "colour"});
        }
        fault("opened a panel that offers no colours");
    }

    // What is checked

    void check(const Control &control, const State &before, const QVariant &situation, int steps)
    {
        const State after = state();
        if (after != before || m_program.situation() != situation)
            changed.insert(control.name);
        const int expected = after == before ? 0 : 1;
        if (steps != expected)
            fault(QString("makes %1 undo steps, not %2").arg(steps).arg(expected));
        if (after != before) {
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
        User::settle();
    }

    void checkReach(const Control &control, const State &before, const State &after)
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
        // Steppers change each object from its own value.
        if (isMixed(control.widget) && !qobject_cast<const ZelStepper *>(control.widget.data()))
            fault("does not reach every selected object");
    }

    void checkUndo(const Control &control, const State &before, const State &after)
    {
        const bool isInFront = !m_outer.widget && control.widget && control.widget->window()->isActiveWindow();
        isInFront ? m_program.undo() : m_program.undoStack->undo();
        User::settle();
        compare(state(), before, "after undo");
        isInFront ? m_program.redo() : m_program.undoStack->redo();
        User::settle();
        compare(state(), after, "after redo");
        m_program.undoStack->undo();
        User::settle();
        compare(state(), before, "after a second undo");
    }

    void compare(const State &actual, const State &expected, const QString &when)
    {
        if (actual.size() != expected.size())
            return fault(QString("%1: %2 objects, not %3").arg(when).arg(actual.size()).arg(expected.size()));
        for (int i = 0; i < actual.size(); ++i) {
            const auto &[object, values] = actual[i];
            if (object != expected[i].first)
                return fault(when + ": the objects have another order");
            for (const auto &[key, value] : expected[i].second.asKeyValueRange()) {
                if (values.value(key) != value)
                    return fault(when + ": " + key + " is " + say(values.value(key), "not", value).left(240));
            }
        }
    }

    void fault(const QString &text) { m_faults.append(m_current + ": " + text); }

    State state() const
    {
        State state;
        for (QObject *model : m_program.models()) {
            QVariantMap values;
            const QMetaObject *metaObject = model->metaObject();
            for (int i = QObject::staticMetaObject.propertyCount(); i < metaObject->propertyCount(); ++i)
                values.insert(metaObject->property(i).name(), metaObject->property(i).read(model));
            state.append({model, values});
        }
        return state;
    }

    // What the user does

    /// Presses keys, such as "Ctrl+A Return", and types what names none.
    static void press(const QString &words)
    {
        for (const QString &word : words.split(' ')) {
            const QKeyCombination keys = QKeySequence(word)[0];
            const bool isKey = word.size() > 1 && QKeySequence(word).count() == 1 && keys.key() != Qt::Key_unknown;
            for (qsizetype i = 0; i < (isKey ? 1 : word.size()) && User::keyWindow(); ++i)
                isKey ? QTest::keyClick(User::keyWindow(), keys.key(), keys.keyboardModifiers())
                      : QTest::keyClick(User::keyWindow(), word[i].toLatin1());
        }
        User::settle();
    }
    static QPoint firstCell(const QTableView *table)
    {
        return table->viewport()->mapTo(table, table->visualRect(table->model()->index(0, 0)).center());
    }
    /// Brings a place of the widget into sight; answers where in the window it is.
    QPoint reach(QWidget *widget, const QPoint &position)
    {
        for (QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
            if (auto *area = qobject_cast<QScrollArea *>(parent))
                area->ensureWidgetVisible(widget, 0, 0);
        }
        QWidget *window = widget->window();
        if (!QApplication::activePopupWidget() && !window->isActiveWindow())
            User::activate(window);
        User::settle();
        const QPoint place = widget->mapTo(window, position);
        const QWidget *hit = window->childAt(place);
        if (!hit || (hit != widget && !widget->isAncestorOf(hit)))
            fault("is out of the mouse's reach, below " + (hit ? nameOf(hit) : QString("nothing")));
        return place;
    }
    void click(QWidget *widget, const QPoint &position)
    {
        const QPoint place = reach(widget, position);
        QTest::mouseClick(widget->window()->windowHandle(), Qt::LeftButton, {}, place);
        User::settle();
    }
    void clickCentre(QWidget *widget) { click(widget, widget->rect().center()); }
    void change(const Control &control, int attempt)
    {
        if (control.kind->change)
            return control.kind->change(*this, control.widget, control.part + attempt);
        const auto at = [](double place, int length) { return int(place <= 1 ? place * length : place); };
        QWidget *widget = control.widget;
        const QPointF place = control.kind->places.value(attempt, control.kind->places.last());
        click(widget, {at(place.x(), widget->width()), at(place.y(), widget->height())});
        const QWidget *focus = QApplication::focusWidget();
        const bool hasFocus = focus && (focus == widget || widget->isAncestorOf(focus));
        if (control.kind->keys.isEmpty() || (!hasFocus && !isEditable(widget)))
            return; // one that can only be read need not take the focus
        QString keys = control.kind->keys[attempt];
        press(isEditable(widget) ? keys : keys.remove("Ctrl+A ")); // which else selects all shapes
    }
    static void clickSegment(ControlTour &tour, QWidget *widget, int segment)
    {
        tour.click(widget, qobject_cast<ZelSegmentedControl *>(widget)->segmentRect(segment).center());
    }
    static void foldAndOpen(ControlTour &tour, QWidget *widget, int)
    {
        const int before = widget->parentWidget()->height();
        const auto folds = [&] { return widget->parentWidget()->height() < before; };
        const auto isOpen = [&] { return widget->parentWidget()->height() == before; };
        tour.clickCentre(widget);
        if (!QTest::qWaitFor(folds, 2000))
            tour.fault("does not fold");
        tour.clickCentre(widget);
        if (!QTest::qWaitFor(isOpen, 2000))
            tour.fault("does not open again");
    }
    static void dragSlider(ControlTour &tour, QWidget *widget, int attempt)
    {
        const QPoint start = tour.reach(widget, {widget->width() * (attempt == 0 ? 1 : 3) / 4, widget->height() / 2});
        const QPoint end = tour.reach(widget, {widget->width() * 3 / 5, widget->height() * 2 / 3});
        QWindow *window = widget->window()->windowHandle();
        QTest::mousePress(window, Qt::LeftButton, {}, start);
        QTest::mouseMove(window, (start + end) / 2);
        QTest::mouseMove(window, end);
        QTest::mouseRelease(window, Qt::LeftButton, {}, end);
        User::settle();
    }
    static void chooseItem(ControlTour &tour, QWidget *widget, int attempt)
    {
        auto *button = qobject_cast<ZelPopUpButton *>(widget);
        tour.clickCentre(button);
        if (!QTest::qWaitFor([button] { return button->isMenuOpen(); }, 500))
            return;
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QList<QRect> others;
        for (QAction *item : menu->actions()) {
            const QRect place = menu->actionGeometry(item);
            if (item != button->selectedItem() && !item->isSeparator() && !item->menu() && item->isEnabled() &&
                menu->rect().contains(place.center()) && !qobject_cast<QWidgetAction *>(item))
                others.append(place);
        }
        if (others.isEmpty())
            return press("Escape");
        const QPoint place = others[(others.size() / 2 + attempt) % others.size()].center();
        QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {}, place);
        User::settle();
        if (button->isMenuOpen())
            press("Escape");
    }
    static void typeIntoCell(ControlTour &tour, QWidget *widget, int)
    {
        auto *table = qobject_cast<QTableView *>(widget);
        if (table->model()->rowCount() == 0)
            return;
        const QPoint place = firstCell(table);
        tour.click(table, place);
        QTest::mouseDClick(table->window()->windowHandle(), Qt::LeftButton, {}, table->mapTo(table->window(), place));
        User::settle();
        press("Ctrl+A cell Return");
    }

    Program m_program;
    Failures m_failures;
    Reports m_reports;
    QStringList m_faults;
    QString m_current;
    Control m_outer; // the one that opened what is being visited
};

/// Runs a test inside of the program of an example, whose main function makes the application and the window.
#define ZEL_TEST_IN_EXAMPLE(Test)                                                                                      \
    int exampleMain(int argc, char *argv[]);                                                                           \
    static void runTestInProgram()                                                                                     \
    {                                                                                                                  \
        QTimer::singleShot(0, qApp, [] {                                                                               \
            Test test;                                                                                                 \
            QCoreApplication::exit(QTest::qExec(&test, QCoreApplication::arguments()));                                \
        });                                                                                                            \
    }                                                                                                                  \
    Q_COREAPP_STARTUP_FUNCTION(runTestInProgram)                                                                       \
    int main(int argc, char *argv[])                                                                                   \
    {                                                                                                                  \
        return exampleMain(argc, argv);                                                                                \
    }
