// SPDX-License-Identifier: MIT
#include "Controls/Menus/ZelPopUpButton.h"

#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/ZelControlSize.h"
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelPopUpMenu.h"
#include "Controls/private/ZelTextWidth.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/RunLoop/ZelMemberScope.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"
#include "ViewController/private/ZelControlHelp.h"

#include <QActionEvent>
#include <QApplication>
#include <QStyleOptionComboBox>
#include <QStylePainter>

ZelPopUpButton::ZelPopUpButton(QWidget *parent)
    : ZelGuarded(parent)
{
    ZelControlSupport::prepare();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

ZelPopUpButton::~ZelPopUpButton()
{
    detachMenu();
}

void ZelPopUpButton::setItems(const QList<QAction *> &items)
{
    const QPointer<QAction> selected = m_selected;
    {
        const ZelMemberScope replacing(this, m_replacingItems, true);
        const QSet<QAction *> kept(items.begin(), items.end());
        const QList<QAction *> former = actions();
        for (QAction *item : former) {
            removeAction(item);
            // Deleted later, because the choice of one of these items may have led here.
            if (item->parent() == this && !kept.contains(item))
                item->deleteLater();
        }
        addActions(items);
        m_selected = selected && kept.contains(selected) ? selected.data() : itemForStoredValue();
    }
    update();
    if (m_selected != selected)
        Q_EMIT selectedItemChanged();
}

ZelMenuItem *ZelPopUpButton::addItemWithTitle(const QString &title, const QVariant &representedObject)
{
    auto *item = new ZelMenuItem(title, {}, representedObject, this);
    addAction(item);
    return item;
}

QAction *ZelPopUpButton::itemForRepresentedObject(const QVariant &value) const
{
    const QList<QAction *> items = actions();
    const auto found = std::find_if(items.begin(), items.end(), [&value](const QAction *item) {
        return !item->isSeparator() && ZelEqual(item->data(), value);
    });
    return found == items.end() ? nullptr : *found;
}

QAction *ZelPopUpButton::itemForStoredValue() const
{
    return ZelIsNull(m_value.value()) || ZelIsControllerMarker(m_value.value())
               ? nullptr
               : itemForRepresentedObject(m_value.value());
}

void ZelPopUpButton::setSelected(QAction *item, const QVariant &value)
{
    const bool itemChanged = item != m_selected;
    const bool valueChanged = !ZelEqual(value, m_value.value());
    m_selected = item;
    m_value.keep(value);
    if (!itemChanged && !valueChanged)
        return;
    update();
    ZelControlSupport::announceValue(this);
    const QPointer<ZelPopUpButton> guard(this);
    if (itemChanged)
        Q_EMIT selectedItemChanged();
    if (guard && valueChanged)
        Q_EMIT objectValueChanged();
}

void ZelPopUpButton::selectItem(QAction *item)
{
    const bool selectable = item && !item->isSeparator() && actions().contains(item);
    setSelected(selectable ? item : nullptr, selectable ? item->data() : QVariant());
}

int ZelPopUpButton::selectedIndex() const
{
    return m_selected ? int(actions().indexOf(m_selected)) : -1;
}

void ZelPopUpButton::setSelectedIndex(int index)
{
    selectItem(actions().value(index));
}

void ZelPopUpButton::setObjectValue(const QVariant &value)
{
    const bool none = ZelIsNull(value) || ZelIsControllerMarker(value);
    setSelected(none ? nullptr : itemForRepresentedObject(value), value);
}

void ZelPopUpButton::setPullsDown(bool pullsDown)
{
    m_pullsDown = pullsDown;
    m_sizeHint = QSize();
    updateGeometry();
    update();
}

void ZelPopUpButton::setEditable(bool editable)
{
    if (!ZelAssign(m_editable, editable))
        return;
    if (!editable)
        detachMenu();
    update();
    Q_EMIT editableChanged();
}

QList<QAction *> ZelPopUpButton::menuItems()
{
    return m_pullsDown ? actions().mid(1) : actions();
}

QAction *ZelPopUpButton::shownItem() const
{
    return m_pullsDown ? actions().value(0) : m_selected.data();
}

QString ZelPopUpButton::shownText() const
{
    const QAction *item = shownItem();
    return item ? ZelMenuItem::titleOf(item) : ZelControlSupport::markerText(m_value.value());
}

bool ZelPopUpButton::canStepTo(const QAction *item) const
{
    return ZelMenuItem::isChoosable(item);
}

bool ZelPopUpButton::isMenuOpen() const
{
    return m_menu && m_menu->isVisible();
}

/// Answers false if the button is gone: an item may be selected as soon as it exists, and who hears it may do anything.
bool ZelPopUpButton::survivesPreparingItems()
{
    const QPointer<ZelPopUpButton> guard(this);
    prepareItems();
    return guard;
}

ZelPopUpButton::ItemMarks ZelPopUpButton::itemMarks() const
{
    const bool isAsked = m_marks && (m_pullsDown || ZelIsMarker(objectValue(), ZelMultipleValuesMarker));
    return isAsked ? m_marks() : ItemMarks();
}

void ZelPopUpButton::showMenu()
{
    if (!survivesPreparingItems())
        return;
    if (!m_editable || !isEnabled() || isMenuOpen())
        return;
    const QPointer<ZelPopUpButton> guard(this);
    const ItemMarks marks = itemMarks(); // reads the model, so anything may happen
    const QList<QAction *> items = guard ? menuItems() : QList<QAction *>();
    const auto isVisible = [](const QAction *item) { return item->isVisible() && !item->isSeparator(); };
    if (std::none_of(items.begin(), items.end(), isVisible))
        return;
    detachMenu();
    auto *menu = new ZelPopUpMenu(this);
    m_menu = menu;
    menu->addActions(items);
    if (!m_pullsDown)
        menu->setMarkedItem(m_selected);
    menu->setMarks(marks);
    menu->setChoosesSeveral(m_pullsDown);
    connect(menu, &QMenu::triggered, this,
            [this](QAction *item) { ZelExceptionReporter::run(this, [this, item] { chooseItem(item); }); });
    connect(menu, &QMenu::aboutToHide, menu, &QObject::deleteLater);
    connect(menu, &QMenu::aboutToHide, this, [this] {
        m_menu = nullptr;
        update();
    });
    menu->open();
    update();
}

/// Deletes the menu later, because it may be reporting the choice just now.
void ZelPopUpButton::detachMenu()
{
    if (!m_menu)
        return;
    ZelPopUpMenu *menu = m_menu;
    m_menu = nullptr;
    menu->disconnect(this);
    menu->hide();
    menu->deleteLater();
}

void ZelPopUpButton::syncMenu()
{
    m_menuIsStale = false;
    if (!isMenuOpen())
        return;
    const QList<QAction *> former = m_menu->actions();
    for (QAction *item : former)
        m_menu->removeAction(item);
    m_menu->addActions(menuItems());
    const QPointer<ZelPopUpMenu> menu(m_menu);
    const ItemMarks marks = itemMarks();
    if (menu)
        menu->setMarks(marks);
}

void ZelPopUpButton::chooseItem(QAction *item)
{
    const bool changes = !m_pullsDown && actions().contains(item);
    const bool edits = changes && (item != m_selected || !ZelEqual(item->data(), m_value.value()));
    const QPointer<ZelPopUpButton> guard(this);
    if (changes)
        setSelected(item, item->data());
    if (!guard)
        return;
    if (edits)
        ZelControlSupport::reportEdit(this);
    else
        Q_EMIT action();
}

void ZelPopUpButton::chooseNeighbour(int from, int direction)
{
    const QList<QAction *> items = actions();
    for (int i = from; i >= 0 && i < items.size(); i += direction) {
        if (!canStepTo(items.at(i)))
            continue;
        const QPointer<QAction> item = items.at(i);
        const QPointer<ZelPopUpButton> guard(this);
        // As in a menu, the item is triggered before the choice is reported.
        item->trigger();
        if (guard && item)
            chooseItem(item);
        return;
    }
}

void ZelPopUpButton::actionEvent(QActionEvent *event)
{
    QWidget::actionEvent(event);
    m_sizeHint = QSize();
    updateGeometry();
    update();
    if (m_menu && !m_menuIsStale && event->type() != QEvent::ActionChanged) {
        // Queued, because many items may come and go in a row.
        m_menuIsStale = true;
        QMetaObject::invokeMethod(this, &ZelPopUpButton::syncMenu, Qt::QueuedConnection);
    }
    if (m_replacingItems)
        return;
    if (event->type() == QEvent::ActionRemoved && event->action() == m_selected) {
        m_selected = nullptr;
        Q_EMIT selectedItemChanged();
    } else if (event->type() == QEvent::ActionAdded && !m_selected && m_value.value().isValid()) {
        m_selected = itemForStoredValue();
        if (m_selected)
            Q_EMIT selectedItemChanged();
    }
}

void ZelPopUpButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_sizeHint = QSize();
    QWidget::changeEvent(event);
}

