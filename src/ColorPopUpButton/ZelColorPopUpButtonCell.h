// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelControlSize.h"
#include "Platform/Resources/ZelColorList.h"

#include <QObject>
#include <QPointer>
#include <memory>

class QAction;
class ZelColorMenuItem;
class ZelColorMenuItemView;
class ZelColorPanel;
class ZelMenuItem;
class ZelPopUpButton;
class ZelUndoGrouping;

// Tags of the menu's items.
inline constexpr int ZelColorPopUpButtonDefaultColorTag = 9983242;
inline constexpr int ZelColorPopUpButtonCurrentColorTag = 4765386;
/// Of the first colour of the list; those behind it count on.
inline constexpr int ZelColorPopUpButtonColorsTag = 3462764;

/// Posted by a cell, as the object, when it takes over the colour panel.
extern const QString ZelColorPopUpButtonDidBecomeActiveNotification;

/// What a colour pop-up button does: its menu, its choice, and its link to the colour panel.
///
/// The menu offers the default colour, the current one, those used last, the colours of a list, and the colour panel.
/// Its items are made when they are first needed, the four fixed ones once. While the panel is open for this cell,
/// every move in it selects a colour and is reported, all moves of one drag as one undo step; the link ends when the
/// panel is closed, another cell takes it over, or the button dies. A button that is disabled or not editable does not
/// follow the panel.
///
/// Colours are compared as they look: one of the list and one of another colour space that shows the same are one
/// choice, as a model that holds QColors answers it. Named colours stand for themselves only. Titles are the localised
/// names in the first list that holds the colour (see ZelColorNameTransformer); a colour that no such list holds, or
/// that only looks like one, has the name of that in the button's own list.
class ZelColorPopUpButtonCell : public QObject
{
    Q_OBJECT
    Q_PROPERTY(ZelColorListPtr colorList READ colorList WRITE setColorList NOTIFY colorListChanged)
    Q_PROPERTY(QList<ZelColor> colors READ colors WRITE setColors NOTIFY colorsChanged)
    Q_PROPERTY(ZelColor defaultColor READ defaultColor WRITE setDefaultColor NOTIFY defaultColorChanged)
    Q_PROPERTY(QVariant selectedColor READ selectedColor WRITE setSelectedColor NOTIFY selectedColorChanged)
    Q_PROPERTY(bool showsAlpha READ showsAlpha WRITE setShowsAlpha NOTIFY showsAlphaChanged)
    /// False by default. Setting it opens the panel for this button, or ends the link to it.
    Q_PROPERTY(bool colorPanelActive READ isColorPanelActive WRITE setColorPanelActive NOTIFY colorPanelActiveChanged)
    /// A ZelControlSize::Size, small by default. Another one gives the button and its menu their font.
    Q_PROPERTY(quint32 controlSize READ controlSize WRITE setControlSize NOTIFY controlSizeChanged)
    // The items, made when they are first asked for, and then reused.
    Q_PROPERTY(ZelMenuItem *defaultMenuItem READ defaultMenuItem CONSTANT)
    Q_PROPERTY(ZelMenuItem *currentMenuItem READ currentMenuItem CONSTANT)
    Q_PROPERTY(ZelColorMenuItem *recentlyMenuItem READ recentlyMenuItem CONSTANT)
    Q_PROPERTY(ZelMenuItem *otherMenuItem READ otherMenuItem CONSTANT)
    Q_MOC_INCLUDE("ColorPopUpButton/ZelColorMenuItem.h")
    Q_MOC_INCLUDE("Platform/Controls/ZelMenuItem.h")
public:
    /// The cell belongs to its button.
    explicit ZelColorPopUpButtonCell(ZelPopUpButton *button);
    ~ZelColorPopUpButtonCell() override;

    /// The list named "Crayons". A null one is an assertion, "Wrong value".
    const ZelColorListPtr &colorList() const { return m_colorList; }
    void setColorList(const ZelColorListPtr &list);
    /// The list's colours, in its order.
    const QList<ZelColor> &colors() const { return m_colors; }
    void setColors(const QList<ZelColor> &colors);

