// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelIndexSet.h"
#include "Platform/Selection/ZelObjectController.h"

/// A controller of a list of objects, some of which are selected.
class ZelArrayController : public ZelObjectController
{
    Q_OBJECT
    Q_PROPERTY(QList<QObject *> content READ content WRITE setContent NOTIFY contentChanged)
    Q_PROPERTY(QList<QObject *> arrangedObjects READ content NOTIFY contentChanged)
    Q_PROPERTY(ZelIndexSet selectionIndexes READ selectionIndexes WRITE setSelectionIndexes NOTIFY selectionChanged)
public:
    explicit ZelArrayController(QObject *parent = nullptr);

    /// The objects that can be selected. Setting them keeps the selected objects that are still among them.
    QList<QObject *> content() const;
    void setContent(const QList<QObject *> &content);
    void addObject(QObject *object);
    void removeObject(QObject *object);

    /// The positions of the selected objects in the content.
    ZelIndexSet selectionIndexes() const;
    /// Indexes that are not all in the content select nothing else: answers false, and logs a warning.
    bool setSelectionIndexes(const ZelIndexSet &indexes);

Q_SIGNALS:
    void contentChanged();

private:
    QList<QPointer<QObject>> m_content;
};
