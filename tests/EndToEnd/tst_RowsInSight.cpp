// SPDX-License-Identifier: MIT
#include "FigureSheet.h"
#include "Inspector/private/ZelRowCommands.h"

namespace {
constexpr int g_rowCount = 1200;

/// Rows of several kinds and heights in sections of several lengths. Every seventh has a condition.
QByteArray manyRows(int count = g_rowCount)
{
    QByteArray rows;
    for (int i = 0; i < count; ++i) {
        if (i > 0 && (i % 400 == 0 || i % 410 == 0))
            rows += "</section><section title='Part'>";
        const QByteArray title = "Row " + QByteArray::number(i);
        const QByteArray condition = i % 7 == 3 ? " visibleKeyPath='unlocked'" : "";
        rows += "<sliver title='" + title + "'" + condition + ">";
        if (i == count - 1)
            return rows + "<property type='number' keyPath='people.selection.flags' defaultValue='5'/></sliver>";
        switch (i % 5) {
        case 0:
            rows += "<property type='string' keyPath='people.selection.name'/>";
            break;
        case 1:
            rows += "<property type='number' keyPath='people.selection.height'/>";
            break;
        case 2:
            rows += "<property type='boolean' title='Active' keyPath='people.selection.active'/>";
            break;
        case 3:
            rows += "<property type='size' keyPath='people.selection.size'/>";
            break;
        case 4:
            rows += "<property type='number' keyPath='people.selection.height' title='Height' slider='linear'/>";
            break;
        }
        rows += "</sliver>";
    }
    return rows;
}
} // namespace

/// A panel of very many rows, of which only those in sight exist, looks and works as one in which all of them exist.
class tst_RowsInSight : public QObject
{
    Q_OBJECT
    std::optional<Sheet> m_sheet;
    static ZelInspectorPane *pane(const Sheet &sheet) { return sheet.inspector->panes().first(); }
    static QScrollBar *bar(const Sheet &sheet) { return pane(sheet)->scrollView()->verticalScrollBar(); }
    static QList<ZelInspectorSliver *> rows(const Sheet &sheet)
    {
        return sheet.inspector->findChildren<ZelInspectorSliver *>();
    }
    static int builtCount(const Sheet &sheet)
    {
        const auto all = rows(sheet);
        return int(std::count_if(all.begin(), all.end(), [](const auto *row) { return row->isViewLoaded(); }));
    }
    static void buildAll(const Sheet &sheet)
    {
        pane(sheet)->scrollView()->setKeptRows(g_rowCount);
        for (ZelInspectorSliver *row : rows(sheet))
            row->view();
        Sheet::settle();
    }
    static QImage seen(const Sheet &sheet) { return pane(sheet)->scrollView()->viewport()->grab().toImage(); }
    /// The title and the place of the rows in the visible area.
    static QStringList placesSeen(const Sheet &sheet)
    {
        QStringList places;
        const QWidget *viewport = pane(sheet)->scrollView()->viewport();
        for (ZelInspectorSliver *row : rows(sheet)) {
            if (!row->isViewLoaded() || !row->view()->isVisible())
                continue;
            const QRect rect(row->view()->mapTo(viewport, QPoint()), row->view()->size());
            if (rect.intersects(viewport->rect()))
                places.append(row->title() + QStringLiteral(" %1 %2").arg(rect.y()).arg(rect.height()));
        }
        return places;
    }

private Q_SLOTS:
    void init()
    {
        m_sheet.emplace(manyRows());
        m_sheet->select({0});
    }
    void cleanup() { m_sheet.reset(); }

    void looksLikeTheWhole()
    {
        QVERIFY(builtCount(*m_sheet) < 120);
        Sheet whole(manyRows());
        whole.select({0});
        buildAll(whole);
        QCOMPARE(builtCount(whole), g_rowCount);
        m_sheet->activateWindow();
        for (int position = 0; position < bar(whole)->maximum(); position += bar(whole)->pageStep()) {
            bar(whole)->setValue(position);
            bar(*m_sheet)->setValue(position);
            const QStringList places = placesSeen(*m_sheet); // nothing has to happen before
            Sheet::settle();
            QCOMPARE(placesSeen(*m_sheet).join(u","), places.join(u","));
            QCOMPARE(places.join(u","), placesSeen(whole).join(u","));
            if (position > 0 && position < 8000) // a header or separator looks different in a window that is not active
                QCOMPARE(seen(*m_sheet), seen(whole));
        }
        QCOMPARE(bar(*m_sheet)->maximum(), bar(whole)->maximum());
        QVERIFY(builtCount(*m_sheet) < 700);
    }

