// SPDX-License-Identifier: MIT
#include <Blocks/ZelTransformerKit.h>
#include <Core/KeyValue/ZelKeyValueCoding.h>
#include <Core/Selection/ZelArrayController.h>
#include <Core/Selection/ZelItemSelection.h>
#include <Core/Values/ZelTransformerFactory.h>
#include <Core/Values/ZelValues.h>
#include <Inspector/Description/ZelInspectorDescription.h>
#include <Inspector/ZelDeclarativeInspectorGenerator.h>
#include <Inspector/ZelInspectorSection.h>
#include <Inspector/ZelInspectorSlice.h>
#include <Inspector/ZelLiveInspector.h>
#include <Resources/ZelBundle.h>

#include <QTest>
#include <QtWidgets>

// What the documents show stands here as they show it.

class Shape : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name NOTIFY changed)
public:
    Q_INVOKABLE QString validateName(const QString &name) const; // why not, for people; an empty text takes the name

Q_SIGNALS:
    void changed();

private:
    QString m_name;
};

QString Shape::validateName(const QString &name) const
{
    return name == m_name ? QStringLiteral("It has that name.") : QString();
}

class Line : public Shape
{
    Q_OBJECT
    Q_CLASSINFO("zel.title", "Outline")
    Q_CLASSINFO("zel.order", "lineWidth, cap")
    Q_CLASSINFO("zel.lineWidth.title", "Thickness")
    Q_CLASSINFO("zel.lineWidth.unit", "pt")
    Q_CLASSINFO("zel.lineWidth.maximum", "20")
    Q_CLASSINFO("zel.dash.visibleKeyPath", "cap")
    Q_CLASSINFO("zel.dash.visibleValueTransformer", "ZelEquals(FlatCap)")
    Q_PROPERTY(double dash MEMBER dash NOTIFY changed)
    Q_PROPERTY(Cap cap MEMBER cap NOTIFY changed)
    Q_PROPERTY(double lineWidth MEMBER lineWidth NOTIFY changed)

public:
    enum Cap { FlatCap, RoundCap };
    Q_ENUM(Cap)

    double dash = 0;
    Cap cap = FlatCap;
    double lineWidth = 1;
};

namespace {

void show(QDockWidget &dock, QObject &owner)
{
    auto *inspector = new ZelLiveInspector(&dock);
    inspector->setUrl(QUrl::fromLocalFile(SOURCE_DIR "/inspector/Main.xml"));
    inspector->setOwner(&owner);
    dock.setWidget(inspector);
}

void prepare()
{
#ifdef SOURCE_DIR // set for development builds only
    ZelBundle::setSourceFolder(":/inspector", SOURCE_DIR "/inspector");
#endif
}

/// A view of rows that have objects, which its model does not tell.
class Rows : public QTableView
{
public:
    explicit Rows(QStandardItemModel *model) { setModel(model); }
    void connectTo(ZelArrayController &controller)
    {
        const Rows *view = this;
        new ZelItemSelection(
            view->selectionModel(), &controller, [this](const QModelIndex &row) { return objectAt(row); },
            [this](const QObject *object) { return indexOf(object); });
    }
    QObject *objectAt(const QModelIndex &row) const { return const_cast<::Shape *>(&m_shapes.at(size_t(row.row()))); }
    QModelIndex indexOf(const QObject *object) const { return model()->index(object == &m_shapes.front() ? 0 : 1, 0); }

private:
    std::array<::Shape, 2> m_shapes;
};

/// An owner with a controller for the parts of what is selected.
class Owner : public QObject
{
public:
    Owner()
    {
        connect(&m_selectionController, &ZelObjectController::selectionChanged, this, [this] {
            QList<QObject *> layers;
            for (const QObject *shape : m_selectionController.selectedObjects())
                layers.append(shape->property("layer").value<QObject *>());
            m_layerController.setSelectedObjects(layers);
        });
    }
    ZelArrayController m_selectionController;
    ZelArrayController m_layerController;
};

} // namespace

