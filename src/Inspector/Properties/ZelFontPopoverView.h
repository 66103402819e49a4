// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelPopUpButton.h"
#include "Platform/Controls/ZelPushButton.h"
#include "Platform/Controls/ZelStepper.h"
#include "Platform/Controls/ZelTextField.h"
#include "ViewController/ZelView.h"

class ZelMenuItem;

/// The rows in which a font is put together: one of the desktop's fonts, a family, a style and a size.
///
/// Each font of the first menu is the represented object of its item, a number of ZelFontManager::PlatformFont; none
/// stands for "Custom". Families and styles are followed by hidden items for several of them and for none.
class ZelFontPopoverView : public ZelView
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
    /// The item of the first menu that stands for no font of its own.
    void selectCustom();
    /// Whether a font can be put together.
    void setDetailsEnabled(bool enabled);
    /// Selects the family's and the style's items, or those for none.
    void selectFamilyAndFace(const QString &family, const QString &face);
    /// Shows that there are several of both.
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
