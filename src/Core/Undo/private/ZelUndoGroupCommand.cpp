// SPDX-License-Identifier: MIT
#include "Core/Undo/private/ZelUndoGroupCommand.h"

#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/KeyValue/private/ZelClassAccessors.h"
#include "Core/RunLoop/ZelNotificationCenter.h"
#include "Core/Selection/ZelObjectController.h"
#include "Core/Undo/ZelUndoBurst.h"

#include <algorithm>

/// Marks a command as running on its stack.
class ZelUndoGroupCommand::Running
{
public:
    explicit Running(ZelUndoGroupCommand &command)
        : m_command(command)
        , m_outer(std::exchange(s_innermost, this))
    {
    }
    ~Running() { s_innermost = m_outer; }
    Q_DISABLE_COPY_MOVE(Running)

    static ZelUndoGroupCommand *on(const QUndoStack *stack)
    {
        for (const Running *running = s_innermost; running; running = running->m_outer) {
            if (running->m_command.m_stack == stack)
                return &running->m_command;
        }
        return nullptr;
    }

private:
    static Running *s_innermost;
    ZelUndoGroupCommand &m_command;
    Running *m_outer;
};
ZelUndoGroupCommand::Running *ZelUndoGroupCommand::Running::s_innermost = nullptr;

ZelUndoGroupCommand::ZelUndoGroupCommand(QUndoStack *stack)
    : m_stack(stack)
    , m_burst(ZelUndoBurst::current())
{
    static quint64 lastNumber = 0;
    m_number = ++lastNumber;
}

ZelUndoGroupCommand *ZelUndoGroupCommand::running(const QUndoStack *stack)
{
    return stack ? Running::on(stack) : nullptr;
}

void ZelUndoGroupCommand::addWork(const std::function<void()> &undo, const std::function<void()> &redo)
{
    record({undo, redo, {}, {}, {}, {}});
}

void ZelUndoGroupCommand::addWrite(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path,
                                   ZelValueBlock oldValues, ZelValueBlock newValues)
{
    record({{}, {}, objects, path, std::move(oldValues), std::move(newValues)});
}

void ZelUndoGroupCommand::addMeanwhile(ZelUndoGroupCommand &&group)
{
    for (Step &step : group.m_steps)
        m_meanwhile.push_back(std::move(step));
    group.m_steps.clear();
}

void ZelUndoGroupCommand::record(Step &&step)
{
    if (m_place.isEmpty())
        m_place = ZelPlaceScope::current();
    if (m_steps.empty() && m_burst == 0)
        m_burst = ZelUndoBurst::current(); // which may have begun after the grouping
    append(std::move(step));
}

/// Adds a step at the end. A drag writes the same again and again, which becomes one step; but only neighbours are
/// joined, because a write between them may be of the same objects.
void ZelUndoGroupCommand::append(Step &&step)
{
    if (!m_steps.empty() && m_steps.back().writesSame(step))
        m_steps.back().newValues = std::move(step.newValues);
    else
        m_steps.push_back(std::move(step));
}

void ZelUndoGroupCommand::prepend(Step &&step)
{
    if (!m_steps.empty() && m_steps.front().writesSame(step))
        m_steps.front().oldValues = std::move(step.oldValues);
    else
        m_steps.insert(m_steps.begin(), std::move(step));
}

ZelUndoGroupCommand::Step ZelUndoGroupCommand::Step::inverted() &&
{
    std::swap(undo, redo);
    std::swap(oldValues, newValues);
    return std::move(*this);
}

void ZelUndoGroupCommand::Step::perform(bool undoes) const
{
    if (isWrite())
        (undoes ? oldValues : newValues).write(objects, path);
    else if (const auto &work = undoes ? undo : redo)
        work();
}

