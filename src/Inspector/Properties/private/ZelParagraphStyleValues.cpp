// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelParagraphStyleValues.h"

#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

#include <QMetaProperty>

namespace {

const QMetaObject &styleMetaObject()
{
    return ZelParagraphStyle::staticMetaObject;
}

} // namespace

const QList<QByteArray> &ZelParagraphStyleValues::names()
{
    static const QList<QByteArray> names = [] {
        QList<QByteArray> list;
        for (int i = 0; i < styleMetaObject().propertyCount(); ++i)
            list.append(styleMetaObject().property(i).name());
        return list;
    }();
    return names;
}

ZelParagraphStyleValues::ZelParagraphStyleValues()
    : m_values(names().size(), QVariant::fromValue(ZelNoSelectionMarker))
{
}

void ZelParagraphStyleValues::fold(const ZelParagraphStyle &style)
{
    if (!ZelAssign(m_last, style))
        return;
    for (qsizetype i = 0; i < m_values.size(); ++i) {
        const QVariant value = styleMetaObject().property(int(i)).readOnGadget(&style);
        m_values[i] = ZelInspectorProperty::combinedValueWithValue(value, m_values.at(i));
    }
}

QVariant ZelParagraphStyleValues::value(const QByteArray &name) const
{
    return m_values.value(names().indexOf(name));
}

void ZelParagraphStyleValues::store(ZelParagraphStyle *style, const QByteArray &name, const QVariant &value)
{
    const qsizetype index = names().indexOf(name);
    if (index >= 0 && ZelIsNotNull(value) && !ZelIsControllerMarker(value))
        styleMetaObject().property(int(index)).writeOnGadget(style, value);
}
