// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/ZelExport.h"

#include <QObject>
#include <QPointer>
#include <QVariantMap>
#include <optional>

// Names of bindings: each is the key of the bound object's property that follows the model.
inline const QString ZelValueBinding = QStringLiteral("value");
inline const QString ZelTitleBinding = QStringLiteral("title");
inline const QString ZelEnabledBinding = QStringLiteral("enabled");
inline const QString ZelHiddenBinding = QStringLiteral("hidden");
inline const QString ZelMinValueBinding = QStringLiteral("minValue");
inline const QString ZelMaxValueBinding = QStringLiteral("maxValue");
inline const QString ZelIncrementBinding = QStringLiteral("increment");
inline const QString ZelContentValuesBinding = QStringLiteral("contentValues");
inline const QString ZelSelectedIndexBinding = QStringLiteral("selectedIndex");

// Options of a binding; the texts are the constants' names.
inline const QString ZelValueTransformerBindingOption =
    QStringLiteral("ZelValueTransformerBindingOption"); ///< a ZelValueTransformerPtr
inline const QString ZelValueTransformerNameBindingOption = QStringLiteral("ZelValueTransformerNameBindingOption");
inline const QString ZelNullPlaceholderBindingOption =
    QStringLiteral("ZelNullPlaceholderBindingOption"); ///< text shown for no value
inline const QString ZelConditionallySetsEditableBindingOption = QStringLiteral(
    "ZelConditionallySetsEditableBindingOption"); ///< true: "editable" follows whether a value can be edited
inline const QString ZelHidesIfReadOnlyBindingOption =
    QStringLiteral("ZelHidesIfReadOnlyBindingOption"); ///< true: hidden where there is a value that cannot be written

using ZelBindingOptions = QVariantMap;

/// One binding of an object, as it was made.
struct ZEL_EXPORT ZelBindingInfo
{
    QPointer<QObject> observedObject;
    ZelKeyPath observedKeyPath;
    ZelBindingOptions options;
};

/// Binds a property of an object to a key path of another. The property takes the (transformed) value now and at every
/// change. What the user enters into a control is (reverse transformed and) written back when the control reports it; a
/// button that cannot be checked reports nothing. A binding of the same name is replaced. Selection markers are handed
/// to properties that can show them, those of the library's controls; other properties get no value in their place.
///
/// A value can be edited if there is one, if the transformer, if any, can be reversed, and if no class of the selected
/// objects has the property read-only. Either object may die at any time. Does nothing for a null object and an empty
/// name or path. Throws ZelUndefinedKeyException if the object has no property of the binding's name; whatever is
/// thrown while the first value is taken over is thrown on, and no binding is left behind.
ZEL_EXPORT void ZelBind(QObject *object, const QString &binding, QObject *toObject, const ZelKeyPath &keyPath,
                        const ZelBindingOptions &options = {});
/// Ends the binding; the property keeps its last value. Does nothing if there is no such binding.
ZEL_EXPORT void ZelUnbind(QObject *object, const QString &binding);
/// Answers what the object's binding of that name was made of; nothing if there is no such binding.
ZEL_EXPORT std::optional<ZelBindingInfo> ZelInfoForBinding(const QObject *object, const QString &binding);
