// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelEditSession.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "Layout/ZelBaselineProvider.h"

#include <QPointer>
#include <QWidget>
#include <optional>

class QStyleOptionFrame;
class ZelGrowingTextEditor;

/// A text field that wraps its text and is as high as the text needs.
///
/// It paints the text itself. A text editor lies over it only while it has the focus, so that a panel may have hundreds
/// of such fields. Values, markers, commits and errors are as in ZelTextField; Return commits, Alt+Return and
/// Shift+Return insert a line break.
class ZEL_EXPORT ZelGrowingTextField : public ZelGuarded<QWidget>,
                                       public ZelEditSessionOf<ZelGrowingTextField>,
                                       public ZelBaselineProvider
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

    using ZelEditSession::errorText;
    using ZelEditSession::formatter;
    using ZelEditSession::setFormatter;
    using ZelEditSession::setValueCheck;

    /// The text in the field, including what is being typed.
    QString text() const;

    bool isEditable() const override { return m_editable; }
    /// Whether the field looks like a label whose text can be selected: without frame and background, in the colour of
    /// placeholders, and not editable.
    bool isLabelStyle() const { return m_labelStyle; }
    void setLabelStyle(bool labelStyle);

    /// The distance of the first baseline from the top. It does not depend on the height.
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
    void placeEditor();
    QColor textColor() const;
    void openEditor(Qt::FocusReason reason);
    void closeEditor();
    void editorTextChanged();
    void editorLostFocus(const QFocusEvent *event);
    bool editorKeyPressed(QKeyEvent *event);
    void forwardToEditor(QMouseEvent *event);
    QString fieldText() const override { return text(); }
    void showValue() override;
    bool isTextModified() const override;
    void applyEditable(bool editable) override;
    void errorDidChange() override;
    void updateFocusPolicy();
    void forgetMeasures();
    void textMayNeedHeight();
    QString fittedPlaceholder() const;
    void paintText(QPainter *painter) const;

    QString m_text; // the text of the field while there is no editor
    QPointer<ZelGrowingTextEditor> m_editor;
    bool m_editable = true;
    bool m_labelStyle = false;
    mutable std::optional<QMargins> m_contentMargins;
    mutable int m_measuredWidth = -1;
    mutable int m_measuredHeight = 0;
    mutable QSize m_sizeHint;
};
