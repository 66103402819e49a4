// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/ZelLabel.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"

#include <QCheckBox>
#include <QVariant>

/// A check box for a value. It shows several different values as the mixed state. A click in the mixed state checks the
/// box; no click leads into the mixed state. An absent value and the other selection markers are shown unchecked. A
/// title that is too long is elided at its end, and the tool tip then shows it whole.
class ZEL_EXPORT ZelCheckBox : public ZelGuarded<QCheckBox>
{
    Q_OBJECT
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
public:
    explicit ZelCheckBox(QWidget *parent = nullptr);
    explicit ZelCheckBox(const QString &title, QWidget *parent = nullptr);

    /// Plain text: an ampersand is shown and marks no mnemonic.
    QString title() const;
    void setTitle(const QString &title);

    /// Parts of the title that have a coloured background, as in ZelLabel. They end with setTitle.
    const QList<ZelLabel::Part> &markedParts() const { return m_markedParts; }
    void setMarkedParts(const QList<ZelLabel::Part> &parts);

    /// The value that was set as long as the box shows it. After its state has changed, a Boolean or
    /// ZelMultipleValuesMarker.
    QVariant objectValue() const;
    void setObjectValue(const QVariant &value);

    /// Whether users may click; true by default. If not, the box looks disabled.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);

    QSize sizeHint() const override;
    /// Leaves room for the box and an ellipsis.
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
    void changeEvent(QEvent *event) override;
    void initStyleOption(QStyleOptionButton *option) const override;
    void nextCheckState() override;
    void paintEvent(QPaintEvent *event) override;

private:
    int titleWidth() const;

    QVariant m_value;
    QList<ZelLabel::Part> m_markedParts;
    bool m_editable = true;
    mutable QSize m_sizeHint;
    mutable QString m_sizedTitle;
};
