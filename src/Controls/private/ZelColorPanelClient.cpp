// SPDX-License-Identifier: MIT
#include "Controls/private/ZelColorPanelClient.h"

#include "Controls/ZelColorPanel.h"
#include "Core/Undo/ZelUndoManager.h"

#include <QWidget>

ZelColorPanelClient::ZelColorPanelClient(QObject *parent, TakesColors takesColors, ShownColor shownColor)
    : QObject(parent)
    , m_takesColors(std::move(takesColors))
    , m_shownColor(std::move(shownColor))
{
}

ZelColorPanelClient::~ZelColorPanelClient() = default;

void ZelColorPanelClient::activate(const QWidget *widget)
{
    const bool isNew = !m_isActive || !m_panel;
    m_widget = widget;
    if (isNew)
        takePanel();
    m_panel->orderFront(widget);
    if (isNew)
        Q_EMIT activeChanged();
}

void ZelColorPanelClient::takePanel()
{
    m_panel = ZelColorPanel::sharedColorPanel();
    m_panel->setDelegate(parent());
    connect(m_panel, &ZelColorPanel::colorDidChange, this, &ZelColorPanelClient::takeColor);
    connect(m_panel, &ZelColorPanel::trackingDidEnd, this, &ZelColorPanelClient::endDrag);
    connect(m_panel, &ZelColorPanel::willClose, this, &ZelColorPanelClient::deactivate);
    connect(m_panel, &ZelColorPanel::delegateDidChange, this, &ZelColorPanelClient::deactivate);
    m_isActive = true;
    m_panel->setShowsAlpha(m_showsAlpha);
    const QColor color = m_shownColor();
    m_panel->setColor(color.isValid() ? color : QColor(Qt::black));
}

void ZelColorPanelClient::deactivate()
{
    if (!std::exchange(m_isActive, false))
        return;
    const auto grouping = std::move(m_dragGrouping); // destroyed last, because its end may call others
    if (m_panel) {
        m_panel->disconnect(this);
        if (m_panel->delegate() == parent())
            m_panel->setDelegate(nullptr);
    }
    Q_EMIT activeChanged();
}

void ZelColorPanelClient::setShowsAlpha(bool shows)
{
    m_showsAlpha = shows;
    if (m_isActive && m_panel)
        m_panel->setShowsAlpha(shows);
}

void ZelColorPanelClient::showColor() const
{
    if (m_isActive && m_panel && !m_panel->isTracking())
        m_panel->setColor(m_shownColor());
}

void ZelColorPanelClient::takeColor()
{
    if (!m_isActive || !m_panel)
        return;
    if (m_panel->delegate() != parent()) {
        deactivate();
        return;
    }
    if (!m_takesColors())
        return;
    if (m_panel->isTracking() && !m_dragGrouping)
        m_dragGrouping = std::make_unique<ZelUndoGrouping>(m_widget.data()); // one step for the whole drag
    Q_EMIT colorChosen(m_panel->color());
}

void ZelColorPanelClient::endDrag()
{
    const QPointer<ZelColorPanelClient> guard(this);
    m_dragGrouping.reset();
    if (guard)
        showColor(); // the model may have changed the colour
}
