// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorProperty.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Selection/ZelValueSummary.h"
#include "Core/Undo/private/ZelRecordedWrite.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/private/ZelValueSummaryText.h"
#include "Resources/ZelLocalizedString.h"

#include <algorithm>
#include <cmath>
#include <optional>

// The part of the property editor that deals with the values of the selected objects.

static const QString g_selectionSegment = QStringLiteral(".selection.");

bool ZelInspectorProperty::keyPathHasControllerSelectionPrefix(const QString &keyPath)
{
    return keyPath.contains(g_selectionSegment);
}

QString ZelInspectorProperty::selectionControllerKeyPathFromKeyPath(const QString &keyPath)
{
    const qsizetype at = keyPath.lastIndexOf(g_selectionSegment);
    return at < 0 ? QString() : keyPath.left(at);
}

QString ZelInspectorProperty::keyPathByStripingControllerSelectionPrefix(const QString &keyPath)
{
    const qsizetype at = keyPath.lastIndexOf(g_selectionSegment);
    return at < 0 ? keyPath : keyPath.mid(at + g_selectionSegment.size());
}

QList<QObject *> ZelInspectorProperty::representedObjectsForControllerSelectionKeyPath(const QString &keyPath) const
{
    const QString controllerKeyPath = selectionControllerKeyPathFromKeyPath(keyPath);
    if (!ZelCheck(!controllerKeyPath.isEmpty(),
                  QStringLiteral("No controller selection key path available for %1").arg(keyPath)))
        return {};
    QObject *controller = ZelObject(ZelValueForKeyPath(m_owner.data(), controllerKeyPath));
    if (const auto *known = qobject_cast<ZelObjectController *>(controller))
        return known->selectedObjects();
    QList<QObject *> objects;
    const QVariantList selected = ZelList(ZelValueForKey(controller, "selectedObjects"));
    for (const QVariant &value : selected) {
        if (QObject *object = ZelObject(value))
            objects.append(object);
    }
    return objects;
}

QVariant ZelInspectorProperty::combinedValueWithValue(const QVariant &value, const QVariant &previousValue)
{
    if (ZelIsMarker(value, ZelMultipleValuesMarker) || ZelIsMarker(previousValue, ZelMultipleValuesMarker))
        return QVariant::fromValue(ZelMultipleValuesMarker);
    if (ZelIsMarker(value, ZelNoSelectionMarker))
        return previousValue;
    if (ZelIsMarker(previousValue, ZelNoSelectionMarker))
        return value;
    return ZelNotEqual(value, previousValue) ? QVariant::fromValue(ZelMultipleValuesMarker) : previousValue;
}

quint64 ZelInspectorProperty::unsignedValue(const QVariant &value)
{
    const int type = value.typeId();
    if (type != QMetaType::Double && type != QMetaType::Float)
        return value.toULongLong();
    const double number = std::trunc(value.toDouble());
    constexpr double limit = 18446744073709551616.0; // beyond which the conversion is undefined
    // Negated, so that it also holds for NaN.
    if (!(std::abs(number) < limit))
        return 0;
    return number < 0 ? 0 - quint64(-number) : quint64(number);
}

QVariant ZelInspectorProperty::valueForValueBitMask(const QVariant &value, quint64 bitMask)
{
    if (ZelIsNull(value))
        return {};
    return ZelIsControllerMarker(value) ? value : QVariant(unsignedValue(value) & bitMask);
}

QVariant ZelInspectorProperty::valueForValueBits(const QVariant &value, quint64 bits)
{
    if (ZelIsNull(value))
        return {};
    return ZelIsControllerMarker(value) ? value : QVariant((unsignedValue(value) & bits) != 0 ? 1 : 0);
}

QVariant ZelInspectorProperty::combinedReflectedValue(const ValueBlock &map) const
{
    QVariant combined = QVariant::fromValue(ZelNoSelectionMarker);
    if (!keyPathHasControllerSelectionPrefix(m_keyPath))
        return combinedValueWithValue(map(reflectedValue()), combined);
    ZelClassAccessors accessors(keyPathByStripingControllerSelectionPrefix(m_keyPath));
    const QList<QObject *> objects = representedObjectsForControllerSelectionKeyPath(m_keyPath);
    for (const QObject *object : objects) {
        const std::optional<QVariant> value = accessors.read(object);
        if (!value)
            return QVariant::fromValue(ZelNotApplicableMarker);
        combined = combinedValueWithValue(map(transformedForward(*value)), combined);
        if (ZelIsMarker(combined, ZelMultipleValuesMarker))
            break; // nothing brings it back to one value
    }
    return combined;
}

