// SPDX-License-Identifier: MIT
#include "Extensions/ZelRecoverableError.h"

#include "Core/Errors/ZelAssertions.h"
#include "Extensions/ZelAlert.h"
#include "Resources/ZelLocalizedString.h"

#include <QPointer>

ZelRecoverableError::ZelRecoverableError(const QString &description, const QString &suggestion)
    : m_description(description)
    , m_suggestion(suggestion)
{
}

ZelRecoverableError &ZelRecoverableError::addOption(const QString &title, const Attempt &attempt)
{
    m_options.append({title, attempt});
    return *this;
}

QStringList ZelRecoverableError::optionTitles() const
{
    QStringList titles;
    for (const Option &option : m_options)
        titles.append(option.title);
    return titles;
}

bool ZelRecoverableError::attemptRecovery(qsizetype option) const
{
    if (!ZelRequire(option >= 0 && option < m_options.size(), "option >= 0 && option < options.count"))
        return false;
    const Attempt &attempt = m_options.at(option).attempt;
    return attempt && attempt();
}

QMessageBox *ZelRecoverableError::present(QWidget *window, QObject *context, const Completion &completion) const
{
    if (isNull())
        return nullptr;
    ZelRecoverableError error = *this;
    if (error.m_options.isEmpty())
        error.addOption(ZelLocalizedString(QStringLiteral("OK")));
    ZelAlert alert(m_description, m_suggestion);
    alert.setIcon(QMessageBox::Warning);
    for (qsizetype i = 0; i < error.m_options.size(); ++i) {
        const Option &option = error.m_options.at(i);
        alert.addButton(option.title, option.attempt ? QMessageBox::AcceptRole : QMessageBox::RejectRole,
                        [error, i, completion, alive = QPointer<QObject>(context)] {
                            const bool recovered = error.attemptRecovery(i);
                            if (completion && alive) // the attempt may have ended it
                                completion(recovered);
                        });
    }
    return alert.beginSheet(window, context);
}
