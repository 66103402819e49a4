// SPDX-License-Identifier: MIT
#pragma once

#include "ColorPopUpButton/ZelColorPopUpButton.h"
#include "Controls/ZelLabel.h"
#include "Core/ZelExport.h"
#include "Inspector/Properties/ZelInspectorProperty.h"

/// Edits a colour with a colour pop-up button.
///
/// The model may hold ZelColors or QColors; a colour is replaced by one of its own class, whatever was chosen. An
/// object without a colour gets one of the class that the other selected objects' colours have. If none of them has a
/// colour, it is a ZelColor if the property is of that type, and else a QColor.
class ZEL_EXPORT ZelInspectorColorProperty : public ZelInspectorProperty
{
    Q_OBJECT
    Q_PROPERTY(ZelColorListPtr colorList MEMBER colorList)
    Q_PROPERTY(ZelColor defaultColor MEMBER defaultColor)
    Q_PROPERTY(bool showsAlpha MEMBER showsAlpha)
    Q_PROPERTY(ZelColor defaultColorForNil MEMBER defaultColorForNil)
    Q_PROPERTY(QString defaultColorKeyPath MEMBER defaultColorKeyPath)
    Q_PROPERTY(bool popup MEMBER popup)
    Q_PROPERTY(bool supportsNil MEMBER supportsNil)
    Q_PROPERTY(ZelColorPopUpButton *popUpButton MEMBER m_popUpButton)
    Q_PROPERTY(ZelLabel *label MEMBER m_label)
public:
    explicit ZelInspectorColorProperty(QObject *owner);
    ~ZelInspectorColorProperty() override;

    ZelColorListPtr colorList; ///< by default the list named "System"
    ZelColor defaultColor;     ///< an invalid one stands for the button's own
    bool showsAlpha = true;    ///< whether the colour panel offers an opacity; without it, it gives opaque colours
    // These are kept for the application's own editors.
    ZelColor defaultColorForNil;
    QString defaultColorKeyPath;
    bool popup = false;
    bool supportsNil = false;

    ZelColorPopUpButton *popUpButton() const { return m_popUpButton; }
    ZelLabel *label() const { return m_label; }

    /// The name of the colour or, without one, the colour in the form "#rrggbb".
    QString textForValue(const QVariant &value) const override;

    void configure(const ZelInspectorConfiguration &configuration) override;
    void loadView() override;
    void viewDidInstall() override;
    void viewWillUninstall() override;
    void updateView() override;
    void userDidChangeValue(QObject *sender) override;
    QWidget *viewForBaselineAlignment() override;

protected:
    QMetaType valueType() const override { return QMetaType::fromType<QColor>(); }

private:
    void writeColor(const ZelColor &color);

    QPointer<ZelColorPopUpButton> m_popUpButton;
    QPointer<ZelLabel> m_label;
};
