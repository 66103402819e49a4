// SPDX-License-Identifier: MIT
#include "Platform/Selection/ZelValueBlock.h"

#include "Platform/Runtime/ZelClassAccessors.h"
#include "Platform/Runtime/ZelFirstException.h"
#include "Platform/Selection/ZelPrefetch.h"

void ZelValueBlock::write(const QList<QPointer<QObject>> &objects, const ZelKeyPath &path, const Prepare &prepare) const
{
    ZelClassAccessors accessors(path);
    ZelFirstException errors;
    for (qsizetype i = 0; i < m_size; ++i) {
        ZelPrefetch(objects, i);
        QObject *object = objects.at(i);
        if (!object)
            continue;
        errors.run([&] {
            if (prepare)
                prepare(object, i);
            if (!m_bytes)
                accessors.write(object, m_values.at(i));
            else if (!accessors.writeTyped(object, m_type, data(i)))
                ZelSetValueForKeyPath(object, at(i), path);
        });
    }
    errors.rethrow();
}
