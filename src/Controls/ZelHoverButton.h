// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QAbstractButton>

/// A small button without a border, which is shaded while the pointer is over it. It shows its icon, or its text if it
/// has no icon.
///
/// Where a plain tool button would do, use QToolButton with autoRaise: this one is for rows of small controls, whose
/// images lie close together, and for subclasses that draw something of their own.
class ZEL_EXPORT ZelHoverButton : public ZelGuarded<QAbstractButton>
{
    Q_OBJECT
    /// Shown instead of the icon while the pointer is over the button, if there is one.
    Q_PROPERTY(QIcon hoverImage READ hoverImage WRITE setHoverImage)
    /// Whether the pointer is over the button.
    Q_PROPERTY(bool hovered READ isHovered NOTIFY hoveredChanged)
public:
    explicit ZelHoverButton(QWidget *parent = nullptr);

    const QIcon &hoverImage() const { return m_hoverImage; }
    void setHoverImage(const QIcon &image);
    bool isHovered() const { return underMouse(); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {1, 1}; }

Q_SIGNALS:
    void hoveredChanged();

protected:
    /// The image that the button shows. If it is null, the button shows its title.
    virtual QIcon shownImage() const;
    /// The title as the button shows it, without the mark of a mnemonic.
    virtual QString shownTitle() const;
    /// Whether the button looks pressed.
    virtual bool isLit() const { return isDown() || isOn(); }
    /// Whether the image is shown in its on state.
    virtual bool isOn() const { return isChecked(); }
    /// Draws the image or the title on the background.
    virtual void drawContent(QPainter &painter);
    /// The width of the title in points, without margins.
    int titleWidth() const;
    QColor titleColor() const;

    bool handleEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QIcon m_hoverImage;
};
