// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets>
#include <optional>

// The classes with which descriptions are compared. Only what moc says of them is used.

class Part : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString label MEMBER label NOTIFY changed)
    Q_PROPERTY(double price MEMBER price NOTIFY changed)

public:
    QString label;
    double price = 0;

Q_SIGNALS:
    void changed();
};

class Lamp : public Part
{
    Q_OBJECT
    Q_PROPERTY(Kind kind MEMBER kind NOTIFY changed)
    Q_PROPERTY(int watts MEMBER watts NOTIFY changed)
    Q_PROPERTY(bool on MEMBER on NOTIFY changed)
    Q_PROPERTY(QColor tint MEMBER tint NOTIFY changed)
    Q_PROPERTY(QPointF spot MEMBER spot NOTIFY changed)
    Q_PROPERTY(QVariant note MEMBER note NOTIFY changed)
    Q_PROPERTY(Part *shade MEMBER shade NOTIFY changed)
    Q_PROPERTY(QList<Part *> parts MEMBER parts NOTIFY changed)
    Q_PROPERTY(int serial READ serial CONSTANT)
    Q_PROPERTY(double heat MEMBER heat)

public:
    enum Kind { Desk, Floor, Ceiling };
    Q_ENUM(Kind)
    Kind kind = Desk;
    int watts = 0;
    bool on = false;
    QColor tint;
    QPointF spot;
    QVariant note;
    Part *shade = nullptr;
    QList<Part *> parts;
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
    Q_PROPERTY(Qt::Orientation axis MEMBER axis NOTIFY changed)
    Q_PROPERTY(Lamp::Kind kind MEMBER kind NOTIFY changed)
    Q_PROPERTY(std::optional<unsigned int> tips MEMBER tips NOTIFY changed)
    Q_PROPERTY(QVariant note MEMBER note NOTIFY changed)
    Q_PROPERTY(int secret MEMBER secret NOTIFY changed DESIGNABLE false)
    Q_PROPERTY(QString label READ code CONSTANT)
    Q_PROPERTY(double heat MEMBER heat)

public:
    enum Edge { Round = 1, Sharp = 2 };
    Q_DECLARE_FLAGS(Edges, Edge)
    Q_FLAG(Edges)
    Edges edges() const { return m_edges; }
    void setEdges(Edges edges) { m_edges = edges; }

    Qt::Orientation axis = Qt::Horizontal;
    Lamp::Kind kind = Lamp::Desk;
    std::optional<unsigned int> tips;
    QVariant note;
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
