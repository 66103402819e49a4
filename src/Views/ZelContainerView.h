// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "ViewController/ZelView.h"
#include "ViewController/ZelViewController.h"

/// Shows the view of one controller while the container is installed. The view fills the container.
///
/// The container wants the size that the view wants. The controller belongs to its QObject parent. If it dies, its view
/// stays until another controller is set.
class ZEL_EXPORT ZelContainerView : public ZelView
{
    Q_OBJECT
    /// Null by default.
    Q_PROPERTY(ZelViewController *childViewController READ childViewController WRITE setChildViewController NOTIFY
                   childViewControllerChanged)
public:
    explicit ZelContainerView(QWidget *parent = nullptr);
    explicit ZelContainerView(const ZelKeyedCoder &coder, QWidget *parent = nullptr);
    ~ZelContainerView() override;

    ZelViewController *childViewController() const { return m_childViewController; }
    void setChildViewController(ZelViewController *controller);

    /// Replaces the view of the old controller by that of the new one. Either controller may be null.
    void updateChildViewWithOldViewController(ZelViewController *oldViewController,
                                              ZelViewController *newViewController);

    void viewDidInstall() override;
    void viewWillUninstall() override;
    bool drawsContent() const override;

Q_SIGNALS:
    void childViewControllerChanged();

protected:
    ZelView *newInstance() const override { return new ZelContainerView; }

private:
    QPointer<ZelViewController> m_childViewController;
    QPointer<ZelViewController> m_shownViewController; // may have died when the change is observed
    QPointer<ZelView> m_shownView;
    QList<ZelLayoutConstraint::Ptr> m_childConstraints;
};
