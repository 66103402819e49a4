// SPDX-License-Identifier: MIT
#include "ExpandableViews/ZelExpandableView.h"

#include "Core/Values/private/ZelAssign.h"
#include "ExpandableViews/ZelExpandableHeader.h"
#include "ExpandableViews/private/ZelExpandableHeaderAccessible.h"
#include "Layout/ZelConstraintLayout.h"

namespace {

using Constraint = ZelLayoutConstraint;

Constraint::Ptr tie(QWidget *item, Constraint::Attribute attribute, QWidget *to, Constraint::Attribute toAttribute)
{
    return Constraint::constraintWithItem(item, attribute, Constraint::Equal, to, toAttribute);
}

} // namespace

ZelExpandableView::ZelExpandableView(QWidget *parent)
    : ZelView(parent)
    , m_header(new ZelExpandableHeader(this))
{
    setUp();
}

ZelExpandableView::ZelExpandableView(const ZelKeyedCoder &coder, QWidget *parent)
    : ZelView(coder, parent)
    , m_header(new ZelExpandableHeader(this))
{
    setUp();
}

void ZelExpandableView::setUp()
{
    m_header->setChecked(true);
    // The body gets the spare height, and a long title is elided before it widens the view.
    ZelConstraintLayout::setPriorities(m_header, {250, 999, 1, 1000});
    connect(m_header, &QAbstractButton::toggled, this, &ZelExpandableView::setExpanded);
    connect(m_header, &ZelExpandableHeader::toggledForAll, this, &ZelExpandableView::expandedForAll);
}

bool ZelExpandableView::drawsContent() const
{
    return typeid(*this) != typeid(ZelExpandableView);
}

QString ZelExpandableView::title() const
{
    return m_header->title();
}

void ZelExpandableView::setTitle(const QString &title)
{
    if (m_header->title() == title)
        return;
    m_header->setTitle(title);
    Q_EMIT titleChanged();
}

quint32 ZelExpandableView::style() const
{
    return m_header->style();
}

void ZelExpandableView::setStyle(quint32 style)
{
    if (m_header->style() == style)
        return;
    m_header->setStyle(style);
    Q_EMIT styleChanged();
}

void ZelExpandableView::setExpanded(bool expanded)
{
    if (!ZelAssign(m_expanded, expanded))
        return;
    m_header->setChecked(expanded);
    if (m_bodyView)
        m_bodyView->setVisible(expanded);
    setNeedsUpdateConstraints();
    updateConstraintsIfNeeded();
    ZelExpandableHeaderAccessible::stateDidChange(m_header);
    Q_EMIT expandedChanged();
}

void ZelExpandableView::setBodyView(QWidget *view)
{
    if (m_bodyView == view)
        return;
    if (m_bodyView && m_bodyView->parentWidget() == this)
        removeFromSuperview(m_bodyView);
    m_bodyView = view;
    if (view) {
        if (!m_expanded)
            view->hide();
        addSubview(view);
    }
    setNeedsUpdateConstraints();
}

void ZelExpandableView::willRemoveSubview(QWidget *subview)
{
    ZelView::willRemoveSubview(subview);
    if (subview == m_bodyView)
        m_bodyView = nullptr;
    setNeedsUpdateConstraints();
}

void ZelExpandableView::updateConstraints()
{
    ZelView::updateConstraints();
    removeConstraints(std::exchange(m_viewConstraints, {}));
    m_viewConstraints = {tie(m_header, Constraint::Left, this, Constraint::Left),
                         tie(m_header, Constraint::Right, this, Constraint::Right),
                         tie(m_header, Constraint::Top, this, Constraint::Top)};
    const bool showsBody = m_bodyView && m_expanded;
    if (showsBody)
        m_viewConstraints += {tie(m_bodyView, Constraint::Left, this, Constraint::Left),
                              tie(m_bodyView, Constraint::Right, this, Constraint::Right),
                              tie(m_bodyView, Constraint::Top, m_header, Constraint::Bottom)};
    m_viewConstraints += tie(showsBody ? m_bodyView.data() : m_header, Constraint::Bottom, this, Constraint::Bottom);
    addConstraints(m_viewConstraints);
}
