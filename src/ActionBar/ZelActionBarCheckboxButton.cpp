// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBarCheckboxButton.h"

#include "Core/Errors/ZelExceptionReporter.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

namespace {

constexpr int g_margin = 3;
constexpr int g_titleGap = 4;

} // namespace

ZelActionBarCheckboxButton::ZelActionBarCheckboxButton(QWidget *parent)
    : ZelActionBarButton(parent)
{
    // `state` is the value. The base class is checkable only to toggle it and to look like a check box to assistive
    // technology.
    setCheckable(true);
    connect(this, &ZelActionBarButton::stateChanged, this, [this] { setChecked(state() != 0); });
    connect(this, &QAbstractButton::clicked, this, [this](bool checked) {
        ZelExceptionReporter::run(this, [this, checked] {
            setState(checked ? 1 : 0);
            Q_EMIT stateEdited();
        });
    });
}

QSize ZelActionBarCheckboxButton::indicatorSize() const
{
    return {style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this),
            style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, this)};
}

QSize ZelActionBarCheckboxButton::sizeHint() const
{
    const QSize size = ZelActionBarButton::sizeHint();
    if (!icon().isNull())
        return size;
    const int textWidth = title().isEmpty() ? 0 : titleWidth() + g_titleGap;
    return {indicatorSize().width() + textWidth + 2 * g_margin, qMax(size.height(), indicatorSize().height() + 2)};
}

bool ZelActionBarCheckboxButton::isLit() const
{
    return isDown() || (state() != 0 && !icon().isNull() && alternateImage().isNull());
}

void ZelActionBarCheckboxButton::drawContent(QPainter &painter)
{
    if (!shownImage().isNull()) {
        ZelActionBarButton::drawContent(painter);
        return;
    }
    QStyleOptionButton option;
    option.initFrom(this);
    option.state.setFlag(state() != 0 ? QStyle::State_On : QStyle::State_Off);
    option.state.setFlag(QStyle::State_Sunken, isDown());
    option.rect = QRect(QPoint(g_margin, 0), indicatorSize());
    option.rect.moveTop((height() - option.rect.height()) / 2);
    option.rect = QStyle::visualRect(layoutDirection(), rect(), option.rect);
    style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, this);
    const int left = g_margin + indicatorSize().width() + g_titleGap;
    const QRect place = QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(left, 0, -g_margin, 0));
    painter.setPen(titleColor());
    painter.drawText(place, int(Qt::AlignVCenter | Qt::AlignLeading),
                     fontMetrics().elidedText(title(), Qt::ElideRight, place.width()));
}