bool ZelPopUpButton::handleEvent(QEvent *event)
{
    if (!m_editable && ZelControlSupport::isInput(event)) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::ToolTip) {
        const bool isCut = width() < sizeForTextWidth(fontMetrics().horizontalAdvance(shownText())).width();
        if (ZelControlHelp::showToolTip(event, this, isCut ? shownText() : QString()))
            return true;
    }
    return QWidget::event(event);
}

void ZelPopUpButton::hideEvent(QHideEvent *event)
{
    detachMenu();
    QWidget::hideEvent(event);
}

void ZelPopUpButton::keyPressEvent(QKeyEvent *event)
{
    const bool opens = event->key() == Qt::Key_F4 || (event->key() == Qt::Key_Space && !isTyping()) ||
                       ((event->key() == Qt::Key_Down || event->key() == Qt::Key_Up) &&
                        (m_pullsDown || event->modifiers() & Qt::AltModifier));
    if (opens) {
        showMenu();
        return;
    }
    if (m_pullsDown || ZelControlSupport::hasCommandModifier(event)) {
        event->ignore();
        return;
    }
    if (!survivesPreparingItems())
        return;
    const int index = selectedIndex();
    switch (event->key()) {
    case Qt::Key_Down:
        chooseNeighbour(index + 1, 1);
        break;
    case Qt::Key_Up:
        chooseNeighbour(index - 1, -1);
        break;
    case Qt::Key_Home:
        chooseNeighbour(0, 1);
        break;
    case Qt::Key_End:
        chooseNeighbour(int(actions().size()) - 1, -1);
        break;
    default:
        if (!typeAhead(event))
            event->ignore();
    }
}

