// SPDX-License-Identifier: MIT
#include "Platform/Layout/ZelConstraintLayout.h"

#include "Platform/Layout/ZelLateLayouts.h"
#include "Platform/Layout/ZelLayoutSystem.h"
#include "Platform/Layout/ZelTextBaseline.h"
#include "Platform/Runtime/ZelAssertions.h"

struct ZelConstraintLayout::Private
{
    explicit Private(QWidget *container)
        : system(container)
    {
    }

    ZelLayoutSystem system;
    QRect rect; // the last one given
    bool isPlacing = false;
    bool isOutdated = false; // another size arrived while placing
    bool isLate = false;     // among the late layouts
    int lateRevision = 0;    // of the system, when the layout became late
};

namespace {

/// True while children are placed; the layout may die meanwhile.
class PlacingGuard
{
public:
    PlacingGuard(ZelConstraintLayout *layout, bool &flag)
        : m_layout(layout)
        , m_flag(flag)
    {
        m_flag = true;
    }
    ~PlacingGuard()
    {
        if (m_layout)
            m_flag = false;
    }
    Q_DISABLE_COPY_MOVE(PlacingGuard)

    bool isLayoutAlive() const { return m_layout; }

private:
    QPointer<ZelConstraintLayout> m_layout;
    bool &m_flag;
};

} // namespace

ZelConstraintLayout::ZelConstraintLayout(QWidget *parent)
    : d(std::make_unique<Private>(parent))
{
    // Invalid from the start: the widget's first show lays out then, without a request for each of many new widgets,
    // which Qt would look for in the whole queue.
    setContentsMargins(0, 0, 0, 0);
    parent->setLayout(this);
    if (parent->isVisible())
        QCoreApplication::postEvent(parent, new QEvent(QEvent::LayoutRequest));
}

ZelConstraintLayout::~ZelConstraintLayout()
{
    for (const ZelLayoutConstraint::Ptr &constraint : d->system.constraints())
        constraint->m_layout = nullptr;
}

ZelConstraintLayout *ZelConstraintLayout::of(QWidget *widget)
{
    return widget->layout() ? qobject_cast<ZelConstraintLayout *>(widget->layout()) : new ZelConstraintLayout(widget);
}

// ---- constraints

void ZelConstraintLayout::addConstraint(const ZelLayoutConstraint::Ptr &constraint)
{
    addConstraints({constraint});
}

void ZelConstraintLayout::addConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints)
{
    for (const ZelLayoutConstraint::Ptr &constraint : constraints) {
        if (!constraint || constraint->m_layout == this)
            continue;
        if (constraint->m_layout)
            constraint->m_layout->removeConstraint(constraint);
        constraint->m_layout = this;
        d->system.add(constraint);
    }
    invalidate();
}

void ZelConstraintLayout::removeConstraint(const ZelLayoutConstraint::Ptr &constraint)
{
    removeConstraints({constraint});
}

void ZelConstraintLayout::removeConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints)
{
    bool isAny = false;
    for (const ZelLayoutConstraint::Ptr &constraint : constraints) {
        if (!constraint || constraint->m_layout != this)
            continue;
        constraint->m_layout = nullptr;
        isAny = true;
    }
    if (!isAny)
        return;
    d->system.sweep(this);
    invalidate();
}

const QList<ZelLayoutConstraint::Ptr> &ZelConstraintLayout::constraints() const
{
    return d->system.constraints();
}

void ZelConstraintLayout::constantDidChange(const ZelLayoutConstraint &constraint)
{
    d->system.constantDidChange(constraint);
    invalidate();
}

void ZelConstraintLayout::priorityDidChange()
{
    d->system.constraintsDidChange();
    invalidate();
}

// ---- children

ZelLayoutPriorities ZelConstraintLayout::priorities(const QWidget *child)
{
    return ZelLayoutItem::priorities(child);
}

void ZelConstraintLayout::setPriorities(QWidget *child, const ZelLayoutPriorities &priorities)
{
    ZelLayoutItem::setPriorities(child, priorities);
    if (const QWidget *parent = child->parentWidget()) {
        if (auto *layout = qobject_cast<ZelConstraintLayout *>(parent->layout()))
            layout->invalidate();
    }
}

double ZelConstraintLayout::baselineOffset(const QWidget *widget, double height)
{
    return ZelTextBaseline(widget, height);
}

ZelLayoutPriorities ZelConstraintLayout::resistance() const
{
    return d->system.resistance();
}

QRect ZelConstraintLayout::geometryWithin(const QWidget *child, const QSize &parentSize)
{
    const auto *layout = qobject_cast<ZelConstraintLayout *>(child->parentWidget()->layout());
    return layout ? layout->d->system.geometryOf(child, parentSize) : child->geometry();
}

