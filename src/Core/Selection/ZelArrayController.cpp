// SPDX-License-Identifier: MIT
#include "Core/Selection/ZelArrayController.h"

#include "Core/Errors/ZelAssertions.h"

#include <QHash>
#include <QSet>

ZelArrayController::ZelArrayController(QObject *parent)
    : ZelObjectController(parent)
{
}

QList<QObject *> ZelArrayController::content() const
{
    QList<QObject *> content;
    content.reserve(m_content.size());
    for (const QPointer<QObject> &object : m_content) {
        if (object)
            content.append(object);
    }
    return content;
}

void ZelArrayController::setContent(const QList<QObject *> &content)
{
    m_content.clear();
    m_content.reserve(content.size());
    for (QObject *object : content) {
        if (object)
            m_content.append(object);
    }
    const QPointer<ZelArrayController> alive(this);
    Q_EMIT contentChanged();
    if (!alive)
        return;
    const QSet<QObject *> present(content.begin(), content.end());
    QList<QObject *> selected = selectedObjects();
    selected.removeIf([&](QObject *object) { return !present.contains(object); });
    setSelectedObjects(selected);
}

void ZelArrayController::addObject(QObject *object)
{
    if (!object || m_content.contains(object))
        return;
    m_content.append(object);
    Q_EMIT contentChanged();
}

void ZelArrayController::removeObject(QObject *object)
{
    if (m_content.removeAll(object) == 0)
        return;
    const QPointer<ZelArrayController> alive(this);
    Q_EMIT contentChanged();
    if (!alive)
        return;
    QList<QObject *> selected = selectedObjects();
    if (selected.removeAll(object) > 0)
        setSelectedObjects(selected);
}

ZelIndexSet ZelArrayController::selectionIndexes() const
{
    const QList<QObject *> selected = selectedObjects();
    const QSet<QObject *> set(selected.begin(), selected.end());
    ZelIndexSet indexes;
    const QList<QObject *> all = content();
    for (qsizetype i = 0; i < all.size(); ++i) {
        if (set.contains(all.at(i)))
            indexes.insert(i);
    }
    return indexes;
}

bool ZelArrayController::setSelectionIndexes(const ZelIndexSet &indexes)
{
    const QList<QObject *> all = content();
    if (!indexes.isEmpty() && (indexes.first() < 0 || indexes.last() >= all.size())) {
        ZelLogWarning(QStringLiteral("The selection indexes %1 to %2 are not all within the content of %3 objects")
                          .arg(indexes.first())
                          .arg(indexes.last())
                          .arg(all.size()));
        return false;
    }
    QList<QObject *> selected;
    indexes.forEach([&](qsizetype index) { selected.append(all.at(index)); });
    setSelectedObjects(selected);
    return true;
}
