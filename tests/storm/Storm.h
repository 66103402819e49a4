// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/ZelTabbedInspector.h"
#include "Models.h"
#include <deque>
#include <unordered_set>

class QLineEdit;
class ZelInspectorProperty;

/// One thing that is done to the window, and numbers that choose its objects and values. Any part of a list of steps is
/// a list of steps: one that makes no sense at its place does nothing.
struct Step
{
    QByteArray kind; ///< a name of Storm::kinds()
    quint32 a = 0;
    quint32 b = 0;
    quint32 c = 0;
    QByteArray toText() const;
};
using Steps = QList<Step>;

/// What the process of a run tells the one that started it, in memory that both share: it is there after a crash.
struct Progress
{
    static Progress &shared();
    /// What the step that is under way does, for who reads of a failure.
    static void setDetail(const QByteArray &text) { qstrncpy(shared().detail, text.constData(), sizeof detail); }
    /// Something is wrong: the run ends after the step. Only the first one counts.
    static void find(const QByteArray &text, const QString &newDetail = {});
    int step = -1;      ///< the last one that was begun
    int checks = 0;     ///< editors compared with the model
    int roundTrips = 0; ///< commands undone and redone
    int faults = 0;     ///< exceptions of the storm's own
    char detail[512] = {};
    char finding[2048] = {};
};

/// From the first call on, this thread's clocks stand still but for it: timers fire when it moves them on, however long
/// the steps take, so that a run can be repeated.
void advanceTime(int milliseconds);
/// To the pop-up in front, or else to the window that has the focus.
void pressKey(int key, Qt::KeyboardModifiers modifiers = {});

/// An application with a window that has every editor, over objects of several classes, and all that may happen to it.
///
/// After every step nothing may have been thrown that nobody was told to throw, and nothing logged as an error. Where
/// the storm is calm, the editors show what the objects hold. What was edited can be undone and done again exactly,
/// unless the objects were changed otherwise meanwhile ("tainted").
class Storm
{
public:
    /// Undo brings back all that an edit does to the objects, but not what a change does.
    enum Effect { Edit, Change };
    using Perform = std::function<void(const Step &)>;
    struct Kind
    {
        QByteArray name;
        int weight;
        Effect effect;
        Perform perform;
    };
    const std::vector<Kind> &kinds() const { return m_kinds; }
    /// Throws a std::runtime_error.
    const Kind &kind(const QByteArray &name) const;

    /// Knows the kinds of steps; everything else is made where it is run.
    Storm();
    /// Stops where something was found.
    void run(const Steps &steps);
    bool traces = false; ///< whether every step is written to the standard error stream

private:
    void addUserSteps();
    void addModelSteps();
    void addUndoSteps();
    void addWindowSteps();
    void add(const QByteArray &name, int weight, Effect effect, const Perform &perform)
    {
        m_kinds.push_back({name, weight, effect, perform});
    }
    /// An edit that does something at a point of a visible widget.
    void addGesture(const QByteArray &name, int weight, void (*perform)(QWidget *, const QPoint &, const Step &));

    void makeOwner();
    void reactToAction(int number);
    void makeWindow(bool ownStack);
    void makeInspector();
    void removeWatcher(quint32 number);
    void clearWatchers();
    void calm();
    void settle();
    void commitTyping();
    ZelArrayController *sheets() const { return m_owner ? &m_owner->controller : nullptr; }
    QList<QObject *> living() const;
    QObject *object(quint32 number) const;
    QWidget *anyWidget(quint32 number) const;
    ZelInspectorProperty *anyEditor(quint32 number) const;
    QUndoStack *stack() const;
    QList<QVariantList> state() const;
    void noteBase(QObject *object);
    void compare(const QList<QVariantList> &expected, const QByteArray &when) const;
    void checkEditors();
    /// Calls the library as an application does, which catches what it throws itself.
    static void asApplication(const std::function<void()> &work);
    std::vector<Kind> m_kinds;
    std::unique_ptr<QApplication> m_application;
    std::unique_ptr<QUndoStack> m_stack; // the application's, where it has one
    std::unique_ptr<Owner> m_owner;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<QWidget> m_otherWindow;
    QPointer<QLineEdit> m_otherField;
    std::unique_ptr<ZelTabbedInspector> m_inspector;
    unsigned m_inspectorsMade = 0;
    std::vector<QPointer<QObject>> m_objects; // owned
    std::deque<std::unique_ptr<QObject>> m_watchers;
    std::unordered_set<const QObject *> m_rekeyed; // editors that no longer edit what the description says
    QList<QVariantList> m_base;                    // the state at the bottom of the stack
    QList<QPointer<QObject>> m_baseObjects;
    bool m_isTainted = true;
    int m_thrown = 0; // faults, when the editors were compared last
};
