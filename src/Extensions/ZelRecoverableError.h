// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QList>
#include <QString>
#include <functional>

class QMessageBox;
class QObject;
class QWidget;

/// What went wrong, in words for people, and what they can do about it.
///
/// A function that fails hands it to whoever has a window. The options are the buttons of the alert that shows it.
class ZEL_EXPORT ZelRecoverableError
{
public:
    /// Tries to put things right; answers whether it did.
    using Attempt = std::function<bool()>;
    using Completion = std::function<void(bool recovered)>;

    /// A null error stands for no error.
    ZelRecoverableError() = default;
    explicit ZelRecoverableError(const QString &description, const QString &suggestion = {});

    bool isNull() const { return m_description.isNull(); }
    const QString &description() const { return m_description; }
    const QString &suggestion() const { return m_suggestion; }

    /// The first option is the default one. One without an attempt gives up.
    ZelRecoverableError &addOption(const QString &title, const Attempt &attempt = {});
    QStringList optionTitles() const;
    /// Answers false also for an option without an attempt. Asserts that there is such an option.
    bool attemptRecovery(qsizetype option) const;

    /// Shows the error as a sheet of the window, with a button for each option or else "OK", and returns at once. The
    /// completion is told whether the attempt that the user has chosen was successful. Neither attempt nor completion
    /// runs if the context or the window dies before, and the completion does not run if the attempt deletes the
    /// context. Asserts "context". Null without a context, and for no error.
    QMessageBox *present(QWidget *window, QObject *context, const Completion &completion = {}) const;

private:
    struct Option
    {
        QString title;
        Attempt attempt;
    };
    QString m_description;
    QString m_suggestion;
    QList<Option> m_options;
};
