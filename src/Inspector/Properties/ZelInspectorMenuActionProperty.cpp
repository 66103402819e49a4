// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorMenuActionProperty.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Properties/private/ZelEditorLayout.h"
#include "ViewController/ZelView.h"

ZelInspectorMenuActionProperty::ZelInspectorMenuActionProperty(QObject *owner)
    : ZelInspectorProperty(owner)
{
}

void ZelInspectorMenuActionProperty::configure(const ZelInspectorConfiguration &configuration)
{
    ZelInspectorProperty::configure(configuration);
    menuItemsKeyPath = configuration.keyPathValueNamed(u"menuItemsKeyPath");
}

void ZelInspectorMenuActionProperty::loadView()
{
    ZelView *container = makeEditorView();
    m_popUpButton = new ZelPopUpButton(container);
    m_popUpButton->setPullsDown(true);
    m_titleItem = new ZelMenuItem(title(), m_popUpButton);
    m_popUpButton->addAction(m_titleItem);
    ZelEditorLayout::setStretches(m_popUpButton);
    ZelEditorLayout::layOut(container, m_popUpButton, nullptr);
    connect(m_popUpButton, &ZelPopUpButton::action, this, [this] { userDidChangeValue(m_popUpButton); });
}

void ZelInspectorMenuActionProperty::viewDidInstall()
{
    ZelInspectorProperty::viewDidInstall();
    bindEnabledKeyPathToControl(m_popUpButton);
    observeForUpdate(menuItemsKeyPath);
    observeForUpdate(titleKeyPath());
    updateView();
}

void ZelInspectorMenuActionProperty::updateView()
{
    if (!m_popUpButton || !m_titleItem)
        return;
    const QString shown = titleKeyPath().isEmpty() ? title() : ZelValueForKeyPath(owner(), titleKeyPath()).toString();
    m_titleItem->setTitle(shown);
    m_popUpButton->setAccessibleName(shown);
    const QList<QAction *> former = m_popUpButton->actions();
    for (QAction *action : former) {
        if (action != m_titleItem)
            m_popUpButton->removeAction(action);
    }
    const QVariantList items = ZelList(ZelValueForKeyPath(owner(), menuItemsKeyPath));
    for (const QVariant &item : items) {
        if (auto *action = qobject_cast<QAction *>(ZelObject(item)))
            m_popUpButton->addAction(action);
    }
}

QWidget *ZelInspectorMenuActionProperty::viewForBaselineAlignment()
{
    view();
    return m_popUpButton;
}
