// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelEditSession.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "Layout/ZelBaselineProvider.h"
#include "Text/ZelAttributedString.h"

#include <QTextEdit>

/// A view of rich text that is as high as the text needs, up to a limit; then it scrolls.
///
/// Its value is a ZelAttributedString, a plain text, or a selection marker, whose name it shows instead of a text. It
/// is edited as ZelEditSession describes, but Control+Return commits, since Return begins a paragraph. An empty text is
/// an absent value.
class ZEL_EXPORT ZelGrowingTextView : public ZelGuardedScrollArea<QTextEdit>,
                                      public ZelEditSessionOf<ZelGrowingTextView>,
                                      public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelEditor ZelBaselineProvider)
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
    Q_PROPERTY(QString nullPlaceholder READ nullPlaceholder WRITE setNullPlaceholder)
public:
    explicit ZelGrowingTextView(QWidget *parent = nullptr);

    using ZelEditSession::errorText;
    using ZelEditSession::setValueCheck;

    /// The text in the view, including what is being typed; never null.
    ZelAttributedString attributedString() const;

    bool isEditable() const override { return !isReadOnly(); }

    /// Sets the least height of the view and the height beyond which it scrolls, in points and including the frame. By
    /// default these are one line and 500.
    void setHeightLimits(int minimum, int maximum);

    bool isEditing() const override { return document()->isModified(); }

    double baselineOffsetForHeight(double) const override;
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
    /// The position, or the one before it if the position would split a surrogate pair.
    qsizetype beforePair(qsizetype position) const;

    bool handleEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void showValue() override;
    bool readValue(QVariant *value, QString *error) override;
    bool isChange(const QVariant &value) const override;
    bool isCommitKey(const QKeyEvent *event) const override;
    bool isTextModified() const override { return isEditing(); }
    void applyEditable(bool editable) override { setReadOnly(!editable); }
    void showText(const ZelAttributedString &string);
    void textMayNeedHeight();
    void updateScrollBar();
    int neededHeight(int width) const;
    int measuredHeight(int textWidth) const;
    double knownHeight(int textWidth) const;

    mutable ZelAttributedString m_read; // the text of the document; null after it has changed
    int m_minimumHeight = 0;
    int m_maximumHeight = 500;
    mutable int m_measuredWidth = -1;
    mutable int m_measuredHeight = 0;
};
