// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelColorMatrix.h"
#include "Inspector/Properties/ZelOriginSelectionView.h"
#include "Platform/Controls/ZelSegmentedControl.h"
#include "TabBar/ZelButtonMatrix.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

namespace {

using Make = QWidget *(*)();

QWidget *madeSegments(bool selectsAny)
{
    auto *control = new ZelSegmentedControl;
    control->setSegmentCount(3);
    for (int i = 0; i < 3; ++i)
        control->setSegmentToolTip(i, QStringLiteral("Segment %1").arg(i));
    control->setSelectsAny(selectsAny);
    return control;
}

QWidget *madeMatrix()
{
    auto *matrix = new ZelButtonMatrix;
    matrix->prototype().toolTip = QStringLiteral("Tab");
    matrix->renewColumns(3);
    return matrix;
}

QWidget *madeColors()
{
    auto *matrix = new ZelColorMatrix;
    matrix->setColors({QColor(Qt::red), QColor(1, 2, 3)});
    return matrix;
}

} // namespace

/// Widgets that draw a row of cells show each to people who cannot see them.
class tst_CellGroups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cellsAreNamedAndCanBeClicked_data()
    {
        QTest::addColumn<Make>("make");
        QTest::addColumn<QAccessible::Role>("role");
        QTest::addColumn<QByteArray>("tells");
        QTest::newRow("one segment") << Make([] { return madeSegments(false); }) << QAccessible::RadioButton
                                     << QByteArray(SIGNAL(action()));
        QTest::newRow("any segments") << Make([] { return madeSegments(true); }) << QAccessible::CheckBox
                                      << QByteArray(SIGNAL(action()));
        QTest::newRow("tabs") << Make(madeMatrix) << QAccessible::PageTab << QByteArray(SIGNAL(triggered()));
        QTest::newRow("colors") << Make(madeColors) << QAccessible::Button << QByteArray(SIGNAL(cellChosen(int)));
        QTest::newRow("anchors") << Make([]() -> QWidget * { return new ZelOriginSelectionView; })
                                 << QAccessible::RadioButton << QByteArray(SIGNAL(anchorChanged()));
    }
    void cellsAreNamedAndCanBeClicked()
    {
        QFETCH(Make, make);
        QFETCH(QAccessible::Role, role);
        QFETCH(QByteArray, tells);
        const std::unique_ptr<QWidget> widget(make());
        widget->resize(widget->sizeHint());
        widget->show();
        QAccessibleInterface *group = QAccessible::queryAccessibleInterface(widget.get());
        QVERIFY(group->childCount() >= 3);
        for (int i = 0; i < group->childCount(); ++i) {
            QAccessibleInterface *cell = group->child(i);
            QCOMPARE(cell->role(), role);
            QVERIFY(!cell->text(QAccessible::Name).isEmpty());
            QCOMPARE(group->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
        }
        QAccessibleInterface *second = group->child(1);
        const QSignalSpy clicks(widget.get(), tells.constData());
        second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicks.count(), 1);
        QVERIFY(second->state().checked || second->state().selected || role == QAccessible::Button);
        widget->setEnabled(false);
        QVERIFY(second->state().disabled);
        group->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicks.count(), 1);
    }
};

QTEST_MAIN(tst_CellGroups)
#include "tst_CellGroups.moc"
