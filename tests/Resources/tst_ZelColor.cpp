// SPDX-License-Identifier: MIT
#include "Resources/ZelColor.h"
#include "Resources/ZelColorList.h"

#include <QGuiApplication>
#include <QPalette>
#include <QTest>

class tst_ZelColor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void spacesShowAsColors_data();
    void spacesShowAsColors();
    void valuesConvertBothWays();
    void systemColorsFollowThePalette();
    void namesInACircleShowNothing();
    void matchingComparesLooksButNotNames();
    void listsKeepTheirOrder();
};

void tst_ZelColor::spacesShowAsColors_data()
{
    QTest::addColumn<ZelColor>("color");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("gray") << ZelColor(ZelColor::CalibratedWhite, {0.2, 0.4})
                          << QColor::fromRgbF(0.2f, 0.2f, 0.2f, 0.4f);
    QTest::newRow("RGB") << ZelColor(ZelColor::DeviceRGB, {1, 0.5, 0, 1}) << QColor::fromRgbF(1, 0.5f, 0);
    QTest::newRow("CMYK") << ZelColor(ZelColor::DeviceCMYK, {0, 1, 1, 0, 1}) << QColor(Qt::red);
    QTest::newRow("out of range") << ZelColor(ZelColor::CalibratedRGB, {2, -1, 1e308, 7}) << QColor(255, 0, 255);
    QTest::newRow("too few") << ZelColor(ZelColor::CalibratedRGB, {0, 1}) << QColor(0, 255, 0, 255);
    QTest::newRow("none") << ZelColor(ZelColor::DeviceWhite, {}) << QColor(Qt::black);
    QTest::newRow("too many") << ZelColor(ZelColor::DeviceWhite, {1, 1, 0, 0}) << QColor(Qt::white);
    QTest::newRow("not a number") << ZelColor(ZelColor::DeviceRGB, {qQNaN(), 1, 0, 1}) << QColor(Qt::green);
    QTest::newRow("unknown list") << ZelColor::named(QStringLiteral("none"), QStringLiteral("Red")) << QColor();
    QTest::newRow("unknown name") << ZelColor::named(QStringLiteral("System"), QStringLiteral("Red")) << QColor();
    QTest::newRow("invalid") << ZelColor() << QColor();
}

void tst_ZelColor::spacesShowAsColors()
{
    QFETCH(ZelColor, color);
    QTEST(color.toQColor(), "expected");
    QList<double> components = color.components();
    components.detach(); // of one list it would not be asked whether the numbers are equal
    QCOMPARE(color.space() == ZelColor::Named ? color : ZelColor(color.space(), components), color);
}

void tst_ZelColor::valuesConvertBothWays()
{
    for (const QColor &color :
         {QColor(1, 2, 3, 4), QColor(Qt::transparent), QColor::fromRgbF(0.1f, 0.7f, 0.3f, 0.9f)}) {
        const ZelColor ours = QVariant(color).value<ZelColor>();
        QCOMPARE(ours.space(), ZelColor::DeviceRGB);
        QCOMPARE(ours.toVariant().value<QColor>(), color);
        QCOMPARE(ZelColor::fromVariant(color), ours);
    }
    QCOMPARE(ZelColor(QColor::fromCmyk(10, 20, 30, 40)).space(), ZelColor::DeviceCMYK);
    QCOMPARE(ZelColor(QColor::fromHsv(120, 255, 255)), ZelColor(QColor(Qt::green)));
    QVERIFY(!ZelColor(QColor()).isValid());
    QVERIFY(!ZelColor().toVariant().isValid());
    QVERIFY(!ZelColor::isColor(QStringLiteral("red")));
    QVERIFY(!ZelColor::isColor(QColor()));
}

