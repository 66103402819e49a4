// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelFormatter.h"
#include "Resources/ZelColorList.h"

/// Shows colours as "#rrggbb", or as "#rrggbbaa" where they are not opaque, as in CSS.
///
/// It also reads "#rgb", all these without the "#", the names of colours in SVG, and those of the colours in the lists,
/// in English and in the user's language. Capitals do not count. The colour of a list is taken as it is, a named one by
/// its name.
class ZelColorFormatter : public ZelFormatter
{
public:
    /// Names are looked up in this list first, then in the others; null for none.
    explicit ZelColorFormatter(const ZelColorListPtr &list)
        : m_list(list)
    {
    }

    QString stringForObjectValue(const QVariant &value) const override;
    bool objectValueForString(const QString &text, QVariant *value, QString *error) const override;

private:
    ZelColor colorOfName(const QString &name) const;

    ZelColorListPtr m_list;
};
