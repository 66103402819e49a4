// SPDX-License-Identifier: MIT
#include "Platform/Resources/ZelXmlReader.h"

#include "Platform/Resources/ZelXmlPrescan.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QXmlStreamReader>
#include <optional>

namespace {

constexpr qint64 largestSize = 1 << 30; // positions in a tree are 32 bits wide

QString tr(const char *text)
{
    return QCoreApplication::translate("ZelXmlReader", text);
}

/// Fills a tree from one parser run.
class TreeBuilder
{
public:
    using Place = ZelXmlPrescan::Place;

    TreeBuilder(const QByteArray &data, const std::vector<Place> &startTags, const QString &file, int depth)
        : m_parser(data)
        , m_startTags(startTags)
        , m_depth(depth)
    {
        m_parser.setEntityExpansionLimit(0);
        m_parser.setNamespaceProcessing(false);
        m_tree->file = file;
        m_tree->values = QStringLiteral(""); // not null, so that an empty value is not null either
        m_tree->values.reserve(data.size() / 2);
    }

    std::shared_ptr<const ZelXmlTree> build(ZelReadError &error)
    {
        while (!m_parser.atEnd() && step()) {
        }
        if (m_parser.hasError()) {
            error.message = m_parser.errorString();
            error.place = here(m_failedPlace.value_or(parserPlace()));
            return nullptr;
        }
        return m_tree;
    }

private:
    bool step()
    {
        switch (m_parser.readNext()) {
        case QXmlStreamReader::StartElement:
            return startElement();
        case QXmlStreamReader::EndElement:
            m_tree->elements[m_open.back()].end = quint32(m_tree->elements.size());
            m_open.pop_back();
            return true;
        case QXmlStreamReader::DTD:
            return fail(tr("A document type declaration is not allowed."), parserPlace());
        case QXmlStreamReader::EntityReference:
            return fail(tr("The entity \"%1\" is not known.").arg(m_parser.name()), parserPlace());
        default:
            return !m_parser.hasError();
        }
    }

    bool startElement()
    {
        const size_t index = m_tree->elements.size();
        const Place place = index < m_startTags.size() ? m_startTags[index] : parserPlace();
        if (m_open.size() >= size_t(m_depth))
            return fail(tr("More than %1 elements are nested.").arg(m_depth), place);
        m_open.push_back(quint32(index));
        const QXmlStreamAttributes attributes = m_parser.attributes();
        m_tree->elements.push_back({nameIndex(m_parser.qualifiedName()), quint32(m_tree->attributes.size()),
                                    quint32(attributes.size()), 0, place.line, place.column});
        for (const QXmlStreamAttribute &attribute : attributes) {
            const QStringView value = attribute.value();
            m_tree->attributes.push_back(
                {nameIndex(attribute.qualifiedName()), quint32(m_tree->values.size()), quint32(value.size())});
            m_tree->values.append(value);
        }
        return true;
    }

    quint32 nameIndex(QStringView name)
    {
        const auto found = m_nameIndexes.constFind(name);
        if (found != m_nameIndexes.cend())
            return *found;
        const quint32 index = quint32(m_tree->names.size());
        m_tree->names.push_back(name.toString());
        m_nameIndexes.insert(m_tree->names.back(), index); // a moved QString keeps its characters in place
        return index;
    }

    bool fail(const QString &message, Place place)
    {
        m_failedPlace = place;
        m_parser.raiseError(message);
        return false;
    }

    /// The last character that the parser has looked at: good enough for its own errors, but not where a tag begins.
    Place parserPlace() const
    {
        return {quint32(m_parser.lineNumber()), quint32(std::max<qint64>(1, m_parser.columnNumber()))};
    }

    ZelSourcePlace here(Place place) const
    {
        const QString element = m_open.empty() ? QString() : m_tree->names[m_tree->elements[m_open.back()].name];
        return {m_tree->file, place.line, place.column, element};
    }

    QXmlStreamReader m_parser;
    const std::vector<Place> &m_startTags;
    int m_depth;
    std::shared_ptr<ZelXmlTree> m_tree = std::make_shared<ZelXmlTree>();
    std::vector<quint32> m_open; // the elements whose end tags are still to come
    QHash<QStringView, quint32> m_nameIndexes;
    std::optional<Place> m_failedPlace;
};

/// The path of a local file or Qt resource; null for anything else.
QString pathOf(const QUrl &url)
{
    if (url.isLocalFile())
        return url.toLocalFile();
    if (url.scheme() == u"qrc")
        return u':' + url.path();
    return url.scheme().isEmpty() && url.host().isEmpty() ? url.path() : QString();
}

/// The bytes of a file, or one more than the limit; nothing and a message if it cannot be read.
std::optional<QByteArray> readFile(const QString &path, qint64 limit, QString &message)
{
    const QFileInfo info(path);
    if (!info.exists())
        message = tr("The file does not exist.");
    else if (info.isDir())
        message = tr("This is a directory, not a file.");
    else if (!info.isFile()) // a pipe would be waited for, a device may never end
        message = tr("This is not an ordinary file.");
    if (!message.isNull())
        return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        message = file.errorString();
        return std::nullopt;
    }
    const QByteArray data = file.read(limit + 1);
    if (file.error() != QFileDevice::NoError) {
        message = file.errorString();
        return std::nullopt;
    }
    return data;
}

} // namespace

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
    const std::optional<QByteArray> data = readFile(path, std::min(m_limits.size, largestSize), message);
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
    const qint64 limit = std::min(m_limits.size, largestSize);
    if (data.size() > limit) {
        result = {tr("The file is larger than %1 bytes.").arg(limit), {file}};
        return {};
    }
    if (data.isEmpty()) {
        result = {tr("The file is empty."), {file, 1, 1}};
        return {};
    }
    ZelXmlPrescan prescan(data, m_limits);
    if (!prescan.accept()) {
        result = {prescan.message(), {file, prescan.place().line, prescan.place().column}};
        return {};
    }
    const std::shared_ptr<const ZelXmlTree> tree =
        TreeBuilder(data, prescan.startTags(), file, m_limits.depth).build(result);
    return tree ? ZelXmlElement(tree) : ZelXmlElement();
}
