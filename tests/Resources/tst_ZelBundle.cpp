// SPDX-License-Identifier: MIT
#include "Resources/ZelBundle.h"
#include "Resources/ZelLocalizedString.h"
#include "Resources/ZelNamedImages.h"

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

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

const QString pictureResources = QStringLiteral(":/qt-project.org/qmessagebox/images"); // part of Qt Widgets

class ZelotPanel : public QObject
{
    Q_OBJECT
};

class ZelPanel : public QObject
{
    Q_OBJECT
};

} // namespace

class tst_ZelBundle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        ZelBundle::mainBundle().setResourcePaths({m_directory->filePath(QStringLiteral("first")),
                                                  m_directory->filePath(QStringLiteral("second")), pictureResources});
    }
    void cleanup() { ZelBundle::mainBundle().setResourcePaths({}); }
    void resourcesAreFoundInTheOrderOfPaths();
    void namesDoNotLeaveTheSearchPaths_data();
    void namesDoNotLeaveTheSearchPaths();
    void classesHaveBundles();
    void textsAreTranslated();
    void imagesAreFoundInBundles();
    void templateImagesFollowThePalette();

private:
    QString write(const QString &name, const QByteArray &data = "x")
    {
        QFile file(m_directory->filePath(name));
        QDir().mkpath(QFileInfo(file).path());
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return file.fileName();
    }
    void drawImage(const QString &name)
    {
        QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter(&image).fillRect(0, 0, 8, 16, Qt::blue);
        QVERIFY(image.save(write(name)));
    }

    std::unique_ptr<QTemporaryDir> m_directory;
};

void tst_ZelBundle::resourcesAreFoundInTheOrderOfPaths()
{
    const ZelBundle &bundle = ZelBundle::mainBundle();
    const QUrl second = QUrl::fromLocalFile(write(QStringLiteral("second/Layout.xml")));
    QCOMPARE(bundle.urlForResource(QStringLiteral("Layout"), QStringLiteral("xml")), second);
    const QUrl first = QUrl::fromLocalFile(write(QStringLiteral("first/Layout.xml")));
    QCOMPARE(bundle.urlForResource(QStringLiteral("Layout.xml")), first);
    const QUrl deeper = QUrl::fromLocalFile(write(QStringLiteral("second/panels/A.xml")));
    QCOMPARE(bundle.urlForResource(QStringLiteral("panels/A.xml")), deeper);
    QCOMPARE(bundle.urlForResource(QStringLiteral("qtlogo-64.png")),
             QUrl(QStringLiteral("qrc:/qt-project.org/qmessagebox/images/qtlogo-64.png")));
    QCOMPARE(bundle.urlForResource(QStringLiteral("panels")), QUrl());
    QCOMPARE(bundle.urlForResource(QStringLiteral("Layout")), QUrl());
}

void tst_ZelBundle::namesDoNotLeaveTheSearchPaths_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"", ".", "..", "../outside.xml", "panels/../../outside.xml", "/etc/passwd",
                             ":/outside.xml", "link.xml", "links/outside.xml"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void tst_ZelBundle::namesDoNotLeaveTheSearchPaths()
{
    write(QStringLiteral("outside.xml"));
    write(QStringLiteral("first/panels/A.xml"));
    QFile::link(m_directory->filePath(QStringLiteral("outside.xml")),
                m_directory->filePath(QStringLiteral("first/link.xml")));
    QFile::link(m_directory->path(), m_directory->filePath(QStringLiteral("first/links")));
    QFETCH(QString, name);
    QCOMPARE(ZelBundle::mainBundle().urlForResource(name), QUrl());
}

