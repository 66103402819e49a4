// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelEditorLayout.h"

#include "Controls/ZelLabel.h"
#include "Layout/ZelConstraintLayout.h"
#include "ViewController/ZelView.h"

namespace {

using Constraint = ZelLayoutConstraint;

Constraint::Ptr tie(QWidget *first, Constraint::Attribute attribute, QWidget *second,
                    Constraint::Attribute secondAttribute, double constant = 0)
{
    return Constraint::constraintWithItem(first, attribute, Constraint::Equal, second, secondAttribute, 1, constant);
}

} // namespace

ZelLabel *ZelEditorLayout::addTitleLabel(ZelView *container, const QString &title)
{
    if (title.isEmpty())
        return nullptr;
    auto *label = new ZelLabel(title, container);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    label->setTextColor(QColor::fromRgbF(0.2f, 0.2f, 0.2f));
    setStretches(label, 1);
    return label;
}

void ZelEditorLayout::setStretches(QWidget *control, float compression)
{
    ZelLayoutPriorities priorities;
    priorities.horizontalHugging = 1;
    priorities.horizontalCompression = compression;
    ZelConstraintLayout::setPriorities(control, priorities);
}

void ZelEditorLayout::setName(QWidget *control, const QString &title)
{
    if (!title.isEmpty())
        control->setAccessibleName(title);
}

void ZelEditorLayout::layOutVertically(ZelView *container, QWidget *control, ZelLabel *label, const Gaps &gaps)
{
    if (!label) {
        container->addConstraints({tie(control, Constraint::Top, container, Constraint::Top, gaps.top),
                                   tie(control, Constraint::Bottom, container, Constraint::Bottom, -gaps.bottom)});
        return;
    }
    container->addConstraints({tie(control, Constraint::Top, container, Constraint::Top, gaps.top),
                               tie(label, Constraint::Top, control, Constraint::Bottom, gaps.titleGap),
                               tie(label, Constraint::Bottom, container, Constraint::Bottom, -gaps.bottom),
                               tie(control, Constraint::Left, label, Constraint::Left),
                               tie(control, Constraint::Right, label, Constraint::Right)});
}

void ZelEditorLayout::layOut(ZelView *container, QWidget *control, ZelLabel *label, const Gaps &gaps)
{
    container->addConstraints({tie(control, Constraint::Leading, container, Constraint::Leading, gaps.side),
                               tie(control, Constraint::Trailing, container, Constraint::Trailing, -gaps.side)});
    layOutVertically(container, control, label, gaps);
}
