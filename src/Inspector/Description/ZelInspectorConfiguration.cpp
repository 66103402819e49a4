// SPDX-License-Identifier: MIT
#include "Inspector/Description/ZelInspectorConfiguration.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/ZelTransformerFactory.h"
#include "Core/Values/private/ZelNumberScanner.h"
#include "Inspector/Description/NSColor+ZelInspector.h"
#include "Resources/ZelBundle.h"
#include "Resources/ZelLocalizedString.h"

namespace {

ZelXmlReader::Limits g_limits;

} // namespace

std::optional<ZelInspectorConfiguration> ZelInspectorConfiguration::initWIthURL(const QUrl &url, ZelReadError *error)
{
    if (!ZelRequire(!url.isEmpty(), "url"))
        return std::nullopt;
    const ZelXmlElement root = ZelXmlReader(g_limits).readUrl(url, error);
    if (root.isNull())
        return std::nullopt;
    return ZelInspectorConfiguration(root);
}

ZelXmlReader::Limits ZelInspectorConfiguration::limits()
{
    return g_limits;
}

void ZelInspectorConfiguration::setLimits(const ZelXmlReader::Limits &limits)
{
    g_limits = limits;
}

QList<ZelInspectorConfiguration> ZelInspectorConfiguration::configurations() const
{
    QList<ZelInspectorConfiguration> result;
    m_element.forEachChild([&](const ZelXmlElement &child) { result.emplaceBack(child); });
    return result;
}

QList<ZelInspectorConfiguration> ZelInspectorConfiguration::configurationsNamed(QAnyStringView name) const
{
    QList<ZelInspectorConfiguration> result;
    m_element.forEachChild([&](const ZelXmlElement &child) {
        if (QAnyStringView::equal(child.name(), name))
            result.emplaceBack(child);
    });
    return result;
}

QString ZelInspectorConfiguration::stringValueNamed(QAnyStringView name, const QString &defaultValue) const
{
    const QStringView text = m_element.attribute(name);
    return text.isNull() ? defaultValue : text.toString();
}

QString ZelInspectorConfiguration::keyPathValueNamed(QAnyStringView name, const QString &defaultValue) const
{
    const QStringView text = m_element.attribute(name);
    if (text.size() > maximumKeyPathLength)
        ZelFail(QStringLiteral("The key path has more than %1 characters").arg(maximumKeyPathLength), place());
    else if (text.count(u'.') >= maximumKeys)
        ZelFail(QStringLiteral("The key path has more than %1 keys").arg(maximumKeys), place());
    else if (!text.isNull())
        return text.toString();
    return defaultValue;
}

QString ZelInspectorConfiguration::localizedStringValueNamed(QAnyStringView name, const QString &defaultValue) const
{
    return localizedStringForKey(stringValueNamed(name, defaultValue));
}

QString ZelInspectorConfiguration::localizedStringForKey(const QString &key) const
{
    return ZelLocalizedString(key);
}

bool ZelInspectorConfiguration::booleanValueNamed(QAnyStringView name, bool defaultValue) const
{
    const QStringView text = m_element.attribute(name);
    if (text.isNull())
        return defaultValue;
    const QString lower = text.first(std::min<qsizetype>(text.size(), 5)).toString().toLower();
    return lower == u"yes" || lower == u"true" || lower == u"1";
}

bool ZelInspectorConfiguration::booleanValueOfFileNamed(QAnyStringView name, bool defaultValue) const
{
    const ZelInspectorConfiguration root(m_element.root());
    return booleanValueNamed(name, root.booleanValueNamed(name, defaultValue));
}

qint64 ZelInspectorConfiguration::integerValueNamed(QAnyStringView name, qint64 defaultValue) const
{
    const QStringView text = m_element.attribute(name);
    if (text.isNull())
        return defaultValue;
    if (!ZelNumberScanner::isHexadecimal(text))
        return ZelNumberScanner::integer(text);
    const std::optional<quint64> bits = ZelNumberScanner::hexadecimal(text);
    if (!bits)
        ZelFail(u"Unabled to parse hex value: " + text, place());
    return bits ? qint64(*bits) : defaultValue;
}

quint64 ZelInspectorConfiguration::unsignedIntegerValueNamed(QAnyStringView name, quint64 defaultValue) const
{
    return quint64(integerValueNamed(name, qint64(defaultValue)));
}

double ZelInspectorConfiguration::doubleValueNamed(QAnyStringView name, double defaultValue) const
{
    const QStringView text = m_element.attribute(name);
    return text.isNull() ? defaultValue : ZelNumberScanner::real(text);
}

ZelSelector ZelInspectorConfiguration::selectorValueNamed(QAnyStringView name, const ZelSelector &defaultValue) const
{
    const QStringView text = m_element.attribute(name);
    return text.isNull() ? defaultValue : ZelSelector(text.toString());
}

ZelValueTransformerPtr
ZelInspectorConfiguration::valueTransformerForAttributeNamed(QAnyStringView name,
                                                             const ZelValueTransformerPtr &defaultValue) const
{
    const QStringView text = m_element.attribute(name);
    if (text.isNull())
        return defaultValue;
    QString error;
    const ZelValueTransformerPtr transformer = ZelTransformerFactory::transformer(text.toString(), &error);
    if (!transformer)
        ZelFail(error, place());
    return transformer;
}

QUrl ZelInspectorConfiguration::urlValueNamed(QAnyStringView name, const QUrl &defaultValue) const
{
    const QStringView text = m_element.attribute(name);
    const QUrl url = text.isNull() ? QUrl() : ZelBundle::mainBundle().urlForResource(text.toString());
    return url.isEmpty() ? defaultValue : url;
}

ZelColor ZelInspectorConfiguration::colorForValueNamed(QAnyStringView name, const ZelColor &defaultValue) const
{
    const QStringView text = m_element.attribute(name);
    return text.isNull() ? defaultValue : ZelInspectorColor::colorFromString(text.toString(), place());
}
