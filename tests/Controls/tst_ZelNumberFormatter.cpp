// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelNumberFormatter.h"

#include <QTest>
#include <cmath>
#include <limits>

class tst_ZelNumberFormatter : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void shows_data();
    void shows();
    void parses_data();
    void parses();
    void refuses_data();
    void refuses();
    void parsesWhatItShows();
    void groupsDigitsAsTheLocaleDoes_data();
    void groupsDigitsAsTheLocaleDoes();
};

namespace {

ZelNumberFormatter formatter(int minimumDigits, int maximumDigits, const QString &locale = QStringLiteral("C"))
{
    ZelNumberFormatter formatter;
    formatter.setMinimumFractionDigits(minimumDigits);
    formatter.setMaximumFractionDigits(maximumDigits);
    formatter.setLocale(QLocale(locale));
    return formatter;
}

} // namespace

void tst_ZelNumberFormatter::shows_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    const double largest = std::numeric_limits<double>::max();
    const QString c = QStringLiteral("C");

    QTest::newRow("integer") << QVariant(12) << 0 << 3 << c << "12";
    QTest::newRow("three digits") << QVariant(2.125) << 0 << 3 << c << "2.125";
    QTest::newRow("rounded up") << QVariant(2.1256) << 0 << 3 << c << "2.126";
    QTest::newRow("half to even, down") << QVariant(0.125) << 0 << 2 << c << "0.12";
    QTest::newRow("half to even, up") << QVariant(0.375) << 0 << 2 << c << "0.38";
    QTest::newRow("half of what is typed, not of its binary") << QVariant(1.015) << 0 << 2 << c << "1.02";
    QTest::newRow("half below one") << QVariant(0.5) << 0 << 0 << c << "0";
    QTest::newRow("just above half") << QVariant(0.50001) << 0 << 0 << c << "1";
    QTest::newRow("carry") << QVariant(999.9996) << 0 << 3 << c << "1000";
    QTest::newRow("far below the last digit") << QVariant(4e-9) << 0 << 3 << c << "0";
    QTest::newRow("first digit just behind") << QVariant(0.0007) << 0 << 3 << c << "0.001";
    QTest::newRow("no minus zero") << QVariant(-0.0001) << 0 << 3 << c << "0";
    QTest::newRow("negative") << QVariant(-2.5) << 0 << 3 << c << "-2.5";
    QTest::newRow("digits filled up") << QVariant(2.5) << 2 << 3 << c << "2.50";
    QTest::newRow("digits filled up behind an integer") << QVariant(7) << 1 << 3 << c << "7.0";
    QTest::newRow("no groups") << QVariant(1234567.0) << 0 << 3 << QStringLiteral("en_US") << "1234567";
    QTest::newRow("decimal comma") << QVariant(-1.5) << 0 << 3 << QStringLiteral("de_DE") << "-1,5";
    QTest::newRow("all digits of an integer") << QVariant(9007199254740993LL) << 0 << 3 << c << "9007199254740993";
    QTest::newRow("largest unsigned") << QVariant(~0ULL) << 0 << 3 << c << "18446744073709551615";
    QTest::newRow("largest double") << QVariant(largest) << 0 << 3 << c
                                    << QString(QStringLiteral("17976931348623157") + QString(292, QLatin1Char('0')));
    QTest::newRow("single precision") << QVariant(0.1F) << 0 << 3 << c << "0.1";
    QTest::newRow("absent") << QVariant() << 0 << 3 << c << QString();
    QTest::newRow("no number") << QVariant(QStringLiteral("auto")) << 0 << 3 << c << "auto";
    QTest::newRow("not a number") << QVariant(std::nan("")) << 0 << 3 << c << "NaN";
}

void tst_ZelNumberFormatter::shows()
{
    QFETCH(QVariant, value);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QCOMPARE(formatter(minimum, maximum, locale).stringForObjectValue(value), text);
}

void tst_ZelNumberFormatter::parses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QVariant>("value");
    const QString c = QStringLiteral("C");

    QTest::newRow("number") << "14.25" << c << QVariant(14.25);
    QTest::newRow("blanks") << " \t14\u00a0" << c << QVariant(14.0);
    QTest::newRow("nothing") << "" << c << QVariant();
    QTest::newRow("only blanks") << "  " << c << QVariant();
    QTest::newRow("exponent") << "1e3" << c << QVariant(1000.0);
    QTest::newRow("bare point") << ".5" << c << QVariant(0.5);
    QTest::newRow("decimal comma") << "1,5" << QStringLiteral("de_DE") << QVariant(1.5);
    QTest::newRow("true minus sign") << QString(QChar(0x2212)) + "3" << c << QVariant(-3.0);
    QTest::newRow("hyphen where the locale has a minus sign") << "-3" << QStringLiteral("sv_SE") << QVariant(-3.0);
    QTest::newRow("beyond exact doubles") << "9007199254740993" << c << QVariant(9007199254740993LL);
}

