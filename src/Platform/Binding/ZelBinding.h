// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelKeyPath.h"

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
struct ZelBindingInfo
{
    QPointer<QObject> observedObject;
    ZelKeyPath observedKeyPath;
    ZelBindingOptions options;
};

/// Binds a property of an object to a key path of another: the property takes the (transformed) value now and at every
/// change, and what the user enters into a control is (reverse transformed and) written back when the control reports
/// it. A value can be edited where there is one, its property is not read-only, for none of a selection's classes, and
/// the transformer, if any, can be reversed. A button that cannot be checked has nothing to report. A binding of the
/// same name is replaced. Selection markers are handed to properties that can show them (controls of
/// Platform/Controls); other properties get false or nothing. Either object may die at any time.
void ZelBind(QObject *object, const QString &binding, QObject *toObject, const ZelKeyPath &keyPath,
             const ZelBindingOptions &options = {});
/// The property keeps its last value. Does nothing where there is no such binding.
void ZelUnbind(QObject *object, const QString &binding);
/// What the object's binding of that name is made of; nothing if it is not bound.
std::optional<ZelBindingInfo> ZelInfoForBinding(const QObject *object, const QString &binding);