    /// Whatever others are made of, what is seen stays on the spot.
    void nothingJumps()
    {
        const QString tall = QStringLiteral("several\nlines\nof\ntext");
        m_sheet->set(0, "name", tall);
        bar(*m_sheet)->setValue(bar(*m_sheet)->maximum() / 2);
        Sheet::settle();
        for (int i = 0; i < 60; ++i) {
            const QStringList before = placesSeen(*m_sheet);
            const int step = i < 30 ? -90 : 70;
            bar(*m_sheet)->setValue(bar(*m_sheet)->value() + step);
            const QStringList after = placesSeen(*m_sheet);
            QStringList moved;
            for (const QString &place : before) {
                QStringList parts = place.split(u' ');
                parts[2] = QString::number(parts[2].toInt() - step);
                moved.append(parts.join(u' '));
            }
            const int shared =
                int(std::count_if(moved.begin(), moved.end(), [&](const auto &p) { return after.contains(p); }));
            QVERIFY2(shared >= 10, qPrintable(after.join(u',') + u'\n' + moved.join(u',')));
        }
    }

    void tabVisitsEveryRow()
    {
        m_sheet.emplace(manyRows(220));
        m_sheet->select({0});
        QSet<QString> visited;
        const auto walk = [&](Qt::Key key) {
            visited.clear();
            for (int i = 0; i < 1500 && visited.size() < 220; ++i) {
                QTest::keyClick(m_sheet->windowHandle(), key);
                QCoreApplication::processEvents();
                const QWidget *around = QApplication::focusWidget();
                QVERIFY(around);
                const QWidget *viewport = pane(*m_sheet)->scrollView()->viewport();
                const QRect place(around->mapTo(m_sheet->inspector->view(), QPoint()), around->size());
                if (viewport->isAncestorOf(around))
                    QVERIFY2(place.intersects(m_sheet->inspector->view()->rect()), "out of sight");
                for (; around && !around->isWindow(); around = around->parentWidget()) {
                    const auto *view = qobject_cast<const ZelView *>(around);
                    if (auto *row = view ? qobject_cast<ZelInspectorSliver *>(view->viewController()) : nullptr)
                        visited.insert(row->title());
                }
            }
            QCOMPARE(visited.size(), 220);
        };
        walk(Qt::Key_Tab);
        walk(Qt::Key_Backtab);
    }

    void conditionsCountForRowsOutOfSight()
    {
        QScrollBar *bar = this->bar(*m_sheet);
        const int all = bar->maximum();
        m_sheet->owner->setUnlocked(false);
        Sheet::settle();
        Sheet::settle();
        const int fewer = bar->maximum();
        QVERIFY(fewer < all * 0.92);
        bar->setValue(fewer);
        Sheet::settle();
        QCOMPARE(bar->maximum(), fewer);
        m_sheet->owner->setUnlocked(true);
        Sheet::settle();
        Sheet::settle();
        QCOMPARE(bar->maximum(), all);
        QVERIFY(!placesSeen(*m_sheet).isEmpty());
    }

    void whatIsTypedStaysFarAway()
    {
        Sheet::click(rows(*m_sheet).at(1)->view(), {200, 10});
        QPointer<QLineEdit> field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
        QVERIFY2(field, QApplication::focusWidget() ? QApplication::focusWidget()->metaObject()->className() : "none");
        field->selectAll();
        for (const char key : QByteArray("12"))
            QTest::keyClick(m_sheet->windowHandle(), key);
        for (int position = 0; position <= bar(*m_sheet)->maximum(); position += 300)
            bar(*m_sheet)->setValue(position);
        Sheet::settle();
        QVERIFY(builtCount(*m_sheet) <= 600);
        QVERIFY(!rows(*m_sheet).at(200)->isViewLoaded());
        QVERIFY(field && field->hasFocus());
        QCOMPARE(field->text(), "12");
        QCOMPARE(m_sheet->value(0, "height"), 0);
        QTest::keyClick(m_sheet->windowHandle(), Qt::Key_Return);
        QCOMPARE(m_sheet->value(0, "height"), 12);
    }