void tst_ZelBundle::classesHaveBundles()
{
    QCOMPARE(&ZelBundle::bundleForClass(&ZelPanel::staticMetaObject), &ZelBundle::libraryBundle());
    QCOMPARE(&ZelBundle::bundleForClass(&ZelotPanel::staticMetaObject), &ZelBundle::mainBundle());
    ZelBundle plugin(QStringLiteral("Plugin"));
    ZelBundle::setBundleForClass(&ZelotPanel::staticMetaObject, &plugin);
    QCOMPARE(&ZelBundle::bundleForClass(&ZelotPanel::staticMetaObject), &plugin);
    ZelBundle::setBundleForClass(&ZelotPanel::staticMetaObject, nullptr);
    QCOMPARE(&ZelBundle::bundleForClass(&ZelotPanel::staticMetaObject), &ZelBundle::mainBundle());
}

void tst_ZelBundle::textsAreTranslated()
{
    const QString key = QStringLiteral("Gr\u00f6\u00dfe %1");
    QCOMPARE(ZelLocalizedString(key), key);
    UpperCaseTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QCOMPARE(ZelLocalizedString(key), key.toUpper());
    ZelBundle::mainBundle().setLocalizationContext(QStringLiteral("Other"));
    QCOMPARE(ZelLocalizedString(key), key);
    ZelBundle::mainBundle().setLocalizationContext(QStringLiteral("Application"));

    const auto former = ZelSetLocalizationFunction(
        [](const QString &text) { return text == u"Width" ? QStringLiteral("Breite") : QString(); });
    QCOMPARE(ZelLocalizedString(QStringLiteral("Width")), QStringLiteral("Breite"));
    QCOMPARE(ZelLocalizedString(QStringLiteral("Height")), QStringLiteral("HEIGHT"));
    QVERIFY(ZelLocalizedString(QString()).isNull());
    QVERIFY(!ZelLocalizedString(QStringLiteral("")).isNull());
    ZelSetLocalizationFunction(former);
}

void tst_ZelBundle::imagesAreFoundInBundles()
{
    const QMetaObject *metaObject = &ZelotPanel::staticMetaObject;
    QTest::ignoreMessage(QtDebugMsg, "No URL for image resource Missing found in bundle Application");
    QVERIFY(ZelNamedImages::imageNamedInBundleForClass(QStringLiteral("Missing"), metaObject).isNull());

    drawImage(QStringLiteral("first/Plain.png"));
    drawImage(QStringLiteral("second/MarkTemplate.png"));
    QVERIFY(ZelNamedImages::imageNamed(QStringLiteral("Plain")).isNull());
    const QIcon plain = ZelNamedImages::imageNamedInBundleForClass(QStringLiteral("Plain"), metaObject);
    QCOMPARE(plain.pixmap(16, 16).toImage().pixelColor(2, 2), QColor(Qt::blue));
    QVERIFY(!ZelNamedImages::isTemplateImage(plain));
    QVERIFY(!ZelNamedImages::imageNamed(QStringLiteral("Plain")).isNull());
    const QIcon mark = ZelNamedImages::imageNamedInBundleForClass(QStringLiteral("MarkTemplate.png"), metaObject);
    QVERIFY(ZelNamedImages::isTemplateImage(mark));
    QVERIFY(!ZelNamedImages::imageNamedInBundleForClass(QStringLiteral("qtlogo-64"), metaObject).isNull());

    ZelNamedImages::setImageForName({}, QStringLiteral("Plain"));
    QVERIFY(ZelNamedImages::imageNamed(QStringLiteral("Plain")).isNull());
}

void tst_ZelBundle::templateImagesFollowThePalette()
{
    drawImage(QStringLiteral("first/Shape.png"));
    const QIcon shape(m_directory->filePath(QStringLiteral("first/Shape.png")));
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
    QPixmap canvas(20, 20);
    canvas.fill(Qt::black);
    QPainter painter(&canvas);
    image.paint(&painter, QRect(2, 2, 16, 16));
    painter.end();
    QCOMPARE(canvas.toImage().pixelColor(4, 4), QColor(Qt::red));
    QCOMPARE(canvas.toImage().pixelColor(15, 4), QColor(Qt::black));
    QGuiApplication::setPalette(former);
    QVERIFY(ZelNamedImages::templateImage({}).isNull());
}

QTEST_MAIN(tst_ZelBundle)
#include "tst_ZelBundle.moc"
