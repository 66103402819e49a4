// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelGrowingTextField.h"
#include "Inspector/Reports.h"
#include "Inspector/ZelInspectorState.h"
#include "Inspector/ZelTabbedInspector.h"
#include "canvas/Canvas.h"
#include "window/InspectorPanel.h"
#include "window/MainWindow.h"
#include "window/Options.h"
#include "window/Panes.h"
#include "window/ShapeListView.h"

#include <QTest>
#include <QtWidgets>

/// The drawing program without a mouse.
class tst_ShapesKeyboard : public QObject
{
    Q_OBJECT

    std::optional<Reports> m_reports;
    std::unique_ptr<MainWindow> m_window;

    void open(const Options &options)
    {
        m_window = std::make_unique<MainWindow>(options);
        m_window->document().setGridVisible(true);
        m_window->resize(1400, 1100);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        settle();
    }
    static void settle()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }
    ZelTabbedInspector *inspector() { return m_window->findChild<ZelTabbedInspector *>(); }
    QWidget *panel() { return m_window->findChild<InspectorPanel *>(); }
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(m_window->windowHandle(), Qt::Key(key), modifiers);
        settle();
    }

    static bool isControl(const QWidget *widget)
    {
        static const char *const classes[] = {"ZelTextField",
                                              "ZelGrowingTextField",
                                              "ZelComboBox",
                                              "ZelGrowingTextView",
                                              "ZelCheckBox",
                                              "ZelSlider",
                                              "ZelPopUpButton",
                                              "ZelSegmentedControl",
                                              "ZelDatePicker",
                                              "QTableView",
                                              "SwatchRow",
                                              "ZelHoverButton",
                                              "ZelPushButton",
                                              "ZelExpandableHeader",
                                              "ZelOriginSelectionView",
                                              "ZelButtonMatrix",
                                              "QLineEdit"};
        return std::any_of(std::begin(classes), std::end(classes),
                           [widget](const char *name) { return widget->inherits(name); });
    }
    /// The control to which the widget belongs.
    static QWidget *controlOf(QWidget *widget)
    {
        QWidget *control = nullptr;
        for (; widget; widget = widget->parentWidget()) {
            if (isControl(widget))
                control = widget;
        }
        return control;
    }
    static bool isShownOnly(const QWidget *widget)
    {
        const bool isLabel = widget->inherits("ZelPaddedTextField") && widget->focusPolicy() == Qt::NoFocus;
        return isLabel || widget->property("editable") == false;
    }
    /// What can be used in the inspector, in no order.
    QList<QWidget *> usableControls()
    {
        QList<QWidget *> controls;
        for (QWidget *widget : panel()->findChildren<QWidget *>()) {
            if (widget->isVisible() && widget->isEnabled() && controlOf(widget) == widget && !isShownOnly(widget))
                controls.append(widget);
        }
        return controls;
    }
    static QRect placeOf(const QWidget *widget) { return {widget->mapTo(widget->window(), QPoint()), widget->size()}; }
    static QString nameOf(const QWidget *widget)
    {
        QString text;
        QDebug(&text) << widget->metaObject()->className() << widget->accessibleName() << placeOf(widget);
        return text;
    }
    /// Whether nobody who reads would come to the second one before the first.
    static bool isInOrder(const QWidget *first, const QWidget *second)
    {
        const QRect a = placeOf(first);
        const QRect b = placeOf(second);
        const bool isMirrored = first->layoutDirection() == Qt::RightToLeft;
        return b.top() >= a.bottom() ||
               (b.bottom() > a.top() && (isMirrored ? b.right() <= a.left() : b.left() >= a.right()));
    }
    /// The controls of the inspector that the key meets, from the canvas on; what is wrong is added to the faults.
    QList<QWidget *> walk(bool isForward, QStringList &faults)
    {
        m_window->findChild<Canvas *>()->setFocus();
        QList<QWidget *> met;
        QImage focused;
        for (int i = 0; i < 200; ++i) {
            press(isForward ? Qt::Key_Tab : Qt::Key_Backtab, isForward ? Qt::NoModifier : Qt::ShiftModifier);
            QWidget *focus = QApplication::focusWidget();
            QWidget *control = focus && panel()->isAncestorOf(focus) ? controlOf(focus) : nullptr;
            if (!met.isEmpty() && control != met.last() && met.last()->grab().toImage() == focused)
                faults += "shows no focus: " + nameOf(met.last());
            if (!control && !met.isEmpty() && !(focus && panel()->isAncestorOf(focus)))
                return met;
            if (focus && panel()->isAncestorOf(focus) && !control)
                faults += "is no control: " + nameOf(focus);
            if (!control)
                continue;
            focused = control->grab().toImage();
            if (!met.isEmpty() && met.last() == control) // another part of it
                continue;
            if (!met.isEmpty() && !(isForward ? isInOrder(met.last(), control) : isInOrder(control, met.last())))
                faults += "out of order: " + nameOf(control) + " after " + nameOf(met.last());
            met.append(control);
        }
        faults += "does not come to an end";
        return met;
    }
    Shape *textShape()
    {
        for (Shape *shape : m_window->document().shapes()) {
            if (shape->kind() == Shape::Text)
                return shape;
        }
        return nullptr;
    }
