// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeyPath.h"
#include "Core/KeyValue/ZelSelector.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Core/Values/ZelAbstractValueTransformer.h"
#include "Core/ZelExport.h"
#include "Observation/ZelDelayedInvocation.h"
#include "ViewController/ZelViewController.h"

#include <functional>
#include <memory>
#include <optional>

class ZelEditorDefault;
class ZelInspectorConfiguration;
class ZelMissingKeyWatch;
class ZelObjectController;
class ZelUndoManager;
class ZelNumberChange;
class ZelValueSummary;

/// The base of every property editor: shows one value of what an inspector edits and writes changes of it back.
///
/// An editor knows its owner, held weakly, and evaluates all its key paths against it. A key path that runs through a
/// selection controller consists of the controller's key path, ".selection." and the key path below each selected
/// object; the controller then answers for all of them. Between viewDidInstall and viewWillUninstall the editor follows
/// the model: a change schedules updateView, which runs once however many changes there were.
class ZEL_EXPORT ZelInspectorProperty : public ZelViewController
{
    Q_OBJECT
    Q_PROPERTY(QObject *owner READ owner CONSTANT)
    Q_PROPERTY(QString titleKeyPath READ titleKeyPath WRITE setTitleKeyPath NOTIFY titleKeyPathChanged)
    Q_PROPERTY(QString keyPath READ keyPath WRITE setKeyPath NOTIFY keyPathChanged)
    Q_PROPERTY(ZelValueTransformerPtr valueTransformer READ valueTransformer WRITE setValueTransformer)
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QString enabledKeyPath READ enabledKeyPath WRITE setEnabledKeyPath NOTIFY enabledKeyPathChanged)
    Q_PROPERTY(
        ZelValueTransformerPtr enabledValueTransformer READ enabledValueTransformer WRITE setEnabledValueTransformer)
    Q_PROPERTY(ZelSelector actionSelector READ actionSelector WRITE setActionSelector NOTIFY actionSelectorChanged)
    Q_PROPERTY(QString actionName READ actionName WRITE setActionName NOTIFY actionNameChanged)
    Q_PROPERTY(QVariant defaultValue READ defaultValue WRITE setDefaultValue)
    Q_PROPERTY(QString defaultValueKeyPath READ defaultValueKeyPath WRITE setDefaultValueKeyPath)
    Q_PROPERTY(bool changedFromDefault READ isChangedFromDefault NOTIFY changedFromDefaultChanged)
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly NOTIFY readOnlyChanged)
    /// False by default.
    Q_PROPERTY(bool returnAdvances READ returnAdvances WRITE setReturnAdvances NOTIFY returnAdvancesChanged)
    Q_PROPERTY(QWidget *viewForBaselineAlignment READ viewForBaselineAlignment STORED false)
    Q_PROPERTY(double baselineOffsetFromView READ baselineOffsetFromView STORED false)
    Q_PROPERTY(bool updatingValues READ isUpdatingValues STORED false)
    Q_PROPERTY(ZelDelayedInvocation *updateViewInvocation READ updateViewInvocationPointer CONSTANT)
