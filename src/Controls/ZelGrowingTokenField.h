// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelEditor.h"
#include "Platform/Controls/ZelFieldContent.h"
#include "Platform/Layout/ZelBaselineProvider.h"
#include "Platform/Runtime/ZelGuarded.h"

#include <QPointer>
#include <QWidget>

class QLineEdit;
class QStyleOptionFrame;
class ZelErrorNote;
class ZelToken;

/// A field for a list of values, each shown as a token, that is as high as its tokens need.
///
/// What is typed becomes a token with Return, with one of the tokenizing characters, and when the field or its window
/// loses the focus; the typing in a field that is itself deleted is lost. A text that the formatter cannot parse stays,
/// in the error colour with the reason beside it; Escape discards it. The arrow keys go from the text to the tokens
/// and between them; Backspace before a text selects the last token. A selected token is removed with Backspace or
/// Delete, and turned into text again with Return, F2 or a double click; typing goes on in the text.
///
/// The value is a list. Selection markers and absent values are shown as placeholders, and so is an empty list.
class ZelGrowingTokenField : public ZelGuarded<QWidget>, public ZelEditor, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelEditor ZelBaselineProvider)
    Q_PROPERTY(QVariant objectValue READ objectValue WRITE setObjectValue NOTIFY objectValueChanged)
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable NOTIFY editableChanged)
    Q_PROPERTY(QString nullPlaceholder READ nullPlaceholder WRITE setNullPlaceholder)
    Q_PROPERTY(QString tokenizingCharacters READ tokenizingCharacters WRITE setTokenizingCharacters)
public:
    explicit ZelGrowingTokenField(QWidget *parent = nullptr);
    ~ZelGrowingTokenField() override;

    QVariant objectValue() const { return m_content.value; }
    /// Anything that is not a list is shown as a list of it. While the user edits, the value is kept back, and shown
    /// when the edit was given up.
    void setObjectValue(const QVariant &value);
    /// Makes the tokens' texts, and values of what is typed. Null: the values are texts.
    const ZelFormatter::Ptr &formatter() const { return m_content.formatter; }
    void setFormatter(const ZelFormatter::Ptr &formatter);
    QString nullPlaceholder() const { return m_content.nullPlaceholder; }
    void setNullPlaceholder(const QString &text);
    /// Whether users may change the value; true. Otherwise they may select tokens and copy them.
    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);
    /// A comma by default.
    const QString &tokenizingCharacters() const { return m_tokenizingCharacters; }
    void setTokenizingCharacters(const QString &characters) { m_tokenizingCharacters = characters; }

    const QList<ZelToken *> &tokens() const { return m_tokens; }
    /// Where a new token is typed; an application may give it a completer.
    QLineEdit *input() const { return m_input; }
    QString errorText() const { return m_error; }

    /// Whether there is typing that has neither become a token nor been discarded.
    bool isEditing() const;
    bool commitEditing() override;
    void discardEditing() override;

    /// That of the first line.
    double baselineOffsetForHeight(double) const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return arrange(width, false); }
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
    void changeEvent(QEvent *event) override;
    bool filterEvent(QObject *object, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void initStyleOption(QStyleOptionFrame *option) const;
    QMargins margins() const;
    QList<QWidget *> itemsInOrder() const;
    int arrange(int width, bool places) const;
    void itemsDidChange();

    void showValue();
    void insertToken(qsizetype index, const QVariant &value);
    void takeToken(qsizetype index);
    void removeToken(qsizetype index);
    void editToken(qsizetype index);
    bool moveFocus(QWidget *next, qsizetype *index);
    qsizetype selectedToken() const;
    void selectNeighbour(int step);

    void typed(const QString &text);
    bool tokenize(const QString &text);
    bool parsePieces(const QString &text, QVariantList *values);
    QStringList pieces(const QString &text) const;
    bool inputKeyPressed(const QKeyEvent *event);
    bool reservesShortcut(QKeyEvent *event) const;
    void focusMayHaveLeft(const QEvent *event);
    bool hasFocusInside() const;
    void setError(const QString &error);
    void reportChange();
    void reportValue(const QVariantList &values);
    void commitWithoutTokens();
    void settle();

    QLineEdit *m_input;
    QList<ZelToken *> m_tokens;
    QVariantList m_values;      // of the tokens, in their order
    qsizetype m_inputIndex = 0; // how many tokens stand before the input
    ZelFieldContent m_content;
    QString m_tokenizingCharacters = QStringLiteral(",");
    QString m_error;
    QPointer<ZelErrorNote> m_errorNote;
    bool m_editable = true;
    bool m_settlesSoon = false; // what was typed is in the value, and not yet in the tokens
};
