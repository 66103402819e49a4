// SPDX-License-Identifier: MIT
#include "Core/RunLoop/ZelMemberScope.h"
#include "Geometry/ZelSnapUtilities.h"
#include "ViewController/private/ZelSubviewGroup.h"
#include "ViewController/private/ZelViewInstaller.h"
#include "ViewController/private/ZelViewRare.h"

#include <QLayout>
#include <QSet>
#include <QtMath>

// The part of ZelView that deals with rectangles and with the place in the tree.

bool ZelView::Rare::isPlainColor(const ZelColor &color)
{
    switch (color.space()) {
    case ZelColor::CalibratedWhite:
    case ZelColor::CalibratedRGB:
    case ZelColor::DeviceWhite:
    case ZelColor::DeviceRGB:
        return color.toQColor().alphaF() == 1;
    case ZelColor::DeviceCMYK:
    case ZelColor::Named:
    case ZelColor::Invalid:
        return false;
    }
    return false;
}

namespace {

const ZelView *parentView(const ZelView *view)
{
    return view->isWindow() ? nullptr : qobject_cast<const ZelView *>(view->parentWidget());
}

QTransform userSpaceOf(const QWidget *widget)
{
    const auto *view = qobject_cast<const ZelView *>(widget);
    return view ? view->boundsTransform() : QTransform();
}

[[maybe_unused]] const bool isUserSpaceSet = (ZelSnapUtilities::setUserSpace(&userSpaceOf), true);

QTransform transformOfParent(const ZelView *view)
{
    const ZelView *parent = parentView(view);
    return parent ? parent->boundsTransform() : QTransform();
}

/// Rounds the edges and not the size, so that frames that touch still touch.
QRect rounded(const QRectF &rect)
{
    const QPoint topLeft(qRound(rect.left()), qRound(rect.top()));
    return QRect(topLeft, QSize(qRound(rect.right()) - topLeft.x(), qRound(rect.bottom()) - topLeft.y()));
}

/// Rounds the size up, because a scaled view draws in its exact size from its rounded origin on. Frames that touch may
/// overlap by a point, but never leave a gap.
QRect roundedUp(const QRectF &rect)
{
    constexpr double tolerance = 1e-6; // the error of scaling there and back
    const auto up = [](double length) { return qCeil(length - tolerance); };
    return QRect(qRound(rect.left()), qRound(rect.top()), up(rect.width()), up(rect.height()));
}

/// Prevents a layout until the end of the scope. Otherwise each of many views would cause a layout of all of them when
/// it is shown.
class LayoutPause
{
public:
    explicit LayoutPause(QLayout *layout, bool activates = true)
        : m_layout(layout)
        , m_activates(activates)
    {
        if (m_layout)
            m_layout->setEnabled(false);
    }
    ~LayoutPause()
    {
        if (!m_layout)
            return;
        m_layout->setEnabled(true);
        if (m_activates && m_layout->parentWidget()->isVisible())
            m_layout->activate(); // at once, before anything is painted in its former place
    }
    Q_DISABLE_COPY_MOVE(LayoutPause)

private:
    QPointer<QLayout> m_layout;
    bool m_activates;
};

/// Keeps the frames of all views below a view while its scale changes. Frames in a parent with a layout are left to the
/// layout.
class FramesBelow
{
public:
    explicit FramesBelow(const ZelView *view) { collect(view); }

    void restore() const
    {
        for (const auto &[view, frame] : m_frames) // from the top down, because each frame needs the parent's scale
            if (view)
                view->setFrame(frame);
    }

private:
    void collect(const ZelView *parent)
    {
        if (parent->layout())
            return;
        for (QWidget *subview : parent->subviews()) {
            if (auto *view = qobject_cast<ZelView *>(subview)) {
                m_frames.append({view, view->frame()});
                collect(view);
            }
        }
    }

