// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Undo/private/ZelWriteTarget.h"
#include "Core/Values/ZelAbstractValueTransformer.h"
#include "Core/Values/ZelNumberChange.h"

#include <QHash>
#include <vector>

class ZelNumbersInterface;
class ZelRecordedWrite;

/// The numbers that the objects behind a key path have, as a transformer shows them, in the order of the selection:
/// what a change starts from. They are read for one event and not kept.
class ZelOwnNumbers
{
public:
    /// The transformer may be null.
    ZelOwnNumbers(QObject *root, const ZelKeyPath &path, const ZelValueTransformerPtr &transformer);

    /// NaN for an object without a number.
    const ZelNumberChange::Numbers &numbers();
    /// Whether no double stands for an integer that it may not hold exactly.
    bool areExact() const { return m_integers.isEmpty(); }
    /// What the change makes of the number at that place, see ZelNumberChange; after numbers() was asked.
    QVariant changed(const ZelNumberChange &change, qsizetype index) const;
    bool isInexact(const ZelNumberChange &change, qsizetype index) const;
    /// Stores the changed numbers; see ZelRecordedWrite::changeNumbers.
    void write(const ZelNumberChange &change, const ZelRecordedWrite &write);

private:
    /// Doubles are read and written through memory, which costs a fraction of doing so as variants.
    struct Part
    {
        ZelWriteTarget target;
        bool isOfDoubles;
    };

    QVariant valueAt(qsizetype index) const;
    bool takeKnown(std::vector<ZelWriteTarget> &targets);
    void addPart(ZelWriteTarget &&target, std::vector<double> &numbers);
    bool readDoubles(const ZelWriteTarget &target, std::vector<double> &numbers) const;
    void readValues(ZelWriteTarget &target, std::vector<double> &numbers);
    void writeDoubles(const Part &part, qsizetype first, const ZelNumberChange &change,
                      const ZelRecordedWrite &write) const;
    void writeValues(const Part &part, qsizetype first, const ZelNumberChange &change,
                     const ZelRecordedWrite &write) const;

    QPointer<QObject> m_root;
    ZelKeyPath m_path;
    ZelValueTransformerPtr m_transformer;
    std::vector<Part> m_parts;
    QPointer<QObject> m_owner; ///< the object that stands for all others, if there is one
    ZelNumbersInterface *m_interface = nullptr;
    ZelNumberChange::Numbers m_numbers = std::make_shared<const std::vector<double>>();
    QHash<qsizetype, QVariant> m_integers; ///< those at which a double may not be exact, by their place
};
