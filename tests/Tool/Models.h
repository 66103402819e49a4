// SPDX-License-Identifier: MIT
#pragma once

#include "Support/Folder.h"
#include "Support/ModelValue.h"
#include <QtWidgets>
#include <optional>

// The classes with which descriptions are compared. Only what moc says of them is used.

class Part : public QObject
{
    Q_OBJECT
public:
    MODEL_VALUE(QString, label, )
    MODEL_VALUE(double, price, 0)
    Q_SIGNAL void changed();
};

class Lamp : public Part
{
    Q_OBJECT
public:
    enum Kind { Desk, Floor, Ceiling };
    Q_ENUM(Kind)
    MODEL_VALUE(Kind, kind, Desk)
    MODEL_VALUE(int, watts, 0)
    MODEL_VALUE(bool, on, false)
    MODEL_VALUE(QColor, tint, )
    MODEL_VALUE(QPointF, spot, )
    MODEL_VALUE(QVariant, note, )
    MODEL_VALUE(Part *, shade, nullptr)
    MODEL_VALUE(QList<Part *>, parts, )
    Q_PROPERTY(int serial READ serial CONSTANT)
    Q_PROPERTY(double heat MEMBER heat)
    double heat = 0;
    static int serial() { return 1; }
};

/// What the description of a class is made of.
class Star : public Part
{
    Q_OBJECT
    Q_CLASSINFO("zel.title", "A star")
    Q_CLASSINFO("zel.order", "tips, edges")
    Q_CLASSINFO("zel.tips.unit", "pt")
    Q_CLASSINFO("zel.price.hidden", "yes")
    Q_CLASSINFO("zel.tipz.unit", "pt")
    Q_PROPERTY(Edges edges READ edges WRITE setEdges NOTIFY changed)
public:
    enum Edge { Round = 1, Sharp = 2 };
    Q_DECLARE_FLAGS(Edges, Edge)
    Q_FLAG(Edges)
    Edges edges() const { return m_edges; }
    void setEdges(Edges edges) { m_edges = edges; }

    MODEL_VALUE(Qt::Orientation, axis, Qt::Horizontal)
    MODEL_VALUE(Lamp::Kind, kind, Lamp::Desk)
    MODEL_VALUE(std::optional<unsigned int>, tips, )
    MODEL_VALUE(QVariant, note, )
    Q_PROPERTY(int secret MEMBER secret NOTIFY changed DESIGNABLE false)
    Q_PROPERTY(QString label READ code CONSTANT)
    Q_PROPERTY(double heat MEMBER heat)
    int secret = 0;
    double heat = 0;
    static QString code() { return {}; }

private:
    Edges m_edges;
};

class Room : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *lamps MEMBER lamps NOTIFY changed)
    Q_PROPERTY(Lamp *best MEMBER best NOTIFY changed)
    Q_PROPERTY(QObject *other MEMBER lamps NOTIFY changed)

public:
    QObject *lamps = nullptr;
    Lamp *best = nullptr;

public Q_SLOTS:
    void clean() {}
    void paint(int) {}
    void look(QObject *) {}

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void hide() {}
};

inline QByteArray inSliver(const QByteArray &properties)
{
    return "<slice><section><sliver>\n" + properties + "</sliver></section></slice>";
}
