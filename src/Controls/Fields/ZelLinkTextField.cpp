// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelLinkTextField.h"

#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Values/private/ZelAssign.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QUrl>
#include <limits>

namespace {

constexpr int g_leastLightness = 180; // of links on a dark background

/// Many dark palettes keep the blue of light ones, which is too dark there.
QColor linkColor(const QPalette &palette)
{
    const QColor color = palette.color(QPalette::Link);
    if (!ZelThemeColor::isDark(palette) || color.lightness() >= g_leastLightness)
        return color;
    return QColor::fromHsl(color.hslHue(), color.hslSaturation(), g_leastLightness);
}

} // namespace

ZelLinkTextField::ZelLinkTextField(QWidget *parent)
    : ZelGrowingTextView(parent)
{
    setEditable(false);
    setFrameShape(QFrame::NoFrame);
    setHeightLimits(0, std::numeric_limits<short>::max());
    viewport()->setAutoFillBackground(false);
    viewport()->setMouseTracking(true);
    connect(document(), &QTextDocument::contentsChanged, this, &ZelLinkTextField::linksMayChange);
    connect(this, &ZelGrowingTextView::editableChanged, this, &ZelLinkTextField::linksMayChange);
}

/// The selections are renewed later, because a document must not lose cursors while it reports a change.
void ZelLinkTextField::linksMayChange()
{
    m_focusedLink = m_hoveredLink = m_pressedLink = -1;
    m_links.reset();
    if (m_showsLinksSoon)
        return;
    m_showsLinksSoon = true;
    QMetaObject::invokeMethod(this, &ZelLinkTextField::showLinks, Qt::QueuedConnection);
}

const QList<ZelLinkTextField::Link> &ZelLinkTextField::links() const
{
    if (m_links)
        return *m_links;
    QList<Link> links;
    for (QTextBlock block = document()->begin(); block.isValid() && !isEditable(); block = block.next()) {
        qsizetype lastEnd = -1;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const QString address = fragment.charFormat().anchorHref();
            if (address.isEmpty())
                continue;
            // Text in another format, such as bold, is a separate fragment of the same link.
            if (lastEnd == fragment.position() && links.last().address == address)
                links.last().range.length += fragment.length();
            else
                links.append({{fragment.position(), fragment.length()}, address});
            lastEnd = links.last().range.end();
        }
    }
    return m_links.emplace(links);
}

/// The look of links is laid over the text by extra selections, so that the text keeps the value's formats.
void ZelLinkTextField::showLinks()
{
    m_showsLinksSoon = false;
    QList<ExtraSelection> selections;
    for (qsizetype i = 0; i < links().size(); ++i) {
        ExtraSelection selection;
        selection.cursor = QTextCursor(document());
        selection.cursor.setPosition(int(links().at(i).range.start));
        selection.cursor.setPosition(int(links().at(i).range.end()), QTextCursor::KeepAnchor);
        selection.format.setFontUnderline(true);
        selection.format.setForeground(isEnabled() ? linkColor(palette()) : palette().color(QPalette::Text));
        if (i == m_focusedLink) {
            selection.format.setForeground(palette().highlightedText());
            selection.format.setBackground(palette().highlight());
        } else if (i == m_hoveredLink) {
            QColor shade = linkColor(palette());
            shade.setAlphaF(0.15F);
            selection.format.setBackground(shade);
        }
        selections.append(selection);
    }
    setExtraSelections(selections);
}

QList<QRectF> ZelLinkTextField::rectsOf(const Link &link) const
{
    const QTextBlock block = document()->findBlock(int(link.range.start));
    const QPointF origin = document()->documentLayout()->blockBoundingRect(block).topLeft() -
                           QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const int start = int(link.range.start) - block.position();
    const int end = int(link.range.end()) - block.position();
    QList<QRectF> rects;
    for (int i = 0; i < block.layout()->lineCount(); ++i) {
        const QTextLine line = block.layout()->lineAt(i);
        const int from = qMax(start, line.textStart());
        const int to = qMin(end, line.textStart() + line.textLength());
        if (from >= to)
            continue;
        const double left = line.cursorToX(from);
        const double right = line.cursorToX(to);
        rects.append(QRectF(qMin(left, right), line.y(), qAbs(right - left), line.height()).translated(origin));
    }
    return rects;
}

QVariantMap ZelLinkTextField::infoOf(const Link &link) const
{
    QRectF around;
    for (const QRectF &rect : rectsOf(link))
        around |= rect;
    return {{ZelLinkInfoCharacterRangeKey, QVariant::fromValue(link.range)},
            {ZelLinkInfoURLKey, QUrl(link.address)},
            {ZelLinkInfoRectKey, around.translated(viewport()->pos())}};
}

