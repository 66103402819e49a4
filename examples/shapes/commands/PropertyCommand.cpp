// SPDX-License-Identifier: MIT
#include "commands/PropertyCommand.h"

#include <QObject>

PropertyCommand::PropertyCommand(QObject *object, const char *name, const QVariant &value, const QString &text)
    : QUndoCommand(text)
    , m_object(object)
    , m_name(name)
    , m_before(object->property(name))
    , m_after(value)
{
}

void PropertyCommand::undo()
{
    m_object->setProperty(m_name, m_before);
}

void PropertyCommand::redo()
{
    m_object->setProperty(m_name, m_after);
}
