// SPDX-License-Identifier: MIT
#include "window/Actions.h"

#include "window/Icons.h"

#include <QKeySequence>

namespace {
struct Row
{
    const char *text;
    const char *image = nullptr;
    QList<QKeySequence> shortcuts = {};
    bool checkable = false;
};

/// In the order of Actions::Id.
const QList<Row> &rows()
{
    static const QList<Row> table = {
        {QT_TRANSLATE_NOOP("Actions", "Undo"), nullptr, {QKeySequence::Undo}},
        {QT_TRANSLATE_NOOP("Actions", "Redo"), nullptr, {QKeySequence::Redo}},
        {QT_TRANSLATE_NOOP("Actions", "D&uplicate"), nullptr, {Qt::CTRL | Qt::Key_D}},
        {QT_TRANSLATE_NOOP("Actions", "&Delete"), nullptr, {QKeySequence::Delete}},
        {QT_TRANSLATE_NOOP("Actions", "Select &All"), nullptr, {QKeySequence::SelectAll}},
        {QT_TRANSLATE_NOOP("Actions", "Select &None"), nullptr, {Qt::CTRL | Qt::SHIFT | Qt::Key_A}},
        {QT_TRANSLATE_NOOP("Actions", "&Find in Inspector"), nullptr, {QKeySequence::Find}},
        {QT_TRANSLATE_NOOP("Actions", "&Rectangle"), "RectangleTemplate"},
        {QT_TRANSLATE_NOOP("Actions", "&Ellipse"), "EllipseTemplate"},
        {QT_TRANSLATE_NOOP("Actions", "&Star"), "StarTemplate"},
        {QT_TRANSLATE_NOOP("Actions", "&Polygon"), "PolygonTemplate"},
        {QT_TRANSLATE_NOOP("Actions", "&Text"), "TextTemplate"},
        {QT_TRANSLATE_NOOP("Actions", "&Raise"), nullptr, {Qt::CTRL | Qt::Key_PageUp}},
        {QT_TRANSLATE_NOOP("Actions", "&Lower"), nullptr, {Qt::CTRL | Qt::Key_PageDown}},
        {QT_TRANSLATE_NOOP("Actions", "Raise to &Top"), nullptr, {Qt::CTRL | Qt::SHIFT | Qt::Key_PageUp}},
        {QT_TRANSLATE_NOOP("Actions", "Lower to &Bottom"), nullptr, {Qt::CTRL | Qt::SHIFT | Qt::Key_PageDown}},
        {QT_TRANSLATE_NOOP("Actions", "Align Left"), "AlignLeftTemplate"},
        {QT_TRANSLATE_NOOP("Actions", "Align Center"), "AlignCenterTemplate"},
        {QT_TRANSLATE_NOOP("Actions", "Align Right"), "AlignRightTemplate"},
        {QT_TRANSLATE_NOOP("Actions", "Align Top"), "AlignTopTemplate"},
        {QT_TRANSLATE_NOOP("Actions", "Align Middle"), "AlignMiddleTemplate"},
        {QT_TRANSLATE_NOOP("Actions", "Align Bottom"), "AlignBottomTemplate"},
        {QT_TRANSLATE_NOOP("Actions", "Zoom &In"), nullptr, {QKeySequence::ZoomIn, Qt::CTRL | Qt::Key_Equal}},
        {QT_TRANSLATE_NOOP("Actions", "Zoom &Out"), nullptr, {QKeySequence::ZoomOut}},
        {QT_TRANSLATE_NOOP("Actions", "A&ctual Size"), nullptr, {Qt::CTRL | Qt::Key_0}},
        {QT_TRANSLATE_NOOP("Actions", "Zoom to &Fit"), nullptr, {Qt::CTRL | Qt::Key_9}},
        {QT_TRANSLATE_NOOP("Actions", "&Shapes"), nullptr, {Qt::Key_F8}, true},
        {QT_TRANSLATE_NOOP("Actions", "Ins&pector"), nullptr, {Qt::Key_F9}, true},
        {QT_TRANSLATE_NOOP("Actions", "Ne&xt Area"), nullptr, {Qt::Key_F6}},
        {QT_TRANSLATE_NOOP("Actions", "Previous Are&a"), nullptr, {Qt::SHIFT | Qt::Key_F6}},
        {QT_TRANSLATE_NOOP("Actions", "&Dark Palette"), nullptr, {}, true},
        {"&English", nullptr, {}, true},
        {"&Deutsch", nullptr, {}, true},
        {QT_TRANSLATE_NOOP("Actions", "&What's This?"), nullptr, {Qt::SHIFT | Qt::Key_F1}},
    };
    return table;
}
} // namespace

Actions::Actions(QObject *parent)
    : QObject(parent)
{
    Q_ASSERT(rows().size() == Count);
    for (const Row &row : rows()) {
        auto *action = new QAction(this);
        action->setShortcuts(row.shortcuts);
        action->setCheckable(row.checkable);
        m_actions.append(action);
    }
    refresh();
}

void Actions::refresh()
{
    for (int id = 0; id < Count; ++id) {
        const Row &row = rows()[id];
        m_actions[id]->setText(tr(row.text));
        if (row.image)
            m_actions[id]->setIcon(Icons::named(QString::fromLatin1(row.image)));
    }
}
