// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBar.h"

#include "ActionBar/ZelActionBarCheckboxButton.h"
#include "ActionBar/ZelActionBarPopupButton.h"
#include "ActionBar/ZelActionBarSeparator.h"
#include "Controls/private/ZelDelayedValidation.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/Values/private/ZelAssign.h"
#include "Layout/ZelConstraintLayout.h"
#include "Observation/ZelObservations.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/private/ZelActionTarget.h"
#include "ViewController/private/ZelAssignItems.h"

namespace {

const char g_itemContext = 0;
constexpr ZelLayoutPriority g_weak = 250;
constexpr ZelLayoutPriority g_strong = 750;

using Constraint = ZelLayoutConstraint;

} // namespace

ZelActionBar::ZelActionBar(QWidget *parent)
    : ZelView(parent)
    , m_validation(std::make_unique<ZelDelayedValidation>([this] { validateItems(); }))
{
}

ZelActionBar::ZelActionBar(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
    , m_validation(std::make_unique<ZelDelayedValidation>([this] { validateItems(); }))
{
}

ZelActionBar::~ZelActionBar()
{
    uninstall();
    leaveItems(); // updateItemViews may have been called while the bar was not installed
}

ZelDelayedInvocation &ZelActionBar::validateItemsInvocation()
{
    return m_validation->invocation();
}

// Properties

QList<ZelActionBarItem *> ZelActionBar::items() const
{
    QList<ZelActionBarItem *> items;
    items.reserve(m_items.size());
    for (const QPointer<ZelActionBarItem> &item : m_items)
        if (item)
            items.append(item);
    return items;
}

void ZelActionBar::setItems(const QList<ZelActionBarItem *> &items)
{
    const QList<QPointer<ZelActionBarItem>> former = m_items;
    if (!ZelAssignItems(m_items, items, this))
        return;
    for (const QPointer<ZelActionBarItem> &item : former)
        if (item && !m_items.contains(item))
            disconnect(item, nullptr, this, nullptr);
    Q_EMIT itemsChanged();
}

void ZelActionBar::setEdgeInsets(const QMarginsF &insets)
{
    if (!ZelAssign(m_edgeInsets, insets))
        return;
    setNeedsUpdateConstraints();
    Q_EMIT edgeInsetsChanged();
}

void ZelActionBar::setStyle(quint32 style)
{
    if (ZelAssign(m_style, style))
        Q_EMIT styleChanged();
}

// Observation

void ZelActionBar::viewDidInstall()
{
    ZelView::viewDidInstall();
    const ZelObservations observations(this);
    const auto observe = [&](const char *key, auto change) {
        observations.addObservationWithObject(
            this, key, ZelKeyValueObservingOptionEqualCheck,
            [change](ZelBlockObservation *, const ZelKeyValueChange &) { change(); }, &ZelInstalledContext);
    };
    observe("items", [this] { updateItemViews(); });
    observe("style", [this] { update(); });
    m_validation->observeEvents(this, &ZelInstalledContext);
    updateItemViews();
}

void ZelActionBar::viewWillUninstall()
{
    ZelView::viewWillUninstall();
    leaveItems();
    m_validation->invocation().cancel();
}

void ZelActionBar::leaveItems()
{
    ZelObservations(this).removeAllObservationsForContext(&g_itemContext);
    for (const QPointer<ZelActionBarItem> &item : std::as_const(m_items))
        if (item)
            disconnect(item, nullptr, this, nullptr);
}

void ZelActionBar::observeItem(ZelActionBarItem *item)
{
    for (const char *key : {"type", "target", "action", "menu", "view"})
        ZelObservations(this).addObservationWithObject(
            item, key, ZelKeyValueObservingOptionEqualCheck,
            [this](ZelBlockObservation *, const ZelKeyValueChange &) { updateItemViews(); }, &g_itemContext);
    for (const auto changed :
         {&ZelActionBarItem::minSizeChanged, &ZelActionBarItem::maxSizeChanged, &ZelActionBarItem::edgeInsetsChanged})
        connect(item, changed, this, &ZelView::setNeedsUpdateConstraints, Qt::UniqueConnection);
    connect(item, &QObject::destroyed, this, &ZelActionBar::itemWasDestroyed, Qt::UniqueConnection);
}

void ZelActionBar::itemWasDestroyed()
{
    m_items.removeAll(nullptr);
    Q_EMIT itemsChanged();
}

// Controls

void ZelActionBar::updateItemViews()
{
    ZelObservations(this).removeAllObservationsForContext(&g_itemContext);
    const QList<QPointer<QWidget>> former = std::exchange(m_madeViews, {});
    QList<QWidget *> views;
    for (ZelActionBarItem *item : items()) {
        observeItem(item);
        views.append(makeItemView(item));
    }
    setItemViews(views);
    for (const QPointer<QWidget> &view : former) {
        if (view) {
            view->hide();
            view->deleteLater(); // a click on it may have led here
        }
    }
    setNeedsUpdateConstraints();
    m_validation->invocation().schedule();
}

void ZelActionBar::setItemViews(const QList<QWidget *> &views)
{
    if (views == itemViews())
        return;
    setSubviews(views);
    Q_EMIT itemViewsChanged();
}

QWidget *ZelActionBar::makeItemView(ZelActionBarItem *item)
{
    if (item->type() == ZelActionBarItem::Separator) {
        auto *separator = new ZelActionBarSeparator;
        m_madeViews.append(separator);
        ZelObservations(this).addBindingWithObject(separator, QStringLiteral("style"), this, "style", {},
                                                   &g_itemContext);
        return separator;
    }
    if (item->view())
        return item->view();
    ZelActionBarButton *button = makeButton(item);
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred); // the item limits the size
    m_madeViews.append(button);
    bindButton(button, item);
    connect(button, &QAbstractButton::clicked, this, [this, button, item = QPointer<ZelActionBarItem>(item)] {
        if (item)
            ZelExceptionReporter::run(this,
                                      [&] { ZelActionTarget::perform(item->action(), item->target(), this, button); });
    });
    return button;
}

