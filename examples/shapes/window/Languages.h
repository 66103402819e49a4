// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTranslator>

/// Switches the language of the application while it runs. Widgets hear of it by LanguageChange events.
class Languages
{
public:
    ~Languages() { set(QStringLiteral("en")); }
    /// "en" or "de"; false for a language that the application does not speak.
    bool set(const QString &language);
    QString current() const { return m_current; }

private:
    QTranslator m_application;
    QTranslator m_descriptions;
    QTranslator m_qt;
    QString m_current = QStringLiteral("en");
};
