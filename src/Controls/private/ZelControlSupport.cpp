// SPDX-License-Identifier: MIT
#include "Controls/private/ZelControlSupport.h"

#include "Controls/private/ZelControlAccessibility.h"
#include "Controls/private/ZelControlAccessors.h"
#include "Controls/private/ZelRefusalMark.h"
#include "Controls/private/ZelThemeColor.h"
#include "Core/Binding/ZelEditor.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/Undo/private/ZelModelValidation.h"
#include "Core/Values/ZelNumberChange.h"
#include "Core/Values/ZelValues.h"
#include "Resources/ZelLocalizedString.h"

#include <QApplication>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QWidget>

namespace {

/// Commits what is being typed before a step of undo or redo begins on the undo stack of that window. One object serves
/// all controls.
class TypingBeforeUndo : public ZelNotificationObserver
{
public:
    static void listen() { static TypingBeforeUndo listener; }

    void observeNotification(const ZelNotification &notification) override
    {
        QWidget *focus = QApplication::focusWidget();
        const ZelUndoManager *manager = ZelUndoManager::forWidget(focus);
        if (!manager || !manager->stack() || manager->stack() != notification.object)
            return;
        for (QWidget *widget = focus; widget; widget = widget->parentWidget()) {
            if (auto *editor = qobject_cast<ZelEditor *>(widget)) {
                editor->commitEditing();
                return;
            }
        }
    }

private:
    TypingBeforeUndo() { ZelNotificationCenter::defaultCenter()->addObserver(this, ZelUndoStepWillBeginNotification); }
};

// Registered here and not in prepare(), because an application may bind only controls of Qt's own.
[[maybe_unused]] const bool g_hasAccessors = (ZelPropertyAccessor::registerLater(&ZelRegisterControlAccessors), true);

} // namespace

void ZelControlSupport::prepare()
{
    static const bool prepared = [] {
        ZelRegisterControlAccessibility();
        TypingBeforeUndo::listen();
        return true;
    }();
    Q_UNUSED(prepared)
}

QString ZelControlSupport::markerText(const QVariant &value)
{
    if (ZelIsMarker(value, ZelMultipleValuesMarker))
        return ZelLocalizedString(QStringLiteral("Multiple Values"));
    if (ZelIsMarker(value, ZelNoSelectionMarker))
        return ZelLocalizedString(QStringLiteral("No Selection"));
    if (ZelIsMarker(value, ZelNotApplicableMarker))
        return ZelLocalizedString(QStringLiteral("Not Applicable"));
    return {};
}

bool ZelControlSupport::isInput(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

bool ZelControlSupport::endsMouseGrab(const QEvent *event, const QWidget *widget)
{
    switch (event->type()) {
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
    case QEvent::ParentChange:
        return true;
    case QEvent::EnabledChange:
        return !widget->isEnabled();
    default:
        return false;
    }
}

bool ZelControlSupport::isMarkerText(const QString &text)
{
    constexpr ZelControllerMarker markers[] = {ZelMultipleValuesMarker, ZelNoSelectionMarker, ZelNotApplicableMarker};
    return !text.isEmpty() && std::any_of(std::begin(markers), std::end(markers), [&](ZelControllerMarker marker) {
        return text == markerText(QVariant::fromValue(marker));
    });
}

QString ZelControlSupport::fitted(const QString &text, const QFontMetrics &metrics, int width)
{
    const QString elided = metrics.elidedText(text, Qt::ElideRight, width);
    return elided != text && isMarkerText(text) ? ZelShortMarkerText : elided;
}

void ZelControlSupport::showDisabled(QStyleOption *option)
{
    option->state &= ~(QStyle::State_Enabled | QStyle::State_MouseOver);
    QPalette &colors = option->palette;
    if (colors.currentColorGroup() != QPalette::Disabled) {
        const QColor text = ZelThemeColor::legible(colors.color(QPalette::Disabled, QPalette::Text), colors);
        for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
            colors.setColor(QPalette::Disabled, role, text);
    }
    colors.setCurrentColorGroup(QPalette::Disabled);
}

void ZelControlSupport::showTypable(QStyleOption *option, bool isEditable)
{
    if (!isEditable || !option->state.testFlag(QStyle::State_Enabled))
        option->palette.setColor(QPalette::Base, ZelThemeColor::closed(option->palette));
}

bool ZelControlSupport::hasCommandModifier(const QKeyEvent *event)
{
    return event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

int ZelControlSupport::wheelSteps(const QWheelEvent *event, int *angle)
{
    const QPoint delta = event->angleDelta();
    *angle += event->modifiers() & Qt::AltModifier ? delta.x() + delta.y() : delta.y(); // Qt turns the wheel then
    const int steps = *angle / QWheelEvent::DefaultDeltasPerStep;
    *angle -= steps * QWheelEvent::DefaultDeltasPerStep;
    return steps;
}

void ZelControlSupport::letShrink(QWidget *button)
{
    QSizePolicy policy = button->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Preferred);
    button->setSizePolicy(policy);
}

int ZelControlSupport::fieldHeight(const QWidget *widget, bool framed)
{
    QStyleOptionFrame option;
    option.initFrom(widget);
    option.lineWidth = framed ? widget->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, widget) : 0;
    // QLineEdit's smallest text height and its vertical margins.
    const int height = std::max(option.fontMetrics.height(), 14) + 2;
    return widget->style()->sizeFromContents(QStyle::CT_LineEdit, &option, QSize(0, height), widget).height();
}

void ZelControlSupport::reportEdit(QWidget *control, const std::function<void()> &valueEdited,
                                   const std::function<void()> &action)
{
    const QPointer<QWidget> guard(control);
    const ZelEventScope delivery; // a clicked list of Qt's own uses the control afterwards, too
    const ZelUndoGrouping grouping(control);
    QString refusal;
    const bool isDone = ZelExceptionReporter::run(control, [&] {
        try {
            valueEdited();
            if (guard)
                action();
        } catch (const ZelRefusedEditException &exception) {
            refusal = ZelRefusalMark::text(exception.validation());
        }
    });
    if ((!isDone || !refusal.isNull()) && guard)
        ZelExceptionReporter::run(
            control, [control] { ZelNotificationCenter::defaultCenter()->post(ZelEditDidFailNotification, control); });
    if (!refusal.isNull() && guard)
        ZelRefusalMark::show(control, refusal);
}

void ZelControlSupport::announceValue(QWidget *control, const QVariant &value)
{
    if (!QAccessible::isActive() || ZelNumberChange::of(value)) // the changed value follows
        return;
    QAccessibleValueChangeEvent event(control, value);
    QAccessible::updateAccessibility(&event);
}

bool ZelControlSupport::isReturn(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}
