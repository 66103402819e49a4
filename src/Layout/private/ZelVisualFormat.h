// SPDX-License-Identifier: MIT
#pragma once

#include "Layout/ZelLayoutConstraint.h"

#include <optional>

/// Reads a visual format such as "V:|-2-[field][label(>=12)]-0@250-|".
///
///     format     = [ "H:" | "V:" ] [ "|" connection ] view { connection view } [ connection "|" ]
///     connection = nothing (no gap) | "-" (the standard gap) | "-" gap "-"
///     gap        = value [ "@" value ] | "(" rule { "," rule } ")"
///     view       = "[" name [ "(" rule { "," rule } ")" ] "]"
///     rule       = [ "==" | "<=" | ">=" ] value-or-view [ "@" value ]
///     value      = number (in parentheses also negative) | name of a metric
///
/// "|" is the edge of the views' parent. Horizontal gaps run from leading to trailing, so that they follow the layout
/// direction. A malformed text is an assertion that names the text and the position; it makes no constraints.
class ZelVisualFormat
{
public:
    ZelVisualFormat(const QString &format, const QHash<QString, QWidget *> &views,
                    const QHash<QString, double> &metrics);
    const QList<ZelLayoutConstraint::Ptr> &constraints() const { return m_constraints; }

private:
    struct Rule
    {
        ZelLayoutConstraint::Relation relation = ZelLayoutConstraint::Equal;
        double constant = 0;
        QWidget *widget = nullptr; // a size like that widget's
        ZelLayoutPriority priority = ZelLayoutPriorityRequired;
    };
    using Rules = QList<Rule>;

    static constexpr double GapBetweenViews = 8;
    static constexpr double GapToSuperview = 20;

    bool parse();
    bool parseOrientation();
    bool parseView();
    std::optional<Rules> parseConnection(bool isAtStart);
    bool parseRules(Rules &rules, bool mayNameViews);
    bool parseRule(Rule &rule, bool mayNameViews);
    bool parseSimpleRule(Rule &rule);
    bool parsePriority(Rule &rule);
    bool parseValue(double &value, bool mayBeNegative);
    QString parseName();
    void addGaps(QWidget *before, QWidget *after, const Rules &rules);
    void addSizes(QWidget *widget, const Rules &rules);

    QChar peek() const { return m_position < m_format.size() ? m_format.at(m_position) : QChar(); }
    bool accept(const char *text);
    bool fail(const QString &problem);

    const QString m_format;
    const QHash<QString, QWidget *> &m_views;
    const QHash<QString, double> &m_metrics;
    QList<ZelLayoutConstraint::Ptr> m_constraints;
    QWidget *m_superview = nullptr;
    QWidget *m_view = nullptr; // the last one read
    qsizetype m_position = 0;
    bool m_isVertical = false;
};
