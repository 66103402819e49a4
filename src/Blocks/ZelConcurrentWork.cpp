// SPDX-License-Identifier: MIT
#include "Blocks/ZelConcurrentWork.h"

#include <QThreadPool>

#include <atomic>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <utility>

namespace {

/// Shared by the caller and the threads that help. A helper that comes when all parts are taken, perhaps after the
/// caller has gone on, does nothing with the function any more.
class Work
{
public:
    using Function = std::function<void(qsizetype, qsizetype)>;

    Work(qsizetype count, qsizetype partSize, const Function &function)
        : m_count(count)
        , m_partSize(partSize)
        , m_function(function)
    {
    }

    void help()
    {
        {
            const std::lock_guard lock(m_mutex);
            ++m_helpers;
        }
        takeParts();
        const std::lock_guard lock(m_mutex);
        if (--m_helpers == 0)
            m_idle.notify_all();
    }

    /// Helps, waits for the helpers, and throws what one of them threw.
    void finish()
    {
        takeParts();
        std::unique_lock lock(m_mutex);
        m_idle.wait(lock, [this] { return m_helpers == 0; });
        if (m_failure) // taken out, lest it is destroyed with this object by a late helper, on another thread
            std::rethrow_exception(std::exchange(m_failure, nullptr));
    }

private:
    void takeParts()
    {
        for (;;) {
            const qsizetype first = m_next.fetch_add(m_partSize);
            if (first >= m_count)
                return;
            try {
                m_function(first, std::min(first + m_partSize, m_count));
            } catch (...) {
                const std::lock_guard lock(m_mutex);
                if (!m_failure)
                    m_failure = std::current_exception();
                m_next = m_count;
            }
        }
    }

    const qsizetype m_count;
    const qsizetype m_partSize;
    const Function &m_function;
    std::atomic<qsizetype> m_next = 0;
    std::mutex m_mutex;
    std::condition_variable m_idle;
    int m_helpers = 0;
    std::exception_ptr m_failure;
};

} // namespace

void ZelPerformConcurrently(qsizetype count, const std::function<void(qsizetype, qsizetype)> &function)
{
    constexpr qsizetype partsPerThread = 32; // so that nobody waits long for the slowest
    QThreadPool *pool = QThreadPool::globalInstance();
    const qsizetype threads = std::max(pool->maxThreadCount(), 1);
    const qsizetype partSize = std::max<qsizetype>(count / (threads * partsPerThread), 1);
    const auto work = std::make_shared<Work>(count, partSize, function);
    for (qsizetype i = 1; i < std::min(threads, count); ++i)
        pool->start([work] { work->help(); });
    work->finish();
}
