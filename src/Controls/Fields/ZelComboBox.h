// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Binding/ZelEditor.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QComboBox>
#include <QVariant>

class ZelTextField;

/// A text field that completes what is typed from a list, which it also offers in a menu.
///
/// The value is a text, which need not be in the list. It is typed, committed and discarded as in a ZelTextField; a
/// choice from the list is an edit, too. A typed text that differs from an item only in its case stands for that item.
/// The list may change at any time; the text stays as it is.
class ZEL_EXPORT ZelComboBox : public ZelGuarded<QComboBox>, public ZelEditor
{
    Q_OBJECT
    Q_INTERFACES(ZelEditor)
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    /// Whether users may change the value; true by default. (QComboBox's property of this name says whether there is a
    /// text field. Here there always is one.)
    Q_PROPERTY(bool editable READ isValueEditable WRITE setValueEditable NOTIFY editableChanged)
    Q_PROPERTY(QString nullPlaceholder READ nullPlaceholder WRITE setNullPlaceholder)
public:
    explicit ZelComboBox(QWidget *parent = nullptr);

    ZelTextField *textField() const { return m_field; }

    /// A text, a selection marker or absent.
    QVariant objectValue() const;
    void setObjectValue(const QVariant &value);

    /// The texts of the list.
    QStringList contentValues() const;
    void setContentValues(const QStringList &texts);

    bool isValueEditable() const;
    void setValueEditable(bool editable);

    /// The text shown for an absent value; null by default.
    QString nullPlaceholder() const;
    void setNullPlaceholder(const QString &text);

    bool commitEditing() override;
    void discardEditing() override;
    void showPopup() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void objectValueChanged();
    void editableChanged();
    /// The user has changed the value.
    void valueEdited();
    /// Sent after valueEdited.
    void action();

protected:
    bool handleEvent(QEvent *event) override;
    bool filterEvent(QObject *watched, QEvent *event) override;
    void initStyleOption(QStyleOptionComboBox *option) const override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void showValueInList();
    void completeText();
    void addCompleter();

    ZelTextField *m_field = nullptr;
};
