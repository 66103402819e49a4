// SPDX-License-Identifier: MIT
#include "Views/ZelScrollView.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>
#include <QWindow>

ZelScrollView::ZelScrollView(QWidget *parent)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus); // its controls are in the tab order
    viewport()->setAutoFillBackground(false);
}

ZelScrollView::~ZelScrollView() = default;

void ZelScrollView::setDocumentView(QWidget *view)
{
    setWidget(view);
    if (!view)
        return;
    view->setAutoFillBackground(false); // set by the base
    updateDocumentSize();
}

void ZelScrollView::updateDocumentSize()
{
    QWidget *document = documentView();
    if (!document || m_updatingDocumentSize)
        return;
    const QScopedValueRollback updating(m_updatingDocumentSize, true);
    // Showing or hiding the scroll bar changes the width and with it the height; the second round settles it.
    for (int round = 0; round < 2; ++round) {
        const int width = viewport()->width();
        const int wanted =
            document->hasHeightForWidth() ? document->heightForWidth(width) : document->sizeHint().height();
        document->resize(width, qMax(0, wanted));
        if (viewport()->width() == width)
            break;
    }
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
}

bool ZelScrollView::event(QEvent *event)
{
    if (event->type() == QEvent::Show)
        watchWindow();
    return QScrollArea::event(event);
}

/// The wheel is caught where it enters the window: filtering every control would cost each of them.
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

bool ZelScrollView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_watchedWindow) {
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
    if (watched == documentView() && event->type() == QEvent::LayoutRequest) {
        updateDocumentSize();
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}