ZelActionBarButton *ZelActionBar::makeButton(ZelActionBarItem *item)
{
    if (item->menu()) {
        auto *button = new ZelActionBarPopupButton;
        button->setMenu(item->menu());
        return button;
    }
    auto *button = item->type() == ZelActionBarItem::Checkbox ? new ZelActionBarCheckboxButton : new ZelActionBarButton;
    ZelLayoutPriorities priorities;
    priorities.horizontalHugging = 1;
    priorities.horizontalCompression = 1;
    ZelConstraintLayout::setPriorities(button, priorities);
    return button;
}

void ZelActionBar::bindButton(ZelActionBarButton *button, ZelActionBarItem *item)
{
    const ZelObservations observations(this);
    for (const char *key : {"image", "alternateImage", "state", "enabled", "tag", "toolTip", "keyEquivalent",
                            "keyEquivalentModifierMask"})
        observations.addBindingWithObject(button, QString::fromLatin1(key), item, key, {}, &g_itemContext);
    observations.addBindingWithObject(button, ZelTitleBinding, item, "label",
                                      {{ZelNullPlaceholderBindingOption, QStringLiteral("")}}, &g_itemContext);
    const auto name = [button, item] {
        button->setAccessibleName(item->label().isEmpty() ? item->toolTip() : item->label());
    };
    name();
    connect(item, &ZelActionBarItem::labelChanged, button, name);
    connect(item, &ZelActionBarItem::toolTipChanged, button, name);
}

void ZelActionBar::validateItems()
{
    const QList<QPointer<ZelActionBarItem>> items = m_items;
    const QPointer<ZelActionBar> guard(this);
    for (const QPointer<ZelActionBarItem> &item : items) {
        if (!guard)
            return;
        if (!item || !item->autovalidates())
            continue;
        const bool valid =
            item->action().isNull() || ZelActionTarget::isValid(item->action(), item->target(), this, item);
        if (item)
            item->setEnabled(valid);
    }
}

// Row

