// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/ZelInspectorConditionalContainer.h"
#include "ViewController/ZelView.h"
#include "ViewController/private/ZelTabOrder.h"

/// Makes the stack show the views of those children that are visible or were before. A child that is not visible and
/// has no view does not get one; a view that has been made stays in the stack and hides itself. What comes last, if
/// anything, is no child's view.
template<typename Child> void ZelStackLazily(ZelView *stack, const QList<Child *> &children, QWidget *last = nullptr)
{
    QList<QWidget *> views;
    views.reserve(children.size() + 1);
    for (Child *child : children) {
        ZelView *view = child->isViewLoaded() || child->isVisible() ? child->view() : nullptr;
        if (view)
            views.append(view);
    }
    if (last)
        views.append(last);
    if (views == stack->subviews())
        return;
    const ZelTabOrder tabOrder(stack);
    stack->setSubviews(views);
    tabOrder.followSubviews();
}
