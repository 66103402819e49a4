// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QList>
#include <QPointer>
#include <optional>

class QMetaProperty;
class ZelViewController;

/// The state of a panel as a tree: that of a controller, and those of the parts below it by their names.
///
/// A part is a controller whose class names properties to remember, see ZelInspectorState. Controllers between two
/// parts, such as sections and rows, are not in the tree, so that an editor keeps its state when its row moves.
class ZelStateTree
{
public:
    struct Part
    {
        QString name; ///< unique among its neighbours
        QPointer<ZelViewController> controller;
    };
    /// The parts that have no other part between them and the controller.
    static QList<Part> partsOf(const ZelViewController *controller);
    /// Nothing for most classes.
    static const QList<QMetaProperty> &propertiesOf(const ZelViewController *controller);

    /// The state of the controller and of the parts below it; what `kept` says of others stays in it.
    static QJsonObject read(const ZelViewController *controller, const QJsonObject &kept = {});
    /// Restores what the state says of the controller, but nothing of the parts below it.
    static void restore(ZelViewController *controller, const QJsonObject &state);
    /// The state with the present text of the panel's search, if it has one.
    static QJsonObject withSearchText(const QJsonObject &state, const ZelViewController *panel);
    static QJsonObject stateOfPart(const QJsonObject &state, const QString &name);

    static QByteArray toBytes(const QJsonObject &state);
    /// Nothing if the bytes are no state.
    static std::optional<QJsonObject> fromBytes(const QByteArray &bytes);
};
