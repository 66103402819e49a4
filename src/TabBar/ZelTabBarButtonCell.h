// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QIcon>
#include <QString>

class QPainter;
class QPalette;

/// One button of a ZelButtonMatrix: what it shows and how it looks. A value, not a widget.
struct ZEL_EXPORT ZelTabBarButtonCell
{
    enum StateFlag { Selected = 1, Pressed = 2, Focused = 4, WindowActive = 8, Enabled = 16 };
    Q_DECLARE_FLAGS(State, StateFlag)

    QIcon image;          ///< without one, the beginning of the title is drawn
    QIcon alternateImage; ///< shown while the button is pressed, unless it is null
    QString toolTip;      ///< the title, and in further lines an explanation
    QString keyEquivalent = QStringLiteral("");
    Qt::KeyboardModifiers keyEquivalentModifierMask;
    int count = -1; ///< a number on the button, and after its tool tip; 0 dims the button, negative for no number
    bool enabled = true;
    bool bordered = true; ///< whether a bezel marks the selected button, and not a line below it

    /// What the button is called by tool tips and by assistive technology.
    QString name() const;
    void draw(QPainter &painter, const QRectF &rect, State state, const QPalette &palette) const;

private:
    void drawBezel(QPainter &painter, const QRectF &rect, State state, const QPalette &palette) const;
    void drawCount(QPainter &painter, const QRectF &rect, const QPalette &palette) const;
    void drawTitle(QPainter &painter, const QRectF &rect, const QColor &color) const;
    QString title() const;
    void drawImage(QPainter &painter, const QRectF &rect, State state, const QPalette &palette) const;
};
Q_DECLARE_OPERATORS_FOR_FLAGS(ZelTabBarButtonCell::State)
