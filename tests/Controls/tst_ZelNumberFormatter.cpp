// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelNumberFormatter.h"

#include <QTest>
#include <cmath>
#include <limits>

namespace {

constexpr double g_largest = std::numeric_limits<double>::max();

ZelNumberFormatter formatter(const char *locale, int minimumDigits = 0, int maximumDigits = 3)
{
    ZelNumberFormatter formatter;
    formatter.setMinimumFractionDigits(minimumDigits);
    formatter.setMaximumFractionDigits(maximumDigits);
    formatter.setLocale(QLocale(QString::fromLatin1(locale)));
    return formatter;
}

/// The value of the text, with "untouched" where it is refused.
QVariant parsed(const ZelNumberFormatter &numbers, const QString &text, QString *error = nullptr)
{
    QVariant value = "untouched";
    const bool isValue = numbers.objectValueForString(text, &value, error);
    return isValue == (value == "untouched") ? QVariant("wrong result") : value;
}

} // namespace

class tst_ZelNumberFormatter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shows()
    {
        struct Row
        {
            QVariant value;
            int minimum, maximum;
            QString text;
            const char *locale = "C";
        };
        const Row rows[] = {
            {12, 0, 3, "12"},
            {2.125, 0, 3, "2.125"},
            {2.1256, 0, 3, "2.126"},
            {0.125, 0, 2, "0.12"}, // half to even
            {0.375, 0, 2, "0.38"},
            {1.015, 0, 2, "1.02"}, // half of what is typed, not of its binary
            {0.5, 0, 0, "0"},
            {0.50001, 0, 0, "1"},
            {999.9996, 0, 3, "1000"},
            {4e-9, 0, 3, "0"},
            {0.0007, 0, 3, "0.001"},
            {-0.0001, 0, 3, "0"},
            {-2.5, 0, 3, "-2.5"},
            {2.5, 2, 3, "2.50"},
            {7, 1, 3, "7.0"},
            {1234567.0, 0, 3, "1234567", "en_US"},
            {-1.5, 0, 3, "-1,5", "de_DE"},
            {9007199254740993LL, 0, 3, "9007199254740993"},
            {~0ULL, 0, 3, "18446744073709551615"},
            {g_largest, 0, 3, "17976931348623157" + QString(292, '0')},
            {0.1F, 0, 3, "0.1"},
            {{}, 0, 3, ""},
            {"auto", 0, 3, "auto"},
            {std::nan(""), 0, 3, "NaN"},
        };
        for (const Row &row : rows)
            QCOMPARE(formatter(row.locale, row.minimum, row.maximum).stringForObjectValue(row.value), row.text);
    }

    void parses()
    {
        const std::tuple<QString, const char *, QVariant> rows[] = {
            {"14.25", "C", 14.25},
            {" \t14\u00a0", "C", 14.0},
            {"", "C", {}},
            {"  ", "C", {}},
            {"1e3", "C", 1000.0},
            {".5", "C", 0.5},
            {"1,5", "de_DE", 1.5},
            {"\u22123", "C", -3.0},
            {"-3", "sv_SE", -3.0}, // where the locale has a true minus sign
            {"9007199254740993", "C", 9007199254740993LL},
        };
        for (const auto &[text, locale, value] : rows) {
            QCOMPARE(parsed(formatter(locale), text), value);
            QCOMPARE(parsed(formatter(locale), text).metaType(), value.metaType());
        }
    }

    void refuses()
    {
        for (const char *text : {"twelve", "12pt", "1 2", "1e999", "nan", "-inf", "1,234", "-", "1.500"}) {
            QString error;
            const char *locale = QByteArray(text) == "1.500" ? "de_DE" : "C"; // where the point would be a group's
            QCOMPARE(parsed(formatter(locale), text, &error), QVariant("untouched"));
            QVERIFY(!error.isEmpty());
        }
    }

    void groupsDigitsAsTheLocaleDoes()
    {
        const std::tuple<const char *, double, QString, QString> rows[] = {
            {"C", 1234567.0, "1234567", "1234567"},
            {"en_US", 1234567.25, "1,234,567.25", "1234567.25"},
            {"en_US", -999.0, "-999", "-999"},
            {"de_DE", 1500.5, "1.500,5", "1500,5"},
            {"hi_IN", 12345678.0, "1,23,45,678", "1,23,45,678"},
            {"es_ES", 1234.0, "1234", "1234"}, // grouped from five digits on
            {"es_ES", 12345.0, "12.345", "12345"},
            {"fr_FR", 12345.0, "12\u202f345", "12 345"},
        };
        for (const auto &[locale, number, text, typed] : rows) {
            ZelNumberFormatter grouping = formatter(locale);
            grouping.setUsesGroupSeparator(true);
            QCOMPARE(grouping.stringForObjectValue(number), text);
            QCOMPARE(parsed(grouping, text), QVariant(number));
            QCOMPARE(parsed(grouping, typed), QVariant(number));
            QString error;
            QCOMPARE(parsed(grouping, "1,2,3.4,5", &error), QVariant("untouched"));
        }
    }

    void parsesWhatItShows()
    {
        for (const char *name : {"C", "de_DE", "sv_SE", "ar_EG", "fa_IR", "fr_FR", "hi_IN"}) {
            const ZelNumberFormatter numbers = formatter(name, 0, 308);
            for (const double value : {0.1, -1.0 / 3, 1e21, -5e-300, 123456.789, g_largest}) {
                const QString shown = numbers.stringForObjectValue(value);
                bool isNumber = false;
                const double result = parsed(numbers, shown).toDouble(&isNumber);
                // Digits behind the 308th are not shown.
                QVERIFY2(isNumber && std::abs(result - value) <= 1e-307, qPrintable(shown));
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_ZelNumberFormatter)
#include "tst_ZelNumberFormatter.moc"
