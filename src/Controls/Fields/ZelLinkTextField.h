// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelGrowingTextView.h"
#include "Core/ZelExport.h"

#include <QVariantMap>
#include <optional>

// The keys of the map that describes a link.
/// The characters of the link, a ZelAttributedString::Range.
inline const QString ZelLinkInfoCharacterRangeKey = QStringLiteral("ZelLinkInfoCharacterRangeKey");
/// The target, a QUrl.
inline const QString ZelLinkInfoURLKey = QStringLiteral("ZelLinkInfoURLKey");
/// The place in the field, a QRectF. For a link that is broken into several lines the rectangle surrounds all of them.
inline const QString ZelLinkInfoRectKey = QStringLiteral("ZelLinkInfoRectKey");

/// Static text with links that can be clicked. The value's Link attribute makes the links. The field is as high as its
/// text needs.
///
/// The Tab key goes from link to link before it leaves the field, and Return or Space follows the link that the
/// keyboard is at. The text can be selected with the mouse. In a field that is made editable, links are plain text.
class ZEL_EXPORT ZelLinkTextField : public ZelGrowingTextView
{
    Q_OBJECT
    /// Whether a link that the user follows is opened by the desktop (QDesktopServices); true by default. If not, the
    /// receiver of linkActivated decides what happens.
    Q_PROPERTY(bool opensLinks READ opensLinks WRITE setOpensLinks)
public:
    explicit ZelLinkTextField(QWidget *parent = nullptr);

    bool opensLinks() const { return m_opensLinks; }
    void setOpensLinks(bool opens) { m_opensLinks = opens; }

    /// The links in the order of the text, each with the three keys above.
    QList<QVariantMap> linkInfos() const;
    /// The map of the link at the point, in the field's coordinates; empty if there is none.
    QVariantMap linkInfoAtPoint(const QPoint &point) const;
    /// The index of the link that the keyboard is at; -1 if there is none.
    qsizetype focusedLink() const { return m_focusedLink; }

Q_SIGNALS:
    /// The user follows a link. Sent before it is opened.
    void linkActivated(const QVariantMap &info);

protected:
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    bool handleViewportEvent(QEvent *event) override;

private:
    struct Link
    {
        ZelAttributedString::Range range;
        QString address;
    };
    void linksMayChange();
    const QList<Link> &links() const;
    void showLinks();
    void setFocusedLink(qsizetype link);
    void setHoveredLink(qsizetype link);
    qsizetype linkAt(const QPoint &viewportPoint) const;
    /// The rectangles of the link, one for each line, in the viewport's coordinates.
    QList<QRectF> rectsOf(const Link &link) const;
    QVariantMap infoOf(const Link &link) const;
    void activate(qsizetype link);

    mutable std::optional<QList<Link>> m_links; // absent until they are asked for after a change
    bool m_showsLinksSoon = false;
    qsizetype m_focusedLink = -1;
    qsizetype m_hoveredLink = -1;
    qsizetype m_pressedLink = -1;
    bool m_opensLinks = true;
};
