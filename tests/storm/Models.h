// SPDX-License-Identifier: MIT
#pragma once

#include "Faults.h"
#include "Text/ZelAttributedString.h"

#include <QColor>
#include <QDate>
#include <QFont>
#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

/// What the objects of an application hold.
struct SheetValues
{
    QString text = QStringLiteral("one");
    QVariant note;
    double number = 12;
    double ratio = 0.5;
    QVariant optional = 3.0;
    int count = 4;
    short small = 5;
    bool flag = false;
    int bits = 0x11;
    int kind = 0;
    int sort = 1;
    int choice = 10;
    uint image = 0x10;
    QColor fill = Qt::red;
    QDate day{2024, 5, 6};
    QDateTime moment{QDate(2024, 5, 6), QTime(7, 8), Qt::UTC};
    QFont font{QStringLiteral("DejaVu Sans"), 9};
    QString pattern = QStringLiteral("Dots");
    QSizeF size{30, 40};
    QRectF frame{10, 20, 100, 50};
    QStringList tags{QStringLiteral("a"), QStringLiteral("b")};
    ZelAttributedString rich{QStringLiteral("one\ntwo")};
    QObject *part = nullptr;
};

/// An object that another one consists of.
class Part : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString label MEMBER label NOTIFY labelChanged)
    Q_PROPERTY(double amount MEMBER amount)
public:
    explicit Part(QObject *parent)
        : QObject(parent)
    {
    }
    QString label = QStringLiteral("part");
    double amount = 1;

Q_SIGNALS:
    void labelChanged();
};

/// Every property tells of its changes.
class Sheet : public QObject, public SheetValues
{
    Q_OBJECT
    Q_PROPERTY(QString text MEMBER text NOTIFY textChanged)
    Q_PROPERTY(QVariant note MEMBER note NOTIFY noteChanged)
    Q_PROPERTY(double number READ getNumber WRITE setNumber NOTIFY numberChanged)
    Q_PROPERTY(double ratio MEMBER ratio NOTIFY ratioChanged)
    Q_PROPERTY(QVariant optional MEMBER optional NOTIFY optionalChanged)
    Q_PROPERTY(int count MEMBER count NOTIFY countChanged)
    Q_PROPERTY(short small MEMBER small NOTIFY smallChanged)
    Q_PROPERTY(bool flag MEMBER flag NOTIFY flagChanged)
    Q_PROPERTY(int bits MEMBER bits NOTIFY bitsChanged)
    Q_PROPERTY(int kind MEMBER kind NOTIFY kindChanged)
    Q_PROPERTY(int sort MEMBER sort NOTIFY sortChanged)
    Q_PROPERTY(int choice MEMBER choice NOTIFY choiceChanged)
    Q_PROPERTY(uint image MEMBER image NOTIFY imageChanged)
    Q_PROPERTY(QColor fill MEMBER fill NOTIFY fillChanged)
    Q_PROPERTY(QDate day MEMBER day NOTIFY dayChanged)
    Q_PROPERTY(QDateTime moment MEMBER moment NOTIFY momentChanged)
    Q_PROPERTY(QFont font MEMBER font NOTIFY fontChanged)
    Q_PROPERTY(QString pattern MEMBER pattern NOTIFY patternChanged)
    Q_PROPERTY(QSizeF size MEMBER size NOTIFY sizeChanged)
    Q_PROPERTY(QRectF frame MEMBER frame NOTIFY frameChanged)
    Q_PROPERTY(QStringList tags MEMBER tags NOTIFY tagsChanged)
    Q_PROPERTY(ZelAttributedString rich MEMBER rich NOTIFY richChanged)
    Q_PROPERTY(QObject *part MEMBER part NOTIFY partChanged)
public:
    double getNumber() const { return number; }
    void setNumber(double value)
    {
        Fault::at(Fault::Setter);
        if (number == value)
            return;
        number = value;
        Q_EMIT numberChanged();
    }

Q_SIGNALS:
    void textChanged();
    void noteChanged();
    void numberChanged();
    void ratioChanged();
    void optionalChanged();
    void countChanged();
    void smallChanged();
    void flagChanged();
    void bitsChanged();
    void kindChanged();
    void sortChanged();
    void choiceChanged();
    void imageChanged();
    void fillChanged();
    void dayChanged();
    void momentChanged();
    void fontChanged();
    void patternChanged();
    void sizeChanged();
    void frameChanged();
    void tagsChanged();
    void richChanged();
    void partChanged();
};

/// No property tells of its changes.
class Quiet : public QObject, public SheetValues
{
    Q_OBJECT
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QVariant note MEMBER note)
    Q_PROPERTY(double number MEMBER number)
    Q_PROPERTY(double ratio MEMBER ratio)
    Q_PROPERTY(QVariant optional MEMBER optional)
    Q_PROPERTY(int count MEMBER count)
    Q_PROPERTY(short small MEMBER small)
    Q_PROPERTY(bool flag MEMBER flag)
    Q_PROPERTY(int bits MEMBER bits)
    Q_PROPERTY(int kind MEMBER kind)
    Q_PROPERTY(int sort MEMBER sort)
    Q_PROPERTY(int choice MEMBER choice)
    Q_PROPERTY(uint image MEMBER image)
    Q_PROPERTY(QColor fill MEMBER fill)
    Q_PROPERTY(QDate day MEMBER day)
    Q_PROPERTY(QDateTime moment MEMBER moment)
    Q_PROPERTY(QFont font MEMBER font)
    Q_PROPERTY(QString pattern MEMBER pattern)
    Q_PROPERTY(QSizeF size MEMBER size)
    Q_PROPERTY(QRectF frame MEMBER frame)
    Q_PROPERTY(QStringList tags MEMBER tags)
    Q_PROPERTY(ZelAttributedString rich MEMBER rich)
    Q_PROPERTY(QObject *part MEMBER part)
};

/// The base's part: one signal for all properties, which it also sends while it dies.
class LockedBase : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double number MEMBER number NOTIFY changed)
    Q_PROPERTY(bool flag MEMBER flag NOTIFY changed)
public:
    ~LockedBase() override { Q_EMIT changed(); }
    double number = 12;
    bool flag = false;

Q_SIGNALS:
    void changed();
};

/// Some properties cannot be written, many are missing.
class Locked : public LockedBase
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text CONSTANT)
    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(QColor fill MEMBER fill NOTIFY changed)
    Q_PROPERTY(int kind MEMBER kind NOTIFY changed)
public:
    QString text() const { return QStringLiteral("one"); }
    int count() const { return int(number) + 1; }
    QColor fill = Qt::red;
    int kind = 0;
};

/// Has nothing but dynamic properties.
class Dynamic : public QObject
{
    Q_OBJECT
public:
    Dynamic();
};

/// The properties by name, and values for them.
class SheetKeys
{
public:
    /// All but `part`.
    static const QList<QByteArray> &all();
    /// A value that the property may have, chosen by a number.
    static QVariant value(const QByteArray &key, quint32 number);
    static QObject *create(quint32 number);
};
