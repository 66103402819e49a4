// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Fields/ZelDatePicker.h"
#include "Core/Values/ZelValues.h"

#include <QTimeZone>

namespace {
using Panel = ControlPanel<ZelDatePicker>;
}

class tst_ZelDatePicker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    void aDateIsShownWithItsWholeYear()
    {
        ZelDatePicker picker;
        picker.setObjectValue(QDate(2024, 2, 3));
        QCOMPARE(picker.text(), QStringLiteral("03.02.2024"));
        picker.setObjectValue(QDateTime(QDate(1024, 2, 3), QTime(14, 5)));
        QCOMPARE(picker.text(), QStringLiteral("03.02.1024 14:05"));
    }

    void typingBeginsWithTodayWhereThereIsNoDate()
    {
        for (const QVariant &value : {QVariant(), QVariant(QDate()), QVariant(QStringLiteral("x")),
                                      QVariant::fromValue(ZelMultipleValuesMarker)}) {
            Panel panel;
            panel.control->setObjectValue(QDate(2024, 2, 3));
            panel.control->setObjectValue(value);
            const bool isMarker = ZelIsControllerMarker(value);
            QCOMPARE(panel.control->text(), isMarker ? QStringLiteral("Multiple Values") : QStringLiteral("\u2013"));
            panel.control->setFocus();
            QTest::keyClicks(panel.control, QStringLiteral("5"));
            QTest::keyClick(panel.control, Qt::Key_Return);
            const QDate today = QDate::currentDate();
            QCOMPARE(panel.control->objectValue(), QVariant(QDate(today.year(), today.month(), 5)));
        }
    }

    void theWholeTextIsDeletedForNoDate()
    {
        Panel panel;
        const QVariant day(QDate(2024, 2, 3));
        panel.control->setObjectValue(day);
        panel.control->setFocus();
        const auto deleteAll = [&panel](Qt::Key key) {
            QTest::keyClick(panel.control, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(panel.control, key);
        };
        deleteAll(Qt::Key_Delete);
        QVERIFY(panel.control->isEditing());
        QCOMPARE(panel.control->text(), QStringLiteral("\u2013"));
        QTest::keyClick(panel.control, Qt::Key_Escape);
        QCOMPARE(panel.control->text(), QStringLiteral("03.02.2024"));
        deleteAll(Qt::Key_Backspace);
        QTest::keyClick(panel.control, Qt::Key_5); // another one after all
        QTest::keyClick(panel.control, Qt::Key_Return);
        QCOMPARE(panel.control->objectValue().toDate().day(), 5);
        deleteAll(Qt::Key_Delete);
        panel.other->setFocus();
        QVERIFY(!panel.control->objectValue().isValid());
        QCOMPARE(panel.takeLog(), Panel::edits(2));
        panel.control->setFocus();
        deleteAll(Qt::Key_Delete); // nothing is left to delete
        panel.other->setFocus();
        QCOMPARE(panel.takeLog(), QStringList());
        panel.control->setObjectValue(QVariant::fromValue(ZelMultipleValuesMarker));
        panel.control->setFocus();
        deleteAll(Qt::Key_Delete);
        QTest::keyClick(panel.control, Qt::Key_Return);
        QVERIFY(!panel.control->objectValue().isValid());
        panel.control->setObjectValue(day);
        panel.control->setEditable(false);
        deleteAll(Qt::Key_Delete);
        QCOMPARE(panel.control->text(), QStringLiteral("03.02.2024"));
    }

    void stepsAreCommittedAtOnce()
    {
        Panel panel;
        panel.control->setObjectValue(QDate(2024, 2, 3));
        panel.control->setFocus();
        panel.control->setSelectedSection(QDateTimeEdit::MonthSection);
        QTest::keyClick(panel.control, Qt::Key_Up);
        QTest::keyClick(panel.control, Qt::Key_Up);
        QCOMPARE(panel.control->objectValue(), QVariant(QDate(2024, 4, 3)));
        QCOMPARE(panel.takeLog(), Panel::edits(2));
        QCOMPARE(panel.level, 1);
        panel.control->setEditable(false);
        QTest::keyClick(panel.control, Qt::Key_Up);
        panel.other->setFocus();
        panel.wheel(120);
        QCOMPARE(panel.takeLog(), QStringList());
    }

    void whatIsNotShownIsKept()
    {
        Panel panel;
        const QDateTime time(QDate(2024, 2, 3), QTime(10, 20, 30, 40), QTimeZone("Asia/Tokyo"));
        panel.control->setObjectValue(time);
        panel.control->setSelectedSection(QDateTimeEdit::MinuteSection);
        panel.control->stepBy(1);
        const QDateTime result = panel.control->objectValue().toDateTime();
        QCOMPARE(result.timeZone(), time.timeZone());
        QCOMPARE(result, time.addSecs(60));
    }
};

QTEST_MAIN(tst_ZelDatePicker)
#include "tst_ZelDatePicker.moc"
