// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelControlSupport.h"

#include "Platform/Controls/ZelControlAccessibility.h"
#include "Platform/Controls/ZelControlAccessors.h"
#include "Platform/Controls/ZelEditor.h"
#include "Platform/Controls/ZelThemeColor.h"
#include "Platform/Resources/ZelLocalizedString.h"
#include "Platform/RunLoop/ZelNotificationCenter.h"
#include "Platform/Runtime/ZelValues.h"

#include <QApplication>
#include <QHelpEvent>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <QWidget>

namespace {

/// Before a step of undo, what is being typed in a window of that stack is taken. One for all controls.
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

} // namespace

void ZelControlSupport::prepare()
{
    static const bool prepared = [] {
        ZelRegisterControlAccessors();
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

bool ZelControlSupport::showToolTip(QEvent *event, QWidget *widget, const QString &text)
{
    if (text.isEmpty() || !widget->toolTip().isEmpty())
        return false;
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), text, widget);
    event->accept();
    return true;
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

bool ZelControlSupport::hasCommandModifier(const QKeyEvent *event)
{
    return event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

int ZelControlSupport::wheelSteps(const QWheelEvent *event, int *angle)
{
    *angle += event->angleDelta().y();
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
    // The least height and the margins of a QLineEdit.
    const int height = std::max(option.fontMetrics.height(), 14) + 2;
    return widget->style()->sizeFromContents(QStyle::CT_LineEdit, &option, QSize(0, height), widget).height();
}

void ZelControlSupport::noteFailedEdit(QWidget *control)
{
    ZelExceptionReporter::run(
        control, [control] { ZelNotificationCenter::defaultCenter()->post(ZelEditDidFailNotification, control); });
}

void ZelControlSupport::sendValueChange(QWidget *control, const QVariant &value)
{
    QAccessibleValueChangeEvent event(control, value);
    QAccessible::updateAccessibility(&event);
}
