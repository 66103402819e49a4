// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelEditor.h"
#include "Platform/Controls/ZelFieldContent.h"
#include "Platform/Layout/ZelBaselineProvider.h"
#include "Platform/Runtime/ZelGuarded.h"

#include <QPointer>
#include <QWidget>
#include <optional>

class QStyleOptionFrame;
class ZelErrorNote;
class ZelGrowingTextEditor;

/// A text field that wraps its text and is as high as the text needs.
///
/// It paints the text itself; only while it has the focus a text editor lies over it, so that a panel may have hundreds
/// of them. Values, markers, commits and errors are as in ZelTextField; Return commits, Alt+Return and Shift+Return
/// insert a line break.
class ZelGrowingTextField : public ZelGuarded<QWidget>, public ZelEditor, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelEditor ZelBaselineProvider)
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(QString text READ text)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
    Q_PROPERTY(QString nullPlaceholder READ nullPlaceholder WRITE setNullPlaceholder)
    Q_PROPERTY(bool labelStyle READ isLabelStyle WRITE setLabelStyle)
    Q_PROPERTY(double baselineOffset READ baselineOffset)
public:
    explicit ZelGrowingTextField(QWidget *parent = nullptr);
    ~ZelGrowingTextField() override;

    QVariant objectValue() const { return m_content.value; }
    void setObjectValue(const QVariant &value);
    const ZelFormatter::Ptr &formatter() const { return m_content.formatter; }
    void setFormatter(const ZelFormatter::Ptr &formatter);
    /// Asked for every value that a text means before it is taken, such as for the limits of what the model can hold. A
    /// value that it refuses is a text that cannot be taken; the reason that it gives is shown. None unless set.
    void setValueCheck(const ZelValueCheck &check) { m_content.check = check; }

    /// The text in the field, typing included.
    QString text() const;
    /// The text shown for an absent value; null.
    QString nullPlaceholder() const { return m_content.nullPlaceholder; }
    void setNullPlaceholder(const QString &text);

    /// Whether users may change the text; true. What was typed is discarded when it becomes false.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);
    /// The look of a label that can be selected: no frame, no background, the colour of placeholders; not editable.
    bool isLabelStyle() const { return m_labelStyle; }
    void setLabelStyle(bool labelStyle);

    bool isEditing() const { return text() != m_shownText; }
    QString errorText() const { return m_error; }
    bool commitEditing() override;
    void discardEditing() override;

    /// The distance of the first baseline from the top; the height makes no difference.
    double baselineOffset() const;
    double baselineOffsetForHeight(double) const override { return baselineOffset(); }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
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
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool handleEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    friend class ZelGrowingTextEditor;
    void initStyleOption(QStyleOptionFrame *option) const;
    QMargins contentMargins() const;
    QRect contentRect() const;
    QColor textColor() const;
    void openEditor(Qt::FocusReason reason);
    void closeEditor();
    void editorTextChanged();
    void editorLostFocus(bool closes);
    bool editorReservesShortcut(QKeyEvent *event) const;
    bool editorKeyPressed(QKeyEvent *event);
    void forwardToEditor(QMouseEvent *event);
    void showValue();
    void updateFocusPolicy();
    void setError(const QString &error);
    void checkAgain();
    void forgetMeasures();
    void textMayNeedHeight();
    void paintText(QPainter *painter) const;

    ZelFieldContent m_content;
    QString m_text; // what stands in the field while no editor does
    QString m_shownText;
    QString m_error;
    QPointer<ZelErrorNote> m_errorNote;
    QPointer<ZelGrowingTextEditor> m_editor;
    bool m_editable = true;
    bool m_labelStyle = false;
    mutable std::optional<QMargins> m_contentMargins;
    mutable int m_measuredWidth = -1;
    mutable int m_measuredHeight = 0;
    mutable QSize m_sizeHint;
};
