// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Selection/ZelObjectController.h"
#include "Core/Values/ZelIndexSet.h"
#include "Core/ZelExport.h"

/// A controller of a list of objects, some of which are selected.
class ZEL_EXPORT ZelArrayController : public ZelObjectController
{
    Q_OBJECT
    Q_PROPERTY(QList<QObject *> content READ content WRITE setContent NOTIFY contentChanged)
    Q_PROPERTY(QList<QObject *> arrangedObjects READ content NOTIFY contentChanged)
    Q_PROPERTY(ZelIndexSet selectionIndexes READ selectionIndexes WRITE setSelectionIndexes NOTIFY selectionChanged)
public:
    explicit ZelArrayController(QObject *parent = nullptr);

    /// The objects that can be selected. When they are set, the selected ones that are still among them stay selected.
    QList<QObject *> content() const;
    void setContent(const QList<QObject *> &content);
    void addObject(QObject *object);
    void removeObject(QObject *object);

    /// The positions of the selected objects in the content.
    ZelIndexSet selectionIndexes() const;
    /// Selects the objects at these positions. If not all of them are in the content, the selection stays as it is, a
    /// warning is logged, and the answer is false.
    bool setSelectionIndexes(const ZelIndexSet &indexes);

Q_SIGNALS:
    void contentChanged();

private:
    QList<QPointer<QObject>> m_content;
};
