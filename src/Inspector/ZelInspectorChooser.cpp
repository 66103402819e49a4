// SPDX-License-Identifier: MIT
#include "Inspector/ZelInspectorChooser.h"

#include "Controls/Menus/ZelMenuItem.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Inspector/Properties/private/ZelOptionValue.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Observation/ZelObservations.h"
#include "Views/ZelSwitchContainerView.h"
#include "Views/ZelVerticalStackView.h"

namespace {
const char g_chooserContext = 0;
}

ZelInspectorChooser::ZelInspectorChooser(QObject *owner)
    : ZelInspectorConditionalContainer(owner, Observes::WhileInstalled)
{
}

ZelInspectorChooser::~ZelInspectorChooser()
{
    uninstall();
}

void ZelInspectorChooser::titleDidChange()
{
    if (m_sliver)
        m_sliver->setTitle(title());
}

// Properties

void ZelInspectorChooser::setKeyPath(const QString &keyPath)
{
    if (!ZelAssign(m_keyPath, keyPath))
        return;
    const ZelPlaceScope scope(this);
    configureProperty();
    if (isViewInstalled()) {
        observeKeyPath();
        updateContentView();
    }
    Q_EMIT keyPathChanged();
}

void ZelInspectorChooser::setEnabled(bool enabled)
{
    if (!ZelAssign(m_enabled, enabled))
        return;
    configureProperty();
    Q_EMIT enabledChanged();
}

void ZelInspectorChooser::setEnabledKeyPath(const QString &keyPath)
{
    if (!ZelAssign(m_enabledKeyPath, keyPath))
        return;
    configureProperty();
    Q_EMIT enabledKeyPathChanged();
}

void ZelInspectorChooser::setActionSelector(const ZelSelector &selector)
{
    if (!ZelAssign(m_actionSelector, selector))
        return;
    configureProperty();
    Q_EMIT actionSelectorChanged();
}

void ZelInspectorChooser::setActionName(const QString &name)
{
    if (!ZelAssign(m_actionName, name))
        return;
    configureProperty();
    Q_EMIT actionNameChanged();
}

void ZelInspectorChooser::setChoices(const QList<ZelInspectorChooserChoice *> &choices)
{
    if (m_choices.assign(choices, this))
        Q_EMIT choicesChanged();
}

ZelInspectorTextEnumerationProperty *ZelInspectorChooser::property() const
{
    return m_property;
}

ZelMenuItem *ZelInspectorChooser::separatorMenuItem() const
{
    return m_separatorMenuItem;
}

void ZelInspectorChooser::setSeparatorMenuItem(ZelMenuItem *item)
{
    if (!ZelAssign(m_separatorMenuItem, item))
        return;
    adopt(item);
    Q_EMIT separatorMenuItemChanged();
}

ZelMenuItem *ZelInspectorChooser::multipleValuesMenuItem() const
{
    return m_multipleValuesMenuItem;
}

void ZelInspectorChooser::setMultipleValuesMenuItem(ZelMenuItem *item)
{
    if (!ZelAssign(m_multipleValuesMenuItem, item))
        return;
    adopt(item);
    Q_EMIT multipleValuesMenuItemChanged();
}

void ZelInspectorChooser::adopt(ZelMenuItem *item)
{
    if (item && !item->parent())
        item->setParent(this);
}

QList<QPointer<ZelViewController>> ZelInspectorChooser::childControllers() const
{
    return QList<QPointer<ZelViewController>>{m_sliver.data()} + m_choices.pointers();
}

ZelInspectorSliver *ZelInspectorChooser::sliver() const
{
    return m_sliver;
}

ZelSwitchContainerView *ZelInspectorChooser::containerView() const
{
    return m_containerView;
}

// View

void ZelInspectorChooser::loadView()
{
    auto *stack = new ZelVerticalStackView;
    setView(stack);
    delete m_sliver; // of a former view
    if (owner()) {
        makeSliver();
        stack->addSubview(m_sliver->view());
    }
    m_currentChoice = nullptr;
    m_containerView = new ZelSwitchContainerView(stack);
    m_containerView->setConstraintSelectdView(true);
    const QList<ZelInspectorChooserChoice *> all = choices();
    m_containerView->setChildViewControllers({all.begin(), all.end()});
    m_containerView->setSelectedChildViewControllerIndex(
        quint64(all.size())); // an index behind the last one selects none
    Q_EMIT sliverChanged();
    Q_EMIT propertyChanged();
    Q_EMIT containerViewChanged();
}

