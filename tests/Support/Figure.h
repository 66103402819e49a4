// SPDX-License-Identifier: MIT
#pragma once

#include "Resources/ZelColor.h"
#include "Support/ModelValue.h"
#include "Support/Person.h"
#include "Text/ZelAttributedString.h"
#include <QDateTime>
#include <QFont>
#include <QUrl>

/// A model with a value for each editor, of each type that it may meet.
class Figure : public Person
{
    Q_OBJECT
public:
    MODEL_VALUE(QColor, fill, Qt::red)
    MODEL_VALUE(QColor, stroke, Qt::black)
    MODEL_VALUE(ZelColor, rich, )
    MODEL_VALUE(QDate, day, 2024, 5, 6)
    MODEL_VALUE(QDateTime, time, )
    MODEL_VALUE(QTime, hour, 12, 30)
    MODEL_VALUE(QString, pattern, QStringLiteral("Dots"))
    MODEL_VALUE(QUrl, address, QStringLiteral("http://a.example"))
    MODEL_VALUE(QPointF, place, 1, 2)
    MODEL_VALUE(QSizeF, size, 30, 40)
    MODEL_VALUE(QFont, font, QStringLiteral("DejaVu Sans"), 9)
    MODEL_VALUE(ZelAttributedString, text, QStringLiteral("one\ntwo"))
    MODEL_VALUE(uchar, byte, 7)
    explicit Figure(const QString &name = {})
        : Person(name)
    {
        setFrame({10, 20, 100, 50});
        tags = QStringList{QStringLiteral("a"), QStringLiteral("b")};
    }
    Q_SIGNAL void changed();
};
