// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/Properties/ZelOptionGroup.h"

#include <QExplicitlySharedDataPointer>
#include <optional>

class ZelDescribedOptions;

/// The base of editors that choose values out of a list of options.
///
/// The options are, in this order: those of the editor's own pair of key paths, then for each group those of its pair
/// and its fixed ones. An editor that is given none of these offers the keys of the enumeration (Q_ENUM) that the
/// model's property is of, as soon as that is known.
///
/// Of flags, each option stands for some bits, and any of them may be chosen: each is written for itself into each
/// object's own value. With a bit mask the editor edits only those bits of an unsigned integer; option values are
/// expected to lie inside the mask.
class ZEL_EXPORT ZelInspectorEnumerationProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable)
    Q_PROPERTY(QList<ZelOptionGroup *> optionGroups READ optionGroups WRITE setOptionGroups NOTIFY optionGroupsChanged)
    Q_PROPERTY(QVariant bitMask READ bitMaskValue WRITE setBitMaskValue)
    Q_PROPERTY(QString enumeratedDisplayValuesKeyPath READ enumeratedDisplayValuesKeyPath WRITE
                   setEnumeratedDisplayValuesKeyPath)
    Q_PROPERTY(QString enumeratedValuesKeyPath READ enumeratedValuesKeyPath WRITE setEnumeratedValuesKeyPath)
public:
    explicit ZelInspectorEnumerationProperty(QObject *owner);
    ~ZelInspectorEnumerationProperty() override;

    /// True by default; otherwise the editor only displays. Taken over when the view is loaded.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable) { m_editable = editable; }
    /// The groups that are alive. A group without a parent becomes the editor's child.
    QList<ZelOptionGroup *> optionGroups() const;
    void setOptionGroups(const QList<ZelOptionGroup *> &groups);
    std::optional<quint64> bitMask() const { return m_bitMask; }
    void setBitMask(std::optional<quint64> bitMask) { m_bitMask = bitMask; }
    /// The mask as a number; absent without one.
    /// Whether the options are flags, of which several may be chosen: if set so, or if the keys of flags (Q_FLAG) are
    /// offered. To be set before the view is loaded; false by default.
    bool choosesSeveral() const { return m_choosesSeveral || m_offersFlags; }
    void setChoosesSeveral(bool several) { m_choosesSeveral = several; }
    QVariant bitMaskValue() const { return m_bitMask ? QVariant(*m_bitMask) : QVariant(); }
    void setBitMaskValue(const QVariant &value);
    const QString &enumeratedDisplayValuesKeyPath() const { return m_enumeratedDisplayValuesKeyPath; }
    void setEnumeratedDisplayValuesKeyPath(const QString &keyPath) { m_enumeratedDisplayValuesKeyPath = keyPath; }
    const QString &enumeratedValuesKeyPath() const { return m_enumeratedValuesKeyPath; }
    void setEnumeratedValuesKeyPath(const QString &keyPath) { m_enumeratedValuesKeyPath = keyPath; }

    /// The title of the choice, which may be empty if it has an image; of flags, the titles with commas between them.
    QString textOfValue(const QVariant &modelValue) const override;
    /// Takes the title of a choice, in any case, or several of flags, and the value itself.
    bool readText(const QString &text, QVariant *modelValue, QString *error) const override;
    /// The titles of the options in the description; those that the model tells are not read for it.
    QStringList searchTexts() const override;
    void configure(const ZelInspectorConfiguration &configuration) override;
    void viewDidInstall() override;
    void viewWillUninstall() override;

    /// The values in the bits of the mask, where there is one.
    ZelValueSummary valueSummary() const override;

    /// Collects the options anew and shows them.
    virtual void rebuildView() = 0;
    void startObservationForOptionGroup(ZelOptionGroup *group);
    void stopObservationForOptionGroup(ZelOptionGroup *group);

Q_SIGNALS:
    void optionGroupsChanged();

protected:
    std::optional<quint64> editedBits() const override;
    /// Several keys of an enumeration that is none of flags are no value of it.
    bool keepsType(QMetaType type) const override;
    bool editsType(QMetaType type) const override { return keepsType(type) && ZelInspectorProperty::editsType(type); }
    /// A value that is none of the choices is refused, and so are bits that belong to none.
    QString refusalOfPasted(const QVariant &modelValue) const override;
    bool storesSingleKey() const override { return m_editable; }

    /// One option as the control shows it.
    struct Choice
    {
        QString title;
        QIcon image;
        QVariant value;
        bool hidden = false;
        bool enabled = true;
        QString toolTip;
        QString whatsThis;
    };
    /// The options of the editor's own key paths, or the keys that are offered; and those of each group.
    QList<Choice> ownChoices() const;
    QList<Choice> choicesOfGroup(const ZelOptionGroup *group) const;
    /// Makes the options stand for values of the type that the model's value has; where there are several values, that
    /// of the first object's. If that type has changed and the
    /// options depend on it, they are collected again.
    void adaptOptionsTo(const QVariant &modelValue);
    /// The value of the selection, reduced to the bits of the mask where there is one.
    QVariant reducedValue() const;
    /// Writes the chosen value into every represented object, and reports the change.
    void writeChoice(const QVariant &value, QObject *sender);

    // Flags
    QList<Choice> allChoices() const;
    /// Which bits all and any of the represented objects have.
    struct Bits
    {
        quint64 ofAll = ~quint64(0);
        quint64 ofAny = 0;
        bool isKnown = false; ///< whether there is an object with a value
        /// Whether the flag is set: partially if some objects have some of its bits.
        Qt::CheckState stateOf(const Choice &flag) const;
    };
    Bits bitsOfObjects() const;
    /// The titles of the flags that are set in the value.
    QString textOfFlags(const QVariant &value) const;
    /// Sets or clears the flag in every represented object, and reports the change.
    void writeFlag(const QVariant &flag, bool isOn, QObject *sender);

private:
    friend class ZelDeclarativeInspectorGenerator;
    void setDescribedOptions(const QExplicitlySharedDataPointer<const ZelDescribedOptions> &options);
    void makeDescribedGroups() const;
    bool isWithoutOptions() const;
    void offerKeys(const QVariant &modelValue);
    QList<Choice> offeredChoices() const;
    std::optional<QVariant> flagsIn(const QString &text) const;
    void writeValues(const ValueBlock &changed, QObject *sender);
    std::optional<Choice> findChoice(const std::function<bool(const Choice &)> &isMeant) const;
    QMetaType typeOfSeveral() const;
    QList<Choice> choicesAt(const QString &displayValuesKeyPath, const QString &valuesKeyPath) const;

    mutable QList<QPointer<ZelOptionGroup>> m_optionGroups;
    mutable QExplicitlySharedDataPointer<const ZelDescribedOptions> m_described; // no groups are made of it yet
    std::optional<quint64> m_bitMask;
    QMetaType m_modelType;   // see ZelOptionValue; invalid while it is not known
    QMetaType m_offeredType; // whose keys are offered
    QString m_enumeratedDisplayValuesKeyPath;
    QString m_enumeratedValuesKeyPath;
    bool m_editable = true;
    bool m_choosesSeveral = false;
    bool m_offersFlags = false;
    bool m_hasWarned = false; // that there are no keys to offer
};
