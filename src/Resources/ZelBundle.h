// SPDX-License-Identifier: MIT
#pragma once

#include "Core/ZelExport.h"

#include <QHash>
#include <QStringList>
#include <QUrl>

/// A set of resources: directories and Qt resource prefixes that are searched in order, and a translation context.
///
/// Two bundles always exist: the application's (mainBundle) and the library's own. To run an application with other
/// descriptions or images, give its bundle other search paths. Bundles are set up on the main thread; look-ups may
/// follow on any.
class ZEL_EXPORT ZelBundle
{
public:
    explicit ZelBundle(const QString &name, const QStringList &resourcePaths = {});
    Q_DISABLE_COPY_MOVE(ZelBundle)

    /// The application's bundle: ":/", then the directory "Resources" beside the program.
    static ZelBundle &mainBundle();
    /// The bundle of the library's own images: ":/zel".
    static ZelBundle &libraryBundle();

    /// The bundle that a class belongs to: the one registered for exactly that class, else the library's for a class of
    /// the library, else the application's.
    static ZelBundle &bundleForClass(const QMetaObject *metaObject);
    /// Registers a bundle for a class. It stays the caller's and must outlive its use; null removes the registration.
    static void setBundleForClass(const QMetaObject *metaObject, ZelBundle *bundle);

    /// The name shown in messages.
    const QString &name() const { return m_name; }

    /// The directories and Qt resource prefixes, searched from the first to the last.
    QStringList resourcePaths() const;
    /// Replaces the search paths; an empty list brings the bundle's default back.
    void setResourcePaths(const QStringList &paths) { m_resourcePaths = paths; }

    /// Finds the first file of that name in the search paths. The name may lead into subdirectories; neither the name
    /// nor a link may lead out of the search path. Empty if there is no such file, or no name is given.
    QUrl urlForResource(const QString &baseName, const QString &extension) const;
    /// The same for a name with its extension.
    QUrl urlForResource(const QString &fileName) const;
    /// The first file of that name in a format that can be read, with or without its extension.
    QUrl urlForImageResource(const QString &name) const;

    /// For programs under development: what lies in Qt resources below the prefix, such as ":/inspector", is taken from
    /// a folder, as far as it exists there under the same name. It can then be changed while the program runs. This
    /// holds for all bundles. An empty folder ends it.
    static void setSourceFolder(const QString &prefix, const QString &folder);
    /// The file in a source folder that stands for a Qt resource; any other address as it is.
    static QUrl sourceOf(const QUrl &url);

    /// The context of QCoreApplication::translate, "Application" unless set.
    const QString &localizationContext() const { return m_localizationContext; }
    void setLocalizationContext(const QString &context) { m_localizationContext = context; }
    /// The translation of the key, or the key itself. An empty key stays empty, a null one null.
    QString localizedStringForKey(const QString &key) const;

private:
    QString m_name;
    QStringList m_defaultPaths;
    QStringList m_resourcePaths;
    QString m_localizationContext = QStringLiteral("Application");
};
