// SPDX-License-Identifier: MIT
#include "Bench.h"

#include "SplitView/ZelPrioritySplitViewDelegate.h"

#include <QCoreApplication>
#include <QLabel>
#include <QSplitter>

namespace {

constexpr int Count = 50;
constexpr int Length = 50 * Count;

/// A shown splitter of labels.
class Panes
{
public:
    Panes()
    {
        for (int i = 0; i < Count; ++i)
            splitter.addWidget(new QLabel(QStringLiteral("Pane")));
        splitter.resize(Length, 100);
        splitter.show();
        QCoreApplication::processEvents();
    }
    int total() const
    {
        int total = (Count - 1) * splitter.handleWidth();
        for (int i = 0; i < Count; ++i)
            total += splitter.widget(i)->width();
        return total;
    }
    QSplitter splitter;
};

/// The pane at `grows` has the highest priority, so that all those behind it move.
void compareResize(const char *name, int grows)
{
    Panes ours;
    Panes plain;
    ZelPrioritySplitViewDelegate delegate(&ours.splitter);
    QList<ZelPrioritySplitViewItem *> items;
    for (int i = 0; i < Count; ++i)
        items.append(new ZelPrioritySplitViewItem(20, 10000, i == grows ? 1 : 0, false));
    delegate.setItems(items);
    QCoreApplication::processEvents();
    int ourStep = 0;
    int plainStep = 0;
    const auto resizeOurs = [&] { ours.splitter.resize(Length + (++ourStep % 40), 100); };
    const auto resizePlain = [&] { plain.splitter.resize(Length + (++plainStep % 40), 100); };
    resizeOurs();
    resizePlain();
    Bench::expect(ours.total() == Length + 1 && plain.total() == Length + 1, "the panes fill both");
    Bench::compare(QString::fromLatin1(name), 1.2, resizeOurs, resizePlain, Bench::small);
}

void resizeSplitView()
{
    compareResize("resize a split view of 50 panes, the first grows", 0);
    compareResize("resize a split view of 50 panes, the last grows", Count - 1);
}

} // namespace

ZEL_BENCHMARK(resizeSplitView)
