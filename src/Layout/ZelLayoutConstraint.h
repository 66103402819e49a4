// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QHash>
#include <QList>
#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QWidget>

class ZelConstraintLayout;

using ZelLayoutPriority = float; ///< 0 < priority <= 1000
inline constexpr ZelLayoutPriority ZelLayoutPriorityRequired = 1000;

/// A linear relation between two attributes of widgets: first = multiplier * second + constant (or <=, >=).
///
/// Both attributes belong to one axis. Coordinates are those of the view that holds the constraint: x runs to the
/// right, y downwards, in points. A constraint is shared; constant and priority may be changed while it is installed,
/// and the layout follows.
class ZEL_EXPORT ZelLayoutConstraint
{
public:
    enum Attribute {
        NotAnAttribute,
        Left,
        Right,
        Top,
        Bottom,
        Leading,
        Trailing,
        Width,
        Height,
        CenterX,
        CenterY,
        Baseline
    };
    enum Relation { LessThanOrEqual = -1, Equal = 0, GreaterThanOrEqual = 1 };
    using Ptr = QSharedPointer<ZelLayoutConstraint>;

    /// Makes a constraint on one attribute of a widget; without a second item the constant alone counts. A missing
    /// item or attribute, attributes of two axes, a number that is not finite and a priority out of range are
    /// assertions, after which the answer is null.
    static Ptr constraintWithItem(QWidget *item, Attribute attribute, Relation relation, QWidget *toItem,
                                  Attribute toAttribute, double multiplier = 1, double constant = 0,
                                  ZelLayoutPriority priority = ZelLayoutPriorityRequired);
    /// Makes the constraints of a visual format such as "H:|-2-[field]-[button(>=20@750)]|". A gap without a number is
    /// 8 points between views and 20 to the superview's edge. A format says nothing about alignment: such constraints
    /// are made one by one. A malformed text is an assertion that names the text and the position; the answer is empty
    /// then.
    static QList<Ptr> constraintsWithVisualFormat(const QString &format, const QHash<QString, QWidget *> &views,
                                                  const QHash<QString, double> &metrics = {});

    QWidget *firstItem() const { return m_firstItem; }
    QWidget *secondItem() const { return m_secondItem; }
    Attribute firstAttribute() const { return m_firstAttribute; }
    Attribute secondAttribute() const { return m_secondAttribute; }
    Relation relation() const { return m_relation; }
    double multiplier() const { return m_multiplier; }
    double constant() const { return m_constant; }
    void setConstant(double constant);
    ZelLayoutPriority priority() const { return m_priority; }
    void setPriority(ZelLayoutPriority priority);
    /// "first.left >= second.right + 8 @750", for messages.
    QString description() const;

private:
    friend class ZelConstraintLayout;
    friend class ZelLayoutSystem;
    friend class ZelLayoutSide;
    friend class ZelStackView;
    /// Sets a constant that stands for a distance without limit, until setConstant is called.
    void setSlack(double constant);
    void setConstant(double constant, bool isSlack);
    double effectiveConstant() const;
    static bool isVertical(Attribute attribute);

    QPointer<QWidget> m_firstItem;
    QPointer<QWidget> m_secondItem;
    Attribute m_firstAttribute = NotAnAttribute;
    Attribute m_secondAttribute = NotAnAttribute;
    Relation m_relation = Equal;
    double m_multiplier = 1;
    double m_constant = 0;
    ZelLayoutPriority m_priority = ZelLayoutPriorityRequired;
    ZelConstraintLayout *m_layout = nullptr; // where it is installed
    int m_place = -1;                        // in the layout's compiled axis; -1 if it is not in use
    bool m_isConflictReported = false;
    bool m_isSlack = false;
};
