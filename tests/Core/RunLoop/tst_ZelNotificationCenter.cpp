// SPDX-License-Identifier: MIT
#include "Core/RunLoop/ZelNotificationCenter.h"

#include <QTest>
#include <functional>

namespace {

class Listener : public ZelNotificationObserver
{
public:
    explicit Listener(const QString &name, QString &log)
        : m_name(name)
        , m_log(log)
    {
    }
    void observeNotification(const ZelNotification &notification) override
    {
        m_log += m_name;
        last = notification;
        if (react)
            react();
    }
    ZelNotification last;
    std::function<void()> react;

private:
    QString m_name;
    QString &m_log;
};

} // namespace

class tst_ZelNotificationCenter : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void filtersByNameAndSender_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("fromSender");
        QTest::addColumn<QString>("heard");
        QTest::newRow("both") << "N" << true << "1234";
        QTest::newRow("name, no sender") << "N" << false << "24";
        QTest::newRow("other name, sender") << "M" << true << "34";
        QTest::newRow("other name, no sender") << "M" << false << "4";
    }

    void filtersByNameAndSender()
    {
        QFETCH(QString, name);
        QFETCH(bool, fromSender);
        ZelNotificationCenter center;
        QObject sender, other;
        QString log;
        Listener one("1", log), two("2", log), three("3", log), four("4", log);
        center.addObserver(&one, "N", &sender);
        center.addObserver(&two, "N");
        center.addObserver(&three, {}, &sender);
        center.addObserver(&four);
        center.post(name, fromSender ? &sender : &other, {{"key", 7}});
        QTEST(log, "heard");
        QCOMPARE(four.last.name, name);
        QCOMPARE(four.last.userInfo.value("key").toInt(), 7);
    }

    void removesExactlyOneRegistration()
    {
        ZelNotificationCenter center;
        QObject sender;
        QString log;
        Listener one("1", log);
        center.addObserver(&one, "N", &sender);
        center.addObserver(&one, "N");
        center.addObserver(&one, "M");
        center.removeObserver(&one, "N", &sender);
        center.post("N", &sender);
        QCOMPARE(log, "1");
        center.removeObserver(&one);
        center.post("N", &sender);
        center.post("M");
        QCOMPARE(log, "1");
    }

    void observersComeAndGoDuringDelivery()
    {
        ZelNotificationCenter center;
        QString log;
        Listener first("1", log), added("2", log);
        auto removed = std::make_unique<Listener>("3", log);
        first.react = [&] {
            if (!removed)
                return;
            center.addObserver(&added, "N");
            center.removeObserver(removed.get(), "N", nullptr);
            removed.reset();
        };
        center.addObserver(&first, "N");
        center.addObserver(removed.get(), "N");
        center.post("N");
        QCOMPARE(log, "1");
        center.post("N");
        QCOMPARE(log, "112");
    }

    void aSenderThatDiesIsNotMistakenForItsSuccessor()
    {
        ZelNotificationCenter center;
        QString log;
        Listener one("1", log), any("2", log);
        alignas(QObject) char memory[sizeof(QObject)];
        auto *sender = new (memory) QObject;
        center.addObserver(&any, "N");
        center.addObserver(&one, "N", sender);
        any.react = [&] { sender->~QObject(); };
        center.post("N", sender);
        QCOMPARE(log, "2");
        QVERIFY(!any.last.object);
        any.react = nullptr;
        QObject *successor = new (memory) QObject;
        center.post("N", successor);
        QCOMPARE(log, "22");
        center.removeObserver(&one, "N", successor);
        successor->~QObject();
    }
};

QTEST_MAIN(tst_ZelNotificationCenter)
#include "tst_ZelNotificationCenter.moc"
