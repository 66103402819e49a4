// SPDX-License-Identifier: MIT
#include "Layout/ZelConstraintLayout.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Layout/private/ZelLayoutSystem.h"
#include "Layout/private/ZelLayoutTurn.h"
#include "Layout/private/ZelTextBaseline.h"

#include <QCoreApplication>

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
    bool isLate = false;     // waits until its children are shown
    int lateRevision = 0;    // of the system, when the layout became late
};

ZelConstraintLayout::ZelConstraintLayout(QWidget *parent)
    : d(std::make_unique<Private>(parent))
{
    // A new layout is invalid and laid out when its widget is first shown. No layout request is posted for a widget
    // that is not visible: Qt looks through the whole queue for an equal one, which is slow for many new widgets.
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

/// A widget becomes an item when a constraint names it; one that is only added is left alone.
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
    // Below 1 nothing wants a size, but nothing asks for room either; 250 is the hugging of a child that wants its
    // hint.
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
    // Each child whose own layout ran has announced a change. A new pass is due only if one of them wants something
    // else than before.
    if (d->system.update())
        QLayout::invalidate();
}

/// Gives the children their places. Answers false if the layout died meanwhile: a child's resize event may delete it.
bool ZelConstraintLayout::placeChildren()
{
    const QRect contents = d->rect.marginsRemoved(contentsMargins());
    const std::vector<QRect> places = d->system.geometries(contents.size());
    const ZelMemberScope placing(this, d->isPlacing, true);
    const int generation = d->system.generation();
    for (size_t i = 0; i < places.size(); ++i) {
        QWidget *child = d->system.items()[i].widget();
        const QRect place = places[i].translated(contents.topLeft());
        if (!child || child->geometry() == place)
            continue;
        child->setGeometry(place);
        if (!placing.isOwnerAlive())
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
        ZelLayoutTurn::instance().add(ZelLayoutTurn::ShownChildren, this, [](QObject *object) {
            if (auto *layout = qobject_cast<ZelConstraintLayout *>(object))
                layout->checkChildren();
        });
    } else {
        QLayout::invalidate();
    }
}

/// Runs in place of a layout request once all children are shown. Nearly always nothing has changed, and no layout is
/// needed.
void ZelConstraintLayout::checkChildren()
{
    d->isLate = false;
    // The answer of update() does not tell enough: whoever asked for a size meanwhile has brought the system up to
    // date already, without telling anybody. The revision tells.
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

/// Marks the layouts of all ancestors as outdated. Qt tells the parent's layout of a change only when the widget is
/// shown, which is too late for those who ask for a size before. An ancestor that knows already has told those above.
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
