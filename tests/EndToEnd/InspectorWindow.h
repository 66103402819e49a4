// SPDX-License-Identifier: MIT
#pragma once

#include "Blocks/ZelWindow.h"
#include "Core/Undo/ZelUndoManager.h"
#include "Inspector/Properties/ZelInspectorProperty.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Support/EditorOwner.h"
#include "Support/Person.h"
#include "ViewController/ZelView.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

/// An application's window with an inspector built from a description.
class InspectorWindow : public QWidget
{
public:
    explicit InspectorWindow(const QByteArray &description, const QSize &size = {320, 420})
    {
        ZelWindow::attach(this, &stack);
        owner = std::make_unique<EditorOwner>();
        for (int i = 0; i < 3; ++i)
            people.push_back(std::make_unique<Person>(QStringLiteral("P%1").arg(i)));
        QFile file(m_folder.filePath(QStringLiteral("Inspector.xml")));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write the description");
        file.write(description);
        file.close();
        ZelDeclarativeInspectorGenerator generator;
        generator.setUrl(QUrl::fromLocalFile(file.fileName()));
        generator.setOwner(owner.get());
        inspector.reset(generator.createTabbedInspector());
        auto *column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(inspector->view());
        resize(size);
        show();
        activateWindow();
        if (!QTest::qWaitForWindowActive(this))
            qFatal("the window does not become active");
    }
    ~InspectorWindow() override { inspector.reset(); }

    void select(const QList<int> &indexes)
    {
        QList<QObject *> selected;
        for (int index : indexes)
            selected.append(people.at(index).get());
        owner->controller.setSelectedObjects(selected);
        settle();
    }
    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }
    /// The editor of a key below the selection.
    template<typename Editor> Editor *editor(const char *key) const
    {
        const QString path = QStringLiteral("people.selection.%1").arg(QLatin1String(key));
        for (auto *property : inspector->findChildren<ZelInspectorProperty *>()) {
            if (property->keyPath() == path)
                return qobject_cast<Editor *>(property);
        }
        return nullptr;
    }

    QUndoStack stack;
    std::unique_ptr<EditorOwner> owner;
    std::vector<std::unique_ptr<Person>> people;
    std::unique_ptr<ZelTabbedInspector> inspector;

private:
    QTemporaryDir m_folder;
};
