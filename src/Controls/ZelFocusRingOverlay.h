// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QPointer>
#include <QWidget>
#include <functional>

/// Draws a ring around whichever widget below a container has the focus, for widgets that do not show it themselves.
///
/// The ring lies around the widget, in the room that its neighbours leave, above everything in the container, and takes
/// no events. It follows the widget, and is cut off where a scroll area cuts the widget off.
class ZelFocusRingOverlay : public ZelGuarded<QWidget>
{
    Q_OBJECT
    /// Invalid, the default, is the palette's highlight colour.
    Q_PROPERTY(QColor color READ color WRITE setColor)
    /// In points; 2 by default.
    Q_PROPERTY(int ringWidth READ ringWidth WRITE setRingWidth)
    /// Of the ring's outer edge, in points; 4 by default.
    Q_PROPERTY(double cornerRadius READ cornerRadius WRITE setCornerRadius)
public:
    /// Which widget has the ring while that one has the focus: itself, a frame that it lies in, one beside it, or null
    /// for none. Widgets outside of the container count as null.
    using RingedWidget = std::function<QWidget *(QWidget *focusWidget)>;

    /// Becomes a child of the container.
    explicit ZelFocusRingOverlay(QWidget *container);

    const QColor &color() const { return m_color; }
    void setColor(const QColor &color);
    int ringWidth() const { return m_ringWidth; }
    /// Asserts that it is positive.
    void setRingWidth(int width);
    double cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(double radius);
    /// Null, the default: every focus widget has the ring itself.
    void setRingedWidget(const RingedWidget &block);

    /// The widget that has the ring; null for none.
    QWidget *widget() const { return m_widget; }

protected:
    bool filterEvent(QObject *object, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void follow(QWidget *focusWidget);
    void watch();
    void place();
    QRect ringRect() const;

    QPointer<QWidget> m_widget;
    QList<QPointer<QWidget>> m_watched; // the widget and what it lies in, as far as the container
    QMetaObject::Connection m_death;
    RingedWidget m_ringedWidget;
    QColor m_color;
    double m_cornerRadius = 4;
    int m_ringWidth = 2;
};
