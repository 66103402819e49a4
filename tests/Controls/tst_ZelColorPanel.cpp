// SPDX-License-Identifier: MIT
#include "Controls/ZelColorPanel.h"
#include "Controls/private/ZelColorPanelClient.h"
#include "Core/Undo/ZelUndoManager.h"
#include <QtTest>
#include <QtWidgets>

namespace {
/// A widget that edits a colour with the panel.
class Client : public QWidget
{
public:
    Client()
    {
        ZelUndoManager::setForWindow(this, &undo);
        connect(&link, &ZelColorPanelClient::colorChosen, this, [this](const QColor &chosen) {
            taken.append(chosen);
            color = chosen;
            undo.registerUndo([] {}, [] {});
            if (whenTaken)
                whenTaken();
        });
        show();
    }
    ~Client() override { link.deactivate(); }

    ZelUndoManager undo;
    QColor color;
    QList<QColor> taken;
    bool takesColors = true;
    std::function<void()> whenTaken;
    ZelColorPanelClient link{this, [this] { return takesColors; }, [this] { return color; }};
};
} // namespace

class tst_ZelColorPanel : public QObject
{
    Q_OBJECT
    ZelColorPanel *panel = ZelColorPanel::sharedColorPanel();
    QColorDialog *dialog() { return static_cast<QColorDialog *>(panel->window()); }
    void choose(const QColor &color) { dialog()->setCurrentColor(color); }

private Q_SLOTS:
    void cleanup() { panel->close(); }

    void onlyTheUsersChangesAreReported()
    {
        const QSignalSpy changes(panel, &ZelColorPanel::colorDidChange);
        QCOMPARE(panel->color(), QColor(Qt::black));
        panel->setShowsAlpha(true);
        panel->setColor(QColor(1, 2, 3, 4));
        panel->setColor(QColor());
        QCOMPARE(panel->color(), QColor(1, 2, 3, 4));
        QCOMPARE(changes.count(), 0);
        choose(QColor(9, 8, 7, 4));
        QCOMPARE(changes.count(), 1);
        QCOMPARE(panel->color(), QColor(9, 8, 7, 4));
        panel->setShowsAlpha(false);
        QCOMPARE(panel->color(), QColor(9, 8, 7));
        // Shown again, a colour keeps what the user sees: the hue of a grey is in the panel alone.
        panel->setColor(Qt::red);
        const QList<QSpinBox *> fields = dialog()->findChildren<QSpinBox *>(); // hue, saturation, value
        connect(panel, &ZelColorPanel::colorDidChange, this, [this] { panel->setColor(panel->color()); });
        for (const auto &[field, value] : {std::pair(0, 200), std::pair(1, 0), std::pair(1, 100)})
            fields.at(field)->setValue(value);
        panel->disconnect(this);
        QCOMPARE(fields.at(0)->value(), 200);
    }

    void itStaysAboveTheClientsWindowAndOutlivesIt()
    {
        auto client = std::make_unique<QWidget>();
        client->show();
        QWidget popUp(client.get(), Qt::Popup); // which closes at the first click into the panel
        popUp.show();
        for (const QWidget *widget : {client.get(), &popUp}) {
            panel->orderFront(widget);
            QVERIFY(panel->isVisible() && !dialog()->isModal());
            QCOMPARE(dialog()->windowHandle()->transientParent(), client->windowHandle());
        }
        popUp.setParent(nullptr);
        client.reset();
        QVERIFY(panel->isVisible());
        panel->orderFront(nullptr);
        const QSignalSpy closes(panel, &ZelColorPanel::willClose);
        QTest::keyClick(dialog(), Qt::Key_Escape);
        QCOMPARE(closes.count(), 1);
        QVERIFY(!panel->isVisible());
    }

