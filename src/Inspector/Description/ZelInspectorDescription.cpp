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
    for (qsizetype i = 0; i < word.size(); ++i) {
        const QChar c = word.at(i);
        const bool wasLower = i > 0 && !word.at(i - 1).isUpper() && word.at(i - 1) != u'_';
        const bool endsCapitals = i > 0 && word.at(i - 1).isUpper() && i + 1 < word.size() && word.at(i + 1).isLower();
        const bool begins = title.isEmpty() || title.endsWith(u' ') || (c.isUpper() && (wasLower || endsCapitals));
        if (c == u'_' || (begins && !title.isEmpty() && !title.endsWith(u' ')))
            title += title.isEmpty() || title.endsWith(u' ') ? u"" : u" ";
        if (c != u'_')
            title += begins ? c.toUpper() : c;
    }
    return title.trimmed();
}
