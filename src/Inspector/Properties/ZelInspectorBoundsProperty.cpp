// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"

#include "Inspector/Properties/ZelEditorLayout.h"
#include "Observation/ZelObservations.h"
#include "Platform/Binding/ZelBinding.h"
#include "Platform/Resources/ZelLocalizedString.h"
#include "Platform/Runtime/ZelAssertions.h"
#include "Platform/Runtime/ZelKeyValueCoding.h"
#include "Platform/Runtime/ZelValues.h"
#include "ViewController/ZelView.h"

namespace {

const char g_context = 0;

/// One number editor: its component, title and undo action.
struct Row
{
    const char *key;
    const char *title;
    const char *actionName;
};

constexpr Row g_rows[] = {
    {"originX", "X", "Change Origin X"},
    {"originY", "Y", "Change Origin Y"},
    {"sizeWidth", "Width", "Change Width"},
    {"sizeHeight", "Height", "Change Height"},
};

/// QVariant's own conversion costs many times more for what is a rectangle already.
QRectF rectOf(const QVariant &value)
{
    return value.typeId() == QMetaType::QRectF ? *static_cast<const QRectF *>(value.constData()) : value.toRectF();
}

QString localized(const char *key)
{
    return ZelLocalizedString(QString::fromLatin1(key));
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
    : ZelInspectorCompositeProperty(owner, keys())
{
    connect(this, &ZelInspectorBoundsProperty::flippedChanged, this,
            &ZelInspectorBoundsProperty::updateInternalEnabled);
}

ZelInspectorBoundsProperty::~ZelInspectorBoundsProperty()
{
    uninstall();
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
    if (anchor == m_anchor)
        return;
    m_anchor = anchor;
    Q_EMIT anchorChanged();
}

ZelRectAnchor ZelInspectorBoundsProperty::flippedAnchor(ZelRectAnchor anchor) const
{
    if (anchor > ZelOriginBottomRight) {
        ZelFail(QStringLiteral("Unsupported case"));
        return anchor;
    }
    return m_isFlipped ? anchor : ZelRectAnchor((2 - anchor / 3) * 3 + anchor % 3);
}

void ZelInspectorBoundsProperty::updateFlipped()
{
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

ZelInspectorCompositeProperty::Components ZelInspectorBoundsProperty::componentsOfValue(const QVariant &value) const
{
    if (value.typeId() != QMetaType::QRectF && value.typeId() != QMetaType::QRect)
        return {};
    const QRectF rect = rectOf(value);
    const QPointF origin = CGRectGetOriginForAnchor(flippedAnchor(m_anchor), rect);
    return {origin.x(), origin.y(), rect.width(), rect.height()};
}

QVariant ZelInspectorBoundsProperty::valueByReplacing(const QVariant &old, int index, double component) const
{
    const QRectF rect = rectOf(old);
    const ZelRectAnchor anchor = flippedAnchor(m_anchor);
    switch (index) {
    case OriginX:
        return CGRectSetOriginXForAnchor(rect, anchor, component, false);
    case OriginY:
        return CGRectSetOriginYForAnchor(rect, anchor, component, false);
    case SizeWidth:
        return CGRectSetSizeWidthForAnchor(rect, anchor, component);
    default:
        return CGRectSetSizeHeightForAnchor(rect, anchor, component);
    }
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
    m_label = ZelEditorLayout::addTitleLabel(container, localized("Origin"));
    m_originSelectionView->setAccessibleName(localized("Origin"));
}

void ZelInspectorBoundsProperty::addNumberEditors(ZelView *container)
{
    for (int i = 0; i < ComponentCount; ++i) {
        const Row &row = g_rows[i];
        m_numberProperties[i] = makeNumberEditor(i, localized(row.title), localized(row.actionName));
        if (i >= SizeWidth)
            m_numberProperties[i]->minimum = 0;
        container->addSubview(m_numberProperties[i]->view());
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
                                          &g_context);
        observations.addBindingWithObject(m_originSelectionView, ZelEnabledBinding, this, "internalEnabled", {},
                                          &g_context);
    }
    if (owner() && !flippedKeyPath.isEmpty())
        observations.addObservationWithObject(
            owner(), flippedKeyPath, 0, [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateFlipped(); },
            &g_context);
    for (const char *key : {"flipped", "anchor"})
        observations.addObservationWithObject(
            this, key, 0, [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateValues(); }, &g_context);
}

void ZelInspectorBoundsProperty::viewWillUninstall()
{
    ZelInspectorCompositeProperty::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&g_context);
}

QWidget *ZelInspectorBoundsProperty::viewForBaselineAlignment()
{
    view();
    return m_numberProperties[OriginX] ? m_numberProperties[OriginX]->viewForBaselineAlignment() : nullptr;
}
