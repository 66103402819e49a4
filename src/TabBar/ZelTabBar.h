// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelWeakInterface.h"
#include "Core/ZelExport.h"
#include "TabBar/ZelBar.h"
#include "TabBar/ZelButtonMatrix.h"
#include "TabBar/ZelTabBarDelegate.h"
#include "TabBar/ZelTabBarItem.h"

#include <QHash>
#include <QList>
#include <QSharedPointer>

class QShortcut;
class ZelBlockObservation;

/// A row of image buttons, one for each item. Exactly one of them is selected.
///
/// The buttons follow the items while the bar is installed. Items without a parent become the bar's children. Null
/// pointers among the items are ignored.
///
/// Several items may have the same key equivalent, which selects the first of them that is enabled. The arrow keys,
/// Home and End select while the bar has the focus.
class ZEL_EXPORT ZelTabBar : public ZelBar
{
    Q_OBJECT
    Q_PROPERTY(QList<ZelTabBarItem *> items READ items WRITE setItems NOTIFY itemsChanged)
    /// If the selected item is not among the items when the buttons are made, the first item becomes the selected one.
    Q_PROPERTY(ZelTabBarItem *selectedItem READ selectedItem WRITE setSelectedItem NOTIFY selectedItemChanged)
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(ZelTabBarDelegate *delegate READ delegate WRITE setDelegate NOTIFY delegateChanged)
    Q_PROPERTY(ZelButtonMatrix *matrix READ matrix CONSTANT)
public:
    explicit ZelTabBar(QWidget *parent = nullptr);
    explicit ZelTabBar(const ZelKeyedCoder &coder, QWidget *parent = nullptr);
    ~ZelTabBar() override;

    /// The items, without those that have died.
    QList<ZelTabBarItem *> items() const;
    void setItems(const QList<ZelTabBarItem *> &items);
    ZelTabBarItem *selectedItem() const { return m_selectedItem; }
    void setSelectedItem(ZelTabBarItem *item);
    /// The bar does not own the delegate. Only a delegate that is a QObject may die before the bar.
    ZelTabBarDelegate *delegate() const;
    void setDelegate(ZelTabBarDelegate *delegate);
    ZelButtonMatrix *matrix() const { return m_matrix; }

    /// Selects the item of the matrix's selected column if the delegate agrees.
    void selectBarButton(QObject *sender);
    /// Makes new buttons for the items.
    void updateButtons();
    /// Selects the button of the selected item.
    void updateButtonState();
    /// Makes new buttons in the present style.
    void updateButtonStyle();
    /// Places the buttons in the middle of the bar.
    void adjustSubviews();
    /// Makes the buttons follow the item's displayed properties. The bar does this by itself while it is installed.
    void startObservationOfItem(ZelTabBarItem *item);
    void stopObservationOfItem(ZelTabBarItem *item);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void layoutSubviews() override;

Q_SIGNALS:
    void itemsChanged();
    void selectedItemChanged();
    void enabledChanged();
    void delegateChanged();

protected:
    ZelView *newInstance() const override { return new ZelTabBar; }
    void changeEvent(QEvent *event) override;

private:
    struct ItemObservation
    {
        QList<QSharedPointer<ZelBlockObservation>> keys;
        QMetaObject::Connection count;
        QMetaObject::Connection end;
    };
    void setUp();
    void itemsDidChange();
    void itemWasDestroyed(ZelTabBarItem *item);
    void updateCount(ZelTabBarItem *item);
    void updateShortcuts();
    void selectFirstEnabledItem(const QKeySequence &sequence);

    QList<QPointer<ZelTabBarItem>> m_items;
    QPointer<ZelTabBarItem> m_selectedItem;
    ZelWeakInterface<ZelTabBarDelegate> m_delegate;
    QPointer<ZelButtonMatrix> m_matrix;
    QList<QShortcut *> m_shortcuts;
    // Kept here and not with the items, which may die first.
    QHash<ZelTabBarItem *, ItemObservation> m_itemObservations;
};
