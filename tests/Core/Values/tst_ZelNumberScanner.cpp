// SPDX-License-Identifier: MIT
#include "Core/Values/private/ZelNumberScanner.h"

#include <QLocale>
#include <QTest>

#include <clocale>
#include <limits>

class tst_ZelNumberScanner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void integers_data();
    void integers();
    void hexadecimals();
    void reals_data();
    void reals();
};

void tst_ZelNumberScanner::integers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("expected");
    constexpr qint64 largest = std::numeric_limits<qint64>::max();
    constexpr qint64 smallest = std::numeric_limits<qint64>::min();
    const auto row = [](const char *text, qint64 expected) {
        QTest::newRow(text) << QString::fromUtf8(text) << expected;
    };
    row("12abc", 12);
    row("abc", 0);
    row("", 0);
    row("-", 0);
    row("- 5", 0);
    row("  -42", -42);
    row("+7", 7);
    row("1.9", 1);
    row("0x10", 0);
    row("\u0663\u0664", 0); // digits of another script
    row("9223372036854775807", largest);
    row("9223372036854775808", largest);
    row("-9223372036854775808", smallest);
    row("-9223372036854775809", smallest);
    row("99999999999999999999999999999999999", largest);
    row("-99999999999999999999999999999999999", smallest);
}

void tst_ZelNumberScanner::integers()
{
    QFETCH(QString, text);
    QTEST(ZelNumberScanner::integer(text), "expected");
}

void tst_ZelNumberScanner::hexadecimals()
{
    using Number = std::optional<quint64>;
    constexpr Number largest = std::numeric_limits<quint64>::max();
    QCOMPARE(ZelNumberScanner::hexadecimal(u"0x1F"), Number(31));
    QCOMPARE(ZelNumberScanner::hexadecimal(u"0X1f"), Number(31));
    QCOMPARE(ZelNumberScanner::hexadecimal(u" ff"), Number(255));
    QCOMPARE(ZelNumberScanner::hexadecimal(u"0x12g3"), Number(0x12));
    QCOMPARE(ZelNumberScanner::hexadecimal(u"0xFFFFFFFFFFFFFFFF"), largest);
    QCOMPARE(ZelNumberScanner::hexadecimal(u"0x10000000000000000"), largest);
    for (const QString &none : {QStringLiteral("0x"), QStringLiteral("zz"), QStringLiteral("-1"), QString()})
        QVERIFY(!ZelNumberScanner::hexadecimal(none));
}

void tst_ZelNumberScanner::reals_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    constexpr double largest = std::numeric_limits<double>::max();
    const auto row = [](const char *text, double expected) {
        QTest::newRow(text) << QString::fromUtf8(text) << expected;
    };
    row(" 0.5", 0.5);
    row("-1.25e2x", -125);
    row(".5", 0.5);
    row("5.", 5);
    row("1,5", 1);
    row("1e", 1);
    row("1e+", 1);
    row("1.2.3", 1.2);
    row(".", 0);
    row("-", 0);
    row("", 0);
    row("nan", 0);
    row("inf", 0);
    row("0x10", 0);
    row("1e999999999999999999", largest);
    row("-1e400", -largest);
    row("1e-400", 0);
    QTest::newRow("a long number") << QString(1'000'000, u'9') << largest;
    QTest::newRow("a long fraction") << QString(u"0." + QString(1'000'000, u'3')) << 1.0 / 3.0;
}

void tst_ZelNumberScanner::reals()
{
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    QLocale::setDefault(QLocale(QLocale::German));
    QFETCH(QString, text);
    QFETCH(double, expected);
    QVERIFY2(ZelNumberScanner::real(text) == expected,
             qPrintable(QString::number(ZelNumberScanner::real(text), 'g', 17)));
}

QTEST_APPLESS_MAIN(tst_ZelNumberScanner)
#include "tst_ZelNumberScanner.moc"
