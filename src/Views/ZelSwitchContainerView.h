// SPDX-License-Identifier: MIT
#pragma once

#include "ViewController/ZelView.h"
#include "ViewController/ZelViewController.h"

/// Holds the views of several controllers, all filling the container, and shows one of them.
///
/// The views are taken in when the container is installed. By default all of them take part in the layout, so that the
/// container has room for the largest; with constraintSelectdView only the shown one does, and the container follows
/// its size. The controllers belong to their QObject parents.
class ZelSwitchContainerView : public ZelView
{
    Q_OBJECT
    Q_PROPERTY(QList<ZelViewController *> childViewControllers READ childViewControllers WRITE setChildViewControllers
                   NOTIFY childViewControllersChanged)
    /// 0 by default. An index behind the last controller shows none.
    Q_PROPERTY(quint64 selectedChildViewControllerIndex READ selectedChildViewControllerIndex WRITE
                   setSelectedChildViewControllerIndex NOTIFY selectedChildViewControllerIndexChanged)
    /// False by default.
    Q_PROPERTY(bool constraintSelectdView READ constraintSelectdView WRITE setConstraintSelectdView NOTIFY
                   constraintSelectdViewChanged)
    /// The constraints of the views, as they are installed. Others that are set stand until the next update.
    Q_PROPERTY(QList<ZelLayoutConstraint::Ptr> containerConstraints READ containerConstraints WRITE
                   setContainerConstraints NOTIFY containerConstraintsChanged)
public:
    explicit ZelSwitchContainerView(QWidget *parent = nullptr);
    explicit ZelSwitchContainerView(const ZelKeyedCoder &coder, QWidget *parent = nullptr);
    ~ZelSwitchContainerView() override;

    /// Controllers that have died meanwhile are left out.
    QList<ZelViewController *> childViewControllers() const;
    void setChildViewControllers(const QList<ZelViewController *> &controllers);
    quint64 selectedChildViewControllerIndex() const { return m_selectedIndex; }
    void setSelectedChildViewControllerIndex(quint64 index);
    bool constraintSelectdView() const { return m_constraintSelectdView; }
    void setConstraintSelectdView(bool constraint);
    const QList<ZelLayoutConstraint::Ptr> &containerConstraints() const { return m_containerConstraints; }
    void setContainerConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);

    /// Takes in the views of all controllers, in the place of whatever is in the container.
    void updateChildViews();
    /// Hides all of them but the selected one. One that is not in a parent yet is shown by the one that takes it.
    void updateSelectedChildView();

    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateConstraints() override;
    bool drawsContent() const override;

Q_SIGNALS:
    void childViewControllersChanged();
    void selectedChildViewControllerIndexChanged();
    void constraintSelectdViewChanged();
    void containerConstraintsChanged();

protected:
    ZelView *newInstance() const override { return new ZelSwitchContainerView; }

private:
    void takeOut(QWidget *view);

    QList<QPointer<ZelViewController>> m_childViewControllers;
    QList<QPointer<QWidget>> m_takenViews; // those of the controllers
    QList<ZelLayoutConstraint::Ptr> m_containerConstraints;
    quint64 m_selectedIndex = 0;
    bool m_constraintSelectdView = false;
};
