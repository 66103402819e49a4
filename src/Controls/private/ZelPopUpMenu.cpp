// SPDX-License-Identifier: MIT
#include "Controls/private/ZelPopUpMenu.h"

#include "Controls/Menus/ZelMenuItem.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionMenuItem>
#include <QWidgetAction>
#include <QWindow>

ZelPopUpMenu::ZelPopUpMenu(QWidget *button)
    : m_button(button)
{
    setLayoutDirection(button->layoutDirection());
    setFont(button->font());
    setMinimumWidth(button->width());
    setToolTipsVisible(true);
    setScreen(button->screen());
    // Makes the native window, without which there is no handle.
    winId();
    windowHandle()->setTransientParent(button->window()->windowHandle());
}

void ZelPopUpMenu::open()
{
    if (!m_button)
        return;
    ensurePolished();
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int x = mirrored ? m_button->width() - sizeHint().width() : 0;
    if (!m_marked || !m_marked->isVisible()) {
        popup(m_button->mapToGlobal(QPoint(x, m_button->height())));
        return;
    }
    const int itemHeight = actionGeometry(m_marked).height();
    popup(m_button->mapToGlobal(QPoint(x, (m_button->height() - itemHeight) / 2)), m_marked);
    setActiveAction(m_marked);
}

void ZelPopUpMenu::initStyleOption(QStyleOptionMenuItem *option, const QAction *action) const
{
    QMenu::initStyleOption(option, action);
    if (!hasMarks() || action->isSeparator())
        return;
    option->menuHasCheckableItems = true;
    option->checkType = m_choosesSeveral ? QStyleOptionMenuItem::NonExclusive : QStyleOptionMenuItem::Exclusive;
    option->checked = markOf(action) == Qt::Checked;
}

void ZelPopUpMenu::setMarks(const Marks &marks)
{
    m_marks = marks;
    update();
}

Qt::CheckState ZelPopUpMenu::markOf(const QAction *item) const
{
    return item && item == m_marked ? Qt::Checked : m_marks.value(item, Qt::Unchecked);
}

// Styles know no third state of an item in a menu, so the dash is drawn over what they draw.

void ZelPopUpMenu::paintEvent(QPaintEvent *event)
{
    QMenu::paintEvent(event);
    QPainter painter(this);
    const QList<QAction *> items = actions();
    for (const QAction *item : items) {
        if (item->isVisible() && markOf(item) == Qt::PartiallyChecked)
            paintDash(&painter, item);
    }
}

/// The place where the style draws its mark, whichever style it is: that in which a checked item differs from an
/// unchecked one.
QRect ZelPopUpMenu::markRect(const QAction *item) const
{
    const QRect place = actionGeometry(const_cast<QAction *>(item));
    QStyleOptionMenuItem option;
    initStyleOption(&option, item);
    option.state &= ~QStyle::State_Selected;
    option.rect = QRect(QPoint(), place.size());
    const auto picture = [&](bool isChecked) {
        QImage image(place.size(), QImage::Format_RGB32);
        image.fill(palette().color(QPalette::Window));
        QPainter painter(&image);
        option.checked = isChecked;
        style()->drawControl(QStyle::CE_MenuItem, &option, &painter, this);
        return image;
    };
    const QImage plain = picture(false);
    const QImage checked = picture(true);
    QRect mark;
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            if (plain.pixel(x, y) != checked.pixel(x, y))
                mark |= QRect(x, y, 1, 1);
        }
    }
    return mark.translated(place.topLeft());
}

void ZelPopUpMenu::paintDash(QPainter *painter, const QAction *item) const
{
    QStyleOptionMenuItem option;
    initStyleOption(&option, item);
    const bool isSelected = option.state & QStyle::State_Selected;
    const QPalette::ColorGroup group = item->isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor color = palette().color(group, isSelected ? QPalette::HighlightedText : QPalette::ButtonText);
    constexpr QSize size(8, 2);
    QRect dash({}, size);
    dash.moveCenter(markRect(item).center());
    if (!item->icon().isNull() && item->isIconVisibleInMenu()) // some styles draw the mark around the picture
        dash.moveBottom(actionGeometry(const_cast<QAction *>(item)).bottom());
    painter->fillRect(dash, color);
}

void ZelPopUpMenu::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Home && event->key() != Qt::Key_End) {
        QMenu::keyPressEvent(event);
        return;
    }
    QList<QAction *> items = actions();
    if (event->key() == Qt::Key_End)
        std::reverse(items.begin(), items.end());
    const auto isPlain = [](const QAction *item) {
        return ZelMenuItem::isChoosable(item) && !qobject_cast<const QWidgetAction *>(item);
    };
    const auto item = std::find_if(items.cbegin(), items.cend(), isPlain);
    if (item != items.cend())
        setActiveAction(*item);
}

void ZelPopUpMenu::mousePressEvent(QMouseEvent *event)
{
    // A press on the button closes the menu. Qt must not replay it to the button, which would open the menu again.
    const QPoint position = event->globalPosition().toPoint();
    if (!rect().contains(event->position().toPoint()) && m_button &&
        m_button->rect().contains(m_button->mapFromGlobal(position)))
        setAttribute(Qt::WA_NoMouseReplay);
    QMenu::mousePressEvent(event);
}
