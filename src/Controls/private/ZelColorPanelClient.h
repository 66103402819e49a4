// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Undo/ZelUndoBurst.h"

#include <QColor>
#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>

class QWidget;
class ZelColorPanel;
class ZelUndoGrouping;

/// Links its parent, a control or an editor, to the colour panel, which serves one client at a time.
///
/// While the link is active, the parent is the panel's delegate and hears of every colour that the user chooses. The
/// colours of one drag are one undo grouping, and those of one stay in a field of the panel are one burst, since the
/// panel reports every key. The link ends when somebody else becomes the delegate, or the panel is
/// closed. The parent ends it when it leaves its window, and in its destructor.
class ZelColorPanelClient : public QObject
{
    Q_OBJECT
public:
    /// Answers whether the parent accepts the user's choice now.
    using TakesColors = std::function<bool()>;
    /// Answers the colour that the panel is to show. An invalid colour leaves the panel as it is.
    using ShownColor = std::function<QColor()>;

    ZelColorPanelClient(QObject *parent, TakesColors takesColors, ShownColor shownColor);
    ~ZelColorPanelClient() override;

    bool isActive() const { return m_isActive; }
    /// Makes the parent the panel's delegate, if it is not yet, and brings the panel to the front. If there is no
    /// colour to show, the panel begins with black.
    void activate(const QWidget *widget);
    void deactivate();

    bool showsAlpha() const { return m_showsAlpha; }
    void setShowsAlpha(bool shows);
    /// Makes the panel show the parent's colour. Does nothing while the user is dragging, because the parent then
    /// follows the panel.
    void showColor();
    /// Reports the panel's colour to the parent. This happens by itself when the user chooses one.
    void takeColor();

Q_SIGNALS:
    /// The parent may be gone after each of these signals.
    void colorChosen(const QColor &color);
    void activeChanged();

private:
    void takePanel();
    void endDrag();
    bool isTyping() const;

    TakesColors m_takesColors;
    ShownColor m_shownColor;
    QPointer<ZelColorPanel> m_panel;
    QPointer<const QWidget> m_widget;
    std::unique_ptr<ZelUndoGrouping> m_dragGrouping;
    ZelUndoBurst m_typing; // until the focus moves
    bool m_isActive = false;
    bool m_showsAlpha = false;
};
