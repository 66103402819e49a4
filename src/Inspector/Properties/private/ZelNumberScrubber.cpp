// SPDX-License-Identifier: MIT
#include "Inspector/Properties/private/ZelNumberScrubber.h"

#include "Controls/Fields/ZelTextField.h"
#include "Controls/private/ZelFieldSteps.h"
#include "Controls/private/ZelPressGrouping.h"
#include "Core/Undo/private/ZelOwnNumbers.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QTimerEvent>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace {

constexpr double g_pixelsPerStep = 4;
constexpr int g_frameDuration = 16;    // milliseconds
constexpr qint64 g_joinDuration = 500; // milliseconds, in which a further title is to be reached
constexpr int g_restDuration = 200;    // milliseconds, for which the pointer is to rest on it
constexpr int g_restDistance = 3;      // pixels, which a resting hand may move

} // namespace

ZelNumberScrubber::ZelNumberScrubber(QWidget *title, ZelInspectorNumberProperty *editor)
    : ZelGuarded(title)
    , m_editor(editor)
{
    title->installEventFilter(this);
}

ZelNumberScrubber::~ZelNumberScrubber() = default;

QWidget *ZelNumberScrubber::title() const
{
    return static_cast<QWidget *>(parent());
}

ZelTextField *ZelNumberScrubber::field() const
{
    return m_editor ? m_editor->textField() : nullptr;
}

bool ZelNumberScrubber::canScrub() const
{
    const ZelTextField *field = this->field();
    return field && field->isEditable() && field->isEnabled() && field->increment() != 0;
}

// Events

bool ZelNumberScrubber::filterEvent(QObject *watched, QEvent *event)
{
    return watched == parent() ? filterTitle(event) : filterEscape(event);
}

bool ZelNumberScrubber::filterTitle(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Enter:
        if (canScrub())
            title()->setCursor(Qt::SizeHorCursor);
        else
            title()->unsetCursor();
        return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::LeftButton && canScrub())
            press(mouse);
        return m_isPressed;
    }
    case QEvent::MouseMove:
        return m_isPressed && move(static_cast<QMouseEvent *>(event)->globalPosition().toPoint());
    case QEvent::MouseButtonRelease:
        if (!m_isPressed || static_cast<QMouseEvent *>(event)->button() != Qt::LeftButton)
            return false;
        end();
        return true;
    default:
        return false;
    }
}

/// The keys go to whatever has the focus, so they are watched in the whole application while a number is dragged.
bool ZelNumberScrubber::filterEscape(QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
        return false;
    event->accept();
    if (event->type() == QEvent::KeyPress)
        cancel();
    return true;
}

bool ZelNumberScrubber::handleEvent(QEvent *event)
{
    const int timer = event->type() == QEvent::Timer ? static_cast<QTimerEvent *>(event)->timerId() : 0;
    if (timer != 0 && timer == m_rest.timerId()) {
        m_rest.stop();
        if (ZelNumberScrubber *neighbour = m_grouping ? neighbourAt(m_restPosition) : nullptr)
            join(neighbour);
        return true;
    }
    if (timer == 0 || timer != m_frame.timerId())
        return QObject::event(event);
    if (m_isChanged)
        change();
    else
        m_frame.stop();
    return true;
}

// The drag

void ZelNumberScrubber::press(const QMouseEvent *event)
{
    m_isPressed = true;
    m_pressPosition = m_lastPosition = event->globalPosition().toPoint();
    m_pixels = m_steps = 0;
    m_sinceJoin.start();
}

bool ZelNumberScrubber::move(const QPoint &position)
{
    const bool isDrag = (position - m_pressPosition).manhattanLength() >= QApplication::startDragDistance();
    if (!m_grouping && (!isDrag || !begin()))
        return true;
    const int forwards = title()->layoutDirection() == Qt::RightToLeft ? -1 : 1;
    m_pixels += forwards * (position.x() - m_lastPosition.x());
    m_lastPosition = position;
    watchRest(position);
    const double steps = std::trunc(m_pixels / g_pixelsPerStep);
    m_pixels -= steps * g_pixelsPerStep;
    const Qt::KeyboardModifiers modifiers = QApplication::keyboardModifiers();
    m_steps += steps * (modifiers & Qt::ControlModifier ? 10 : 1) * (modifiers & Qt::ShiftModifier ? 0.1 : 1);
    if (steps != 0)
        requestChange();
    else
        wrap(position);
    return true;
}

/// Answers whether the drag has begun. What is being typed into the field is taken first.
bool ZelNumberScrubber::begin()
{
    const QPointer<ZelNumberScrubber> alive(this);
    if (!field()->commitEditing() || !alive || !canScrub()) {
        if (alive)
            m_isPressed = false;
        return false;
    }
    m_grouping = std::make_unique<ZelPressGrouping>(title(), [this] { end(); });
    QCoreApplication::instance()->installEventFilter(this);
    addNumber(this);
    return true;
}

void ZelNumberScrubber::addNumber(ZelNumberScrubber *scrubber)
{
    const ZelInspectorNumberProperty *editor = scrubber->m_editor;
    ZelOwnNumbers own(editor->owner(), editor->keyPath(), editor->valueTransformer());
    m_numbers.push_back({scrubber, own.numbers()});
    scrubber->showScrubbed(true);
}

