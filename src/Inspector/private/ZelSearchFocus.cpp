// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelSearchFocus.h"

#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/private/ZelSearchIndex.h"
#include "Inspector/private/ZelSearchMarks.h"

#include <QSet>
#include <algorithm>

namespace {

bool takesTab(const QWidget *widget)
{
    return (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && widget->isEnabled() && widget->isVisible();
}

} // namespace

/// What has the focus may be a part that a control makes for the time of typing. Then the control gets it back.
void ZelSearchFocus::note(QWidget *widget)
{
    m_former.clear();
    for (QWidget *around = widget; around; around = around->isWindow() ? nullptr : around->parentWidget()) {
        if (around->focusPolicy() != Qt::NoFocus)
            m_former.emplace_back(around);
    }
}

void ZelSearchFocus::restore() const
{
    const auto focus = std::find_if(m_former.begin(), m_former.end(), [](const auto &widget) {
        return widget && widget->isVisible() && widget->isEnabled();
    });
    if (focus != m_former.end())
        (*focus)->setFocus(Qt::OtherFocusReason);
}

QWidget *ZelSearchFocus::firstFound(QWidget *field, const ZelSearchIndex &index, const ZelSearchMarks &marks)
{
    QSet<const QWidget *> rows;
    for (const ZelSearchIndex::Node &node : index.nodes()) {
        ZelInspectorSliver *row = node.row();
        if (row && row->isViewLoaded() && row->view()->isVisible())
            rows.insert(row->view());
    }
    QWidget *found = nullptr;
    const QWidget *rowOfFound = nullptr;
    for (QWidget *next = field->nextInFocusChain(); next != field; next = next->nextInFocusChain()) {
        const QWidget *around = takesTab(next) ? next : nullptr;
        while (around && !rows.contains(around))
            around = around->isWindow() ? nullptr : around->parentWidget();
        const bool isMarked = around && (!found || around == rowOfFound) && marks.areOf(next);
        if (around && (!found || isMarked)) {
            found = next;
            rowOfFound = around;
        }
        if (isMarked)
            break;
    }
    return found;
}
