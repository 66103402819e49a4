// SPDX-License-Identifier: MIT
#include "Inspector/private/ZelSearchIndex.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/ZelInspector.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelInspectorPane.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/private/ZelFoldedText.h"
#include "Resources/ZelLocalizedString.h"

#include <algorithm>

using Property = ZelInspectorProperty;

namespace {

QString keyOf(const QString &keyPath)
{
    return Property::keyPathByStripingControllerSelectionPrefix(keyPath);
}

/// The title that an editor shows. One from the model is read only where the editor shows it already, which also
/// reports a key path that leads nowhere.
QString titleOf(const Property *property)
{
    if (!property->title().isEmpty() || property->titleKeyPath().isEmpty() || !property->isViewInstalled())
        return property->title();
    try {
        const QVariant title = ZelValueForKeyPath(property->owner(), property->titleKeyPath());
        return title.typeId() == QMetaType::QString ? title.toString() : QString();
    } catch (const std::exception &) {
        return {};
    }
}

QString textOf(const ZelInspectorSliver *sliver)
{
    QString text = sliver->title() + u' ';
    for (const Property *property : sliver->properties())
        text +=
            titleOf(property) + u' ' + keyOf(property->keyPath()) + u' ' + property->searchTexts().join(u' ') + u' ';
    return text;
}

QString titleOf(const ZelInspectorChooserChoice *choice)
{
    return choice->title().isEmpty() ? choice->text() : choice->title();
}

/// The choice that is shown, or will be when the chooser has a view.
const ZelInspectorChooserChoice *presentChoice(const ZelInspectorChooser *chooser)
{
    if (chooser->isViewLoaded() || chooser->keyPath().isEmpty())
        return chooser->currentChoice();
    try {
        return chooser->choiceForValue(ZelValueForKeyPath(chooser->owner(), chooser->keyPath()));
    } catch (const std::exception &) {
        return nullptr; // of which the chooser tells when it is shown
    }
}

/// Whether a row has nothing to show because nothing is selected.
bool lacksSelection(const ZelInspectorContainer *row)
{
    const auto isMissing = [](QObject *owner, const QString &keyPath) {
        if (!owner || !Property::keyPathHasControllerSelectionPrefix(keyPath))
            return false;
        try {
            return ZelIsMarker(ZelValueForKeyPath(owner, keyPath), ZelNoSelectionMarker);
        } catch (const std::exception &) {
            return false; // of which the editor tells when it is shown
        }
    };
    if (const auto *chooser = qobject_cast<const ZelInspectorChooser *>(row))
        return isMissing(chooser->owner(), chooser->keyPath());
    const auto *sliver = qobject_cast<const ZelInspectorSliver *>(row);
    const QList<Property *> properties = sliver ? sliver->properties() : QList<Property *>();
    return std::any_of(properties.begin(), properties.end(),
                       [&](const Property *property) { return isMissing(property->owner(), property->keyPath()); });
}

} // namespace

ZelInspectorConditionalContainer *ZelSearchIndex::Node::conditional() const
{
    const bool hasCondition = kind != Kind::Pane && kind != Kind::Choice;
    return hasCondition ? static_cast<ZelInspectorConditionalContainer *>(container.data()) : nullptr;
}

ZelInspectorSliver *ZelSearchIndex::Node::row() const
{
    if (kind == Kind::Chooser && container)
        return static_cast<ZelInspectorChooser *>(container.data())->sliver();
    return kind == Kind::Row ? static_cast<ZelInspectorSliver *>(container.data()) : nullptr;
}

// Making the index

ZelSearchIndex::ZelSearchIndex(const QList<ZelInspectorPane *> &panes)
{
    for (int i = 0; i < panes.size(); ++i) {
        const int pane = add(panes.at(i), Kind::Pane, {-1, i, {}});
        for (ZelInspector *inspector : panes.at(i)->inspectors())
            addInspector(inspector, {pane, i, {}});
    }
}

ZelSearchIndex::Place ZelSearchIndex::Place::below(int node, const QString &title) const
{
    return {node, pane, title.isEmpty() ? text : text + title + u' '};
}

