// SPDX-License-Identifier: MIT
#include "Controls/private/ZelErrorNote.h"

#include "Controls/private/ZelThemeColor.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace {

constexpr int g_distance = 2;
constexpr int g_margin = 4; // inside the note, and between the note and the edges of the window

QRect inWindow(const QWidget *widget)
{
    return QRect(widget->mapTo(widget->window(), QPoint()), widget->size());
}

} // namespace

void ZelErrorNote::show(QPointer<ZelErrorNote> *note, QWidget *field, const QString &text)
{
    if (text.isEmpty()) {
        delete *note;
        return;
    }
    if (!*note)
        *note = new ZelErrorNote(field);
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
    connect(qApp, &QApplication::focusChanged, this, &ZelErrorNote::place);
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
    QRect place(field.left(), field.bottom() + 1 + g_distance, width, heightForWidth(width));
    if (m_field->layoutDirection() == Qt::RightToLeft)
        place.moveRight(field.right());
    place.moveLeft(std::max(g_margin, std::min(place.left(), g_margin + room.width() - width)));
    const QWidget *focus = QApplication::focusWidget();
    const bool coversFocus = focus && focus != m_field && !m_field->isAncestorOf(focus) && !focus->isWindow() &&
                             focus->window() == window() && inWindow(focus).intersects(place);
    if (coversFocus || place.bottom() >= window()->height())
        place.moveBottom(std::max(place.height(), field.top()) - 1 - g_distance);
    setGeometry(place);
    setVisible(true);
    raise();
}

void ZelErrorNote::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    QPainter painter(this);
    painter.setPen(ZelThemeColor::error(palette()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
