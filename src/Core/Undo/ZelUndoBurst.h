// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QElapsedTimer>

/// Edits of one kind that follow each other so quickly that they are one gesture, such as the steps of a wheel or of a
/// key that is held. An undo manager makes one step of them. A control keeps one burst for each kind.
///
///     const ZelUndoBurst::Edit edit(m_wheelBurst);
///     stepBy(1);
class ZEL_EXPORT ZelUndoBurst
{
public:
    /// The longest pause within a burst, in milliseconds.
    static constexpr qint64 pause = 500;

    ZelUndoBurst() = default;
    Q_DISABLE_COPY_MOVE(ZelUndoBurst)

    /// Ends the burst: the next edit begins another one.
    void end() { m_number = 0; }

    /// What is recorded while it exists belongs to the burst. The burst may be destroyed before it.
    class ZEL_EXPORT Edit
    {
    public:
        /// `continues` tells that it belongs to the burst however long the pause was: a held key repeats late.
        explicit Edit(ZelUndoBurst &burst, bool continues = false);
        ~Edit();
        Q_DISABLE_COPY_MOVE(Edit)

    private:
        quint64 m_outer;
    };
    /// The number of the burst that is going on; 0 if there is none.
    static quint64 current();

private:
    quint64 m_number = 0;
    QElapsedTimer m_sinceEdit;
};
