// SPDX-License-Identifier: MIT
#pragma once

#include "Core/Undo/ZelUndoManager.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Support/EditorOwner.h"
#include "Support/Person.h"
#include "ViewController/ZelView.h"

#include <QTest>
#include <QVBoxLayout>
#include <QWidget>
#include <memory>

/// A shown window with an undo manager, a few people, and one editor of them.
class EditorWindow : public QWidget
{
public:
    explicit EditorWindow(int count = 2)
    {
        ZelUndoManager::setForWindow(this, &undo);
        new QVBoxLayout(this);
        for (int i = 0; i < count; ++i)
            people.push_back(std::make_unique<Person>());
        owner = std::make_unique<EditorOwner>();
    }
    ~EditorWindow() override
    {
        takeOut(); // before the window takes its view down
    }
    void takeOut()
    {
        if (editor && editor->isViewLoaded())
            editor->view()->setParent(nullptr);
        editor.reset();
    }

    void select(const QList<int> &indexes)
    {
        QList<QObject *> selected;
        for (int index : indexes)
            selected.append(people.at(index).get());
        owner->controller.setSelectedObjects(selected);
        QCoreApplication::processEvents();
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

    ZelUndoManager undo;
    std::vector<std::unique_ptr<Person>> people;
    std::unique_ptr<EditorOwner> owner;
    std::unique_ptr<ZelInspectorProperty> editor;
};