/// Widgets become items by being named in a constraint; one that is only added is left alone.
void ZelConstraintLayout::addItem(QLayoutItem *item)
{
    ZelCheck(item->widget(), QStringLiteral("A constraint layout holds widgets only"));
    delete item;
}

int ZelConstraintLayout::count() const
{
    return int(d->system.items().size());
}

QLayoutItem *ZelConstraintLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? &d->system.items()[size_t(index)] : nullptr;
}

QLayoutItem *ZelConstraintLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    return d->system.takeItem(size_t(index)).release();
}

// ---- sizes

QSize ZelConstraintLayout::sizeHint() const
{
    return d->system.sizeHint().grownBy(contentsMargins());
}

QSize ZelConstraintLayout::minimumSize() const
{
    return d->system.minimumSize().grownBy(contentsMargins());
}

bool ZelConstraintLayout::hasHeightForWidth() const
{
    return d->system.isHeightForWidth();
}

int ZelConstraintLayout::heightForWidth(int width) const
{
    const QMargins margins = contentsMargins();
    return d->system.heightForWidth(width - margins.left() - margins.right()) + margins.top() + margins.bottom();
}

Qt::Orientations ZelConstraintLayout::expandingDirections() const
{
    const ZelLayoutPriorities strength = resistance();
    const auto yields = [](ZelLayoutPriority hugging) { return hugging >= 1 && hugging < 250; };
    Qt::Orientations directions;
    directions.setFlag(Qt::Horizontal, yields(strength.horizontalHugging));
    directions.setFlag(Qt::Vertical, yields(strength.verticalHugging));
    return directions;
}

void ZelConstraintLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    d->rect = rect;
    if (d->isPlacing) {
        d->isOutdated = true;
        return;
    }
    for (int round = 0; round < 3; ++round) { // a child that resizes its parent each time would go on for ever
        d->isOutdated = false;
        if (!placeChildren())
            return;
        if (!d->isOutdated)
            break;
    }
    // Children whose own layout ran have announced a change each; a new pass is due only if one wants something else.
    if (d->system.update())
        QLayout::invalidate();
}

/// False if the layout died meanwhile.
bool ZelConstraintLayout::placeChildren()
{
    const QRect contents = d->rect.marginsRemoved(contentsMargins());
    const std::vector<QRect> places = d->system.geometries(contents.size());
    const PlacingGuard guard(this, d->isPlacing);
    const int generation = d->system.generation();
    for (size_t i = 0; i < places.size(); ++i) {
        QWidget *child = d->system.items()[i].widget();
        const QRect place = places[i].translated(contents.topLeft());
        if (!child || child->geometry() == place)
            continue;
        child->setGeometry(place);
        if (!guard.isLayoutAlive())
            return false;
        if (d->isOutdated || d->system.generation() != generation)
            break;
    }
    return true;
}

void ZelConstraintLayout::invalidate()
{
    d->system.childrenDidChange();
    tellAncestors();
    if (d->isPlacing || d->isLate)
        return;
    if (d->system.isBeingShown()) {
        d->isLate = true;
        d->lateRevision = d->system.revision();
        ZelLateLayouts::instance().add(this);
    } else {
        QLayout::invalidate();
    }
}

/// What a late layout does in place of a request.
void ZelConstraintLayout::checkChildren()
{
    d->isLate = false;
    // Somebody who asked for a size meanwhile has brought the system up to date, but has told nobody.
    d->system.update();
    if (d->system.revision() != d->lateRevision || !isPlaced())
        QLayout::invalidate();
}

bool ZelConstraintLayout::isPlaced() const
{
    if (!d->rect.isValid())
        return false;
    const QRect contents = d->rect.marginsRemoved(contentsMargins());
    const std::vector<QRect> places = d->system.geometries(contents.size());
    for (size_t i = 0; i < places.size(); ++i) {
        const QWidget *child = d->system.items()[i].widget();
        if (child && child->geometry() != places[i].translated(contents.topLeft()))
            return false;
    }
    return true;
}

/// Qt tells a parent's layout of a change when the widget is shown, which is too late for one who asks before.
void ZelConstraintLayout::tellAncestors() const
{
    for (const QWidget *widget = parentWidget(); widget && !widget->isWindow(); widget = widget->parentWidget()) {
        const QWidget *parent = widget->parentWidget();
        auto *layout = parent ? qobject_cast<ZelConstraintLayout *>(parent->layout()) : nullptr;
        if (!layout || !layout->d->system.childrenDidChange())
            return;
        if (!parent->isVisible())
            layout->QLayout::invalidate();
    }
}
