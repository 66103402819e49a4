// SPDX-License-Identifier: MIT
#include "Core/Values/ZelGeometryType.h"

#include <QRectF>
#include <QTest>
#include <QVariant>
#include <limits>

class tst_ZelGeometryType : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void integersTakeAnyNumbers_data()
    {
        constexpr double huge = 1e300;
        constexpr double none = std::numeric_limits<double>::quiet_NaN();
        constexpr int limit = 1 << 30;
        QTest::addColumn<QList<double>>("numbers");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("point") << QList<double>{1.5, -1.5, 0, 0} << QVariant(QPoint(2, -2));
        QTest::newRow("huge point") << QList<double>{huge, -huge, 0, 0} << QVariant(QPoint(limit, -limit));
        QTest::newRow("point of nothing") << QList<double>{none, 7, 0, 0} << QVariant(QPoint(0, 7));
        QTest::newRow("huge size") << QList<double>{huge, none, 0, 0} << QVariant(QSize(limit, 0));
        QTest::newRow("huge rectangle") << QList<double>{-huge, 1, none, huge} << QVariant(QRect(-limit, 1, 0, limit));
    }

    void integersTakeAnyNumbers()
    {
        QFETCH(QList<double>, numbers);
        QFETCH(QVariant, value);
        const ZelGeometryType *type = ZelGeometryType::find(value.metaType());
        QVariant stored(value.metaType());
        type->store({numbers.at(0), numbers.at(1), numbers.at(2), numbers.at(3)}, stored.data());
        QCOMPARE(stored, value);
    }
};

QTEST_MAIN(tst_ZelGeometryType)
#include "tst_ZelGeometryType.moc"
