// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/private/ZelColorDrag.h"

#include "ColorPopUpButton/private/ZelColorMimeData.h"
#include "ColorPopUpButton/private/ZelColorSwatch.h"
#include "Controls/private/ZelDragSource.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace {

constexpr QSize g_imageSize(24, 16);

} // namespace

ZelColorDrag::ZelColorDrag(QWidget *widget, const QPoint &place, const ZelColor &color)
    : m_widget(widget)
    , m_place(place)
    , m_color(color)
{
}

std::unique_ptr<ZelColorDrag> ZelColorDrag::press(QWidget *widget, const QMouseEvent *event, const ZelColor &color)
{
    if (event->button() != Qt::LeftButton || !color.toQColor().isValid())
        return nullptr;
    return std::unique_ptr<ZelColorDrag>(new ZelColorDrag(widget, event->position().toPoint(), color));
}

bool ZelColorDrag::begins(const QMouseEvent *move) const
{
    const QPoint way = move->position().toPoint() - m_place;
    if (!(move->buttons() & Qt::LeftButton) || way.manhattanLength() < QApplication::startDragDistance())
        return false;
    ZelDragSource::Load load;
    load.data = std::make_unique<ZelColorMimeData>(m_color);
    load.image = ZelColorSwatch::image(m_color).pixmap(g_imageSize, m_widget->devicePixelRatioF());
    load.hotSpot = QPoint(g_imageSize.width() / 2, g_imageSize.height() / 2);
    ZelDragSource::begin(m_widget, std::move(load));
    return true;
}
