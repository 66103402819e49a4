// SPDX-License-Identifier: MIT
#pragma once

#include "ColorPopUpButton/ZelColorPopUpButton.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Platform/Controls/ZelLabel.h"

/// Edits a colour with a colour pop-up button.
///
/// The model may hold ZelColors or QColors: a QColor is replaced by a QColor, whatever it was that was chosen. Where
/// there was no colour, it becomes one of the class that the other selected objects' colours have, or else a QColor.
class ZelInspectorColorProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(ZelColorListPtr colorList MEMBER colorList)
    Q_PROPERTY(ZelColor defaultColor MEMBER defaultColor)
    Q_PROPERTY(ZelColor defaultColorForNil MEMBER defaultColorForNil)
    Q_PROPERTY(QString defaultColorKeyPath MEMBER defaultColorKeyPath)
    Q_PROPERTY(bool popup MEMBER popup)
    Q_PROPERTY(bool supportsNil MEMBER supportsNil)
    Q_PROPERTY(ZelColorPopUpButton *popUpButton MEMBER m_popUpButton)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
public:
    explicit ZelInspectorColorProperty(QObject *owner);
    ~ZelInspectorColorProperty() override;

    ZelColorListPtr colorList; ///< the list named "System"
    ZelColor defaultColor;     ///< none: the button's own
    // Kept for the application's own editors.
    ZelColor defaultColorForNil;
    QString defaultColorKeyPath;
    bool popup = false;
    bool supportsNil = false;

    ZelColorPopUpButton *popUpButton() const { return m_popUpButton; }
    ZelLabel *label() const { return m_label; }

    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;

private:
    void writeColor(const ZelColor &color);

    QPointer<ZelColorPopUpButton> m_popUpButton;
    QPointer<ZelLabel> m_label;
};
