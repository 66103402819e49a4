// SPDX-License-Identifier: MIT
#include "model/Document.h"
#include "window/InspectorOwner.h"
#include "window/Languages.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QTest>
#include <QXmlStreamReader>

/// Checks the inspector's description against the program: what is misspelt there is seen by nobody but the user.
class tst_ShapesDescription : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void keyPathsLeadToProperties();
    void valueKeyPathsLeadToWritableProperties();
    void imagesAndFilesExist();
    void actionsAreMethodsOfTheOwner();
    void textsAreTranslated();

private:
    struct Attribute
    {
        QString file;
        QString element;
        QString name;
        QString value;
        bool readOnly;

        /// The popover for paragraphs is about the library's own object.
        bool isAboutParagraphs() const { return file.endsWith("ZelParagraphStyle.xml"); }
    };
    static QMetaProperty propertyAt(const QString &path);

    QList<Attribute> m_attributes;
};

void tst_ShapesDescription::initTestCase()
{
    QDirIterator files(":/inspector");
    while (files.hasNext()) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QXmlStreamReader reader(&file);
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement)
                continue;
            const QXmlStreamAttributes attributes = reader.attributes();
            const bool readOnly = attributes.value("editable") == u"no" || attributes.value("enabled") == u"no";
            for (const QXmlStreamAttribute &attribute : attributes)
                m_attributes.append({file.fileName(), reader.name().toString(), attribute.name().toString(),
                                     attribute.value().toString(), readOnly});
        }
        QVERIFY2(!reader.hasError(), qPrintable(file.fileName() + reader.errorString()));
    }
    QVERIFY(m_attributes.size() > 200);
}

QMetaProperty tst_ShapesDescription::propertyAt(const QString &path)
{
    static const QPair<QString, const QMetaObject *> roots[] = {
        {"selectionController.selection.", &Shape::staticMetaObject},
        {"documentController.selection.", &Document::staticMetaObject},
        {"document.", &Document::staticMetaObject},
        {"", &InspectorOwner::staticMetaObject},
    };
    for (const auto &[prefix, metaObject] : roots) {
        if (path.startsWith(prefix))
            return metaObject->property(metaObject->indexOfProperty(path.mid(prefix.size()).toLatin1()));
    }
    return {};
}

void tst_ShapesDescription::keyPathsLeadToProperties()
{
    for (const Attribute &attribute : m_attributes) {
        if (!attribute.name.endsWith("eyPath") || attribute.isAboutParagraphs() ||
            attribute.value == "selectionController.selectedObjects")
            continue;
        QVERIFY2(propertyAt(attribute.value).isValid(), qPrintable(attribute.file + ": " + attribute.value));
    }
}

void tst_ShapesDescription::valueKeyPathsLeadToWritableProperties()
{
    for (const Attribute &attribute : m_attributes) {
        if (attribute.name != "keyPath" || attribute.readOnly || attribute.isAboutParagraphs())
            continue;
        const QString place = attribute.file + ": " + attribute.value;
        QVERIFY2(propertyAt(attribute.value).isWritable(), qPrintable(place));
        // Most editors store a single key, in the owner or in each selected object.
        QVERIFY2(!attribute.value.section(".selection.", -1).contains('.'), qPrintable(place));
    }
}

void tst_ShapesDescription::imagesAndFilesExist()
{
    for (const Attribute &attribute : m_attributes) {
        if (attribute.name == "image")
            QVERIFY2(QFile::exists(":/images/" + attribute.value + ".png"), qPrintable(attribute.value));
        if (attribute.name == "file")
            QVERIFY2(QFile::exists(":/inspector/" + attribute.value), qPrintable(attribute.value));
    }
}

void tst_ShapesDescription::actionsAreMethodsOfTheOwner()
{
    for (const Attribute &attribute : m_attributes) {
        if (attribute.name != "actionSelector" || attribute.isAboutParagraphs())
            continue;
        const QByteArray signature = attribute.value.toLatin1() + "()";
        QVERIFY2(InspectorOwner::staticMetaObject.indexOfSlot(signature) >= 0, signature);
    }
}

void tst_ShapesDescription::textsAreTranslated()
{
    static const QStringList texts = {"title", "placeholder", "actionName", "nonNilValueTitle"};
    Languages languages;
    if (!languages.set("de"))
        QSKIP("built without Qt's linguist tools");
    for (const Attribute &attribute : m_attributes) {
        if (!texts.contains(attribute.name))
            continue;
        // Some words are the same in both languages; a text without a translation is one that the file does not hold.
        QTranslator translator;
        QVERIFY(translator.load(":/translations/shapes_de.qm"));
        QVERIFY2(!translator.translate("Application", attribute.value.toUtf8()).isNull(), qPrintable(attribute.value));
    }
}

QTEST_MAIN(tst_ShapesDescription)
#include "tst_ShapesDescription.moc"
