// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelNumberExpression.h"
#include "Controls/Fields/ZelUnits.h"
#include "Support/Failures.h"
#include <QTest>
#include <cmath>

class tst_ZelNumberExpression : public QObject
{
    Q_OBJECT
    struct Row
    {
        const char *text;
        double result;
        const char *unit = "";
        const char *locale = "en_US";
    };

private Q_SLOTS:
    void calculates()
    {
        const Row rows[] = {
            {"1+2*3", 7},
            {"2^3^2", 512},
            {"-(2 - 5)/2", 1.5},
            {"2pi", 2 * M_PI},
            {"1e3+1E-1", 1000.1},
            {"3 − 1 × 4 ÷ 2·2", -1},
            {"sqrt(16)+abs(-3)", 7},
            {"min(3, 1, 2) + max(1; 5)", 6},
            {"round(2.5)+floor(-1.5)+ceil(1.2)", 3},
            {"sin(pi/2)+cos(0)+tan(0)", 2},
            {"1,000*2", 2000},
            {"(1,000+1)*2", 2002},
            {"max(1,200)", 200},
            {"1.000,5*2", 2001, "", "de_DE"},
            {"max(1,5; 1,25)", 1.5, "", "de_DE"},
            {"٣٫٥+١", 4.5, "", "ar_EG"},
            {"1in + 2 mm", 72 + 144 / 25.4, "pt"},
            {"1/2 in", 36, " pt"},
            {"1ft - 12in", 0, "mm"},
            {"(1+1)cm", 20, "mm"},
            {"1 min + 500ms + 2", 62.5, "s"},
            {"0.5 turn + pi rad", 360, "°"},
            {"sin(30) + sin(30°)", 1, "°"},
            {"2*sin(30°)", 1, "mm"},
            {"sin(30°)*90°", 45, "°"},
            {"2*sin(0.5*30° + 15°)", 1, "mm"},
            {"10in/2in + 3in/(1in+1in)*2mm", 8, "mm"},
            {"(1+1)*3in*2 - 2*-1\"", 14 * 72, "pt"},
            {"10/50% + 200*50% + 50%*2", 121, "pt"},
            {"50%+0.5", 1},
            {"50%+1", 51, "%"},
            {"3 dpi", 3, "dpi"}, // a field's own unit needs no kind
        };
        for (const auto &[text, result, unit, locale] : rows) {
            QString error;
            const auto expression = ZelNumberExpression::fromText(text, unit, QLocale(locale), &error);
            QVERIFY2(!expression.isNull() && error.isEmpty(), qPrintable(text + (": " + error)));
            QVERIFY2(std::abs(expression.value() - result) < 1e-9,
                     qPrintable(QString("%1: %2").arg(text).arg(expression.value(), 0, 'g', 17)));
            QVERIFY2(!expression.isRelative(), text);
        }
    }

    void changesWhatIsThere()
    {
        const Row rows[] = {
            {"+=10", 110},
            {" -= 10", 90},
            {"*=2+1", 300},
            {"/=2", 50},
            {"+=10%", 110},
            {"-=10+10 %", 80},
            {"50%", 50, "pt"},
            {"-(20+5)% + 1in", 47, "pt"},
            {"*=50%", 50},
            {"*=50%+1", 150, "pt"},
            {"+=10%", 110, "%"},
            {"+=1in", 172, "pt"},
            {"x*2", 200},
            {"2x+x/4", 225},
            {"i*20", 60},
            {"1+(i+1)/n", 1.8},
            {"100 + i*(x-100)", 100},
        };
        for (const auto &[text, result, unit, locale] : rows) {
            const auto expression = ZelNumberExpression::fromText(text, unit, QLocale(locale));
            QVERIFY2(expression.isRelative(), text);
            QVERIFY2(std::abs(expression.value(100, 3, 5) - result) < 1e-9, text);
        }
        const auto placed = ZelNumberExpression::fromText("n/x + i", {}, QLocale::c());
        QVERIFY(placed.usesPlace());
        QCOMPARE(placed.value(2, 1, 3), 2.5);
        QVERIFY(std::isinf(placed.value(0, 2, 3)));
        QVERIFY(!ZelNumberExpression::fromText("2x", {}, QLocale::c()).usesPlace());
    }

