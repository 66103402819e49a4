// SPDX-License-Identifier: MIT
#include "ColorPopUpButton/ZelColorPopUpButton.h"

#include "ColorPopUpButton/private/ZelColorDrag.h"
#include "ColorPopUpButton/private/ZelColorMimeData.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/ZelControlSize.h"
#include "Controls/private/ZelControlSupport.h"
#include "Controls/private/ZelDragSource.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/Values/ZelValues.h"
#include "Core/Values/private/ZelAssign.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionComboBox>

namespace {

/// Makes the key "value" the colour and not the menu item.
void registerValue()
{
    using Accessor = ZelFunctionAccessor<ZelColorPopUpButton>;
    auto accessor =
        std::make_unique<Accessor>([](const ZelColorPopUpButton *button) { return button->selectedColor(); },
                                   [](ZelColorPopUpButton *button, const QVariant &value) {
                                       button->setSelectedColor(value);
                                       return true;
                                   });
    accessor->setNotify(&ZelColorPopUpButton::selectedColorChanged)
        .setEdit(&ZelPopUpButton::valueEdited)
        .setTakesMarkers();
    ZelPropertyAccessor::registerAccessor(&ZelColorPopUpButton::staticMetaObject, "value", std::move(accessor));
}

} // namespace

ZelColorPopUpButton::ZelColorPopUpButton(QWidget *parent)
    : ZelPopUpButton(parent)
    , m_cell(new ZelColorPopUpButtonCell(this))
{
    static const bool registered = (registerValue(), true);
    Q_UNUSED(registered)
    setAcceptDrops(true);
    connect(m_cell, &ZelColorPopUpButtonCell::colorListChanged, this, &ZelColorPopUpButton::colorListChanged);
    connect(m_cell, &ZelColorPopUpButtonCell::defaultColorChanged, this, &ZelColorPopUpButton::defaultColorChanged);
    connect(m_cell, &ZelColorPopUpButtonCell::selectedColorChanged, this, &ZelColorPopUpButton::selectedColorChanged);
    connect(m_cell, &ZelColorPopUpButtonCell::showsAlphaChanged, this, &ZelColorPopUpButton::showsAlphaChanged);
}

ZelColorPopUpButton::~ZelColorPopUpButton()
{
    m_cell->deactivateColorPanel();
}

QSize ZelColorPopUpButton::sizeHint() const
{
    constexpr int letters = 13;
    return sizeForTextWidth(ZelControlSize::imageSide + 4 + letters * fontMetrics().averageCharWidth());
}

QAction *ZelColorPopUpButton::shownItem() const
{
    const bool isMarker =
        ZelIsMarker(selectedColor(), ZelNoSelectionMarker) || ZelIsMarker(selectedColor(), ZelMultipleValuesMarker);
    return isMarker ? nullptr : m_cell->displayItem(); // without an item the button shows the marker dimmed
}

QString ZelColorPopUpButton::spokenText() const
{
    const QString text = shownText();
    const QColor color = ZelColor::fromVariant(selectedColor()).toQColor();
    return text.isEmpty() && color.isValid() ? color.name() : text;
}

void ZelColorPopUpButton::prepareItems()
{
    m_cell->makeMenu();
}

bool ZelColorPopUpButton::canStepTo(const QAction *item) const
{
    const auto *known = qobject_cast<const ZelMenuItem *>(item);
    return known && ZelPopUpButton::canStepTo(item) &&
           (known->tag() == ZelColorPopUpButtonDefaultColorTag || ZelColor::isColor(known->representedObject())) &&
           known->tag() != ZelColorPopUpButtonCurrentColorTag;
}

QList<QAction *> ZelColorPopUpButton::menuItems()
{
    return m_cell->withItemsOfMenu(ZelPopUpButton::menuItems());
}

/// Does nothing, because the items select and report the colour themselves.
void ZelColorPopUpButton::chooseItem(QAction *) {}

