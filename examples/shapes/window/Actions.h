// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QList>

/// The commands of menus, tool bar and context menu, with texts that follow the language.
class Actions : public QObject
{
    Q_OBJECT
public:
    explicit Actions(QObject *parent = nullptr);

    enum Id {
        Undo,
        Redo,
        Duplicate,
        Delete,
        SelectAll,
        SelectNone,
        FindInInspector,
        AddRectangle,
        AddEllipse,
        AddStar,
        AddPolygon,
        AddText,
        Raise,
        Lower,
        RaiseToTop,
        LowerToBottom,
        AlignLeft,
        AlignCenter,
        AlignRight,
        AlignTop,
        AlignMiddle,
        AlignBottom,
        ZoomIn,
        ZoomOut,
        ActualSize,
        ZoomToFit,
        ShowShapes,
        ShowInspector,
        NextArea,
        PreviousArea,
        DarkPalette,
        English,
        German,
        WhatsThis,
        Count
    };
    Q_ENUM(Id)

    QAction *operator[](Id id) const { return m_actions[id]; }
    QList<QAction *> range(Id first, Id last) const { return m_actions.mid(first, last - first + 1); }

    /// Sets all texts and icons again, after the language or the palette has changed.
    void refresh();

private:
    QList<QAction *> m_actions;
};
