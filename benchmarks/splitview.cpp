// SPDX-License-Identifier: MIT
#include "Bench.h"

#include "SplitView/ZelPrioritySplitViewDelegate.h"
#include "SplitView/ZelSplitView.h"

#include <QCoreApplication>
#include <QLabel>
#include <QSplitter>

namespace {

constexpr int Count = 50;
constexpr int Length = 50 * Count;

/// Fills a splitter with labels and shows it.
template<typename Splitter> class Panes
{
public:
    Panes()
    {
        splitter.setHandleWidth(QSplitter().handleWidth());
        for (int i = 0; i < Count; ++i)
            splitter.addWidget(new QLabel(QStringLiteral("Pane")));
        splitter.resize(Length, 100);
        splitter.show();
        QCoreApplication::processEvents();
    }
    QList<int> grownBy(int growth, int grows)
    {
        QList<int> before = splitter.sizes();
        splitter.resize(splitter.width() + growth, 100);
        before[grows] += growth;
        Bench::expect(splitter.sizes() == before, "one pane grows");
        return before;
    }
    Splitter splitter;
};

/// Resizes the splitter in steps of one point, up and down.
template<typename Splitter> Bench::Work resizing(Panes<Splitter> &panes)
{
    return Bench::Work([&panes, step = 0]() mutable {
        step = (step + 1) % 80;
        panes.splitter.resize(Length + (step < 40 ? step : 80 - step), 100);
    });
}

/// One pane grows and shrinks, so that all those behind it move: by the stretch factor of the plain splitter, and by
/// priority in ours.
template<typename Splitter> void compareResize(const char *name, double goal, int grows)
{
    Panes<Splitter> ours;
    Panes<QSplitter> plain;
    ZelPrioritySplitViewDelegate delegate(&ours.splitter);
    const QList<int> sizes = ours.splitter.sizes();
    QList<ZelPrioritySplitViewItem *> items;
    for (int i = 0; i < Count; ++i)
        items.append(new ZelPrioritySplitViewItem(i == grows ? 0 : sizes[i], 10000, i == grows ? 1 : 0, false));
    delegate.setItems(items);
    plain.splitter.setSizes(sizes);
    plain.splitter.setStretchFactor(grows, 1);
    QWidget active; // or one of the splitters would be, and the style asks for that for each divider
    active.show();
    active.activateWindow();
    QCoreApplication::processEvents();
    Bench::expect(!ours.splitter.isActiveWindow() && !plain.splitter.isActiveWindow(), "neither is active");
    Bench::expect(ours.grownBy(30, grows) == plain.grownBy(30, grows), "both have the same sizes");
    Bench::compare(QString::fromLatin1(name), goal, resizing(ours), resizing(plain), Bench::small);
}

void resizeSplitView()
{
    compareResize<ZelSplitView>("resize a split view of 50 panes, the first grows", 1.2, 0);
    compareResize<ZelSplitView>("resize a split view of 50 panes, the last grows", 1.2, Count - 1);
    // It lays its panes out once more when it gets the event.
    compareResize<QSplitter>("resize a plain splitter with a delegate, the first grows", 0, 0);
    compareResize<QSplitter>("resize a plain splitter with a delegate, the last grows", 0, Count - 1);
}

} // namespace

ZEL_BENCHMARK(resizeSplitView)
