// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Selection/ZelItemSelection.h"
#include "FigureSheet.h"

constexpr int g_colorRole = Qt::UserRole + 3;

/// Rows of a name, a number, a date and a check box, with a colour in a role. It takes no name that begins with a
/// digit.
class Rows : public QStandardItemModel
{
public:
    Rows()
    {
        setColumnCount(4);
        setHorizontalHeaderLabels({"Name", "Item count", "Due date", "Done"});
        setItemRoleNames({{g_colorRole, "fill"}});
    }
    QStandardItem *add(const QString &name, int count, QStandardItem *parent = nullptr)
    {
        auto *done = new QStandardItem;
        done->setCheckable(true);
        done->setCheckState(Qt::Unchecked);
        const QList<QStandardItem *> row{new QStandardItem(name), new QStandardItem, new QStandardItem, done};
        row.at(0)->setData(QColor(Qt::red), g_colorRole);
        row.at(1)->setData(count, Qt::EditRole);
        row.at(2)->setData(QDate(2024, 5, 6), Qt::EditRole);
        parent ? parent->appendRow(row) : appendRow(row);
        return row.first();
    }
    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        const QString text = value.toString();
        const bool isRefused = index.column() == 0 && role == Qt::EditRole && !text.isEmpty() && text.at(0).isDigit();
        return !isRefused && QStandardItemModel::setData(index, value, role);
    }
    QVariant at(int row, int column, int role = Qt::EditRole) const { return index(row, column).data(role); }
};

/// An inspector of what is selected in a tree.
struct TreeSheet : Sheet
{
    explicit TreeSheet(QAbstractItemModel *model)
        : Sheet(row("name", "string") + row("itemCount", "number") + row("dueDate", "date") + row("done", "boolean") +
                row("fill", "color", "colorList='Crayons'"))
    {
        view->setModel(model);
        view->setSelectionMode(QAbstractItemView::ExtendedSelection);
        view->resize(400, 300);
        view->show();
        selection = new ZelItemSelection(view->selectionModel(), &owner->controller);
        selection->setKey("done", 3, Qt::CheckStateRole);
        activateWindow();
    }
    void selectRows(const QList<int> &rows) const
    {
        QItemSelection selected;
        for (const int row : rows)
            selected.append(QItemSelectionRange(view->model()->index(row, 0)));
        view->selectionModel()->select(selected, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        settle();
    }
    QStringList selectedNames() const
    {
        QStringList names;
        for (const QModelIndex &index : view->selectionModel()->selectedRows())
            names.append(index.data().toString());
        return names;
    }
    QVariant selectedValue(const char *key) const { return ZelValueForKey(owner->controller.selection(), key); }
    bool canEdit(const QString &key) const { return editor<ZelInspectorProperty>(key)->isWritable(); }

    std::unique_ptr<QTreeView> view = std::make_unique<QTreeView>();
    QPointer<ZelItemSelection> selection;
};

/// Rows of item models, selected in a view and edited in an inspector.
class TestItemModels : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /// Every kind of key of several rows is edited in one step each, and keeps its type.
    void edits()
    {
        Rows model;
        for (int i = 0; i < 3; ++i)
            model.add(QString("R%1").arg(i), i);
        TreeSheet sheet(&model);
        sheet.selectRows({0, 2});
        QCOMPARE(sheet.shown("name"), QString("Multiple Values"));
        sheet.edit("itemCount", "7");
        QCOMPARE(model.at(0, 1), QVariant(7));
        QCOMPARE(model.at(0, 1).typeId(), int(QMetaType::Int));
        QCOMPARE(model.at(1, 1), QVariant(1));
        QCOMPARE(model.at(2, 1), QVariant(7));
        QCOMPARE(sheet.stack.count(), 1);
        QCOMPARE(sheet.stack.undoText(), QString("Change itemCount"));
        sheet.edit("done", {});
        QCOMPARE(model.at(2, 3, Qt::CheckStateRole), QVariant(Qt::Checked));
        sheet.edit("dueDate", "17");
        QCOMPARE(model.at(0, 2), QVariant(QDate(2024, 5, 17)));
        sheet.selectRows({1}); // undo needs no selection
        for (int i = 0; i < 3; ++i)
            sheet.undo();
        QVERIFY(!sheet.stack.canUndo());
        for (int row = 0; row < 3; ++row) {
            QCOMPARE(model.at(row, 1), QVariant(row));
            QCOMPARE(model.at(row, 1).typeId(), int(QMetaType::Int));
            QCOMPARE(model.at(row, 2), QVariant(QDate(2024, 5, 6)));
            QCOMPARE(model.at(row, 3, Qt::CheckStateRole), QVariant(Qt::Unchecked));
        }
        ZelSetValueForKey(sheet.owner->controller.selection(), QColor(Qt::blue), "fill");
        QCOMPARE(model.at(1, 0, g_colorRole), QVariant(QColor(Qt::blue)));
    }

