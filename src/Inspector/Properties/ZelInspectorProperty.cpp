// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorProperty.h"

#include "Controls/Fields/ZelComboBox.h"
#include "Controls/Fields/ZelEditSession.h"
#include "Controls/ZelControlSize.h"
#include "Controls/private/ZelRefusalMark.h"
#include "Core/Binding/ZelBinding.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/RunLoop/ZelPassiveEdits.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Undo/private/ZelRecordedWrite.h"
#include "Core/Values/ZelOptionalType.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Description/private/ZelDescriptionCheck.h"
#include "Inspector/Properties/private/ZelEditedTypes.h"
#include "Inspector/Properties/private/ZelEditorDefault.h"
#include "Inspector/Properties/private/ZelFailedEdits.h"
#include "Inspector/Properties/private/ZelKeptValueCheck.h"
#include "Inspector/Properties/private/ZelMissingKeyWatch.h"
#include "Inspector/Properties/private/ZelRareAttributes.h"
#include "Observation/ZelDelayedInvocation.h"
#include "Observation/ZelObservations.h"
#include "ViewController/ZelInstalledContext.h"
#include "ViewController/ZelView.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>

namespace {

/// What the Tab key does in the widget's window. Answers whether there is another control.
bool focusNextControl(QWidget *widget)
{
    struct Opened : QWidget
    {
        using QWidget::focusNextPrevChild;
    };
    return (widget->*&Opened::focusNextPrevChild)(true);
}

} // namespace

ZelInspectorProperty::ZelInspectorProperty(QObject *owner)
    : m_owner(owner)
{
    ZelRequire(owner, "owner");
    ZelFailedEdits::listen();
}

ZelInspectorProperty::~ZelInspectorProperty()
{
    uninstall();
}

/// Sets one of the key paths. Observations and bindings are made when the view is installed, so an installed view is
/// uninstalled and installed again. Answers false if nothing changed or the editor has died.
bool ZelInspectorProperty::setObservedKeyPath(const QString &former, const QString &keyPath,
                                              const std::function<void()> &store)
{
    if (former == keyPath)
        return false;
    if (!isViewInstalled()) {
        store();
        return true;
    }
    const QPointer<ZelInspectorProperty> alive(this);
    endEditing();
    if (!alive)
        return false;
    store();
    if (!isViewInstalled())
        return true;
    const ZelPlaceScope scope(this);
    viewWillUninstall();
    viewDidInstall();
    return !alive.isNull();
}

void ZelInspectorProperty::setReadOnly(bool readOnly)
{
    if (!ZelAssign(m_readOnly, readOnly))
        return;
    if (isViewInstalled())
        updateViewInvocation().schedule();
    Q_EMIT readOnlyChanged();
}

void ZelInspectorProperty::setReturnAdvances(bool advances)
{
    if (!ZelAssign(m_returnAdvances, advances))
        return;
    if (isViewInstalled())
        watchReturn();
    Q_EMIT returnAdvancesChanged();
}

/// A field hands Return on to the views around it once the text is committed; one that refuses the text keeps it.
void ZelInspectorProperty::watchReturn()
{
    if (m_returnAdvances)
        view()->installEventFilter(this);
    else
        view()->removeEventFilter(this);
}

bool ZelInspectorProperty::filterEvent(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !m_returnAdvances || !isViewLoaded() || watched != view())
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (!isReturn || (key->modifiers() & ~Qt::KeypadModifier) || !isFieldFocused())
        return false;
    return focusNextControl(view());
}

bool ZelInspectorProperty::isFieldFocused() const
{
    const QWidget *widget = QApplication::focusWidget();
    if (!widget || !contains(widget))
        return false;
    while (widget && !dynamic_cast<const ZelEditSession *>(widget) && !qobject_cast<const ZelComboBox *>(widget))
        widget = widget->parentWidget();
    return widget && contains(widget);
}

bool ZelInspectorProperty::isWritable() const
{
    if (m_readOnly || isKeyPathTooLong())
        return false;
    const auto domain = ZelPropertyDomain::ofKeyPath(m_owner, m_keyPath);
    return domain.isWritable() && std::ranges::all_of(domain.types(), [&](QMetaType type) { return keepsType(type); });
}

QVariant ZelInspectorProperty::reflectedValue() const
{
    const QVariant value = m_keyPath.isEmpty() ? QVariant() : ZelValueForKeyPath(m_owner.data(), m_keyPath);
    return transformedForward(value);
}

