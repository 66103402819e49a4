// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelGuarded.h"
#include "Core/ZelExport.h"
#include "Layout/ZelBaselineProvider.h"

#include <QList>
#include <QWidget>

/// One line of static text. A text that is too long is elided at its end, and the tool tip then shows it whole.
///
/// Lighter than QLabel: no rich text, no mnemonics, no picture.
class ZEL_EXPORT ZelLabel : public ZelGuarded<QWidget>, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelBaselineProvider)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(Qt::Alignment alignment READ alignment WRITE setAlignment)
    Q_PROPERTY(QColor textColor READ textColor WRITE setTextColor)
    Q_PROPERTY(bool dotted READ isDotted WRITE setDotted)
    Q_PROPERTY(double baselineOffset READ baselineOffset)
public:
    explicit ZelLabel(QWidget *parent = nullptr);
    explicit ZelLabel(const QString &text, QWidget *parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString &text);

    /// AlignLeft | AlignVCenter by default. Left means the leading edge, which is on the right in a right-to-left
    /// layout.
    Qt::Alignment alignment() const { return m_alignment; }
    void setAlignment(Qt::Alignment alignment);

    /// The colour of the text in a light theme; it is adapted to a dark palette (see ZelThemeColor). An invalid colour,
    /// the default, stands for the palette's WindowText. A disabled label always has the palette's colour.
    QColor textColor() const { return m_textColor; }
    void setTextColor(const QColor &lightThemeColor);

    /// A part of the text, by the index of its first character.
    struct Part
    {
        qsizetype start = 0;
        qsizetype length = 0;
        bool operator==(const Part &) const = default;
    };
    /// Parts of the text that have a coloured background, such as what was searched for. They end when the text
    /// changes.
    const QList<Part> &markedParts() const { return m_markedParts; }
    void setMarkedParts(const QList<Part> &parts);

    /// Whether a dot stands before the text, or where an empty text would be; false by default.
    bool isDotted() const { return m_dotted; }
    void setDotted(bool dotted);

    /// The distance of the baseline from the top, at the present height or the given one.
    double baselineOffset() const { return baselineOffsetForHeight(height()); }
    double baselineOffsetForHeight(double height) const override;

    QSize sizeHint() const override;
    /// Leaves room for an ellipsis, or for the whole text if that is narrower.
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void textChanged();

protected:
    bool handleEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void paintDot(QPainter *painter, const QRect &textRect) const;
    void paintFocus(QPainter *painter, const QRect &textRect) const;

    QString m_text;
    QList<Part> m_markedParts;
    QColor m_textColor;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    bool m_dotted = false;
    mutable QSize m_sizeHint;
};
