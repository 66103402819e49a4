// SPDX-License-Identifier: MIT
#include "Inspector/Description/ZelXmlReader.h"

#include "Inspector/Description/private/ZelXmlTreeBuilder.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <optional>

namespace {

constexpr qint64 g_largestSize = 1 << 30; // positions in a tree are 32 bits wide

/// The bytes of a file, or one more than the limit; nothing and a message if it cannot be read.
std::optional<QByteArray> readFile(const QString &path, qint64 limit, QString &message)
{
    const QFileInfo info(path);
    if (!info.exists())
        message = ZelXmlReader::tr("The file does not exist.");
    else if (info.isDir())
        message = ZelXmlReader::tr("This is a directory, not a file.");
    else if (!info.isFile()) // a pipe would be waited for, a device may never end
        message = ZelXmlReader::tr("This is not an ordinary file.");
    if (!message.isNull())
        return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        message = file.errorString();
        return std::nullopt;
    }
    constexpr qint64 unknown = 1 << 16; // room for a file that does not tell its size
    const QByteArray data = file.read(std::min(limit, std::max(file.size(), unknown)) + 1);
    if (file.error() != QFileDevice::NoError) {
        message = file.errorString();
        return std::nullopt;
    }
    return data;
}

} // namespace

QString ZelXmlReader::pathOf(const QUrl &url)
{
    if (url.isLocalFile())
        return url.toLocalFile();
    if (url.scheme() == u"qrc")
        return u':' + url.path();
    return url.scheme().isEmpty() && url.host().isEmpty() ? url.path() : QString();
}

ZelXmlElement ZelXmlReader::readUrl(const QUrl &url, ZelReadError *error) const
{
    ZelReadError unused;
    ZelReadError &result = error ? *error : unused;
    const QString path = pathOf(url);
    if (path.isEmpty()) {
        result = {tr("Only local files and resources can be read."), {url.toString()}};
        return {};
    }
    QString message;
    const std::optional<QByteArray> data = readFile(path, std::min(m_limits.size, g_largestSize), message);
    if (!data) {
        result = {message, {path}};
        return {};
    }
    return readData(*data, QFileInfo(path).canonicalFilePath(), &result);
}

ZelXmlElement ZelXmlReader::readData(const QByteArray &data, const QString &file, ZelReadError *error) const
{
    ZelReadError unused;
    ZelReadError &result = error ? *error : unused;
    result = {};
    const qint64 limit = std::min(m_limits.size, g_largestSize);
    if (data.size() > limit) {
        result = {tr("The file is larger than %1 bytes.").arg(limit), {file}};
        return {};
    }
    if (data.isEmpty()) {
        result = {tr("The file is empty."), {file, 1, 1}};
        return {};
    }
    const std::shared_ptr<const ZelXmlTree> tree = ZelXmlTreeBuilder(data, m_limits, file).build(result);
    return tree ? ZelXmlElement(tree) : ZelXmlElement();
}
