// SPDX-License-Identifier: MIT
#pragma once

#include "ViewController/ZelView.h"
#include "ViewController/ZelViewController.h"

/// Shows the view of one controller, filling the container, while the container is installed.
///
/// The container is as large as the view wants to be. The controller belongs to its QObject parent; the view of one
/// that dies stays until there is another.
class ZelContainerView : public ZelView
{
    Q_OBJECT
    /// None by default.
    Q_PROPERTY(ZelViewController *childViewController READ childViewController WRITE setChildViewController NOTIFY
                   childViewControllerChanged)
public:
    explicit ZelContainerView(QWidget *parent = nullptr);
    explicit ZelContainerView(const ZelKeyedCoder &coder, QWidget *parent = nullptr);
    ~ZelContainerView() override;

    ZelViewController *childViewController() const { return m_childViewController; }
    void setChildViewController(ZelViewController *controller);

    /// Puts the view of the new controller, if there is one, in the place of the old one's.
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
    QPointer<ZelViewController> m_shownViewController; // the observed change may name one that has died
    QPointer<ZelView> m_shownView;
    QList<ZelLayoutConstraint::Ptr> m_childConstraints;
};
