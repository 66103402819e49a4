// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelTextField.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/Ranges/ZelStepper.h"
#include "Controls/ZelPushButton.h"
#include "Core/ZelExport.h"
#include "ViewController/ZelView.h"

class ZelMenuItem;

/// The rows in which a font is put together: one of the desktop's fonts, a family, a style and a size.
///
/// The items of the first menu have a number of ZelFontManager::PlatformFont as their represented object; the item
/// "Custom" has none. The menus of families and styles end with hidden items that stand for several and for none.
class ZEL_EXPORT ZelFontPopoverView : public ZelView
{
    Q_OBJECT
public:
    explicit ZelFontPopoverView(QWidget *parent = nullptr);

    ZelPopUpButton *fontPopUpButton() const { return m_font; }
    ZelPopUpButton *fontFamilyPopUpButton() const { return m_family; }
    ZelPopUpButton *fontStylePopUpButton() const { return m_style; }
    ZelTextField *fontSizeTextField() const { return m_size; }
    ZelStepper *fontSizeStepper() const { return m_stepper; }
    ZelPushButton *doneButton() const { return m_done; }
    ZelMenuItem *multipleFontFamiliesMenuItem() const { return m_multipleFamilies; }
    ZelMenuItem *noSelectionFontFamiliesMenuItem() const { return m_noFamily; }
    ZelMenuItem *multipleFontFacesMenuItem() const { return m_multipleFaces; }
    ZelMenuItem *noSelectionFontFacesMenuItem() const { return m_noFace; }

    const QStringList &fontFamilies() const { return m_fontFamilies; }
    const QStringList &fontFaces() const { return m_fontFaces; }
    /// Fills the menu of styles.
    void setFontFaces(const QStringList &faces);
    /// Selects "Custom", the item of the first menu that stands for none of the desktop's fonts.
    void selectCustom();
    /// Enables the controls for family, style and size.
    void setDetailsEnabled(bool enabled);
    /// Selects the family's and the style's items, or those for none.
    void selectFamilyAndFace(const QString &family, const QString &face);
    /// Shows that there are several families and several styles.
    void selectMultiple();

private:
    void addFonts();
    void addFamilies();
    void layOut();
    void addRow(const QString &title, QWidget *control);

    ZelPopUpButton *m_font;
    ZelPopUpButton *m_family;
    ZelPopUpButton *m_style;
    ZelTextField *m_size;
    ZelStepper *m_stepper;
    ZelPushButton *m_done;
    ZelMenuItem *m_multipleFamilies;
    ZelMenuItem *m_noFamily;
    ZelMenuItem *m_multipleFaces;
    ZelMenuItem *m_noFace;
    QStringList m_fontFamilies;
    QStringList m_fontFaces;
};
