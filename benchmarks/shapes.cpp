// SPDX-License-Identifier: MIT
#include "Bench.h"
#include "PaintWatch.h"

#include "model/SampleDocument.h"
#include "window/InspectorPanel.h"
#include "window/MainWindow.h"
#include "window/Options.h"

#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QMenuBar>

namespace {

constexpr int g_shapeCount = 100'000;

QAction *findAction(const QMainWindow &window, const QKeySequence &shortcut)
{
    for (const QAction *title : window.menuBar()->actions()) {
        const QList<QAction *> actions = title->menu() ? title->menu()->actions() : QList<QAction *>();
        for (QAction *action : actions) {
            if (action->shortcuts().contains(shortcut))
                return action;
        }
    }
    Bench::expect(false, "the window has no such command");
    return nullptr;
}

} // namespace

/// The example application with a large document: all shapes are selected by the menu command, until the inspector
/// shows it. What the canvas and the list of shapes do meanwhile is part of the time.
static void shapesSelectAll()
{
    Options options;
    options.shapeCount = g_shapeCount;
    MainWindow window(options);
    window.show();
    PaintWatch::settle();
    auto *panel = window.findChild<InspectorPanel *>();
    QAction *selectAll = findAction(window, QKeySequence::SelectAll);
    QAction *selectNone = findAction(window, Qt::CTRL | Qt::SHIFT | Qt::Key_A);
    PaintWatch watch(panel);

    const Bench::Work select(
        [&] {
            selectNone->trigger();
            PaintWatch::settle();
        },
        [&] {
            selectAll->trigger();
            watch.waitForPaint();
        },
        [&] {
            const QImage painted = panel->grab().toImage();
            PaintWatch::settle();
            Bench::expect(painted == panel->grab().toImage(), "the inspector was not up to date when it was painted");
        });

    Document document;
    SampleDocument::fillWithRows(document, g_shapeCount);
    const auto readByName = [&] {
        for (const Shape *shape : document.shapes())
            Bench::keep(shape->property("width"));
    };
    Bench::absolute(QStringLiteral("F select all of %1 shapes, against 250 ms").arg(g_shapeCount), 250, select);
    Bench::compare(QStringLiteral("F the same, against as many property(name) reads"), 0, select, readByName);
}
ZEL_BENCHMARK(shapesSelectAll)