/// The code in the documents does what they say.
class tst_Documents : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void classesAreDescribed()
    {
        using Shape = Line;
        Shape line;
        ZelDeclarativeInspectorGenerator generator;
        generator.setOwner(&line);
        QBuffer file;
        QVERIFY(file.open(QIODevice::WriteOnly));
        const auto description = ZelInspectorDescription::forMetaObject(&Shape::staticMetaObject);
        generator.setDescription(description); // a slice with a section for each class: createSlice()
        file.write(description.xml());         // indented, to be edited by hand
        description.propertiesWithoutEditor(); // what was left out, each as "palette (QPalette)"
        const std::unique_ptr<ZelInspectorSlice> slice(generator.createSlice());
        QCOMPARE(slice->sections().size(), 3);
        QCOMPARE(slice->sections().last()->title(), "Outline");
        QCOMPARE(description.properties(), QStringList({"objectName", "name", "lineWidth", "cap", "dash"}));
        QVERIFY(file.data().contains("title=\"Thickness\""));
    }

    void transformersMayBeRegistered()
    {
        ZelTransformerFactory::registerFactory("IsLonger", "IsLonger(10)", [](const QString &argument, QString *error) {
            bool isNumber = false;
            const qsizetype length = argument.toLongLong(&isNumber);
            if (!isNumber)
                *error = QString("\"%1\" is no number").arg(argument); // reported with the place and the example
            return isNumber ? ZelValueTransformer::transformerWithBlock(
                                  [length](const QVariant &text) { return text.toString().size() > length; })
                            : ZelValueTransformerPtr();
        });
        QCOMPARE(ZelTransformerFactory::transformer("IsLonger(2)")->transformedValue("abc"), true);
        QCOMPARE(ZelTransformerFactory::transformer("IsLonger(3)")->transformedValue("abc"), false);
        QString error;
        QVERIFY(!ZelTransformerFactory::transformer("IsLonger(x)", &error) && error.contains("\"x\" is no number"));

        ZelTransformerKit::registerValueTransformerWithName(
            "WeeksFromDays", "double", // what the first function answers; "QVariant" for anything
            [](const QVariant &days) { return ZelIsNumber(days) ? QVariant(days.toDouble() / 7) : days; },
            [](const QVariant &weeks) { return ZelIsNumber(weeks) ? QVariant(weeks.toDouble() * 7) : weeks; });
        const auto weeks = ZelAbstractValueTransformer::valueTransformerForName("WeeksFromDays");
        QCOMPARE(weeks->transformedValue(14), 2.0);
        QCOMPARE(weeks->reverseTransformedValue(2.0), 14.0);
    }

    void rowsAreSelected()
    {
        QStandardItemModel model(2, 4);
        ZelArrayController objects;
        Rows rows(&model);
        rows.connectTo(objects);
        rows.selectRow(1);
        QCOMPARE(objects.selectedObjects(), QList<QObject *>{rows.objectAt(model.index(1, 0))});
        objects.setSelectedObjects({rows.objectAt(model.index(0, 0))});
        QVERIFY(rows.selectionModel()->isRowSelected(0, {}));

        model.setData(model.index(1, 2), "tomorrow");
        model.setData(model.index(1, 3), Qt::Checked, Qt::CheckStateRole);
        ZelArrayController controller;
        auto *table = new QTableView(&rows);
        table->setModel(&model);
        {
            auto *selection = new ZelItemSelection(table->selectionModel(), &controller);
            selection->setKey("dueDate", 2);
            selection->setKey("done", 3, Qt::CheckStateRole); // a boolean
        }
        table->selectRow(1);
        QObject *item = controller.selectedObjects().value(0);
        QVERIFY(item);
        QCOMPARE(ZelValueForKey(item, "dueDate"), "tomorrow");
        QCOMPARE(ZelValueForKey(item, "done"), true);
    }

    void partsAreSelectedWithTheirObjects()
    {
        QObject layer;
        QObject shapes[2];
        shapes[0].setProperty("layer", QVariant::fromValue(&layer));
        Owner owner;
        owner.m_selectionController.setSelectedObjects({&shapes[0], &shapes[1]}); // one has no layer
        QCOMPARE(owner.m_layerController.selectedObjects(), QList<QObject *>{&layer});
    }

    void descriptionsAreFollowed()
    {
        prepare();
        const QUrl source = ZelBundle::sourceOf(QUrl("qrc:/inspector/Inspector.xml"));
        ZelBundle::setSourceFolder(":/inspector", {});
        QVERIFY(QFileInfo::exists(source.toLocalFile()));
        QObject owner;
        QDockWidget dock;
        show(dock, owner);
        dock.show();
        const auto *inspector = qobject_cast<ZelLiveInspector *>(dock.widget());
        QVERIFY(QTest::qWaitFor([&] { return !inspector->errors().isEmpty(); })); // there is no such file
        QVERIFY(inspector->errors().first().message.contains("Main.xml"));
    }

    void namesAreRefused()
    {
        Shape shape;
        QVERIFY(!shape.validateName({}).isEmpty());
        QVERIFY(shape.validateName("Star").isEmpty());
    }
};

QTEST_MAIN(tst_Documents)
#include "tst_Documents.moc"
