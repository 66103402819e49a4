// SPDX-License-Identifier: MIT
#include "Core/Selection/ZelValueBlock.h"

#include "Core/Errors/private/ZelFirstException.h"
#include "Core/KeyValue/private/ZelClassAccessors.h"

void ZelValueBlock::write(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path, const Prepare &prepare) const
{
    ZelClassAccessors accessors(path);
    ZelFirstException errors;
    for (qsizetype i = 0; i < m_size; ++i) {
        QObject *object = objects.at(i);
        if (!object)
            continue;
        errors.run([&] {
            if (prepare)
                prepare(object, i);
            if (!m_bytes)
                accessors.write(object, at(i));
            else if (!accessors.writeTyped(object, m_type, data(i)))
                ZelSetValueForKeyPath(object, at(i), path);
        });
    }
    errors.rethrow();
}
