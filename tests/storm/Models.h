// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Selection/ZelArrayController.h"
#include "Support/ModelValue.h"
#include "Text/ZelAttributedString.h"
#include <QtWidgets>
#include <functional>
#include <memory>
#include <stdexcept>

/// What the storm's own observers, setters, transformers and actions throw while they are told to.
struct Fault : std::runtime_error
{
    using runtime_error::runtime_error;
    enum Source { Observer = 1, Setter = 2, Transformer = 4, Action = 8 };
    inline static unsigned armed = 0; ///< the sources that throw
    inline static int thrown = 0;
    static void at(Source source)
    {
        if (!(armed & source))
            return;
        ++thrown;
        throw Fault("injected fault");
    }
};

/// What the objects of an application hold besides a number: type, name and first value.
#define STORM_VALUES(VALUE)                                                                                            \
    VALUE(QString, text, QStringLiteral("one"))                                                                        \
    VALUE(QVariant, note, )                                                                                            \
    VALUE(double, ratio, 0.5)                                                                                          \
    VALUE(QVariant, optional, 3.0)                                                                                     \
    VALUE(int, count, 4)                                                                                               \
    VALUE(short, small, 5)                                                                                             \
    VALUE(bool, flag, false)                                                                                           \
    VALUE(int, bits, 0x11)                                                                                             \
    VALUE(int, kind, 0)                                                                                                \
    VALUE(int, sort, 1)                                                                                                \
    VALUE(int, choice, 10)                                                                                             \
    VALUE(uint, image, 0x10)                                                                                           \
    VALUE(QColor, fill, Qt::red)                                                                                       \
    VALUE(QDate, day, 2024, 5, 6)                                                                                      \
    VALUE(QDateTime, moment, QDate(2024, 5, 6), QTime(7, 8), Qt::UTC)                                                  \
    VALUE(QFont, font, QStringLiteral("DejaVu Sans"), 9)                                                               \
    VALUE(QString, pattern, QStringLiteral("Dots"))                                                                    \
    VALUE(QSizeF, size, 30, 40)                                                                                        \
    VALUE(QRectF, frame, 10, 20, 100, 50)                                                                              \
    VALUE(QStringList, tags, QStringLiteral("a"), QStringLiteral("b"))                                                 \
    VALUE(ZelAttributedString, rich, QStringLiteral("one\ntwo"))                                                       \
    VALUE(QObject *, part, nullptr)

struct SheetValues
{
    double number = 12;
#define STORM_MEMBER(type, name, ...) type name{__VA_ARGS__};
    STORM_VALUES(STORM_MEMBER)
};

/// An object that another one consists of.
class Part : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double amount MEMBER amount)
public:
    using QObject::QObject;
    MODEL_VALUE(QString, label, QStringLiteral("part"))
    double amount = 1;
    Q_SIGNAL void changed();
};

/// Every property tells of its changes.
class Sheet : public QObject, public SheetValues
{
    Q_OBJECT
    Q_PROPERTY(double number READ getNumber WRITE setNumber NOTIFY numberChanged)
#define STORM_TELLING(type, name, ...)                                                                                 \
    Q_PROPERTY(type name MEMBER name NOTIFY name##Changed)                                                             \
    Q_SIGNAL void name##Changed();
    STORM_VALUES(STORM_TELLING)
public:
    double getNumber() const
    {
        return number;
    }
    void setNumber(double value)
    {
        Fault::at(Fault::Setter);
        if (number == value)
            return;
        number = value;
        Q_EMIT numberChanged();
    }
    Q_SIGNAL void numberChanged();
};

/// No property tells of its changes.
class Quiet : public QObject, public SheetValues
{
    Q_OBJECT
    Q_PROPERTY(double number MEMBER number)
#define STORM_SILENT(type, name, ...) Q_PROPERTY(type name MEMBER name)
    STORM_VALUES(STORM_SILENT)
};

/// The base's part: a signal that it also sends while it dies.
class LockedBase : public QObject
{
    Q_OBJECT
public:
    ~LockedBase() override { Q_EMIT changed(); }
    MODEL_VALUE(double, number, 12)
    MODEL_VALUE(bool, flag, false)
    Q_SIGNAL void changed();
};

/// Some properties cannot be written, many are missing.
class Locked : public LockedBase
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY changed)
public:
    QString text() const { return QStringLiteral("one"); }
    int count() const { return int(number) + 1; }
    MODEL_VALUE(QColor, fill, Qt::red)
    MODEL_VALUE(int, kind, 0)
};

/// The properties of sheets by name, and values for them.
class SheetKeys
{
public:
    /// Any but `part`, chosen by a number.
    static const QByteArray &key(quint32 number);
    /// A value that the property may have, chosen by a number.
    static QVariant value(const QByteArray &key, quint32 number);
    /// A sheet, or an object that is none: quiet, locked or with dynamic properties only.
    static QObject *create(quint32 number);
};

/// A group of objects with a selection of its own.
class Group : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *members READ members CONSTANT)
public:
    QObject *members() { return &controller; }
    ZelArrayController controller;
    MODEL_VALUE(QString, name, QStringLiteral("group"))
    Q_SIGNAL void changed();
};

/// What the inspector is an inspector of.
class Owner : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *sheets READ sheets CONSTANT)
    Q_PROPERTY(QObject *groups READ groups CONSTANT)
    Q_PROPERTY(QList<QAction *> menuActions MEMBER menuActions CONSTANT)
public:
    Owner()
    {
        for (Group &group : groupList)
            groupController.addObject(&group);
    }
    QObject *sheets() { return &controller; }
    QObject *groups() { return &groupController; }
    Q_INVOKABLE void act()
    {
        ++actions;
        Fault::at(Fault::Action);
        if (react)
            react(actions);
    }
    std::array<Group, 2> groupList;
    ZelArrayController controller;
    ZelArrayController groupController;
    MODEL_VALUE(bool, unlocked, true)
    MODEL_VALUE(QString, heading, QStringLiteral("Heading"))
    MODEL_VALUE(double, limit, 50)
    MODEL_VALUE(QVariantList, values, 10, 20, 30)
    MODEL_VALUE(QVariantList, names, QStringLiteral("Dots"), QStringLiteral("Lines"), QStringLiteral("Waves"))
    MODEL_VALUE(QSizeF, standardSize, 5, 6)
    QList<QAction *> menuActions{new QAction(QStringLiteral("First"), this),
                                 new QAction(QStringLiteral("Second"), this)};
    int actions = 0;
    std::function<void(int)> react; ///< what the application does about an action, whose number it gets
    Q_SIGNAL void changed();
};
