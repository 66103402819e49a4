// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Undo/ZelUndoManager.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Support/EditorOwner.h"
#include "Support/Failures.h"
#include "Support/Figure.h"
#include "Support/TableRow.h"
#include "ViewController/ZelView.h"

#include <QTest>
#include <QVBoxLayout>
#include <memory>

/// A shown window with an undo manager, two figures, and one editor of them.
class FigureWindow : public QWidget
{
public:
    FigureWindow()
    {
        ZelUndoManager::setForWindow(this, &undoManager);
        new QVBoxLayout(this);
    }
    ~FigureWindow() override { takeOut(); } // before the window takes its view down

    void takeOut()
    {
        if (editor && editor->isViewLoaded())
            editor->view()->setParent(nullptr);
        editor.reset();
    }
    void select(const QList<QObject *> &objects)
    {
        owner->controller.setSelectedObjects(objects);
        settle();
    }
    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents(); // editors inside of others follow these
    }
    template<typename Editor> Editor *install(std::unique_ptr<Editor> made)
    {
        Editor *result = made.get();
        takeOut();
        editor = std::move(made);
        layout()->addWidget(editor->view());
        resize(300, 100);
        show();
        activateWindow();
        (void)QTest::qWaitForWindowActive(this);
        return result;
    }
    /// An editor of a key below the selection.
    template<typename Editor> std::unique_ptr<Editor> make(const QString &key) const
    {
        auto made = std::make_unique<Editor>(owner.get());
        if (!key.isEmpty())
            made->setKeyPath(u"people.selection." + key);
        made->setActionName("Change");
        made->setActionSelector("noteAction");
        return made;
    }
    template<typename Editor> Editor *edit(const QString &key, const std::function<void(Editor *)> &prepare = {})
    {
        auto made = make<Editor>(key);
        if (prepare)
            prepare(made.get());
        return install(std::move(made));
    }
    void undo()
    {
        undoManager.undo();
        settle();
    }
    int steps() const { return undoManager.stack()->count(); }

    ZelUndoManager undoManager;
    Figure first;
    Figure second;
    std::unique_ptr<EditorOwner> owner = std::make_unique<EditorOwner>();
    std::unique_ptr<ZelInspectorProperty> editor;
};
