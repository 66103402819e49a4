// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "ViewController/ZelView.h"

#include <QMarginsF>

/// A hairline between the parts of a form or a row. It is fainter while its window is not the active one.
class ZEL_EXPORT ZelSeparator : public ZelView
{
    Q_OBJECT
    /// How deep in the form the separator stands: 0 is the strongest, 2 and more the faintest. 1 by default.
    Q_PROPERTY(quint32 level READ level WRITE setLevel NOTIFY levelChanged)
    /// Points between the edges and the line; none by default.
    Q_PROPERTY(QMarginsF edgeInsets READ edgeInsets WRITE setEdgeInsets NOTIFY edgeInsetsChanged)
    /// The direction of the line: horizontal by default, for parts that stand one below the other.
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation NOTIFY orientationChanged)
public:
    explicit ZelSeparator(QWidget *parent = nullptr);
    explicit ZelSeparator(Qt::Orientation orientation, QWidget *parent = nullptr);
    explicit ZelSeparator(const ZelKeyedCoder &coder, QWidget *parent = nullptr);

    quint32 level() const { return m_level; }
    void setLevel(quint32 level);
    const QMarginsF &edgeInsets() const { return m_edgeInsets; }
    void setEdgeInsets(const QMarginsF &insets);
    Qt::Orientation orientation() const { return m_orientation; }
    void setOrientation(Qt::Orientation orientation);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    void drawRect(QPainter &painter, const QRect &dirtyRect) override;
    bool drawsContent() const override { return true; }

Q_SIGNALS:
    void levelChanged();
    void edgeInsetsChanged();
    void orientationChanged();

protected:
    ZelView *newInstance() const override { return new ZelSeparator(m_orientation); }
    bool handleEvent(QEvent *event) override;

private:
    void updateSizePolicy();

    QMarginsF m_edgeInsets;
    quint32 m_level = 1;
    Qt::Orientation m_orientation;
};