    /// The clear colour. An invalid one is an assertion, "Wrong value".
    const ZelColor &defaultColor() const { return m_defaultColor; }
    void setDefaultColor(const ZelColor &color);

    /// A ZelColor, a selection marker, or absent, as it is by default. A QColor is taken as the ZelColor of it; any
    /// other value is an assertion, "Wrong value". Not reported as an edit.
    const QVariant &selectedColor() const { return m_selectedColor; }
    void setSelectedColor(const QVariant &color);

    /// Whether the panel lets users choose an opacity; false.
    bool showsAlpha() const { return m_showsAlpha; }
    void setShowsAlpha(bool shows);

    quint32 controlSize() const { return m_controlSize; }
    void setControlSize(quint32 size);

    /// The name of the selected colour or marker, as it stands on the button.
    QString title() const;
    /// The item that the button shows: title and swatch of the selected colour, in no menu.
    ZelMenuItem *displayItem() const { return m_displayItem; }

    // The items, made if need be.
    ZelMenuItem *defaultMenuItem();
    ZelMenuItem *currentMenuItem();
    ZelColorMenuItem *recentlyMenuItem();
    ZelMenuItem *otherMenuItem();
    /// The item that stands for the colour: of the default colour, of the list, or else "Current Color", which gets the
    /// colour's swatch.
    ZelMenuItem *menuItemForColor(const QVariant &color);
    /// Makes the items if they are not there yet, or not up to date.
    void makeMenu();

    void updateColors();
    void updateMenu();
    void updateTitle();
    void updateDefaultMenuItem();
    void upateSelectedMenuItem();

    bool isColorPanelActive() const { return m_isColorPanelActive; }
    void setColorPanelActive(bool active) { active ? activateColorPanel() : deactivateColorPanel(); }
    /// Opens the colour panel for this button. Takes it away from any other client.
    void activateColorPanel();
    void deactivateColorPanel();
    // What the panel and other cells tell.
    /// Takes over the panel's colour and reports it.
    void colorPanelDidChange();
    void colorPanelWillClose() { deactivateColorPanel(); }
    void colorPopUpButtonDidBecomeActive() { deactivateColorPanel(); }

    // What the items do.
    void selectDefaultColor();
    void selectCurrentColor();
    void selectRecentlyUsedColor(const ZelColorMenuItemView *sender);
    void selectColor(const QObject *sender);
    void selectOtherColor();

Q_SIGNALS:
    void colorListChanged();
    void colorsChanged();
    void defaultColorChanged();
    void selectedColorChanged();
    void showsAlphaChanged();
    void colorPanelActiveChanged();
    void controlSizeChanged();

private:
    void makeFixedItems();
    template<typename Choice> void connectItem(QAction *item, Choice choice);
    ZelMenuItem *makeColorItem(int index);
    QString nameOf(const QVariant &color) const;
    QString nameInList(const ZelColor &color) const;
    bool isDefault(const QVariant &color) const;
    int indexOfColor(const ZelColor &color) const;
    void showColors();
    void takeChoice(QVariant color, QAction *item);
    void showInPanel();
    void endDrag();

    ZelPopUpButton *m_button;
    ZelMenuItem *m_displayItem;
    ZelMenuItem *m_defaultMenuItem = nullptr;
    ZelMenuItem *m_currentMenuItem = nullptr;
    ZelColorMenuItem *m_recentlyMenuItem = nullptr;
    ZelMenuItem *m_otherMenuItem = nullptr;
    QList<ZelMenuItem *> m_colorItems;
    QList<QAction *> m_separators;

    ZelColorListPtr m_colorList;
    QList<ZelColor> m_colors;
    ZelColor m_defaultColor{QColor(Qt::transparent)};
    QVariant m_selectedColor;
    QPointer<ZelColorPanel> m_panel;
    std::unique_ptr<ZelUndoGrouping> m_dragGrouping;
    quint32 m_controlSize = ZelControlSize::Small;
    bool m_isMenuMade = false;
    bool m_showsAlpha = false;
    bool m_isColorPanelActive = false;
};
