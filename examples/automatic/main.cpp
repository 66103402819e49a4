// SPDX-License-Identifier: MIT
// Inspects whatever is selected in a tree of objects. There is no description: the classes say what can be edited.
#include "Blocks/ZelWindow.h"
#include "Core/Selection/ZelObjectController.h"
#include "Inspector/ZelAutomaticPane.h"
#include "ViewController/ZelView.h"

#include <QtWidgets>

void addToTree(QTreeWidget *tree, QTreeWidgetItem *parent, QObject *object)
{
    auto *item = new QTreeWidgetItem(parent, {object->metaObject()->className(), object->objectName()});
    item->setData(0, Qt::UserRole, QVariant::fromValue(object));
    for (QObject *child : object->children())
        addToTree(tree, item, child);
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QCalendarWidget inspected; // any part of an application
    ZelObjectController selection;
    ZelAutomaticPane inspector(&selection);

    QSplitter window;
    auto *tree = new QTreeWidget(&window);
    tree->setHeaderLabels({"Class", "Name"});
    tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    addToTree(tree, tree->invisibleRootItem(), &inspected);
    tree->expandAll();
    window.addWidget(inspector.view());
    QObject::connect(tree, &QTreeWidget::itemSelectionChanged, &selection, [&] {
        QList<QObject *> objects;
        for (const QTreeWidgetItem *item : tree->selectedItems())
            objects.append(item->data(0, Qt::UserRole).value<QObject *>());
        selection.setSelectedObjects(objects);
    });

    ZelWindow::attach(&window);
    window.resize(900, 700);
    window.show();
    inspected.show();
    return application.exec();
}
