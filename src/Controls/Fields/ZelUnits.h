// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QStringList>
#include <optional>

/// The units of measurement that number fields convert into each other, in kinds such as lengths or times.
///
/// Known from the start are lengths (pt, px, mm, cm, m, in or ", ft; 72 pt and 96 px are an inch), angles (°, deg, rad,
/// turn), times (ms, s, min, h) and parts of a whole (%). Only to be used on the main thread.
class ZEL_EXPORT ZelUnits
{
public:
    /// Makes a unit known, or known anew: `size` is how many of the first unit of its kind it is, such as 25.4 for an
    /// inch if the kind begins with millimetres. A kind that is not known yet begins with this unit. A symbol consists
    /// of letters or is one sign, and is the unit of one kind only; anything else, as well as a size that is not above
    /// 0, is a failed assertion and changes nothing.
    static void registerUnit(const QString &kind, const QString &symbol, double size);
    /// The kind of a unit, "length", "angle", "time" or "part" for those that are known from the start; null for an
    /// unknown one.
    static QString kindOf(const QString &symbol);
    /// How many of the unit `to` one of the unit `from` is; none if they are not of one known kind.
    static std::optional<double> ratio(const QString &from, const QString &to);
    /// The symbols of a kind in the order in which they became known.
    static QStringList symbolsOfKind(const QString &kind);
};
