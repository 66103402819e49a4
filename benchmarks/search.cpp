// SPDX-License-Identifier: MIT
#include "Bench.h"
#include "PaintWatch.h"
#include "RowModel.h"

#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"
#include "Inspector/ZelInspector.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/ZelTabbedInspector.h"
#include "ViewController/ZelView.h"

#include <QApplication>
#include <QVBoxLayout>

namespace {

constexpr int g_paneCount = 1;
constexpr int g_sectionsOfPane = 100;
constexpr int g_rowsOfSection = 10;

template<typename Property> ZelInspectorSliver *row(QObject *owner, const QString &title, const QString &key)
{
    auto *sliver = new ZelInspectorSliver(owner);
    auto *property = new Property(owner);
    property->setKeyPath(key);
    sliver->setTitle(title);
    sliver->setProperties({property});
    return sliver;
}

/// Every tenth row of 1,000 is called so that it is found by "width".
ZelInspectorPane *makePane(QObject *owner)
{
    QList<ZelInspectorSection *> sections;
    for (int i = 0; i < g_sectionsOfPane; ++i) {
        QList<ZelInspectorConditionalContainer *> rows;
        for (int j = 0; j < g_rowsOfSection; ++j) {
            const QString number = QString::number(i * g_rowsOfSection + j);
            rows.append(j == 0 ? row<ZelInspectorNumberProperty>(owner, u"Width " + number, QStringLiteral("number"))
                               : row<ZelInspectorStringProperty>(owner, u"Name " + number, QStringLiteral("text")));
        }
        auto *section = new ZelInspectorSection(owner);
        section->setTitle(QStringLiteral("Part %1").arg(i));
        section->setSliversAndChoosers(rows);
        sections.append(section);
    }
    auto *slice = new ZelInspectorSlice(owner);
    slice->setSections(sections);
    auto *inspector = new ZelInspector(owner);
    inspector->setTitle(QStringLiteral("All"));
    inspector->setSlices({slice});
    auto *pane = new ZelInspectorPane(owner);
    pane->setInspectors({inspector});
    return pane;
}

} // namespace

/// A key press in the find field, and what it changes on the screen.
static void searchRows()
{
    RowModel model;
    QWidget window;
    ZelTabbedInspector inspector(&model);
    QList<ZelInspectorPane *> panes;
    for (int i = 0; i < g_paneCount; ++i)
        panes.append(makePane(&model));
    inspector.setPanes(panes);
    inspector.setSearchEnabled(true);
    auto *column = new QVBoxLayout(&window);
    column->addWidget(inspector.view());
    window.resize(300, 900);
    window.show();
    PaintWatch::settle();
    inspector.focusSearchField();
    PaintWatch watch(panes.first()->view());

    const auto typing = [&](const QString &before, const QString &after, int found) {
        return Bench::Work(
            [&inspector, before] {
                inspector.setSearchText(before);
                PaintWatch::settle();
            },
            [&inspector, &watch, after] {
                inspector.setSearchText(after);
                watch.waitForPaint();
            },
            [&inspector, found] { Bench::expect(inspector.searchCount() == found, "other rows are found"); });
    };
    const QString name = QStringLiteral("F filtering 1,000 rows on a key press, until painted: %1");
    Bench::absolute(name.arg(u"the first letter"), 16, typing({}, "w", 100), Bench::small);
    Bench::absolute(name.arg(u"another letter"), 16, typing("w", "wi", 100), Bench::small);
    Bench::absolute(name.arg(u"back to all"), 16, typing("w", "r", 1000), Bench::small);
    delete inspector.view();
}
ZEL_BENCHMARK(searchRows)
