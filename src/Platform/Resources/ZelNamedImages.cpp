// SPDX-License-Identifier: MIT
#include "Platform/Resources/ZelNamedImages.h"

#include "Platform/Resources/ZelBundle.h"
#include "Platform/Resources/ZelTemplateIconEngine.h"
#include "Platform/Runtime/ZelAssertions.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>

namespace {

/// Icons must not outlive the application, at whose end the table is emptied. It is never deleted itself.
QHash<QString, QIcon> &images()
{
    static auto *table = new QHash<QString, QIcon>;
    static bool isCleaned = false;
    if (!isCleaned && QCoreApplication::instance()) {
        isCleaned = true;
        qAddPostRoutine([] {
            table->clear();
            isCleaned = false;
        });
    }
    return *table;
}

QString pathOf(const QUrl &url)
{
    return url.isLocalFile() ? url.toLocalFile() : u':' + url.path(QUrl::FullyDecoded);
}

} // namespace

void ZelNamedImages::setImageForName(const QIcon &image, const QString &name)
{
    if (image.isNull())
        images().remove(name);
    else
        images().insert(name, image);
}

QIcon ZelNamedImages::imageNamed(const QString &name)
{
    return images().value(name);
}

QIcon ZelNamedImages::imageNamedInBundleForClass(const QString &name, const QMetaObject *metaObject)
{
    const ZelBundle &bundle = ZelBundle::bundleForClass(metaObject);
    const QUrl url = bundle.urlForImageResource(name);
    if (url.isEmpty()) {
        qCDebug(zelLog).noquote().nospace()
            << "No URL for image resource " << name << " found in bundle " << bundle.name();
        return {};
    }
    const QString path = pathOf(url);
    QIcon image(path);
    if (QFileInfo(path).completeBaseName().endsWith(u"Template"))
        image = templateImage(image);
    setImageForName(image, name);
    return image;
}

QIcon ZelNamedImages::templateImage(const QIcon &image)
{
    if (image.isNull())
        return image;
    QIcon result(new ZelTemplateIconEngine(image));
    result.setIsMask(true);
    return result;
}
