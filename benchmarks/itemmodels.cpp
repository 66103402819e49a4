// SPDX-License-Identifier: MIT
#include "Bench.h"
#include "PaintWatch.h"
#include "PlainShape.h"
#include "SelectionOwner.h"

#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Selection/ZelItemSelection.h"
#include "Inspector/ZelDeclarativeInspectorGenerator.h"
#include "Inspector/ZelInspectorSlice.h"
#include "ViewController/ZelView.h"

#include <QAbstractTableModel>
#include <QTemporaryFile>
#include <QUrl>
#include <QVBoxLayout>
#include <QWidget>

namespace {

constexpr int g_rowCount = 100'000;

/// A table of plain shapes; the shapes themselves are in a role.
class ShapeTable : public QAbstractTableModel
{
public:
    ShapeTable()
    {
        for (int i = 0; i < g_rowCount; ++i)
            shapes.append(new PlainShape(&owner));
    }
    int rowCount(const QModelIndex &parent) const override { return parent.isValid() ? 0 : int(shapes.size()); }
    int columnCount(const QModelIndex &parent) const override { return parent.isValid() ? 0 : 2; }
    QVariant headerData(int section, Qt::Orientation, int) const override { return section ? "Width" : "Name"; }
    Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        const auto *shape = static_cast<const PlainShape *>(shapes.at(index.row()));
        if (role == Qt::UserRole)
            return QVariant::fromValue(shapes.at(index.row()));
        return role != Qt::EditRole ? QVariant() : index.column() == 0 ? shape->property("name") : shape->width();
    }
    bool setData(const QModelIndex &index, const QVariant &value, int) override
    {
        shapes.at(index.row())->setProperty(index.column() == 0 ? "name" : "width", value);
        Q_EMIT dataChanged(index, index);
        return true;
    }

    QObject owner;
    QList<QObject *> shapes;
};

/// An inspector of two rows in a window.
struct Panel
{
    Panel()
    {
        QTemporaryFile file;
        Bench::expect(file.open(), "cannot write the description");
        file.write("<slice><section>"
                   "<sliver title='Name'><property type='string' keyPath='objects.selection.name'/></sliver>"
                   "<sliver title='Width'><property type='number' keyPath='objects.selection.width'/></sliver>"
                   "</section></slice>");
        file.close();
        ZelDeclarativeInspectorGenerator generator;
        generator.setUrl(QUrl::fromLocalFile(file.fileName()));
        generator.setOwner(&owner);
        slice.reset(generator.createSlice());
        (new QVBoxLayout(&window))->addWidget(slice->view());
        window.show();
        PaintWatch::settle();
    }
    ~Panel() { window.hide(); }

    SelectionOwner owner;
    QWidget window;
    std::unique_ptr<ZelInspectorSlice> slice;
};

/// Selects all rows of the model, until the inspector shows them.
Bench::Work selectAll(Panel &panel, QItemSelectionModel &selection, PaintWatch &watch)
{
    return {[&] {
                selection.clear();
                PaintWatch::settle();
            },
            [&] {
                const QAbstractItemModel *model = selection.model();
                selection.select({model->index(0, 0), model->index(g_rowCount - 1, 1)},
                                 QItemSelectionModel::ClearAndSelect);
                watch.waitForPaint();
            },
            [&] {
                Bench::expect(panel.owner.controller.selectedCount() == g_rowCount, "not all rows are selected");
                PaintWatch::settle();
            }};
}

} // namespace

/// Rows without objects, and rows with objects in a role, against as many reads by name.
static void itemModelsSelectAll()
{
    ShapeTable table;
    const auto readByName = [&] {
        for (const QObject *shape : std::as_const(table.shapes))
            Bench::keep(shape->property("width"));
    };
    for (const bool hasObjects : {true, false}) {
        Panel panel;
        PaintWatch watch(panel.slice->view());
        QItemSelectionModel selection(&table);
        hasObjects ? new ZelItemSelection(&selection, &panel.owner.controller, Qt::UserRole)
                   : new ZelItemSelection(&selection, &panel.owner.controller);
        const QString name = QStringLiteral("F2 select %1 rows %2").arg(g_rowCount);
        Bench::compare(name.arg(hasObjects ? "that are objects, against property(name)" : "against property(name)"), 40,
                       selectAll(panel, selection, watch), readByName);
    }
}
ZEL_BENCHMARK(itemModelsSelectAll)

static void itemModelsWrite()
{
    ShapeTable table;
    QItemSelectionModel selection(&table);
    ZelArrayController controller;
    new ZelItemSelection(&selection, &controller);
    selection.select({table.index(0, 0), table.index(g_rowCount - 1, 1)}, QItemSelectionModel::ClearAndSelect);
    const ZelKey key("width");
    double value = 0;
    Bench::compare(
        QStringLiteral("F2 write a key of %1 rows, against setData").arg(g_rowCount), 6,
        [&] { ZelSetValueForKey(controller.selection(), ++value, key); },
        [&] {
            const QVariant written = ++value;
            for (int row = 0; row < g_rowCount; ++row)
                table.setData(table.index(row, 1), written, Qt::EditRole);
        },
        Bench::small);
    Bench::expect(table.shapes.last()->property("width") == QVariant(value), "not every row was written");
}
ZEL_BENCHMARK(itemModelsWrite)
