// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QPointer>
#include <QWidget>
#include <functional>

/// Draws a ring around the widget inside a container that has the focus, for widgets that do not show the focus
/// themselves.
///
/// The ring surrounds the widget, above everything else in the container, and takes no events. It follows the widget
/// and is clipped where a scroll area clips the widget.
class ZEL_EXPORT ZelFocusRingOverlay : public ZelGuarded<QWidget>
{
    Q_OBJECT
    /// An invalid colour, the default, stands for the palette's highlight colour.
    Q_PROPERTY(QColor color READ color WRITE setColor)
    /// In points; 2 by default.
    Q_PROPERTY(int ringWidth READ ringWidth WRITE setRingWidth)
    /// The radius of the ring's outer edge, in points; 4 by default.
    Q_PROPERTY(double cornerRadius READ cornerRadius WRITE setCornerRadius)
public:
    /// Answers the widget that gets the ring while the given one has the focus: that widget itself, a frame around it,
    /// a neighbour, or null for no ring. A widget outside the container counts as null.
    using RingedWidget = std::function<QWidget *(QWidget *focusWidget)>;

    /// The overlay becomes a child of the container.
    explicit ZelFocusRingOverlay(QWidget *container);

    const QColor &color() const { return m_color; }
    void setColor(const QColor &color);
    int ringWidth() const { return m_ringWidth; }
    /// Asserts that the width is positive.
    void setRingWidth(int width);
    double cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(double radius);
    /// Without a block, the default, every focus widget gets the ring itself.
    void setRingedWidget(const RingedWidget &block);

    /// The widget that has the ring; null if there is none.
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
    QList<QPointer<QWidget>> m_watched; // the widget and its ancestors up to the container
    QMetaObject::Connection m_death;
    RingedWidget m_ringedWidget;
    QColor m_color;
    double m_cornerRadius = 4;
    int m_ringWidth = 2;
};
