// SPDX-License-Identifier: MIT
// Inspects whatever is selected in a tree of objects. There is no description: the classes say what can be edited.
#include "Blocks/ZelWindow.h"
#include "Core/Selection/ZelObjectController.h"
#include "Inspector/ZelAutomaticPane.h"
#include "ViewController/ZelView.h"

#include <QtWidgets>

void addToTree(QTreeWidgetItem *parent, QObject *object)
{
    auto *item = new QTreeWidgetItem(parent, {object->metaObject()->className(), object->objectName()});
    item->setData(0, Qt::UserRole, QVariant::fromValue(object));
    for (QObject *child : object->children())
        addToTree(item, child);
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    ZelObjectController selection;
    ZelAutomaticPane inspector(&selection);

    QSplitter window; // an application's: what is to be inspected, and the tree
    auto *calendar = new QCalendarWidget(&window);
    auto *tree = new QTreeWidget(&window);
    tree->setHeaderLabels({"Class", "Name"});
    tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    addToTree(tree->invisibleRootItem(), calendar);
    tree->expandToDepth(0);
    tree->resizeColumnToContents(0);

    window.addWidget(inspector.view());
    QObject::connect(tree, &QTreeWidget::itemSelectionChanged, &selection, [&] {
        QList<QObject *> objects;
        for (const QTreeWidgetItem *item : tree->selectedItems())
            objects.append(item->data(0, Qt::UserRole).value<QObject *>());
        selection.setSelectedObjects(objects);
    });
    ZelWindow::attach(&window);
    window.resize(1100, 600);
    window.setSizes({350, 350, 400});
    window.show();
    return application.exec();
}
