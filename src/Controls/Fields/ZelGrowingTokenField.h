// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelEditSession.h"
#include "Core/KeyValue/ZelKeptValue.h"
#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "Layout/ZelBaselineProvider.h"

#include <QWidget>

class QLineEdit;
class QStyleOptionFrame;
class ZelToken;

/// A field for a list of values, each shown as a token, that is as high as its tokens need.
///
/// The typing becomes a token when a tokenizing character is typed, and when it is committed as ZelEditSession
/// describes. If the field itself is deleted, the typing is lost. The arrow keys move from the text to the tokens and
/// between them; Backspace before a text selects the last token. Backspace or Delete removes a selected token. Return,
/// F2 or a double click turns it into text again. A typed letter goes into the text.
///
/// The value is a list; any other value is shown as a list with one element. An empty list is shown like an absent
/// value.
class ZEL_EXPORT ZelGrowingTokenField : public ZelGuarded<QWidget>,
                                        public ZelEditSessionOf<ZelGrowingTokenField>,
                                        public ZelBaselineProvider
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

    using ZelEditSession::errorText;
    /// It makes the texts of the tokens, and the values of what is typed.
    using ZelEditSession::formatter;
    using ZelEditSession::setFormatter;

    /// Whether users may change the value. If not, they may still select tokens and copy them.
    bool isEditable() const override { return m_editable; }
    /// A comma by default.
    const QString &tokenizingCharacters() const { return m_tokenizingCharacters; }
    void setTokenizingCharacters(const QString &characters) { m_tokenizingCharacters = characters; }

    const QList<ZelToken *> &tokens() const { return m_tokens; }
    /// The line edit in which a new token is typed. An application may give it a completer.
    QLineEdit *input() const { return m_input; }

    bool isEditing() const override;

    /// The distance of the first line's baseline from the top.
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

    void showValue() override;
    bool readValue(QVariant *value, QString *error) override;
    bool isChange(const QVariant &value) const override;
    void applyEditable(bool editable) override;
    void errorDidChange() override;
    QVariantList values() const;
    void showTokens(const QVariantList &values);
    void settle();

    void insertToken(qsizetype index, const QVariant &value);
    ZelToken *takeToken(qsizetype index);
    void retire(ZelToken *token);
    void removeToken(qsizetype index);
    void editToken(qsizetype index);
    bool moveFocus(QWidget *next, qsizetype *index);
    qsizetype selectedToken() const;
    void selectNeighbour(int step);

    void typed(const QString &text);
    bool parsePieces(const QString &text, QVariantList *values, QString *error) const;
    QStringList pieces(const QString &text) const;
    bool inputKeyPressed(const QKeyEvent *event);
    void focusMayHaveLeft(const QFocusEvent *event);

    QLineEdit *m_input;
    QList<ZelToken *> m_tokens;
    QList<ZelKeptValue> m_values; // one for each token, in the same order
    qsizetype m_inputIndex = 0;   // the number of tokens before the input
    QString m_tokenizingCharacters = QStringLiteral(",");
    bool m_editable = true;
    bool m_showsLater = false;  // a value that is committed now is shown in the next turn
    bool m_settlesSoon = false; // the value has what was typed, the tokens do not yet
};
