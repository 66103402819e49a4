// SPDX-License-Identifier: MIT
#include "window/Languages.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

bool Languages::set(const QString &language)
{
    if (language == m_current)
        return true;
    const QLocale locale(language);
    if (language != u"en" && !(m_application.load(QStringLiteral(":/translations/shapes_%1.qm").arg(language)) &&
                               m_descriptions.load(QStringLiteral(":/inspector/inspector_%1.qm").arg(language))))
        return false;
    m_current = language;
    QLocale::setDefault(locale);
    QCoreApplication::removeTranslator(&m_application);
    QCoreApplication::removeTranslator(&m_descriptions);
    QCoreApplication::removeTranslator(&m_qt);
    if (language == u"en")
        return true;
    if (m_qt.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                  QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qt);
    QCoreApplication::installTranslator(&m_application);
    QCoreApplication::installTranslator(&m_descriptions);
    return true;
}
