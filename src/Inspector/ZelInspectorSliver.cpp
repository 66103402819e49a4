// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorSliver.h"

#include "Controls/ZelControlSize.h"
#include "Controls/ZelLabel.h"
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/private/ZelRowHeights.h"
#include "Inspector/private/ZelRowMenu.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelView.h"
#include "ViewController/private/ZelTabOrder.h"
#include "Views/ZelHorizontalStackView.h"

#include <algorithm>

namespace {

using Constraint = ZelLayoutConstraint;

// In points.
constexpr double g_columnWidth = 165; // of the row in which editors may share a line
constexpr double g_columnSpacing = 4;
constexpr double g_labelWidth = 79;
constexpr double g_leadingMargin = 82;
constexpr double g_leadingMarginAtFullWidth = 4;
constexpr double g_trailingMargin = 5;

constexpr ZelLayoutPriority g_baselinePriority = 750;
constexpr ZelLayoutPriority g_bottomPriority = 750;
constexpr ZelLayoutPriority g_emptyPriority = 500;

Constraint::Ptr tie(QWidget *first, Constraint::Attribute attribute, QWidget *second,
                    Constraint::Attribute secondAttribute, double constant = 0,
                    ZelLayoutPriority priority = ZelLayoutPriorityRequired)
{
    return Constraint::constraintWithItem(first, attribute, Constraint::Equal, second, secondAttribute, 1, constant,
                                          priority);
}

/// Null unless both editors have a view with a baseline.
Constraint::Ptr tiedBaselines(ZelInspectorProperty *first, ZelInspectorProperty *second)
{
    QWidget *a = first->viewForBaselineAlignment();
    QWidget *b = second->viewForBaselineAlignment();
    if (!a || !b)
        return {};
    return tie(a, Constraint::Baseline, b, Constraint::Baseline,
               second->baselineOffsetFromView() - first->baselineOffsetFromView(), g_baselinePriority);
}

bool shareLine(ZelInspectorProperty *first, ZelInspectorProperty *second)
{
    return first->canTileIntoColumnsWithProperty(second) && first->canTileIntoColumnsWithWidth(g_columnWidth) &&
           second->canTileIntoColumnsWithWidth(g_columnWidth);
}

} // namespace

struct ZelInspectorSliver::Parts
{
    QPointer<ZelLabel> label;
    QPointer<ZelLabel> mark; // in the place of a label that the row does not have
    QString givenName;       // the accessible name that was given to controls without one of their own
    Constraint::Ptr baselineConstraint;
    QList<Constraint::Ptr> rowConstraints;
    QList<QPointer<ZelHorizontalStackView>> pairs;

    /// What stands before the editors; null if nothing does.
    ZelLabel *leading() const { return label ? label : mark; }
};

ZelInspectorSliver::ZelInspectorSliver(QObject *owner)
    : ZelInspectorConditionalContainer(owner, Observes::WhileInstalled)
{
    ZelRowMenu::listen();
}

ZelInspectorSliver::~ZelInspectorSliver()
{
    uninstall();
}

void ZelInspectorSliver::setFullWidth(bool fullWidth)
{
    if (!ZelAssign(m_fullWidth, fullWidth))
        return;
    ZelRowHeights::noteKind(this);
    if (isViewLoaded())
        updateView();
    Q_EMIT fullWidthChanged();
}

void ZelInspectorSliver::setProperties(const QList<ZelInspectorProperty *> &properties)
{
    if (!m_properties.assign(properties, this))
        return;
    ZelRowHeights::noteKind(this);
    watchDefaults();
    if (isViewLoaded())
        updateView();
    Q_EMIT propertiesChanged();
}

ZelInspectorSliver::Parts &ZelInspectorSliver::parts()
{
    if (!m_parts)
        m_parts = std::make_unique<Parts>();
    return *m_parts;
}

ZelLabel *ZelInspectorSliver::label() const
{
    return m_parts ? m_parts->label.data() : nullptr;
}

void ZelInspectorSliver::setLabel(ZelLabel *label)
{
    if (ZelAssign(parts().label, label))
        Q_EMIT labelChanged();
}

const Constraint::Ptr &ZelInspectorSliver::baselineConstraint() const
{
    static const Constraint::Ptr none;
    return m_parts ? m_parts->baselineConstraint : none;
}

