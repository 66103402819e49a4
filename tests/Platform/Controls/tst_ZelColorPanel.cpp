// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelColorPanel.h"

#include <QColorDialog>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QWindow>

class tst_ZelColorPanel : public QObject
{
    Q_OBJECT

    ZelColorPanel *panel = ZelColorPanel::sharedColorPanel();
    QColorDialog *dialog() { return static_cast<QColorDialog *>(panel->window()); }

private Q_SLOTS:
    void cleanup() { panel->close(); }

    void onlyTheUsersChangesAreReported()
    {
        const QSignalSpy changes(panel, &ZelColorPanel::colorDidChange);
        QCOMPARE(panel->color(), QColor(Qt::black));
        panel->setColor(Qt::red);
        panel->setColor(QColor());
        panel->setShowsAlpha(true);
        panel->setColor(QColor(1, 2, 3, 4));
        QCOMPARE(changes.count(), 0);
        QCOMPARE(panel->color(), QColor(1, 2, 3, 4));
        dialog()->setCurrentColor(QColor(9, 8, 7, 4));
        QCOMPARE(changes.count(), 1);
        QCOMPARE(panel->color(), QColor(9, 8, 7, 4));
        panel->setShowsAlpha(false);
        QCOMPARE(panel->color(), QColor(9, 8, 7));
    }

    /// The hue of a grey is in the panel alone.
    void aColourShownAgainKeepsWhatTheUserSees()
    {
        panel->setColor(Qt::red);
        const QList<QSpinBox *> fields = dialog()->findChildren<QSpinBox *>(); // hue, saturation, value
        connect(panel, &ZelColorPanel::colorDidChange, this, [this] { panel->setColor(panel->color()); });
        fields.at(0)->setValue(200);
        fields.at(1)->setValue(0);
        fields.at(1)->setValue(100);
        panel->disconnect(this);
        QCOMPARE(fields.at(0)->value(), 200);
    }

    void itStaysAboveTheClientsWindowAndOutlivesIt()
    {
        auto client = std::make_unique<QWidget>();
        client->show();
        QObject delegate;
        panel->setDelegate(&delegate);
        panel->orderFront(client.get());
        QVERIFY(panel->isVisible());
        QVERIFY(!dialog()->isModal());
        QCOMPARE(dialog()->windowHandle()->transientParent(), client->windowHandle());
        QWidget popUp(client.get(), Qt::Popup); // which closes at the first click into the panel
        popUp.show();
        panel->orderFront(&popUp);
        QCOMPARE(dialog()->windowHandle()->transientParent(), client->windowHandle());
        popUp.setParent(nullptr);
        client.reset();
        QVERIFY(panel->isVisible());
        panel->orderFront(nullptr);
        const QSignalSpy closes(panel, &ZelColorPanel::willClose);
        QTest::keyClick(dialog(), Qt::Key_Escape);
        QCOMPARE(closes.count(), 1);
        QVERIFY(!panel->isVisible());
        QCOMPARE(panel->delegate(), &delegate);
    }

    void aDragEndsWhenTheMouseIsReleased()
    {
        panel->setColor(Qt::gray);
        panel->orderFront(nullptr);
        QVERIFY(QTest::qWaitForWindowExposed(dialog()));
        QWidget *picker = nullptr;
        const QList<QWidget *> widgets = dialog()->findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            if (QByteArray(widget->metaObject()->className()).endsWith("QColorPicker"))
                picker = widget;
        }
        QVERIFY(picker);
        const QSignalSpy changes(panel, &ZelColorPanel::colorDidChange);
        const QSignalSpy ends(panel, &ZelColorPanel::trackingDidEnd);
        const QPoint place = picker->mapTo(dialog(), picker->rect().center());
        QTest::mousePress(dialog()->windowHandle(), Qt::LeftButton, {}, place);
        QTest::mouseMove(dialog()->windowHandle(), place + QPoint(20, 10));
        QVERIFY(changes.count() > 0);
        QVERIFY(panel->isTracking());
        QTest::mouseRelease(dialog()->windowHandle(), Qt::LeftButton, {}, place + QPoint(20, 10));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(!panel->isTracking());
    }
};

QTEST_MAIN(tst_ZelColorPanel)
#include "tst_ZelColorPanel.moc"