    void saysWhatIsWrong()
    {
        const std::tuple<const char *, const char *, const char *> rows[] = {
            {"1+", "", "The calculation is not complete (character 3)."},
            {"", "", "The calculation is not complete (character 1)."},
            {" += ", "", "The calculation is not complete (character 5)."},
            {"2*(1+1", "", "A parenthesis is not closed (character 3)."},
            {"2*)", "", "“)” is not expected (character 3)."},
            {"1 2", "", "An operator is missing between two numbers (character 3)."},
            {"1 + foo", "", "“foo” is not known (character 5)."},
            {"3 foo", "mm", "“foo” is not known (character 3)."},
            {"3 s", "mm", "“s” cannot be converted here (character 3)."},
            {"3 mm", "", "“mm” cannot be converted here (character 3)."},
            {"mm", "mm", "“mm” is not known (character 1)."},
            {"1,23", "", "“,” is not expected (character 2)."},
            {"1;2", "", "“;” is not expected (character 2)."},
            {"max(1; (2; 3))", "", "“;” is not expected (character 10)."},
            {"1 = 2", "", "“=” is not known (character 3)."},
            {"2*sqrt()", "", "This is not the number of arguments of the function (character 8)."},
            {"sqrt(1;2)", "", "This is not the number of arguments of the function (character 9)."},
            {"12mm + 3*", "cm", "The calculation is not complete (character 10)."},
            {"12mm + */3", "cm", "“*” is not expected (character 8)."},
            {"3 in mm", "pt", "“mm” is not expected (character 6)."},
            {"12pt pt", "pt", "“pt” is not expected (character 6)."},
            {"2(3)", "", "An operator is missing (character 2)."},
            {"x x", "", "An operator is missing (character 3)."},
            {"2sqrt(4)", "", "An operator is missing (character 2)."},
            {"1 in*1in", "pt", "Only one factor of a product can have a unit (character 7)."},
            {"2*(1in+1)*1pt", "pt", "Only one factor of a product can have a unit (character 12)."},
            {"2in^2", "pt", "Only one factor of a product can have a unit (character 4)."},
            {"90°", "pt", "“°” cannot be converted here (character 3)."},
            {"sin(30°) + 1°", "", "“°” cannot be converted here (character 13)."},
        };
        for (const auto &[text, unit, message] : rows) {
            QString error;
            QVERIFY2(ZelNumberExpression::fromText(text, unit, QLocale::c(), &error).isNull(), text);
            QCOMPARE(error, message);
        }
    }

    void applicationsHaveUnitsOfTheirOwn()
    {
        ZelUnits::registerUnit("data", "B", 1);
        ZelUnits::registerUnit("data", "kB", 1000);
        QCOMPARE(ZelUnits::symbolsOfKind("data"), (QStringList{"B", "kB"}));
        QCOMPARE(ZelNumberExpression::fromText("2kB+1", "B", QLocale::c()).value(), 2001.0);
        QCOMPARE(ZelUnits::ratio("B", "s"), std::nullopt);
        Failures failures;
        for (const auto &[kind, symbol, size] : {std::tuple("data", "mm", 1.0),
                                                 {"data", "MB", 0.0},
                                                 {"data", "a b", 1.0},
                                                 {"data", "+", 1.0},
                                                 {"data", "", 1.0}})
            ZelUnits::registerUnit(kind, symbol, size);
        QCOMPARE(failures.seen.size(), 5);
        QCOMPARE(ZelUnits::kindOf("mm"), "length");
        QCOMPARE(ZelUnits::kindOf("MB"), QString());
    }
};
QTEST_GUILESS_MAIN(tst_ZelNumberExpression)
#include "tst_ZelNumberExpression.moc"