void ZelInspectorSliver::setBaselineConstraint(const Constraint::Ptr &constraint)
{
    if (ZelAssign(parts().baselineConstraint, constraint))
        Q_EMIT baselineConstraintChanged();
}

void ZelInspectorSliver::loadView()
{
    auto *row = new ZelView;
    row->setFont(ZelControlSize::smallFont());
    setView(row);
    updateView();
}

void ZelInspectorSliver::viewDidUnload()
{
    ZelInspectorConditionalContainer::viewDidUnload();
    if (!m_parts)
        return;
    m_parts->rowConstraints.clear();
    m_parts->baselineConstraint.reset();
}

void ZelInspectorSliver::updateView()
{
    if (!isViewLoaded())
        return;
    ZelView *row = view();
    const ZelTabOrder tabOrder(row);
    const QList<QPointer<ZelHorizontalStackView>> formerPairs = std::exchange(parts().pairs, {});
    const QList<QWidget *> lines = makeLines();
    updateLabel();
    row->removeConstraints(std::exchange(parts().rowConstraints, {}));
    QWidget *label = parts().leading();
    row->setSubviews(label ? lines + QList<QWidget *>{label} : lines);
    if (label)
        label->show(); // Qt hides what is made while its parent is visible
    if (isViewInstalled())
        tabOrder.followSubviews();
    parts().rowConstraints = constraintsForLines(lines) + constraintsForLabel();
    row->addConstraints(parts().rowConstraints);
    Q_EMIT baselineConstraintChanged();
    for (const auto &pair : formerPairs) {
        if (pair)
            pair->setSubviews({}); // the editors' views belong to their controllers
        delete pair;
    }
}

QList<QWidget *> ZelInspectorSliver::makeLines()
{
    const QList<ZelInspectorProperty *> all = properties();
    QList<QWidget *> lines;
    lines.reserve(all.size() + 1);
    for (qsizetype i = 0; i < all.size(); ++i) {
        const bool isPair = i + 1 < all.size() && shareLine(all.at(i), all.at(i + 1));
        QWidget *line = isPair ? makePair(all.at(i), all.at(i + 1)) : all.at(i)->view();
        if (line)
            lines.append(line);
        i += isPair;
    }
    return lines;
}

ZelView *ZelInspectorSliver::makePair(ZelInspectorProperty *first, ZelInspectorProperty *second)
{
    auto *pair = new ZelHorizontalStackView;
    parts().pairs.append(pair);
    pair->setSpacing(g_columnSpacing);
    pair->setEqualSizes(true);
    pair->setMirrored(true);
    pair->addSubview(first->view());
    pair->addSubview(second->view());
    if (const Constraint::Ptr baselines = tiedBaselines(first, second))
        pair->addConstraint(baselines);
    return pair;
}

// Label

void ZelInspectorSliver::titleDidChange()
{
    if (!isViewLoaded())
        return;
    if (needsLabel() == !label())
        updateView();
    else
        showTitle();
}

void ZelInspectorSliver::updateLabel()
{
    Parts &parts = this->parts();
    const bool hadLabel = parts.label;
    if (!needsLabel()) {
        delete parts.label;
    } else if (!parts.label) {
        parts.label = makeLabel();
    }
    if (parts.label || !m_isChanged)
        delete parts.mark;
    else if (!parts.mark)
        parts.mark = makeLabel();
    letLabelScrub();
    if (hadLabel != !parts.label.isNull())
        Q_EMIT labelChanged();
    showTitle();
}

/// Lets the label be dragged where it is the title of one number.
void ZelInspectorSliver::letLabelScrub()
{
    ZelInspectorNumberProperty *untitled = nullptr;
    int count = 0;
    const QList<ZelInspectorProperty *> all = properties();
    for (ZelInspectorProperty *property : all) {
        auto *number = qobject_cast<ZelInspectorNumberProperty *>(property);
        if (!number || !number->title().isEmpty())
            continue;
        untitled = number;
        ++count;
    }
    ZelInspectorNumberProperty::letTitleScrub(label(), count == 1 ? untitled : nullptr);
}

