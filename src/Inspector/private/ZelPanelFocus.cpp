// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelPanelFocus.h"

#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/ZelInspectorConditionalContainer.h"
#include "Inspector/ZelInspectorPane.h"
#include "ViewController/ZelView.h"

#include <QHash>
#include <QLineEdit>

namespace {

/// A controller of a panel, by its name.
struct Part
{
    ZelViewController *controller;
    QString pane;
    QString name;
    int number;
};

QString nameOf(const ZelViewController *controller)
{
    const auto *editor = qobject_cast<const ZelInspectorProperty *>(controller);
    const auto *container = qobject_cast<const ZelInspectorContainer *>(controller);
    const QString title = container ? container->stateName() : controller->title();
    return QStringLiteral("%1/%2/%3")
        .arg(QString::fromLatin1(controller->metaObject()->className()), editor ? editor->keyPath() : QString(), title);
}

void collect(ZelViewController *controller, const QString &pane, QHash<QString, int> &counts, QList<Part> &parts)
{
    const QString name = nameOf(controller);
    parts.append({controller, pane, name, counts[pane + u'/' + name]++});
    const auto *container = qobject_cast<const ZelInspectorContainer *>(controller);
    if (!container)
        return;
    const QString inner = qobject_cast<const ZelInspectorPane *>(controller) ? container->stateName() : pane;
    for (const QPointer<ZelViewController> &child : container->allChildControllers()) {
        if (child)
            collect(child, inner, counts, parts);
    }
}

/// From the panel down.
QList<Part> partsOf(const ZelInspectorContainer *panel)
{
    QHash<QString, int> counts;
    QList<Part> parts;
    collect(const_cast<ZelInspectorContainer *>(panel), {}, counts, parts);
    return parts;
}

QList<QWidget *> controlsOf(ZelViewController *controller)
{
    QList<QWidget *> controls = controller->view()->findChildren<QWidget *>();
    controls.prepend(controller->view());
    controls.removeIf([](const QWidget *widget) { return widget->focusPolicy() == Qt::NoFocus; });
    return controls;
}

bool contains(const Part &part, const QWidget *widget)
{
    if (!part.controller->isViewLoaded())
        return false;
    const QWidget *view = part.controller->view();
    return view == widget || view->isAncestorOf(widget);
}

/// A row far below in a large panel may have no view yet.
void bringIntoBeing(ZelViewController *controller)
{
    for (QObject *around = controller; around; around = around->parent()) {
        auto *row = qobject_cast<ZelInspectorConditionalContainer *>(around);
        if (row && row->awaitsSight())
            row->view();
    }
}

} // namespace

ZelPanelFocus::ZelPanelFocus(const ZelInspectorContainer *panel)
{
    const QList<Part> parts = partsOf(panel);
    if (!panel->isViewLoaded())
        return;
    const QWidget *window = parts.first().controller->view()->window();
    QWidget *focus = window->focusWidget();
    if (!focus)
        return;
    const auto innermost =
        std::find_if(parts.rbegin(), parts.rend(), [&](const Part &part) { return contains(part, focus); });
    if (innermost == parts.rend())
        return;
    m_pane = innermost->pane;
    m_part = innermost->name;
    m_number = innermost->number;
    m_control = int(controlsOf(innermost->controller).indexOf(focus));
    if (const auto *field = qobject_cast<const QLineEdit *>(focus)) {
        m_caret = field->cursorPosition();
        m_anchor = m_caret;
        if (field->hasSelectedText())
            m_anchor = field->selectionStart() == m_caret ? field->selectionEnd() : field->selectionStart();
    }
}

void ZelPanelFocus::giveTo(const ZelInspectorContainer *panel) const
{
    if (m_control < 0)
        return;
    const Part *found = nullptr;
    const QList<Part> parts = partsOf(panel);
    for (const Part &part : parts) { // the first of that name, unless there is one of that number
        if (part.pane == m_pane && part.name == m_part && (!found || part.number == m_number))
            found = &part;
    }
    if (found)
        bringIntoBeing(found->controller);
    if (!found || !found->controller->isViewInstalled())
        return;
    QWidget *control = controlsOf(found->controller).value(m_control);
    if (!control)
        return;
    control->setFocus(Qt::OtherFocusReason);
    if (auto *field = qobject_cast<QLineEdit *>(control); field && m_caret >= 0)
        field->setSelection(m_anchor, m_caret - m_anchor);
}
