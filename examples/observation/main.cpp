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
        : m_account(account)
    {
        const auto changed = [this](ZelBlockObservation *, const ZelKeyValueChange &) { m_print.schedule(); };
        ZelObservations(this).addObservationWithObject(account, ZelKeyPath("balance"),
                                                       ZelKeyValueObservingOptionEqualCheck, changed, &context);
    }
    ~Printer() override { ZelObservations(this).removeAllObservationsForContext(&context); }

private:
    static inline const char context = 0;
    Account *m_account;
    ZelDelayedInvocation m_print{
        [this] { std::printf("The balance is %d\n", m_account->property("balance").toInt()); }};
};

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    Account account;
    const Printer printer(&account);
    const auto deposit = [&] {
        for (int i = 0; i < 1000; ++i)
            account.deposit(1); // a thousand changes, one line
    };
    QTimer::singleShot(10, deposit);
    QTimer::singleShot(20, deposit);
    QTimer::singleShot(100, &application, &QCoreApplication::quit);
    return application.exec();
}

#include "main.moc"
