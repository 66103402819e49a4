// SPDX-License-Identifier: MIT
#include "Layout/ZelLayoutConstraint.h"

#include "Core/Errors/ZelAssertions.h"
#include "Layout/ZelConstraintLayout.h"
#include "Layout/private/ZelVisualFormat.h"

#include <array>
#include <cmath>

namespace {

QString nameOf(const QWidget *widget)
{
    if (!widget)
        return QStringLiteral("(deleted)");
    return widget->objectName().isEmpty() ? QString::fromLatin1(widget->metaObject()->className())
                                          : widget->objectName();
}

QString operandText(const QWidget *item, ZelLayoutConstraint::Attribute attribute)
{
    static constexpr std::array names{"",         "left",  "right",  "top",     "bottom",  "leading",
                                      "trailing", "width", "height", "centerX", "centerY", "baseline"};
    return nameOf(item) + QLatin1Char('.') + QLatin1String(names.at(size_t(attribute)));
}

bool isPriority(ZelLayoutPriority priority)
{
    return priority > 0 && priority <= ZelLayoutPriorityRequired;
}

} // namespace

bool ZelLayoutConstraint::isVertical(Attribute attribute)
{
    return attribute == Top || attribute == Bottom || attribute == Height || attribute == CenterY ||
           attribute == Baseline;
}

ZelLayoutConstraint::Ptr ZelLayoutConstraint::constraintWithItem(QWidget *item, Attribute attribute, Relation relation,
                                                                 QWidget *toItem, Attribute toAttribute,
                                                                 double multiplier, double constant,
                                                                 ZelLayoutPriority priority)
{
    if (!ZelRequire(item, "item != NULL") || !ZelRequire(attribute != NotAnAttribute, "attribute != NotAnAttribute") ||
        !ZelRequire(!toItem == (toAttribute == NotAnAttribute),
                    "(toItem == NULL) == (toAttribute == NotAnAttribute)") ||
        !ZelRequire(!toItem || isVertical(attribute) == isVertical(toAttribute),
                    "isVertical(attribute) == isVertical(toAttribute)") ||
        !ZelRequire(std::isfinite(multiplier) && std::isfinite(constant), "isfinite(constant)") ||
        !ZelRequire(isPriority(priority), "priority > 0 && priority <= 1000"))
        return {};
    Ptr constraint = Ptr::create();
    constraint->m_firstItem = item;
    constraint->m_firstAttribute = attribute;
    constraint->m_relation = relation;
    constraint->m_secondItem = toItem;
    constraint->m_secondAttribute = toAttribute;
    constraint->m_multiplier = multiplier;
    constraint->m_constant = constant;
    constraint->m_priority = priority;
    return constraint;
}

QList<ZelLayoutConstraint::Ptr> ZelLayoutConstraint::constraintsWithVisualFormat(const QString &format,
                                                                                 const QHash<QString, QWidget *> &views,
                                                                                 const QHash<QString, double> &metrics)
{
    return ZelVisualFormat(format, views, metrics).constraints();
}

void ZelLayoutConstraint::setConstant(double constant)
{
    if (ZelRequire(std::isfinite(constant), "isfinite(constant)"))
        setConstant(constant, false);
}

void ZelLayoutConstraint::setSlack(double constant)
{
    setConstant(constant, true);
}

void ZelLayoutConstraint::setConstant(double constant, bool isSlack)
{
    if (constant == m_constant && isSlack == m_isSlack)
        return;
    m_constant = constant;
    m_isSlack = isSlack;
    if (m_layout)
        m_layout->constantDidChange(*this);
}

double ZelLayoutConstraint::effectiveConstant() const
{
    return m_isSlack ? std::copysign(double(QWIDGETSIZE_MAX), m_constant) : m_constant;
}

void ZelLayoutConstraint::setPriority(ZelLayoutPriority priority)
{
    if (!ZelRequire(isPriority(priority), "priority > 0 && priority <= 1000") || priority == m_priority)
        return;
    m_priority = priority;
    if (m_layout)
        m_layout->priorityDidChange();
}

QString ZelLayoutConstraint::description() const
{
    static constexpr std::array relations{" <= ", " = ", " >= "};
    QString text = operandText(m_firstItem, m_firstAttribute) + QLatin1String(relations.at(size_t(m_relation + 1)));
    if (m_secondAttribute == NotAnAttribute) {
        text += QString::number(m_constant);
    } else {
        if (m_multiplier != 1)
            text += QString::number(m_multiplier) + QStringLiteral(" * ");
        text += operandText(m_secondItem, m_secondAttribute);
        if (m_constant != 0)
            text += (m_constant < 0 ? QStringLiteral(" - ") : QStringLiteral(" + ")) +
                    QString::number(std::abs(m_constant));
    }
    if (m_priority < ZelLayoutPriorityRequired)
        text += QStringLiteral(" @") + QString::number(m_priority);
    return text;
}
