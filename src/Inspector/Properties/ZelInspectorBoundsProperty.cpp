// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"

#include "Core/Binding/ZelBinding.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "Layout/ZelConstraintLayout.h"
#include "Observation/ZelObservations.h"
#include "Resources/ZelLocalizedString.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/ZelView.h"

namespace {

/// One number editor: its component, title and undo action.
struct Row
{
    const char *key;
    const char *title;
    const char *actionName;
};

constexpr Row g_rows[] = {
    {"originX", QT_TRANSLATE_NOOP("Application", "X"), QT_TRANSLATE_NOOP("Application", "Change Origin X")},
    {"originY", QT_TRANSLATE_NOOP("Application", "Y"), QT_TRANSLATE_NOOP("Application", "Change Origin Y")},
    {"sizeWidth", QT_TRANSLATE_NOOP("Application", "Width"), QT_TRANSLATE_NOOP("Application", "Change Width")},
    {"sizeHeight", QT_TRANSLATE_NOOP("Application", "Height"), QT_TRANSLATE_NOOP("Application", "Change Height")},
};

QRectF rectOf(const ZelGeometryType::Numbers &numbers)
{
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

ZelRectAnchor modelAnchor(ZelRectAnchor anchor, bool isFlipped)
{
    if (anchor > ZelOriginBottomRight) {
        ZelFail(QStringLiteral("Unsupported case"));
        return anchor;
    }
    return isFlipped ? anchor : ZelRectAnchor((2 - anchor / 3) * 3 + anchor % 3);
}

/// Beside the picture of the anchors, a field may be narrower than its title. The title then takes the room below the
/// stepper as well.
void letTitleBeWider(ZelInspectorNumberProperty *editor)
{
    using Constraint = ZelLayoutConstraint;
    ZelLabel *label = editor->label();
    ZelView *container = editor->view();
    const QList<Constraint::Ptr> constraints = container->constraints();
    for (const Constraint::Ptr &constraint : constraints) {
        const Constraint::Attribute attribute = constraint->firstAttribute();
        const bool isOfLabel = constraint->firstItem() == label || constraint->secondItem() == label;
        if (isOfLabel && (attribute == Constraint::Left || attribute == Constraint::Right))
            constraint->setPriority(250);
    }
    ZelLayoutPriorities priorities = ZelConstraintLayout::priorities(label);
    priorities.horizontalCompression = 300;
    ZelConstraintLayout::setPriorities(label, priorities);
    const auto add = [&](Constraint::Attribute attribute, Constraint::Relation relation, QWidget *other,
                         ZelLayoutPriority priority) {
        container->addConstraint(
            Constraint::constraintWithItem(label, attribute, relation, other, attribute, 1, 0, priority));
    };
    add(Constraint::CenterX, Constraint::Equal, editor->textField(), 260);
    add(Constraint::Left, Constraint::GreaterThanOrEqual, container, ZelLayoutPriorityRequired);
    add(Constraint::Right, Constraint::LessThanOrEqual, container, ZelLayoutPriorityRequired);
}

QStringList keys()
{
    QStringList result;
    for (const Row &row : g_rows)
        result.append(QString::fromLatin1(row.key));
    return result;
}

} // namespace

ZelInspectorBoundsProperty::ZelInspectorBoundsProperty(QObject *owner)
    : ZelInspectorCompositeProperty(owner, keys(), QMetaType::fromType<QRectF>())
{
    connect(this, &ZelInspectorBoundsProperty::flippedChanged, this,
            &ZelInspectorBoundsProperty::updateInternalEnabled);
}

void ZelInspectorBoundsProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorCompositeProperty::configure(configuration);
    setFlipped(configuration.booleanValueNamed(u"flipped", true));
    flippedKeyPath = configuration.keyPathValueNamed(u"flippedKeyPath");
    showOriginSelector = configuration.booleanValueNamed(u"showOriginSelector");
}

// Anchors

void ZelInspectorBoundsProperty::setFlipped(const QVariant &flipped)
{
    if (ZelEqual(flipped, m_flipped))
        return;
    m_flipped = flipped;
    m_isFlipped = !ZelIsControllerMarker(flipped) && flipped.toBool();
    Q_EMIT flippedChanged();
}

void ZelInspectorBoundsProperty::setAnchor(ZelRectAnchor anchor)
{
    if (ZelAssign(m_anchor, anchor))
        Q_EMIT anchorChanged();
}

void ZelInspectorBoundsProperty::setAnchorIndex(int index)
{
    if (index >= 0 && index <= int(ZelOriginBottomRight))
        setAnchor(ZelRectAnchor(index));
}

ZelRectAnchor ZelInspectorBoundsProperty::flippedAnchor(ZelRectAnchor anchor) const
{
    return modelAnchor(anchor, m_isFlipped);
}

void ZelInspectorBoundsProperty::updateFlipped()
{
    const ZelPlaceScope scope(this);
    if (!flippedKeyPath.isEmpty())
        setFlipped(ZelValueForKeyPath(owner(), flippedKeyPath));
}

bool ZelInspectorBoundsProperty::computeInternalEnabled() const
{
    return isEffectivelyEnabled() && !ZelIsControllerMarker(m_flipped);
}

void ZelInspectorBoundsProperty::originSelectionViewDidSelectAnchor(ZelOriginSelectionView *, ZelRectAnchor anchor)
{
    setAnchor(anchor);
}

// Components

void ZelInspectorBoundsProperty::makeComponents(std::span<const Numbers> values, int index, double *components) const
{
    const ZelRectAnchor anchor = modelAnchor(m_anchor, m_isFlipped);
    for (size_t i = 0; i < values.size(); ++i) {
        const QRectF rect = rectOf(values[i]);
        components[i] = index == OriginX   ? CGRectGetOriginForAnchor(anchor, rect).x()
                        : index == OriginY ? CGRectGetOriginForAnchor(anchor, rect).y()
                                           : values[i][size_t(index)];
    }
}

