// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Fields/ZelComboBox.h"
#include "Controls/Fields/ZelTextField.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"

namespace {

const QStringList g_names{QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma")};

class Panel : public ControlPanel<ZelComboBox>
{
public:
    Panel() { control->setContentValues(g_names); }
    void type(const QString &keys)
    {
        control->textField()->setFocus();
        control->textField()->selectAll();
        QTest::keyClicks(control->textField(), keys);
    }
    void press(Qt::Key key) { QTest::keyClick(control->textField(), key); }
};

} // namespace

class tst_ZelComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theValueMayBeOutsideTheList_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("index");
        QTest::newRow("listed") << QVariant(QStringLiteral("Beta")) << QStringLiteral("Beta") << 1;
        QTest::newRow("other") << QVariant(QStringLiteral("beta")) << QStringLiteral("beta") << -1;
        QTest::newRow("empty") << QVariant(QStringLiteral("")) << QString() << -1;
        QTest::newRow("absent") << QVariant() << QString() << -1;
        QTest::newRow("several") << QVariant::fromValue(ZelMultipleValuesMarker) << QString() << -1;
    }
    void theValueMayBeOutsideTheList()
    {
        QFETCH(QVariant, value);
        Panel panel;
        panel.control->setObjectValue(QStringLiteral("Gamma"));
        panel.control->setObjectValue(value);
        QTEST(panel.control->currentText(), "text");
        QTEST(panel.control->currentIndex(), "index");
        ZelSetValueForKey(panel.control, QVariantList{QStringLiteral("Delta")}, "contentValues");
        QCOMPARE(ZelValueForKey(panel.control, "contentValues"), QVariant(QStringList(QStringLiteral("Delta"))));
        panel.control->setContentValues(g_names);
        QTEST(panel.control->currentText(), "text");
        QTEST(panel.control->currentIndex(), "index");
        QVERIFY(ZelEqual(panel.control->objectValue(), value));
        QCOMPARE(panel.takeLog(), QStringList());
    }

    void typingIsCompletedFromTheList()
    {
        Panel panel;
        panel.type(QStringLiteral("ga"));
        QCOMPARE(panel.control->currentText().toLower(), QStringLiteral("gamma"));
        QCOMPARE(panel.takeLog(), QStringList());
        panel.press(Qt::Key_Return);
        QCOMPARE(panel.control->objectValue(), QVariant(QStringLiteral("Gamma")));
        QCOMPARE(panel.takeLog(), Panel::edits(1));
        panel.type(QStringLiteral("Own"));
        panel.other->setFocus();
        QCOMPARE(panel.control->objectValue(), QVariant(QStringLiteral("Own")));
        QCOMPARE(panel.takeLog(), Panel::edits(1));
    }

    void choicesFromTheListAreReported()
    {
        Panel panel;
        panel.control->setObjectValue(QStringLiteral("Alpha"));
        panel.control->textField()->setFocus();
        panel.press(Qt::Key_Down);
        QCOMPARE(panel.control->objectValue(), QVariant(QStringLiteral("Beta")));
        QCOMPARE(panel.takeLog(), Panel::edits(1));
        panel.control->setValueEditable(false);
        panel.press(Qt::Key_Down);
        panel.control->showPopup();
        QVERIFY(!panel.control->view()->isVisible());
        QCOMPARE(panel.takeLog(), QStringList());
        QVERIFY(panel.control->lineEdit());
    }

    void typingOutlivesChangesOfTheList()
    {
        Panel panel;
        panel.control->setObjectValue(QStringLiteral("Beta"));
        panel.type(QStringLiteral("xy"));
        panel.control->setContentValues({QStringLiteral("Delta"), QStringLiteral("Xylo")});
        QCOMPARE(panel.control->currentText(), QStringLiteral("xy"));
        panel.press(Qt::Key_Escape);
        QCOMPARE(panel.control->currentText(), QStringLiteral("Beta"));
    }
};

QTEST_MAIN(tst_ZelComboBox)
#include "tst_ZelComboBox.moc"
