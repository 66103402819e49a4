// SPDX-License-Identifier: MIT
// Undo, and the exactness of it.
#include "Core/Undo/ZelUndoManager.h"
#include "Storm.h"

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

/// An application's own command.
struct Command : QUndoCommand
{
    std::function<void(bool)> perform; ///< with whether it is done, and not undone
    void undo() override { perform(false); }
    void redo() override { perform(true); }
};
} // namespace

QUndoStack *Storm::stack() const
{
    const ZelUndoManager *manager = ZelUndoManager::forWidget(m_window.get());
    return manager ? manager->stack() : nullptr;
}

void Storm::noteBase(QObject *object)
{
    m_baseObjects.append(object);
    m_base.append(valuesOf(object));
    for (QObject *part : object->findChildren<Part *>())
        noteBase(part);
}

QList<QVariantList> Storm::state() const
{
    QList<QVariantList> values;
    for (const QPointer<QObject> &object : m_baseObjects)
        values.append(valuesOf(object));
    return values;
}

void Storm::compare(const QList<QVariantList> &expected, const QByteArray &when) const
{
    const QList<QVariantList> found = state();
    for (qsizetype i = 0; i < found.size() && i < expected.size(); ++i) {
        const QVariantList &is = found.at(i);
        const QVariantList &was = expected.at(i);
        if (!m_baseObjects.at(i) || is == was)
            continue;
        const auto at = std::mismatch(is.begin(), is.end(), was.begin(), was.end()).first - is.begin();
        Progress::find(when + " differs in " + m_baseObjects.at(i)->metaObject()->className(),
                       QStringLiteral("object %1, value %2: %3 instead of %4")
                           .arg(i)
                           .arg(at)
                           .arg(QDebug::toString(is.value(at)), QDebug::toString(was.value(at))));
        return;
    }
}

void Storm::addUndoSteps()
{
    add("undo", 16, Edit, [this](const Step &step) {
        if (step.a % 8 == 0)
            pressKey(Qt::Key_Z, Qt::ControlModifier);
        else if (step.a % 2)
            ZelUndoManager::forWidget(m_window.get())->undo();
        else
            stack()->undo();
    });
    add("redo", 12, Edit,
        [this](const Step &step) { step.a % 2 ? ZelUndoManager::forWidget(m_window.get())->redo() : stack()->redo(); });
    // It changes the selection, and an object.
    add("command", 4, Edit, [this](const Step &step) {
        auto *changed = qobject_cast<Sheet *>(object(step.a));
        if (!m_owner || !changed)
            return;
        commitTyping();
        settle(); // a stack does not say whether a step is running: what is committed may wait for the next turn
        if (changed != object(step.a))
            return;
        using Objects = QList<QPointer<QObject>>;
        const auto listed = [](const QList<QObject *> &objects) { return Objects(objects.begin(), objects.end()); };
        auto *pushed = new Command;
        pushed->perform = [controller = QPointer(sheets()), object = QPointer(changed), old = changed->number,
                           number = step.b % 50, before = listed(sheets()->selectedObjects()),
                           after = listed(living().mid(int(step.b % 5), int(step.c % 3)))](bool isDone) {
            const Objects &selected = isDone ? after : before;
            if (controller)
                controller->setSelectedObjects({selected.begin(), selected.end()});
            if (object)
                object->setNumber(isDone ? number : old);
        };
        stack()->push(pushed);
    });
    // Brings the storm into a state from which everything that follows can be undone.
    add("baseline", 0, Edit, [this](const Step &) {
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
        for (QObject *object :
             living() + QList<QObject *>{m_owner.get(), &m_owner->groupList[0], &m_owner->groupList[1]})
            noteBase(object);
    });
    // Undoes everything, one command at a time, and does it all again.
    add("roundTrip", 0, Edit, [this](const Step &) {
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
            Progress::find("undo and redo changed the stack");
    });
}
