// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <vector>

class Document;
class Shape;

/// The selected shapes of a document, from the bottom to the top.
///
/// Every call changes the selection as a whole and is announced once, however many shapes it concerns.
class Selection : public QObject
{
    Q_OBJECT
public:
    explicit Selection(Document *document, QObject *parent = nullptr);

    const QList<Shape *> &shapes() const { return m_shapes; }
    int count() const { return int(m_shapes.size()); }
    bool isEmpty() const { return m_shapes.isEmpty(); }
    bool contains(const Shape *shape) const;

    /// In any order; shapes that are not in the document are left out.
    void set(const QList<Shape *> &shapes);
    void add(const QList<Shape *> &shapes);
    void toggle(const QList<Shape *> &shapes);
    /// What can be clicked on the canvas: shapes that are shown and not locked.
    void selectAll();
    void clear() { set({}); }

Q_SIGNALS:
    void changed();

private:
    void documentChanged();
    void apply(std::vector<bool> members);
    std::vector<bool> membersOf(const QList<Shape *> &shapes) const;

    Document *m_document;
    QList<Shape *> m_shapes;
    std::vector<bool> m_members; // by the id of a shape
};
