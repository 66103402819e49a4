// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelAssertions.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include <QRegularExpression>
#include <QStringList>
#include <cstdio>
#include <cstdlib>

namespace {
/// Wrong values are no fault of the library.
class SilentHandler : public ZelAssertionHandler
{
public:
    void handleFailure(const QString &, const QString &, const ZelSourcePlace &) override {}
};

void expect(bool condition, const char *text)
{
    if (condition)
        return;
    std::fprintf(stderr, "not true: %s\n", text);
    std::abort();
}

void readEveryKind(const ZelInspectorConfiguration &configuration, const QString &name)
{
    const QString text = configuration.stringValueNamed(name);
    expect(configuration.hasValueNamed(name) && !text.isNull(), "an attribute that is listed has a value");
    configuration.localizedStringValueNamed(name);
    configuration.booleanValueNamed(name);
    const qint64 integer = configuration.integerValueNamed(name);
    expect(configuration.unsignedIntegerValueNamed(name) == quint64(integer),
           "integers of both kinds have the same bits");
    const double real = configuration.doubleValueNamed(name);
    expect(real - real == 0.0, "a real number is finite");
    configuration.selectorValueNamed(name);
    configuration.valueTransformerForAttributeNamed(name);
    const ZelColor color = configuration.colorForValueNamed(name);
    expect(color.toQColor().isValid() == color.isValid(), "a colour can be shown");
}

/// Reads everything below the configuration, and looks for each element at its place in the text.
void walk(const ZelInspectorConfiguration &configuration, const QStringList &lines)
{
    const ZelSourcePlace place = configuration.place();
    expect(place.line >= 1 && place.line <= lines.size() && place.column >= 1, "an element's place is in the file");
    const QList<uint> characters = lines[place.line - 1].toUcs4().mid(place.column - 1);
    const QString rest =
        QString::fromUcs4(reinterpret_cast<const char32_t *>(characters.constData()), characters.size());
    expect(rest.startsWith(u'<') && QStringView(rest).mid(1).startsWith(configuration.name()),
           "an element's tag is at its place");
    for (qsizetype i = 0; i < configuration.element().attributeCount(); ++i)
        readEveryKind(configuration, configuration.element().attributeName(i));
    for (const ZelInspectorConfiguration &child : configuration.configurations())
        walk(child, lines);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    static SilentHandler handler;
    ZelAssertionHandler::setCurrent(&handler);
    const QByteArray data(reinterpret_cast<const char *>(bytes), qsizetype(size));
    ZelReadError error;
    const ZelXmlElement root = ZelXmlReader().readData(data, QStringLiteral("fuzz.xml"), &error);
    expect(root.isNull() == error.isSet(), "a document is read, or there is an error");
    if (root.isNull())
        return 0;
    const qsizetype markLength = data.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    static const QRegularExpression lineEnd(QStringLiteral("\r\n?|\n"));
    walk(ZelInspectorConfiguration(root), QString::fromUtf8(data.mid(markLength)).split(lineEnd));
    return 0;
}
