// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelSharedPlace.h"
#include "Core/Errors/ZelSourcePlace.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "ViewController/ZelResponderLink.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>

class QWidget;
class ZelView;

/// Makes a view when it is first asked for, and takes part in its life.
///
/// A controller is the QObject parent of its child controllers. It deletes its view when it dies or gets another view,
/// unless the view has a parent widget, which then owns the view. When the view dies first, the controller has no view
/// and loads a new one when asked; viewDidUnload is called, but not viewWillUnload, since there is no view any more.
/// When the controller dies first while its view is in a parent, that is a mistake and is reported as an assertion; the
/// view stays. It is no mistake if Qt deletes both together, because a widget around the view is an ancestor of the
/// controller, too.
///
/// Observations and bindings for ZelInstalledContext end when the controller is uninstalled, and when it dies. A class
/// that overrides viewWillUninstall, viewWillUnload or viewDidUnload calls uninstall() in its own destructor, because
/// the overrides cannot be called any more from the base's destructor.
///
/// A controller that was made from an element of a description knows the place of the element. Whatever is reported
/// while the controller loads its view, is installed, evaluates a key path or takes an edit names that place.
class ZEL_EXPORT ZelViewController : public ZelGuarded<QObject>, public ZelPlaced
{
    Q_OBJECT
    /// Null by default.
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    // Help for people. The nearest text around a widget is shown there, the tool tip when the mouse rests, the other
    // one in What's This mode and for Shift+F1. Null by default.
    Q_PROPERTY(QString toolTip READ toolTip WRITE setToolTip NOTIFY toolTipChanged)
    Q_PROPERTY(QString whatsThis READ whatsThis WRITE setWhatsThis NOTIFY whatsThisChanged)
    /// Reading it loads the view.
    Q_PROPERTY(ZelView *view READ view WRITE setView NOTIFY viewChanged)
    Q_PROPERTY(bool viewLoaded READ isViewLoaded NOTIFY viewChanged)
    Q_PROPERTY(bool viewInstalled READ isViewInstalled NOTIFY viewInstalledChanged)
    Q_MOC_INCLUDE("ViewController/ZelView.h")
public:
    using ViewLoader = std::function<ZelView *(ZelViewController *)>;

    explicit ZelViewController(QObject *parent = nullptr);
    /// The view will be made by the loader that is registered under this name. A null name stands for viewNibName().
    explicit ZelViewController(const QString &nibName, QObject *parent = nullptr);
    ~ZelViewController() override;

    const QString &title() const { return m_title; }
    void setTitle(const QString &title);
    const QString &toolTip() const;
    void setToolTip(const QString &toolTip);
    const QString &whatsThis() const;
    void setWhatsThis(const QString &whatsThis);

    /// File, line and column of the element from which the controller was made. Empty for a controller made in code;
    /// reports about it name the place of the nearest controller above it that has one.
    ZelSourcePlace place() const override { return m_place.place(); }
    void setPlace(const ZelSourcePlace &place) { m_place = place; }

    /// The name under which loadView looks for a view.
    QString nibName() const;
    /// Registers the function that makes the view for a name. A null loader removes the registration.
    static void registerViewLoader(const QString &nibName, const ViewLoader &loader);

    /// The view, which is loaded if there is none. Asserts and answers null if loading makes no view.
    ZelView *view();
    /// Null unloads the view. Asserts and changes nothing if the widget is not a ZelView, or if the former view, even
    /// if it is the same, is still in a parent.
    void setView(QWidget *view);
    bool isViewLoaded() const { return !m_view.isNull(); }
    bool isViewInstalled() const { return m_viewInstalled; }

    /// The responder that was set, else the parent of the view whose controller this is; null without a view.
    QObject *nextResponder() const;
    void setNextResponder(QObject *responder);

    /// Asks every ZelEditor among the widgets of the view, except those in the views of other controllers, to commit
    /// what the user entered. Stops at the first refusal and answers false. Answers true while the view is not
    /// installed.
    virtual bool commitEditing();
    /// Makes the same editors discard what was entered. Does nothing while the view is not installed.
    virtual void discardEditing();

    /// What to tell about a control in the view beside what the control itself tells, in its tool tip below the text
    /// that is set for it, and in its accessible description. It is asked when the tool tip is due or assistive
    /// technology asks. An empty text tells nothing. A null one, which is the base's, leaves that to the controllers
    /// around.
    virtual QString helpForControl(const QWidget *) const { return {}; }

    // Hooks
    /// The name of the view to load; by default the name of the class.
    virtual QString viewNibName() const;
    /// Makes the view and passes it to setView. The base uses the loader that is registered under nibName().
    virtual void loadView();
    virtual void viewWillLoad() {}
    virtual void viewDidLoad() {}
    virtual void viewWillUnload() {}
    virtual void viewDidUnload() {}
    /// Overrides call the base first. The base's viewWillUninstall ends observations and bindings for
    /// ZelInstalledContext.
    virtual void viewDidInstall();
    virtual void viewWillUninstall();
    /// These are called when the view updates its constraints and after it was laid out.
    virtual void updateConstraints() {}
    virtual void layout() {}
    /// refresh() is called to show the model again, prepareForReuse() before the view is put away for a while.
    virtual void refresh() {}
    virtual void prepareForReuse() {}

Q_SIGNALS:
    void titleChanged();
    void toolTipChanged();
    void whatsThisChanged();
    void viewChanged();
    void viewInstalledChanged();

protected:
    /// To be called by destructors: runs viewWillUninstall if the view is installed, and unloads the view if it is
    /// loaded. What the hooks throw is reported. A view that is still in a parent stays there.
    void uninstall() noexcept;
    /// Gives the tool tip and the help text to the widgets that show them, by default to the view. Called when the view
    /// was loaded, if there are such texts, and when one of them changes.
    virtual void showHelp();
    /// Called when there is another title, before titleChanged is emitted.
    virtual void titleDidChange() {}

private:
    friend class ZelView;
    struct Rare; // members that few controllers need while they have no view
    Rare &rare();
    void setHelp(QString Rare::*text, const QString &value, void (ZelViewController::*changed)());
    ZelView *respondingView() const;
    void setRespondingView(ZelView *view);
    void setNextLink(const ZelResponderLink &link);
    ZelResponderLink takeNextLink();
    void makeView();
    void setViewInstalled(bool installed);
    void viewWasDestroyed(const ZelView *view);
    bool diesWithView() const;

    QPointer<ZelView> m_view;
    std::unique_ptr<Rare> m_rare;
    QString m_title;
    ZelSharedPlace m_place;
    bool m_viewInstalled = false;
    bool m_loading = false;
    bool m_diesWithParent = false;
};
