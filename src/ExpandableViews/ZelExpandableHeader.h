// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelLabel.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QAbstractButton>

/// The title of a ZelExpandableView with its disclosure triangle. Checked means expanded.
///
/// A click, Space and Return toggle it. The arrow key towards the triangle folds, the opposite one unfolds. With Alt,
/// each of them does so for all boxes that belong together.
class ZEL_EXPORT ZelExpandableHeader : public ZelGuarded<QAbstractButton>
{
    Q_OBJECT
public:
    explicit ZelExpandableHeader(QWidget *parent = nullptr);

    /// Plain text: an ampersand is shown and marks no mnemonic.
    QString title() const;
    void setTitle(const QString &title);

    /// Parts of the title that have a coloured background, as in ZelLabel. They end with setTitle.
    const QList<ZelLabel::Part> &markedParts() const { return m_markedParts; }
    void setMarkedParts(const QList<ZelLabel::Part> &parts);

    quint32 style() const { return m_style; }
    void setStyle(quint32 style);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// After the user has toggled this one with Alt, or has pressed an arrow key with it.
    void toggledForAll(bool checked);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool handleEvent(QEvent *event) override;

private:
    void drawBackground(QPainter &painter) const;
    void drawTriangle(QPainter &painter) const;
    QRect fromLeft(const QRect &rect) const;

    QList<ZelLabel::Part> m_markedParts;
    quint32 m_style = 0;
    bool m_isForAll = false; // the event that is being handled has the Alt key
};
