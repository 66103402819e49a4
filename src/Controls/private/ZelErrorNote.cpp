// SPDX-License-Identifier: MIT
#include "Controls/private/ZelErrorNote.h"

#include "Controls/private/ZelThemeColor.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QSplitterHandle>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

namespace {

constexpr int g_distance = 2;
constexpr int g_margin = 4; // inside the note, and between the note and the edges of the window

QRect inWindow(const QWidget *widget)
{
    return QRect(widget->mapTo(widget->window(), QPoint()), widget->size());
}

} // namespace

void ZelErrorNote::show(QPointer<ZelErrorNote> *note, QWidget *field, const QString &text, Placement placement)
{
    if (text.isEmpty()) {
        delete *note;
        return;
    }
    if (!*note)
        *note = new ZelErrorNote(field);
    (*note)->m_placement = placement;
    (*note)->setText(text);
    (*note)->place();
}

ZelErrorNote::ZelErrorNote(QWidget *field)
    : m_field(field)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(g_margin);
    setAutoFillBackground(true);
    setPalette(QToolTip::palette());
    setFont(field->font());
    setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(field, &QObject::destroyed, this, &QObject::deleteLater);
    // Later: the focus may leave a widget that is being destroyed, and its parent's children cannot be listed then.
    connect(qApp, &QApplication::focusChanged, this, &ZelErrorNote::place, Qt::QueuedConnection);
    attach();
}

/// Watches the ancestors that the field has now. The note does not join a hidden window: that may be one that is being
/// destroyed, where the field loses the focus and its text may be refused.
void ZelErrorNote::attach()
{
    for (QWidget *widget : std::as_const(m_watched)) {
        if (widget)
            widget->removeEventFilter(this);
    }
    m_watched.clear();
    joinWindow();
    for (QWidget *widget = m_field; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        widget->installEventFilter(this);
        m_watched.append(widget);
    }
}

void ZelErrorNote::joinWindow()
{
    QWidget *window = m_field->window();
    if (window != parentWidget() && !window->isHidden())
        setParent(window);
}

bool ZelErrorNote::filterEvent(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ParentChange:
        if (m_field)
            attach();
        Q_FALLTHROUGH();
    case QEvent::Show:
        if (m_field)
            joinWindow();
        Q_FALLTHROUGH();
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
        place();
        break;
    default:
        break;
    }
    return QLabel::eventFilter(watched, event);
}

void ZelErrorNote::place()
{
    if (!m_field || parentWidget() != m_field->window() || !m_field->isVisible() ||
        m_field->visibleRegion().isEmpty()) {
        hide();
        return;
    }
    const QSize room = window()->size() - QSize(2 * g_margin, 2 * g_margin);
    const QRect field = inWindow(m_field);
    const int natural = fontMetrics().horizontalAdvance(text()) + 2 * g_margin + 2;
    const int width = std::max(1, std::min(natural, room.width()));
    QRect place = placeBeside(field, {width, heightForWidth(width)});
    if (m_placement == SparesControls && coversControl(place))
        place = placeSparingControls(field, place);
    setGeometry(place);
    setVisible(true);
    raise();
}

QRect ZelErrorNote::placeBeside(const QRect &field, QSize size) const
{
    const int room = window()->width() - 2 * g_margin;
    QRect place(QPoint(field.left(), field.bottom() + 1 + g_distance), size);
    if (m_field->layoutDirection() == Qt::RightToLeft)
        place.moveRight(field.right());
    place.moveLeft(std::max(g_margin, std::min(place.left(), g_margin + room - size.width())));
    const QWidget *focus = QApplication::focusWidget();
    const bool coversFocus = focus && focus != m_field && !m_field->isAncestorOf(focus) && !focus->isWindow() &&
                             focus->window() == window() && inWindow(focus).intersects(place);
    if (coversFocus || place.bottom() >= window()->height())
        place.moveBottom(std::max(place.height(), field.top()) - 1 - g_distance);
    return place;
}

/// Whether there is anything below the place that users would use.
bool ZelErrorNote::coversControl(const QRect &place) const
{
    const QList<QWidget *> widgets = window()->findChildren<QWidget *>();
    return std::any_of(widgets.begin(), widgets.end(), [&](const QWidget *widget) {
        // The handles of a split view overlap the edges of what they divide.
        const bool isControl = widget->focusPolicy() != Qt::NoFocus && !widget->isAncestorOf(m_field) &&
                               !qobject_cast<const QAbstractScrollArea *>(widget) &&
                               !qobject_cast<const QSplitterHandle *>(widget);
        if (!isControl || !widget->isVisible() || !inWindow(widget).intersects(place))
            return false;
        // What is scrolled may be larger than what is seen of it.
        return widget->visibleRegion().intersects(place.translated(-widget->mapTo(window(), QPoint())));
    });
}

/// The place beside the field if there is no better one.
QRect ZelErrorNote::placeSparingControls(const QRect &field, const QRect &beside) const
{
    const QRect above = beside.translated(0, field.top() - 1 - g_distance - beside.bottom());
    QList<QRect> inPanel{above};
    QList<QRect> besidePanel;
    for (const QWidget *around = m_field; around && !around->isWindow(); around = around->parentWidget()) {
        const auto *area = qobject_cast<const QAbstractScrollArea *>(around);
        if (!area)
            continue;
        const QRect panel = inWindow(area->viewport());
        inPanel.append(beside.translated(0, panel.bottom() - g_margin - beside.bottom()));
        besidePanel.append(beside.translated(panel.left() - g_distance - beside.right(), field.top() - beside.top()));
        besidePanel.append(beside.translated(panel.right() + g_distance - beside.left(), field.top() - beside.top()));
    }
    const auto isFree = [this](const QRect &place) {
        return window()->rect().contains(place) && !coversControl(place);
    };
    if (isFree(above))
        return above;
    // What is beside the panel may be covered for a while: users look at the row.
    const auto isInside = [this](const QRect &place) { return window()->rect().contains(place); };
    if (const auto place = std::find_if(besidePanel.cbegin(), besidePanel.cend(), isInside);
        place != besidePanel.cend())
        return *place;
    const auto free = std::find_if(inPanel.cbegin(), inPanel.cend(), isFree);
    return free == inPanel.cend() ? beside : *free;
}

void ZelErrorNote::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    QPainter painter(this);
    painter.setPen(ZelThemeColor::error(palette()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