void tst_ZelNumberFormatter::parses()
{
    QFETCH(QString, text);
    QFETCH(QString, locale);
    QFETCH(QVariant, value);
    QVariant result = QStringLiteral("untouched");
    QVERIFY(formatter(0, 3, locale).objectValueForString(text, &result, nullptr));
    QCOMPARE(result, value);
    QCOMPARE(result.metaType(), value.metaType());
}

void tst_ZelNumberFormatter::refuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("locale");
    const QString c = QStringLiteral("C");
    QTest::newRow("word") << "twelve" << c;
    QTest::newRow("unit behind") << "12pt" << c;
    QTest::newRow("two numbers") << "1 2" << c;
    QTest::newRow("overflow") << "1e999" << c;
    QTest::newRow("nan") << "nan" << c;
    QTest::newRow("inf") << "-inf" << c;
    QTest::newRow("groups") << "1,234" << c;
    QTest::newRow("point that would be a group") << "1.500" << QStringLiteral("de_DE");
    QTest::newRow("sign alone") << "-" << c;
}

void tst_ZelNumberFormatter::refuses()
{
    QFETCH(QString, text);
    QFETCH(QString, locale);
    QVariant result = QStringLiteral("untouched");
    QString error;
    QVERIFY(!formatter(0, 3, locale).objectValueForString(text, &result, &error));
    QVERIFY(!error.isEmpty());
    QCOMPARE(result, QVariant(QStringLiteral("untouched")));
}

void tst_ZelNumberFormatter::groupsDigitsAsTheLocaleDoes_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("typed");
    QTest::newRow("none") << "C" << 1234567.0 << "1234567"
                          << "1234567";
    QTest::newRow("comma") << "en_US" << 1234567.25 << "1,234,567.25"
                           << "1234567.25";
    QTest::newRow("three digits") << "en_US" << -999.0 << "-999"
                                  << "-999";
    QTest::newRow("full stop") << "de_DE" << 1500.5 << "1.500,5"
                               << "1500,5";
    QTest::newRow("groups of two") << "hi_IN" << 12345678.0 << "1,23,45,678"
                                   << "1,23,45,678";
    QTest::newRow("from five digits on, short") << "es_ES" << 1234.0 << "1234"
                                                << "1234";
    QTest::newRow("from five digits on, long") << "es_ES" << 12345.0 << "12.345"
                                               << "12345";
    QTest::newRow("narrow blank") << "fr_FR" << 12345.0 << QString::fromUtf8("12\u202f345") << "12 345";
}

void tst_ZelNumberFormatter::groupsDigitsAsTheLocaleDoes()
{
    QFETCH(QString, locale);
    QFETCH(double, number);
    QFETCH(QString, text);
    QFETCH(QString, typed);
    ZelNumberFormatter grouping = formatter(0, 3, locale);
    grouping.setUsesGroupSeparator(true);
    QCOMPARE(grouping.stringForObjectValue(number), text);
    for (const QString &input : {text, typed}) {
        QVariant value;
        QVERIFY(grouping.objectValueForString(input, &value, nullptr));
        QCOMPARE(value, QVariant(number));
    }
    QVariant value;
    QString error;
    QVERIFY(!grouping.objectValueForString(QStringLiteral("1,2,3.4,5"), &value, &error));
}

void tst_ZelNumberFormatter::parsesWhatItShows()
{
    for (const char *name : {"C", "de_DE", "sv_SE", "ar_EG", "fa_IR", "fr_FR", "hi_IN"}) {
        const ZelNumberFormatter numbers = formatter(0, 308, QString::fromLatin1(name));
        for (const double value : {0.1, -1.0 / 3, 1e21, -5e-300, 123456.789, std::numeric_limits<double>::max()}) {
            QVariant result;
            const QString shown = numbers.stringForObjectValue(value);
            QVERIFY2(numbers.objectValueForString(shown, &result, nullptr), qPrintable(shown));
            // Digits behind the 308th are not shown.
            QVERIFY2(std::abs(result.toDouble() - value) <= 1e-307, qPrintable(shown));
        }
    }
}

QTEST_GUILESS_MAIN(tst_ZelNumberFormatter)
#include "tst_ZelNumberFormatter.moc"
