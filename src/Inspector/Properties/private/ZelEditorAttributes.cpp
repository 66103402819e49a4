// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelEditorAttributes.h"

#include "Core/Errors/ZelAssertions.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"

void ZelEditorAttributes::fail(const QString &message, const ZelInspectorConfiguration &configuration)
{
    ZelFail(message, configuration.place(), "src/Inspector/ZelDeclarativeInspectorGenerator.cpp");
}

std::optional<quint64> ZelEditorAttributes::bits(const ZelInspectorConfiguration &configuration, QStringView name)
{
    if (!configuration.hasValueNamed(name))
        return std::nullopt;
    return configuration.unsignedIntegerValueNamed(name);
}

void ZelEditorAttributes::storeWord(uint &index, const ZelInspectorConfiguration &configuration, QStringView name,
                                    const QStringList &words, const QString &message)
{
    const QString text = configuration.stringValueNamed(name, words.first());
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (text.compare(words.at(i), Qt::CaseInsensitive) == 0) {
            index = uint(i);
            return;
        }
    }
    fail(message + text, configuration);
}

void ZelEditorAttributes::storeFormatStyle(uint &style, const ZelInspectorConfiguration &configuration)
{
    storeWord(style, configuration, u"formatStyle", {QStringLiteral("integer"), QStringLiteral("decimal")},
              QStringLiteral("Unsupported format style: "));
}

void ZelEditorAttributes::storeTitle(QString &title, QString &titleKeyPath,
                                     const ZelInspectorConfiguration &configuration, const QString &name)
{
    if (configuration.hasValueNamed(name))
        title = configuration.localizedStringValueNamed(name);
    titleKeyPath = configuration.keyPathValueNamed(QString(name + u"KeyPath"));
}
