// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QSplitter>

/// A splitter whose dividers are lines. Their colour depends on whether the window is the active one.
///
/// A line is one point wide unless setHandleWidth() is called. The mouse can grab it within a few points.
class ZEL_EXPORT ZelSplitView : public ZelGuarded<QSplitter>
{
    Q_OBJECT
    /// The depth of the split view in the window: 0 (the default), 1 or 2, each with fainter lines. Any other level is
    /// an assertion and changes nothing.
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
    QSize m_laidOutSize; // the size for which a delegate has laid out the panes already
};
