// SPDX-License-Identifier: MIT
#pragma once

#include "ActionBar/ZelActionBarItem.h"
#include "ViewController/ZelView.h"

#include <QList>
#include <memory>

class ZelActionBarButton;
class ZelDelayedInvocation;
class ZelDelayedValidation;

/// A thin row of small controls without borders, one for each item, such as those below a list.
///
/// The controls follow the items while the bar is installed. A click sends the item's action, the control as the
/// sender, in one undo grouping. A tenth of a second after the user has done anything, the items that autovalidate are
/// enabled as the receivers of their actions say (see ZelActionTarget). Items without a parent become the bar's
/// children; null pointers among them are left out.
///
/// The buttons take the focus by the Tab key only: a click leaves it where the receiver of the action is looked for.
class ZelActionBar : public ZelView
{
    Q_OBJECT
    /// From left to right.
    Q_PROPERTY(QList<ZelActionBarItem *> items READ items WRITE setItems NOTIFY itemsChanged)
    /// Space around the row, in points.
    Q_PROPERTY(QMarginsF edgeInsets READ edgeInsets WRITE setEdgeInsets NOTIFY edgeInsetsChanged)
    /// The look of the bar and its separators: 0, the default, is a strip with a hairline above it, 1 the same to stand
    /// inside a border; any other value has no background.
    Q_PROPERTY(quint32 style READ style WRITE setStyle NOTIFY styleChanged)
    /// The controls, one for each item, in their order. They are renewed when an item becomes another thing. Others
    /// that are set stand until then.
    Q_PROPERTY(QList<QWidget *> itemViews READ itemViews WRITE setItemViews NOTIFY itemViewsChanged)
    /// The constraints of the present row. Others that are set stand until the next update.
    Q_PROPERTY(QList<ZelLayoutConstraint::Ptr> stackConstraints READ stackConstraints WRITE setStackConstraints NOTIFY
                   stackConstraintsChanged)
    Q_PROPERTY(ZelDelayedInvocation *validateItemsInvocation READ validateItemsInvocationPointer CONSTANT)
    Q_MOC_INCLUDE("Observation/ZelDelayedInvocation.h")
public:
    explicit ZelActionBar(QWidget *parent = nullptr);
    explicit ZelActionBar(const ZelKeyedCoder &coder, QWidget *parent = nullptr);
    ~ZelActionBar() override;

    /// Items that have died meanwhile are left out.
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

    /// Makes the controls anew from the items.
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
    QList<QPointer<QWidget>> m_madeViews; // those that the bar has made itself
    std::unique_ptr<ZelDelayedValidation> m_validation;
    quint32 m_style = 0;
};