    /// What others change is shown; a row that is partly checked shows so, and undo brings that back.
    void showsChanges()
    {
        Rows model;
        model.add("A", 1);
        TreeSheet sheet(&model);
        sheet.selectRows({0});
        model.setData(model.index(0, 1), 5, Qt::EditRole);
        Sheet::settle();
        QCOMPARE(sheet.shown("itemCount"), QString("5"));
        model.item(0, 3)->setCheckState(Qt::PartiallyChecked);
        Sheet::settle();
        QCOMPARE(sheet.shown("done"), QString("mixed"));
        sheet.edit("done", {});
        QCOMPARE(model.at(0, 3, Qt::CheckStateRole), QVariant(Qt::Checked));
        sheet.undo();
        QCOMPARE(model.at(0, 3, Qt::CheckStateRole), QVariant(Qt::PartiallyChecked));
        model.setHeaderData(1, Qt::Horizontal, "Weight");
        Sheet::settle();
        QCOMPARE(sheet.selectedValue("weight"), QVariant(5));
        QVERIFY(ZelIsMarker(sheet.selectedValue("itemCount"), ZelNotApplicableMarker));
    }

    /// A value that setData does not take is shown as it was, and leaves no step.
    void refusedBySetData()
    {
        Rows model;
        model.add("A", 1);
        TreeSheet sheet(&model);
        sheet.selectRows({0});
        sheet.edit("name", "7 up");
        QCOMPARE(model.at(0, 0), QVariant("A"));
        QCOMPARE(sheet.shown("name"), QString("A"));
        QCOMPARE(sheet.stack.count(), 0);
        sheet.edit("name", "up");
        QCOMPARE(model.at(0, 0), QVariant("up"));
        sheet.edit("itemCount", "2.6"); // the model holds an int, and may not get anything else
        QCOMPARE(model.at(0, 1), QVariant(3));
        QCOMPARE(model.at(0, 1).typeId(), int(QMetaType::Int));
        sheet.selection->setKey("itemCount", 1, Qt::EditRole, QMetaType::fromType<int>());
        sheet.begin("itemCount", "4.6");
        Sheet::press(Qt::Key_Return); // not taken, since the type is known
        QCOMPARE(sheet.shown("itemCount"), QString("4.6"));
        Sheet::press(Qt::Key_Escape);
        QCOMPARE(model.at(0, 1), QVariant(3));
    }

    /// Cells that are not editable cannot be edited, as soon as the model says so; nor can any if one of the rows or a
    /// proxy does not want it.
    void readOnly()
    {
        Rows model;
        model.add("A", 1);
        model.add("B", 2);
        TreeSheet sheet(&model);
        sheet.selectRows({0});
        QVERIFY(sheet.canEdit("name") && sheet.canEdit("itemCount") && sheet.canEdit("done"));
        sheet.edit("name", "C");
        model.item(0, 1)->setEditable(false);
        model.item(0, 3)->setCheckable(false);
        Sheet::settle();
        QVERIFY(sheet.canEdit("name") && !sheet.canEdit("itemCount") && !sheet.canEdit("done"));
        QCOMPARE(sheet.shown("itemCount"), QString("1"));
        sheet.selectRows({0, 1});
        QVERIFY(!sheet.canEdit("itemCount"));
        sheet.selectRows({1});
        QVERIFY(sheet.canEdit("itemCount"));
        sheet.undo();
        QCOMPARE(model.at(0, 0), QVariant("A"));
    }

