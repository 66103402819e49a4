// SPDX-License-Identifier: MIT
#pragma once

#include "ActionBar/ZelActionBarButton.h"
#include "Inspector/Properties/ZelFontPopoverView.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Platform/Controls/ZelLabel.h"
#include "Platform/Controls/ZelPaddedTextField.h"
#include "Platform/Controls/ZelPopover.h"

#include <QFont>

/// Edits a font: describes it by family, face and size, changes the size with a stepper, and the rest in a popover.
///
/// The value of the model is a QFont; any other value, or none, is no font. The font is written as a whole: where
/// several fonts are selected, all become the same.
class ZelInspectorFontProperty : public ZelInspectorProperty
{
    Q_OBJECT
    /// The size of the font in its own unit, points or pixels; a selection marker where there is no single one, and
    /// absent where there is no font. Setting it changes the size of the font, or brings the system font of that size
    /// where there is no single font. What is no positive number changes nothing.
    Q_PROPERTY(QVariant fontSize READ fontSize WRITE setFontSize NOTIFY fontSizeChanged)
public:
    explicit ZelInspectorFontProperty(QObject *owner);
    ~ZelInspectorFontProperty() override;

    QString placeholder; ///< shown in the place of "No Font"
    ZelPaddedTextField *textField() const { return m_textField; }
    ZelActionBarButton *button() const { return m_button; }
    ZelStepper *stepper() const { return m_stepper; }
    ZelLabel *label() const { return m_label; }
    /// Made when it is first asked for or shown; null before the view is loaded.
    ZelPopover *popover();
    /// The content of the popover.
    ZelFontPopoverView *popoverView();
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
    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    QWidget *viewForBaselineAlignment() override;

Q_SIGNALS:
    void fontSizeChanged();

protected:
    bool contains(const QWidget *control) const override;

private:
    void makePopover();
    void connectPopoverView();
    void showValueInPopover();
    void layOut(ZelView *container);
    static QString description(const QFont &font);
    void writeFont(const QFont &font, QObject *sender);
    QFont currentFont() const;

    QPointer<ZelPaddedTextField> m_textField;
    QPointer<ZelActionBarButton> m_button;
    QPointer<ZelStepper> m_stepper;
    QPointer<ZelLabel> m_label;
    QPointer<ZelPopover> m_popover;
    QPointer<ZelFontPopoverView> m_popoverView;
};
