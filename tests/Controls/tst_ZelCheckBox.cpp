// SPDX-License-Identifier: MIT
#include "Controls/ZelCheckBox.h"
#include "Controls/ZelLabel.h"
#include "Core/Values/ZelValues.h"

#include "ControlPanel.h"

#include <QSignalSpy>
#include <QStyleOptionButton>

namespace {

using Panel = ControlPanel<ZelCheckBox>;

void click(ZelCheckBox *box)
{
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
}

} // namespace

class tst_ZelCheckBox : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void showsValues_data();
    void showsValues();
    void clicksNeverLeadToMixed();
    void notEditableRefusesClicksAndKeys();
    void mayDieWhenItReports();
    void titleGivesWay();
    void labelGivesWay();
};

void tst_ZelCheckBox::showsValues_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<Qt::CheckState>("state");
    QTest::newRow("absent") << QVariant() << Qt::Unchecked;
    QTest::newRow("null") << ZelNull() << Qt::Unchecked;
    QTest::newRow("no selection") << QVariant::fromValue(ZelNoSelectionMarker) << Qt::Unchecked;
    QTest::newRow("not applicable") << QVariant::fromValue(ZelNotApplicableMarker) << Qt::Unchecked;
    QTest::newRow("several") << QVariant::fromValue(ZelMultipleValuesMarker) << Qt::PartiallyChecked;
    QTest::newRow("number") << QVariant(4) << Qt::Checked;
    QTest::newRow("false") << QVariant(false) << Qt::Unchecked;
}

void tst_ZelCheckBox::showsValues()
{
    QFETCH(QVariant, value);
    QFETCH(Qt::CheckState, state);
    ZelCheckBox box;
    const QSignalSpy edited(&box, &ZelCheckBox::valueEdited);
    for (const bool before : {true, false}) {
        box.setObjectValue(before);
        box.setObjectValue(value);
        QCOMPARE(box.checkState(), state);
        QCOMPARE(box.objectValue(), value);
    }
    box.setCheckState(state == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    QCOMPARE(box.objectValue(), QVariant(state != Qt::Checked));
    QCOMPARE(edited.count(), 0);
}

void tst_ZelCheckBox::clicksNeverLeadToMixed()
{
    Panel panel(QStringLiteral("Title"));
    panel.control->setObjectValue(QVariant::fromValue(ZelMultipleValuesMarker));
    const QSignalSpy changed(panel.control, &ZelCheckBox::objectValueChanged);
    click(panel.control);
    QCOMPARE(panel.control->objectValue(), QVariant(true));
    click(panel.control);
    QCOMPARE(panel.control->objectValue(), QVariant(false));
    QTest::keyClick(panel.control, Qt::Key_Space);
    QCOMPARE(panel.control->objectValue(), QVariant(true));
    QCOMPARE(changed.count(), 3);
    QCOMPARE(panel.takeLog(), Panel::edits(3));
    QCOMPARE(panel.undo.stack()->count(), 3);
}

void tst_ZelCheckBox::notEditableRefusesClicksAndKeys()
{
    Panel panel(QStringLiteral("Title"));
    panel.control->setEditable(false);
    panel.control->setFocus();
    click(panel.control);
    QTest::keyClick(panel.control, Qt::Key_Space);
    panel.control->click();
    QCOMPARE(panel.log, QStringList());
    QCOMPARE(panel.control->checkState(), Qt::Unchecked);
    QVERIFY(panel.control->isEnabled());
    panel.control->setEditable(true);
    QTest::keyClick(panel.control, Qt::Key_Space);
    QCOMPARE(panel.log, Panel::edits(1));
}

void tst_ZelCheckBox::mayDieWhenItReports()
{
    Panel panel(QStringLiteral("Title"));
    panel.whenEdited = [&panel] { delete panel.control; };
    QTest::mousePress(panel.control, Qt::LeftButton, {}, QPoint(8, panel.control->height() / 2));
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(8, 8), panel.control->mapToGlobal(QPointF(8, 8)),
                        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(panel.control, &release);
    QVERIFY(!panel.control);
}

void tst_ZelCheckBox::titleGivesWay()
{
    ZelCheckBox box(QStringLiteral("A long title of a check box"));
    const QSize whole = box.sizeHint();
    QVERIFY(box.minimumSizeHint().width() < whole.width() / 2);
    box.setText(QStringLiteral("Short"));
    QVERIFY(box.sizeHint().width() < whole.width());

    // An elided title paints like a title that ends in an ellipsis.
    ZelCheckBox elided(QStringLiteral("WWWWWWWW"));
    elided.resize(elided.sizeHint() - QSize(2 * box.fontMetrics().horizontalAdvance(QLatin1Char('W')), 0));
    ZelCheckBox cut(QStringLiteral("WWWWW\u2026"));
    cut.resize(elided.size());
    QCOMPARE(elided.grab().toImage(), cut.grab().toImage());
}

void tst_ZelCheckBox::labelGivesWay()
{
    ZelLabel label(QStringLiteral("WWWWWWWW"));
    const QSize whole = label.sizeHint();
    QVERIFY(label.minimumSizeHint().width() < whole.width() / 2);
    label.resize(whole);
    ZelLabel same(QStringLiteral("WWWWWWWW"));
    same.resize(whole);
    QCOMPARE(label.grab().toImage(), same.grab().toImage());
    label.resize(whole.width() - 2 * label.fontMetrics().horizontalAdvance(QLatin1Char('W')), whole.height());
    ZelLabel cut(QStringLiteral("WWWWW\u2026"));
    cut.resize(label.size());
    QCOMPARE(label.grab().toImage(), cut.grab().toImage());
    label.setText(QStringLiteral("W"));
    QVERIFY(label.sizeHint().width() < whole.width());
}

QTEST_MAIN(tst_ZelCheckBox)
#include "tst_ZelCheckBox.moc"