    QList<std::pair<QPointer<ZelView>, QRectF>> m_frames;
};

// Used instead of QList's own comparison, which passes null pointers to memcmp if one of two empty lists has reserved
// room.
bool isSame(const QList<QWidget *> &a, const QList<QWidget *> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

bool wasHiddenExplicitly(const QWidget *view)
{
    return view->testAttribute(Qt::WA_WState_Hidden) && view->testAttribute(Qt::WA_WState_ExplicitShowHide);
}

} // namespace

bool ZelView::hasScaledBounds() const
{
    for (const ZelView *view = this; view; view = parentView(view))
        if (view->m_rare && view->m_rare->bounds)
            return true;
    return false;
}

QRectF ZelView::frame() const
{
    if (m_rare && m_rare->frame && m_rare->geometryOfFrame == geometry())
        return *m_rare->frame;
    const QTransform transform = transformOfParent(this);
    QRectF frame = transform.isIdentity() ? QRectF(geometry()) : transform.inverted().mapRect(QRectF(geometry()));
    if (m_rare && m_rare->frame && m_rare->geometryOfFrame.size() == size())
        frame.setSize(m_rare->frame->size()); // it was only moved, so the exact size is still valid
    return frame;
}

void ZelView::setFrame(const QRectF &frame)
{
    const QTransform parentTransform = transformOfParent(this);
    const QRectF place = parentTransform.mapRect(frame);
    const QRect geometry = hasScaledBounds() ? roundedUp(place) : rounded(place);
    setGeometry(geometry);
    if (QRectF(geometry) != frame || !parentTransform.isIdentity()) {
        rare().frame = frame;
        rare().geometryOfFrame = this->geometry();
    } else if (m_rare) {
        m_rare->frame.reset();
    }
}

QRectF ZelView::bounds() const
{
    const QSizeF size = frame().size();
    if (!m_rare || !m_rare->bounds)
        return QRectF(QPointF(), size);
    const QSizeF &former = m_rare->frameSizeOfBounds;
    if (size == former || former.isEmpty())
        return *m_rare->bounds;
    return QRectF(m_rare->bounds->topLeft(), QSizeF(m_rare->bounds->width() * size.width() / former.width(),
                                                    m_rare->bounds->height() * size.height() / former.height()));
}

void ZelView::setBounds(const QRectF &bounds)
{
    if (bounds == this->bounds())
        return;
    const FramesBelow frames(this);
    const QRectF frame = this->frame();
    rare().bounds = bounds;
    rare().frameSizeOfBounds = frame.size();
    const QPointer<ZelView> guard(this);
    if (frame.size() != QSizeF(size()))
        setFrame(frame); // scaled views are rounded differently
    if (guard)
        frames.restore();
    if (guard)
        update();
}

QTransform ZelView::boundsTransform() const
{
    if (!hasScaledBounds())
        return {};
    const QRectF from = bounds();
    if (from.isEmpty())
        return {};
    // The exact size is used and not the widget's, which has whole points, so that the scale is exactly as set on both
    // axes. The origin is at a whole point, so that what is not scaled stays sharp.
    const QSizeF size = transformOfParent(this).mapRect(QRectF(QPointF(), frame().size())).size();
    QTransform transform;
    transform.scale(size.width() / from.width(), size.height() / from.height());
    transform.translate(-from.x(), -from.y());
    return transform;
}

double ZelView::hairlineWidth() const
{
    const QTransform transform = boundsTransform();
    return 1 / qMax(transform.m11(), transform.m22());
}

QList<QWidget *> ZelView::subviews() const
{
    QList<QWidget *> result;
    result.reserve(children().size());
    for (QObject *child : children())
        if (child->isWidgetType() && !static_cast<QWidget *>(child)->isWindow())
            result.append(static_cast<QWidget *>(child));
    return result;
}

void ZelView::addSubview(QWidget *view, qsizetype index)
{
    if (!view)
        return;
    QWidget *above = nullptr;
    if (index >= 0) { // subviews are not listed otherwise, because many may be added one by one
        QList<QWidget *> others = subviews();
        others.removeOne(view);
        above = others.value(index);
    }
    placeSubview(view, above);
    // A hook may delete the view and this, one without the other when it took the view out before.
    const QPointer<ZelView> guard(this);
    const QPointer<QWidget> viewGuard(view);
    ZelViewInstaller::windowMayHaveChanged(view);
    if (guard && viewGuard)
        showSubview(view);
}

void ZelView::placeSubview(QWidget *view, QWidget *above)
{
    if (view->parentWidget() != this) {
        auto *zelView = qobject_cast<ZelView *>(view);
        bool unused = false;
        // The change of the parent must not install the view yet: that happens when it is in its place.
        const ZelMemberScope moving(zelView, zelView ? zelView->m_moving : unused, true);
        view->setParent(this);
    } else if (!above) {
        view->raise();
    }
    if (above)
        view->stackUnder(above);
}

void ZelView::showSubview(QWidget *view)
{
    // In a hidden parent there is nothing to do: a widget that was not hidden explicitly is shown together with its
    // parent.
    if (view->parentWidget() != this || !isVisible() || !view->isHidden() || wasHiddenExplicitly(view))
        return;
    // Without the pause Qt would lay out at once, with constraints that are about to change.
    const LayoutPause pause(m_needsUpdateConstraints ? layout() : nullptr, false);
    view->show();
}

void ZelView::setSubviews(const QList<QWidget *> &views)
{
    if (isSame(subviews(), views))
        return;
    if (views.contains(nullptr)) {
        QList<QWidget *> others = views;
        others.removeAll(nullptr);
        return setSubviews(others);
    }
    const LayoutPause pause(layout());
    const QSet<QWidget *> wanted(views.begin(), views.end());
    QList<QPointer<QWidget>> unwanted; // guarded, like all below, because hooks may delete any of them
    for (QWidget *view : subviews())
        if (!wanted.contains(view))
            unwanted.append(view);
    const QPointer<ZelView> guard(this);
    const QList<QPointer<QWidget>> guarded(views.begin(), views.end());
    removeSubviews(unwanted);
    for (const QPointer<QWidget> &view : guarded)
        if (guard && view && view->parentWidget() != this)
            placeSubview(view, nullptr);
    if (!guard)
        return;
    if (!isSame(subviews(), views))
        for (const QPointer<QWidget> &view : guarded)
            if (view)
                view->raise();
    installAndShowSubviews();
}

void ZelView::removeSubviews(const QList<QPointer<QWidget>> &views)
{
    if (ZelSubviewGroup::isWorthwhile(views)) {
        const QPointer<ZelView> guard(this);
        QList<QPointer<ZelView>> grouped;
        for (const QPointer<QWidget> &view : views) {
            auto *zelView = qobject_cast<ZelView *>(view.data());
            if (zelView && zelView->parentWidget() == this) {
                ZelViewInstaller::willLoseWindow(zelView);
                grouped.append(zelView);
            }
        }
        if (guard)
            ZelSubviewGroup::removeFrom(this, grouped);
    }
    for (const QPointer<QWidget> &view : views)
        if (view && view->parentWidget() == this)
            removeFromSuperview(view);
}

void ZelView::installAndShowSubviews()
{
    const QPointer<ZelView> guard(this);
    ZelViewInstaller::installSubviews(this);
    if (!guard || !isVisible())
        return;
    const QList<QWidget *> views = subviews();
    for (const QPointer<QWidget> &view : QList<QPointer<QWidget>>(views.begin(), views.end()))
        if (guard && view)
            showSubview(view);
}

void ZelView::setShown(QWidget *view, bool shown)
{
    if (!shown) {
        view->hide();
    } else if (const QWidget *parent = view->parentWidget()) {
        // Without the pause Qt would lay out at once, and again for each of many views.
        const LayoutPause pause(parent->layout(), false);
        view->show();
    } else if (view->isHidden())
        view->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
}

void ZelView::removeFromSuperview()
{
    removeFromSuperview(this);
}

void ZelView::removeFromSuperview(QWidget *view)
{
    const QPointer<QWidget> guard(view);
    const QWidget *parent = view->parentWidget();
    if (!parent)
        return;
    // Only a ZelView loses its window here. Any other widget becomes a window itself without a parent, and the views in
    // it stay installed.
    if (qobject_cast<ZelView *>(view))
        ZelViewInstaller::willLoseWindow(view);
    if (guard && view->parentWidget() == parent)
        view->setParent(nullptr);
}
