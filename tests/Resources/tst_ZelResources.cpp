// SPDX-License-Identifier: MIT
#include "Resources/ZelBundle.h"
#include "Resources/ZelColorList.h"
#include "Resources/ZelLocalizedString.h"
#include "Resources/ZelNamedImages.h"
#include <QTest>
#include <QtWidgets>

namespace {
class UpperCaseTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return qstrcmp(context, "Application") == 0 ? QString::fromUtf8(text).toUpper() : QString();
    }
};

class ZelotPanel : public QObject
{
    Q_OBJECT
};
class ZelPanel : public QObject
{
    Q_OBJECT
};
} // namespace

class tst_ZelResources : public QObject
{
    Q_OBJECT
    QString write(const QString &name)
    {
        const QString path = m_directory->filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        return QFile(path).open(QIODevice::WriteOnly) ? path : QString();
    }
    void drawImage(const QString &name)
    {
        QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter(&image).fillRect(0, 0, 8, 16, Qt::blue);
        QVERIFY(image.save(write(name)));
    }

    std::unique_ptr<QTemporaryDir> m_directory;

private Q_SLOTS:
    void init()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        const QString ofWidgets = ":/qt-project.org/qmessagebox/images";
        ZelBundle::mainBundle().setResourcePaths(
            {m_directory->filePath("first"), m_directory->filePath("second"), ofWidgets});
    }
    void cleanup() { ZelBundle::mainBundle().setResourcePaths({}); }

    void resourcesAreFoundInTheOrderOfPaths()
    {
        const ZelBundle &bundle = ZelBundle::mainBundle();
        for (const char *path : {"second/Layout.xml", "first/Layout.xml"}) {
            const QUrl url = QUrl::fromLocalFile(write(path));
            QCOMPARE(bundle.urlForResource("Layout", "xml"), url);
        }
        const QUrl deeper = QUrl::fromLocalFile(write("second/panels/A.xml"));
        QCOMPARE(bundle.urlForResource("panels/A.xml"), deeper);
        QCOMPARE(bundle.urlForResource("qtlogo-64.png"), QUrl("qrc:/qt-project.org/qmessagebox/images/qtlogo-64.png"));
        write("outside.xml"); // names do not leave the paths
        QFile::link(m_directory->filePath("outside.xml"), m_directory->filePath("first/link.xml"));
        QFile::link(m_directory->path(), m_directory->filePath("first/links"));
        write("first/panels/B.xml");
        for (const char *name : {"panels", "Layout", "", ".", "..", "../outside.xml", "panels/../../outside.xml",
                                 "/etc/passwd", ":/outside.xml", "link.xml", "links/outside.xml"})
            QVERIFY2(bundle.urlForResource(name).isEmpty(), name);
        const QMetaObject *metaObject = &ZelotPanel::staticMetaObject;
        QCOMPARE(&ZelBundle::bundleForClass(&ZelPanel::staticMetaObject), &ZelBundle::libraryBundle());
        QCOMPARE(&ZelBundle::bundleForClass(metaObject), &bundle);
        ZelBundle plugin("Plugin");
        ZelBundle::setBundleForClass(metaObject, &plugin);
        QCOMPARE(&ZelBundle::bundleForClass(metaObject), &plugin);
        ZelBundle::setBundleForClass(metaObject, nullptr);
        QCOMPARE(&ZelBundle::bundleForClass(metaObject), &bundle);
    }

    void textsAreTranslated()
    {
        const QString key = "Gr\u00f6\u00dfe %1";
        QCOMPARE(ZelLocalizedString(key), key);
        UpperCaseTranslator translator;
        QVERIFY(QCoreApplication::installTranslator(&translator));
        QCOMPARE(ZelLocalizedString(key), key.toUpper());
        ZelBundle::mainBundle().setLocalizationContext("Other");
        QCOMPARE(ZelLocalizedString(key), key);
        ZelBundle::mainBundle().setLocalizationContext("Application");
        const auto former =
            ZelSetLocalizationFunction([](const QString &text) { return text == u"Width" ? "Breite" : QString(); });
        QCOMPARE(ZelLocalizedString("Width"), "Breite");
        QCOMPARE(ZelLocalizedString("Height"), "HEIGHT");
        QVERIFY(ZelLocalizedString(QString()).isNull() && !ZelLocalizedString("").isNull());
        ZelSetLocalizationFunction(former);
    }

    void imagesAreFoundInBundles()
    {
        const QMetaObject *metaObject = &ZelotPanel::staticMetaObject;
        QTest::ignoreMessage(QtDebugMsg, "No URL for image resource Missing found in bundle Application");
        QVERIFY(ZelNamedImages::imageNamedInBundleForClass("Missing", metaObject).isNull());
        drawImage("first/Plain.png");
        drawImage("second/MarkTemplate.png");
        QVERIFY(ZelNamedImages::imageNamed("Plain").isNull());
        const QIcon plain = ZelNamedImages::imageNamedInBundleForClass("Plain", metaObject);
        QCOMPARE(plain.pixmap(16, 16).toImage().pixelColor(2, 2), QColor(Qt::blue));
        QVERIFY(!ZelNamedImages::isTemplateImage(plain) && !ZelNamedImages::imageNamed("Plain").isNull());
        const QIcon mark = ZelNamedImages::imageNamedInBundleForClass("MarkTemplate.png", metaObject);
        QVERIFY(ZelNamedImages::isTemplateImage(mark));
        QVERIFY(!ZelNamedImages::imageNamedInBundleForClass("qtlogo-64", metaObject).isNull());
        ZelNamedImages::setImageForName(plain, "PlainTemplate");
        QVERIFY(ZelNamedImages::isTemplateImage(ZelNamedImages::imageNamed("PlainTemplate")));
        ZelNamedImages::setImageForName({}, "Plain");
        QVERIFY(ZelNamedImages::imageNamed("Plain").isNull());
    }

    void spacesShowAsColors()
    {
        const auto check = [](const ZelColor &color, const QColor &expected) {
            QCOMPARE(color.toQColor(), expected);
            QList<double> components = color.components();
            components.detach(); // of one list it would not be asked whether the numbers are equal
            QCOMPARE(color.space() == ZelColor::Named ? color : ZelColor(color.space(), components), color);
        };
        check({ZelColor::CalibratedWhite, {0.2, 0.4}}, QColor::fromRgbF(0.2f, 0.2f, 0.2f, 0.4f));
        check({ZelColor::DeviceRGB, {1, 0.5, 0, 1}}, QColor::fromRgbF(1, 0.5f, 0));
        check({ZelColor::DeviceCMYK, {0, 1, 1, 0, 1}}, Qt::red);
        check({ZelColor::CalibratedRGB, {2, -1, 1e308, 7}}, QColor(255, 0, 255)); // out of range
        check({ZelColor::CalibratedRGB, {0, 1}}, QColor(0, 255, 0));              // too few
        check({ZelColor::DeviceWhite, {}}, Qt::black);
        check({ZelColor::DeviceWhite, {1, 1, 0, 0}}, Qt::white); // too many
        check({ZelColor::DeviceRGB, {qQNaN(), 1, 0, 1}}, Qt::green);
        check(ZelColor::named("none", "Red"), QColor());
        check(ZelColor::named("System", "Red"), QColor());
        check(ZelColor(), QColor());
    }

    void valuesConvertBothWaysAndMatchByLooks()
    {
        for (const QColor &color : {QColor(1, 2, 3, 4), QColor::fromRgbF(0.1f, 0.7f, 0.3f, 0.9f)}) {
            const ZelColor ours = QVariant(color).value<ZelColor>();
            QCOMPARE(ours.space(), ZelColor::DeviceRGB);
            QCOMPARE(ours.toVariant().value<QColor>(), color);
            QCOMPARE(ZelColor::fromVariant(color), ours);
        }
        QCOMPARE(ZelColor(QColor::fromCmyk(10, 20, 30, 40)).space(), ZelColor::DeviceCMYK);
        QCOMPARE(ZelColor(QColor::fromHsv(120, 255, 255)), ZelColor(QColor(Qt::green)));
        QVERIFY(!ZelColor(QColor()).isValid() && !ZelColor().toVariant().isValid());
        QVERIFY(!ZelColor::isColor("red") && !ZelColor::isColor(QColor()));
        const QVariant calibrated = ZelColor(ZelColor::CalibratedRGB, {1, 0, 0, 1}).toVariant();
        const QVariant device = ZelColor(QColor(Qt::red)).toVariant();
        QVERIFY(calibrated != device && ZelColor::matches(calibrated, device));
        QVERIFY(!ZelColor::matches(calibrated, QColor(Qt::blue)) && !ZelColor::matches(QVariant(), QVariant()));
        const ZelColor text = ZelColor::named("System", "selectedTextColor");
        const ZelColor control = ZelColor::named("System", "selectedControlTextColor");
        QCOMPARE(text.toQColor(), control.toQColor());
        QVERIFY(!ZelColor::matches(text.toVariant(), control.toVariant())); // their names differ
        QVERIFY(ZelColor::matches(text.toVariant(), control.toQColor()));
        // Those of the system follow the palette.
        const ZelColorListPtr list = ZelColorList::colorListNamed("System");
        QCOMPARE(list->allKeys().size(), 31);
        for (const QString &key : list->allKeys())
            QVERIFY2(list->colorWithKey(key).toQColor().isValid(), qPrintable(key));
        QCOMPARE(list->colorWithKey("nothing"), ZelColor());
        const QPalette former = QGuiApplication::palette();
        QPalette palette = former;
        palette.setColor(QPalette::Text, QColor(12, 34, 56));
        QGuiApplication::setPalette(palette);
        QCOMPARE(list->colorWithKey("textColor").toQColor(), QColor(12, 34, 56));
        QGuiApplication::setPalette(former);
    }

    void listsKeepTheirOrder()
    {
        const QString mine = "Mine";
        const auto list = ZelColorListPtr::create(mine, QList<ZelColorList::Entry>{{"Red", QColor(Qt::red)}});
        list->setColorForKey(QColor(Qt::blue), "Blue");
        list->setColorForKey(QColor(Qt::darkRed), "Red");
        list->setColorForKey(ZelColor::named("Crayons", "Red"), "named");
        list->setColorForKey(ZelColor::named(mine, "b"), "a"); // in a circle
        list->setColorForKey(ZelColor::named(mine, "a"), "b");
        list->setColorForKey(QColor(), "removed");
        list->removeColorWithKey("removed");
        ZelColorList::addColorList(list);
        const auto lists = ZelColorList::availableColorLists();
        QCOMPARE(lists.at(0)->name() + lists.at(1)->name(), "CrayonsSystem");
        QVERIFY(lists.size() == 3 && lists.at(2) == list);
        QCOMPARE(list->allKeys(), QStringList({"Red", "Blue", "named", "a", "b"}));
        QCOMPARE(list->colorWithKey("Red").toQColor(), QColor(Qt::darkRed));
        QCOMPARE(ZelColor::named(mine, "named").toQColor(), QColor(Qt::red));
        QVERIFY(!ZelColor::named(mine, "a").toQColor().isValid());
        ZelColorList::addColorList(ZelColorListPtr::create(mine));
        QCOMPARE(ZelColorList::colorListNamed(mine)->allKeys(), QStringList());
        ZelColorList::removeColorListNamed(mine);
        QVERIFY(!ZelColorList::colorListNamed(mine));
    }

    void templateImagesFollowThePalette()
    {
        drawImage("Shape.png");
        const QIcon shape(m_directory->filePath("Shape.png"));
        const QIcon image = ZelNamedImages::templateImage(ZelNamedImages::templateImage(shape));
        const QPalette former = QGuiApplication::palette();
        for (const QColor &color : {QColor(Qt::white), QColor(Qt::red)}) {
            QPalette palette = former;
            palette.setColor(QPalette::Active, QPalette::Text, color);
            palette.setColor(QPalette::Disabled, QPalette::Text, Qt::gray);
            QGuiApplication::setPalette(palette);
            const QImage normal = image.pixmap(QSize(16, 16), 2.0).toImage();
            QCOMPARE(normal.pixelColor(2, 2), color);
            QCOMPARE(normal.pixelColor(normal.width() - 2, 2).alpha(), 0);
            QCOMPARE(image.pixmap(16, 16, QIcon::Disabled).toImage().pixelColor(2, 2), QColor(Qt::gray));
        }
        QGuiApplication::setPalette(former);
        QVERIFY(ZelNamedImages::templateImage({}).isNull());
    }
};
QTEST_MAIN(tst_ZelResources)
#include "tst_ZelResources.moc"
