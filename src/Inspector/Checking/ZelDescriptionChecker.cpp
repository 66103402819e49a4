// SPDX-License-Identifier: MIT
#include "Inspector/Checking/ZelDescriptionChecker.h"

#include "Inspector/Checking/private/ZelAttributePlaces.h"
#include "Inspector/Checking/private/ZelReferenceCheck.h"
#include "Inspector/Checking/private/ZelTypeCheck.h"
#include "Inspector/Description/private/ZelDescriptionCheck.h"

#include <QSet>
#include <algorithm>
#include <tuple>

using Checker = ZelDescriptionChecker;
using Mistake = ZelDescriptionMistake;

/// One call of check.
class Checker::Run
{
public:
    explicit Run(const Options &options);
    QList<Mistake> check(const QStringList &files);

private:
    void readTypes();
    void readScope();
    void visit(const ZelDescriptionWalk::Node &node);
    QString forgottenFile(const ZelInspectorConfiguration &element) const;
    void add(Mistake mistake);

    const Options &m_options;
    ZelDescriptionWalk::Report m_report = [this](const Mistake &mistake) { add(mistake); };
    ZelDescriptionWalk m_walk;
    ZelTypeTable m_types;
    ZelTypeScope m_scope;
    ZelAttributePlaces m_places;
    QList<Mistake> m_mistakes;
    QSet<QString> m_known;
};

Checker::Run::Run(const Options &options)
    : m_options(options)
    , m_walk(
          options.resourceFolders, [this](const ZelDescriptionWalk::Node &node) { visit(node); }, m_report)
{
}

QList<Mistake> Checker::Run::check(const QStringList &files)
{
    readTypes();
    readScope();
    if (m_options.isComplete)
        m_walk.walkAll(files);
    else
        m_walk.walk(files);
    QStringList order; // files as they were come across
    for (const Mistake &mistake : std::as_const(m_mistakes))
        order.append(mistake.place.file);
    order.removeDuplicates();
    std::ranges::stable_sort(m_mistakes, {}, [&](const Mistake &mistake) {
        return std::tuple(order.indexOf(mistake.place.file), mistake.place.line, mistake.place.column);
    });
    return m_mistakes;
}

void Checker::Run::readTypes()
{
    m_types.addKnownClasses();
    for (const QString &file : m_options.typeFiles) {
        if (const QString error = m_types.read(file); !error.isNull())
            add({Mistake::Error, QStringLiteral("The types cannot be read: ") + error, {file}});
    }
    for (const QString &key : m_options.keys)
        m_types.addKey(key.section(u'.', 0, -2), key.section(u'.', -1));
}

/// A controller with a misspelt name is told once, and then counts as what was meant, so that what lies below it is
/// checked all the same. A name that is far from any may be known to the owner that a description names.
void Checker::Run::readScope()
{
    m_scope = {m_options.owner, m_options.selections, {}};
    if (m_options.typeFiles.isEmpty())
        return;
    for (const QString &keyPath : m_options.selections.keys()) {
        const auto result = ZelKeyPathResolver(m_types, {m_options.owner, {}, {}}).resolve(keyPath);
        if (result.state != ZelKeyPathResolver::Result::Missing || result.suggestion.isNull() ||
            m_options.selections.contains(result.suggestion))
            continue;
        m_scope.selections.insert(result.suggestion, m_scope.selections.take(keyPath));
        add({Mistake::Error,
             QStringLiteral("--selection, in CMake SELECTIONS, names the controller \"%1\". ").arg(keyPath) +
                 result.message,
             {},
             {},
             result.suggestion});
    }
}

void Checker::Run::visit(const ZelDescriptionWalk::Node &node)
{
    ZelDescriptionCheck::Options options{.isThorough = true};
    options.findFile = [&](const ZelInspectorConfiguration &element) {
        const QString forgotten = forgottenFile(element);
        return forgotten.isNull() ? m_walk.fileOf(element) : QUrl::fromLocalFile(forgotten);
    };
    options.fileNames = [this](const ZelInspectorConfiguration &element) {
        return m_walk.resources().namesFor(element.place().file);
    };
    const bool isWithProperty = node.role == u"option-group" || node.role == u"option";
    if (!isWithProperty)
        ZelDescriptionCheck(m_report, options).check(node.element, node.role);
    ZelReferenceCheck(m_options, m_types, m_walk, m_report).check(node);
    ZelTypeCheck(m_types, !m_options.typeFiles.isEmpty(), m_scope, m_report).check(node);
    if (!forgottenFile(node.element).isNull())
        m_report({Mistake::Error,
                  QStringLiteral("The file \"%1\" is there, but not among the files that are given")
                      .arg(node.element.stringValueNamed(u"file")),
                  node.element.place(), QStringLiteral("file")});
}

/// A file that lies beside the others may have been forgotten where the resources of the program are listed.
QString Checker::Run::forgottenFile(const ZelInspectorConfiguration &element) const
{
    return m_walk.resources().forgottenFile(element.stringValueNamed(u"file"), element.place().file);
}

void Checker::Run::add(Mistake mistake)
{
    if (!mistake.attribute.isNull() && !mistake.place.isEmpty())
        mistake.place = m_places.placeOf(mistake.attribute, mistake.place);
    const QString text = mistake.place.appendedTo(mistake.message);
    if (m_known.contains(text))
        return;
    m_known.insert(text);
    m_mistakes.append(mistake);
}

Checker::ZelDescriptionChecker(const Options &options)
    : m_options(options)
{
}

Checker::~ZelDescriptionChecker() = default;

QList<Mistake> Checker::check(const QStringList &files) const
{
    return Run(m_options).check(files);
}

QString Checker::readSelections(const QString &text, QHash<QString, QStringList> &selections)
{
    const QStringList parts = text.simplified().split(u' ', Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        const qsizetype sign = part.indexOf(u'=');
        const QStringList classes = part.mid(sign + 1).split(u',', Qt::SkipEmptyParts);
        if (sign < 1 || classes.isEmpty())
            return part;
        selections.insert(part.first(sign), classes);
    }
    return {};
}