void ZelInspectorProperty::setReflectedValue(const QVariant &value)
{
    if (m_keyPath.isEmpty() || !m_owner)
        return;
    const ZelPlaceScope scope(this);
    const ZelRecordedWrite write(undoManager());
    const QVariant stored = transformedForward(value);
    const QPointer<ZelInspectorProperty> alive(this);
    const bool isDone = writeUnlessRefused([&] {
        if (const ZelNumberChange *change = ZelNumberChange::of(value))
            write.changeNumbers(m_owner, *change, m_keyPath, valueTransformer());
        else
            write.setValueForKeyPath(m_owner, stored, m_keyPath);
    });
    if (!isDone || !alive || !isViewInstalled() || !m_owner || ZelNumberChange::of(value))
        return;
    const QVariant kept = ZelValueForKeyPath(m_owner.data(), m_keyPath);
    if (ZelKeptValueCheck::isKept(stored, kept))
        return;
    if (QWidget *control = controlToMark())
        ZelRefusalMark::showChange(control, textOfValue(stored),
                                   ZelIsControllerMarker(kept) ? QString() : textOfValue(kept));
}

void ZelInspectorProperty::userDidChangeValue(QObject *)
{
    const ZelPlaceScope scope(this);
    if (isViewInstalled())
        updateViewInvocation().schedule(); // if a setter has refused the value, no signal tells so
    if (std::exchange(m_wasRefused, false))
        return;
    if (ZelUndoManager *manager = undoManager())
        manager->nameEdit(actionName());
    if (actionSelector().isNull() || !m_owner)
        return;
    actionSelector().perform(m_owner);
    ZelRereadSilentProperties(); // the action may have changed properties without a signal
}

ZelUndoManager *ZelInspectorProperty::undoManager() const
{
    // A row that was never shown belongs to the window of the containers around it.
    for (const QObject *around = this; around; around = around->parent()) {
        const auto *controller = qobject_cast<const ZelViewController *>(around);
        ZelUndoManager *manager = controller && controller->isViewLoaded()
                                      ? ZelUndoManager::forWidget(const_cast<ZelViewController *>(controller)->view())
                                      : nullptr;
        if (manager)
            return manager;
    }
    return nullptr;
}

QString ZelInspectorProperty::helpForControl(const QWidget *) const
{
    const ZelPlaceScope scope(this);
    const QString reason = presentDisabledReason();
    const QString summary = valueSummaryText();
    return summary.isEmpty() ? reason : reason.isEmpty() ? summary : reason + u'\n' + summary;
}

QString ZelInspectorProperty::presentDisabledReason() const
{
    return disabledReason().isEmpty() || isEffectivelyEnabled() ? QStringLiteral("") : disabledReason();
}

QWidget *ZelInspectorProperty::viewForBaselineAlignment()
{
    return view();
}

QList<QWidget *> ZelInspectorProperty::controlsNamedByRow()
{
    return {viewForBaselineAlignment()};
}

bool ZelInspectorProperty::canTileIntoColumnsWithWidth(double)
{
    return false;
}

bool ZelInspectorProperty::canTileIntoColumnsWithProperty(const ZelInspectorProperty *other) const
{
    return other && other->metaObject() == metaObject();
}

ZelDelayedInvocation &ZelInspectorProperty::updateViewInvocation()
{
    if (!m_updateViewInvocation) {
        m_updateViewInvocation =
            std::make_unique<ZelDelayedInvocation>([property = QPointer<ZelInspectorProperty>(this)] {
                if (property)
                    ZelExceptionReporter::passOn(property.data(), [&] { property->updateView(); });
                if (property && property->m_default)
                    ZelExceptionReporter::passOn(property.data(), [&] { property->updateChangedFromDefault(); });
            });
        m_updateViewInvocation->setOnlyReads(true);
    }
    return *m_updateViewInvocation;
}

void ZelInspectorProperty::cancelUpdateView()
{
    if (m_updateViewInvocation)
        m_updateViewInvocation->cancel();
}

void ZelInspectorProperty::observeForUpdate(const QString &keyPath)
{
    if (keyPath.isEmpty() || !m_owner)
        return;
    ZelObservations(this).addObservationWithObject(
        m_owner, keyPath, 0,
        [property = QPointer<ZelInspectorProperty>(this)](ZelBlockObservation *, const ZelKeyValueChange &) {
            if (property)
                property->updateViewInvocation().schedule();
        },
        &ZelInstalledContext);
}

void ZelInspectorProperty::bindEnabledKeyPathToControl(QWidget *control)
{
    if (!control)
        return;
    control->setEnabled(m_enabled);
    if (enabledKeyPath().isEmpty() || !m_owner)
        return;
    ZelBindingOptions options;
    if (enabledValueTransformer())
        options.insert(ZelValueTransformerBindingOption, QVariant::fromValue(enabledValueTransformer()));
    ZelObservations(this).addBindingWithObject(control, ZelEnabledBinding, m_owner, enabledKeyPath(), options,
                                               &ZelInstalledContext);
}

bool ZelInspectorProperty::isEffectivelyEnabled() const
{
    if (enabledKeyPath().isEmpty())
        return isEnabled();
    QVariant value = ZelValueForKeyPath(owner(), enabledKeyPath());
    if (enabledValueTransformer())
        value = enabledValueTransformer()->transformedValue(value);
    return !ZelIsControllerMarker(value) && value.toBool();
}

