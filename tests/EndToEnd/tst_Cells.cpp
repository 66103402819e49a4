// SPDX-License-Identifier: MIT
#include "Blocks/ZelNamedTransformers.h"
#include "ColorPopUpButton/ZelColorMatrix.h"
#include "Controls/Cells/ZelSegmentedControl.h"
#include "Inspector/Properties/ZelOriginSelectionView.h"
#include "Support/TableRow.h"
#include "Support/User.h"
#include "TabBar/ZelButtonMatrix.h"

namespace {
QList<int> g_clicked;
std::function<void()> g_whenClicked;

void note(int cell)
{
    g_clicked.append(cell);
    if (const auto react = g_whenClicked)
        react();
}

class AnchorLog : public ZelOriginSelectionViewDelegate
{
public:
    void originSelectionViewDidSelectAnchor(ZelOriginSelectionView *, ZelRectAnchor anchor) override
    {
        note(int(anchor));
    }
};

/// Four segments, of which the second one is not enabled.
template<bool selectsAny> QWidget *madeSegments()
{
    auto *control = new ZelSegmentedControl;
    control->setSegmentCount(4);
    for (int i = 0; i < 4; ++i)
        control->setSegmentToolTip(i, QString("Cell %1").arg(i));
    control->setSegmentEnabled(1, false);
    control->setSelectsAny(selectsAny);
    QObject::connect(control, &ZelSegmentedControl::action, control,
                     [control] { note(int(control->clickedSegment())); });
    return control;
}

/// The same with tabs.
QWidget *madeTabs()
{
    auto *matrix = new ZelButtonMatrix;
    matrix->renewColumns(4);
    for (int i = 0; i < 4; ++i) {
        ZelTabBarButtonCell cell;
        cell.toolTip = QString("Cell %1").arg(i);
        cell.enabled = i != 1;
        matrix->setCellAtColumn(i, cell);
    }
    QObject::connect(matrix, &ZelButtonMatrix::triggered, matrix, [matrix] { note(matrix->selectedColumn()); });
    return matrix;
}

QWidget *madeColors()
{
    auto *matrix = new ZelColorMatrix;
    matrix->setColors(QList<ZelColor>(3, QColor(Qt::red)));
    QObject::connect(matrix, &ZelColorMatrix::cellChosen, matrix, &note);
    return matrix;
}

QWidget *madeAnchors()
{
    static AnchorLog log;
    auto *view = new ZelOriginSelectionView;
    view->setDelegate(&log);
    return view;
}

/// Has the keyboard begin at a cell; -1 for none.
void begin(QWidget *widget, int cell)
{
    if (auto *matrix = qobject_cast<ZelButtonMatrix *>(widget))
        matrix->selectCellAtColumn(cell);
    else if (auto *colors = qobject_cast<ZelColorMatrix *>(widget))
        colors->setHighlightedCell(cell);
    else if (auto *anchors = qobject_cast<ZelOriginSelectionView *>(widget))
        anchors->setAnchor(ZelRectAnchor(cell));
    else if (auto *segments = qobject_cast<ZelSegmentedControl *>(widget); !segments->selectsAny())
        segments->setSelectedIndex(cell < 0 ? QVariant() : cell);
}

struct Kind
{
    const char *name;
    QWidget *(*make)();
    ZelCellGroup::Manner manner;
    QAccessible::Role group, cell;
    const char *toolTip;
};

const Kind g_kinds[] = {
    {"segments", madeSegments<false>, ZelCellGroup::Buttons, QAccessible::Grouping, QAccessible::RadioButton, "Cell 2"},
    {"boxes", madeSegments<true>, ZelCellGroup::Buttons, QAccessible::Grouping, QAccessible::CheckBox, "Cell 2"},
    {"tabs", madeTabs, ZelCellGroup::Tabs, QAccessible::PageTabList, QAccessible::PageTab, "Cell 2"},
    {"colors", madeColors, ZelCellGroup::Menu, QAccessible::ColorChooser, QAccessible::Button, "Red"},
    {"anchors", madeAnchors, ZelCellGroup::Tabs, QAccessible::Grouping, QAccessible::RadioButton, ""},
};

/// A widget in a shown, active window, with the first cell as the current one.
class Cells
{
public:
    explicit Cells(const Kind &kind)
        : widget(kind.make())
        , group(qobject_cast<ZelCellGroup *>(widget))
        , spoken(QAccessible::queryAccessibleInterface(widget))
    {
        widget->resize(widget->sizeHint());
        widget->setParent(&window);
        User::open(&window);
        window.setFocusPolicy(Qt::StrongFocus);
        window.setFocus();
        begin(widget, 0);
        g_clicked.clear();
        g_whenClicked = nullptr;
    }

