// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPointF>
#include <QVariant>

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