bool ZelPopUpButton::isTyping() const
{
    return !m_typed.isEmpty() && !m_typedTimer.hasExpired(QApplication::keyboardInputInterval());
}

/// Goes to the item whose title begins with the letters that were typed in quick succession. The same letter again goes
/// to the next such item.
bool ZelPopUpButton::typeAhead(QKeyEvent *event)
{
    if (event->text().isEmpty() || !event->text().at(0).isPrint())
        return false;
    if (!isTyping())
        m_typed.clear();
    m_typedTimer.start();
    const bool again = m_typed == event->text();
    if (!again)
        m_typed += event->text();
    const QList<QAction *> items = actions();
    const int count = int(items.size());
    const int start = std::max(0, selectedIndex()) + (m_typed.size() == 1 ? 1 : 0);
    for (int i = 0; i < count; ++i) {
        const int index = (start + i) % count;
        if (!canStepTo(items.at(index)) ||
            !ZelMenuItem::titleOf(items.at(index)).startsWith(m_typed, Qt::CaseInsensitive))
            continue;
        if (index != selectedIndex())
            chooseNeighbour(index, 1);
        break;
    }
    return true;
}

void ZelPopUpButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        showMenu();
    else
        event->ignore();
}

void ZelPopUpButton::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus() || m_pullsDown) {
        event->ignore();
        return;
    }
    event->accept();
    if (!survivesPreparingItems())
        return;
    const int steps = ZelControlSupport::wheelSteps(event, &m_wheelAngle);
    if (steps)
        chooseNeighbour(selectedIndex() - steps, steps > 0 ? -1 : 1);
}

void ZelPopUpButton::initStyleOption(QStyleOptionComboBox *option) const
{
    option->initFrom(this);
    option->editable = false;
    option->frame = true;
    option->subControls = QStyle::SC_All;
    option->iconSize = ZelControlSize::imageSize;
    if (isMenuOpen()) {
        option->state |= QStyle::State_On | QStyle::State_Sunken;
        option->activeSubControls = QStyle::SC_ComboBoxArrow;
    }
    if (!m_editable)
        ZelControlSupport::showDisabled(option);
}

void ZelPopUpButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    int width = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this).width();
    const QAction *item = shownItem();
    const QVariant shown = item && !m_pullsDown ? item->data() : m_value.value();
    if (item && !ZelIsControllerMarker(shown)) {
        option.currentIcon = item->icon();
        if (!option.currentIcon.isNull())
            width -= option.iconSize.width() + 4;
    } else {
        // A marker has the same dimmed colour in every state of the button, because it is no value.
        const QColor dimmed = ZelThemeColor::dimmed(option.palette);
        option.palette.setColor(QPalette::ButtonText, dimmed);
        option.palette.setColor(QPalette::Text, dimmed);
    }
    option.currentText = ZelControlSupport::fitted(shownText(), option.fontMetrics, width);
    painter.setPen(option.palette.color(QPalette::ButtonText));
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

QSize ZelPopUpButton::sizeForTextWidth(int width) const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize contents(width, std::max(option.fontMetrics.height(), ZelControlSize::imageSide) + 2);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this);
}

QSize ZelPopUpButton::sizeHint() const
{
    if (m_sizeHint.isValid())
        return m_sizeHint;
    int widest = 0;
    const QList<QAction *> items = m_pullsDown ? actions().mid(0, 1) : actions();
    for (const QAction *item : items) {
        const int image = item->icon().isNull() ? 0 : ZelControlSize::imageSide + 4;
        widest = std::max(widest, ZelTextWidth(this, ZelMenuItem::titleOf(item)) + image);
    }
    return m_sizeHint = sizeForTextWidth(widest + 1);
}

QSize ZelPopUpButton::minimumSizeHint() const
{
    return sizeForTextWidth(fontMetrics().horizontalAdvance(QChar(0x2026)) * 2).boundedTo(sizeHint());
}

double ZelPopUpButton::baselineOffsetForHeight(double height) const
{
    const QFontMetrics metrics = fontMetrics();
    return (height - metrics.height()) / 2 + metrics.ascent();
}