    /// Whoever asks for a view gets it in its place: a picture, assistive technology, the application.
    void everybodyGetsEveryRow()
    {
        Sheet whole(manyRows());
        whole.select({0});
        buildAll(whole);
        const QRect below(0, 50, 300, 11000); // up to a separator, which looks different in a window that is not active
        const QImage picture = pane(*m_sheet)->containerView()->grab(below).toImage();
        QCOMPARE(picture, pane(whole)->containerView()->grab(below).toImage());
        m_sheet.emplace(manyRows());
        m_sheet->select({0});
        ZelInspectorSliver *last = rows(*m_sheet).last();
        QVERIFY(!last->isViewLoaded());
        QVERIFY(last->view()->isInstalled());
        Sheet::settle();
        QCOMPARE(last->view()->width(), rows(*m_sheet).first()->view()->width());
        QVERIFY(!rows(*m_sheet).at(600)->isViewLoaded());
        QAccessible::setActive(true);
        QCOMPARE(builtCount(*m_sheet), g_rowCount);
        QAccessible::setActive(false);
    }

    void findReachesRowsThatDoNotExistYet()
    {
        QByteArray description = "<panes search='yes'><pane><inspector title='Figure'><slice><section>" + manyRows() +
                                 "</section></slice></inspector></pane></panes>";
        m_sheet.emplace(description);
        m_sheet->select({0});
        const int all = bar(*m_sheet)->maximum();
        m_sheet->inspector->setSearchText("row 1199");
        Sheet::settle();
        QCOMPARE(placesSeen(*m_sheet).size(), 1);
        QVERIFY(placesSeen(*m_sheet).first().startsWith("Row 1199"));
        m_sheet->inspector->setSearchText("row 11");
        Sheet::settle();
        QVERIFY(placesSeen(*m_sheet).size() > 10);
        m_sheet->inspector->setSearchText({});
        Sheet::settle();
        QCOMPARE(bar(*m_sheet)->maximum(), all);
        QVERIFY2(builtCount(*m_sheet) < 300, qPrintable(QString::number(builtCount(*m_sheet))));
    }

    void commandsReachRowsOutOfSight()
    {
        auto *section = qobject_cast<ZelInspectorSection *>(rows(*m_sheet).last()->parent());
        m_sheet->set(0, "flags", 3);
        m_sheet->set(1, "flags", 4);
        ZelRowCommands::ofSection(section).copy();
        m_sheet->select({1, 2});
        ZelRowCommands::ofSection(section).paste();
        QCOMPARE(m_sheet->value(2, "flags"), 3);
        ZelRowCommands::ofSection(section).reset();
        QCOMPARE(m_sheet->value(1, "flags"), 5);
        m_sheet->undo();
        m_sheet->undo();
        QCOMPARE(m_sheet->value(1, "flags"), 4);
        QCOMPARE(m_sheet->value(2, "flags"), 0);
    }

    void rowsComeAndGo()
    {
        auto *section = qobject_cast<ZelInspectorSection *>(rows(*m_sheet).first()->parent());
        QVERIFY(section);
        bar(*m_sheet)->setValue(3000);
        const auto former = section->sliversAndChoosers();
        auto present = former;
        for (int i = 0; i < 60; ++i)
            delete present.takeAt(100 + i);
        section->setSliversAndChoosers(present);
        Sheet::settle();
        for (int position = 0; position <= bar(*m_sheet)->maximum(); position += 300) {
            bar(*m_sheet)->setValue(position);
            QVERIFY(placesSeen(*m_sheet).size() > 8);
        }
        section->setSliversAndChoosers({});
        Sheet::settle();
        section->setSliversAndChoosers(present);
        Sheet::settle();
        bar(*m_sheet)->setValue(0);
        Sheet::settle();
        QVERIFY(placesSeen(*m_sheet).first().startsWith("Row 0 "));
    }
};
QTEST_MAIN(tst_RowsInSight)
#include "tst_RowsInSight.moc"
