// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelEditedTypes.h"

#include "Core/Values/ZelGeometryType.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelTextForm.h"
#include "Resources/ZelColor.h"

#include <QColor>

namespace {

bool isNumber(QMetaType type)
{
    return ZelIsNumber(QVariant(type));
}

bool isText(QMetaType type)
{
    return type.id() == QMetaType::QString;
}

bool isColor(QMetaType type)
{
    return type == QMetaType::fromType<QColor>() || type == QMetaType::fromType<ZelColor>();
}

/// Qt has texts of these, but they mean nothing to people.
bool hasNoText(QMetaType type)
{
    return type.id() == QMetaType::QFont || isColor(type) || type.id() == QMetaType::QStringList;
}

} // namespace

bool ZelEditedTypes::contains(QMetaType editorType, QMetaType type)
{
    if (!editorType.isValid() || editorType == type || (isColor(editorType) && isColor(type)))
        return true;
    const bool isPlain = isNumber(type) || isText(type);
    if (isPlain && (isNumber(editorType) || isText(editorType)))
        return true;
    if ((isText(editorType) && hasNoText(type)) || (isText(type) && hasNoText(editorType)))
        return false;
    const ZelGeometryType *geometry = ZelGeometryType::find(type);
    const ZelGeometryType *ofEditor = ZelGeometryType::find(editorType);
    if (isText(editorType) && (geometry || ZelTextForm::has(type)))
        return true;
    if (geometry && ofEditor)
        return geometry->isLike(*ofEditor);
    return QMetaType::canConvert(type, editorType) && QMetaType::canConvert(editorType, type);
}