public:
    /// The owner is required: a missing one is an assertion.
    explicit ZelInspectorProperty(QObject *owner);
    ~ZelInspectorProperty() override;

    QObject *owner() const { return m_owner; }

    /// Reads the attributes of the element that the editor is made from, before its view is loaded: here those that all
    /// editors have. Overrides call the base first, and read their own.
    virtual void configure(const ZelInspectorConfiguration &configuration);

    // Key paths may be changed at any time; what was typed until then is written at the former one.
    /// The key path of a title that may change. Without one, the title itself is shown.
    const QString &titleKeyPath() const;
    void setTitleKeyPath(const QString &keyPath);
    /// The key path of the edited value.
    const QString &keyPath() const { return m_keyPath; }
    void setKeyPath(const QString &keyPath);
    /// Applied between the value in the model and the value shown. Must let selection markers pass.
    const ZelValueTransformerPtr &valueTransformer() const;
    void setValueTransformer(const ZelValueTransformerPtr &transformer);
    /// True by default. Taken over by the controls when the view is installed.
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    /// The key path of a value that enables the controls, through the transformer where there is one.
    const QString &enabledKeyPath() const;
    void setEnabledKeyPath(const QString &keyPath);
    const ZelValueTransformerPtr &enabledValueTransformer() const;
    void setEnabledValueTransformer(const ZelValueTransformerPtr &transformer);
    /// Why the controls cannot be used while they are disabled, for people; empty by default.
    const QString &disabledReason() const;
    void setDisabledReason(const QString &reason);
    /// Sent to the owner after every change by the user.
    const ZelSelector &actionSelector() const;
    void setActionSelector(const ZelSelector &selector);
    /// Names the undo step of every change by the user.
    const QString &actionName() const;
    void setActionName(const QString &name);

    /// Whether users may only look, even if the value could be written; false by default. An editor sets it for the
    /// editors inside of it.
    bool isReadOnly() const { return m_readOnly; }
    void setReadOnly(bool readOnly);
    /// Whether users may change the value. They may not if the editor is read-only, or if the property is read-only in
    /// the class of any selected object. Editors show such a value without a means to change it.
    bool isWritable() const;

    /// Whether Return, after it has committed what was typed into a field, goes on to the next control as Tab does.
    bool returnAdvances() const { return m_returnAdvances; }
    void setReturnAdvances(bool advances);

    // The default
    /// What the value is reset to: a value of the model, before the transformer. A text is read as a value of the type
    /// that the model holds. To be set before the editor is put into a row and its view is installed, like the key
    /// path. Absent by default.
    QVariant defaultValue() const;
    void setDefaultValue(const QVariant &value);
    /// The key path of that value, read whenever it is needed. If it runs through a selection, each selected object is
    /// reset to its own.
    QString defaultValueKeyPath() const;
    void setDefaultValueKeyPath(const QString &keyPath);
    bool hasDefaultValue() const { return bool(m_default); }
    /// Whether any of the edited objects has another value than its default. Known, and kept up to date with the view,
    /// where there is a default value; otherwise false.
    bool isChangedFromDefault() const;
    /// Whether users may reset the value: they may change it, and there is a default value, or an object whose
    /// Q_PROPERTY has a RESET function.
    bool canReset() const;
    /// Gives each object its default, as an edit that can be undone, and drops what is being typed. Without a default
    /// value, the RESET functions are called. Does nothing if users may not reset.
    void resetValue();

    // Copy and paste
    /// The value in the model, not transformed, and reduced to the bits that are edited; a selection marker if the
    /// objects disagree.
    QVariant modelValue() const;
    /// The model's value as people read it in the editor.
    virtual QString textOfValue(const QVariant &modelValue) const;
    /// Reads the value that a text means to people. Answers false, with a reason for people, if it means none.
    virtual bool readText(const QString &text, QVariant *modelValue, QString *error) const;
    /// Gives the value to every object, as an edit that can be undone, and drops what is being typed. Answers why users
    /// may not do that, as a text for people; null if it was done.
    QString pasteValue(const QVariant &modelValue);

    /// By what else than its title and key users may look for the editor: the titles and keys of its parts, and its
    /// options. Answered without the view. Empty by default.
    virtual QStringList searchTexts() const { return {}; }

    ZelView *mainView() { return view(); }

    // Access to the value
    /// The value at the key path, transformed; absent without a key path or owner.
    QVariant reflectedValue() const;
    /// Writes the value at the key path, transformed forward, and records it for undo. An editor whose transformer is
    /// not its own inverse uses updateReflectedValues.
    ///
    /// If a model refuses the value (see validate methods in the documentation of models), nothing is written; if it
    /// keeps another one, it is written. In both cases the control shows so.
    void setReflectedValue(const QVariant &value);
    /// Names the undo step and sends the action, and shows what the model made of the value. Editors call it after they
    /// have written what the user changed.
    virtual void userDidChangeValue(QObject *sender);

    // Key paths through a selection controller, split at the last ".selection."
    static bool keyPathHasControllerSelectionPrefix(const QString &keyPath);
    static QString selectionControllerKeyPathFromKeyPath(const QString &keyPath);
    static QString keyPathByStripingControllerSelectionPrefix(const QString &keyPath);
    /// The selected objects of the controller in the key path; a key path without a controller is an assertion.
    QList<QObject *> representedObjectsForControllerSelectionKeyPath(const QString &keyPath) const;

    // Reduction of a selection's values, and writing to each object
    using ValueBlock = std::function<QVariant(const QVariant &)>;
    /// Folds one more value into a running result that starts as ZelNoSelectionMarker.
    static QVariant combinedValueWithValue(const QVariant &value, const QVariant &previousValue);
    /// The value as an unsigned integer, its fraction cut off; negative numbers wrap.
    static quint64 unsignedValue(const QVariant &value);
    /// The bits of the value inside the mask; absent for no value, markers as they are.
    static QVariant valueForValueBitMask(const QVariant &value, quint64 bitMask);
    /// 1 where any of the bits is set in the value, else 0; absent for no value, markers as they are.
    static QVariant valueForValueBits(const QVariant &value, quint64 bits);
    /// Writes the block's answer for each object's own value into that object; equal answers are not written. The key
    /// below the selection must be a single one.
    void updateReflectedValues(const ValueBlock &block);
    /// Each represented object's transformed value mapped by the block, folded into one; without a selection in the key
    /// path, the reflected value is the only one.
    QVariant combinedReflectedValue(const ValueBlock &map) const;

    // What the selected objects have
    /// How people are told a value: in one line, as the editor shows it. The base answers the beginning of its text.
    virtual QString textForValue(const QVariant &value) const;
    /// The different values that the editor reflects: made anew by each call, in one pass over the selected objects.
    /// Empty if the editor does not edit a selection.
    virtual ZelValueSummary valueSummary() const;
    /// Tells the different values: how many there are, the most frequent ones with their counts, and the range of
    /// numbers. Empty unless the selected objects have several values.
    QString valueSummaryText() const;
    /// All that an editor adds to the tool tips and descriptions of its controls: valueSummaryText() and, while they
    /// are disabled, the reason. Overrides may add to it, but never answer a null text.
    QString helpForControl(const QWidget *control) const override;

    // What a row asks of its editors
    virtual QWidget *viewForBaselineAlignment();
    /// The controls that bear the row's title as accessible name where the editor has none of its own; null ones are
    /// passed over.
    virtual QList<QWidget *> controlsNamedByRow();
    /// A further vertical offset for that alignment, in points.
    virtual double baselineOffsetFromView() const { return 0; }
    /// Whether two such editors fit side by side into a row of that width, in points.
    virtual bool canTileIntoColumnsWithWidth(double width);
    /// Whether the editor may share a row with the other one. By default, editors of the very same class may.
    virtual bool canTileIntoColumnsWithProperty(const ZelInspectorProperty *other) const;

    /// Whether the editor is writing at this moment and therefore shows no changes of the model.
    bool isUpdatingValues() const { return m_updatingValues; }
    /// Shows the model's present state.
    virtual void updateView() {}

    void viewDidInstall() override;
    void viewWillUninstall() override;