private Q_SLOTS:
    void init() { m_reports.emplace(); }
    void cleanup()
    {
        m_window.reset();
        ZelInspectorState::setSettings({});
        m_reports.reset();
        QCOMPARE(Reports::messages, QStringList());
    }

    void tabMeetsEveryControlInReadingOrder_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<bool>("isMirrored");
        for (int tab = 0; tab < 5; ++tab) {
            QTest::addRow("tab %d", tab) << tab << false;
            QTest::addRow("tab %d, right to left", tab) << tab << true;
        }
    }
    void tabMeetsEveryControlInReadingOrder()
    {
        QFETCH(const int, tab);
        QFETCH(const bool, isMirrored);
        Options options;
        options.tab = tab;
        open(options);
        m_window->selection().set({textShape()});
        m_window->setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
        settle();
        const QList<QWidget *> controls = usableControls();
        QVERIFY(controls.size() > 5);
        QStringList faults;
        for (const bool isForward : {true, false}) {
            const QList<QWidget *> met = walk(isForward, faults);
            for (const QWidget *control : controls) {
                if (!met.contains(control))
                    faults += "is not met: " + nameOf(control);
            }
        }
        QCOMPARE(faults.join('\n'), QString());
    }
    void theNextRunFindsTheInspectorAsItWas()
    {
        const QTemporaryDir folder;
        Options options;
        options.settings = folder.filePath("shapes.ini");
        options.tab = 1;
        const auto box = [this](int index) { return inspector()->panes()[0]->inspectors()[index]; };
        open(options);
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        inspector()->setSelectedPaneIndex(0);
        box(1)->setExpanded(false);
        m_window->close();
        options.tab = -1;
        options.language = "de";
        open(options);
        QCOMPARE(inspector()->selectedPaneIndex(), 0u);
        QVERIFY(!box(1)->isExpanded() && box(0)->isExpanded());
        m_window->actions()[Actions::English]->trigger(); // which makes the inspector anew
        settle();
        QVERIFY(!box(1)->isExpanded() && box(0)->isExpanded());
        options.tab = 2;
        open(options);
        QCOMPARE(inspector()->selectedPaneIndex(), 2u); // what was asked for comes first
    }

    void keysGoFromPaneToPane()
    {
        open(Options());
        QWidget *list = m_window->findChild<ShapeListView *>();
        QWidget *canvas = m_window->findChild<Canvas *>();
        canvas->setFocus();
        press(Qt::Key_F6);
        QWidget *first = QApplication::focusWidget();
        QVERIFY(panel()->isAncestorOf(first));
        press(Qt::Key_Tab);
        QWidget *second = QApplication::focusWidget();
        QVERIFY(second != first && panel()->isAncestorOf(second));
        press(Qt::Key_F6);
        QCOMPARE(QApplication::focusWidget(), list);
        press(Qt::Key_F6);
        QCOMPARE(QApplication::focusWidget(), canvas);
        press(Qt::Key_F6);
        QCOMPARE(QApplication::focusWidget(), second);
        press(Qt::Key_F6, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), canvas);
        press(Qt::Key_F8); // the list is collapsed
        press(Qt::Key_F6, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), second);

        auto *field = panel()->findChild<ZelGrowingTextField *>(); // which makes what has the focus only for that time
        field->setFocus();
        QVERIFY(field->isAncestorOf(QApplication::focusWidget()));
        press(Qt::Key_F6);
        press(Qt::Key_F6);
        QVERIFY(field->isAncestorOf(QApplication::focusWidget()));
    }
};

QTEST_MAIN(tst_ShapesKeyboard)
#include "tst_ShapesKeyboard.moc"
