// SPDX-License-Identifier: MIT
#include "Controls/ZelPopover.h"

#include "Controls/private/ZelPopoverWindow.h"
#include "Core/Binding/ZelEditor.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>

namespace {

constexpr int g_gap = 2; // between rectangle and popover, in points

/// The start of a span of the given length that is centred on another span but stays between `low` and `high`.
int centred(int length, int from, int span, int low, int high)
{
    return qMax(low, qMin(from + (span - length) / 2, high - length));
}

/// The editors in the widget. The one with the focus comes first, because the user may be typing there.
QList<QPointer<QWidget>> editorsIn(QWidget *widget)
{
    QList<QPointer<QWidget>> editors{widget->focusWidget()};
    const QList<QWidget *> descendants = widget->findChildren<QWidget *>();
    for (QWidget *descendant : descendants) {
        if (qobject_cast<ZelEditor *>(descendant))
            editors.append(descendant);
    }
    return editors;
}

/// Commits what is being typed. What is refused is discarded, because nobody would see it any more.
void endEditing(QWidget *content)
{
    const QList<QPointer<QWidget>> editors = editorsIn(content);
    for (const QPointer<QWidget> &widget : editors) {
        auto *editor = qobject_cast<ZelEditor *>(widget.data());
        if (editor && !editor->commitEditing() && widget)
            editor->discardEditing();
    }
}

} // namespace

/// Marks the popover as closing for a scope, in which the popover may die.
class ZelPopover::Closing
{
public:
    explicit Closing(ZelPopover *popover)
        : m_popover(popover)
    {
        popover->m_isClosing = true;
    }
    ~Closing()
    {
        if (m_popover)
            m_popover->m_isClosing = false;
    }
    Q_DISABLE_COPY_MOVE(Closing)

private:
    QPointer<ZelPopover> m_popover;
};

ZelPopover::ZelPopover(QObject *parent)
    : ZelGuarded(parent)
{
}

ZelPopover::~ZelPopover()
{
    ZelExceptionReporter::run(this, [this] {
        performClose();
        finishClosing(); // in case it dies while it is closing
    });
    ZelEventScope::dispose(m_content);
    if (m_window)
        m_window->dispose();
}

ZelPopoverWindow *ZelPopover::window()
{
    if (!m_window)
        m_window = new ZelPopoverWindow(this);
    return m_window;
}

void ZelPopover::setContentWidget(QWidget *content)
{
    if (content == m_content)
        return;
    const QPointer<ZelPopover> guard(this);
    // Closing the popover for this may delete the popover.
    delete takeContentWidget();
    if (!guard)
        return;
    m_content = content;
    if (content)
        window()->setContent(content);
}

QWidget *ZelPopover::takeContentWidget()
{
    const QPointer<ZelPopover> guard(this);
    performClose();
    if (!guard)
        return nullptr;
    QWidget *content = std::exchange(m_content, nullptr);
    if (content)
        window()->setContent(nullptr);
    return content;
}

void ZelPopover::setContentSize(const QSize &size)
{
    m_contentSize = size;
    if (m_isShown)
        place();
}

QRect ZelPopover::placement(const QSize &size, const QRect &rect, Qt::Edge preferredEdge, const QRect &available)
{
    const QSize fitting = size.boundedTo(available.size());
    const int right = available.x() + available.width();
    const int bottom = available.y() + available.height();
    const bool beside = preferredEdge == Qt::LeftEdge || preferredEdge == Qt::RightEdge;
    const int length = beside ? fitting.width() : fitting.height();
    // Along the axis of the edge: the two possible starts, before and after the rectangle, and the limits of the
    // screen.
    const int before = (beside ? rect.x() : rect.y()) - g_gap - length;
    const int after = (beside ? rect.x() + rect.width() : rect.y() + rect.height()) + g_gap;
    const int low = beside ? available.x() : available.y();
    const int high = beside ? right : bottom;
    const bool prefersBefore = preferredEdge == Qt::LeftEdge || preferredEdge == Qt::TopEdge;
    const bool fitsBefore = before >= low;
    const bool fitsAfter = after + length <= high;
    const bool isBefore = prefersBefore ? fitsBefore || !fitsAfter : fitsBefore && !fitsAfter;
    const int at = qMax(low, qMin(isBefore ? before : after, high - length));
    const QPoint origin = beside ? QPoint(at, centred(fitting.height(), rect.y(), rect.height(), available.y(), bottom))
                                 : QPoint(centred(fitting.width(), rect.x(), rect.width(), available.x(), right), at);
    return {origin, fitting};
}