    void aDragIsOneUndoStep()
    {
        Client client;
        client.color = Qt::gray;
        client.link.activate(&client);
        QVERIFY(QTest::qWaitForWindowExposed(dialog()));
        QWidget *picker = nullptr;
        for (QWidget *widget : dialog()->findChildren<QWidget *>())
            if (QByteArray(widget->metaObject()->className()).endsWith("QColorPicker"))
                picker = widget;
        QVERIFY(picker);
        client.whenTaken = [&client] {
            client.color = QColor(9, 9, 200); // by a strict model
            client.link.showColor();
        };
        const QSignalSpy ends(panel, &ZelColorPanel::trackingDidEnd);
        const QPoint place = picker->mapTo(dialog(), picker->rect().center());
        QTest::mousePress(dialog()->windowHandle(), Qt::LeftButton, {}, place);
        for (int i = 1; i < 5; ++i)
            QTest::mouseMove(dialog()->windowHandle(), place + QPoint(9 * i, 2));
        QVERIFY(panel->isTracking() && client.taken.size() > 3);
        QVERIFY(panel->color() != client.color); // it leads
        QCOMPARE(client.undo.groupingLevel(), 1);
        QTest::mouseRelease(dialog()->windowHandle(), Qt::LeftButton, {}, place + QPoint(36, 2));
        QTRY_COMPARE(ends.count(), 1);
        QVERIFY(!panel->isTracking());
        QCOMPARE(client.undo.groupingLevel(), 0);
        QCOMPARE(client.undo.stack()->count(), 1);
        QCOMPARE(panel->color(), QColor(9, 9, 200));
    }

    void whatIsTypedInAFieldIsOneUndoStep()
    {
        Client client;
        QUndoStack *stack = client.undo.stack();
        client.link.setShowsAlpha(true);
        client.link.activate(&client);
        dialog()->activateWindow();
        const QList<QSpinBox *> fields = dialog()->findChildren<QSpinBox *>();
        const auto type = [&](QSpinBox *field, const QString &text) {
            field->setFocus();
            QTRY_COMPARE(QApplication::focusWidget(), field);
            field->selectAll();
            QTest::keyClicks(field, text);
        };
        client.whenTaken = [&client] { client.link.showColor(); };
        type(fields.last(), "123");
        QTest::qWait(int(ZelUndoBurst::pause) + 50); // however slowly
        QTest::keyClick(fields.last(), Qt::Key_Up);
        QCOMPARE(client.color.alpha(), 124);
        QCOMPARE(stack->count(), 1);
        type(fields.at(2), "88");
        QCOMPARE(stack->count(), 2);
        // The same field, but another object in between.
        client.color = Qt::red;
        client.link.showColor();
        type(fields.at(2), "99");
        QCOMPARE(stack->count(), 3);
    }
    void clientsFollowThePanelOneAtATime()
    {
        Client client;
        auto second = std::make_unique<Client>();
        const QSignalSpy changes(&client.link, &ZelColorPanelClient::activeChanged);
        client.link.setShowsAlpha(true);
        panel->setColor(Qt::white);
        for (int i = 0; i < 2; ++i)
            client.link.activate(&client);
        QVERIFY(client.link.isActive() && panel->isVisible() && panel->showsAlpha());
        QCOMPARE(panel->delegate(), &client);
        QCOMPARE(panel->color(), QColor(Qt::black)); // there was none to show
        QCOMPARE(changes.count(), 1);
        choose(QColor(1, 2, 3));
        for (const QColor &shown : {QColor(Qt::green), QColor()}) {
            client.color = shown;
            client.link.showColor();
            QCOMPARE(panel->color(), QColor(Qt::green));
        }
        client.link.setShowsAlpha(false);
        QVERIFY(!panel->showsAlpha());
        client.takesColors = false;
        choose(Qt::yellow);
        client.takesColors = true;
        panel->close();
        QVERIFY(!client.link.isActive() && !panel->delegate());
        QCOMPARE(changes.count(), 2);
        choose(Qt::cyan);
        client.link.activate(&client);
        panel->setDelegate(this); // whoever else takes it
        QVERIFY(!client.link.isActive());
        QCOMPARE(panel->delegate(), this);
        client.link.activate(&client);
        second->link.activate(second.get());
        QVERIFY(!client.link.isActive() && second->link.isActive());
        second->whenTaken = [&second] { second.reset(); }; // dies of what it takes
        choose(QColor(30, 3, 3));
        QVERIFY(!second && panel->isVisible() && !panel->delegate());
        choose(QColor(31, 3, 3));
        QCOMPARE(client.taken, QList<QColor>{QColor(1, 2, 3)});
    }
};
QTEST_MAIN(tst_ZelColorPanel)
#include "tst_ZelColorPanel.moc"
