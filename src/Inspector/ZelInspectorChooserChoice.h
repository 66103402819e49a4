// SPDX-License-Identifier: MIT
#pragma once

#include "Core/KeyValue/ZelKeptValue.h"
#include "Core/ZelExport.h"
#include "Inspector/ZelInspectorConditionalContainer.h"

#include <QIcon>
#include <QVariant>

/// One choice of a chooser: an item of its pop-up, and the rows and choosers shown while it is chosen.
///
/// Later changes of the properties do not show: those of the item are read when the chooser's view is made, those of
/// the content when the choice's view is.
class ZEL_EXPORT ZelInspectorChooserChoice : public ZelInspectorContainer
{
    Q_OBJECT
    /// False by default. Hides the item, not the content.
    Q_PROPERTY(bool hidden READ isHidden WRITE setHidden NOTIFY hiddenChanged)
    /// True by default.
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QIcon image READ image WRITE setImage NOTIFY imageChanged)
    /// The value in the model that this choice stands for.
    Q_PROPERTY(QVariant value READ value WRITE setValue NOTIFY valueChanged)
    /// What stands for the choice if the model holds texts, or names the key if it holds an enumeration. Null if the
    /// value itself stands for the choice.
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    /// Objects of ZelInspectorSliver and ZelInspectorChooser, in any order.
    Q_PROPERTY(QList<ZelInspectorConditionalContainer *> sliversAndChoosers READ sliversAndChoosers WRITE
                   setSliversAndChoosers NOTIFY sliversAndChoosersChanged)
public:
    explicit ZelInspectorChooserChoice(QObject *owner);

    bool isHidden() const { return m_hidden; }
    void setHidden(bool hidden);
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    const QIcon &image() const { return m_image; }
    void setImage(const QIcon &image);
    const QVariant &value() const { return m_value.value(); }
    void setValue(const QVariant &value);
    const QString &text() const { return m_text; }
    void setText(const QString &text);
    QList<ZelInspectorConditionalContainer *> sliversAndChoosers() const { return m_sliversAndChoosers.list(); }
    void setSliversAndChoosers(const QList<ZelInspectorConditionalContainer *> &sliversAndChoosers);

    void loadView() override;

Q_SIGNALS:
    void hiddenChanged();
    void enabledChanged();
    void imageChanged();
    void valueChanged();
    void textChanged();
    void sliversAndChoosersChanged();

protected:
    /// The tool tip is shown by the item.
    void showHelp() override;

    QList<QPointer<ZelViewController>> childControllers() const override { return m_sliversAndChoosers.pointers(); }

private:
    ZelChildControllers<ZelInspectorConditionalContainer> m_sliversAndChoosers;
    QIcon m_image;
    ZelKeptValue m_value;
    QString m_text;
    bool m_hidden = false;
    bool m_enabled = true;
};
