// SPDX-License-Identifier: MIT
#pragma once

#include "Sample.h"

/// A sample whose properties have no setters, so that editors can only show them.
class FixedSample : public Sample
{
    Q_OBJECT
    Q_PROPERTY(bool on MEMBER on CONSTANT)
    Q_PROPERTY(double speed MEMBER speed CONSTANT)
    Q_PROPERTY(double opacity MEMBER opacity CONSTANT)
    Q_PROPERTY(double rotation MEMBER rotation CONSTANT)
    Q_PROPERTY(QVariant limit MEMBER limit CONSTANT)
    Q_PROPERTY(QString name MEMBER name CONSTANT)
    Q_PROPERTY(ZelAttributedString remarks MEMBER remarks CONSTANT)
    Q_PROPERTY(Kind kind MEMBER kind CONSTANT)
    Q_PROPERTY(Styles styles READ styles CONSTANT)
    Q_PROPERTY(QColor fill MEMBER fill CONSTANT)
    Q_PROPERTY(QDate due MEMBER due CONSTANT)
    Q_PROPERTY(QFont font MEMBER font CONSTANT)
    Q_PROPERTY(QString pattern MEMBER pattern CONSTANT)
    Q_PROPERTY(QSizeF size MEMBER size CONSTANT)
    Q_PROPERTY(QPointF origin MEMBER origin CONSTANT)
    Q_PROPERTY(QMarginsF margins MEMBER margins CONSTANT)
    Q_PROPERTY(QLineF line MEMBER line CONSTANT)
    Q_PROPERTY(QVector3D axis MEMBER axis CONSTANT)
    Q_PROPERTY(QRectF frame MEMBER frame CONSTANT)
    Q_PROPERTY(QStringList keywords MEMBER keywords CONSTANT)
};
