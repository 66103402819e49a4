// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelWeakInterface.h"
#include "Core/ZelExport.h"
#include "Inspector/Description/ZelInspectorConfiguration.h"
#include "Inspector/Description/ZelInspectorDescription.h"
#include "Inspector/ZelDeclarativeInspectorGeneratorDelegate.h"

#include <QIcon>
#include <QObject>
#include <QPointer>
#include <memory>
#include <span>

class ZelDescribedOptions;
class ZelDescriptionCheck;
class ZelDescriptionFiles;
class ZelInspector;
class ZelInspectorChooser;
class ZelInspectorChooserChoice;
class ZelInspectorConditionalContainer;
class ZelInspectorContainer;
class ZelInspectorEnumerationProperty;
class ZelInspectorPane;
class ZelInspectorProperty;
class ZelInspectorSection;
class ZelInspectorSlice;
class ZelInspectorSliver;
class ZelKnownOptions;
class ZelTabbedInspector;

/// Makes inspectors from their descriptions.
///
///     ZelDeclarativeInspectorGenerator generator;
///     generator.setUrl(ZelBundle::mainBundle().urlForResource("Inspector.xml"));
///     generator.setOwner(&owner);
///     ZelTabbedInspector *inspector = generator.createTabbedInspector();
///     layout->addWidget(inspector->view());
///
/// The caller owns what is made; the controllers below it belong to their QObject parents. Views are not made yet, and
/// no key paths are evaluated except those of the conditions of inspectors and slices. Every call reads the files
/// again. The generator may be deleted afterwards.
///
/// A file that cannot be read, that includes itself, or that includes too much is a ZelGenericException, "Unable to
/// read file from URL ...: ..."; whatever else is wrong in a description is an assertion. Both carry the place in the
/// file. Attributes that are unknown and therefore ignored, and texts that are no value of their attribute's kind, such
/// as a word where a number belongs, are warnings in the log. When an exception ends a call, what was built so far is
/// deleted. When an assertion handler returns, the element or value concerned is left out.
class ZEL_EXPORT ZelDeclarativeInspectorGenerator : public QObject
{
    Q_OBJECT
public:
    explicit ZelDeclarativeInspectorGenerator(QObject *parent = nullptr);
    ~ZelDeclarativeInspectorGenerator() override;

    /// The description: a local file or a Qt resource. Files that it includes are resources of the application. Those
    /// of a source folder (see ZelBundle) are read instead of Qt resources.
    const QUrl &url() const { return m_url; }
    void setUrl(const QUrl &url) { m_url = url; }
    /// A description in memory, which is built instead of the file unless it is empty. A fault in it is reported in the
    /// same way, "Unable to read description NAME: ...", with the name in place of the file.
    const ZelInspectorDescription &description() const { return m_description; }
    void setDescription(const ZelInspectorDescription &description) { m_description = description; }
    /// The owner of everything that is made. It is held weakly, here and there.
    QObject *owner() const { return m_owner; }
    void setOwner(QObject *owner) { m_owner = owner; }
    /// The delegate is not owned. If it is a QObject, it may die first. Null by default.
    ZelDeclarativeInspectorGeneratorDelegate *delegate() const;
    void setDelegate(ZelDeclarativeInspectorGeneratorDelegate *delegate);

    // These build the whole description, whose root has to be an element "panes", "pane" and "slice" respectively.
    ZelTabbedInspector *createTabbedInspector();
    ZelInspectorPane *createPane();
    ZelInspectorSlice *createSlice();
    /// Builds the whole description, whose root may be an element "panes", "pane", "inspector" or "slice".
    ZelInspectorContainer *createContainer();

    /// The paths of the files that the last of these operations has read or looked for: descriptions and images,
    /// whether or not they exist and whether or not the operation succeeded. Those in the program's resources begin
    /// with a colon.
    const QStringList &files() const { return m_paths; }

    // These build one element each. They call each other, and may be overridden to take part in the building. The
    // caller leaves out what is null.
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

    // These build an element "property" of one type each.
    virtual ZelInspectorProperty *createBooleanPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createActionPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createSimpleActionPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createMenuActionPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createNumberPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createStringPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createAttributedStringPropertyForConfiguration(const Configuration &configuration);
    virtual ZelInspectorProperty *createEnumerationPropertyForConfiguration(const Configuration &configuration);
    /// These two only make the editor; createEnumerationPropertyForConfiguration reads the attributes.
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
    /// The generator itself never calls this: the type "point" makes a size editor. Subclasses may call it for types of
    /// their own.
    virtual ZelInspectorProperty *createPointProperty(const Configuration &configuration);
    virtual ZelInspectorProperty *createCustomPropertyForConfiguration(const Configuration &configuration);

private:
    class Build;
    struct EditorType;
    template<typename Class> using Builder = Class *(ZelDeclarativeInspectorGenerator::*)(const Configuration &);

    bool canBuild() const;
    template<typename Class> Class *createRoot(QStringView rootName, const QString &mismatch, Builder<Class> build);
    template<typename Class>
    Class *buildIncluded(const QUrl &url, QStringView rootName, Builder<Class> build, const Configuration &from);
    QUrl includedFile(const Configuration &from) const;
    template<typename Class>
    std::unique_ptr<Class> buildFromFile(QStringView rootName, Builder<Class> build, const Configuration &from);
    /// Builds, and sets the place of the element on what was built.
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
    /// Registers the classes of the library's editors, so that descriptions may name them.
    static void registerEditors();
    static std::span<const EditorType> editorTypes();
    template<typename Class> ZelInspectorProperty *makeEditor(const Configuration &configuration);
    ZelInspectorProperty *createFlagsProperty(const Configuration &configuration);
    ZelInspectorProperty *createNumbersProperty(const Configuration &configuration);
    ZelInspectorProperty *configured(ZelInspectorEnumerationProperty *made, const Configuration &configuration,
                                     bool choosesSeveral = false) const;
    void describeOptions(ZelInspectorEnumerationProperty *editor, const Configuration &configuration) const;
    ZelDescribedOptions readOptions(const Configuration &configuration) const;

    QUrl m_url;
    ZelInspectorDescription m_description;
    QPointer<QObject> m_owner;
    ZelWeakInterface<ZelDeclarativeInspectorGeneratorDelegate> m_delegate;
    // During a build.
    std::unique_ptr<ZelDescriptionFiles> m_files;
    std::unique_ptr<ZelKnownOptions> m_knownOptions;
    QStringList m_paths;
};
