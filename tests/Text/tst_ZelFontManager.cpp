// SPDX-License-Identifier: MIT
#include "Text/ZelFontManager.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QTest>

class tst_ZelFontManager : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void facesAreFoundByWeightAndSlant();
    void conversionsKeepTheRest();
    void namesStandForFamilies_data();
    void namesStandForFamilies();
    void genericNamesStandForInstalledFamilies();
    void platformFontsHaveSizes();
};

void tst_ZelFontManager::facesAreFoundByWeightAndSlant()
{
    const QString family = QStringLiteral("DejaVu Sans");
    const QStringList faces = ZelFontManager::availableFacesOfFamily(family);
    QVERIFY2(faces.size() > 2, "The tests need this font.");
    // Every face, named or taken apart into weight, slant and width, leads back to its name.
    for (const QString &face : faces) {
        const QFont named = ZelFontManager::convertFontToFace(QFont(), family, face);
        QCOMPARE(ZelFontManager::faceOf(named), face);
        QCOMPARE(ZelFontManager::familyOf(named), family);
        QFont apart(family);
        apart.setWeight(QFont::Weight(named.weight()));
        apart.setStyle(named.style());
        apart.setStretch(named.stretch());
        // Two faces may differ in their names only, as far as Qt can tell.
        const QFont found = ZelFontManager::convertFontToFace(QFont(), family, ZelFontManager::faceOf(apart));
        QCOMPARE(found.weight(), named.weight());
        QCOMPARE(found.style(), named.style());
        QCOMPARE(found.stretch(), named.stretch());
    }
    QFont bold(family);
    bold.setBold(true);
    bold.setItalic(true);
    QCOMPARE(ZelFontManager::faceOf(bold), QStringLiteral("Bold Oblique"));
    QVERIFY(ZelFontManager::availableFacesOfFamily(QStringLiteral("Nowhere")).isEmpty());
    QCOMPARE(ZelFontManager::faceOf(QFont(QStringLiteral("Nowhere"))), QStringLiteral("Regular"));
    QVERIFY(ZelFontManager::availableFontFamilies().contains(family));
}

void tst_ZelFontManager::conversionsKeepTheRest()
{
    QFont font(QStringLiteral("DejaVu Sans"), 10);
    font.setBold(true);
    font.setStrikeOut(true);
    const QFont larger = ZelFontManager::convertFontToSize(font, 12.5);
    QCOMPARE(larger.pointSizeF(), 12.5);
    QVERIFY(larger.bold() && larger.strikeOut());
    QCOMPARE(ZelFontManager::convertFontToSize(font, 0), font);
    QCOMPARE(ZelFontManager::convertFontToSize(font, qQNaN()), font);
    font.setPixelSize(20);
    QCOMPARE(ZelFontManager::sizeOf(font), 20.0);
    QCOMPARE(ZelFontManager::convertFontToSize(font, 30.6).pixelSize(), 31);
    font.setStyleName(QStringLiteral("ExtraLight"));
    const QFont serif = ZelFontManager::convertFontToFamily(font, QStringLiteral("DejaVu Serif"));
    QCOMPARE(QFontInfo(serif).family(), QStringLiteral("DejaVu Serif"));
    QVERIFY(serif.styleName().isEmpty()); // that family's face
    QCOMPARE(serif.pixelSize(), 20);
    QVERIFY(serif.strikeOut());
    QCOMPARE(ZelFontManager::convertFontToFamily(font, QString()), font);
    QFont named(QStringLiteral("DejaVu Sans"));
    named.setStyleName(QStringLiteral("Bold"));
    QVERIFY(ZelFontManager::convertFontToFamily(named, QStringLiteral("DejaVu Serif")).bold());
    QVERIFY(!ZelFontManager::convertFontToFace(serif, QStringLiteral("DejaVu Serif"), QStringLiteral("Book")).bold());
}

void tst_ZelFontManager::namesStandForFamilies_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("family");
    QTest::newRow("itself") << "Round"
                            << "Round";
    QTest::newRow("in another case") << "ROUND"
                                     << "Round";
    QTest::newRow("of several foundries") << "Square"
                                          << "Square [one]";
    QTest::newRow("of one of them") << "Square [two]"
                                    << "Square [two]";
    QTest::newRow("unknown") << "Squ" << QString();
}

void tst_ZelFontManager::namesStandForFamilies()
{
    QFETCH(QString, name);
    const QStringList families{QStringLiteral("Round Mono"), QStringLiteral("Round"), QStringLiteral("Square [one]"),
                               QStringLiteral("Square [two]")};
    QTEST(ZelFontManager::familyAmong(families, name), "family");
}

void tst_ZelFontManager::genericNamesStandForInstalledFamilies()
{
    const QFont font(QStringLiteral("sans-serif"));
    const QString family = ZelFontManager::availableFamilyOf(font);
    QVERIFY(ZelFontManager::availableFontFamilies().contains(family));
    QCOMPARE(ZelFontManager::availableFacesOfFamily(QStringLiteral("sans-serif")),
             ZelFontManager::availableFacesOfFamily(family));
    QVERIFY(ZelFontManager::availableFamilyOf(QFont(QStringLiteral("Nowhere"))).isNull());
}

void tst_ZelFontManager::platformFontsHaveSizes()
{
    for (int font = ZelFontManager::SystemFont; font <= ZelFontManager::UserFixedPitchFont; ++font)
        QVERIFY(ZelFontManager::sizeOf(ZelFontManager::platformFont(ZelFontManager::PlatformFont(font))) > 0);
    const double size = ZelFontManager::sizeOf(QApplication::font());
    const QFont mini = ZelFontManager::platformFont(ZelFontManager::MiniBoldSystemFont);
    QCOMPARE(mini.pointSizeF(), size * 9 / 13);
    QVERIFY(mini.bold());
    // Not every font that is says so of itself.
    const QFontMetricsF fixedPitch(ZelFontManager::platformFont(ZelFontManager::UserFixedPitchFont));
    QCOMPARE(fixedPitch.horizontalAdvance(u'i'), fixedPitch.horizontalAdvance(u'W'));
}

QTEST_MAIN(tst_ZelFontManager)
#include "tst_ZelFontManager.moc"