void ZelInspectorBoundsProperty::replaceComponents(std::span<Numbers> values, int index, const double *components) const
{
    const ZelRectAnchor anchor = modelAnchor(m_anchor, m_isFlipped);
    for (size_t i = 0; i < values.size(); ++i) {
        const QRectF rect = rectOf(values[i]);
        const double component = components[i];
        const QRectF replaced = index == OriginX     ? CGRectSetOriginXForAnchor(rect, anchor, component, false)
                                : index == OriginY   ? CGRectSetOriginYForAnchor(rect, anchor, component, false)
                                : index == SizeWidth ? CGRectSetSizeWidthForAnchor(rect, anchor, component)
                                                     : CGRectSetSizeHeightForAnchor(rect, anchor, component);
        values[i] = {replaced.x(), replaced.y(), replaced.width(), replaced.height()};
    }
}

QStringList ZelInspectorBoundsProperty::searchTexts() const
{
    QStringList texts;
    for (const Row &row : g_rows)
        texts += {ZelLocalizedString(row.title), keyOfPart(QString::fromLatin1(row.title).toLower())};
    return texts;
}

// The view

void ZelInspectorBoundsProperty::loadView()
{
    removeEditors();
    ZelView *container = makeEditorView();
    if (showOriginSelector)
        addOriginSelector(container);
    addNumberEditors(container);
    layOut(container);
}

void ZelInspectorBoundsProperty::addOriginSelector(ZelView *container)
{
    m_originSelectionView = new ZelOriginSelectionView(container);
    m_originSelectionView->setAnchor(m_anchor);
    m_originSelectionView->setDelegate(this);
    m_label = ZelEditorLayout::addTitleLabel(container, ZelLocalizedString("Origin"));
    m_originSelectionView->setAccessibleName(ZelLocalizedString("Origin"));
}

void ZelInspectorBoundsProperty::addNumberEditors(ZelView *container)
{
    for (int i = 0; i < ComponentCount; ++i) {
        const Row &row = g_rows[i];
        m_numberProperties[i] = makeNumberEditor(i, ZelLocalizedString(row.title), ZelLocalizedString(row.actionName));
        if (i >= SizeWidth)
            m_numberProperties[i]->minimum = 0;
        container->addSubview(m_numberProperties[i]->view());
        if (m_originSelectionView)
            letTitleBeWider(m_numberProperties[i]);
    }
}

void ZelInspectorBoundsProperty::layOut(ZelView *container)
{
    static const QStringList plainFormats{
        QStringLiteral("H:|[originX]-4-[originY]|"), QStringLiteral("H:|[sizeWidth]-4-[sizeHeight]|"),
        QStringLiteral("V:|[originX][sizeWidth]|"), QStringLiteral("V:|[originY][sizeHeight]|")};
    static const QStringList selectorFormats{
        QStringLiteral("H:|-2-[selector]-5-[originX]-4-[originY]|"),
        QStringLiteral("H:|-2-[selector]-5-[sizeWidth]-4-[sizeHeight]|"), QStringLiteral("V:|-2-[selector][label]-2-|"),
        QStringLiteral("V:|[originX][sizeWidth]"), QStringLiteral("V:|[originY][sizeHeight]")};
    QHash<QString, QWidget *> views;
    for (int i = 0; i < ComponentCount; ++i)
        views.insert(QString::fromLatin1(g_rows[i].key), m_numberProperties[i]->view());
    if (m_originSelectionView) {
        views.insert(QStringLiteral("selector"), m_originSelectionView);
        views.insert(QStringLiteral("label"), m_label);
    }
    for (const QString &format : m_originSelectionView ? selectorFormats : plainFormats)
        container->addConstraintsWithVisualFormat(format, views);
    using Constraint = ZelLayoutConstraint;
    const auto tie = [&](QWidget *first, QWidget *second, Constraint::Attribute attribute) {
        container->addConstraint(
            Constraint::constraintWithItem(first, attribute, Constraint::Equal, second, attribute));
    };
    tie(views.value(QStringLiteral("originX")), views.value(QStringLiteral("originY")), Constraint::Width);
    tie(views.value(QStringLiteral("sizeWidth")), views.value(QStringLiteral("sizeHeight")), Constraint::Width);
    if (!m_originSelectionView)
        return;
    tie(m_label, m_originSelectionView, Constraint::Left);
    tie(m_label, m_originSelectionView, Constraint::Right);
}

void ZelInspectorBoundsProperty::viewDidInstall()
{
    updateFlipped();
    ZelInspectorCompositeProperty::viewDidInstall();
    ZelObservations observations(this);
    if (m_originSelectionView) {
        observations.addBindingWithObject(m_originSelectionView, QStringLiteral("anchor"), this, "anchor", {},
                                          &ZelInstalledContext);
        observations.addBindingWithObject(m_originSelectionView, ZelEnabledBinding, this, "internalEnabled", {},
                                          &ZelInstalledContext);
    }
    if (owner() && !flippedKeyPath.isEmpty())
        observations.addObservationWithObject(
            owner(), flippedKeyPath, 0, [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateFlipped(); },
            &ZelInstalledContext);
    for (const char *key : {"flipped", "anchor"})
        observations.addObservationWithObject(
            this, key, 0, [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateValues(); },
            &ZelInstalledContext);
}

QWidget *ZelInspectorBoundsProperty::viewForBaselineAlignment()
{
    view();
    return m_numberProperties[OriginX] ? m_numberProperties[OriginX]->viewForBaselineAlignment() : nullptr;
}
