// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Undo/ZelNumbersInterface.h"
#include "Core/Values/ZelGeometryType.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorCustomProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"

#include <optional>
#include <span>

/// The base of editors whose value consists of a few numbers, each with a number editor of its own.
///
/// This editor is the owner of the number editors, and they edit its components: properties that hold what the selected
/// objects' values are reduced to, number by number. A change of a component is written into every object's own value
/// and leaves its other components alone. Written numbers are rounded to single precision. A component that is a
/// selection marker is not written; one without a value is written as 0.
///
/// The key paths that are set here for the number editors begin at this editor's owner, like all others.
class ZEL_EXPORT ZelInspectorCompositeProperty : public ZelInspectorCustomProperty, public ZelNumbersInterface
{
    Q_OBJECT
    Q_INTERFACES(ZelNumbersInterface)
    Q_PROPERTY(QVariant increment READ incrementValue WRITE setIncrementValue)
    Q_PROPERTY(QString incrementKeyPath MEMBER incrementKeyPath)
    Q_PROPERTY(uint formatStyle MEMBER formatStyle)
    Q_PROPERTY(QString formatUnit MEMBER formatUnit)
    /// Whether the number editors are enabled.
    Q_PROPERTY(bool internalEnabled READ internalEnabled NOTIFY internalEnabledChanged)
public:
    ~ZelInspectorCompositeProperty() override;

    std::optional<double> increment = 1;
    QString incrementKeyPath;
    uint formatStyle = ZelInspectorNumberProperty::IntegerStyle;
    QString formatUnit;
    bool expressions = true; ///< whether calculations may be typed, see ZelNumberExpression

    QVariant incrementValue() const { return ZelInspectorNumberProperty::variantOf(increment); }
    void setIncrementValue(const QVariant &value) { increment = ZelInspectorNumberProperty::numberOf(value); }
    bool internalEnabled() const { return m_internalEnabled; }
    /// Reduces the selection's values to the components. While the view is installed, this also happens at once after
    /// every change of the model, so that a component that is set afterwards is compared with what the model has.
    void updateValues();
    void updateView() override { updateValues(); }
    /// Sends the editor's own action, after a component was edited.
    Q_INVOKABLE void componentDidChange();

    bool commitEditing() override;
    void discardEditing() override;
    std::vector<double> numbersForKey(ZelKey key) const override;
    void changeNumbersForKey(ZelKey key, const ZelNumberChange &change) override;
    void configure(const ZelInspectorConfiguration &configuration) override;
    void viewDidInstall() override;
    /// Nothing, since each component's own editor tells what that component has.
    QString helpForControl(const QWidget *) const override { return presentDisabledReason(); }

Q_SIGNALS:
    void internalEnabledChanged();
    // One signal for each component, by its place.
    void firstChanged();
    void secondChanged();
    void thirdChanged();
    void fourthChanged();

protected:
    QMetaType valueType() const override { return m_type; }
    static constexpr int maximumCount = 4;

    bool storesSingleKey() const override { return true; }
    ZelValueSummary valueSummaryOfPart(const QString &key) const override;
    QString refusalOfPart(const QString &keyPath, const QVariant &value) const override;
    using Numbers = ZelGeometryType::Numbers;

    /// `keys` are the property names of the components, two or four, in their order; `type` is the type of new values.
    /// The model's values may be of any type that consists of as many numbers, and keep their type.
    ZelInspectorCompositeProperty(QObject *owner, const QStringList &keys, QMetaType type);

    const QString &componentKey(int index) const { return m_keys.at(index); }
    /// The key below the selection, and behind it that of a part.
    QString keyOfPart(const QString &part) const
    {
        return keyPathByStripingControllerSelectionPrefix(keyPath()) + u'.' + part;
    }
    const QVariant &component(int index) const { return m_components.at(index); }
    void setComponent(int index, const QVariant &value);
    /// Writes the component into every represented object.
    void updateComponent(int index);

    /// Makes one component out of the numbers of each value; it is one of them by default.
    virtual void makeComponents(std::span<const Numbers> values, int index, double *components) const;
    /// Replaces one component in the numbers of each value.
    virtual void replaceComponents(std::span<Numbers> values, int index, const double *components) const;
    /// Called when all components are up to date. Components are not written back meanwhile.
    virtual void didUpdateValues() {}
    virtual bool computeInternalEnabled() const { return isEffectivelyEnabled(); }
    void updateInternalEnabled();

    /// A number editor of the component, with everything that all have in common.
    ZelInspectorNumberProperty *makeNumberEditor(int index, const QString &title, const QString &actionName);
    /// Makes the editor one of those inside this one, which commits and discards with it.
    void adoptEditor(ZelInspectorProperty *editor);
    /// Deletes the editors of a former view.
    void removeEditors();
    /// A key path of the owner, as an editor inside this one has to write it.
    static QString ownersKeyPath(const QString &keyPath);

private:
    struct Selection;
    void flashUnlessKept(int index, double number);
    Selection plainSelection() const;
    QVariantList componentsOfSelection() const;
    std::optional<QVariantList> componentsOfPlainSelection() const;
    /// What a component becomes: one number for all objects or, if there is a change, each object's own number changed.
    struct Component
    {
        int index;
        double number;
        const ZelNumberChange *change = nullptr;
        qsizetype count = 1; ///< of the objects
    };
    double componentOf(const Numbers &numbers, int index) const;
    void makeComponents(Numbers &numbers) const;
    bool replace(std::span<Numbers> values, const Component &component, qsizetype place) const;
    void writeComponent(const Component &component);
    bool writeIntoPlainSelection(const Component &component);
    const ZelGeometryType *geometryOf(QMetaType type) const;
    QVariant valueByReplacing(const QVariant &old, const Component &component, qsizetype place) const;

    QStringList m_keys;
    QMetaType m_type;
    QVariantList m_components;
    QList<QPointer<ZelInspectorProperty>> m_editors;
    bool m_internalEnabled = true;
};
