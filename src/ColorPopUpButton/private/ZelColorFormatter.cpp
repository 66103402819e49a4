// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/private/ZelColorFormatter.h"

#include "Resources/ZelLocalizedString.h"
#include "Resources/private/ZelSystemColors.h"

#include <QRegularExpression>

namespace {

/// Invalid for other numbers of digits than 3, 6 and 8.
QColor fromDigits(const QString &digits)
{
    const bool hasAlpha = digits.size() == 8;
    if (!hasAlpha && digits.size() != 6 && digits.size() != 3)
        return {};
    QColor color(u'#' + (hasAlpha ? digits.first(6) : digits));
    if (hasAlpha)
        color.setAlpha(digits.last(2).toInt(nullptr, 16));
    return color;
}

bool isName(const QString &text, const QString &key)
{
    const QStringList names{key, ZelSystemColors::displayName(key), ZelSystemColors::localizedName(key)};
    return !text.isEmpty() && names.contains(text, Qt::CaseInsensitive);
}

ZelColor colorInList(const QString &name, const ZelColorList &list)
{
    const QStringList keys = list.allKeys();
    const auto found = std::find_if(keys.begin(), keys.end(), [&](const QString &key) { return isName(name, key); });
    return found == keys.end() ? ZelColor() : list.colorWithKey(*found);
}

} // namespace

QString ZelColorFormatter::stringForObjectValue(const QVariant &value) const
{
    const QColor color = ZelColor::fromVariant(value).toQColor();
    if (!color.isValid())
        return {};
    const QString alpha = QStringLiteral("%1").arg(color.alpha(), 2, 16, QChar(u'0'));
    return color.name() + (color.alpha() < 255 ? alpha : QString());
}

ZelColor ZelColorFormatter::colorOfName(const QString &name) const
{
    QList<ZelColorListPtr> lists = ZelColorList::availableColorLists();
    if (m_list)
        lists.prepend(m_list);
    for (const ZelColorListPtr &list : std::as_const(lists)) {
        ZelColor color = colorInList(name, *list);
        if (color.isValid())
            return color;
    }
    // Qt's own numbers would be another order of the digits.
    return !name.startsWith(u'#') && QColor::isValidColor(name) ? QColor(name) : QColor();
}

bool ZelColorFormatter::objectValueForString(const QString &text, QVariant *value, QString *error) const
{
    static const QRegularExpression form(QStringLiteral("^(#?)([0-9a-f]*)$"),
                                         QRegularExpression::CaseInsensitiveOption);
    const QString trimmed = text.trimmed();
    ZelColor color = colorOfName(trimmed);
    const QRegularExpressionMatch number = form.match(trimmed);
    if (!color.isValid() && number.hasMatch())
        color = fromDigits(number.captured(2));
    if (color.isValid()) {
        *value = color.toVariant();
        return true;
    }
    *error = number.hasMatch() || trimmed.startsWith(u'#')
                 ? ZelLocalizedString(QStringLiteral("A color has 3, 6 or 8 hexadecimal digits."))
                 : ZelLocalizedString(QStringLiteral("There is no color of this name."));
    return false;
}
