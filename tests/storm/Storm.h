// SPDX-License-Identifier: MIT
#pragma once

#include "Owner.h"
#include "Step.h"

#include <QApplication>
#include <QPointer>
#include <QUndoStack>
#include <QWidget>
#include <deque>
#include <memory>
#include <unordered_set>

class QLineEdit;
class ZelInspectorProperty;
class ZelTabbedInspector;

/// An application with a window that has every editor, over objects of several classes, and all that may happen to it.
///
/// After every step nothing may have been thrown that nobody was told to throw, and nothing logged as an error. Where
/// the storm is calm, the editors show what the objects hold. What was edited can be undone and done again exactly,
/// unless the objects were changed otherwise meanwhile ("tainted").
class Storm
{
public:
    struct Kind
    {
        const char *name;
        int weight;
        bool isEdit; ///< whether undo brings back all that the step changes
        void (Storm::*perform)(const Step &);
    };
    static const std::vector<Kind> &kinds();

    Storm();
    ~Storm();
    /// False where something was found.
    bool run(const Steps &steps);
    inline static bool traces = false; ///< whether every step is written to the standard error stream

private:
    // What the user does
    void press(const Step &step);
    void release(const Step &step);
    void click(const Step &step);
    void doubleClick(const Step &step);
    void drag(const Step &step);
    void hover(const Step &step);
    void wheel(const Step &step);
    void tablet(const Step &step);
    void key(const Step &step);
    void type(const Step &step);
    void edit(const Step &step);
    void closePopups(const Step &step);
    void focus(const Step &step);
    void activate(const Step &step);

    // What the application does to its objects
    void select(const Step &step);
    void selectInGroups(const Step &step);
    void set(const Step &step);
    void setMany(const Step &step);
    void setPart(const Step &step);
    void setOwner(const Step &step);
    void kill(const Step &step);
    void killPart(const Step &step);
    void add(const Step &step);
    void content(const Step &step);
    void killOwner(const Step &step);
    void watch(const Step &step);
    void unwatch(const Step &step);
    void arm(const Step &step);
    void disarm(const Step &step);

    // Undo
    void undo(const Step &step);
    void redo(const Step &step);
    void command(const Step &step);
    void baseline(const Step &step);
    void roundTrip(const Step &step);

    // Windows and inspectors
    void tab(const Step &step);
    void scroll(const Step &step);
    void reparent(const Step &step);
    void showOrHide(const Step &step);
    void rekey(const Step &step);
    void enable(const Step &step);
    void rebuild(const Step &step);
    void rebuildWindow(const Step &step);
    void look(const Step &step);
    void resize(const Step &step);
    void paint(const Step &step);

    // Time
    void process(const Step &step);
    void drain(const Step &step);
    void wait(const Step &step);
    void check(const Step &step);

    // Shared
    void makeOwner();
    void reactToAction(int number);
    void makeWindow(bool ownStack);
    void makeInspector();
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
    void setValue(QObject *object, const QByteArray &key, quint32 number);
    void checkEditors();
    void checkChoosers();
    /// Calls the library as an application does, which catches what it throws itself.
    template<typename Work> void asApplication(Work &&work);

    class Application;
    class Reporter;
    friend class Reporter;
    std::unique_ptr<Application> m_application;
    std::unique_ptr<Reporter> m_reporter;
    std::unique_ptr<QUndoStack> m_stack; // the application's, where it has one
    std::unique_ptr<Owner> m_owner;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<QWidget> m_otherWindow;
    QPointer<QLineEdit> m_otherField;
    std::unique_ptr<ZelTabbedInspector> m_inspector;
    std::vector<QPointer<QObject>> m_objects; // owned
    std::deque<std::unique_ptr<QObject>> m_watchers;
    std::unordered_set<const QObject *> m_rekeyed; // editors that no longer edit what the description says
    QList<QVariantList> m_base;                    // the state at the bottom of the stack
    QList<QPointer<QObject>> m_baseObjects;
    bool m_isTainted = true;
    int m_thrown = 0; // faults, when the editors were compared last
};
