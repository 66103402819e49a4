// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <utility>

/// Does several pieces of work, even if an earlier one threw. The first exception is kept, and thrown on when all the
/// work is done:
///
///     ZelFirstException failure;
///     for (Observer *observer : observers)
///         failure.run([&] { observer->tell(); });
///     failure.rethrow();
class ZelFirstException
{
public:
    template<typename Work> void run(Work &&work) noexcept
    {
        try {
            std::forward<Work>(work)();
        } catch (...) {
            if (!m_first)
                m_first = std::current_exception();
        }
    }
    bool hasOccurred() const { return bool(m_first); }
    /// Throws what was kept; does nothing if nothing was thrown.
    void rethrow() const
    {
        if (m_first)
            std::rethrow_exception(m_first);
    }

private:
    std::exception_ptr m_first;
};
