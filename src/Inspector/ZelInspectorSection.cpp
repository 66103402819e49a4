// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorSection.h"

#include "Controls/ZelControlSize.h"
#include "Controls/ZelLabel.h"
#include "Inspector/private/ZelRowBlocks.h"
#include "Inspector/private/ZelRowMenu.h"
#include "Layout/ZelConstraintLayout.h"
#include "ViewController/ZelView.h"
#include "ViewController/private/ZelTabOrder.h"
#include "Views/ZelVerticalStackView.h"

#include <algorithm>

ZelInspectorSection::ZelInspectorSection(QObject *owner)
    : ZelInspectorConditionalContainer(owner, Observes::WhileInstalled)
{
    ZelRowMenu::listen();
}

ZelInspectorSection::~ZelInspectorSection()
{
    uninstall();
}

void ZelInspectorSection::setSliversAndChoosers(const QList<ZelInspectorConditionalContainer *> &sliversAndChoosers)
{
    if (!m_sliversAndChoosers.assign(sliversAndChoosers, this))
        return;
    scheduleUpdateView();
    Q_EMIT sliversAndChoosersChanged();
}

void ZelInspectorSection::titleDidChange()
{
    scheduleUpdateView();
}

void ZelInspectorSection::scheduleUpdateView()
{
    if (!isViewLoaded())
        return;
    if (!m_updateViewInvocation)
        m_updateViewInvocation = std::make_unique<ZelDelayedInvocation>([self = QPointer<ZelInspectorSection>(this)] {
            const ZelPlaceScope scope(self);
            if (self)
                self->updateView();
        });
    m_updateViewInvocation->schedule();
}

ZelVerticalStackView *ZelInspectorSection::labelContainerView() const
{
    return m_labelContainerView;
}

ZelLabel *ZelInspectorSection::label() const
{
    return m_label;
}

void ZelInspectorSection::prepareForReuse()
{
    if (isViewLoaded() || !isWorthDividing())
        ZelInspectorConditionalContainer::prepareForReuse();
}

bool ZelInspectorSection::commitEditing()
{
    return (!isViewLoaded() && isWorthDividing()) || ZelInspectorConditionalContainer::commitEditing();
}

void ZelInspectorSection::loadView()
{
    auto *stack = new ZelVerticalStackView;
    stack->setEdgeInsets({0, 2, 0, 2});
    setView(stack);
    updateView();
}

void ZelInspectorSection::viewWillUnload()
{
    ZelInspectorConditionalContainer::viewWillUnload();
    view()->setSubviews({}); // the views in it belong to their controllers
    if (m_blocks)
        m_blocks->release();
    removeHeading();
}

void ZelInspectorSection::updateView()
{
    if (!isViewLoaded())
        return;
    updateHeading();
    QList<QWidget *> subviews;
    if (m_labelContainerView)
        subviews.append(m_labelContainerView);
    subviews += viewsOfRows();
    const ZelTabOrder tabOrder(view());
    view()->setSubviews(subviews);
    if (isViewInstalled())
        tabOrder.followSubviews();
}

QList<QWidget *> ZelInspectorSection::viewsOfRows()
{
    const QList<ZelInspectorConditionalContainer *> rows = sliversAndChoosers();
    if (!m_blocks && isWorthDividing())
        m_blocks = std::make_unique<ZelRowBlocks>();
    if (m_blocks)
        return m_blocks->arrange({rows.begin(), rows.end()});
    QList<QWidget *> views;
    for (ZelInspectorConditionalContainer *row : rows) {
        if (QWidget *rowView = row->view())
            views.append(rowView);
    }
    return views;
}

bool ZelInspectorSection::isAnyRowLoaded() const
{
    const QList<ZelInspectorConditionalContainer *> rows = sliversAndChoosers();
    return std::any_of(rows.begin(), rows.end(), [](const auto *row) { return row->isViewLoaded(); });
}

bool ZelInspectorSection::isWorthDividing() const
{
    return !isAnyRowLoaded() && ZelRowBlocks::isWorthwhile(this);
}

void ZelInspectorSection::updateHeading()
{
    if (title().isEmpty())
        return removeHeading();
    if (!m_labelContainerView)
        makeHeading();
    if (m_label)
        m_label->setText(title());
}

void ZelInspectorSection::showHelp()
{
    if (m_labelContainerView)
        m_labelContainerView->setToolTip(toolTip());
    view()->setWhatsThis(whatsThis());
}

void ZelInspectorSection::makeHeading()
{
    m_labelContainerView = new ZelVerticalStackView;
    m_labelContainerView->setToolTip(toolTip());
    m_labelContainerView->setEdgeInsets({15, 2, 15, 2});
    m_label = new ZelLabel(m_labelContainerView);
    m_label->setFont(ZelControlSize::smallBoldFont());
    m_label->setTextColor(QColor::fromRgbF(0.25f, 0.25f, 0.25f));
    ZelLayoutPriorities priorities; // a long title is cut off rather than widening the inspector
    priorities.horizontalHugging = 1;
    priorities.horizontalCompression = 1;
    ZelConstraintLayout::setPriorities(m_label, priorities);
    Q_EMIT labelContainerViewChanged();
    Q_EMIT labelChanged();
}

void ZelInspectorSection::removeHeading()
{
    if (!m_labelContainerView)
        return;
    delete m_labelContainerView;
    Q_EMIT labelContainerViewChanged();
    Q_EMIT labelChanged();
}
