// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QRectF>

// Numbers as text that tells apart any two of them: Qt's own comparisons take some for equal that are not.

inline QString text(double v)
{
    return QString::number(v, 'g', QLocale::FloatingPointShortest);
}
inline QString text(const QPointF &p)
{
    return text(p.x()) + u' ' + text(p.y());
}
inline QString text(const QSizeF &s)
{
    return text(s.width()) + u' ' + text(s.height());
}
inline QString text(const QRectF &r)
{
    return text(r.topLeft()) + u' ' + text(r.size());
}
template<typename First, typename Second, typename... Others>
QString text(const First &first, const Second &second, const Others &...others)
{
    return text(first) + u", " + text(second, others...);
}
