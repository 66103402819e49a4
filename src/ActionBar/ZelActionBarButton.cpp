// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBarButton.h"

#include "Platform/Controls/ZelControlSize.h"
#include "Platform/Runtime/ZelPropertyAccessor.h"
#include "Platform/Runtime/ZelValues.h"

#include <QPainter>
#include <cmath>

namespace {

constexpr int g_imageMargin = 3; // left and right of the image
constexpr int g_titleMargin = 5;

QColor withAlpha(QColor color, float alpha)
{
    color.setAlphaF(alpha);
    return color;
}

/// The base class has a title, too, which it takes for the text and its mnemonic; and the state is edited by users.
void registerAccessors()
{
    using Accessor = ZelFunctionAccessor<ZelActionBarButton>;
    const auto add = [](const char *key, std::unique_ptr<Accessor> accessor) {
        ZelPropertyAccessor::registerAccessor(&ZelActionBarButton::staticMetaObject, key, std::move(accessor));
    };
    const auto isNothing = [](const QVariant &value) { return ZelIsNull(value) || ZelIsControllerMarker(value); };
    add("title", std::make_unique<Accessor>([](const ZelActionBarButton *button) { return QVariant(button->title()); },
                                            [=](ZelActionBarButton *button, const QVariant &value) {
                                                button->setTitle(isNothing(value) ? QString() : value.toString());
                                                return true;
                                            }));
    auto state = std::make_unique<Accessor>([](const ZelActionBarButton *button) { return QVariant(button->state()); },
                                            [=](ZelActionBarButton *button, const QVariant &value) {
                                                button->setState(isNothing(value) ? 0 : value.toInt());
                                                return true;
                                            });
    state->setNotify(&ZelActionBarButton::stateChanged).setEdit(&ZelActionBarButton::stateEdited);
    add("state", std::move(state));
}

} // namespace

ZelActionBarButton::ZelActionBarButton(QWidget *parent)
    : QAbstractButton(parent)
{
    static const bool registered = (registerAccessors(), true);
    Q_UNUSED(registered)
    setAttribute(Qt::WA_Hover);
    setFont(ZelControlSize::smallFont());
}

void ZelActionBarButton::setTitle(const QString &title)
{
    m_title = title;
    updateGeometry();
    update();
}

void ZelActionBarButton::setAlternateImage(const QIcon &image)
{
    m_alternateImage = image;
    update();
}

void ZelActionBarButton::setState(int state)
{
    if (m_state == state)
        return;
    m_state = state;
    update();
    Q_EMIT stateChanged();
}

void ZelActionBarButton::setKeyEquivalent(const QString &key)
{
    m_keyEquivalent = key;
    updateShortcut();
}

void ZelActionBarButton::setKeyEquivalentModifierMask(Qt::KeyboardModifiers mask)
{
    m_keyEquivalentModifierMask = mask;
    updateShortcut();
}

void ZelActionBarButton::updateShortcut()
{
    const QKeySequence key = QKeySequence::fromString(m_keyEquivalent, QKeySequence::PortableText);
    if (key.count() != 1 || key[0].key() == Qt::Key_unknown)
        setShortcut({});
    else
        setShortcut(QKeyCombination(key[0].keyboardModifiers() | m_keyEquivalentModifierMask, key[0].key()));
}

/// Rounded up: a title in less than its width is elided.
int ZelActionBarButton::titleWidth() const
{
    return int(std::ceil(QFontMetricsF(font()).horizontalAdvance(m_title)));
}

QSize ZelActionBarButton::sizeHint() const
{
    ensurePolished();
    const int height = qMax(ZelControlSize::imageSide + 2, fontMetrics().height());
    if (icon().isNull() && !m_title.isEmpty())
        return {titleWidth() + 2 * g_titleMargin, height};
    return {ZelControlSize::imageSide + 2 * g_imageMargin, height};
}

/// Faint where disabled: many palettes have no colour of their own for that.
QColor ZelActionBarButton::titleColor() const
{
    const QColor color = palette().color(QPalette::Active, QPalette::WindowText);
    return isEnabled() ? color : withAlpha(color, 0.4F);
}

void ZelActionBarButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (isEnabled() && (isLit() || underMouse())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(withAlpha(palette().color(QPalette::WindowText), isLit() ? 0.22F : 0.1F));
        painter.drawRoundedRect(area, 3, 3);
    }
    drawContent(painter);
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(withAlpha(palette().color(QPalette::Highlight), 0.8F), 1.5));
        painter.drawRoundedRect(area, 3, 3);
    }
}

void ZelActionBarButton::drawContent(QPainter &painter)
{
    const QIcon image = shownImage();
    if (!image.isNull()) {
        QRect place(QPoint(), ZelControlSize::imageSize);
        place.moveCenter(rect().center());
        image.paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled,
                    m_state != 0 ? QIcon::On : QIcon::Off);
        return;
    }
    const QRect place = rect().adjusted(g_titleMargin, 0, -g_titleMargin, 0);
    painter.setPen(titleColor());
    painter.drawText(place, Qt::AlignCenter, fontMetrics().elidedText(m_title, Qt::ElideRight, place.width()));
}
