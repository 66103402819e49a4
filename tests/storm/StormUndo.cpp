// SPDX-License-Identifier: MIT
// Undo, and the exactness of it.
#include "Storm.h"

#include "Core/Undo/ZelUndoManager.h"
#include "Input.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Models.h"
#include "Progress.h"
#include "ViewController/ZelView.h"

#include <QLayout>
#include <QMetaProperty>

namespace {

/// All that an object holds but other objects.
QVariantList valuesOf(const QObject *object)
{
    QVariantList values;
    if (!object)
        return values;
    const QMetaObject *meta = object->metaObject();
    for (int i = QObject::staticMetaObject.propertyCount(); i < meta->propertyCount(); ++i) {
        if (meta->property(i).isWritable() && !(meta->property(i).metaType().flags() & QMetaType::PointerToQObject))
            values.append(meta->property(i).read(object));
    }
    for (const QByteArray &name : object->dynamicPropertyNames()) {
        if (name != "part")
            values.append(object->property(name));
    }
    return values;
}

QByteArray describe(const QVariant &value)
{
    return QDebug::toString(value).toUtf8();
}

/// An application's own command: it changes the selection, and an object.
class Command : public QUndoCommand
{
public:
    Command(ZelArrayController *controller, const QList<QObject *> &selected, QObject *object, double number)
        : m_controller(controller)
        , m_object(object)
        , m_old(object->property("number"))
        , m_new(number)
    {
        for (QObject *one : controller->selectedObjects())
            m_before.append(one);
        for (QObject *one : selected)
            m_after.append(one);
    }
    void undo() override { perform(m_before, m_old); }
    void redo() override { perform(m_after, m_new); }

private:
    void perform(const QList<QPointer<QObject>> &selected, const QVariant &number)
    {
        QList<QObject *> objects;
        for (QObject *object : selected)
            objects.append(object);
        if (m_controller)
            m_controller->setSelectedObjects(objects);
        if (m_object)
            m_object->setProperty("number", number);
    }

    QPointer<ZelArrayController> m_controller;
    QPointer<QObject> m_object;
    QVariant m_old;
    QVariant m_new;
    QList<QPointer<QObject>> m_before;
    QList<QPointer<QObject>> m_after;
};

} // namespace

QUndoStack *Storm::stack() const
{
    const ZelUndoManager *manager = ZelUndoManager::forWidget(m_window.get());
    return manager ? manager->stack() : nullptr;
}

void Storm::undo(const Step &step)
{
    if (step.a % 8 == 0)
        Input::key(Qt::Key_Z, Qt::ControlModifier);
    else if (step.a % 2)
        ZelUndoManager::forWidget(m_window.get())->undo();
    else
        stack()->undo();
}

void Storm::redo(const Step &step)
{
    if (step.a % 2)
        ZelUndoManager::forWidget(m_window.get())->redo();
    else
        stack()->redo();
}

void Storm::command(const Step &step)
{
    auto *changed = qobject_cast<Sheet *>(object(step.a));
    if (!m_owner || !changed)
        return;
    commitTyping();
    settle(); // a stack does not say whether a step is running: what is committed may wait for the next turn
    if (changed == object(step.a))
        stack()->push(new Command(sheets(), living().mid(int(step.b % 5), int(step.c % 3)), changed, step.b % 50));
}

/// Brings the storm into a state from which everything that follows can be undone.
void Storm::baseline(const Step &)
{
    Fault::armed = 0;
    clearWatchers();
    calm();
    if (!m_owner) {
        makeOwner();
        makeInspector();
    }
    m_owner->unlocked = true;
    Q_EMIT m_owner->changed();
    if (m_inspector)
        m_window->layout()->addWidget(m_inspector->view());
    m_window->setEnabled(true);
    m_window->show();
    m_window->activateWindow();
    settle();
    stack()->clear();
    m_baseObjects.clear();
    m_base.clear();
    m_isTainted = false;
    for (QObject *object : living())
        noteBase(object);
    noteBase(m_owner.get());
    for (const auto &group : m_owner->groupList)
        noteBase(group.get());
}

void Storm::noteBase(QObject *object)
{
    m_baseObjects.append(object);
    m_base.append(valuesOf(object));
    for (QObject *part : object->findChildren<Part *>()) {
        m_baseObjects.append(part);
        m_base.append(valuesOf(part));
    }
}

QList<QVariantList> Storm::state() const
{
    QList<QVariantList> values;
    values.reserve(m_baseObjects.size());
    for (const QPointer<QObject> &object : m_baseObjects)
        values.append(valuesOf(object));
    return values;
}

void Storm::compare(const QList<QVariantList> &expected, const QByteArray &when) const
{
    const QList<QVariantList> found = state();
    for (qsizetype i = 0; i < found.size() && i < expected.size(); ++i) {
        if (!m_baseObjects.at(i) || found.at(i) == expected.at(i))
            continue;
        qsizetype at = 0;
        while (at < found.at(i).size() && at < expected.at(i).size() && found.at(i).at(at) == expected.at(i).at(at))
            ++at;
        Progress::shared().setDetail("object " + QByteArray::number(i) + ", value " + QByteArray::number(at) + ": " +
                                     describe(found.at(i).value(at)) + " instead of " +
                                     describe(expected.at(i).value(at)));
        Progress::shared().find(when + " differs in " + m_baseObjects.at(i)->metaObject()->className());
        return;
    }
}

/// Undoes everything, one command at a time, and does it all again.
void Storm::roundTrip(const Step &)
{
    calm();
    QUndoStack *commands = stack();
    if (m_isTainted || !commands || !m_owner)
        return;
    QList<QList<QVariantList>> states;
    const int count = commands->count();
    const int top = commands->index();
    for (int i = top; i > 0 && !m_isTainted; --i) {
        states.prepend(state());
        commands->undo();
        settle();
        ++Progress::shared().roundTrips;
    }
    compare(m_base, "what is undone to the beginning");
    for (int i = 0; i < top; ++i) {
        commands->redo();
        settle();
        compare(states.at(i), "what is done again");
    }
    if (commands->count() != count || commands->index() != top)
        Progress::shared().find("undo and redo changed the stack");
}
