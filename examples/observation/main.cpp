// SPDX-License-Identifier: MIT
// An object watches another one, adds up what changes in one turn of the event loop, and stops watching with one call.
#include "Observation/ZelDelayedInvocation.h"
#include "Observation/ZelObservations.h"

#include <QCoreApplication>
#include <QTimer>
#include <cstdio>

class Account : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int balance MEMBER m_balance NOTIFY balanceChanged)
public:
    void deposit(int amount) { setProperty("balance", m_balance + amount); }

Q_SIGNALS:
    void balanceChanged();

private:
    int m_balance = 0;
};

class Printer : public QObject
{
public:
    explicit Printer(Account *account)
    {
        const auto changed = [this](ZelBlockObservation *, const ZelKeyValueChange &) { m_print.schedule(); };
        ZelObservations(this).addObservationWithObject(account, ZelKeyPath("balance"),
                                                       ZelKeyValueObservingOptionEqualCheck, changed, &context);
        m_print.schedule();
    }
    ~Printer() override { ZelObservations(this).removeAllObservationsForContext(&context); }

private:
    void print() { std::printf("%d balance(s) printed\n", ++m_count); }

    static inline const char context = 0;
    int m_count = 0;
    ZelDelayedInvocation m_print{[this] { print(); }};
};

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    Account account;
    Printer printer(&account);
    QTimer::singleShot(0, [&] {
        for (int i = 0; i < 1000; ++i)
            account.deposit(1); // a thousand changes, one line
    });
    QTimer::singleShot(100, &application, &QCoreApplication::quit);
    return application.exec();
}

#include "main.moc"
