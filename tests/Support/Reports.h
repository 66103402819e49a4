// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelExceptionReporter.h"
#include <QStringList>

/// Takes what would be logged, for its life.
class Reports : public ZelExceptionReporter
{
public:
    Reports()
        : m_former(setCurrent(this))
    {
    }
    ~Reports() override { setCurrent(m_former); }
    Q_DISABLE_COPY_MOVE(Reports)

    void reportException(const QString &message, const ZelSourcePlace &place) override
    {
        messages << message;
        places << place;
    }

    QStringList messages;
    QList<ZelSourcePlace> places;

private:
    ZelExceptionReporter *m_former;
};
