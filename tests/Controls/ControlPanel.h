// SPDX-License-Identifier: MIT
#pragma once

#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/Fields/ZelNumberFormatter.h"
#include "Controls/Fields/ZelTextField.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Core/Values/ZelValues.h"
#include "Support/TableRow.h"
#include "Support/User.h"

inline QVariant several()
{
    return QVariant::fromValue(ZelMultipleValuesMarker);
}

/// The widget that gets the keys.
inline QWidget *keys()
{
    return QApplication::focusWidget();
}
inline void press(int key, Qt::KeyboardModifiers modifiers = {})
{
    QTest::keyClick(keys(), Qt::Key(key), modifiers);
}
inline void type(const QString &text)
{
    QTest::keyClicks(keys(), text);
}

/// A shown, active window with an undo manager, a widget to take the focus away, and the control under test. It keeps a
/// log of what the control reports; "changed", "valueEdited" and "action" in a row are "reported".
class ControlPanelBase : public QWidget
{
public:
    static inline const QStringList oneEdit{"changed", "valueEdited", "action"};

    QStringList takeLog() { return std::exchange(log, {}); }
    /// Plays steps such as "focus; 'b' > b; Return > beta reported". A step is a key, a text to type in apostrophes, or
    /// a word of `actions` with what it is about. Behind a ">" stands the state after it, and what was reported.
    void play(const QString &script)
    {
        const TableRow row(script);
        log.clear();
        for (const QString &step : script.split("; ")) {
            if (!widget) {
                QVERIFY(dyingAt > 0);
                return;
            }
            const qsizetype mark = step.indexOf(" > ");
            const QString what = step.left(mark).trimmed();
            const QString word = what.section(' ', 0, 0);
            if (what.startsWith('\''))
                type(what.mid(1).chopped(1));
            else if (actions.contains(word))
                actions.at(word)(what.section(' ', 1));
            else
                pressKeys(QKeySequence(what));
            if (mark >= 0 && dyingAt == 0) {
                const QString shown = state();
                QCOMPARE(QString(what + " > " + shown + reported()).trimmed(), step.trimmed());
            }
        }
    }
    /// Notes a report, in which the control may die.
    void tell(const char *report)
    {
        log.append(report);
        if (++told == dyingAt && diesLater)
            widget->deleteLater();
        else if (told == dyingAt)
            delete widget;
    }
    /// Whether a wheel step over the control, or a part of it, was taken.
    bool wheel(int angle, QWidget *part = nullptr) const
    {
        QWidget *over = part ? part : widget.get();
        const QPointF centre = QRectF(over->rect()).center();
        QWheelEvent event(centre, over->mapToGlobal(centre), {}, {0, angle}, Qt::NoButton, {}, Qt::NoScrollPhase,
                          false);
        event.setAccepted(false);
        QCoreApplication::sendEvent(over, &event);
        return event.isAccepted();
    }

    QPointer<QWidget> widget; // the control
    QPointer<QWidget> other;
    ZelUndoManager undo;
    QStringList log;
    int level = -1;         // of the undo grouping, when the control reported
    bool isPassive = false; // so was the edit that it reported
    int told = 0;           // so many reports
    int dyingAt = 0;        // so many of them
    bool diesLater = false;
    std::function<void()> whenEdited;
    std::function<QString()> state;
    std::map<QString, std::function<void(const QString &)>> actions{
        {"focus", [this](const QString &) { widget->setFocus(); }},
        {"enter", [this](const QString &) { QTest::keyClick(other, Qt::Key_Tab); }},
        {"leave", [this](const QString &) { other->setFocus(); }},
        {"set", [this](const QString &key) { set(key.section(' ', 0, 0), key.section(' ', 1)); }},
        {"wheel",
         [this](const QString &angle) { log.append(wheel(angle.toInt()) ? QStringList() : QStringList("passed")); }},
    };

private:
    void set(const QString &key, const QString &text)
    {
        bool isNumber = false;
        QVariant value = text.toDouble(&isNumber);
        if (!isNumber)
            value = text == "several" ? several() : text == "true" || text == "false" ? QVariant(text == "true") : text;
        ZelSetValueForKey(widget, value, key);
    }
    static void pressKeys(const QKeySequence &sequence)
    {
        QVERIFY2(sequence[0].key() != Qt::Key_unknown, "There is no such step");
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QTest::keySequence(menu ? menu : keys(), sequence);
    }
    QString reported()
    {
        const QString all = takeLog().join('+').replace("changed+valueEdited+action", "reported");
        return all.isEmpty() ? all : " " + all;
    }
};

/// The arguments are those of the control's constructor; of an abstract class, a function that makes it for its parent.
template<typename Control> class ControlPanel : public ControlPanelBase
{
public:
    template<typename... Arguments> explicit ControlPanel(Arguments &&...arguments)
    {
        auto *layout = new QVBoxLayout(this);
        other = new QWidget;
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
        connect(control, &Control::objectValueChanged, this, [this] { tell("changed"); });
        connect(control, &Control::editableChanged, this, [this] { log.append("editable"); });
        connect(control, &Control::valueEdited, this, [this] {
            level = undo.groupingLevel();
            isPassive = ZelPassiveEdits::isActive();
            undo.registerUndo([] {}, [] {});
            tell("valueEdited");
            if (whenEdited)
                whenEdited();
        });
        connect(control, &Control::action, this, [this] { tell("action"); });
        User::open(this);
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
