// SPDX-License-Identifier: MIT
#include "Inspector/Description/ZelInspectorDescription.h"

#include "Core/Errors/ZelAssertions.h"
#include "Inspector/Description/private/ZelClassDescriber.h"

ZelInspectorDescription ZelInspectorDescription::forMetaObject(const QMetaObject *metaObject, const Options &options)
{
    if (!ZelRequire(metaObject, "metaObject"))
        return {};
    ZelClassDescriber describer(metaObject, options);
    const QMetaObject *described = options.declaredBy ? options.declaredBy : metaObject;
    ZelInspectorDescription description(describer.describe(), QString::fromUtf8(described->className()));
    description.m_properties = describer.properties();
    description.m_propertiesWithoutEditor = describer.propertiesWithoutEditor();
    return description;
}

ZelInspectorDescription ZelInspectorDescription::forMetaObject(const QMetaObject *metaObject)
{
    return forMetaObject(metaObject, {});
}

QString ZelInspectorDescription::titleForName(const QString &name)
{
    const QString word = name.section(QStringLiteral("::"), -1);
    QString title;
    const auto isAtWord = [&title] { return title.isEmpty() || title.endsWith(u' '); };
    for (qsizetype i = 0; i < word.size(); ++i) {
        const QChar c = word.at(i);
        const bool isAfterLower = i > 0 && word.at(i - 1).isLower();
        const bool isBeforeLower = i + 1 < word.size() && word.at(i + 1).isLower(); // ends a row of capitals
        if ((c == u'_' || (c.isUpper() && (isAfterLower || isBeforeLower))) && !isAtWord())
            title += u' ';
        if (c != u'_')
            title += isAtWord() ? c.toUpper() : c;
    }
    return title.trimmed();
}