int ZelSearchIndex::add(ZelInspectorContainer *container, Kind kind, const Place &place, const QString &text)
{
    const QString folded = text.isNull() ? QString() : ZelFoldedText::fold(place.text + text);
    m_nodes.push_back({container, folded, place.parent, place.pane, kind});
    return int(m_nodes.size()) - 1;
}

void ZelSearchIndex::addInspector(ZelInspector *inspector, const Place &place)
{
    const Place slices = place.below(add(inspector, Kind::Inspector, place), inspector->title());
    for (ZelInspectorSlice *slice : inspector->slices())
        addSlice(slice, slices);
}

/// A slice without sections, as an application may have some of its own, is found by its title as a row is.
void ZelSearchIndex::addSlice(ZelInspectorSlice *slice, const Place &place)
{
    const QList<ZelInspectorSection *> all = slice->sections();
    const QString text = all.isEmpty() ? slice->title() + u' ' : QString();
    const Place sections = place.below(add(slice, Kind::Slice, place, text));
    for (ZelInspectorSection *section : all)
        addSection(section, sections);
}

void ZelSearchIndex::addSection(ZelInspectorSection *section, const Place &place)
{
    addRows(section->sliversAndChoosers(), place.below(add(section, Kind::Section, place), section->title()));
}

void ZelSearchIndex::addRows(const QList<ZelInspectorConditionalContainer *> &rows, const Place &place)
{
    for (ZelInspectorConditionalContainer *row : rows) {
        if (auto *sliver = qobject_cast<ZelInspectorSliver *>(row))
            add(sliver, Kind::Row, place, textOf(sliver));
        else if (auto *chooser = qobject_cast<ZelInspectorChooser *>(row))
            addChooser(chooser, place);
    }
}

void ZelSearchIndex::addChooser(ZelInspectorChooser *chooser, const Place &place)
{
    const QString text = chooser->title() + u' ' + keyOf(chooser->keyPath());
    const Place choices = place.below(add(chooser, Kind::Chooser, place, text), chooser->title());
    for (ZelInspectorChooserChoice *choice : chooser->choices())
        addRows(choice->sliversAndChoosers(), choices.below(add(choice, Kind::Choice, choices), titleOf(choice)));
}

// Finding

bool ZelSearchIndex::isHidden(const Node &node) const
{
    if (const auto *conditional = node.conditional())
        return !conditional->isVisible();
    if (node.kind != Kind::Choice)
        return false;
    const auto *chooser = static_cast<ZelInspectorChooser *>(m_nodes[size_t(node.parent)].container.data());
    return !chooser || presentChoice(chooser) != node.container;
}

std::vector<ZelSearchIndex::Finding> ZelSearchIndex::find(const QStringList &words) const
{
    std::vector<Finding> findings(m_nodes.size());
    for (size_t i = 0; i < m_nodes.size(); ++i) {
        const Node &node = m_nodes[i];
        Finding &finding = findings[i];
        finding.hiddenBy = node.parent < 0 ? -1 : findings[size_t(node.parent)].hiddenBy;
        if (finding.hiddenBy < 0 && isHidden(node))
            finding.hiddenBy = int(i);
        finding.matches = node.container && !node.text.isNull() && ZelFoldedText::containsAll(node.text, words);
        finding.contains = finding.matches && finding.hiddenBy < 0;
    }
    for (size_t i = m_nodes.size(); i-- > 0;) {
        if (findings[i].contains && m_nodes[i].parent >= 0)
            findings[size_t(m_nodes[i].parent)].contains = true;
    }
    return findings;
}

// What is hidden

QString ZelSearchIndex::nameOf(const ZelInspectorContainer *row)
{
    if (!row->title().isEmpty())
        return row->title();
    if (const auto *chooser = qobject_cast<const ZelInspectorChooser *>(row))
        return keyOf(chooser->keyPath());
    const auto *sliver = qobject_cast<const ZelInspectorSliver *>(row);
    const QList<Property *> properties = sliver ? sliver->properties() : QList<Property *>();
    for (const Property *property : properties) {
        if (const QString title = titleOf(property); !title.isEmpty())
            return title;
    }
    for (const Property *property : properties) {
        if (!property->keyPath().isEmpty())
            return keyOf(property->keyPath());
    }
    return {};
}

