// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"

#include <QSplitter>

/// A splitter whose dividers are lines in a colour that follows whether its window is the active one.
///
/// A line is one point wide unless setHandleWidth() is called; the mouse takes hold of it within a few points.
class ZelSplitView : public ZelGuarded<QSplitter>
{
    Q_OBJECT
    /// How deep in the window the split view stands: 0 (the default), 1 or 2, each fainter. Asserts another one, and
    /// keeps the former.
    Q_PROPERTY(quint64 level READ level WRITE setLevel NOTIFY levelChanged)
public:
    explicit ZelSplitView(QWidget *parent = nullptr);
    explicit ZelSplitView(Qt::Orientation orientation, QWidget *parent = nullptr);

    quint64 level() const { return m_level; }
    void setLevel(quint64 level);
    virtual QColor dividerColor() const;

Q_SIGNALS:
    void levelChanged();

protected:
    QSplitterHandle *createHandle() override;
    bool handleEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    friend class ZelPrioritySplitViewDelegate;
    void updateDividers();
    quint64 m_level = 0;
    QSize m_laidOutSize; // for which a delegate has set the panes' sizes already
};
