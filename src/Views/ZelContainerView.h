// SPDX-License-Identifier: MIT
#pragma once

#include "ViewController/ZelView.h"
#include "ViewController/ZelViewController.h"

/// Shows the view of one controller, filling the container, while the container is installed.
///
/// The container's size hints are those of the view. The controller belongs to its QObject parent.
class ZelContainerView : public ZelView
{
    Q_OBJECT
    /// None by default.
    Q_PROPERTY(ZelViewController *childViewController READ childViewController WRITE setChildViewController NOTIFY
                   childViewControllerChanged)
public:
    explicit ZelContainerView(QWidget *parent = nullptr);
    ~ZelContainerView() override;

    ZelViewController *childViewController() const { return m_childViewController; }
    void setChildViewController(ZelViewController *controller);

    /// Puts the view of the new controller, if there is one, in the place of the old one's.
    void updateChildView(ZelViewController *oldViewController, ZelViewController *newViewController);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

    void viewDidInstall() override;
    void viewWillUninstall() override;
    void layoutSubviews() override;
    bool drawsContent() const override;

Q_SIGNALS:
    void childViewControllerChanged();

protected:
    ZelView *newInstance() const override { return new ZelContainerView; }

private:
    const QWidget *shownView() const;
    QPointer<ZelViewController> m_childViewController;
};
