// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/ZelInspectorContainer.h"
#include "Platform/Runtime/ZelAbstractValueTransformer.h"

/// A container that a condition hides and shows.
///
/// Without a key path `visible` is what it is set to. With one it is true only where the owner's value at the key path,
/// transformed if there is a transformer, is present, no selection marker, and true: a selection whose objects disagree
/// hides the container. The view, once it is loaded, is hidden while the container is not visible.
class ZelInspectorConditionalContainer : public ZelInspectorContainer
{
    Q_OBJECT
    /// True by default.
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible NOTIFY visibleChanged)
    /// Null by default: no condition.
    Q_PROPERTY(QString visibleKeyPath READ visibleKeyPath WRITE setVisibleKeyPath NOTIFY visibleKeyPathChanged)
    Q_PROPERTY(ZelValueTransformerPtr visibleValueTransformer READ visibleValueTransformer WRITE
                   setVisibleValueTransformer NOTIFY visibleValueTransformerChanged)
public:
    ~ZelInspectorConditionalContainer() override;

    bool isVisible() const { return m_visible; }
    void setVisible(bool visible);
    const QString &visibleKeyPath() const { return m_visibleKeyPath; }
    void setVisibleKeyPath(const QString &keyPath);
    const ZelValueTransformerPtr &visibleValueTransformer() const { return m_visibleValueTransformer; }
    void setVisibleValueTransformer(const ZelValueTransformerPtr &transformer);

    /// Evaluates the condition, if there is one.
    void updateVisible();
    /// Evaluates the condition now and at every change, until unbindAndTearDown.
    void bindAndConfigure();
    void unbindAndTearDown();

    void viewDidLoad() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;

Q_SIGNALS:
    void visibleChanged();
    void visibleKeyPathChanged();
    void visibleValueTransformerChanged();

protected:
    /// When the condition is observed: a container that decides whether views are made at all cannot wait for its own.
    enum class Observes { WhileInstalled, ForLife };
    ZelInspectorConditionalContainer(QObject *owner, Observes observes);

private:
    void updateHidden();

    QString m_visibleKeyPath;
    ZelValueTransformerPtr m_visibleValueTransformer;
    Observes m_observes;
    bool m_visible = true;
    bool m_bound = false;
};