void ZelPopover::place()
{
    if (!m_anchor || !m_content)
        return;
    const QRect rect(m_anchor->mapToGlobal(m_rect.topLeft()), m_rect.size());
    QScreen *screen = QGuiApplication::screenAt(rect.center());
    if (!screen)
        screen = m_anchor->screen();
    m_window->setGeometry(
        placement(m_window->sizeForContent(m_contentSize), rect, m_edge, screen->availableGeometry()));
}

void ZelPopover::showRelativeToRect(const QRect &rect, QWidget *widget, Qt::Edge preferredEdge)
{
    if (!m_content || !widget || !widget->isVisible() || m_isClosing)
        return;
    if (m_anchor)
        m_anchor->removeEventFilter(this);
    m_anchor = widget;
    m_rect = rect.isEmpty() ? widget->rect() : rect;
    m_edge = preferredEdge;
    widget->installEventFilter(this);
    connect(widget, &QObject::destroyed, this, &ZelPopover::widgetWasDestroyed, Qt::UniqueConnection);
    m_window->belongTo(widget);
    if (m_isShown) {
        place();
        return;
    }
    m_isShown = true;
    m_formerFocus = QApplication::focusWidget();
    const QPointer<ZelPopover> guard(this);
    Q_EMIT willShow();
    if (!guard || !m_isShown)
        return;
    place();
    giveFocus(); // first: a window that is shown gives the focus to its focus widget
    m_window->show();
    if (!guard || !m_isShown)
        return;
    Q_EMIT shownChanged();
    if (guard && m_isShown)
        Q_EMIT didShow();
}

void ZelPopover::giveFocus()
{
    const auto takesFocus = [this](const QWidget *widget, Qt::FocusPolicy policy) {
        return widget && (widget == m_content || m_content->isAncestorOf(widget)) && widget->isEnabledTo(m_window) &&
               widget->isVisibleTo(m_window) && (widget->focusPolicy() & policy) == policy;
    };
    if (takesFocus(m_window->focusWidget(), Qt::NoFocus))
        return;
    QWidget *widget = m_content;
    do {
        if (takesFocus(widget, Qt::TabFocus)) {
            widget->setFocus(Qt::PopupFocusReason);
            return;
        }
        widget = widget->nextInFocusChain();
    } while (widget && widget != m_content);
}

void ZelPopover::performClose()
{
    if (!m_isShown || m_isClosing)
        return;
    const QPointer<ZelPopover> guard(this);
    const Closing closing(this);
    if (m_content)
        endEditing(m_content);
    if (guard)
        Q_EMIT willClose();
    if (guard)
        finishClosing();
}

void ZelPopover::finishClosing()
{
    if (!m_isShown)
        return;
    m_isShown = false;
    m_isClosing = false; // receivers may show the popover again from here on
    if (m_anchor)
        m_anchor->removeEventFilter(this);
    m_anchor = nullptr;
    const QPointer<ZelPopover> guard(this);
    m_window->hide();
    if (guard)
        restoreFocus();
    if (guard)
        Q_EMIT didClose();
    if (guard)
        Q_EMIT shownChanged();
}

/// Qt gives the focus back only if a window is active then.
void ZelPopover::restoreFocus()
{
    const QWidget *focus = QApplication::focusWidget();
    QWidget *former = std::exchange(m_formerFocus, nullptr);
    if (former && former->isVisible() && former->isEnabled() && (!focus || focus->window() == m_window))
        former->setFocus(Qt::PopupFocusReason);
}

bool ZelPopover::isOnAnchor(const QPoint &globalPosition) const
{
    return m_anchor && m_rect.contains(m_anchor->mapFromGlobal(globalPosition));
}

void ZelPopover::widgetWasDestroyed(QObject *widget)
{
    if (m_anchor && m_anchor != widget)
        return; // it is a former anchor
    m_anchor = nullptr;
    ZelExceptionReporter::run(this, [this] { performClose(); });
}

void ZelPopover::contentChangedSize()
{
    if (m_isShown)
        place();
}

void ZelPopover::contentWentAway()
{
    m_content = nullptr;
    performClose();
}

void ZelPopover::windowWasHidden()
{
    if (m_isShown && !m_window->isVisible())
        performClose();
}

bool ZelPopover::filterEvent(QObject *watched, QEvent *event)
{
    if (watched == m_anchor && m_isShown) {
        if (event->type() == QEvent::Hide)
            performClose();
        else if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
            place();
    }
    return false;
}
