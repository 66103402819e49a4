// SPDX-License-Identifier: MIT
#pragma once

#include <QDebug>
#include <QTest>

/// Says which row of a table a failure belongs to: made at the start of a row, it speaks at the row's end.
class TableRow
{
public:
    explicit TableRow(const QString &name)
        : m_name(name)
    {
    }
    ~TableRow()
    {
        if (QTest::currentTestFailed())
            qWarning().noquote() << "In row:" << m_name;
    }
    Q_DISABLE_COPY_MOVE(TableRow)

private:
    QString m_name;
};