/// Shows the title in the label, and makes it the accessible name of the editors' controls for people who cannot see
/// it.
void ZelInspectorSliver::showTitle()
{
    if (label())
        label()->setText(title());
    const QList<ZelInspectorProperty *> all = properties();
    for (ZelInspectorProperty *property : all) {
        if (!property->title().isEmpty() || !property->titleKeyPath().isEmpty())
            continue;
        for (QWidget *control : property->controlsNamedByRow()) {
            const QString name = control ? control->accessibleName() : title();
            if (name != title() && (name.isEmpty() || name == parts().givenName))
                control->setAccessibleName(title());
        }
    }
    parts().givenName = title();
    if (m_isChanged)
        showChanged();
}

ZelLabel *ZelInspectorSliver::makeLabel()
{
    auto *label = new ZelLabel(view());
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setTextColor(QColor::fromRgbF(0.2f, 0.2f, 0.2f));
    return label;
}

// Defaults

/// Only editors that know a default are listened to, so that other rows cost nothing.
void ZelInspectorSliver::watchDefaults()
{
    for (ZelInspectorProperty *property : properties()) {
        if (property->hasDefaultValue())
            connect(property, &ZelInspectorProperty::changedFromDefaultChanged, this, &ZelInspectorSliver::showChanged,
                    Qt::UniqueConnection);
    }
}

void ZelInspectorSliver::showChanged()
{
    const QList<ZelInspectorProperty *> all = properties();
    const bool isChanged = std::any_of(all.begin(), all.end(), [](const auto *p) { return p->isChangedFromDefault(); });
    if (ZelAssign(m_isChanged, isChanged) && isViewLoaded() && !label())
        updateView(); // the dot comes or goes
    if (ZelLabel *leading = m_parts ? m_parts->leading() : nullptr) {
        leading->setDotted(isChanged);
        describeChanged(leading, isChanged);
    }
    for (ZelInspectorProperty *property : all) {
        if (!property->hasDefaultValue() || !property->isViewLoaded())
            continue;
        for (QWidget *control : property->controlsNamedByRow())
            describeChanged(control, property->isChangedFromDefault());
    }
}

/// A description that the control has already stays.
void ZelInspectorSliver::describeChanged(QWidget *control, bool isChanged) const
{
    if (!control)
        return;
    const QString text = ZelLocalizedString("Changed from its default");
    const QString former = control->accessibleDescription();
    if (isChanged ? former.isEmpty() : former == text)
        control->setAccessibleDescription(isChanged ? text : QString());
}

// Constraints

QList<Constraint::Ptr> ZelInspectorSliver::constraintsForLines(const QList<QWidget *> &lines)
{
    ZelView *row = view();
    if (lines.isEmpty())
        return {tie(row, Constraint::Height, nullptr, Constraint::NotAnAttribute, 0, g_emptyPriority)};
    QList<Constraint::Ptr> constraints;
    constraints.reserve(3 * lines.size() + 1);
    const double leading = m_fullWidth ? g_leadingMarginAtFullWidth : g_leadingMargin;
    QWidget *previous = nullptr;
    for (QWidget *line : lines) {
        constraints << tie(line, Constraint::Leading, row, Constraint::Leading, leading)
                    << tie(line, Constraint::Trailing, row, Constraint::Trailing, -g_trailingMargin)
                    << (previous ? tie(line, Constraint::Top, previous, Constraint::Bottom)
                                 : tie(line, Constraint::Top, row, Constraint::Top));
        previous = line;
    }
    constraints << tie(previous, Constraint::Bottom, row, Constraint::Bottom, 0, g_bottomPriority);
    return constraints;
}

QList<Constraint::Ptr> ZelInspectorSliver::constraintsForLabel()
{
    parts().baselineConstraint.reset();
    ZelLabel *label = parts().leading();
    if (!label)
        return {};
    QList<Constraint::Ptr> constraints{
        tie(label, Constraint::Leading, view(), Constraint::Leading),
        tie(label, Constraint::Width, nullptr, Constraint::NotAnAttribute,
            m_fullWidth ? g_leadingMarginAtFullWidth : g_labelWidth),
    };
    const QList<ZelInspectorProperty *> all = properties();
    QWidget *baselineView = all.isEmpty() ? nullptr : all.first()->viewForBaselineAlignment();
    if (!baselineView)
        return constraints;
    const Constraint::Ptr baselines = tie(label, Constraint::Baseline, baselineView, Constraint::Baseline,
                                          all.first()->baselineOffsetFromView(), g_baselinePriority);
    if (parts().label)
        parts().baselineConstraint = baselines;
    constraints << baselines;
    return constraints;
}
