// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/Properties/ZelInspectorCustomProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Platform/Runtime/ZelGeometryType.h"

#include <optional>

/// The base of editors whose value consists of a few numbers, each with a number editor of its own.
///
/// The number editors' owner is this editor, and what they edit are its components: properties that hold the selected
/// objects' values, reduced one by one. A change of a component is written into every object's own value and leaves its
/// other components alone. Written numbers are rounded to single precision. A component that is a selection marker is
/// not written; one without a value is written as 0.
///
/// Key paths that the number editors are given are the owner's, like all others.
class ZelInspectorCompositeProperty : public ZelInspectorCustomProperty
{
    Q_OBJECT
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

    QVariant incrementValue() const { return ZelInspectorNumberProperty::variantOf(increment); }
    void setIncrementValue(const QVariant &value) { increment = ZelInspectorNumberProperty::numberOf(value); }
    bool internalEnabled() const { return m_internalEnabled; }
    /// Reduces the selection into the components. While the view is installed, every change of the model does so at
    /// once, that what is set afterwards is compared with what the model has.
    void updateValues();
    void updateView() override { updateValues(); }
    /// Sends the editor's own action, after a component was edited.
    Q_INVOKABLE void componentDidChange();

    bool commitEditing() override;
    void discardEditing() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;

Q_SIGNALS:
    void internalEnabledChanged();
    // Of the components, by their place.
    void firstChanged();
    void secondChanged();
    void thirdChanged();
    void fourthChanged();

protected:
    static constexpr int maximumCount = 4;

    bool storesSingleKey() const override { return true; }
    using Numbers = ZelGeometryType::Numbers;

    /// The components' property names, two or four, in their order, and the type of new values. The model's values may
    /// be of any type that consists of as many numbers, and stay of it.
    ZelInspectorCompositeProperty(QObject *owner, const QStringList &keys, QMetaType type);

    const QVariant &component(int index) const { return m_components.at(index); }
    void setComponent(int index, const QVariant &value);
    /// Writes the component into every represented object.
    void updateComponent(int index);

    /// Makes the components out of a value's numbers; they are the same by default.
    virtual void makeComponents(Numbers &) const {}
    /// Replaces one component in a value's numbers.
    virtual void replaceComponent(Numbers &numbers, int index, double component) const { numbers[index] = component; }
    /// Called when all components are up to date, and not written back.
    virtual void didUpdateValues() {}
    virtual bool computeInternalEnabled() const { return isEffectivelyEnabled(); }
    void updateInternalEnabled();

    /// A number editor of the component, with everything that all have in common.
    ZelInspectorNumberProperty *makeNumberEditor(int index, const QString &title, const QString &actionName);
    /// Makes it one of the editors inside this one.
    void adoptEditor(ZelInspectorProperty *editor);
    /// Drops the editors of a former view.
    void removeEditors();
    /// The owner's key path, as seen from here.
    static QString ownersKeyPath(const QString &keyPath);

private:
    struct Selection;
    class Reader;
    Selection plainSelection() const;
    QVariantList componentsOfSelection() const;
    std::optional<QVariantList> componentsOfPlainSelection() const;
    bool compareNumbers(const Selection &selection, std::optional<Numbers> *known, unsigned *differing) const;
    bool writeIntoPlainSelection(int index, double component);
    const ZelGeometryType *geometryOf(QMetaType type) const;
    QVariant valueByReplacing(const QVariant &old, int index, double component) const;

    QStringList m_keys;
    QMetaType m_type;
    QVariantList m_components;
    QList<QPointer<ZelInspectorProperty>> m_editors;
    bool m_internalEnabled = true;
};
