// SPDX-License-Identifier: MIT
#pragma once

#include "Core/RunLoop/ZelPassiveEdits.h"
#include "Core/Undo/ZelUndoManager.h"

#include <QAbstractScrollArea>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

/// A shown, active window with an undo manager, a widget to take the focus away, and the control under test. It keeps a
/// log of what the control reports: "valueEdited" and "action".
class ControlPanelBase : public QWidget
{
public:
    QStringList takeLog() { return std::exchange(log, {}); }
    static QStringList edits(int count)
    {
        QStringList all;
        for (int i = 0; i < count; ++i)
            all << QStringLiteral("valueEdited") << QStringLiteral("action");
        return all;
    }
    /// Whether a wheel step over the control was taken by it.
    bool wheel(int angle) const
    {
        const QPointF centre = QRectF(widget->rect()).center();
        QWheelEvent event(centre, widget->mapToGlobal(centre), QPoint(), QPoint(0, angle), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        event.setAccepted(false);
        QCoreApplication::sendEvent(widget, &event);
        return event.isAccepted();
    }

    QPointer<QWidget> widget; // the control
    QWidget *other = nullptr;
    ZelUndoManager undo;
    QStringList log;
    int level = -1;         // of the undo grouping, when the control reported
    bool isPassive = false; // so was the edit that it reported
    bool ready = false;
    std::function<void()> whenEdited;
};

/// The arguments are those of the control's constructor; of an abstract class, a function that makes it for its parent.
template<typename Control> class ControlPanel : public ControlPanelBase
{
public:
    template<typename... Arguments> explicit ControlPanel(Arguments &&...arguments)
    {
        auto *layout = new QVBoxLayout(this);
        other = new QWidget(this);
        other->setFocusPolicy(Qt::StrongFocus);
        other->setMinimumSize(20, 20);
        layout->addWidget(other);
        if constexpr (std::is_abstract_v<Control>)
            control = (arguments(this), ...);
        else
            control = new Control(std::forward<Arguments>(arguments)..., this);
        widget = control;
        layout->addWidget(control);
        ZelUndoManager::setForWindow(this, &undo);
        connect(control, &Control::valueEdited, this, [this] {
            log.append(QStringLiteral("valueEdited"));
            level = undo.groupingLevel();
            isPassive = ZelPassiveEdits::isActive();
            undo.registerUndo([] {}, [] {});
            if (whenEdited)
                whenEdited();
        });
        connect(control, &Control::action, this, [this] { log.append(QStringLiteral("action")); });
        show();
        activateWindow();
        ready = QTest::qWaitForWindowActive(this);
        other->setFocus();
    }

    ~ControlPanel() override
    {
        // Typing is committed when the window goes, after our members.
        if (control)
            control->disconnect(this);
    }

    QPointer<Control> control;
};
