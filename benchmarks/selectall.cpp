// SPDX-License-Identifier: MIT
#include "Bench.h"
#include "PaintWatch.h"
#include "PlainShape.h"
#include "SelectionOwner.h"
#include "ShownForm.h"

#include <QTemporaryFile>

#include <memory>
#include <vector>

namespace {

/// An inspector with a row for each of the eight properties of many shapes.
struct Panel
{
    explicit Panel(int count)
        : shapes(size_t(count))
    {
        for (PlainShape &shape : shapes)
            all.append(&shape);
        owner.controller.setContent(all);
        QByteArray xml = "<pane><inspector><slice><section>";
        for (const char *row :
             {"string' keyPath='objects.selection.name", "boolean' keyPath='objects.selection.visible",
              "number' keyPath='objects.selection.kind", "number' keyPath='objects.selection.x",
              "number' keyPath='objects.selection.y", "number' keyPath='objects.selection.width",
              "number' keyPath='objects.selection.height", "number' keyPath='objects.selection.opacity"})
            xml += QByteArray("<sliver title='Row'><property type='") + row + "'/></sliver>";
        Bench::expect(file.open(), "the description cannot be written");
        file.write(xml + "</section></slice></inspector></pane>");
        file.flush();
        window.reset(describedForm(&owner, file.fileName()));
        window->resize(300, 500);
        window->show();
        PaintWatch::settle();
    }

    std::vector<PlainShape> shapes;
    QList<QObject *> all;
    SelectionOwner owner;
    QTemporaryFile file;
    std::unique_ptr<QWidget> window;
};

} // namespace

/// All objects are selected, until an inspector shows it.
static void selectAll()
{
    for (const int count : {100'000, 1'000'000}) {
        Panel panel(count);
        PaintWatch watch(panel.window.get());
        const Bench::Work select(
            [&] {
                panel.owner.controller.setSelectedObjects({});
                PaintWatch::settle();
            },
            [&] {
                panel.owner.controller.setSelectedObjects(panel.all);
                watch.waitForPaint();
            });
        const auto readByName = [&] {
            for (const PlainShape &shape : panel.shapes)
                Bench::keep(shape.property("width"));
        };
        if (count == 100'000)
            Bench::absolute(QStringLiteral("F select %1 objects, against 100 ms").arg(count), 100, select);
        Bench::compare(QStringLiteral("F select %1 objects, against as many reads").arg(count), 6, select, readByName);
    }
}
ZEL_BENCHMARK(selectAll)

/// An application changes the selected objects one by one while the inspector is open. By hand each has one lambda
/// connected; the inspector may cost as much again.
static void changeOneByOne()
{
    constexpr int count = 100'000;
    Panel panel(count);
    panel.owner.controller.setSelectedObjects(panel.all);
    PaintWatch::settle();
    std::vector<PlainShape> others{size_t(count)};
    int heard = 0;
    for (PlainShape &shape : others)
        QObject::connect(&shape, &PlainShape::widthChanged, &shape, [&heard] { ++heard; });
    double width = 1;
    const auto change = [&width](std::vector<PlainShape> &shapes) {
        width += 1;
        for (PlainShape &shape : shapes)
            shape.setProperty("width", width);
        QApplication::processEvents();
    };
    Bench::compare(
        QStringLiteral("F %1 objects changed one by one").arg(count), 2, [&] { change(panel.shapes); },
        [&] { change(others); }, Bench::small);
}
ZEL_BENCHMARK(changeOneByOne)
