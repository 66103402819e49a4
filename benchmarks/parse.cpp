// SPDX-License-Identifier: MIT
#include "Bench.h"

#include "Inspector/Description/ZelInspectorConfiguration.h"

#include <QFile>
#include <QTemporaryFile>
#include <QXmlStreamReader>

namespace {

/// A description of so many properties, some with a few attributes and some with many, 20 to a section.
QByteArray description(int properties)
{
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<slice title=\"Shape\">\n";
    for (int i = 0; i < properties; ++i) {
        if (i % 20 == 0)
            text += "    <section title=\"Geometry\" visibleKeyPath=\"selection.hasGeometry\">\n        <sliver>\n";
        const QByteArray number = QByteArray::number(i);
        if (i % 2)
            text += "            <property type=\"boolean\" title=\"Visible\" keyPath=\"selection.visible" + number +
                    "\"/>\n";
        else
            text += "            <property type=\"number\" title=\"Width &amp; more\" keyPath=\"selection.width" +
                    number +
                    "\" minimum=\"0\" maximum=\"1000\" increment=\"0.5\" formatStyle=\"decimal\" formatUnit=\"pt\" "
                    "enabledKeyPath=\"selection.editable\" actionName=\"Change Width\"/>\n";
        if (i % 20 == 19 || i == properties - 1)
            text += "        </sliver>\n    </section>\n";
    }
    return text + "</slice>\n";
}

struct Counts
{
    qsizetype elements = 0;
    qsizetype characters = 0; // of all attributes
    bool operator==(const Counts &) const = default;
};

void count(const ZelInspectorConfiguration &configuration, Counts &counts)
{
    ++counts.elements;
    const ZelXmlElement &element = configuration.element();
    for (qsizetype i = 0; i < element.attributeCount(); ++i)
        counts.characters += element.attributeValue(i).size();
    for (const ZelInspectorConfiguration &child : configuration.configurations())
        count(child, counts);
}

Counts readByHand(const QString &path)
{
    QFile file(path);
    Bench::expect(file.open(QIODevice::ReadOnly), "the description cannot be opened");
    QXmlStreamReader reader(file.readAll());
    Counts counts;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        ++counts.elements;
        const QXmlStreamAttributes attributes = reader.attributes();
        for (const QXmlStreamAttribute &attribute : attributes)
            counts.characters += attribute.value().size();
    }
    Bench::expect(!reader.hasError(), "the description is not well-formed");
    return counts;
}

} // namespace

static void parse()
{
    ZelXmlReader::Limits limits;
    limits.size = 64 * 1024 * 1024;
    ZelInspectorConfiguration::setLimits(limits);
    for (int properties : {50, 500, 32'000}) { // the last is 5 MB
        QTemporaryFile file;
        const QByteArray text = description(properties);
        Bench::expect(file.open() && file.write(text) == text.size() && file.flush(), "the description is not written");
        const QString path = file.fileName();
        const auto ours = [&] {
            Counts counts;
            count(*ZelInspectorConfiguration::initWIthURL(QUrl::fromLocalFile(path)), counts);
            return counts;
        };
        Bench::expect(ours() == readByHand(path), "the two readers see different documents");
        Bench::compare(
            QStringLiteral("G read a description of %1 KB").arg(text.size() / 1024), properties > 10'000 ? 0.8 : 0,
            [&] { Bench::keep(ours()); }, [&] { Bench::keep(readByHand(path)); });
    }
    ZelInspectorConfiguration::setLimits({});
}
ZEL_BENCHMARK(parse)