void ZelActionBar::updateConstraints()
{
    ZelView::updateConstraints();
    const QList<ZelActionBarItem *> items = this->items();
    const QList<QWidget *> views = itemViews();
    if (items.size() != views.size())
        return;
    if (views.isEmpty()) {
        setStackConstraints({Constraint::constraintWithItem(this, Constraint::Width, Constraint::Equal, nullptr,
                                                            Constraint::NotAnAttribute, 1,
                                                            m_edgeInsets.left() + m_edgeInsets.right(), g_weak)});
        return;
    }
    QList<Constraint::Ptr> constraints;
    for (qsizetype i = 0; i < views.size(); ++i) {
        const double left = items.at(i)->edgeInsets().left();
        constraints.append(constraintsOfItem(views.at(i), items.at(i)));
        if (i == 0)
            constraints.append(Constraint::constraintWithItem(views.first(), Constraint::Leading, Constraint::Equal,
                                                              this, Constraint::Leading, 1,
                                                              m_edgeInsets.left() + left));
        else
            constraints.append(Constraint::constraintWithItem(views.at(i), Constraint::Leading, Constraint::Equal,
                                                              views.at(i - 1), Constraint::Trailing, 1,
                                                              items.at(i - 1)->edgeInsets().right() + left, g_strong));
    }
    constraints.append(Constraint::constraintWithItem(
        views.last(), Constraint::Trailing, Constraint::Equal, this, Constraint::Trailing, 1,
        -(m_edgeInsets.right() + items.last()->edgeInsets().right()), g_weak));
    setStackConstraints(constraints);
}

void ZelActionBar::setStackConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints)
{
    if (replaceConstraints(m_stackConstraints, constraints))
        Q_EMIT stackConstraintsChanged();
}

QList<ZelLayoutConstraint::Ptr> ZelActionBar::constraintsOfItem(QWidget *view, const ZelActionBarItem *item)
{
    const QMarginsF &insets = item->edgeInsets();
    QList<Constraint::Ptr> constraints{
        Constraint::constraintWithItem(view, Constraint::Top, Constraint::GreaterThanOrEqual, this, Constraint::Top, 1,
                                       m_edgeInsets.top() + insets.top()),
        Constraint::constraintWithItem(view, Constraint::Bottom, Constraint::LessThanOrEqual, this, Constraint::Bottom,
                                       1, -(m_edgeInsets.bottom() + insets.bottom())),
        Constraint::constraintWithItem(view, Constraint::CenterY, Constraint::Equal, this, Constraint::CenterY),
    };
    const auto limit = [&](Constraint::Attribute attribute, Constraint::Relation relation, double value) {
        constraints.append(Constraint::constraintWithItem(view, attribute, relation, nullptr,
                                                          Constraint::NotAnAttribute, 1, value, g_strong));
    };
    if (item->minSize().width() > 0)
        limit(Constraint::Width, Constraint::GreaterThanOrEqual, item->minSize().width());
    if (item->minSize().height() > 0)
        limit(Constraint::Height, Constraint::GreaterThanOrEqual, item->minSize().height());
    // A maximum pins the control to its minimum: such items have a fixed size. The control must resist compression less
    // than this limit, or its own size would win.
    ZelLayoutPriorities priorities = ZelConstraintLayout::priorities(view);
    if (item->maxSize().width() > 0) {
        limit(Constraint::Width, Constraint::LessThanOrEqual, item->minSize().width());
        priorities.horizontalCompression = qMin(priorities.horizontalCompression, g_strong - 1);
    }
    if (item->maxSize().height() > 0) {
        limit(Constraint::Height, Constraint::LessThanOrEqual, item->minSize().height());
        priorities.verticalCompression = qMin(priorities.verticalCompression, g_strong - 1);
    }
    if (item->maxSize().width() > 0 || item->maxSize().height() > 0)
        ZelConstraintLayout::setPriorities(view, priorities);
    return constraints;
}

void ZelActionBar::drawRect(QPainter &painter, const QRect &dirtyRect)
{
    ZelView::drawRect(painter, dirtyRect);
    if (m_style > 1)
        return;
    QColor color = palette().color(QPalette::WindowText);
    const QRectF area = bounds();
    if (m_style == 1)
        painter.fillRect(area, palette().window());
    color.setAlphaF(0.05F);
    painter.fillRect(area, color);
    color.setAlphaF(0.25F);
    painter.fillRect(QRectF(area.left(), area.top(), area.width(), 1), color);
}
