// SPDX-License-Identifier: MIT
#include "Layout/private/ZelVisualFormat.h"

#include "Core/Errors/ZelAssertions.h"

ZelVisualFormat::ZelVisualFormat(const QString &format, const QHash<QString, QWidget *> &views,
                                 const QHash<QString, double> &metrics)
    : m_format(format)
    , m_views(views)
    , m_metrics(metrics)
{
    if (!parse())
        m_constraints.clear();
}

/// Reports the problem at the present position. Answers false, for the parsing functions to return.
bool ZelVisualFormat::fail(const QString &problem)
{
    m_constraints.clear();
    ZelFail(QStringLiteral("Malformed visual format \"%1\" at position %2: %3")
                .arg(m_format, QString::number(m_position), problem));
    return false;
}

bool ZelVisualFormat::accept(const char *text)
{
    const QLatin1String token(text);
    if (!QStringView(m_format).mid(m_position).startsWith(token))
        return false;
    m_position += token.size();
    return true;
}

bool ZelVisualFormat::parse()
{
    if (!parseOrientation())
        return false;
    std::optional<Rules> gap = Rules();
    const bool startsAtEdge = accept("|");
    if (startsAtEdge && !(gap = parseConnection(true)))
        return false;
    if (!parseView())
        return false;
    m_superview = m_view->parentWidget();
    if (startsAtEdge) {
        if (!m_superview)
            return fail(QStringLiteral("the first view has no parent"));
        addGaps(nullptr, m_view, *gap);
    }
    while (m_position < m_format.size()) {
        QWidget *before = m_view;
        if (!(gap = parseConnection(false)))
            return false;
        if (accept("|")) {
            if (!m_superview)
                return fail(QStringLiteral("the first view has no parent"));
            addGaps(before, nullptr, *gap);
            return m_position == m_format.size() || fail(QStringLiteral("text after the end"));
        }
        if (!parseView())
            return false;
        addGaps(before, m_view, *gap);
    }
    return true;
}

bool ZelVisualFormat::parseOrientation()
{
    m_isVertical = accept("V:");
    if (!m_isVertical)
        accept("H:");
    return true;
}

bool ZelVisualFormat::parseView()
{
    if (!accept("["))
        return fail(QStringLiteral("expected \"[\""));
    const qsizetype place = m_position;
    const QString name = parseName();
    m_view = m_views.value(name);
    if (!m_view) {
        m_position = place;
        return fail(QStringLiteral("no view named \"%1\"").arg(name));
    }
    Rules sizes;
    if (peek() == QLatin1Char('(') && !parseRules(sizes, true))
        return false;
    addSizes(m_view, sizes);
    return accept("]") || fail(QStringLiteral("expected \"]\""));
}

/// Reads the gap up to the next view or edge; answers nothing if it is malformed.
std::optional<ZelVisualFormat::Rules> ZelVisualFormat::parseConnection(bool isAtStart)
{
    Rules rules(1);
    if (!accept("-"))
        return rules;
    if (peek() == QLatin1Char('[') || peek() == QLatin1Char('|')) {
        const bool isAtEdge = isAtStart || peek() == QLatin1Char('|');
        rules.first().constant = isAtEdge ? GapToSuperview : GapBetweenViews;
        return rules;
    }
    if (peek() == QLatin1Char('(')) {
        rules.clear();
        if (!parseRules(rules, false))
            return {};
    } else if (!parseSimpleRule(rules.first())) {
        return {};
    }
    if (!accept("-")) {
        fail(QStringLiteral("expected \"-\""));
        return {};
    }
    return rules;
}

bool ZelVisualFormat::parseRules(Rules &rules, bool mayNameViews)
{
    accept("(");
    do {
        Rule rule;
        if (!parseRule(rule, mayNameViews))
            return false;
        rules.append(rule);
    } while (accept(","));
    return accept(")") || fail(QStringLiteral("expected \")\""));
}

bool ZelVisualFormat::parseRule(Rule &rule, bool mayNameViews)
{
    if (accept("<="))
        rule.relation = ZelLayoutConstraint::LessThanOrEqual;
    else if (accept(">="))
        rule.relation = ZelLayoutConstraint::GreaterThanOrEqual;
    else
        accept("==");
    const qsizetype place = m_position;
    const QString name = parseName();
    if (QWidget *widget = m_views.value(name); widget && mayNameViews) {
        rule.widget = widget;
        return parsePriority(rule);
    }
    m_position = place;
    return parseValue(rule.constant, true) && parsePriority(rule);
}

bool ZelVisualFormat::parseSimpleRule(Rule &rule)
{
    return parseValue(rule.constant, false) && parsePriority(rule);
}

bool ZelVisualFormat::parsePriority(Rule &rule)
{
    if (!accept("@"))
        return true;
    const qsizetype place = m_position;
    double priority = 0;
    if (!parseValue(priority, false))
        return false;
    if (priority <= 0 || priority > ZelLayoutPriorityRequired) {
        m_position = place;
        return fail(QStringLiteral("a priority is above 0 and at most 1000"));
    }
    rule.priority = ZelLayoutPriority(priority);
    return true;
}

bool ZelVisualFormat::parseValue(double &value, bool mayBeNegative)
{
    const qsizetype place = m_position;
    if (const QString name = parseName(); !name.isEmpty()) {
        const auto metric = m_metrics.constFind(name);
        if (metric == m_metrics.cend()) {
            m_position = place;
            return fail(QStringLiteral("no metric named \"%1\"").arg(name));
        }
        value = *metric;
        return true;
    }
    const bool isNegative = mayBeNegative && accept("-");
    const qsizetype start = m_position;
    while (peek().isDigit() || peek() == QLatin1Char('.'))
        ++m_position;
    bool ok = false;
    value = QStringView(m_format).mid(start, m_position - start).toDouble(&ok);
    if (!ok) {
        m_position = place;
        return fail(QStringLiteral("expected a number or a name"));
    }
    if (isNegative)
        value = -value;
    return true;
}

QString ZelVisualFormat::parseName()
{
    const qsizetype start = m_position;
    while (peek().isLetter() || peek() == QLatin1Char('_') || (m_position > start && peek().isDigit()))
        ++m_position;
    return m_format.mid(start, m_position - start);
}

/// Adds the gaps between two views. Where one of them is null, they run to the edge of the superview.
void ZelVisualFormat::addGaps(QWidget *before, QWidget *after, const Rules &rules)
{
    const auto start = m_isVertical ? ZelLayoutConstraint::Top : ZelLayoutConstraint::Leading;
    const auto end = m_isVertical ? ZelLayoutConstraint::Bottom : ZelLayoutConstraint::Trailing;
    for (const Rule &rule : rules) {
        if (after)
            m_constraints +=
                ZelLayoutConstraint::constraintWithItem(after, start, rule.relation, before ? before : m_superview,
                                                        before ? end : start, 1, rule.constant, rule.priority);
        else
            m_constraints +=
                ZelLayoutConstraint::constraintWithItem(before, end, ZelLayoutConstraint::Relation(-rule.relation),
                                                        m_superview, end, 1, -rule.constant, rule.priority);
    }
}

void ZelVisualFormat::addSizes(QWidget *widget, const Rules &rules)
{
    const auto size = m_isVertical ? ZelLayoutConstraint::Height : ZelLayoutConstraint::Width;
    for (const Rule &rule : rules) {
        m_constraints += ZelLayoutConstraint::constraintWithItem(
            widget, size, rule.relation, rule.widget, rule.widget ? size : ZelLayoutConstraint::NotAnAttribute, 1,
            rule.constant, rule.priority);
    }
}