/// Reads the old values again. An object that cannot be read keeps the old value that it has.
void ZelUndoGroupCommand::Step::readOldValues()
{
    ZelClassAccessors accessors(path);
    QVariantList values;
    for (qsizetype i = 0; i < oldValues.size(); ++i) {
        values.append(oldValues.at(i));
        ZelExceptionReporter::run(nullptr, [&] {
            if (const QObject *object = objects.at(i))
                values.last() = accessors.read(object).value_or(values.last());
        });
    }
    oldValues = values;
}

void ZelUndoGroupCommand::undo()
{
    m_isDone = false;
    run(true);
}

void ZelUndoGroupCommand::redo()
{
    if (!std::exchange(m_isDone, true)) // QUndoStack::push calls this, when everything is done already
        run(false);
}

/// The stack deletes the later command right after it was taken in here, so its steps can be moved.
bool ZelUndoGroupCommand::mergeWith(const QUndoCommand *later)
{
    auto *group = dynamic_cast<ZelUndoGroupCommand *>(const_cast<QUndoCommand *>(later));
    if (!group || group->m_burst != m_burst)
        return false;
    for (Step &step : group->m_steps)
        append(std::move(step));
    m_number = group->m_number; // the latest edit, which may yet be named
    return true;
}

void ZelUndoGroupCommand::run(bool undoes)
{
    const Running running(*this);
    takeTyping(undoes);
    ZelExceptionReporter::run(nullptr, [&] { performSteps(undoes); });
    ZelExceptionReporter::run(nullptr, [] { ZelRereadSilentProperties(); });
    if (!m_meanwhile.empty())
        outdateLaterSteps();
    // Undo goes through the steps backwards, so what was written after it comes first and inverted: redoing takes it
    // back before anything else. What was written after redo comes last.
    for (Step &step : std::exchange(m_meanwhile, {})) {
        if (undoes)
            prepend(std::move(step).inverted());
        else
            append(std::move(step));
    }
}

/// Has what is being typed taken, and adds it to the state that this step leaves: at the end of the steps if they are
/// about to be undone, at the front if they are about to be redone.
void ZelUndoGroupCommand::takeTyping(bool undoes)
{
    ZelExceptionReporter::run(
        nullptr, [this] { ZelNotificationCenter::defaultCenter()->post(ZelUndoStepWillBeginNotification, m_stack); });
    std::vector<Step> typed = std::exchange(m_meanwhile, {});
    if (!typed.empty())
        outdateLaterSteps();
    if (undoes) {
        for (Step &step : typed)
            append(std::move(step));
        return;
    }
    for (auto step = typed.rbegin(); step != typed.rend(); ++step)
        prepend(std::move(*step));
}

/// Marks the later steps, which were undone before this one: they will find other values when they are redone.
void ZelUndoGroupCommand::outdateLaterSteps() const
{
    for (int i = m_stack ? m_stack->count() - 1 : -1; i >= 0 && m_stack->command(i) != this; --i) {
        if (const auto *later = dynamic_cast<const ZelUndoGroupCommand *>(m_stack->command(i)))
            const_cast<ZelUndoGroupCommand *>(later)->m_isOutdated = true;
    }
}

/// Performs each step by itself, so that the others are done even if one throws. One notice stands for all they write.
void ZelUndoGroupCommand::performSteps(bool undoes)
{
    const bool isOutdated = !undoes && std::exchange(m_isOutdated, false);
    const QString verb = undoes ? QStringLiteral("Undo") : QStringLiteral("Redo");
    const QString title = text().isEmpty() ? QString() : QStringLiteral("%1 \"%2\"").arg(verb, text());
    ZelObjectController::batchChanges([&] {
        const auto perform = [&](Step &step) {
            if (isOutdated && step.isWrite())
                step.readOldValues();
            ZelExceptionReporter::run(title, m_place, [&] { step.perform(undoes); });
        };
        if (undoes)
            std::for_each(m_steps.rbegin(), m_steps.rend(), perform);
        else
            std::for_each(m_steps.begin(), m_steps.end(), perform);
    });
}
