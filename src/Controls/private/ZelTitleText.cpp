// SPDX-License-Identifier: MIT
#include "Controls/private/ZelTitleText.h"

QString ZelTitleText::fromTitle(const QString &title)
{
    return QString(title).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString ZelTitleText::toTitle(const QString &text)
{
    QString title = text;
    for (qsizetype i = title.indexOf(QLatin1Char('&')); i >= 0; i = title.indexOf(QLatin1Char('&'), i + 1))
        title.remove(i, 1);
    return title;
}
