// SPDX-License-Identifier: MIT
#pragma once

#include "ViewController/ZelView.h"

#include <QMarginsF>

/// A horizontal hairline between the parts of a form.
class ZelSeparator : public ZelView
{
    Q_OBJECT
    /// How deep in the form the separator stands: 0 and 1 are strong, each further level is fainter. 1 by default.
    Q_PROPERTY(quint32 level READ level WRITE setLevel NOTIFY levelChanged)
    /// Points between the edges and the line; none by default.
    Q_PROPERTY(QMarginsF edgeInsets READ edgeInsets WRITE setEdgeInsets NOTIFY edgeInsetsChanged)
public:
    explicit ZelSeparator(QWidget *parent = nullptr);

    quint32 level() const { return m_level; }
    void setLevel(quint32 level);
    const QMarginsF &edgeInsets() const { return m_edgeInsets; }
    void setEdgeInsets(const QMarginsF &insets);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    void drawRect(QPainter &painter, const QRect &dirtyRect) override;
    bool drawsContent() const override { return true; }

Q_SIGNALS:
    void levelChanged();
    void edgeInsetsChanged();

protected:
    ZelView *newInstance() const override { return new ZelSeparator; }

private:
    quint32 m_level = 1;
    QMarginsF m_edgeInsets;
};
