// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Selection/ZelUndoManager.h"

#include <QAbstractScrollArea>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

/// A shown, active window with an undo manager, a widget to take the focus away, and the control under test. It keeps a
/// log of what the control reports: "valueEdited" and "action".
template<typename Control> class ControlPanel : public QWidget
{
public:
    template<typename... Arguments> explicit ControlPanel(Arguments &&...arguments)
    {
        auto *layout = new QVBoxLayout(this);
        other = new QWidget(this);
        other->setFocusPolicy(Qt::StrongFocus);
        other->setMinimumSize(20, 20);
        layout->addWidget(other);
        control = new Control(std::forward<Arguments>(arguments)..., this);
        layout->addWidget(control);
        ZelUndoManager::setForWindow(this, &undo);
        connect(control, &Control::valueEdited, this, [this] {
            log.append(QStringLiteral("valueEdited"));
            level = undo.groupingLevel();
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

    QStringList takeLog() { return std::exchange(log, {}); }
    static QStringList edits(int count)
    {
        QStringList all;
        for (int i = 0; i < count; ++i)
            all << QStringLiteral("valueEdited") << QStringLiteral("action");
        return all;
    }
    /// Whether a wheel step over the control was taken by it.
    bool wheel(int angle)
    {
        const QPointF centre = QRectF(control->rect()).center();
        QWheelEvent event(centre, control->mapToGlobal(centre), QPoint(), QPoint(0, angle), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        event.setAccepted(false);
        QCoreApplication::sendEvent(control, &event);
        return event.isAccepted();
    }

    QPointer<Control> control;
    QWidget *other = nullptr;
    ZelUndoManager undo;
    QStringList log;
    int level = -1;
    bool ready = false;
    std::function<void()> whenEdited;
};
