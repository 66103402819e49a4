// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelInspectorNote.h"

#include "Controls/ZelControlSize.h"
#include "Controls/private/ZelThemeColor.h"

#include <QPainter>
#include <QStyle>

ZelInspectorNote::ZelInspectorNote(const QString &text)
{
    setTextFormat(Qt::PlainText);
    setText(text);
    setWordWrap(true);
    setFont(ZelControlSize::smallFont());
    setContentsMargins(8, 6, 8, 6);
    setAlignment(Qt::AlignLeading | Qt::AlignTop);
}

/// The colour is asked for at every painting, so that it follows the palette.
void ZelInspectorNote::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(ZelThemeColor::dimmed(palette()));
    painter.drawText(contentsRect(), int(QStyle::visualAlignment(layoutDirection(), alignment())) | Qt::TextWordWrap,
                     text());
}
