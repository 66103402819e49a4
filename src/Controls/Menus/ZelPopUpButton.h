// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeptValue.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "Layout/ZelBaselineProvider.h"

#include <QElapsedTimer>
#include <QHash>
#include <QPointer>
#include <QVariant>
#include <QWidget>

#include <functional>

class QAction;
class QStyleOptionComboBox;
class ZelMenuItem;
class ZelPopUpMenu;

/// A button that opens a menu of its items.
///
/// A pop-up shows the selected item; the user's choice selects another one and is reported. A pull-down shows the first
/// item as its title and the others in its menu; a chosen item is triggered like any action.
///
/// The items are the widget's actions(): they may be ZelMenuItems or any other QActions and may belong to anybody. An
/// item that is destroyed leaves the button. Nothing is selected until selectItem or setObjectValue says so. The menu
/// is made when it opens and follows changes of the items while it is open.
class ZEL_EXPORT ZelPopUpButton : public ZelGuarded<QWidget>, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelBaselineProvider)
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(int selectedIndex READ selectedIndex WRITE setSelectedIndex NOTIFY selectedItemChanged)
    Q_PROPERTY(bool pullsDown READ pullsDown WRITE setPullsDown)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
    Q_PROPERTY(double baselineOffset READ baselineOffset)
public:
    explicit ZelPopUpButton(QWidget *parent = nullptr);
    ~ZelPopUpButton() override;

    QList<QAction *> items() const { return actions(); }
    /// Replaces the items. The selected item stays selected if it is among the new ones. Former items that are children
    /// of the button are deleted in the next turn of the event loop.
    void setItems(const QList<QAction *> &items);
    void addItem(QAction *item) { addAction(item); }
    /// Adds a new item that belongs to the button.
    ZelMenuItem *addItemWithTitle(const QString &title, const QVariant &representedObject = {});
    void removeAllItems() { setItems({}); }
    /// The first item whose represented object (its data) is equal to the value; null if there is none. Separators do
    /// not count.
    QAction *itemForRepresentedObject(const QVariant &value) const;

    QAction *selectedItem() const { return m_selected; }
    /// Selects an item of the button. Null, a separator or an action that is not among the items deselects.
    void selectItem(QAction *item);
    int selectedIndex() const;
    /// An index out of range deselects.
    void setSelectedIndex(int index);

    /// The value that was set, or the represented object of the item if one was selected since.
    QVariant objectValue() const { return m_value.value(); }
    /// Selects the item that stands for the value, now or when it is added. Without such an item a selection marker is
    /// shown by its name, and any other value is not shown.
    void setObjectValue(const QVariant &value);

    bool pullsDown() const { return m_pullsDown; }
    void setPullsDown(bool pullsDown);

    /// Whether users may choose; true by default. If not, the button looks disabled.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);

    /// Marks of items beside that of the selected one.
    using ItemMarks = QHash<const QAction *, Qt::CheckState>;
    /// Sets what is asked for marks whenever the menu opens while the value is ZelMultipleValuesMarker, and in any case
    /// by a pull-down: an item whose
    /// value some of the edited objects have is partially checked and gets a dash, one whose value all have is checked.
    void setItemMarks(const std::function<ItemMarks()> &marks) { m_marks = marks; }

    /// Opens the menu over the button. Does nothing if there is no item to show.
    void showMenu();
    bool isMenuOpen() const;
    /// The text on the button.
    QString shownText() const;
    /// The text for users who cannot see the button; by default the text on it.
    virtual QString spokenText() const { return shownText(); }

    /// The distance of the baseline from the top, at the present height or the given one.
    double baselineOffset() const { return baselineOffsetForHeight(height()); }
    double baselineOffsetForHeight(double height) const override;

    /// Leaves room for the widest item.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void objectValueChanged();
    void selectedItemChanged();
    void editableChanged();
    /// The user has chosen another item.
    void valueEdited();
    /// The user has chosen an item, the selected one included. Sent after valueEdited, and after the item's triggered.
    void action();

protected:
    /// The item whose title and image are on the button. If null, the button shows the name of the selection marker or
    /// nothing.
    virtual QAction *shownItem() const;
    /// Called before the user can see or reach the items. An override makes the items that do not exist yet.
    virtual void prepareItems() {}
    /// The items of the open menu: those of the button, of which the first is left out where it stands for the others.
    /// An override may add further ones, which cannot be selected, and to which only the menu leads.
    virtual QList<QAction *> menuItems();
    /// Whether arrow keys, the wheel and typed letters lead to the item.
    virtual bool canStepTo(const QAction *item) const;
    /// Takes the user's choice, after the item was triggered: selects the item and reports.
    virtual void chooseItem(QAction *item);
    /// The size that the button needs around a text of the given width.
    QSize sizeForTextWidth(int width) const;

    void actionEvent(QActionEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool handleEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void initStyleOption(QStyleOptionComboBox *option) const;
    ItemMarks itemMarks() const;
    bool survivesPreparingItems();
    void setSelected(QAction *item, const QVariant &value);
    void chooseNeighbour(int from, int direction);
    bool isTyping() const;
    bool typeAhead(QKeyEvent *event);
    QAction *itemForStoredValue() const;
    void detachMenu();
    void syncMenu();

    QPointer<QAction> m_selected;
    QPointer<ZelPopUpMenu> m_menu;
    std::function<ItemMarks()> m_marks;
    ZelKeptValue m_value;
    QString m_typed;
    QElapsedTimer m_typedTimer;
    int m_wheelAngle = 0;
    bool m_pullsDown = false;
    bool m_editable = true;
    bool m_replacingItems = false;
    bool m_menuIsStale = false;
    mutable QSize m_sizeHint;
};