void ZelInspectorProperty::bindTitle(QWidget *titled, const QString &binding)
{
    if (titled && m_owner && !titleKeyPath().isEmpty())
        ZelObservations(this).addBindingWithObject(titled, binding, m_owner, titleKeyPath(), {}, &ZelInstalledContext);
}

void ZelInspectorProperty::viewDidInstall()
{
    ZelViewController::viewDidInstall();
    if (isKeyPathTooLong())
        ZelLogWarning(ZelDescriptionCheck::longKeyPathMessage(keyPathByStripingControllerSelectionPrefix(m_keyPath)));
    if (m_returnAdvances)
        watchReturn();
    if (m_default)
        observeDefault();
    if (!m_owner || !keyPathHasControllerSelectionPrefix(m_keyPath)) {
        warnUnlessEdited(m_owner, m_keyPath);
        return;
    }
    QObject *controller =
        ZelObject(ZelValueForKeyPath(m_owner.data(), selectionControllerKeyPathFromKeyPath(m_keyPath)));
    if (const auto *known = qobject_cast<ZelObjectController *>(controller)) {
        m_selectionConnection =
            connect(known, &ZelObjectController::selectionWillChange, this, &ZelInspectorProperty::endEditing);
        watchForKey(known);
    }
}

void ZelInspectorProperty::watchForKey(const ZelObjectController *controller)
{
    const ZelKeyPath path = m_isKeyKnown ? ZelKeyPath() : keyPathByStripingControllerSelectionPrefix(m_keyPath);
    if (path.isEmpty())
        return;
    m_missingKey =
        std::make_unique<ZelMissingKeyWatch>(this, controller, path.first(), [this, path](const QObject *object) {
            warnUnlessEdited(object, path.string());
        });
    m_isKeyKnown = m_missingKey->hasEnded(); // as it nearly always has
    if (m_isKeyKnown)
        m_missingKey.reset();
}

bool ZelInspectorProperty::editsType(QMetaType type) const
{
    return ZelEditedTypes::contains(valueType(), type);
}

/// Values of a type that the editor cannot show would look absent, and nothing that is entered would be taken.
void ZelInspectorProperty::warnUnlessEdited(const QObject *object, const QString &keyPath)
{
    if (!object || keyPath.isEmpty() || valueTransformer() || place().isEmpty() || m_hasWarnedOfType)
        return;
    const auto domain = ZelPropertyDomain::ofKeyPath(object, keyPath);
    for (const QMetaType type : domain.types()) {
        if (type.id() == QMetaType::QVariant || editsType(type))
            continue;
        m_hasWarnedOfType = true;
        ZelLogWarning(QStringLiteral("%1 cannot edit \"%2\", which is of the type %3%4")
                          .arg(QString::fromUtf8(metaObject()->className()), keyPath, QString::fromUtf8(type.name()),
                               ZelOptionalType::isOptional(type)
                                   ? QStringLiteral(" (see ZelOptionalType::registerType)")
                                   : QString()),
                      place());
    }
}

bool ZelInspectorProperty::isKeyPathTooLong() const
{
    return storesSingleKey() && m_keyPath.contains(u'.') &&
           keyPathByStripingControllerSelectionPrefix(m_keyPath).contains(u'.');
}

bool ZelInspectorProperty::contains(const QWidget *control) const
{
    return isViewLoaded() && const_cast<ZelInspectorProperty *>(this)->view()->isAncestorOf(control);
}

/// Commits what is being typed before other objects are selected, since it is meant for the present ones. Nothing is
/// being entered into an editor that does not have the focus.
void ZelInspectorProperty::endEditing()
{
    const QWidget *focus = QApplication::focusWidget();
    if (!focus || !contains(focus))
        return;
    const ZelPlaceScope scope(this);
    const QPointer<ZelInspectorProperty> alive(this);
    const ZelPassiveEdits passive;
    if (!commitEditing() && alive)
        discardEditing();
}

void ZelInspectorProperty::viewWillUninstall()
{
    ZelViewController::viewWillUninstall();
    disconnect(m_selectionConnection);
    m_isKeyKnown = m_isKeyKnown || (m_missingKey && m_missingKey->hasEnded());
    m_missingKey.reset();
    cancelUpdateView();
}

/// The controls have the texts, too, where assistive technology finds them.
void ZelInspectorProperty::showHelp()
{
    const QList<QWidget *> controls = controlsNamedByRow();
    for (QWidget *control : controls) {
        if (control && control->toolTip() == view()->toolTip()) // both have none, or the control's was given by us
            control->setToolTip(toolTip());
        if (control && control->whatsThis() == view()->whatsThis())
            control->setWhatsThis(whatsThis());
    }
    ZelViewController::showHelp();
}

ZelView *ZelInspectorProperty::makeEditorView()
{
    auto *container = new ZelView;
    container->setFont(ZelControlSize::smallFont());
    setView(container);
    return container;
}