bool ZelColorPopUpButton::handleEvent(QEvent *event)
{
    const bool isKey = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (isKey && handleClipboardKey(static_cast<QKeyEvent *>(event)))
        return true;
    if (ZelControlSupport::endsMouseGrab(event, this))
        endPress();
    return ZelPopUpButton::handleEvent(event);
}

// Dragging the colour away

void ZelColorPopUpButton::mousePressEvent(QMouseEvent *event)
{
    endPress();
    QStyleOptionComboBox option;
    option.initFrom(this);
    const bool isOnArrow = style()->hitTestComplexControl(QStyle::CC_ComboBox, &option, event->position().toPoint(),
                                                          this) == QStyle::SC_ComboBoxArrow;
    m_drag = isOnArrow ? nullptr : ZelColorDrag::press(this, event, ZelColor::fromVariant(selectedColor()));
    if (m_drag)
        m_holdTimer.start(QApplication::startDragTime(), this);
    else
        ZelPopUpButton::mousePressEvent(event);
}

void ZelColorPopUpButton::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_drag)
        ZelPopUpButton::mouseMoveEvent(event);
    else if (m_drag->begins(event))
        endPress();
}

void ZelColorPopUpButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_drag || event->button() != Qt::LeftButton) {
        ZelPopUpButton::mouseReleaseEvent(event);
        return;
    }
    endPress();
    if (rect().contains(event->position().toPoint()))
        showMenu();
}

void ZelColorPopUpButton::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_holdTimer.timerId()) {
        ZelPopUpButton::timerEvent(event);
        return;
    }
    endPress();
    showMenu();
}

void ZelColorPopUpButton::endPress()
{
    m_holdTimer.stop();
    m_drag.reset();
}

// Dropping a colour

/// The colour that the drop would give; invalid if the button would refuse it.
ZelColor ZelColorPopUpButton::colorToTake(const QDropEvent *event) const
{
    const bool takesDrops = isEnabled() && isEditable() && event->possibleActions() & Qt::CopyAction &&
                            ZelDragSource::widgetOf(event) != this;
    return takesDrops ? ZelColorMimeData::colorIn(event->mimeData()) : ZelColor();
}

void ZelColorPopUpButton::setDropTarget(bool isTarget)
{
    if (ZelAssign(m_isDropTarget, isTarget))
        update();
}

void ZelColorPopUpButton::dragEnterEvent(QDragEnterEvent *event)
{
    setDropTarget(colorToTake(event).isValid());
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(m_isDropTarget);
}

void ZelColorPopUpButton::dragMoveEvent(QDragMoveEvent *event)
{
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(m_isDropTarget);
}

void ZelColorPopUpButton::dragLeaveEvent(QDragLeaveEvent *)
{
    setDropTarget(false);
}

/// The button may not be the same any more that the drag has entered.
void ZelColorPopUpButton::dropEvent(QDropEvent *event)
{
    setDropTarget(false);
    const ZelColor color = colorToTake(event);
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(color.isValid());
    if (color.isValid())
        m_cell->chooseColor(color);
}

void ZelColorPopUpButton::paintEvent(QPaintEvent *event)
{
    ZelPopUpButton::paintEvent(event);
    if (!m_isDropTarget)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 2, 2);
}

// The clipboard

/// Answers whether the key is for the button: it has something to copy, or takes what is there to be pasted. Otherwise
/// the key belongs to the window.
bool ZelColorPopUpButton::handleClipboardKey(QKeyEvent *event)
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    ZelColor color;
    if (event->matches(QKeySequence::Copy))
        color = ZelColor::fromVariant(selectedColor());
    else if (event->matches(QKeySequence::Paste) && isEditable())
        color = ZelColorMimeData::colorIn(clipboard->mimeData());
    if (!color.toQColor().isValid())
        return false;
    event->accept();
    if (event->type() == QEvent::ShortcutOverride)
        return true;
    if (event->matches(QKeySequence::Copy))
        clipboard->setMimeData(new ZelColorMimeData(color));
    else
        m_cell->chooseColor(color);
    return true;
}