Q_SIGNALS:
    void titleKeyPathChanged();
    void keyPathChanged();
    void enabledChanged();
    void enabledKeyPathChanged();
    void actionSelectorChanged();
    void actionNameChanged();
    void readOnlyChanged();
    void returnAdvancesChanged();
    void changedFromDefaultChanged();

protected:
    /// Marks the editor's own writes. Editors that use it do nothing in updateView meanwhile.
    class UpdatingValues : private ZelMemberScope<bool>
    {
    public:
        explicit UpdatingValues(ZelInspectorProperty *property)
            : ZelMemberScope(property, property->m_updatingValues, true)
        {
        }
    };

    /// The summary for an editor inside this one that edits a property of this editor. Empty by default.
    virtual ZelValueSummary valueSummaryOfPart(const QString &key) const;
    /// Whether the least and the greatest value are told, too.
    virtual bool tellsRange() const { return false; }
    /// The selected objects at the end of the key path, and the key path below them.
    QList<QPointer<QObject>> selectedObjects() const;
    ZelKeyPath selectedKeyPath() const { return keyPathByStripingControllerSelectionPrefix(m_keyPath); }
    /// The first line of a text, shortened if it is long.
    static QString oneLine(const QString &text);

    /// Why the model's property would not take the value, as a text for people; null where it would.
    QString refusalOf(const QVariant &modelValue) const;
    /// The same for a value as it is shown by a control that is bound with the transformer.
    QString refusalOfShown(const QVariant &value) const;
    /// Why the models would not take what the block makes of each one's value; null where they would.
    QString refusalOfValues(const ValueBlock &block) const;
    /// Why the models would not take the value for a key of this editor, which is edited by an editor inside it; null
    /// where they would.
    virtual QString refusalOfPart(const QString &, const QVariant &) const { return {}; }
    /// Shows, after updateReflectedValues, if a model did not keep its new value. The block must make nothing else of
    /// a value that it has made.
    void flashUnlessKept(const ValueBlock &block);
    /// Why the change cannot be made, and for how many objects; null if all take their new numbers.
    QString refusalOfChange(const ZelNumberChange &change) const;
    /// Why a number that was made of an object's own one, and is shown like this, is not wanted here, though the model
    /// could hold it; null by default.
    virtual QString refusalOfResult(double) const { return {}; }

    /// Why a value that was not entered in the control must not be given to the model; null if nothing is against it.
    virtual QString refusalOfPasted(const QVariant &modelValue) const { return refusalOf(modelValue); }
    // The value as the control shows it, and back. Absent and null values pass.
    QVariant transformedForward(const QVariant &modelValue) const;
    QVariant transformedBack(const QVariant &shownValue) const;
    /// The type of the values that the editor is made for. It is asked where the model does not tell the type; invalid
    /// by default.
    virtual QMetaType valueType() const { return {}; }
    /// Whether the editor shows and changes values of that type of property. By default, whether they can be converted
    /// to valueType() and back.
    virtual bool editsType(QMetaType type) const;
    /// The bits that the editor edits of a number; absent if it edits the whole value.
    virtual std::optional<quint64> editedBits() const { return std::nullopt; }

    /// Whether all that the editor makes of a value of that type is one, too; true by default. What is not is only
    /// shown.
    virtual bool keepsType(QMetaType) const { return true; }
    /// Whether the editor writes with updateReflectedValues, for which the key below the selection must be a single
    /// one. A longer one is a warning when the view is installed, and the value is only shown.
    virtual bool storesSingleKey() const { return false; }
    /// Whether the control belongs to the editor, wherever it is shown. By default, the controls in the view do.
    virtual bool contains(const QWidget *control) const;

    /// The coalesced call of updateView, made when it is first scheduled.
    ZelDelayedInvocation &updateViewInvocation();
    void cancelUpdateView();
    void showHelp() override;
    // These are for viewDidInstall; what they begin ends when the view is uninstalled.
    /// Schedules updateView at every change of the owner's value at the key path; nothing for an empty one.
    void observeForUpdate(const QString &keyPath);
    /// The control's enabled state is `enabled`, or follows enabledKeyPath.
    void bindEnabledKeyPathToControl(QWidget *control);
    /// The enabled state that `enabled` and enabledKeyPath give the controls; a selection marker counts as false.
    bool isEffectivelyEnabled() const;
    /// The disabledReason() while it holds; otherwise empty, and not null.
    QString presentDisabledReason() const;
    /// Binds the title (of a label, or of a checkbox) to titleKeyPath, if there is one.
    void bindTitle(QWidget *titled, const QString &binding);
    /// Where edits are recorded: the undo manager of the window in which the view is; null if there is none.
    virtual ZelUndoManager *undoManager() const;
    /// A view for the editor's controls, already the controller's, with the small control font.
    ZelView *makeEditorView();
    bool filterEvent(QObject *watched, QEvent *event) override;

