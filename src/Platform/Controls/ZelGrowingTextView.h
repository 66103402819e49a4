// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelEditor.h"
#include "Platform/Controls/ZelFieldContent.h"
#include "Platform/Layout/ZelBaselineProvider.h"
#include "Platform/Resources/ZelAttributedString.h"
#include "Platform/Runtime/ZelGuarded.h"

#include <QTextEdit>

/// A view of rich text that is as high as the text needs, up to a limit; then it scrolls.
///
/// Its value is a ZelAttributedString, a plain text, or a selection marker, whose name it shows instead of a text. The
/// text in the view is a working copy. It becomes the value when the edit is committed: with Control+Return, by leaving
/// the view, or by the program; Escape brings the value back. While the user edits, another value is kept back and
/// shown when the copy was given up. An empty text is an absent value.
class ZelGrowingTextView : public ZelGuardedScrollArea<QTextEdit>, public ZelEditor, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelEditor ZelBaselineProvider)
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
    Q_PROPERTY(QString nullPlaceholder READ nullPlaceholder WRITE setNullPlaceholder)
public:
    explicit ZelGrowingTextView(QWidget *parent = nullptr);

    QVariant objectValue() const { return m_content.value; }
    void setObjectValue(const QVariant &value);
    /// What stands in the view, typing included; never null.
    ZelAttributedString attributedString() const;

    /// The text shown for an absent or empty value; null.
    QString nullPlaceholder() const { return m_content.nullPlaceholder; }
    void setNullPlaceholder(const QString &text);

    /// Whether users may change the text; true. What was typed is discarded when it becomes false.
    bool isEditable() const { return !isReadOnly(); }
    void setEditable(bool editable);

    /// The height, frame included, that the view has at least, and the one beyond which it scrolls; a line, 500.
    void setHeightLimits(int minimum, int maximum);

    /// Whether the text in the view differs from the value.
    bool isEditing() const;
    bool commitEditing() override;
    void discardEditing() override;

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
    /// The position in the text, or the one before it where it would part a surrogate pair.
    qsizetype beforePair(qsizetype position) const;

    bool handleEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void showValue();
    void showText(const ZelAttributedString &string);
    bool reservesShortcut(QKeyEvent *event) const;
    void textMayNeedHeight();
    void updateScrollBar();
    int neededHeight(int width) const;
    int measuredHeight(int textWidth) const;
    double knownHeight(int textWidth) const;

    ZelFieldContent m_content;
    mutable ZelAttributedString m_read; // what stands in the document; null after a change of it
    int m_minimumHeight = 0;
    int m_maximumHeight = 500;
    mutable int m_measuredWidth = -1;
    mutable int m_measuredHeight = 0;
};
