// SPDX-License-Identifier: MIT
#pragma once

#include <Text/ZelAttributedString.h>

#include <QColor>
#include <QDate>
#include <QFont>
#include <QLineF>
#include <QMarginsF>
#include <QObject>
#include <QRectF>
#include <QVariant>
#include <QVector3D>

/// What the editors of the gallery edit: a property of each kind.
class Sample : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool on MEMBER on NOTIFY changed)
    Q_PROPERTY(double speed MEMBER speed NOTIFY changed)
    Q_PROPERTY(double opacity MEMBER opacity NOTIFY changed)
    Q_PROPERTY(double rotation MEMBER rotation NOTIFY changed)
    Q_PROPERTY(QVariant limit MEMBER limit NOTIFY changed)
    Q_PROPERTY(QString name MEMBER name NOTIFY changed)
    Q_PROPERTY(ZelAttributedString remarks MEMBER remarks NOTIFY changed)
    Q_PROPERTY(Kind kind MEMBER kind NOTIFY changed)
    Q_PROPERTY(Styles styles READ styles WRITE setStyles NOTIFY changed)
    Q_PROPERTY(QColor fill MEMBER fill NOTIFY changed)
    Q_PROPERTY(QDate due MEMBER due NOTIFY changed)
    Q_PROPERTY(QFont font MEMBER font NOTIFY changed)
    Q_PROPERTY(QString pattern MEMBER pattern NOTIFY changed)
    Q_PROPERTY(QSizeF size MEMBER size NOTIFY changed)
    Q_PROPERTY(QPointF origin MEMBER origin NOTIFY changed)
    Q_PROPERTY(QMarginsF margins MEMBER margins NOTIFY changed)
    Q_PROPERTY(QLineF line MEMBER line NOTIFY changed)
    Q_PROPERTY(QVector3D axis MEMBER axis NOTIFY changed)
    Q_PROPERTY(QRectF frame MEMBER frame NOTIFY changed)
    Q_PROPERTY(QStringList keywords MEMBER keywords NOTIFY changed)

public:
    enum Kind { Desk, Floor, Ceiling };
    Q_ENUM(Kind)
    enum Style { Bold = 1, Italic = 2, Underline = 4 };
    Q_DECLARE_FLAGS(Styles, Style)
    Q_FLAG(Styles)

    /// The samples differ in everything.
    explicit Sample(bool isOther = false);

    Styles styles() const { return m_styles; }
    void setStyles(Styles styles);
    Q_INVOKABLE static QString validateName(const QString &name);
    Q_INVOKABLE static QString validatePattern(const QString &pattern) { return validateName(pattern); }

    bool on = true;
    double speed = 120;
    double opacity = 0.75;
    double rotation = 30;
    QVariant limit = 80;
    QString name = QStringLiteral("Reading lamp");
    ZelAttributedString remarks;
    Kind kind = Desk;
    QColor fill{0xff, 0x80, 0x00};
    QDate due{2024, 5, 6};
    QFont font{QStringLiteral("DejaVu Sans"), 12};
    QString pattern = QStringLiteral("Dots");
    QSizeF size{120, 80};
    QPointF origin{10, 20};
    QMarginsF margins{1, 2, 3, 4};
    QLineF line{0, 0, 30, 40};
    QVector3D axis{0, 0, 1};
    QRectF frame{10, 20, 120, 80};
    QStringList keywords{QStringLiteral("light"), QStringLiteral("brass")};

Q_SIGNALS:
    void changed();

private:
    Styles m_styles = Styles(Bold) | Italic;
};