void ZelInspectorChooser::showHelp()
{
    if (m_sliver)
        m_sliver->setToolTip(toolTip());
    view()->setWhatsThis(whatsThis());
}

void ZelInspectorChooser::makeSliver()
{
    m_sliver = new ZelInspectorSliver(owner());
    m_sliver->setParent(this);
    m_sliver->setTitle(title());
    m_property = new ZelInspectorTextEnumerationProperty(owner());
    m_property->setOptionGroups({makeOptionGroup()});
    m_sliver->setProperties({m_property});
    configureProperty();
}

ZelOptionGroup *ZelInspectorChooser::makeOptionGroup()
{
    auto *group = new ZelOptionGroup;
    QList<ZelOption *> options;
    for (const ZelInspectorChooserChoice *choice : choices()) {
        auto *option = new ZelOption(group);
        option->image = choice->image();
        option->title = choice->title();
        option->toolTip = choice->toolTip();
        option->whatsThis = choice->whatsThis();
        option->enabled = choice->isEnabled();
        option->hidden = choice->isHidden();
        option->value = choice->value();
        ZelOptionValue::setText(option, choice->text(), choice->place());
        options.append(option);
    }
    group->setOptions(options);
    return group;
}

/// Hands the chooser's properties on to the pop-up's editor.
void ZelInspectorChooser::configureProperty()
{
    if (!m_property)
        return;
    m_property->setKeyPath(m_keyPath);
    m_property->setEnabled(m_enabled);
    m_property->setEnabledKeyPath(m_enabledKeyPath);
    m_property->setActionSelector(m_actionSelector);
    m_property->setActionName(m_actionName);
    if (m_property->isViewInstalled())
        m_property->updateView();
}

void ZelInspectorChooser::viewDidInstall()
{
    ZelInspectorConditionalContainer::viewDidInstall();
    observeKeyPath();
    updateContentView();
}

void ZelInspectorChooser::viewWillUninstall()
{
    ZelInspectorConditionalContainer::viewWillUninstall();
    ZelObservations(this).removeAllObservationsForContext(&g_chooserContext);
}

void ZelInspectorChooser::observeKeyPath()
{
    ZelObservations(this).removeAllObservationsForContext(&g_chooserContext);
    if (m_keyPath.isEmpty() || !owner())
        return;
    ZelObservations(this).addObservationWithObject(
        owner(), m_keyPath, 0,
        [self = QPointer<ZelInspectorChooser>(this)](ZelBlockObservation *, const ZelKeyValueChange &) {
            if (self)
                self->updateContentView();
        },
        &g_chooserContext);
}

// Content

ZelInspectorChooserChoice *ZelInspectorChooser::choiceForValue(const QVariant &value) const
{
    const QMetaType type = ZelOptionValue::typeOf(value);
    for (ZelInspectorChooserChoice *choice : choices()) {
        if (ZelEqual(ZelOptionValue::forType(type, choice->value(), choice->text()), value))
            return choice;
    }
    return nullptr;
}

void ZelInspectorChooser::updateContentView()
{
    if (!m_containerView)
        return;
    const ZelPlaceScope scope(this);
    const QVariant value = m_keyPath.isEmpty() ? QVariant() : ZelValueForKeyPath(owner(), m_keyPath);
    ZelInspectorChooserChoice *choice = choiceForValue(value);
    if (choice == m_currentChoice)
        return;
    if (m_currentChoice)
        m_currentChoice->discardEditing();
    const QList<ZelViewController *> shown = m_containerView->childViewControllers();
    const qsizetype index = shown.indexOf(choice);
    m_containerView->setSelectedChildViewControllerIndex(quint64(index < 0 ? shown.size() : index));
    m_currentChoice = choice;
    Q_EMIT currentChoiceChanged();
}

bool ZelInspectorChooser::commitEditing()
{
    if (!isViewInstalled())
        return true;
    const QPointer<ZelInspectorChooser> alive(this);
    if (m_sliver && !m_sliver->commitEditing())
        return false;
    if (alive && m_currentChoice && !m_currentChoice->commitEditing())
        return false;
    return !alive || ZelViewController::commitEditing();
}

void ZelInspectorChooser::discardEditing()
{
    if (!isViewInstalled())
        return;
    if (m_sliver)
        m_sliver->discardEditing();
    if (m_currentChoice)
        m_currentChoice->discardEditing();
    ZelViewController::discardEditing();
}
