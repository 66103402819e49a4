// SPDX-License-Identifier: MIT
#pragma once

#include "Resources/ZelColor.h"
#include "Support/Person.h"
#include "Text/ZelAttributedString.h"
#include <QDateTime>
#include <QFont>
#include <QUrl>

/// A model with a value for each editor, of each type that it may meet.
class Figure : public Person
{
    Q_OBJECT
    Q_PROPERTY(QColor fill MEMBER fill NOTIFY changed)
    Q_PROPERTY(QColor stroke MEMBER stroke NOTIFY changed)
    Q_PROPERTY(ZelColor rich MEMBER rich NOTIFY changed)
    Q_PROPERTY(QDate day MEMBER day NOTIFY changed)
    Q_PROPERTY(QDateTime time MEMBER time NOTIFY changed)
    Q_PROPERTY(QTime hour MEMBER hour NOTIFY changed)
    Q_PROPERTY(QString pattern MEMBER pattern NOTIFY changed)
    Q_PROPERTY(QUrl address MEMBER address NOTIFY changed)
    Q_PROPERTY(QPointF place MEMBER place NOTIFY changed)
    Q_PROPERTY(QSizeF size MEMBER size NOTIFY changed)
    Q_PROPERTY(QFont font MEMBER font NOTIFY changed)
    Q_PROPERTY(ZelAttributedString text MEMBER text NOTIFY changed)
    Q_PROPERTY(uchar byte MEMBER byte NOTIFY changed)
public:
    QColor fill = Qt::red;
    QColor stroke = Qt::black;
    ZelColor rich;
    QDate day{2024, 5, 6};
    QDateTime time;
    QTime hour{12, 30};
    QString pattern = QStringLiteral("Dots");
    QUrl address{QStringLiteral("http://a.example")};
    QPointF place{1, 2};
    QSizeF size{30, 40};
    QFont font{QStringLiteral("DejaVu Sans"), 9};
    ZelAttributedString text{QStringLiteral("one\ntwo")};
    uchar byte = 7;
    explicit Figure(const QString &name = {})
        : Person(name)
    {
        setFrame({10, 20, 100, 50});
        tags = QStringList{QStringLiteral("a"), QStringLiteral("b")};
    }

Q_SIGNALS:
    void changed();
};
