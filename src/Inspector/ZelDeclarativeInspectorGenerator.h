// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/ZelDeclarativeInspectorGeneratorDelegate.h"
#include "Inspector/ZelInspectorConfiguration.h"

#include <QIcon>
#include <QObject>
#include <QPointer>
#include <memory>

class ZelDescriptionCheck;
class ZelDescriptionFiles;
class ZelInspector;
class ZelInspectorChooser;
class ZelInspectorChooserChoice;
class ZelInspectorConditionalContainer;
class ZelInspectorEnumerationProperty;
class ZelInspectorPane;
class ZelInspectorProperty;
class ZelInspectorSection;
class ZelInspectorSlice;
class ZelInspectorSliver;
class ZelOption;
class ZelOptionGroup;
class ZelTabbedInspector;

/// Makes inspectors from their descriptions.
///
///     ZelDeclarativeInspectorGenerator generator;
///     generator.setUrl(ZelBundle::mainBundle().urlForResource("Inspector.xml"));
///     generator.setOwner(&owner);
///     ZelTabbedInspector *inspector = generator.createTabbedInspector();
///     layout->addWidget(inspector->view());
///
/// What is made belongs to the caller, controllers below it to their QObject parents. Views are not made, key paths are
/// evaluated only where a condition of an inspector or a slice has one. Every call reads the files anew; the generator
/// may go afterwards.
///
/// A file that cannot be read, that includes itself, or that includes too much is a ZelGenericException, "Unable to
/// read file from URL ...: ..."; whatever else is wrong in a description is an assertion. Both carry the place in the
/// file. What is only ignored, such as an unknown attribute, or read otherwise than it was meant, such as a text for a
/// number, is a warning in the log. When an exception ends a call, what was built so far is deleted. When an assertion
/// handler returns, the element or value concerned is left out.
class ZelDeclarativeInspectorGenerator : public QObject
{
    Q_OBJECT
public:
    explicit ZelDeclarativeInspectorGenerator(QObject *parent = nullptr);
    ~ZelDeclarativeInspectorGenerator() override;

    /// The description: a local file or a Qt resource. Files that it includes are resources of the application.
    const QUrl &url() const { return m_url; }
    void setUrl(const QUrl &url) { m_url = url; }
    /// Given to everything that is made, and held weakly there and here.
    QObject *owner() const { return m_owner; }
    void setOwner(QObject *owner) { m_owner = owner; }
    /// Not owned; one that is a QObject may die first. Null by default.
    ZelDeclarativeInspectorGeneratorDelegate *delegate() const;
    void setDelegate(ZelDeclarativeInspectorGeneratorDelegate *delegate);

    // From the description, whose root is an element "panes", "pane" or "slice".
    ZelTabbedInspector *createTabbedInspector();
    ZelInspectorPane *createPane();
    ZelInspectorSlice *createSlice();

    // From one element. They are called by each other, and may be overridden to take part in the building. Null is left
    // out by the caller.
    using Configuration = ZelInspectorConfiguration;
    virtual ZelTabbedInspector *createTabbedInspectorForConfiguration(const Configuration &configuration);
    virtual ZelInspectorPane *createPaneForConfiguration(const Configuration &configuration);
    virtual ZelInspector *createInspectorForConfiguration(const Configuration &configuration);
    virtual ZelInspectorSlice *createSliceForConfiguration(const Configuration &configuration);
    virtual ZelInspectorSection *createSectionForConfiguration(const Configuration &configuration);
    virtual ZelInspectorChooser *createChooserForConfiguration(const Configuration &configuration);
    virtual ZelInspectorChooserChoice *createChooserChoiceForConfiguration(const Configuration &configuration);
    virtual ZelInspectorSliver *createSliverForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createPropertyForConfiguration(const Configuration &configuration);

    // From an element "property" of that type.
    virtual ZelInspectorProperty *createBooleanPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createActionPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createSimpleActionPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createMenuActionPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createNumberPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createStringPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createAttributedStringPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createEnumerationPropertyForConfiguration(const Configuration &configuration);
    /// Make the editor alone; createEnumerationPropertyForConfiguration reads the attributes.
    virtual ZelInspectorEnumerationProperty *
    createTextEnumerationPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorEnumerationProperty *
    createImageEnumerationPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createColorPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createDatePropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createFontPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createResourcePropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createFrameProperty(const Configuration &configuration);
    virtual ZelInspectorProperty *createSizeProperty(const Configuration &configuration);
    /// No type leads here: "point" makes a size editor. For subclasses that want one for their own types.
    virtual ZelInspectorProperty *createPointProperty(const Configuration &configuration);
    virtual ZelInspectorProperty *createCustomPropertyForConfiguration(const Configuration &configuration);

private:
    class Build;
    struct PropertyType;
    template<typename Class> using Builder = Class *(ZelDeclarativeInspectorGenerator::*)(const Configuration &);

    template<typename Class> Class *createRoot(QStringView rootName, const QString &mismatch, Builder<Class> build);
    template<typename Class>
    Class *buildIncluded(const QUrl &url, QStringView rootName, Builder<Class> build, const Configuration &from);
    template<typename Class>
    std::unique_ptr<Class> buildFromFile(QStringView rootName, Builder<Class> build, const Configuration &from);
    /// Builds, and tells what was made the place of its element.
    template<typename Class> Class *buildPlaced(Builder<Class> build, const Configuration &configuration);
    template<typename Child>
    Child *buildChild(Builder<Child> build, const Configuration &configuration, QObject *parent);
    template<typename Child>
    QList<Child *> buildChildren(QStringView name, Builder<Child> build, const Configuration &configuration,
                                 QObject *parent);
    QList<ZelInspectorConditionalContainer *> buildSliversAndChoosers(const Configuration &configuration,
                                                                      QObject *parent);
    ZelInspectorProperty *buildIncludedProperty(const QUrl &url, const Configuration &from);
    ZelDescriptionCheck descriptionCheck() const;
    QObject *createOfClass(const Configuration &configuration, const QString &defaultName,
                           const QMetaObject *base) const;
    QIcon imageValue(const Configuration &configuration) const;

    // Properties
    /// Registers the classes that make editors, so that descriptions may name them.
    static void registerEditors();
    static const PropertyType *propertyTypeNamed(const QString &name);
    template<typename Class> std::unique_ptr<Class> makeProperty(const Configuration &configuration) const;
    QList<ZelOptionGroup *> createOptionGroups(const Configuration &configuration, QObject *parent) const;
    QList<ZelOption *> createOptions(const Configuration &configuration, QObject *parent) const;

    QUrl m_url;
    QPointer<QObject> m_owner;
    ZelDeclarativeInspectorGeneratorDelegate *m_delegate = nullptr;
    QPointer<QObject> m_delegateObject; // the delegate, if it is a QObject
    bool m_delegateIsObject = false;
    std::unique_ptr<ZelDescriptionFiles> m_files; // during a build
};
