// SPDX-License-Identifier: MIT
#include "Support/User.h"
#include "TabBar/ZelTabBar.h"

namespace {
QIcon icon(Qt::GlobalColor color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    return QIcon(pixmap);
}

struct Delegate : QObject, ZelTabBarDelegate
{
    bool tabBarShouldSelectItem(ZelTabBar *bar, ZelTabBarItem *item) override
    {
        note("should", bar, item);
        onShould(bar);
        return accepts;
    }
    void tabBarWillSelectItem(ZelTabBar *bar, ZelTabBarItem *item) override { note("will", bar, item); }
    void tabBarDidSelectItem(ZelTabBar *bar, ZelTabBarItem *item) override { note("did", bar, item); }
    void note(const char *what, const ZelTabBar *bar, const ZelTabBarItem *item)
    {
        log += QStringLiteral("%1 %2 at %3 ").arg(what).arg(item->tag()).arg(bar->selectedItem()->tag());
    }

    bool accepts = true;
    std::function<void(ZelTabBar *)> onShould = [](ZelTabBar *) {};
    QString log;
};
} // namespace

class tst_ZelTabBar : public QObject
{
    Q_OBJECT
    const ZelTabBarButtonCell &cell(int column) const { return m_bar->matrix()->cellAtColumn(column); }

