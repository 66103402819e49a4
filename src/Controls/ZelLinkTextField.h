// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Controls/ZelGrowingTextView.h"

#include <QVariantMap>
#include <optional>

// What is known about a link, the keys of a map.
/// The characters of the link, a ZelAttributedString::Range.
inline const QString ZelLinkInfoCharacterRangeKey = QStringLiteral("ZelLinkInfoCharacterRangeKey");
/// Where it leads, a QUrl.
inline const QString ZelLinkInfoURLKey = QStringLiteral("ZelLinkInfoURLKey");
/// Its place in the field, a QRectF; for a link that is broken into lines, around all of them.
inline const QString ZelLinkInfoRectKey = QStringLiteral("ZelLinkInfoRectKey");

/// Static text with links that can be clicked: those of the value's Link attribute. As high as the text needs.
///
/// The Tab key goes from link to link before it leaves the field, and Return or Space follow the one that it is at. The
/// text can be selected with the mouse. In a field that is made editable, links are plain text.
class ZelLinkTextField : public ZelGrowingTextView
{
    Q_OBJECT
    /// Whether a link that is followed is opened as the desktop does (QDesktopServices); true. Otherwise it is up to
    /// whoever hears of linkActivated.
    Q_PROPERTY(bool opensLinks READ opensLinks WRITE setOpensLinks)
public:
    explicit ZelLinkTextField(QWidget *parent = nullptr);

    bool opensLinks() const { return m_opensLinks; }
    void setOpensLinks(bool opens) { m_opensLinks = opens; }

    /// The links in the order of the text, each with the three keys above.
    QList<QVariantMap> linkInfos() const;
    /// Empty where there is no link.
    QVariantMap linkInfoAtPoint(const QPoint &point) const;
    /// The number of the link at which the keyboard is; -1 for none.
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
    /// One for each line, in the viewport's coordinates.
    QList<QRectF> rectsOf(const Link &link) const;
    QVariantMap infoOf(const Link &link) const;
    void activate(qsizetype link);

    mutable std::optional<QList<Link>> m_links; // read when they are asked for
    bool m_showsLinksSoon = false;
    qsizetype m_focusedLink = -1;
    qsizetype m_hoveredLink = -1;
    qsizetype m_pressedLink = -1;
    bool m_opensLinks = true;
};
