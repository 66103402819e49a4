// SPDX-License-Identifier: MIT
#pragma once

#include "PreviewNeeds.h"

#include <QJsonValue>
#include <QMetaType>

class QObject;

/// Values for the objects of a preview.
namespace PreviewValues {

/// A value that an editor of that kind shows well. Objects of different indexes get different values.
QVariant invented(const QString &key, const PreviewNeeds::Value &needed, int index);
/// The same for a property of the type; invalid if nothing can be made up for it.
QVariant invented(const QString &key, QMetaType type, int index);
/// Menu items that do nothing but are there; they belong to the parent.
QVariantList actions(QObject *parent);
/// A value of a data file: a text is a colour, date or font where one is edited, and a list of numbers is a size or a
/// rectangle. Null is no value.
QVariant fromJson(const QJsonValue &json, const PreviewNeeds::Value &needed);

} // namespace PreviewValues
