// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "ViewController/ZelView.h"

/// A vertical hairline between the controls of an action bar.
class ZEL_EXPORT ZelActionBarSeparator : public ZelView
{
    Q_OBJECT
    /// The style of the bar: for 0, the default, the line is short; for any other value it has the full height of the
    /// bar.
    Q_PROPERTY(quint32 style READ style WRITE setStyle NOTIFY styleChanged)
public:
    explicit ZelActionBarSeparator(QWidget *parent = nullptr);
    explicit ZelActionBarSeparator(const ZelKeyedCoder &coder, QWidget *parent = nullptr);

    quint32 style() const { return m_style; }
    void setStyle(quint32 style);

    QSize sizeHint() const override { return {5, 16}; }
    QSize minimumSizeHint() const override { return {1, 1}; }
    void drawRect(QPainter &painter, const QRect &dirtyRect) override;
    bool drawsContent() const override { return true; }

Q_SIGNALS:
    void styleChanged();

protected:
    ZelView *newInstance() const override { return new ZelActionBarSeparator; }

private:
    quint32 m_style = 0;
};
