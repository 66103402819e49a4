// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelOriginSelectionView.h"

#include "Controls/private/ZelThemeColor.h"
#include "Core/Values/private/ZelAssign.h"
#include "Inspector/Properties/private/ZelOriginImages.h"
#include "Resources/ZelLocalizedString.h"
#include "Resources/ZelNamedImages.h"

#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <cmath>

ZelOriginSelectionView::ZelOriginSelectionView(QWidget *parent)
    : ZelView(parent)
    , ZelCellGroup(this, Tabs)
{
    setFlipped(true);
    setFixedSize(sizeHint());
    setFocusPolicy(Qt::StrongFocus);
    updateImage();
}

ZelOriginSelectionView::~ZelOriginSelectionView()
{
    uninstall();
}

QSize ZelOriginSelectionView::sizeHint() const
{
    return {ZelOriginImages::side, ZelOriginImages::side};
}

void ZelOriginSelectionView::setAnchor(ZelRectAnchor anchor)
{
    if (!ZelAssign(m_anchor, anchor))
        return;
    updateImage();
    announceCurrentCell();
    Q_EMIT anchorChanged();
}

ZelOriginSelectionViewDelegate *ZelOriginSelectionView::delegate() const
{
    return m_delegate;
}

void ZelOriginSelectionView::setDelegate(ZelOriginSelectionViewDelegate *delegate)
{
    m_delegate = delegate;
}

void ZelOriginSelectionView::setDelegateObject(QObject *delegate)
{
    setDelegate(dynamic_cast<ZelOriginSelectionViewDelegate *>(delegate));
}

// The picture

QString ZelOriginSelectionView::imageNameForAnchor(ZelRectAnchor anchor)
{
    static const char *const names[] = {
        "ZelOriginTopLeft",    "ZelOriginTopCenter",    "ZelOriginTopRight",
        "ZelOriginMiddleLeft", "ZelOriginMiddleCenter", "ZelOriginMiddleRight",
        "ZelOriginBottomLeft", "ZelOriginBottomCenter", "ZelOriginBottomRight",
    };
    return anchor > ZelOriginBottomRight ? QString() : QString::fromLatin1(names[anchor]);
}

void ZelOriginSelectionView::updateImage()
{
    const QString name = imageNameForAnchor(m_anchor);
    m_image = name.isNull() ? QIcon() : ZelNamedImages::imageNamed(name);
    if (m_image.isNull()) {
        m_image = ZelOriginImages::image(m_anchor);
        if (!name.isNull())
            ZelNamedImages::setImageForName(m_image, name);
    }
    update();
}

void ZelOriginSelectionView::drawRect(QPainter &painter, const QRect &dirtyRect)
{
    ZelView::drawRect(painter, dirtyRect);
    const QRect square(QPoint(), sizeHint());
    m_image.paint(&painter, square);
    if (!isEnabled()) {
        QColor veil = ZelThemeColor::adapted(QColor::fromRgbF(0.9F, 0.9F, 0.9F), palette());
        veil.setAlphaF(0.6F);
        painter.fillRect(square, veil);
    }
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = square;
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

// Choosing

ZelRectAnchor ZelOriginSelectionView::anchorAtPosition(const QPointF &position) const
{
    const int column = int(std::floor(position.x() / (bounds().width() / 3)));
    const int row = int(std::floor(position.y() / (bounds().height() / 3)));
    const bool isInside = column >= 0 && column < 3 && row >= 0 && row < 3;
    return isInside ? ZelRectAnchor(row * 3 + column) : ZelOriginTopLeft;
}

QRect ZelOriginSelectionView::cellRect(int cell) const
{
    const int left = cell % 3 * width() / 3;
    const int top = cell / 3 * height() / 3;
    return QRect(QPoint(left, top), QPoint((cell % 3 + 1) * width() / 3 - 1, (cell / 3 + 1) * height() / 3 - 1));
}

QString ZelOriginSelectionView::cellName(int cell) const
{
    static const char *const names[] = {
        QT_TRANSLATE_NOOP("Application", "Top left"),    QT_TRANSLATE_NOOP("Application", "Top"),
        QT_TRANSLATE_NOOP("Application", "Top right"),   QT_TRANSLATE_NOOP("Application", "Left"),
        QT_TRANSLATE_NOOP("Application", "Center"),      QT_TRANSLATE_NOOP("Application", "Right"),
        QT_TRANSLATE_NOOP("Application", "Bottom left"), QT_TRANSLATE_NOOP("Application", "Bottom"),
        QT_TRANSLATE_NOOP("Application", "Bottom right")};
    return ZelLocalizedString(names[cell]);
}

void ZelOriginSelectionView::clickCell(int cell)
{
    const QPointer<ZelOriginSelectionView> alive(this);
    if (ZelOriginSelectionViewDelegate *listener = delegate())
        listener->originSelectionViewDidSelectAnchor(this, ZelRectAnchor(cell));
    if (alive)
        setAnchor(ZelRectAnchor(cell));
}

bool ZelOriginSelectionView::positionedEvent(QEvent *event)
{
    return handleCellEvent(event) || ZelView::positionedEvent(event);
}

void ZelOriginSelectionView::keyPressEvent(QKeyEvent *event)
{
    if (!handleCellEvent(event))
        ZelView::keyPressEvent(event);
}
