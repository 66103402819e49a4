// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

/// A model class as an application has many: nothing of the library in it.
class PlainShape : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY nameChanged)
    Q_PROPERTY(bool visible MEMBER m_visible NOTIFY visibleChanged)
    Q_PROPERTY(int kind MEMBER m_kind NOTIFY kindChanged)
    Q_PROPERTY(double x MEMBER m_x NOTIFY xChanged)
    Q_PROPERTY(double y MEMBER m_y NOTIFY yChanged)
    Q_PROPERTY(double width READ width WRITE setWidth NOTIFY widthChanged)
    Q_PROPERTY(double height MEMBER m_height NOTIFY heightChanged)
    Q_PROPERTY(double opacity MEMBER m_opacity NOTIFY opacityChanged)
public:
    using QObject::QObject;

    double width() const { return m_width; }
    void setWidth(double width)
    {
        if (width == m_width)
            return;
        m_width = width;
        Q_EMIT widthChanged();
    }

Q_SIGNALS:
    void nameChanged();
    void visibleChanged();
    void kindChanged();
    void xChanged();
    void yChanged();
    void widthChanged();
    void heightChanged();
    void opacityChanged();

private:
    QString m_name = QStringLiteral("Shape");
    bool m_visible = true;
    int m_kind = 0;
    double m_x = 0;
    double m_y = 0;
    double m_width = 100;
    double m_height = 100;
    double m_opacity = 1;
};
