// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Layout/ZelBaselineProvider.h"
#include "Platform/Runtime/ZelGuarded.h"

#include <QWidget>

/// One line of static text, elided at its end where it is too long; the whole text is the tool tip then.
///
/// Lighter than QLabel: no rich text, no mnemonics, no picture.
class ZelLabel : public ZelGuarded<QWidget>, public ZelBaselineProvider
{
    Q_OBJECT
    Q_INTERFACES(ZelBaselineProvider)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(Qt::Alignment alignment READ alignment WRITE setAlignment)
    Q_PROPERTY(QColor textColor READ textColor WRITE setTextColor)
    Q_PROPERTY(double baselineOffset READ baselineOffset)
public:
    explicit ZelLabel(QWidget *parent = nullptr);
    explicit ZelLabel(const QString &text, QWidget *parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString &text);

    /// AlignLeft | AlignVCenter. Left is the leading edge: the right one in a right-to-left layout.
    Qt::Alignment alignment() const { return m_alignment; }
    void setAlignment(Qt::Alignment alignment);

    /// The colour of the text in a light theme; adapted where the palette is dark (see ZelThemeColor). Invalid, the
    /// palette's WindowText, unless set. A disabled label has the palette's colour.
    QColor textColor() const { return m_textColor; }
    void setTextColor(const QColor &lightThemeColor);

    /// The distance of the baseline from the top, at the present height or the given one.
    double baselineOffset() const { return baselineOffsetForHeight(height()); }
    double baselineOffsetForHeight(double height) const override;

    QSize sizeHint() const override;
    /// Room for an ellipsis, or for the whole text where that is less.
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void textChanged();

protected:
    bool handleEvent(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_text;
    QColor m_textColor;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    mutable QSize m_sizeHint;
};