    std::unique_ptr<QWidget> m_window;
    ZelTabBar *m_bar = nullptr;
    QList<ZelTabBarItem *> m_items;

private Q_SLOTS:
    void init()
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(200, 100);
        m_bar = new ZelTabBar;
        m_items.clear();
        for (int tag = 0; tag < 5; ++tag)
            m_items.append(new ZelTabBarItem(icon(Qt::red), tag));
        m_bar->setItems(QList<ZelTabBarItem *>{nullptr} + m_items + QList<ZelTabBarItem *>{nullptr});
        m_bar->resize(200, 22);
        m_bar->setParent(m_window.get());
    }
    void cleanup() { m_window.reset(); }

    void followsItsItems()
    {
        QCOMPARE(m_bar->matrix()->geometry(), QRect(20, 0, 160, 22)); // in the middle
        m_bar->resize(301, 30);
        m_window->show();
        QCOMPARE(m_bar->matrix()->geometry(), QRect(70, 0, 160, 30));
        QCOMPARE(m_bar->sizeHint(), QSize(160, 22));
        QCOMPARE(m_bar->selectedItem(), m_items[0]); // one is always selected
        m_bar->setSelectedItem(m_items[3]);
        const QIcon other = icon(Qt::blue);
        m_items[3]->setImage(other);
        m_items[2]->setEnabled(false);
        m_items[1]->setToolTip("Other");
        QCOMPARE(cell(3).image.cacheKey(), other.cacheKey());
        QCOMPARE(cell(3).alternateImage.cacheKey(), other.cacheKey());
        QVERIFY(!cell(2).enabled && cell(3).enabled);
        QCOMPARE(cell(1).toolTip, "Other");
        QCOMPARE(m_bar->matrix()->selectedColumn(), 3);
        m_bar->setStyle(1);
        QVERIFY(!cell(3).bordered && cell(3).alternateImage.isNull());
        m_bar->setItems({m_items[4], m_items[2]});
        QCOMPARE(m_bar->selectedItem(), m_items[4]);
        QCOMPARE(m_bar->matrix()->numberOfColumns(), 2);
        QSignalSpy selections(m_bar, &ZelTabBar::selectedItemChanged);
        m_items[3]->setImage(icon(Qt::green)); // not an item any more
        QCOMPARE(cell(0).image.cacheKey(), m_items[4]->image().cacheKey());
        delete m_items[4]; // the selected one
        QCOMPARE(m_bar->items(), QList<ZelTabBarItem *>{m_items[2]});
        QCOMPARE(m_bar->matrix()->numberOfColumns(), 1);
        QCOMPARE(m_bar->selectedItem(), m_items[2]);
        QCOMPARE(selections.size(), 1);
        m_bar->removeFromSuperview(); // it observes only while it is installed
        m_items[1]->setEnabled(false);
        m_bar->setItems({m_items[1], m_items[2]});
        QCOMPARE(m_bar->matrix()->numberOfColumns(), 1);
        m_bar->setParent(m_window.get());
        QCOMPARE(m_bar->matrix()->numberOfColumns(), 2);
        QVERIFY(!cell(0).enabled);
        delete m_items[0]; // left the bar before
        m_bar->setItems({});
        QCOMPARE(m_bar->matrix()->width(), 0);
        QCOMPARE(m_bar->selectedItem(), nullptr);
        QCOMPARE(m_bar->matrix()->selectedColumn(), -1);
        QCOMPARE(m_items[3]->description(),
                 QString::asprintf("<ZelTabBarItem: %p>{tag=3}", static_cast<void *>(m_items[3])));
    }

    void theUserSelectsWithTheMouse()
    {
        const auto press = [this](int column) {
            QTest::mouseClick(m_bar->matrix(), Qt::LeftButton, {}, m_bar->matrix()->rectOfColumn(column).center());
        };
        auto dying = std::make_unique<Delegate>();
        m_bar->setDelegate(dying.get());
        dying.reset();
        press(1);
        QCOMPARE(m_bar->selectedItem(), m_items[1]);
        Delegate delegate;
        m_bar->setDelegate(&delegate);
        const std::tuple<int, bool, bool, int, QString> rows[] = {
            // pressed, accepted, enabled, and then selected
            {2, true, true, 2, "should 2 at 1 will 2 at 1 did 2 at 2 "},
            {4, false, true, 2, "should 4 at 2 "},
            {4, true, false, 2, ""}};
        for (const auto &[pressed, isAccepted, isEnabled, selected, log] : rows) {
            delegate.log.clear();
            delegate.accepts = isAccepted;
            m_bar->setEnabled(isEnabled);
            press(pressed);
            QCOMPARE(delegate.log, log);
            QCOMPARE(m_bar->selectedItem(), m_items[selected]);
            QCOMPARE(m_bar->matrix()->selectedColumn(), selected);
        }
        m_bar->setEnabled(true);
        const QPointer<ZelTabBar> guard(m_bar);
        delegate.onShould = [](ZelTabBar *bar) { delete bar; };
        m_bar->matrix()->performClickAtColumn(4);
        QVERIFY(!guard);
        QCOMPARE(delegate.log, "should 4 at 2 ");
    }

    void keyEquivalentsSelect()
    {
        for (ZelTabBarItem *item : m_items) {
            item->setKeyEquivalent("1");
            item->setKeyEquivalentModifierMask(Qt::ControlModifier);
        }
        m_items[4]->setKeyEquivalent("F5");
        m_items[4]->setKeyEquivalentModifierMask({});
        m_items[0]->setEnabled(false);
        auto *field = new QLineEdit(m_window.get());
        User::open(m_window.get());
        field->setFocus();
        QTest::keyClick(field, Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(m_bar->selectedItem(), m_items[1]); // the first that is enabled
        auto *second = new ZelTabBar;                // with the same keys in the same window
        auto *item = new ZelTabBarItem;
        item->setKeyEquivalent("F5");
        second->setItems({new ZelTabBarItem, item});
        second->setParent(m_window.get());
        second->show();
        QTest::keyClick(field, Qt::Key_F5);
        QTest::keyClick(field, Qt::Key_F5);
        QCOMPARE(m_bar->selectedItem(), m_items[4]);
        QCOMPARE(second->selectedItem(), item);
    }

    void drawsItsCells()
    {
        using Cell = ZelTabBarButtonCell;
        QPalette palette;
        palette.setColor(QPalette::WindowText, Qt::black);
        palette.setColor(QPalette::Highlight, Qt::blue);
        const Cell::State on = Cell::Enabled | Cell::WindowActive;
        const std::tuple<Cell::State, bool, QPoint, QColor> rows[] = {
            // bordered, and what is seen above white
            {on, true, {16, 11}, Qt::red},
            {on, true, {6, 11}, Qt::white},
            {Cell::WindowActive, true, {16, 11}, QColor(255, 167, 167)},
            {on | Cell::Pressed, true, {16, 11}, Qt::green},
            {on | Cell::Pressed, true, {6, 11}, QColor(184, 184, 184)},
            {on | Cell::Selected, true, {6, 11}, QColor(194, 194, 255)},
            {Cell::Enabled | Cell::Selected, true, {6, 11}, QColor(224, 224, 224)},
            {on | Cell::Selected, false, {6, 11}, Qt::white},
            {on | Cell::Selected, false, {6, 21}, QColor(25, 25, 255)},
            {on | Cell::Focused, true, {3, 11}, Qt::blue}};
        for (const auto &[state, isBordered, place, seen] : rows) {
            Cell cell;
            cell.image = icon(Qt::red);
            cell.alternateImage = icon(Qt::green);
            cell.bordered = isBordered;
            QImage image(32, 22, QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            cell.draw(painter, image.rect(), state, palette);
            QCOMPARE(image.pixelColor(place), seen);
        }
    }
};
QTEST_MAIN(tst_ZelTabBar)
#include "tst_ZelTabBar.moc"
