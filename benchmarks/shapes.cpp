// SPDX-License-Identifier: MIT
#include "Bench.h"
#include "PaintWatch.h"

#include "model/SampleDocument.h"
#include "window/InspectorPanel.h"
#include "window/MainWindow.h"
#include "window/Options.h"

#include "Inspector/ZelTabbedInspector.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>

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
    Bench::absolute(QStringLiteral("F select all of %1 shapes, against 100 ms").arg(g_shapeCount), 100, select);
    Bench::compare(QStringLiteral("F the same, against as many property(name) reads"), 0, select, readByName);
}
ZEL_BENCHMARK(shapesSelectAll)

/// From the choice of a tab of the example's inspector until it is painted, the longest of all tabs; in milliseconds.
static double longestSwitch(ZelTabbedInspector *inspector, PaintWatch &watch)
{
    double longest = 0;
    for (int tab = int(inspector->panes().size()) - 1; tab >= 0; --tab) {
        if (quint64(tab) == inspector->selectedPaneIndex())
            continue;
        QElapsedTimer timer;
        timer.start();
        inspector->setSelectedPaneIndex(quint64(tab));
        watch.waitForPaint();
        longest = std::max(longest, double(timer.nsecsElapsed()) / 1e6);
        PaintWatch::settle();
    }
    return longest;
}

static void switchTabs()
{
    double first = 0;
    double later = 0;
    const auto switchAll = [&] {
        Options options;
        options.selectsAll = true;
        options.tab = 0;
        MainWindow window(options);
        window.show();
        PaintWatch::settle();
        auto *inspector = window.findChild<ZelTabbedInspector *>();
        PaintWatch watch(window.findChild<InspectorPanel *>());
        first = longestSwitch(inspector, watch);
        inspector->setSelectedPaneIndex(0);
        PaintWatch::settle();
        later = longestSwitch(inspector, watch);
        return first;
    };
    Bench::measured(QStringLiteral("A switch to a tab of the example for the first time"), 16, switchAll);
    Bench::measured(QStringLiteral("A switch to a tab of the example again"), 4, [&] {
        switchAll();
        return later;
    });
}
ZEL_BENCHMARK(switchTabs)

/// From the start of the example's process to its first picture; without an inspector a message is in its place.
static void firstPicture()
{
    const auto start = [](const QStringList &arguments) {
        QProcess process; // which keeps its messages
        process.start(QStringLiteral(ZEL_BENCH_FIRST_PICTURE), arguments);
        Bench::expect(process.waitForFinished() && process.exitCode() == 0, "the example does not start");
    };
    Bench::compare(
        QStringLiteral("A first picture of the example from the start"), 1.4, [&] { start({}); },
        [&] {
            start({QStringLiteral("--description"), QStringLiteral("/nowhere")});
        });
}
ZEL_BENCHMARK(firstPicture)
