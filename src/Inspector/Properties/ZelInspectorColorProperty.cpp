// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorColorProperty.h"

#include "Core/Binding/ZelBinding.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Selection/ZelValueSummary.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorAttributes.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "ViewController/ZelView.h"

namespace {

bool hasNoTarget(const QVariant &value)
{
    return ZelIsMarker(value, ZelNoSelectionMarker) || ZelIsMarker(value, ZelNotApplicableMarker);
}

/// Whether a colour is a QColor rather than a ZelColor. A value that is no colour gives the no-selection marker, over
/// which the fold passes.
QVariant isQColor(const QVariant &value)
{
    return ZelColor::isColor(value) ? QVariant(value.typeId() == QMetaType::QColor)
                                    : QVariant::fromValue(ZelNoSelectionMarker);
}

} // namespace

ZelInspectorColorProperty::ZelInspectorColorProperty(QObject *owner)
    : ZelInspectorProperty(owner)
    , colorList(ZelColorList::colorListNamed(QStringLiteral("System")))
{
    static const bool isRegistered = [] {
        ZelValueSummary::registerHash(QMetaType::fromType<ZelColor>(),
                                      [](const QVariant &value) { return size_t(qHash(value.value<ZelColor>())); });
        return true;
    }();
    Q_UNUSED(isRegistered)
}

void ZelInspectorColorProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorProperty::configure(configuration);
    const QString name = configuration.stringValueNamed(u"colorList", QStringLiteral("System"));
    colorList = ZelColorList::colorListNamed(name);
    if (!colorList)
        ZelEditorAttributes::fail(u"No color list found with name " + name, configuration);
    defaultColor = configuration.colorForValueNamed(u"defaultColor");
    showsAlpha = configuration.booleanValueNamed(u"showsAlpha", true);
}

ZelInspectorColorProperty::~ZelInspectorColorProperty()
{
    uninstall();
}

void ZelInspectorColorProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_popUpButton = new ZelColorPopUpButton(container);
    ZelEditorLayout::setName(m_popUpButton, title());
    ZelEditorLayout::setStretches(m_popUpButton, 100);
    m_label = ZelEditorLayout::addTitleLabel(container, title());
    ZelEditorLayout::layOut(container, m_popUpButton, m_label);
    connect(m_popUpButton, &ZelColorPopUpButton::action, this, [this] { userDidChangeValue(m_popUpButton); });
}

void ZelInspectorColorProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindTitle(m_label, ZelValueBinding);
    if (m_popUpButton && colorList)
        m_popUpButton->setColorList(colorList);
    if (m_popUpButton && defaultColor.isValid())
        m_popUpButton->setDefaultColor(defaultColor);
    if (m_popUpButton)
        m_popUpButton->setShowsAlpha(showsAlpha);
    observeForUpdate(enabledKeyPath());
    observeForUpdate(keyPath());
    updateView();
}

void ZelInspectorColorProperty::viewWillUninstall()
{
    ZelInspectorProperty::viewWillUninstall();
    if (m_popUpButton) // nobody would see what the panel edits
        m_popUpButton->cell()->deactivateColorPanel();
}

QString ZelInspectorColorProperty::textForValue(const QVariant &value) const
{
    const bool isTold = m_popUpButton && ZelColor::isColor(value);
    return isTold ? m_popUpButton->cell()->textForColor(value) : ZelInspectorProperty::textForValue(value);
}

void ZelInspectorColorProperty::updateView()
{
    if (!m_popUpButton)
        return;
    const QVariant value = reflectedValue();
    m_popUpButton->setEnabled(!hasNoTarget(value) && isWritable() && isEffectivelyEnabled());
    m_popUpButton->setSelectedColor(value);
}

/// Each object's colour keeps its class; see the class for objects that have no colour.
void ZelInspectorColorProperty::writeColor(const ZelColor &color)
{
    const QVariant plain = color.toQColor();
    const QVariant whole = color.toVariant();
    const QVariant kind = combinedReflectedValue(&isQColor);
    const bool isMixed = ZelIsMarker(kind, ZelMultipleValuesMarker);
    if (isMixed && !valueTransformer() &&
        ZelKeyPath(keyPathByStripingControllerSelectionPrefix(keyPath())).isSingleKey()) {
        const auto ofKind = [=](const QVariant &old) {
            return old.typeId() == QMetaType::fromType<ZelColor>().id() ? whole : plain;
        };
        const QPointer<ZelInspectorColorProperty> alive(this);
        updateReflectedValues(ofKind);
        if (alive)
            flashUnlessKept(ofKind);
        return;
    }
    const auto wantsZelColors = [this] {
        return ZelPropertyDomain::ofKeyPath(owner(), keyPath()).types().contains(QMetaType::fromType<ZelColor>());
    };
    const bool isPlain = ZelIsControllerMarker(kind) ? !isMixed && !wantsZelColors() : kind.toBool();
    const QVariant &value = isPlain ? plain : whole;
    if (ZelColor::fromVariant(value) != ZelColor::fromVariant(reflectedValue()))
        setReflectedValue(value);
}

void ZelInspectorColorProperty::userDidChangeValue(QObject *sender)
{
    if (!m_popUpButton)
        return;
    const ZelColor color = ZelColor::fromVariant(m_popUpButton->selectedColor());
    const QPointer<ZelInspectorColorProperty> alive(this);
    if (color.isValid())
        writeColor(color);
    if (alive)
        ZelInspectorProperty::userDidChangeValue(sender);
}

QWidget *ZelInspectorColorProperty::viewForBaselineAlignment()
{
    view();
    return m_popUpButton;
}
