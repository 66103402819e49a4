// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"
#include "ViewController/ZelView.h"
#include "ViewController/ZelViewController.h"

/// Holds the views of several controllers and shows one of them. Each view fills the container.
///
/// The views are added when the container is installed. By default all of them take part in the layout, so that the
/// container has room for the largest. With constraintSelectdView only the shown view takes part, and the container
/// follows its size. The controllers belong to their QObject parents.
class ZEL_EXPORT ZelSwitchContainerView : public ZelView
{
    Q_OBJECT
    Q_PROPERTY(QList<ZelViewController *> childViewControllers READ childViewControllers WRITE setChildViewControllers
                   NOTIFY childViewControllersChanged)
    /// 0 by default. With an index beyond the last controller no view is shown.
    Q_PROPERTY(quint64 selectedChildViewControllerIndex READ selectedChildViewControllerIndex WRITE
                   setSelectedChildViewControllerIndex NOTIFY selectedChildViewControllerIndexChanged)
    /// False by default.
    Q_PROPERTY(bool constraintSelectdView READ constraintSelectdView WRITE setConstraintSelectdView NOTIFY
                   constraintSelectdViewChanged)
    /// The installed constraints of the views. What is set here is replaced by the next update.
    Q_PROPERTY(QList<ZelLayoutConstraint::Ptr> containerConstraints READ containerConstraints WRITE
                   setContainerConstraints NOTIFY containerConstraintsChanged)
public:
    explicit ZelSwitchContainerView(QWidget *parent = nullptr);
    explicit ZelSwitchContainerView(const ZelKeyedCoder &coder, QWidget *parent = nullptr);

    /// The controllers, without those that have died.
    QList<ZelViewController *> childViewControllers() const;
    void setChildViewControllers(const QList<ZelViewController *> &controllers);
    quint64 selectedChildViewControllerIndex() const { return m_selectedIndex; }
    void setSelectedChildViewControllerIndex(quint64 index);
    bool constraintSelectdView() const { return m_constraintSelectdView; }
    void setConstraintSelectdView(bool constraint);
    const QList<ZelLayoutConstraint::Ptr> &containerConstraints() const { return m_containerConstraints; }
    void setContainerConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);

    /// Replaces the content of the container by the views of all controllers.
    void updateChildViews();
    /// Hides all views but the selected one. A view that has no parent yet is shown when it gets one.
    void updateSelectedChildView();

    void viewDidInstall() override;
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
    QList<QPointer<QWidget>> m_takenViews; // the controllers' views that were added
    QList<ZelLayoutConstraint::Ptr> m_containerConstraints;
    quint64 m_selectedIndex = 0;
    bool m_constraintSelectdView = false;
};
