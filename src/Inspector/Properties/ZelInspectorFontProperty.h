// SPDX-License-Identifier: MIT
#pragma once

#include "ActionBar/ZelActionBarButton.h"
#include "Controls/Fields/ZelPaddedTextField.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/ZelLabel.h"
#include "Controls/ZelPopover.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelFontPopoverView.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

#include <QFont>

/// Edits a font: describes it by family, face and size, changes the size with a stepper, and the rest in a popover.
///
/// The value of the model is a QFont; any other value, or none, is no font. The font is written as a whole: where
/// several fonts are selected, all become the same.
class ZEL_EXPORT ZelInspectorFontProperty : public ZelInspectorProperty
{
    Q_OBJECT
    /// The size of the font in its own unit, points or pixels; a selection marker if there is no single font, and
    /// absent if there is none. Setting it changes the size of the font; if there is no single font, it writes the
    /// system font of that size, and a ZelNumberChange gives each font a size made from its own. A value that is no
    /// positive number changes nothing.
    Q_PROPERTY(QVariant fontSize READ fontSize WRITE setFontSize NOTIFY fontSizeChanged)
    Q_PROPERTY(QString placeholder MEMBER placeholder)
    Q_PROPERTY(ZelPaddedTextField *textField MEMBER m_textField)
    Q_PROPERTY(ZelActionBarButton *button MEMBER m_button)
    Q_PROPERTY(ZelStepper *stepper MEMBER m_stepper)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
    // The popover and what is in it; null before the view is loaded.
    Q_PROPERTY(ZelPopover *popover READ popover STORED false)
    Q_PROPERTY(ZelPopUpButton *fontPopUpButton READ fontPopUpButton STORED false)
    Q_PROPERTY(ZelPopUpButton *fontFamilyPopUpButton READ fontFamilyPopUpButton STORED false)
    Q_PROPERTY(ZelPopUpButton *fontStylePopUpButton READ fontStylePopUpButton STORED false)
    Q_PROPERTY(ZelTextField *fontSizeTextField READ fontSizeTextField STORED false)
    Q_PROPERTY(ZelStepper *fontSizeStepper READ fontSizeStepper STORED false)
    Q_PROPERTY(ZelMenuItem *multipleFontFamiliesMenuItem READ multipleFontFamiliesMenuItem STORED false)
    Q_PROPERTY(ZelMenuItem *noSelectionFontFamiliesMenuItem READ noSelectionFontFamiliesMenuItem STORED false)
    Q_PROPERTY(ZelMenuItem *multipleFontFacesMenuItem READ multipleFontFacesMenuItem STORED false)
    Q_PROPERTY(ZelMenuItem *noSelectionFontFacesMenuItem READ noSelectionFontFacesMenuItem STORED false)
    Q_PROPERTY(QStringList fontFamilies READ fontFamilies STORED false)
    Q_PROPERTY(QStringList fontFaces READ fontFaces STORED false)
public:
    explicit ZelInspectorFontProperty(QObject *owner);
    ~ZelInspectorFontProperty() override;

    QString placeholder; ///< shown without a font, where the text is "No Font" otherwise
    ZelPaddedTextField *textField() const { return m_textField; }
    ZelActionBarButton *button() const { return m_button; }
    ZelStepper *stepper() const { return m_stepper; }
    ZelLabel *label() const { return m_label; }
    /// Made when it is first asked for or shown; null before the view is loaded.
    ZelPopover *popover();
    /// The content of the popover.
    ZelFontPopoverView *popoverView();
    // The parts of the content; null if there is none.
    ZelPopUpButton *fontPopUpButton() { return part(&ZelFontPopoverView::fontPopUpButton); }
    ZelPopUpButton *fontFamilyPopUpButton() { return part(&ZelFontPopoverView::fontFamilyPopUpButton); }
    ZelPopUpButton *fontStylePopUpButton() { return part(&ZelFontPopoverView::fontStylePopUpButton); }
    ZelTextField *fontSizeTextField() { return part(&ZelFontPopoverView::fontSizeTextField); }
    ZelStepper *fontSizeStepper() { return part(&ZelFontPopoverView::fontSizeStepper); }
    ZelMenuItem *multipleFontFamiliesMenuItem() { return part(&ZelFontPopoverView::multipleFontFamiliesMenuItem); }
    ZelMenuItem *noSelectionFontFamiliesMenuItem()
    {
        return part(&ZelFontPopoverView::noSelectionFontFamiliesMenuItem);
    }
    ZelMenuItem *multipleFontFacesMenuItem() { return part(&ZelFontPopoverView::multipleFontFacesMenuItem); }
    ZelMenuItem *noSelectionFontFacesMenuItem() { return part(&ZelFontPopoverView::noSelectionFontFacesMenuItem); }
    QStringList fontFamilies();
    QStringList fontFaces();

    QVariant fontSize() const;
    void setFontSize(const QVariant &size);

    // What the controls do
    Q_INVOKABLE void selectPopover(QObject *sender);
    /// Writes the font that is selected in the popover; nothing for "Custom".
    Q_INVOKABLE void selectFont(QObject *sender);
    Q_INVOKABLE void selectFontFamily(QObject *sender);
    Q_INVOKABLE void selectFontFace(QObject *sender);
    Q_INVOKABLE void selectDone(QObject *sender);

    /// Takes what is being typed into the popover.
    bool commitEditing() override;
    void discardEditing() override;
    void configure(const ZelInspectorConfiguration &configuration) override;
    /// Family, face and size.
    QString textForValue(const QVariant &value) const override;

    QStringList searchTexts() const override;
    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    QWidget *viewForBaselineAlignment() override;

Q_SIGNALS:
    void fontSizeChanged();

protected:
    QMetaType valueType() const override { return QMetaType::fromType<QFont>(); }
    bool contains(const QWidget *control) const override;
    /// Gives each object's font a size made from its own.
    virtual void changeFontSizes(const ZelNumberChange &change);
    QString refusalOfPart(const QString &keyPath, const QVariant &value) const override;

private:
    template<typename Part> Part *part(Part *(ZelFontPopoverView::*get)() const)
    {
        const ZelFontPopoverView *content = popoverView();
        return content ? (content->*get)() : nullptr;
    }
    void makePopover();
    void connectPopoverView();
    void showValueInPopover();
    ZelPopUpButton::ItemMarks marksOfUsed(const ZelPopUpButton *button, QString (*nameOf)(const QFont &)) const;
    void selectCustomFont();
    void layOut(ZelView *container);
    static QString description(const QFont &font);
    static QString selectedName(const ZelPopUpButton *button);
    qsizetype objectCount() const;
    QString refusalOfSize(const QVariant &size) const;
    void writeFont(const QFont &font, QObject *sender);
    QFont currentFont() const;

    QPointer<ZelPaddedTextField> m_textField;
    QPointer<ZelActionBarButton> m_button;
    QPointer<ZelStepper> m_stepper;
    QPointer<ZelLabel> m_label;
    QPointer<ZelPopover> m_popover;
    QPointer<ZelFontPopoverView> m_popoverView;
    QVariant m_platformFont; // the value after one of the desktop's fonts was chosen; absent for "Custom"
};
