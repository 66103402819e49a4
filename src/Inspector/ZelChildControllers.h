// SPDX-License-Identifier: MIT
#pragma once

#include "ViewController/ZelViewController.h"

#include <QList>
#include <QPointer>
#include <QVarLengthArray>

/// The child controllers of a container in their order. One that has died is left out.
template<typename Child> class ZelChildControllers
{
public:
    QList<Child *> list() const
    {
        QList<Child *> result;
        result.reserve(m_children.size());
        for (const QPointer<Child> &child : m_children) {
            if (child)
                result.append(child);
        }
        return result;
    }

    /// The same for walks during which children may die, which makes their pointers null.
    QList<QPointer<ZelViewController>> pointers() const { return {m_children.begin(), m_children.end()}; }

    /// Takes over the list without its null pointers, and makes `parent` the parent of every child in it. Children that
    /// are no longer in the list keep their parent. Returns whether the list differs from the former one.
    bool assign(const QList<Child *> &children, QObject *parent)
    {
        Children assigned;
        assigned.reserve(children.size());
        for (Child *child : children) {
            if (!child)
                continue;
            assigned.append(child);
            child->setParent(parent);
        }
        if (assigned == m_children)
            return false;
        m_children = assigned;
        return true;
    }

private:
    using Children = QVarLengthArray<QPointer<Child>, 1>; // most rows have one editor
    Children m_children;
};
