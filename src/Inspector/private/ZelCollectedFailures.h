// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Errors/ZelAssertions.h"
#include "Inspector/Description/ZelReadError.h"

#include <QList>
#include <exception>

/// Takes the assertions that fail during its life, instead of ending the work at the first one, so that all mistakes of
/// a description are known at once. Of several at one place only the first is kept: the others follow from it.
class ZelCollectedFailures : public ZelAssertionHandler
{
public:
    ZelCollectedFailures()
        : m_former(setCurrent(this))
    {
    }
    ~ZelCollectedFailures() override { setCurrent(m_former); }
    Q_DISABLE_COPY_MOVE(ZelCollectedFailures)

    void handleFailure(const QString &, const QString &message, const ZelSourcePlace &place) override
    {
        add(message, place);
    }
    /// Does the work, and takes the exception that it ends with. Answers whether it came to its end.
    template<typename Work> bool collect(Work &&work)
    {
        try {
            std::forward<Work>(work)();
            return true;
        } catch (const ZelException &exception) {
            add(exception.reason(), exception.place());
        } catch (const std::exception &exception) {
            add(QString::fromUtf8(exception.what()), ZelPlaceScope::current());
        }
        return false;
    }
    const QList<ZelReadError> &errors() const { return m_errors; }

private:
    void add(const QString &message, const ZelSourcePlace &place)
    {
        for (const ZelReadError &error : m_errors) {
            const ZelSourcePlace &known = error.place;
            if (!place.isUnknown() && known.file == place.file && known.line == place.line &&
                known.column == place.column)
                return;
        }
        m_errors.append({message, place});
    }

    ZelAssertionHandler *m_former;
    QList<ZelReadError> m_errors;
};
