// SPDX-License-Identifier: MIT
#pragma once

#include "Inspector/ZelInspectorContainer.h"

#include <QStringList>
#include <functional>
#include <vector>

class ZelInspector;
class ZelInspectorChooser;
class ZelInspectorChooserChoice;
class ZelInspectorConditionalContainer;
class ZelInspectorPane;
class ZelInspectorSection;
class ZelInspectorSlice;
class ZelInspectorSliver;

/// The containers of a tabbed inspector, and the texts by which its rows are found: titles and keys, folded. They are
/// read from the controllers once; no view is loaded.
class ZelSearchIndex
{
public:
    enum class Kind : quint8 { Pane, Inspector, Slice, Section, Row, Chooser, Choice };
    struct Node
    {
        QPointer<ZelInspectorContainer> container;
        QString text; ///< by which the node is found; null for containers of other nodes
        int parent = -1;
        int pane = 0;
        Kind kind = Kind::Pane;

        /// Null for panes and choices, which have no conditions.
        ZelInspectorConditionalContainer *conditional() const;
        /// The row with the texts of the node; a chooser's own is the one with its pop-up. Null for other nodes.
        ZelInspectorSliver *row() const;
    };
    struct Finding
    {
        bool matches = false;  ///< this very row
        bool contains = false; ///< rows that match and are not hidden by conditions, the node itself included
        int hiddenBy = -1;     ///< the outermost node whose condition hides this one, or the choice that is not chosen
    };

    explicit ZelSearchIndex(const QList<ZelInspectorPane *> &panes);

    /// Containers before what is in them.
    const std::vector<Node> &nodes() const { return m_nodes; }
    /// What is found, for each node. The words are folded.
    std::vector<Finding> find(const QStringList &words) const;

    /// What people call a row: its title, or that of its first editor that has one, or its key.
    static QString nameOf(const ZelInspectorContainer *row);
    /// Says that the row exists, and why it is not shown.
    QString reasonFor(const Node &row, const Node &hiddenBy) const;

    /// Calls back while the context lives: when other rows are hidden by conditions, and when containers come, go or
    /// get other titles, after which the index is out of date.
    void watch(QObject *context, const std::function<void()> &conditionsDidChange,
               const std::function<void()> &contentDidChange) const;

private:
    /// Where children are put, and the texts by which all rows in there are found.
    struct Place
    {
        int parent = -1;
        int pane = 0;
        QString text;
        Place below(int node, const QString &title = {}) const;
    };
    int add(ZelInspectorContainer *container, Kind kind, const Place &place, const QString &text = {});
    void addSlice(ZelInspectorSlice *slice, const Place &place);
    void addInspector(ZelInspector *inspector, const Place &place);
    void addSection(ZelInspectorSection *section, const Place &place);
    void addRows(const QList<ZelInspectorConditionalContainer *> &rows, const Place &place);
    void addChooser(ZelInspectorChooser *chooser, const Place &place);
    bool isHidden(const Node &node) const;
    QString nameOfKey(const QString &keyPath) const;

    std::vector<Node> m_nodes;
};
