// SPDX-License-Identifier: MIT
#pragma once

#include "ActionBar/ZelActionBarItem.h"
#include "Core/ZelExport.h"
#include "ViewController/ZelView.h"

#include <QList>
#include <memory>

class ZelActionBarButton;
class ZelDelayedInvocation;
class ZelDelayedValidation;

/// A thin row of small controls without borders, one for each item, for instance below a list.
///
/// The controls follow the items while the bar is installed. A click sends the item's action with the control as the
/// sender, in one undo grouping. A tenth of a second after any event of the user, the bar asks the receivers of the
/// actions and enables or disables the items that autovalidate (see ZelActionTarget). Items without a parent become the
/// bar's children. Null pointers among the items are ignored.
///
/// The buttons take the focus by the Tab key only: the search for the receiver of an action begins at the focus, which
/// a click must not move.
class ZEL_EXPORT ZelActionBar : public ZelView
{
    Q_OBJECT
    /// From left to right.
    Q_PROPERTY(QList<ZelActionBarItem *> items READ items WRITE setItems NOTIFY itemsChanged)
    /// The space around the row, in points.
    Q_PROPERTY(QMarginsF edgeInsets READ edgeInsets WRITE setEdgeInsets NOTIFY edgeInsetsChanged)
    /// The look of the bar and its separators: 0, the default, is a strip with a hairline above it; 1 is the same for a
    /// bar inside a border; any other value has no background.
    Q_PROPERTY(quint32 style READ style WRITE setStyle NOTIFY styleChanged)
    /// The controls, one for each item, in their order. They are made again when the items change or an item changes
    /// its type, target, action, menu or view. What is set here is replaced then.
    Q_PROPERTY(QList<QWidget *> itemViews READ itemViews WRITE setItemViews NOTIFY itemViewsChanged)
    /// The constraints of the present row. What is set here is replaced by the next update.
    Q_PROPERTY(QList<ZelLayoutConstraint::Ptr> stackConstraints READ stackConstraints WRITE setStackConstraints NOTIFY
                   stackConstraintsChanged)
    Q_PROPERTY(ZelDelayedInvocation *validateItemsInvocation READ validateItemsInvocationPointer CONSTANT)
    Q_MOC_INCLUDE("Observation/ZelDelayedInvocation.h")
public:
    explicit ZelActionBar(QWidget *parent = nullptr);
    explicit ZelActionBar(const ZelKeyedCoder &coder, QWidget *parent = nullptr);
    ~ZelActionBar() override;

    /// The items, without those that have died.
    QList<ZelActionBarItem *> items() const;
    void setItems(const QList<ZelActionBarItem *> &items);
    const QMarginsF &edgeInsets() const { return m_edgeInsets; }
    void setEdgeInsets(const QMarginsF &insets);
    quint32 style() const { return m_style; }
    void setStyle(quint32 style);

    QList<QWidget *> itemViews() const { return subviews(); }
    void setItemViews(const QList<QWidget *> &views);
    const QList<ZelLayoutConstraint::Ptr> &stackConstraints() const { return m_stackConstraints; }
    void setStackConstraints(const QList<ZelLayoutConstraint::Ptr> &constraints);
    ZelDelayedInvocation &validateItemsInvocation();

    /// Makes new controls for the items.
    void updateItemViews();
    /// Enables or disables the items that autovalidate.
    void validateItems();

    void updateConstraints() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void drawRect(QPainter &painter, const QRect &dirtyRect) override;
    bool drawsContent() const override { return true; }

Q_SIGNALS:
    void itemsChanged();
    void edgeInsetsChanged();
    void styleChanged();
    void itemViewsChanged();
    void stackConstraintsChanged();

protected:
    ZelView *newInstance() const override { return new ZelActionBar; }

private:
    ZelDelayedInvocation *validateItemsInvocationPointer() { return &validateItemsInvocation(); }
    QWidget *makeItemView(ZelActionBarItem *item);
    ZelActionBarButton *makeButton(ZelActionBarItem *item);
    void bindButton(ZelActionBarButton *button, ZelActionBarItem *item);
    void observeItem(ZelActionBarItem *item);
    void leaveItems();
    void itemWasDestroyed();
    QList<ZelLayoutConstraint::Ptr> constraintsOfItem(QWidget *view, const ZelActionBarItem *item);

    QList<QPointer<ZelActionBarItem>> m_items;
    QMarginsF m_edgeInsets;
    QList<ZelLayoutConstraint::Ptr> m_stackConstraints;
    QList<QPointer<QWidget>> m_madeViews; // the controls that the bar has made itself
    std::unique_ptr<ZelDelayedValidation> m_validation;
    quint32 m_style = 0;
};