QList<QVariantMap> ZelLinkTextField::linkInfos() const
{
    QList<QVariantMap> infos;
    for (const Link &link : links())
        infos.append(infoOf(link));
    return infos;
}

qsizetype ZelLinkTextField::linkAt(const QPoint &viewportPoint) const
{
    for (qsizetype i = 0; i < links().size(); ++i)
        for (const QRectF &rect : rectsOf(links().at(i)))
            if (rect.contains(viewportPoint))
                return i;
    return -1;
}

QVariantMap ZelLinkTextField::linkInfoAtPoint(const QPoint &point) const
{
    const qsizetype link = linkAt(point - viewport()->pos());
    return link < 0 ? QVariantMap() : infoOf(links().at(link));
}

void ZelLinkTextField::activate(qsizetype link)
{
    const QVariantMap info = infoOf(links().at(link));
    const bool opens = m_opensLinks;
    Q_EMIT linkActivated(info); // the field may be gone afterwards
    if (opens)
        QDesktopServices::openUrl(info.value(ZelLinkInfoURLKey).toUrl());
}

// Mouse

void ZelLinkTextField::setHoveredLink(qsizetype link)
{
    if (!isEditable())
        viewport()->setCursor(link >= 0 ? Qt::PointingHandCursor : Qt::IBeamCursor);
    if (ZelAssign(m_hoveredLink, link))
        showLinks();
}

void ZelLinkTextField::mouseMoveEvent(QMouseEvent *event)
{
    ZelGrowingTextView::mouseMoveEvent(event);
    setHoveredLink(linkAt(event->pos()));
}

void ZelLinkTextField::mousePressEvent(QMouseEvent *event)
{
    ZelGrowingTextView::mousePressEvent(event);
    m_pressedLink = event->button() == Qt::LeftButton ? linkAt(event->pos()) : -1;
}

/// A drag that begins on a link selects text and does not follow the link.
void ZelLinkTextField::mouseReleaseEvent(QMouseEvent *event)
{
    ZelGrowingTextView::mouseReleaseEvent(event);
    const qsizetype pressed = std::exchange(m_pressedLink, -1);
    if (pressed >= 0 && event->button() == Qt::LeftButton && !textCursor().hasSelection() &&
        linkAt(event->pos()) == pressed)
        activate(pressed);
}

bool ZelLinkTextField::handleViewportEvent(QEvent *event)
{
    if (event->type() == QEvent::Leave)
        setHoveredLink(-1);
    if (event->type() == QEvent::ToolTip) {
        const qsizetype link = linkAt(static_cast<QHelpEvent *>(event)->pos());
        if (link >= 0 && ZelControlHelp::showToolTip(event, this, links().at(link).address))
            return true;
    }
    return ZelGrowingTextView::handleViewportEvent(event);
}

// Keyboard

void ZelLinkTextField::setFocusedLink(qsizetype link)
{
    m_focusedLink = link;
    showLinks();
}

void ZelLinkTextField::focusInEvent(QFocusEvent *event)
{
    ZelGrowingTextView::focusInEvent(event);
    if (links().isEmpty())
        return;
    if (event->reason() == Qt::TabFocusReason)
        setFocusedLink(0);
    else if (event->reason() == Qt::BacktabFocusReason)
        setFocusedLink(links().size() - 1);
}

void ZelLinkTextField::focusOutEvent(QFocusEvent *event)
{
    ZelGrowingTextView::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        setFocusedLink(-1);
}

bool ZelLinkTextField::focusNextPrevChild(bool next)
{
    const qsizetype link = m_focusedLink + (next ? 1 : -1);
    // Qt also asks a field that is being hidden or disabled. It must then let the focus go.
    if (!isVisible() || !isEnabled())
        return ZelGrowingTextView::focusNextPrevChild(next);
    const bool stays = m_focusedLink >= 0 ? link >= 0 && link < links().size() : next && !links().isEmpty();
    if (!stays)
        return ZelGrowingTextView::focusNextPrevChild(next);
    setFocusedLink(qMax<qsizetype>(link, 0));
    return true;
}

void ZelLinkTextField::keyPressEvent(QKeyEvent *event)
{
    const bool follows =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (follows && m_focusedLink >= 0)
        activate(m_focusedLink);
    else
        ZelGrowingTextView::keyPressEvent(event);
}

void ZelLinkTextField::changeEvent(QEvent *event)
{
    ZelGrowingTextView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        showLinks();
}