    QPoint centre(int cell) const { return group->cellRect(cell).center(); }
    bool sends(QEvent &&event) const { return QCoreApplication::sendEvent(widget, &event) && event.isAccepted(); }
    bool sendsMouse(QEvent::Type type, int cell, Qt::MouseButton button = Qt::LeftButton) const
    {
        const QPointF place = centre(cell);
        const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
        return sends(QMouseEvent(type, place, widget->mapToGlobal(place), button, buttons, {}));
    }
    bool press(int cell, Qt::MouseButton button = Qt::LeftButton) const
    {
        return sendsMouse(QEvent::MouseButtonPress, cell, button);
    }
    void moveTo(int cell) const { sendsMouse(QEvent::MouseMove, cell); }
    void release(int cell, Qt::MouseButton button = Qt::LeftButton) const
    {
        sendsMouse(QEvent::MouseButtonRelease, cell, button);
    }
    void click(int cell, Qt::MouseButton button = Qt::LeftButton) const
    {
        press(cell, button);
        release(cell, button);
    }
    bool takesKey(int key) const { return sends(QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier)); }
    void clickSpoken(int cell) const
    {
        spoken->child(cell)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    QImage look() const { return widget->grab().toImage(); }

    QWidget window;
    QPointer<QWidget> widget;
    ZelCellGroup *group;
    QAccessibleInterface *spoken;
};
} // namespace