void ZelInspectorProperty::updateReflectedValues(const ValueBlock &block)
{
    const ZelPlaceScope scope(this);
    if (!ZelRequire(bool(block), "block", "src/Inspector/Properties/ZelInspectorProperty+ZelHelpers.cpp"))
        return;
    if (m_keyPath.isEmpty() || !m_owner)
        return;
    const bool isSelection = keyPathHasControllerSelectionPrefix(m_keyPath);
    const QList<QObject *> objects =
        isSelection ? representedObjectsForControllerSelectionKeyPath(m_keyPath) : QList<QObject *>{m_owner};
    const ZelKeyPath path = keyPathByStripingControllerSelectionPrefix(m_keyPath);
    QObject *controller =
        isSelection ? ZelObject(ZelValueForKeyPath(m_owner.data(), selectionControllerKeyPathFromKeyPath(m_keyPath)))
                    : nullptr;
    const ZelValueTransformerPtr transformer = valueTransformer(); // a setter may delete this editor
    const ZelObjectController::ChangeBatch batch(qobject_cast<ZelObjectController *>(controller), path);
    const auto map = [&](const QVariant &stored) -> std::optional<QVariant> {
        const QVariant old = transformer ? transformer->transformedValue(stored) : stored;
        const QVariant value = block(old);
        if (ZelEqual(value, old))
            return std::nullopt;
        return transformer ? transformer->reverseTransformedValue(value) : value;
    };
    writeUnlessRefused([&] { ZelRecordedWrite(undoManager()).mapValues(objects, path, map); });
}

// What the selected objects have

QList<QPointer<QObject>> ZelInspectorProperty::selectedObjects() const
{
    if (!m_owner || !keyPathHasControllerSelectionPrefix(m_keyPath))
        return {};
    QObject *controller =
        ZelObject(ZelValueForKeyPath(m_owner.data(), selectionControllerKeyPathFromKeyPath(m_keyPath)));
    if (const auto *known = qobject_cast<ZelObjectController *>(controller))
        return known->heldObjects();
    const QList<QObject *> objects = representedObjectsForControllerSelectionKeyPath(m_keyPath);
    return {objects.begin(), objects.end()};
}

ZelValueSummary ZelInspectorProperty::valueSummary() const
{
    if (!keyPathHasControllerSelectionPrefix(m_keyPath)) {
        const auto *outer = qobject_cast<const ZelInspectorProperty *>(m_owner.data());
        return outer ? outer->valueSummaryOfPart(m_keyPath) : ZelValueSummary();
    }
    const ZelValueSummary stored = ZelValueSummary::ofKeyPath(selectedObjects(), selectedKeyPath());
    const ZelValueTransformerPtr transformer = valueTransformer();
    return transformer ? stored.mapped([&](const QVariant &value) { return transformer->transformedValue(value); })
                       : stored;
}

ZelValueSummary ZelInspectorProperty::valueSummaryOfPart(const QString &) const
{
    return {};
}

QString ZelInspectorProperty::oneLine(const QString &text)
{
    constexpr qsizetype longest = 40;
    const QString trimmed = text.trimmed();
    const qsizetype end = trimmed.indexOf(u'\n');
    const qsizetype length = std::min(end < 0 ? trimmed.size() : end, longest);
    return length < trimmed.size() ? trimmed.left(length).trimmed() + QChar(0x2026) : trimmed;
}

QString ZelInspectorProperty::textForValue(const QVariant &value) const
{
    if (ZelIsNull(value))
        return ZelLocalizedString("No Value");
    const QString text = value.toString();
    return oneLine(text.isEmpty() ? ZelDescription(value) : text);
}

QString ZelInspectorProperty::valueSummaryText() const
{
    const QVariant whole = m_keyPath.isEmpty() ? QVariant() : ZelValueForKeyPath(m_owner.data(), m_keyPath);
    if (!ZelIsMarker(whole, ZelMultipleValuesMarker))
        return {};
    const ZelValueSummary summary = valueSummary();
    return ZelValueSummaryText::of(
        summary, [this](const QVariant &value) { return textForValue(value); }, tellsRange());
}
