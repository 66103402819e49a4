// SPDX-License-Identifier: MIT
#include "Progress.h"

#include <sys/mman.h>

#include <new>

Progress &Progress::shared()
{
    static auto *progress =
        new (mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Progress;
    return *progress;
}

void Progress::clear()
{
    *this = Progress();
}

void Progress::setDetail(const QByteArray &text)
{
    qstrncpy(detail, text.constData(), sizeof detail);
}

void Progress::find(const QByteArray &text)
{
    if (!hasFinding())
        qstrncpy(finding, text.constData(), sizeof finding);
}
