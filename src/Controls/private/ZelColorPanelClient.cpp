// SPDX-License-Identifier: MIT
#include "Controls/private/ZelColorPanelClient.h"

#include "Controls/ZelColorPanel.h"
#include "Core/Undo/ZelUndoManager.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QLineEdit>
#include <optional>

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
    connect(qApp, &QApplication::focusChanged, this, [this] { m_typing.end(); });
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
    m_typing.end();
    disconnect(qApp, nullptr, this, nullptr);
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

void ZelColorPanelClient::showColor()
{
    if (!m_isActive || !m_panel || m_panel->isTracking())
        return;
    const QRgb former = m_panel->color().rgba();
    m_panel->setColor(m_shownColor());
    if (former != m_panel->color().rgba())
        m_typing.end(); // the next key may be meant for another object
}

/// Whether the colour comes from a field of the panel.
bool ZelColorPanelClient::isTyping() const
{
    const QWidget *focus = m_panel->window()->focusWidget();
    const bool isField = qobject_cast<const QLineEdit *>(focus) || qobject_cast<const QAbstractSpinBox *>(focus);
    return isField && !m_panel->isTracking();
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
    std::optional<ZelUndoBurst::Edit> typed;
    if (isTyping())
        typed.emplace(m_typing, true);
    Q_EMIT colorChosen(m_panel->color());
}

void ZelColorPanelClient::endDrag()
{
    const QPointer<ZelColorPanelClient> guard(this);
    m_dragGrouping.reset();
    if (guard)
        showColor(); // the model may have changed the colour
}