    /// Sorting and filtering move and hide what is edited; both edits and undo reach the right rows.
    void proxies()
    {
        Rows model;
        for (const char *name : {"Cedar", "Ash", "Birch"})
            model.add(name, 0);
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(&model);
        proxy.sort(0);
        TreeSheet sheet(&proxy);
        sheet.selectRows({0});
        QCOMPARE(sheet.shown("name"), QString("Ash"));
        sheet.edit("name", "Yew"); // which is the last one now
        QCOMPARE(model.at(1, 0), QVariant("Yew"));
        QCOMPARE(sheet.selectedNames(), QStringList{"Yew"});
        sheet.edit("itemCount", "3");
        QCOMPARE(model.at(1, 1), QVariant(3));
        proxy.setFilterFixedString("Cedar");
        Sheet::settle();
        QCOMPARE(sheet.owner->controller.selectedCount(), 0);
        sheet.undo();
        sheet.undo();
        QCOMPARE(model.at(1, 0), QVariant("Ash"));
        QCOMPARE(model.at(1, 1), QVariant(0));
        struct Locked : QIdentityProxyModel
        {
            Qt::ItemFlags flags(const QModelIndex &) const override { return Qt::ItemIsEnabled | Qt::ItemIsSelectable; }
        } locked;
        locked.setSourceModel(&model);
        sheet.view->setModel(&locked);
        sheet.selection->setSelectionModel(sheet.view->selectionModel());
        sheet.selectRows({1});
        QVERIFY(sheet.shown("name") == "Ash" && !sheet.canEdit("name"));
    }

    /// Rows that come, go and move; and the end of all of them, in the middle of typing.
    void structure()
    {
        Rows model;
        QStandardItem *parent = model.add("P", 0);
        model.add("C", 1, parent);
        model.add("Q", 2);
        TreeSheet sheet(&model);
        sheet.view->expandAll();
        sheet.view->selectAll();
        Sheet::settle();
        QCOMPARE(sheet.owner->controller.selectedCount(), 3);
        QStringList order;
        for (const QObject *object : sheet.owner->controller.selectedObjects())
            order.append(ZelValueForKey(object, "name").toString());
        QCOMPARE(order, (QStringList{"P", "C", "Q"}));
        sheet.edit("itemCount", "+=10");
        model.insertRow(0);
        model.removeRow(1); // P, with C
        Sheet::settle();
        QCOMPARE(sheet.owner->controller.selectedCount(), 1);
        QCOMPARE(sheet.shown("name"), QString("Q"));
        sheet.undo();
        QCOMPARE(model.at(1, 1), QVariant(2));
        sheet.begin("name", "half");
        model.removeRow(1);
        Sheet::settle();
        QCOMPARE(sheet.owner->controller.selectedCount(), 0);
        model.add("R", 4);
        sheet.selectRows({1});
        QCOMPARE(sheet.shown("name"), QString("R"));
        sheet.begin("name", "half");
        model.insertColumn(0);
        Sheet::settle();
        QVERIFY(model.at(1, 0).isNull());
        QCOMPARE(sheet.shown("name"), QString("R")); // the header has moved, too
        sheet.begin("name", "half");
        model.clear();
        Sheet::settle();
        QCOMPARE(sheet.owner->controller.selectedCount(), 0);
    }