private:
    struct Rare; // attributes that few elements have
    ZelDelayedInvocation *updateViewInvocationPointer() { return &updateViewInvocation(); }
    bool writeUnlessRefused(const std::function<void()> &write);
    QWidget *controlToMark();
    void showRefusal(const QString &reason);
    void endEditing();
    void watchReturn();
    bool isFieldFocused() const;
    const Rare &rare() const;
    Rare &rare();
    template<typename Value> bool setRare(Value Rare::*member, const Value &value);
    bool setObservedKeyPath(const QString &former, const QString &keyPath, const std::function<void()> &store);
    bool isKeyPathTooLong() const;
    ZelEditorDefault &editorDefault();
    void observeDefault();
    void updateChangedFromDefault();
    bool isEditable() const;
    QList<QObject *> editedObjects() const;
    QMetaType typeOfValue(const QVariant &modelValue) const;
    std::optional<QVariant> defaultOf(const QObject *object, const QVariant &modelValue) const;
    bool computeChangedFromDefault() const;
    QVariant withEditedBits(const QVariant &value, const QVariant &stored) const;
    void writeDefaults();
    using ObjectBlock = std::function<std::optional<QVariant>(const QObject *, const QVariant &)>;
    void writeModelValues(const QList<QObject *> &objects, const ObjectBlock &block);
    void watchForKey(const ZelObjectController *controller);
    void warnUnlessEdited(const QObject *object, const QString &keyPath);

    QPointer<QObject> m_owner;
    QString m_keyPath;
    std::unique_ptr<Rare> m_rare;
    QMetaObject::Connection m_selectionConnection;
    std::unique_ptr<ZelDelayedInvocation> m_updateViewInvocation;
    std::unique_ptr<ZelEditorDefault> m_default;
    std::unique_ptr<ZelMissingKeyWatch> m_missingKey; // while the view is installed and the key is not known
    bool m_updatingValues = false;
    bool m_enabled = true;
    bool m_readOnly = false;
    bool m_returnAdvances = false;
    bool m_wasRefused = false; // what the user is about to be told to have changed
    bool m_hasWarnedOfType = false;
    bool m_isKeyKnown = false; // a selected object had it, or its absence was warned of
};
