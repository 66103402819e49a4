// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Runtime/ZelGuarded.h"
#include "Platform/Runtime/ZelSourcePlace.h"
#include "ViewController/ZelResponderLink.h"

#include <QObject>
#include <QPointer>
#include <functional>

class QWidget;
class ZelView;

/// Makes a view when it is first asked for, and takes part in its life.
///
/// A controller is the QObject parent of its child controllers. It deletes its view, with itself or when it gets
/// another, unless the view has a parent widget: then that one does. When the view dies first the controller has none,
/// and would load a new one; viewDidUnload tells, but not viewWillUnload, since there is no view to be seen any more.
/// When the controller dies first while its view is in a parent, that is a mistake, and reported as an assertion; the
/// view stays. Where Qt deletes both together there is none: a widget around the view is an ancestor of the controller,
/// too.
///
/// Every class that overrides viewWillUninstall, viewWillUnload or viewDidUnload calls uninstall() in its own
/// destructor: there the hooks of the most derived class still exist.
///
/// One that was made from an element of a description knows its place: whatever is reported while the controller loads
/// its view, is installed, evaluates a key path or takes an edit names it.
class ZelViewController : public ZelGuarded<QObject>, public ZelPlaced
{
    Q_OBJECT
    /// Null by default.
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    /// Reading it loads the view.
    Q_PROPERTY(ZelView *view READ view WRITE setView NOTIFY viewChanged)
    Q_PROPERTY(bool viewLoaded READ isViewLoaded NOTIFY viewChanged)
    Q_PROPERTY(bool viewInstalled READ isViewInstalled NOTIFY viewInstalledChanged)
    Q_MOC_INCLUDE("ViewController/ZelView.h")
public:
    using ViewLoader = std::function<ZelView *(ZelViewController *)>;

    explicit ZelViewController(QObject *parent = nullptr);
    /// Loads the view that was registered under that name; a null name stands for viewNibName().
    explicit ZelViewController(const QString &nibName, QObject *parent = nullptr);
    ~ZelViewController() override;

    const QString &title() const { return m_title; }
    void setTitle(const QString &title);

    /// Where the element begins that the controller was made from: file, line and column. Empty for one made in code,
    /// which is reported with the place of the nearest controller above it that has one.
    ZelSourcePlace place() const override { return m_place; }
    void setPlace(const ZelSourcePlace &place) { m_place = place; }

    /// The name under which loadView looks for a view.
    QString nibName() const { return m_nibName.isNull() ? viewNibName() : m_nibName; }
    /// Registers what makes the view for a name; a null loader takes the registration back.
    static void registerViewLoader(const QString &nibName, const ViewLoader &loader);

    /// The view, loaded if need be. A load that brings none is an assertion, and null.
    ZelView *view();
    /// Null is an unload. The view must be a ZelView, and the former one, even if it is the same, must not be in a
    /// parent any more: both are assertions, and change nothing.
    void setView(QWidget *view);
    bool isViewLoaded() const { return !m_view.isNull(); }
    bool isViewInstalled() const { return m_viewInstalled; }

    /// What was set, else the parent of the view whose controller this is; null without a view.
    QObject *nextResponder() const;
    void setNextResponder(QObject *responder);

    /// Asks every ZelEditor among the widgets of the view, except those in the views of other controllers, to take what
    /// its user entered. False at the first refusal. True while the view is not installed.
    virtual bool commitEditing();
    /// Has the same editors drop what was entered. Does nothing while the view is not installed.
    virtual void discardEditing();

    // Hooks
    /// The name of the view to load; the name of the class.
    virtual QString viewNibName() const;
    /// Makes the view and hands it to setView. The base takes what is registered under nibName().
    virtual void loadView();
    virtual void viewWillLoad() {}
    virtual void viewDidLoad() {}
    virtual void viewWillUnload() {}
    virtual void viewDidUnload() {}
    /// Overrides call the base first.
    virtual void viewDidInstall();
    virtual void viewWillUninstall();
    /// Called when the view updates its constraints and after it was laid out.
    virtual void updateConstraints() {}
    virtual void layout() {}
    /// Called to show the model again, and before the view is put away for a while.
    virtual void refresh() {}
    virtual void prepareForReuse() {}

Q_SIGNALS:
    void titleChanged();
    void viewChanged();
    void viewInstalledChanged();

protected:
    /// For destructors: runs viewWillUninstall if the view is installed, and unloads the view if it is loaded. What the
    /// hooks throw is reported. The view of a dying controller may still be in a parent; there it stays.
    void uninstall() noexcept;

private:
    friend class ZelView;
    void makeView();
    void setViewInstalled(bool installed);
    void viewWasDestroyed(const ZelView *view);
    bool diesWithView() const;

    QPointer<ZelView> m_view;
    QPointer<ZelView> m_respondingView; // between which and its next responder the controller stands
    QString m_nibName;
    QString m_title;
    ZelSourcePlace m_place;
    ZelResponderLink m_next;
    bool m_viewInstalled = false;
    bool m_loading = false;
    bool m_diesWithParent = false;
};
