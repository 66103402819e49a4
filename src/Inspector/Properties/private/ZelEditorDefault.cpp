// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelEditorDefault.h"

#include "Core/Values/private/ZelValueConversion.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorAttributes.h"
#include "Inspector/Properties/private/ZelTypedText.h"

void ZelEditorDefault::configure(const ZelInspectorConfiguration &configuration, QMetaType type)
{
    keyPath = configuration.keyPathValueNamed(u"defaultValueKeyPath");
    if (!configuration.hasValueNamed(u"defaultValue"))
        return;
    const QString text = configuration.stringValueNamed(u"defaultValue");
    const bool isColor = type == QMetaType::fromType<QColor>() && text.startsWith(u"NS");
    value = isColor ? configuration.colorForValueNamed(u"defaultValue").toVariant() : QVariant(text);
    if (type.isValid() && !converted(value, type))
        ZelEditorAttributes::fail(
            QStringLiteral("defaultValue=\"%1\" is no %2").arg(text, QString::fromUtf8(type.name())), configuration);
}

std::optional<QVariant> ZelEditorDefault::converted(const QVariant &value, QMetaType type)
{
    if (value.typeId() == QMetaType::QString)
        return ZelTypedText::described(value.toString(), type);
    QVariant typed = value;
    return ZelValueConversion::convert(typed, type) == ZelValueConversion::Fits ? std::optional(typed) : std::nullopt;
}
