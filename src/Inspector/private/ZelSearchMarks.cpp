// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelSearchMarks.h"

#include "Controls/ZelCheckBox.h"
#include "Controls/ZelLabel.h"
#include "ExpandableViews/ZelExpandableHeader.h"
#include "ExpandableViews/ZelExpandableView.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/ZelInspectorSection.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/private/ZelFoldedText.h"
#include "ViewController/ZelView.h"

#include <QSet>
#include <algorithm>

namespace {

/// Calls back with the widget and its title if it is of a kind that shows marks in it.
template<typename Visit> void visitTitle(QWidget *widget, Visit &&visit)
{
    if (auto *label = qobject_cast<ZelLabel *>(widget))
        visit(label, label->text());
    else if (auto *box = qobject_cast<ZelCheckBox *>(widget))
        visit(box, box->title());
    else if (auto *header = qobject_cast<ZelExpandableHeader *>(widget))
        visit(header, header->title());
}

/// The innermost editor around the widget; null around what belongs to a row.
const ZelInspectorProperty *editorOf(const QWidget *widget)
{
    for (; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        const auto *view = qobject_cast<const ZelView *>(widget);
        const auto *editor = view ? qobject_cast<const ZelInspectorProperty *>(view->viewController()) : nullptr;
        if (editor)
            return editor;
    }
    return nullptr;
}

} // namespace

QList<QWidget *> ZelSearchMarks::titledOf(const ZelSearchIndex::Node &node)
{
    if (!node.container || !node.container->isViewLoaded())
        return {};
    if (node.kind == ZelSearchIndex::Kind::Section)
        return {static_cast<ZelInspectorSection *>(node.container.data())->label()};
    if (node.kind == ZelSearchIndex::Kind::Inspector) {
        const auto *box = qobject_cast<ZelExpandableView *>(node.container->view());
        return {box ? box->header() : nullptr};
    }
    ZelInspectorSliver *row = node.row();
    return row && row->isViewLoaded() ? row->view()->findChildren<QWidget *>() : QList<QWidget *>();
}

bool ZelSearchMarks::areOf(const QWidget *control) const
{
    const ZelInspectorProperty *editor = editorOf(control);
    return std::any_of(m_marked.begin(), m_marked.end(), [&](const QPointer<QWidget> &titled) {
        return titled == control || (editor && qobject_cast<const ZelLabel *>(titled) && editorOf(titled) == editor);
    });
}

void ZelSearchMarks::mark(const std::vector<QPointer<QWidget>> &titled, const QStringList &words)
{
    const std::vector<QPointer<QWidget>> former = std::exchange(m_marked, {});
    QSet<const QWidget *> present;
    for (const QPointer<QWidget> &widget : titled) {
        visitTitle(widget, [&](auto *shown, const QString &title) {
            const QList<ZelLabel::Part> parts = ZelFoldedText::partsOf(title, words);
            if (parts.isEmpty())
                return;
            shown->setMarkedParts(parts);
            present.insert(shown);
            m_marked.emplace_back(shown);
        });
    }
    for (const QPointer<QWidget> &widget : former) {
        if (widget && !present.contains(widget))
            visitTitle(widget, [](auto *shown, const QString &) { shown->setMarkedParts({}); });
    }
}
