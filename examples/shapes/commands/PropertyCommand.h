// SPDX-License-Identifier: MIT
#pragma once

#include <QUndoCommand>
#include <QVariant>

class QObject;

/// Gives a property of an object, which must outlive the command, another value.
class PropertyCommand : public QUndoCommand
{
public:
    /// The name is not copied.
    PropertyCommand(QObject *object, const char *name, const QVariant &value, const QString &text);

    void undo() override;
    void redo() override;

private:
    QObject *m_object;
    const char *m_name;
    QVariant m_before;
    QVariant m_after;
};
