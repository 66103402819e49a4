// SPDX-License-Identifier: MIT
#include "Bench.h"
#include "PlainShape.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Selection/ZelArrayController.h"
#include "Core/Selection/ZelValueSummary.h"
#include "Core/Values/ZelValues.h"

#include <algorithm>
#include <random>
#include <vector>

namespace {

/// A controller with so many objects, all selected.
struct Document
{
    explicit Document(int count)
    {
        for (int i = 0; i < count; ++i)
            shapes.append(new PlainShape(&owner));
        controller.setContent(shapes);
        controller.setSelectedObjects(shapes);
        Bench::expect(controller.selectedCount() == count, "not all shapes are selected");
    }

    QObject owner;
    QList<QObject *> shapes;
    ZelArrayController controller;
};

/// The value that all objects have, or an invalid one.
QVariant commonValue(const QList<QObject *> &objects, const char *name)
{
    QVariant common;
    for (const QObject *object : objects) {
        const QVariant value = object->property(name);
        if (!common.isValid())
            common = value;
        else if (value != common)
            return {};
    }
    return common;
}

void reduce(const QString &name, Document &document)
{
    const ZelKey key("width");
    const QObject *selection = document.controller.selection();
    const QVariant common = commonValue(document.shapes, "width");
    const QVariant ours = ZelValueForKey(selection, key);
    Bench::expect(common.isValid() ? ours == common : ZelIsMarker(ours, ZelMultipleValuesMarker),
                  "the selection answers another value than the loop");
    Bench::compare(
        name, 0.2, [&] { Bench::keep(ZelValueForKey(selection, key)); },
        [&] { Bench::keep(commonValue(document.shapes, "width")); }, Bench::small);
}

} // namespace

static void selectionReduce()
{
    for (int count : {1'000, 100'000}) {
        Document document(count);
        reduce(QStringLiteral("C reduce a key of %1 objects to its value").arg(count), document);
        // The worst case for a marker: only the last object disagrees.
        document.shapes.last()->setProperty("width", 50.0);
        reduce(QStringLiteral("C reduce a key of %1 objects to a marker").arg(count), document);
    }
}
ZEL_BENCHMARK(selectionReduce)

static void selectionWrite()
{
    const ZelKey key("width");
    for (int count : {1'000, 100'000}) {
        Document document(count);
        double value = 0; // always a new one, so that every write changes something
        Bench::compare(
            QStringLiteral("C2 write a key of %1 objects").arg(count), 0.3,
            [&] { ZelSetValueForKey(document.controller.selection(), ++value, key); },
            [&] {
                const QVariant written = ++value;
                for (QObject *shape : std::as_const(document.shapes))
                    shape->setProperty("width", written);
            },
            Bench::small);
        ZelSetValueForKey(document.controller.selection(), -1.0, key);
        Bench::expect(commonValue(document.shapes, "width") == QVariant(-1.0), "not every shape was written");
    }
}
ZEL_BENCHMARK(selectionWrite)

/// The different values of a selection, counted for a tool tip, against a sort of the values, which a program by hand
/// reads with the getter itself.
static void selectionSummary()
{
    constexpr int count = 100'000;
    Document document(count);
    for (const int different : {10, count}) {
        std::mt19937 random(1);
        for (QObject *shape : std::as_const(document.shapes))
            shape->setProperty("width", double(random() % uint(different)) / 8);
        std::vector<double> values;
        const auto sortValues = [&] {
            values.clear();
            values.reserve(count);
            for (const QObject *shape : std::as_const(document.shapes))
                values.push_back(static_cast<const PlainShape *>(shape)->width());
            std::sort(values.begin(), values.end());
            Bench::keep(values.front());
        };
        const auto summarize = [&] {
            return ZelValueSummary::ofKeyPath(document.controller.heldObjects(), ZelKeyPath("width"));
        };
        sortValues();
        Bench::expect(summarize().differentCount() == std::unique(values.begin(), values.end()) - values.begin(),
                      "the summary counts other values than the sorted list has");
        Bench::compare(
            QStringLiteral("C3 summary of %1 objects with %2 values").arg(count).arg(different), 1.2,
            [&] {
                const ZelValueSummary summary = summarize();
                Bench::keep(summary.first(5));
                Bench::keep(summary.range());
            },
            sortValues, Bench::small);
    }
}
ZEL_BENCHMARK(selectionSummary)
