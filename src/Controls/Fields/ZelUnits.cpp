// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelUnits.h"

#include "Core/Errors/ZelAssertions.h"

#include <cmath>
#include <numbers>

namespace {

struct Unit
{
    QString kind;
    QString symbol;
    double size;
};

QList<Unit> &units()
{
    static const QString length = QStringLiteral("length");
    static const QString angle = QStringLiteral("angle");
    static const QString time = QStringLiteral("time");
    static QList<Unit> known = {
        {length, QStringLiteral("pt"), 1},           {length, QStringLiteral("px"), 72 / 96.0},
        {length, QStringLiteral("mm"), 72 / 25.4},   {length, QStringLiteral("cm"), 720 / 25.4},
        {length, QStringLiteral("m"), 72000 / 25.4}, {length, QStringLiteral("in"), 72},
        {length, QStringLiteral("ft"), 864},         {length, QStringLiteral("\""), 72},
        {length, QStringLiteral("″"), 72},           {angle, QStringLiteral("°"), 1},
        {angle, QStringLiteral("deg"), 1},           {angle, QStringLiteral("rad"), 180 / std::numbers::pi},
        {angle, QStringLiteral("turn"), 360},        {time, QStringLiteral("s"), 1},
        {time, QStringLiteral("ms"), 0.001},         {time, QStringLiteral("min"), 60},
        {time, QStringLiteral("h"), 3600},           {QStringLiteral("part"), QStringLiteral("%"), 1},
    };
    return known;
}

const Unit *unitFor(const QString &symbol)
{
    const auto found =
        std::find_if(units().cbegin(), units().cend(), [&symbol](const Unit &unit) { return unit.symbol == symbol; });
    return found == units().cend() ? nullptr : &*found;
}

bool isSymbol(const QString &text)
{
    const auto isLetter = [](QChar c) { return c.isLetter(); };
    const auto isSign = [](QChar c) { return c.isSymbol() || c == QLatin1Char('%') || c.isLetter(); };
    return text.size() == 1 ? isSign(text.at(0)) && !QStringLiteral("+-*/^=<>|").contains(text)
                            : !text.isEmpty() && std::all_of(text.begin(), text.end(), isLetter);
}

} // namespace

void ZelUnits::registerUnit(const QString &kind, const QString &symbol, double size)
{
    const Unit *known = unitFor(symbol);
    if (!ZelCheck(isSymbol(symbol) && std::isfinite(size) && size > 0 && (!known || known->kind == kind),
                  QStringLiteral("Invalid unit “%1” of kind “%2”").arg(symbol, kind)))
        return;
    if (known)
        units()[known - units().constData()].size = size;
    else
        units().append({kind, symbol, size});
}

QString ZelUnits::kindOf(const QString &symbol)
{
    const Unit *unit = unitFor(symbol);
    return unit ? unit->kind : QString();
}

std::optional<double> ZelUnits::ratio(const QString &from, const QString &to)
{
    const Unit *fromUnit = unitFor(from);
    const Unit *toUnit = unitFor(to);
    if (!fromUnit || !toUnit || fromUnit->kind != toUnit->kind)
        return {};
    return fromUnit->size / toUnit->size;
}

QStringList ZelUnits::symbolsOfKind(const QString &kind)
{
    QStringList symbols;
    for (const Unit &unit : units())
        if (unit.kind == kind)
            symbols.append(unit.symbol);
    return symbols;
}
