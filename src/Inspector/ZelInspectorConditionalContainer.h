// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Values/ZelAbstractValueTransformer.h"
#include "Core/ZelExport.h"
#include "Inspector/ZelInspectorContainer.h"

#include <memory>

class ZelRowBlock;

/// A container that a condition hides and shows.
///
/// Without a key path, `visible` is what it is set to. With one, it is true only if the owner's value at the key path,
/// transformed if there is a transformer, is present, is no selection marker, and is true. A selection whose objects
/// disagree therefore hides the container. The view, once it is loaded, is hidden while the container is not visible,
/// and while a filter leaves the container out.
class ZEL_EXPORT ZelInspectorConditionalContainer : public ZelInspectorContainer
{
    Q_OBJECT
    /// True by default.
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible NOTIFY visibleChanged)
    /// Null by default, which means that there is no condition.
    Q_PROPERTY(QString visibleKeyPath READ visibleKeyPath WRITE setVisibleKeyPath NOTIFY visibleKeyPathChanged)
    Q_PROPERTY(ZelValueTransformerPtr visibleValueTransformer READ visibleValueTransformer WRITE
                   setVisibleValueTransformer NOTIFY visibleValueTransformerChanged)
public:
    ~ZelInspectorConditionalContainer() override;

    bool isVisible() const { return m_visible; }
    void setVisible(bool visible);
    const QString &visibleKeyPath() const;
    void setVisibleKeyPath(const QString &keyPath);
    const ZelValueTransformerPtr &visibleValueTransformer() const;
    void setVisibleValueTransformer(const ZelValueTransformerPtr &transformer);

    /// Whether a filter, such as the find field of a tabbed inspector, leaves the container out; false by default. It
    /// hides the view, and changes nothing about `visible`.
    bool isFilteredOut() const { return m_isFilteredOut; }
    void setFilteredOut(bool filteredOut);
    /// Whether neither the condition nor a filter hides the view.
    bool isShown() const { return m_visible && !m_isFilteredOut; }

    /// Whether the container is a row of a large panel (see ZelInspectorSection) that gets its view when it comes into
    /// sight, or when somebody asks for it.
    bool awaitsSight() const { return m_block && !isViewLoaded(); }

    /// Evaluates the condition, if there is one.
    void updateVisible();
    /// Evaluates the condition now and at every change, until unbindAndTearDown is called.
    void bindAndConfigure();
    void unbindAndTearDown();

    // A row that waits until it comes into sight has nothing to refresh or to commit.
    void refresh() override;
    void prepareForReuse() override;
    bool commitEditing() override;
    void discardEditing() override;

    void viewDidLoad() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;

Q_SIGNALS:
    void visibleChanged();
    /// `isShown` answers something else.
    void shownChanged();
    void visibleKeyPathChanged();
    void visibleValueTransformerChanged();

protected:
    /// When the condition is observed. A container whose view is not made before it is visible observes for life, since
    /// it cannot wait until its view is installed.
    enum class Observes : bool { WhileInstalled, ForLife };
    ZelInspectorConditionalContainer(QObject *owner, Observes observes);

private:
    friend class ZelRowBlock;
    friend class ZelRowHeights;
    struct Condition; // which few rows have
    Condition &condition();
    void updateHidden();

    std::unique_ptr<Condition> m_condition;
    ZelRowBlock *m_block = nullptr; // what stands in for the view while it is not made
    Observes m_observes;
    bool m_visible = true;
    bool m_isFilteredOut = false;
    bool m_bound = false;
    quint32 m_kind = 0; // as ZelRowHeights knows it; 0 if it does not
};