    /// The model, the view with its selection model, the selection, and the model while its value is written.
    void deaths()
    {
        for (int victim = 0; victim < 4; ++victim) {
            const TableRow inRow(QString::number(victim));
            auto model = std::make_unique<Rows>();
            model->add("A", 1);
            TreeSheet sheet(model.get());
            sheet.selectRows({0});
            sheet.edit("name", "B");
            sheet.begin("itemCount", "3");
            if (victim == 3) {
                connect(model.get(), &QAbstractItemModel::dataChanged, model.get(), &Rows::clear);
                Sheet::press(Qt::Key_Return);
            } else if (victim == 0) {
                model.reset();
            } else if (victim == 1) {
                sheet.view.reset();
            } else {
                delete sheet.selection;
            }
            Sheet::settle();
            if (victim != 2)
                QCOMPARE(sheet.owner->controller.selectedCount(), 0);
            while (sheet.stack.canUndo())
                sheet.undo();
            if (victim == 1 || victim == 2)
                QCOMPARE(model->at(0, 0), QVariant("A"));
        }
    }

    /// The controller selects rows of the view, also in models of objects.
    void bothWays()
    {
        QStandardItemModel model;
        Figure figures[]{Figure("A"), Figure("B"), Figure("C")};
        auto *folder = new QStandardItem("folder");
        model.appendRow(folder);
        for (Figure &figure : figures) {
            auto *item = new QStandardItem(figure.property("name").toString());
            item->setData(QVariant::fromValue<QObject *>(&figure), Qt::UserRole);
            folder->appendRow(item);
        }
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(&model);
        QItemSelectionModel selectionModel(&proxy);
        ZelArrayController controller;
        controller.setSelectedObjects({&figures[1]});
        auto *selection = new ZelItemSelection(&selectionModel, &controller, Qt::UserRole);
        QCOMPARE(selectionModel.selectedRows().value(0).data(), QVariant("B"));
        controller.setSelectedObjects({&figures[2], &figures[0]});
        QCOMPARE(selectionModel.selectedRows().size(), 2);
        QVERIFY(selectionModel.isSelected(selectionModel.currentIndex()));
        QCOMPARE(controller.selectedObjects(), (QList<QObject *>{&figures[2], &figures[0]}));
        QCOMPARE(selection->indexOf(&figures[1]).data(), QVariant("B"));
        selectionModel.select(selection->indexOf(&figures[1]), QItemSelectionModel::ClearAndSelect);
        QCOMPARE(controller.selectedObjects(), QList<QObject *>{&figures[1]});
        proxy.setRecursiveFilteringEnabled(true);
        proxy.setFilterFixedString("A"); // B goes, and what is not in the view can be selected all the same
        QCOMPARE(controller.selectedCount(), 0);
        controller.setSelectedObjects({&figures[0], &figures[2]});
        QCOMPARE(selectionModel.selectedRows().size(), 1);
        QCOMPARE(controller.selectedCount(), 2);
        auto byFunction = new ZelItemSelection(
            &selectionModel, &controller,
            [&](const QModelIndex &row) { return row.data() == "A" ? &figures[0] : nullptr; },
            [&](const QObject *) { return model.index(0, 0, folder->index()); });
        QCOMPARE(byFunction->indexOf(&figures[0]).data(), QVariant("A"));
    }

    /// An application that selects something else in answer to a selection has its way, on both sides, without end.
    void interference()
    {
        Rows model;
        model.add("A", 1);
        model.add("B", 2);
        TreeSheet sheet(&model);
        connect(&sheet.owner->controller, &ZelArrayController::selectionChanged, &sheet, [&] {
            if (sheet.owner->controller.selectedCount() == 2)
                sheet.owner->controller.setSelectedObjects({sheet.owner->controller.selectedObjects().first()});
        });
        sheet.selectRows({0, 1});
        QCOMPARE(sheet.owner->controller.selectedCount(), 1);
        QCOMPARE(sheet.selectedNames(), QStringList{"A"});
        connect(sheet.view->selectionModel(), &QItemSelectionModel::selectionChanged, &sheet, [&] {
            if (sheet.view->selectionModel()->isSelected(model.index(0, 0)))
                sheet.selectRows({1});
        });
        sheet.owner->controller.setSelectedObjects({});
        sheet.selectRows({0});
        QCOMPARE(sheet.selectedNames(), QStringList{"B"});
        QCOMPARE(sheet.selectedValue("name"), QVariant("B"));
    }
};
QTEST_MAIN(TestItemModels)
#include "tst_ItemModels.moc"
