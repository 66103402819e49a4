// SPDX-License-Identifier: MIT
#include "ExpandableViews/ZelExpandableView.h"

#include "ExpandableViews/ZelExpandableHeader.h"

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

class tst_ZelExpandableView : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(m_window.get());
        layout->setContentsMargins(0, 0, 0, 0);
        m_view = new ZelExpandableView;
        m_view->setTitle("R&D budget");
        m_body = new ZelView;
        m_body->setFixedHeight(40);
        m_view->setBodyView(m_body);
        layout->addWidget(m_view);
        layout->addStretch();
        m_window->resize(200, 300);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void foldsItsBodyAway()
    {
        const int title = m_view->header()->height();
        QCOMPARE(title, m_view->header()->sizeHint().height());
        QCOMPARE(m_view->height(), title + 40);
        QCOMPARE(m_body->geometry(), QRect(0, title, 200, 40));
        QSignalSpy changes(m_view, &ZelExpandableView::expandedChanged);
        m_view->setExpanded(false);
        QVERIFY(!m_body->isVisible());
        QCOMPARE(m_view->sizeHint().height(), title);
        QTRY_COMPARE(m_view->height(), title);
        auto *other = new ZelView;
        other->setFixedHeight(70);
        m_view->setBodyView(other);
        QVERIFY(!m_body->parentWidget() && !m_body->isInstalled() && other->isInstalled());
        delete m_body;
        QTest::mouseClick(m_view->header(), Qt::LeftButton);
        QVERIFY(m_view->isExpanded() && other->isVisible());
        QTRY_COMPARE(m_view->height(), title + 70);
        QCOMPARE(changes.size(), 2);
        delete other;
        QTRY_COMPARE(m_view->height(), title);
    }

    void theTitleBeginsAtTheTriangle()
    {
        m_view->setTitle("Title");
        m_window->resize(400, m_window->height());
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            QApplication::setLayoutDirection(direction);
            const QImage image = m_view->header()->grab().toImage();
            const int width = image.width();
            const auto inkIn = [&image, width](int left, int right) {
                bool hasInk = false;
                for (int y = 4; y < image.height() - 4; ++y)
                    for (int x = left; x < right; ++x)
                        hasInk = hasInk || image.pixel(x, y) != image.pixel(width / 2, y);
                return hasInk;
            };
            QCOMPARE(inkIn(6, 14), direction == Qt::LeftToRight); // the triangle
            QCOMPARE(inkIn(width - 14, width - 6), direction == Qt::RightToLeft);
            QCOMPARE(inkIn(30, 60), direction == Qt::LeftToRight);
            QCOMPARE(inkIn(width - 60, width - 30), direction == Qt::RightToLeft);
        }
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    void takesKeys()
    {
        const std::tuple<Qt::LayoutDirection, Qt::Key, bool, bool> rows[] = {
            // and whether it folds and unfolds
            {Qt::LeftToRight, Qt::Key_Space, true, true}, {Qt::LeftToRight, Qt::Key_Return, true, true},
            {Qt::LeftToRight, Qt::Key_Left, true, false}, {Qt::LeftToRight, Qt::Key_Right, false, true},
            {Qt::RightToLeft, Qt::Key_Left, false, true}, {Qt::RightToLeft, Qt::Key_Right, true, false}};
        for (const auto &[direction, key, folds, unfolds] : rows) {
            m_window->setLayoutDirection(direction);
            for (const bool wasExpanded : {true, false}) {
                m_view->setExpanded(wasExpanded);
                QTest::keyClick(m_view->header(), key);
                QCOMPARE(m_view->isExpanded(), wasExpanded ? !folds : unfolds);
            }
        }
    }

    void isAccessible()
    {
        QAccessibleInterface *header = QAccessible::queryAccessibleInterface(m_view->header());
        QVERIFY(header);
        QCOMPARE(header->text(QAccessible::Name), "R&D budget");
        QCOMPARE(m_view->title(), "R&D budget");
        QVERIFY(m_view->header()->shortcut().isEmpty()); // it is no mnemonic
        QVERIFY(header->state().expandable && header->state().expanded);
        header->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(header->state().collapsed && !m_view->isExpanded());
        m_view->setTitle(QString("long ").repeated(100)); // is cut
        QVERIFY(m_view->minimumSizeHint().width() < 100);
        QVERIFY(m_view->sizeHint().width() > 1000);
    }

private:
    std::unique_ptr<QWidget> m_window;
    ZelExpandableView *m_view = nullptr;
    ZelView *m_body = nullptr;
};

QTEST_MAIN(tst_ZelExpandableView)
#include "tst_ZelExpandableView.moc"
