// SPDX-License-Identifier: MIT
#include "Views/ZelScrollView.h"

#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Core/Values/private/ZelAssign.h"
#include "Views/private/ZelSight.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>
#include <QWheelEvent>
#include <QWindow>

namespace {

bool isTab(const QEvent *event)
{
    const int key = event->type() == QEvent::KeyPress ? static_cast<const QKeyEvent *>(event)->key() : 0;
    return key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

} // namespace

ZelScrollView::ZelScrollView(QWidget *parent)
    : ZelGuardedScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus); // the controls inside are in the tab order, not the scroll view
    viewport()->setAutoFillBackground(false);
    connect(qApp, &QApplication::focusChanged, this, &ZelScrollView::focusDidChange);
}

ZelScrollView::~ZelScrollView()
{
    disconnect(qApp, nullptr, this, nullptr); // a control in the document loses the focus while this dies
}

void ZelScrollView::setDocumentView(QWidget *view)
{
    setWidget(view);
    if (!view)
        return;
    view->setAutoFillBackground(false); // setWidget has turned it on
    updateDocumentSize();
}

void ZelScrollView::updateDocumentSize()
{
    QWidget *document = documentView();
    if (!document || m_updatingDocumentSize)
        return;
    const ZelMemberScope updating(this, m_updatingDocumentSize, true);
    document->resize(documentSize());
}

int ZelScrollView::documentHeight(int width) const
{
    const QWidget *document = documentView();
    return qMax(0, document->hasHeightForWidth() ? document->heightForWidth(width) : document->sizeHint().height());
}

/// The size of the document for the width that the viewport is going to have. Otherwise the whole document would be
/// laid out a second time when the scroll bar appears.
QSize ZelScrollView::documentSize() const
{
    if (verticalScrollBarPolicy() != Qt::ScrollBarAsNeeded)
        return {viewport()->width(), documentHeight(viewport()->width())};
    const QScrollBar *bar = verticalScrollBar();
    const QSize room = maximumViewportSize();
    const bool liesOver = bar->style()->pixelMetric(QStyle::PM_ScrollView_ScrollBarOverlap, nullptr, bar) > 0;
    const int barWidth = liesOver ? 0 : bar->sizeHint().width();
    const int narrow = bar->isVisible() ? viewport()->width() : room.width() - barWidth;
    const bool hasBar = bar->minimum() < bar->maximum();
    const int narrowHeight = hasBar ? documentHeight(narrow) : 0;
    if (narrowHeight > 2 * room.height()) // surely too high for the whole width, too
        return {narrow, narrowHeight};
    const int height = documentHeight(room.width());
    return height > room.height() ? QSize(narrow, documentHeight(narrow)) : QSize(room.width(), height);
}

/// Qt follows the Tab key within a scroll area, but not into it.
void ZelScrollView::focusDidChange(QWidget *former, QWidget *present)
{
    const QWidget *document = documentView();
    if (!m_isTabPressed || !former || !present || !document || document->isAncestorOf(former) ||
        !document->isAncestorOf(present))
        return;
    const auto follow = [this, focus = QPointer<QWidget>(present)] {
        if (focus && focus->hasFocus() && documentView() && documentView()->isAncestorOf(focus))
            ensureWidgetVisible(focus);
    };
    QMetaObject::invokeMethod(
        this, [this, follow] { ZelExceptionReporter::run(this, follow); }, Qt::QueuedConnection);
}

void ZelScrollView::setKeptRows(int rows)
{
    if (!ZelAssign(m_keptRows, qMax(0, rows)))
        return;
    updateSight();
    Q_EMIT keptRowsChanged();
}

QSize ZelScrollView::sizeHint() const
{
    const QWidget *document = documentView();
    return document ? document->sizeHint() : QScrollArea::sizeHint();
}

QSize ZelScrollView::minimumSizeHint() const
{
    const QWidget *document = documentView();
    return QSize(document ? qMax(0, document->minimumSizeHint().width()) : 0, 0);
}

void ZelScrollView::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event);
    updateDocumentSize();
    updateSight();
}

void ZelScrollView::scrollContentsBy(int dx, int dy)
{
    QScrollArea::scrollContentsBy(dx, dy);
    updateSight();
}

ZelSight *ZelScrollView::sight()
{
    if (!m_sight)
        m_sight = new ZelSight(this);
    return m_sight;
}

void ZelScrollView::updateSight()
{
    if (m_sight)
        m_sight->update();
}

bool ZelScrollView::handleEvent(QEvent *event)
{
    if (event->type() == QEvent::Show)
        watchWindow();
    return QScrollArea::event(event);
}

/// The wheel is caught where it enters the window, because an event filter on every control would be expensive.
void ZelScrollView::watchWindow()
{
    QWindow *handle = window()->windowHandle();
    if (!handle || m_watchedWindow == handle)
        return;
    if (m_watchedWindow)
        m_watchedWindow->removeEventFilter(this);
    m_watchedWindow = handle;
    handle->installEventFilter(this);
}

bool ZelScrollView::scrollsInPlaceOf(const QWidget *widget) const
{
    const auto *control = widget;
    while (control && control != documentView() && !qobject_cast<const QAbstractSpinBox *>(control) &&
           !qobject_cast<const QComboBox *>(control) && !qobject_cast<const QAbstractSlider *>(control))
        control = control->parentWidget();
    if (!control || control == documentView() || qobject_cast<const QScrollBar *>(control))
        return false;
    return documentView()->isAncestorOf(control) && !control->hasFocus() && !control->isAncestorOf(focusWidget());
}

bool ZelScrollView::filterEvent(QObject *watched, QEvent *event)
{
    if (watched == m_watchedWindow) {
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress)
            m_isTabPressed = isTab(event);
        if (event->type() != QEvent::Wheel || !isVisible() || !documentView())
            return false;
        auto *wheel = static_cast<QWheelEvent *>(event);
        const QWidget *target = window()->childAt(window()->mapFromGlobal(wheel->globalPosition().toPoint()));
        if (!target || !scrollsInPlaceOf(target))
            return false;
        QWheelEvent scroll(viewport()->mapFromGlobal(wheel->globalPosition()), wheel->globalPosition(),
                           wheel->pixelDelta(), wheel->angleDelta(), wheel->buttons(), wheel->modifiers(),
                           wheel->phase(), wheel->inverted(), wheel->source(), wheel->pointingDevice());
        QCoreApplication::sendEvent(viewport(), &scroll);
        return true;
    }
    // What changes in a document that is not visible is laid out without a request when it is shown again.
    if (watched == documentView() && (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show)) {
        updateDocumentSize();
        updateGeometry();
        updateSight();
    }
    return QScrollArea::eventFilter(watched, event);
}