/// What people call the value at a key path: the name of the row that edits it; empty if there is none, since keys are
/// no names for people.
QString ZelSearchIndex::nameOfKey(const QString &keyPath) const
{
    for (const Node &node : m_nodes) {
        if (const auto *chooser = qobject_cast<ZelInspectorChooser *>(node.container.data())) {
            if (chooser->keyPath() == keyPath)
                return nameOf(chooser);
        } else if (const auto *sliver = qobject_cast<ZelInspectorSliver *>(node.container.data())) {
            for (const Property *property : sliver->properties()) {
                if (property->keyPath() == keyPath)
                    return property->title().isEmpty() ? nameOf(sliver) : property->title();
            }
        }
    }
    return {};
}

QString ZelSearchIndex::reasonFor(const Node &row, const Node &hiddenBy) const
{
    if (!row.container)
        return {};
    const QString name = nameOf(row.container);
    if (lacksSelection(row.container))
        return ZelLocalizedString("%1 – nothing is selected").arg(name);
    const ZelInspectorConditionalContainer *conditional = hiddenBy.conditional();
    if (hiddenBy.kind == Kind::Choice && hiddenBy.container) {
        const ZelInspectorContainer *chooser = m_nodes[size_t(hiddenBy.parent)].container;
        return ZelLocalizedString("%1 – shown when “%2” is “%3”")
            .arg(name, chooser ? nameOf(chooser) : QString(),
                 titleOf(static_cast<const ZelInspectorChooserChoice *>(hiddenBy.container.data())));
    }
    const QString keyPath = conditional ? conditional->visibleKeyPath() : QString();
    const QString value = keyPath.isEmpty() ? QString() : nameOfKey(keyPath);
    const bool isOfSelection = Property::keyPathHasControllerSelectionPrefix(keyPath + u'.');
    if (value.isEmpty() && isOfSelection)
        return ZelLocalizedString("%1 – not for what is selected").arg(name);
    if (value.isEmpty())
        return ZelLocalizedString("%1 – not shown at present").arg(name);
    const QString text = conditional->visibleValueTransformer()
                             ? ZelLocalizedString("%1 – not shown for the present value of “%2”")
                             : ZelLocalizedString("%1 – shown when “%2” is on");
    return text.arg(name, value);
}

// Changes

void ZelSearchIndex::watch(QObject *context, const std::function<void()> &conditionsDidChange,
                           const std::function<void()> &contentDidChange) const
{
    const auto watchContent = [&](auto *container, auto signal) {
        QObject::connect(container, signal, context, contentDidChange);
    };
    for (const Node &node : m_nodes) {
        ZelInspectorContainer *container = node.container;
        watchContent(container, &QObject::destroyed);
        watchContent(container, &ZelViewController::titleChanged);
        if (const auto *conditional = node.conditional())
            QObject::connect(conditional, &ZelInspectorConditionalContainer::visibleChanged, context,
                             conditionsDidChange);
        switch (node.kind) {
        case Kind::Pane:
            watchContent(static_cast<ZelInspectorPane *>(container), &ZelInspectorPane::inspectorsChanged);
            break;
        case Kind::Inspector:
            watchContent(static_cast<ZelInspector *>(container), &ZelInspector::slicesChanged);
            break;
        case Kind::Slice:
            watchContent(static_cast<ZelInspectorSlice *>(container), &ZelInspectorSlice::sectionsChanged);
            break;
        case Kind::Section:
            watchContent(static_cast<ZelInspectorSection *>(container),
                         &ZelInspectorSection::sliversAndChoosersChanged);
            break;
        case Kind::Row:
            watchContent(static_cast<ZelInspectorSliver *>(container), &ZelInspectorSliver::propertiesChanged);
            break;
        case Kind::Chooser: {
            auto *chooser = static_cast<ZelInspectorChooser *>(container);
            watchContent(chooser, &ZelInspectorChooser::choicesChanged);
            watchContent(chooser, &ZelInspectorChooser::sliverChanged);
            QObject::connect(chooser, &ZelInspectorChooser::currentChoiceChanged, context, conditionsDidChange);
            break;
        }
        case Kind::Choice:
            watchContent(static_cast<ZelInspectorChooserChoice *>(container),
                         &ZelInspectorChooserChoice::sliversAndChoosersChanged);
            break;
        }
    }
}
