// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelEditorLayout.h"

#include "Platform/Controls/ZelLabel.h"
#include "Platform/Layout/ZelConstraintLayout.h"
#include "ViewController/ZelView.h"

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

void ZelEditorLayout::layOutVertically(ZelView *container, QWidget *control, ZelLabel *label, const Gaps &gaps)
{
    const QHash<QString, double> metrics{{QStringLiteral("top"), gaps.top},
                                         {QStringLiteral("gap"), gaps.titleGap},
                                         {QStringLiteral("bottom"), gaps.bottom}};
    if (!label) {
        container->addConstraintsWithVisualFormat(QStringLiteral("V:|-top-[control]-bottom-|"),
                                                  {{QStringLiteral("control"), control}}, metrics);
        return;
    }
    container->addConstraintsWithVisualFormat(QStringLiteral("V:|-top-[control]-gap-[label]-bottom-|"),
                                              {{QStringLiteral("control"), control}, {QStringLiteral("label"), label}},
                                              metrics);
    for (const auto edge : {ZelLayoutConstraint::Left, ZelLayoutConstraint::Right})
        container->addConstraint(
            ZelLayoutConstraint::constraintWithItem(control, edge, ZelLayoutConstraint::Equal, label, edge));
}

void ZelEditorLayout::layOut(ZelView *container, QWidget *control, ZelLabel *label, const Gaps &gaps)
{
    container->addConstraintsWithVisualFormat(QStringLiteral("H:|-side-[control]-side-|"),
                                              {{QStringLiteral("control"), control}},
                                              {{QStringLiteral("side"), gaps.side}});
    layOutVertically(container, control, label, gaps);
}