/// The number whose title is at the position, if it can be changed together with this one and is not yet.
ZelNumberScrubber *ZelNumberScrubber::neighbourAt(const QPoint &position) const
{
    const QWidget *widget = QApplication::widgetAt(position);
    auto *other = widget ? widget->findChild<ZelNumberScrubber *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
    const auto isSame = [other](const Number &number) { return number.scrubber == other; };
    if (!other || !m_editor || std::any_of(m_numbers.begin(), m_numbers.end(), isSame) || !other->canScrub() ||
        other->m_editor->parent() != m_editor->parent())
        return nullptr;
    return other;
}

/// A rest that begins later is one of somebody who looks at the numbers.
void ZelNumberScrubber::watchRest(const QPoint &position)
{
    if (m_rest.isActive() && (position - m_restPosition).manhattanLength() <= g_restDistance)
        return;
    m_restPosition = position;
    if (m_sinceJoin.elapsed() <= g_joinDuration && neighbourAt(position))
        m_rest.start(g_restDuration, Qt::PreciseTimer, this);
    else
        m_rest.stop();
}

/// What was dragged up to here was the way to the neighbour.
void ZelNumberScrubber::join(ZelNumberScrubber *neighbour)
{
    addNumber(neighbour);
    m_pixels = m_steps = 0;
    m_sinceJoin.start();
    requestChange();
}

/// Lets the pointer go on at the other edge of the screen, where the platform can move it.
void ZelNumberScrubber::wrap(const QPoint &position)
{
    const QScreen *screen = QGuiApplication::screenAt(position);
    if (!screen)
        return;
    const QRect area = screen->geometry().adjusted(1, 0, -1, 0);
    if (position.x() > area.left() && position.x() < area.right())
        return;
    const QPoint target(position.x() <= area.left() ? area.right() - 1 : area.left() + 1, position.y());
    QCursor::setPos(target);
    if (QCursor::pos() == target)
        m_lastPosition = target;
}

// Changing

/// Changes the numbers now or, if they have been changed in this frame already, in the next one.
void ZelNumberScrubber::requestChange()
{
    m_isChanged = true;
    wrap(m_lastPosition);
    if (m_frame.isActive())
        return;
    m_frame.start(g_frameDuration, Qt::PreciseTimer, this);
    change();
}

void ZelNumberScrubber::change()
{
    const QPointer<ZelNumberScrubber> alive(this);
    m_isChanged = false;
    const double steps = m_steps;
    const std::vector<Number> numbers = m_numbers; // a setter may end the drag
    for (const Number &number : numbers) {
        if (number.scrubber && number.scrubber->canScrub())
            number.scrubber->enter(number.originals, steps);
    }
    if (alive && m_grouping)
        showChange();
}

/// A field that shows several different numbers does not tell what the drag does.
void ZelNumberScrubber::showChange() const
{
    const ZelTextField *field = this->field();
    if (!field || !field->formatter() || !ZelIsMarker(field->objectValue(), ZelMultipleValuesMarker))
        return QToolTip::hideText();
    const ZelValueTransformerPtr &transformer = m_editor->valueTransformer();
    const auto shown = [&](double number) {
        return transformer ? transformer->transformedValue(number).toDouble() : number;
    };
    const double change = ZelFieldSteps().range.stepped(shown(m_steps * field->increment()), -shown(0));
    const QString text = field->formatter()->stringForObjectValue(change);
    QToolTip::showText(m_lastPosition, change > 0 ? QLatin1Char('+') + text : text, title());
}

void ZelNumberScrubber::enter(const std::shared_ptr<const std::vector<double>> &originals, double steps) const
{
    ZelTextField *field = this->field();
    const auto number = [originals, step = field->stepFunction(), steps](double own, qsizetype index, qsizetype count) {
        if (count != qsizetype(originals->size()))
            return own; // other objects are selected by now
        const double original = (*originals)[size_t(index)];
        return steps == 0 || std::isnan(original) ? original : step(original, steps);
    };
    field->enterValue(QVariant::fromValue(ZelNumberChange(number, true)));
}

/// Afterwards the title has the font back that it was given, or none of its own, and follows its parent's again.
void ZelNumberScrubber::showScrubbed(bool scrubbed)
{
    if (!scrubbed) {
        title()->setFont(m_titleFont);
        return;
    }
    m_titleFont = title()->testAttribute(Qt::WA_SetFont) ? title()->font() : QFont();
    QFont font = m_titleFont;
    font.setUnderline(true);
    title()->setFont(font);
}

// The end

/// If nobody recorded changes that can be undone, the former numbers are entered again.
void ZelNumberScrubber::cancel()
{
    const QPointer<ZelNumberScrubber> alive(this);
    m_isChanged = false;
    const bool wasUndone = m_grouping && m_grouping->rollBack();
    if (!alive)
        return;
    m_steps = 0;
    if (!wasUndone)
        change();
    if (alive)
        end();
}

void ZelNumberScrubber::end()
{
    const QPointer<ZelNumberScrubber> alive(this);
    m_isPressed = false;
    m_frame.stop();
    m_rest.stop();
    if (!m_grouping) { // a click
        if (ZelTextField *field = this->field()) {
            field->setFocus(Qt::MouseFocusReason);
            field->selectAll();
        }
        return;
    }
    if (m_isChanged)
        change();
    if (alive && m_steps == 0 && m_grouping)
        m_grouping->rollBack(); // all is as before, which is no step
    if (!alive)
        return;
    QCoreApplication::instance()->removeEventFilter(this);
    QToolTip::hideText();
    for (const Number &number : std::exchange(m_numbers, {})) {
        if (number.scrubber)
            number.scrubber->showScrubbed(false);
    }
    const auto grouping = std::move(m_grouping); // destroyed last: its end may call others
}
