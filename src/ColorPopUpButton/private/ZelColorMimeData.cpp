// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/private/ZelColorMimeData.h"

#include <QRegularExpression>

ZelColorMimeData::ZelColorMimeData(const ZelColor &color)
    : m_color(color)
{
    const QColor shown = color.toQColor();
    setColorData(shown);
    setText(shown.name(shown.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb));
}

ZelColor ZelColorMimeData::colorIn(const QMimeData *data)
{
    if (!data)
        return {};
    if (const auto *own = qobject_cast<const ZelColorMimeData *>(data))
        return own->m_color;
    if (data->hasColor()) {
        const auto color = qvariant_cast<QColor>(data->colorData());
        if (color.isValid())
            return color;
    }
    if (!data->hasText())
        return {};
    static const QRegularExpression form(QStringLiteral("^#([0-9a-f]{6}|[0-9a-f]{8})$"),
                                         QRegularExpression::CaseInsensitiveOption);
    const QString text = data->text().trimmed();
    return form.match(text).hasMatch() ? ZelColor(QColor(text)) : ZelColor();
}
