// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "Inspector/Description/ZelReadError.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <memory>

class QLabel;
class ZelFileWatch;
class ZelInspectorContainer;

/// Shows the inspector of a description, and builds it anew when one of its files changes: for programs under
/// development, so that whoever writes a description sees at once what comes of it.
///
///     auto *inspector = new ZelLiveInspector(&window);
///     inspector->setUrl(QUrl::fromLocalFile(SOURCE_DIR "/inspector/Main.xml"));
///     inspector->setOwner(&owner);
///     dock->setWidget(inspector);
///
/// Watched are the description, the files and images that it includes, whether or not they exist, and the folders
/// that were set. It does not matter how a file is written, also if another takes its place; several changes in a row
/// make one new panel. Of descriptions in Qt resources the files of ZelBundle::setSourceFolder are watched. The panel
/// is built anew as well when the language changes.
///
/// The new panel has the same tab, folds, scroll positions and focus. What is being typed is committed first; if it is
/// refused, the panel stays until the typing has ended. The panel stays also while a mouse button is pressed in the
/// program, while a menu or popover is open, and while an event of the panel is being handled. Undo steps stay.
///
/// While a description is wrong, its errors are shown above the last panel that was right, which goes on working.
/// All errors are found at once, since assertions that fail meanwhile are collected here instead of going to the
/// application's ZelAssertionHandler. What ends the first showing of the panel is such an error, too; if something only
/// fails in it, such as a value that none of an editor's choices stands for, the new panel is shown with the error.
class ZEL_EXPORT ZelLiveInspector : public ZelGuarded<QWidget>
{
    Q_OBJECT
    Q_PROPERTY(QUrl url READ url WRITE setUrl)
    Q_PROPERTY(QObject *owner READ owner WRITE setOwner)
public:
    explicit ZelLiveInspector(QWidget *parent = nullptr);
    ~ZelLiveInspector() override;

    // The settings of the generator. When they are set after the first panel was built, another one is built soon.
    QUrl url() const { return m_generator->url(); }
    void setUrl(const QUrl &url);
    QObject *owner() const { return m_generator->owner(); }
    void setOwner(QObject *owner);
    ZelDeclarativeInspectorGeneratorDelegate *delegate() const { return m_generator->delegate(); }
    void setDelegate(ZelDeclarativeInspectorGeneratorDelegate *delegate);
    /// Replaces the generator, by default a ZelDeclarativeInspectorGenerator. The other one has its own settings.
    void setGenerator(std::unique_ptr<ZelDeclarativeInspectorGenerator> generator);
    /// Folders whose files are watched as well, such as those of translations; not the folders in them.
    const QStringList &watchedFolders() const { return m_folders; }
    void setWatchedFolders(const QStringList &folders);

    /// The present panel; null until a description was right. It and its view belong to this widget, and are deleted
    /// when another panel takes their place.
    ZelInspectorContainer *inspector() const;
    /// What is wrong with the description now; the panel is older then.
    const QList<ZelReadError> &errors() const { return m_errors; }
    /// The error as it is shown: "file:line:column: text", with the file's path from the folder of the description.
    QString textOfError(const ZelReadError &error) const;

    /// Builds the panel now, or as soon as it can be replaced. This is done without a call when the widget is first
    /// shown. Answers whether the description is right.
    bool reload();

Q_SIGNALS:
    /// Sent before a panel is built because of these files. The place to load what the application makes of them, such
    /// as translations.
    void filesChanged(const QStringList &files);
    /// There is another panel.
    void reloaded();
    /// The errors are others than before.
    void errorsChanged();

protected:
    bool handleEvent(QEvent *event) override;

private:
    void scheduleReload();
    void filesDidChange(const QStringList &files);
    bool canReplace() const;
    bool isTyping() const;
    bool commitTyping();
    void tryAgain();
    QList<ZelReadError> replaceBy(ZelInspectorContainer *inspector);
    void putInto(ZelInspectorContainer *inspector);
    void takeOut(ZelInspectorContainer *inspector);
    void setErrors(const QList<ZelReadError> &errors);
    void showErrors();
    void colorErrors();

    std::unique_ptr<ZelDeclarativeInspectorGenerator> m_generator;
    QPointer<ZelInspectorContainer> m_inspector;
    QStringList m_folders;
    QList<ZelReadError> m_errors;
    QLabel *m_errorLabel;
    ZelFileWatch *m_watch;
    QTimer m_retry;           // runs while a panel is to be built
    bool m_isRefused = false; // what is being typed cannot be committed
    bool m_isLoading = false;
    bool m_wasLoaded = false;
};
