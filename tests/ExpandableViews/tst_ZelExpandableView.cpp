// SPDX-License-Identifier: MIT
#include "ExpandableViews/ZelExpandableHeader.h"
#include "ExpandableViews/ZelExpandableView.h"
#include "Support/User.h"

class tst_ZelExpandableView : public QObject
{
    Q_OBJECT
    std::unique_ptr<QWidget> m_window;
    ZelExpandableView *m_view = nullptr;
    ZelView *m_body = nullptr;

private Q_SLOTS:
    void init()
    {
        m_window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(m_window.get());
        layout->setContentsMargins(0, 0, 0, 0);
        m_view = new ZelExpandableView;
        m_view->setTitle("R&D");
        m_body = new ZelView;
        m_body->setFixedHeight(40);
        m_view->setBodyView(m_body);
        layout->addWidget(m_view);
        layout->addStretch();
        m_window->resize(400, 300);
        User::open(m_window.get());
    }

    void foldsItsBodyAway()
    {
        const int title = m_view->header()->height();
        QCOMPARE(title, m_view->header()->sizeHint().height());
        QCOMPARE(m_view->height(), title + 40);
        QCOMPARE(m_body->geometry(), QRect(0, title, 400, 40));
        QAccessibleInterface *header = QAccessible::queryAccessibleInterface(m_view->header());
        QVERIFY(header && header->state().expandable && header->state().expanded);
        QCOMPARE(header->text(QAccessible::Name), "R&D");
        QCOMPARE(m_view->title(), "R&D");
        QVERIFY(m_view->header()->shortcut().isEmpty()); // it is no mnemonic
        QSignalSpy changes(m_view, &ZelExpandableView::expandedChanged);
        header->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(header->state().collapsed && !m_view->isExpanded() && !m_body->isVisible());
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
        m_view->setTitle(QString("long ").repeated(100)); // is cut
        QVERIFY(m_view->minimumSizeHint().width() < 100 && m_view->sizeHint().width() > 1000);
    }

    void theTitleBeginsAtTheTriangle()
    {
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            QApplication::setLayoutDirection(direction);
            const QImage image = m_view->header()->grab().toImage();
            const auto hasInk = [&image](int left, int width) {
                const auto part = [&](int left) { return image.copy(left, 4, width, image.height() - 8); };
                return part(left) != part(image.width() / 2);
            };
            for (const auto &[left, width] : {std::pair(6, 8), {24, 30}}) { // the triangle and the text
                QCOMPARE(hasInk(left, width), direction == Qt::LeftToRight);
                QCOMPARE(hasInk(image.width() - left - width, width), direction == Qt::RightToLeft);
            }
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
};
QTEST_MAIN(tst_ZelExpandableView)
#include "tst_ZelExpandableView.moc"
