// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "ViewController/ZelView.h"

/// A strip along the edge of a window. Its look depends on whether the window is active.
class ZEL_EXPORT ZelBar : public ZelView
{
    Q_OBJECT
    /// The look of the bar: 0, the default, has a background and a hairline below it; any other value is plain.
    Q_PROPERTY(quint32 style READ style WRITE setStyle NOTIFY styleChanged)
public:
    explicit ZelBar(QWidget *parent = nullptr);
    explicit ZelBar(const ZelKeyedCoder &coder, QWidget *parent = nullptr);

    quint32 style() const { return m_style; }
    void setStyle(quint32 style);

    void drawRect(QPainter &painter, const QRect &dirtyRect) override;
    bool drawsContent() const override { return true; }

Q_SIGNALS:
    void styleChanged();

protected:
    ZelView *newInstance() const override { return new ZelBar; }
    bool handleEvent(QEvent *event) override;

private:
    quint32 m_style = 0;
};
