// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/ZelInspectorPane.h"

#include <QHash>

class ZelAutomaticOwner;
class ZelObjectController;

/// A pane that needs no description: it shows whatever is selected, with a box for each class of the objects, from the
/// base to the most derived one, and in it an editor for each property (see ZelInspectorDescription::forMetaObject,
/// also for what class information changes).
///
///     ZelObjectController selection;
///     ZelAutomaticPane pane(&selection);
///     layout->addWidget(pane.view());
///     selection.setSelectedObjects({object});
///
/// For objects of several classes it is the nearest class from which all derive. Boxes are kept, and objects of other
/// classes share those of the bases that they have in common, so that these stay as the user has arranged them. A box
/// that cannot be built, because class information is wrong, is reported and left out.
class ZEL_EXPORT ZelAutomaticPane : public ZelInspectorPane
{
    Q_OBJECT
public:
    /// The controller is held weakly.
    explicit ZelAutomaticPane(ZelObjectController *controller);
    ~ZelAutomaticPane() override;

    /// The class whose properties are shown; null while nothing is selected.
    const QMetaObject *shownClass() const { return m_shownClass; }

Q_SIGNALS:
    void shownClassChanged();

private:
    ZelAutomaticPane(ZelObjectController *controller, ZelAutomaticOwner *owner);
    void commitOrDiscard();
    void update();
    void showClass(const QMetaObject *metaObject, const QList<QObject *> &objects);
    const QList<QPointer<ZelInspector>> &boxesOf(const QMetaObject *metaObject);
    ZelInspector *box(const QMetaObject *metaObject, const QMetaObject *declaring);

    QPointer<ZelObjectController> m_controller;
    ZelAutomaticOwner *m_owner; // a child
    const QMetaObject *m_shownClass = nullptr;
    QHash<const QMetaObject *, QList<QPointer<ZelInspector>>> m_boxesOfClasses;
    QHash<QByteArray, QPointer<ZelInspector>> m_boxes; // by their descriptions
};
