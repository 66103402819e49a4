// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorChooserChoice.h"

#include "Core/Values/private/ZelAssign.h"
#include "ViewController/ZelView.h"
#include "Views/ZelVerticalStackView.h"

ZelInspectorChooserChoice::ZelInspectorChooserChoice(QObject *owner)
    : ZelInspectorContainer(owner)
{
}

void ZelInspectorChooserChoice::setHidden(bool hidden)
{
    if (ZelAssign(m_hidden, hidden))
        Q_EMIT hiddenChanged();
}

void ZelInspectorChooserChoice::setEnabled(bool enabled)
{
    if (ZelAssign(m_enabled, enabled))
        Q_EMIT enabledChanged();
}

void ZelInspectorChooserChoice::setImage(const QIcon &image)
{
    m_image = image;
    Q_EMIT imageChanged();
}

void ZelInspectorChooserChoice::setValue(const QVariant &value)
{
    m_value.keep(value);
    Q_EMIT valueChanged();
}

void ZelInspectorChooserChoice::setText(const QString &text)
{
    m_text = text;
    Q_EMIT textChanged();
}

void ZelInspectorChooserChoice::setSliversAndChoosers(
    const QList<ZelInspectorConditionalContainer *> &sliversAndChoosers)
{
    if (m_sliversAndChoosers.assign(sliversAndChoosers, this))
        Q_EMIT sliversAndChoosersChanged();
}

void ZelInspectorChooserChoice::showHelp()
{
    view()->setWhatsThis(whatsThis());
}

void ZelInspectorChooserChoice::loadView()
{
    auto *stack = new ZelVerticalStackView;
    setView(stack);
    QList<QWidget *> subviews;
    for (ZelInspectorConditionalContainer *child : sliversAndChoosers()) {
        if (QWidget *childView = child->view())
            subviews.append(childView);
    }
    stack->setSubviews(subviews);
}
