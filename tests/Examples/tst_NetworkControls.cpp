// SPDX-License-Identifier: MIT
#include "Examples/ControlTour.h"
#include "Inspector/ZelTabbedInspector.h"
#include <NetworkWindow.h>

/// Every control of the network example does what it is there for. The test runs inside of the program.
class tst_NetworkControls : public QObject
{
    Q_OBJECT
    NetworkWindow *m_window = nullptr;
    QList<Node *> m_nodes;
    /// Clicks rows of the tree, the later ones with Control.
    void clickRows(const QList<int> &nodes)
    {
        QTreeView *tree = m_window->tree();
        tree->clearSelection();
        Qt::KeyboardModifiers modifiers;
        for (const int node : nodes) {
            const QModelIndex index = m_window->model().indexOf(m_nodes.at(node));
            tree->scrollTo(index);
            const QPoint place = tree->viewport()->mapTo(m_window, tree->visualRect(index).center());
            QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, modifiers, place);
            modifiers = Qt::ControlModifier;
        }
        User::settle();
    }
    QObjectList models() const
    {
        QObjectList models;
        for (Node *node : m_window->model().nodes()) {
            models.append(node);
            if (QObject *contact = node->property("contact").value<QObject *>())
                models.append(contact);
        }
        return models;
    }
    QVariant situation() const { return int(m_window->tree()->selectionModel()->selectedRows().size()); }

private Q_SLOTS:
    void initTestCase()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *window = qobject_cast<NetworkWindow *>(widget))
                m_window = window;
        }
        QVERIFY(m_window);
        m_window->resize(900, 900);
        User::activate(m_window);
        m_nodes = m_window->model().nodes();
    }

    void everyControlEditsTheSelection_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QList<int>>("nodes");
        QTest::addColumn<int>("least"); // number of controls that change something
        // Nothing, sites, devices, ports, and all sorts of nodes
        const QList<QList<int>> selections{{}, {0}, {0, 1}, {2}, {2, 3, 5}, {6}, {6, 8, 9}, {0, 2, 6}};
        const QList<QList<int>> counts{{0, 4, 4, 4, 4, 8, 8, 1}, {0, 1, 1, 3, 3, 1, 1, 1}};
        for (int tab = 0; tab < 2; ++tab) {
            for (int i = 0; i < selections.size(); ++i)
                QTest::addRow("tab %d, selection %d", tab, i) << tab << selections.at(i) << counts.at(tab).at(i);
        }
    }
    void everyControlEditsTheSelection()
    {
        QFETCH(int, tab);
        QFETCH(QList<int>, nodes);
        QFETCH(int, least);
        auto *inspector = m_window->findChild<ZelTabbedInspector *>();
        QWidget *tabs = inspector->tabBar()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).first();
        const QPoint place(tabs->width() * (2 * tab + 1) / 4, tabs->height() / 2);
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, tabs->mapTo(m_window, place));
        QCOMPARE(int(inspector->selectedPaneIndex()), tab);
        clickRows(nodes);
        ControlTour tour({.undoStack = &m_window->undoStack(),
                          .models = [this] { return models(); },
                          .situation = [this] { return situation(); },
                          .restore = [&] { clickRows(nodes); },
                          .undo = [] { User::press(Qt::Key_Z, Qt::ControlModifier); },
                          .redo = [] { User::press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }});
        tour.visitAll(inspector->panes()[tab]->view());
        QCOMPARE(tour.faults(), QString());
        QCOMPARE((tour.found - tour.changed).values().join('\n'), QString());
        QVERIFY2(tour.changed.size() >= least, qPrintable(QString::number(tour.changed.size())));
    }
};

ZEL_TEST_IN_EXAMPLE(tst_NetworkControls)
#include "tst_NetworkControls.moc"
