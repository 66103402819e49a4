// SPDX-License-Identifier: MIT
#include "Sample.h"

#include <QTextCursor>
#include <QTextDocument>

Sample::Sample(bool isOther)
    : remarks(QStringLiteral("To be cleaned."))
{
    if (!isOther)
        return;
    on = false;
    speed = 90;
    opacity = 0.25;
    rotation = 200;
    limit = 40;
    name = QStringLiteral("Chandelier");
    remarks = ZelAttributedString(QStringLiteral("Heavy."));
    kind = Ceiling;
    m_styles = Styles(Bold) | Underline;
    fill = Qt::blue;
    due = QDate(2024, 12, 24);
    font = QFont(QStringLiteral("DejaVu Serif"), 9);
    pattern = QStringLiteral("Waves");
    size = {120, 60};
    origin = {10, 5};
    margins = {1, 2, 3, 8};
    line = {0, 0, 30, 50};
    axis = {0, 1, 0};
    frame = {10, 40, 120, 60};
    keywords = QStringList{QStringLiteral("crystal")};
}

void Sample::setStyles(Styles styles)
{
    if (m_styles == styles)
        return;
    m_styles = styles;
    Q_EMIT changed();
}

/// What makes an editor refuse its value.
QString Sample::validateName(const QString &name)
{
    return name.contains(u'/') ? tr("Names have no slash.") : QString();
}