void tst_ZelColor::systemColorsFollowThePalette()
{
    const ZelColorListPtr list = ZelColorList::colorListNamed(QStringLiteral("System"));
    QCOMPARE(list->allKeys().size(), 31);
    for (const QString &key : list->allKeys())
        QVERIFY2(list->colorWithKey(key).toQColor().isValid(), qPrintable(key));
    QCOMPARE(list->colorWithKey(QStringLiteral("nothing")), ZelColor());

    const ZelColor text = list->colorWithKey(QStringLiteral("textColor"));
    const QPalette former = QGuiApplication::palette();
    QPalette palette = former;
    palette.setColor(QPalette::Text, QColor(12, 34, 56));
    QGuiApplication::setPalette(palette);
    QCOMPARE(text.toQColor(), QColor(12, 34, 56));
    QGuiApplication::setPalette(former);
    QCOMPARE(text.toQColor(), former.color(QPalette::Text));
}

void tst_ZelColor::namesInACircleShowNothing()
{
    const QString name = QStringLiteral("Circle");
    const auto list = ZelColorListPtr::create(name);
    list->setColorForKey(ZelColor::named(name, QStringLiteral("b")), QStringLiteral("a"));
    list->setColorForKey(ZelColor::named(name, QStringLiteral("a")), QStringLiteral("b"));
    list->setColorForKey(ZelColor::named(QStringLiteral("Crayons"), QStringLiteral("Red")), QStringLiteral("c"));
    ZelColorList::addColorList(list);
    QVERIFY(!ZelColor::named(name, QStringLiteral("a")).toQColor().isValid());
    QCOMPARE(ZelColor::named(name, QStringLiteral("c")).toQColor(), QColor(Qt::red));
    ZelColorList::removeColorListNamed(name);
}

void tst_ZelColor::matchingComparesLooksButNotNames()
{
    const QVariant calibrated = ZelColor(ZelColor::CalibratedRGB, {1, 0, 0, 1}).toVariant();
    const QVariant device = ZelColor(QColor(Qt::red)).toVariant();
    QVERIFY(calibrated != device);
    QVERIFY(ZelColor::matches(calibrated, device));
    QVERIFY(ZelColor::matches(calibrated, QColor(Qt::red)));
    QVERIFY(!ZelColor::matches(calibrated, QColor(Qt::blue)));
    QVERIFY(!ZelColor::matches(QVariant(), QVariant()));

    const QString system = QStringLiteral("System");
    const ZelColor text = ZelColor::named(system, QStringLiteral("selectedTextColor"));
    const ZelColor control = ZelColor::named(system, QStringLiteral("selectedControlTextColor"));
    QCOMPARE(text.toQColor(), control.toQColor());
    QVERIFY(!ZelColor::matches(text.toVariant(), control.toVariant()));
    QVERIFY(ZelColor::matches(text.toVariant(), control.toQColor()));
}

void tst_ZelColor::listsKeepTheirOrder()
{
    const QString red = QStringLiteral("Red");
    const QString mine = QStringLiteral("Mine");
    const auto list = ZelColorListPtr::create(mine, QList<ZelColorList::Entry>{{red, QColor(Qt::red)}});
    list->setColorForKey(QColor(Qt::blue), QStringLiteral("Blue"));
    list->setColorForKey(QColor(Qt::darkRed), red);
    ZelColorList::addColorList(list);
    QStringList names;
    for (const ZelColorListPtr &available : ZelColorList::availableColorLists())
        names.append(available->name());
    QCOMPARE(names, QStringList({QStringLiteral("Crayons"), QStringLiteral("System"), mine}));
    QCOMPARE(list->allKeys(), QStringList({red, QStringLiteral("Blue")}));
    QCOMPARE(list->colorWithKey(red).toQColor(), QColor(Qt::darkRed));
    ZelColorList::addColorList(ZelColorListPtr::create(mine));
    QCOMPARE(ZelColorList::colorListNamed(mine)->allKeys(), QStringList());
    ZelColorList::removeColorListNamed(mine);
}

QTEST_MAIN(tst_ZelColor)
#include "tst_ZelColor.moc"