/// What all widgets do alike whose parts are cells. Cell 1 is not enabled where a cell can be so.
class tst_Cells : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { ZelRegisterTransformers(); }

    void theMouseClicks()
    {
        for (const Kind &kind : g_kinds) {
            const TableRow inRow(kind.name);
            const Cells cells(kind);
            const auto clicked = [] { return std::exchange(g_clicked, {}); };
            cells.release(2); // of another press
            cells.click(2, Qt::RightButton);
            QCOMPARE(clicked(), QList<int>());
            cells.press(2);
            QCOMPARE(g_clicked.size(), kind.manner == ZelCellGroup::Tabs ? 1 : 0);
            cells.release(2);
            QCOMPARE(clicked(), QList<int>{2});
            QCOMPARE(cells.group->currentCell(), 2);
            cells.press(2);
            cells.moveTo(3);
            cells.release(3);
            const QList<int> dragged[] = {{2}, {}, {3}}; // at once, nowhere, and where it ended
            QCOMPARE(clicked(), dragged[kind.manner]);
            cells.press(3);
            cells.moveTo(2);
            cells.moveTo(3);
            cells.release(3);
            QCOMPARE(clicked(), QList<int>{3});
            cells.click(1);
            QCOMPARE(clicked(), cells.group->isCellEnabled(1) ? QList<int>{1} : QList<int>());
            cells.widget->setEnabled(false);
            cells.click(0);
            QCOMPARE(clicked(), QList<int>());
        }
    }

    void aPressEndsWithoutARelease()
    {
        for (const Kind &kind : g_kinds) {
            for (int way = 0; way < 3; ++way) {
                const TableRow inRow(kind.name);
                const bool isMenu = kind.manner == ZelCellGroup::Menu;
                const Cells cells(kind);
                if (kind.manner == ZelCellGroup::Tabs) // which are selected by the press
                    begin(cells.widget, 2);
                const QImage look = cells.look();
                cells.press(2);
                const bool isSeen = cells.look() != look;
                cells.moveTo(3);
                if (kind.manner == ZelCellGroup::Buttons) // nothing would be clicked there
                    QVERIFY(isSeen && cells.look() == look);
                cells.moveTo(2);
                QVERIFY(isMenu || (cells.look() != look) == isSeen);
                cells.widget->setVisible(way != 0);
                cells.widget->setEnabled(way != 1);
                if (way == 2)
                    cells.sends(QEvent(QEvent::WindowDeactivate));
                cells.widget->setEnabled(true);
                cells.widget->show();
                QVERIFY(isMenu || cells.look() == look);
                g_clicked.clear();
                cells.release(2);
                QCOMPARE(g_clicked, QList<int>());
            }
        }
    }

    void keysAndTheFocus()
    {
        struct Row
        {
            int kind, from, key, to, toMirrored; // -2: passed on to the parent
        };
        constexpr int left = Qt::Key_Left, right = Qt::Key_Right, up = Qt::Key_Up, down = Qt::Key_Down;
        constexpr int home = Qt::Key_Home, end = Qt::Key_End, space = Qt::Key_Space, letter = Qt::Key_A;
        const Row rows[] = {
            {0, 0, right, 2, 0},   {0, 0, left, 0, 2},     {0, 3, right, 3, 2},    {0, -1, right, 0, 3},
            {0, 0, up, -2, -2},    {0, 2, home, -2, -2},   {0, 2, space, -2, -2},  {1, 0, right, 2, 0},
            {1, 0, left, 0, 2},    {2, 0, right, 2, 0},    {2, 2, left, 0, 3},     {2, 2, home, 0, 0},
            {2, 2, end, 3, 3},     {2, 2, down, -2, -2},   {3, 10, right, 11, 9},  {3, 11, right, 11, 10},
            {3, 12, left, 12, 13}, {3, 10, down, 22, 22},  {3, 22, up, 10, 10},    {3, 22, down, -2, -2},
            {3, 10, up, -2, -2},   {3, -1, right, -2, -2}, {4, 4, up, 1, 1},       {4, 1, up, 1, 1},
            {4, 4, right, 5, 5},   {4, 5, right, 5, 5},    {4, 99, right, -2, -2}, {4, 4, letter, -2, -2}};
        for (const Row &row : rows) {
            for (const bool isMirrored : {false, true}) {
                const Kind &kind = g_kinds[row.kind];
                const TableRow inRow(QString("%1, %2, %3").arg(kind.name).arg(row.from).arg(row.key));
                const bool chooses = kind.cell == QAccessible::RadioButton || kind.cell == QAccessible::PageTab;
                const Cells cells(kind);
                cells.widget->setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
                QVERIFY(!cells.spoken->focusChild());
                cells.widget->setFocus(Qt::TabFocusReason);
                begin(cells.widget, row.from);
                const int to = isMirrored ? row.toMirrored : row.to;
                const int expected = to < 0 ? cells.group->currentCell() : to;
                QCOMPARE(cells.takesKey(row.key), to >= 0);
                QCOMPARE(cells.group->currentCell(), expected);
                QCOMPARE(g_clicked, chooses && to >= 0 && to != row.from ? QList<int>{to} : QList<int>());
                QAccessibleInterface *focused = cells.spoken->focusChild();
                QCOMPARE(focused, expected < 0 ? nullptr : cells.spoken->child(expected));
                QVERIFY(!focused || focused->state().focused);
                cells.widget->setEnabled(false);
                QVERIFY(!cells.takesKey(row.key));
            }
        }
    }

    void whatArrowsOnlyLeadToIsClickedByKeys()
    {
        for (const Kind &kind : {g_kinds[1], g_kinds[3]}) {
            const bool isMenu = kind.manner == ZelCellGroup::Menu;
            const Cells cells(kind);
            QVERIFY(cells.takesKey(Qt::Key_Right));
            const int cell = cells.group->currentCell();
            QVERIFY(cells.takesKey(Qt::Key_Space) && cells.group->isCellSelected(cell));
            QCOMPARE(cells.takesKey(Qt::Key_Return), isMenu);
            QCOMPARE(g_clicked, QList<int>(isMenu ? 2 : 1, cell));
            if (isMenu)
                continue;
            cells.press(2);
            cells.widget->setProperty("editable", false); // in the middle
            cells.release(2);
            QVERIFY(!cells.takesKey(Qt::Key_Right) && !cells.press(2) && g_clicked.size() == 1);
            QVERIFY(cells.spoken->child(2)->state().disabled);
        }
    }

    void inAMenuTheCurrentCellIsThePointers()
    {
        const Cells cells(g_kinds[3]);
        cells.moveTo(5);
        QCOMPARE(cells.group->currentCell(), 5);
        QVERIFY(cells.press(6, Qt::RightButton)); // the menu would choose
        const auto after = [&cells](QEvent &&event) {
            cells.sends(std::move(event));
            return cells.group->currentCell();
        };
        QCOMPARE(after(QEvent(QEvent::Leave)), -1);
        QCOMPARE(after(QFocusEvent(QEvent::FocusIn, Qt::MouseFocusReason)), -1);
        QCOMPARE(after(QFocusEvent(QEvent::FocusIn, Qt::TabFocusReason)), 0);
        QCOMPARE(after(QFocusEvent(QEvent::FocusOut, Qt::TabFocusReason)), -1);
    }

    void assistiveTechnologySeesAndClicksCells()
    {
        for (const Kind &kind : g_kinds) {
            const TableRow inRow(kind.name);
            const Cells cells(kind);
            QCOMPARE(cells.spoken->role(), kind.group);
            QCOMPARE(cells.spoken->childCount(), cells.group->cellCount());
            for (int i = 0; i < cells.spoken->childCount(); ++i) {
                QAccessibleInterface *cell = cells.spoken->child(i);
                QCOMPARE(cell->role(), kind.cell);
                QVERIFY(!cell->text(QAccessible::Name).isEmpty());
                QCOMPARE(cells.spoken->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
                QCOMPARE(cells.spoken->indexOfChild(cell), i);
                QCOMPARE(bool(cell->state().disabled), !cells.group->isCellEnabled(i));
            }
            cells.clickSpoken(2);
            if (!cells.group->isCellEnabled(1))
                cells.clickSpoken(1);
            const QAccessible::State state = cells.spoken->child(2)->state();
            const bool isTab = kind.cell == QAccessible::PageTab;
            QCOMPARE(bool(state.checked), !isTab && kind.manner != ZelCellGroup::Menu);
            QCOMPARE(bool(state.selected), isTab);
            cells.widget->setEnabled(false);
            cells.clickSpoken(3);
            QCOMPARE(g_clicked, QList<int>{2});
            cells.widget->setEnabled(true);
            QToolTip::hideText();
            QTRY_VERIFY(!QToolTip::isVisible());
            cells.sends(QHelpEvent(QEvent::ToolTip, cells.centre(2), cells.widget->mapToGlobal(cells.centre(2))));
            QCOMPARE(QToolTip::text(), kind.toolTip);
        }
        const Cells cells(g_kinds[0]);
        QAccessibleInterface *last = cells.spoken->child(3);
        static_cast<ZelSegmentedControl *>(cells.widget.data())->setSegmentCount(2);
        QVERIFY(!last->isValid() && last->state().invalid); // as it is gone
        QVERIFY(last->text(QAccessible::Name).isEmpty());
    }

    void widgetsMayDieOfAClick()
    {
        for (const Kind &kind : g_kinds) {
            for (int way = 0; way < 3; ++way) {
                const TableRow inRow(kind.name);
                const Cells cells(kind);
                g_whenClicked = [&cells] { delete cells.widget; };
                if (way == 0 && cells.press(2) && cells.widget)
                    cells.release(2);
                else if (way == 1 && cells.takesKey(Qt::Key_Right) && cells.widget)
                    cells.takesKey(Qt::Key_Space);
                else if (way == 2)
                    cells.clickSpoken(2);
                QVERIFY(!cells.widget);
            }
        }
    }
};
QTEST_MAIN(tst_Cells)
#include "tst_Cells.moc"
