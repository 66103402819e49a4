// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorCustomProperty.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/ZelValues.h"
#include "EditorWindow.h"

class Halving : public ZelAbstractValueTransformer
{
public:
    QVariant transformedValue(const QVariant &value) const override
    {
        return ZelIsControllerMarker(value) ? value : QVariant(value.toDouble() / 2);
    }
    QVariant reverseTransformedValue(const QVariant &value) const override { return value.toDouble() * 2; }
    bool allowsReverseTransformation() const override { return true; }
};

class tst_ZelInspectorProperty : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theOwnerIsRequired()
    {
        try {
            ZelInspectorCustomProperty property(nullptr);
            QFAIL("no exception");
        } catch (const ZelInternalInconsistencyException &e) {
            QCOMPARE(e.reason(), QStringLiteral("Invalid parameter not satisfying: owner"));
            QCOMPARE(e.location(), QStringLiteral("Inspector/Properties/ZelInspectorProperty"));
        }
    }

    void keyPathsAreSplitAtTheLastSelection()
    {
        const QString path = QStringLiteral("a.selection.b.selection.c");
        QCOMPARE(ZelInspectorProperty::selectionControllerKeyPathFromKeyPath(path), QStringLiteral("a.selection.b"));
        QCOMPARE(ZelInspectorProperty::keyPathByStripingControllerSelectionPrefix(path), QStringLiteral("c"));
        QVERIFY(!ZelInspectorProperty::keyPathHasControllerSelectionPrefix(QStringLiteral("selection.c")));
        EditorWindow window;
        ZelInspectorCustomProperty property(window.owner.get());
        QVERIFY_EXCEPTION_THROWN(property.representedObjectsForControllerSelectionKeyPath(QStringLiteral("name")),
                                 ZelInternalInconsistencyException);
    }

    void combining_data()
    {
        const QVariant none = QVariant::fromValue(ZelNoSelectionMarker);
        const QVariant many = QVariant::fromValue(ZelMultipleValuesMarker);
        QTest::addColumn<QVariantList>("values");
        QTest::addColumn<QVariant>("result");
        QTest::newRow("nothing") << QVariantList() << none;
        QTest::newRow("all absent") << QVariantList{QVariant(), QVariant()} << QVariant();
        QTest::newRow("equal") << QVariantList{1, 1.0} << QVariant(1);
        QTest::newRow("different") << QVariantList{1, 1, 2} << many;
        QTest::newRow("different, then equal") << QVariantList{1, 2, 1} << many;
        QTest::newRow("absent and present") << QVariantList{QVariant(), 1} << many;
        QTest::newRow("a marker among values") << QVariantList{1, none, 1} << QVariant(1);
    }
    void combining()
    {
        QFETCH(QVariantList, values);
        QFETCH(QVariant, result);
        QVariant combined = QVariant::fromValue(ZelNoSelectionMarker);
        for (const QVariant &value : values)
            combined = ZelInspectorProperty::combinedValueWithValue(value, combined);
        QVERIFY(ZelEqual(combined, result));
        QCOMPARE(combined.isValid(), result.isValid());
    }

    void bits()
    {
        const QVariant many = QVariant::fromValue(ZelMultipleValuesMarker);
        QVERIFY(!ZelInspectorProperty::valueForValueBits(ZelNull(), 2).isValid());
        QCOMPARE(ZelInspectorProperty::valueForValueBits(many, 2), many);
        QCOMPARE(ZelInspectorProperty::valueForValueBits(6, 2), QVariant(1));
        QCOMPARE(ZelInspectorProperty::valueForValueBits(5, 2), QVariant(0));
        QCOMPARE(ZelInspectorProperty::valueForValueBitMask(0x1F, 0x0C), QVariant(0x0CULL));
        QCOMPARE(ZelInspectorProperty::valueForValueBitMask(5.7, 0x0F), QVariant(5ULL)); // a fraction is cut off
        QCOMPARE(ZelInspectorProperty::valueForValueBits(1.9F, 2), QVariant(0));
        QCOMPARE(ZelInspectorProperty::valueForValueBitMask(-1.5, 0x0F), QVariant(0x0FULL));
    }

    void eachObjectKeepsItsOwnValueOutsideTheEditedPart()
    {
        EditorWindow window(3);
        window.people[0]->setHeight(10);
        window.people[1]->setHeight(20);
        window.people[2]->setHeight(6);
        window.select({0, 1, 2});
        ZelInspectorCustomProperty property(window.owner.get());
        property.setKeyPath(QStringLiteral("people.selection.height"));
        property.setValueTransformer(QSharedPointer<Halving>::create());
        QList<QVariant> seen;
        property.updateReflectedValues([&](const QVariant &old) {
            seen.append(old);
            return old.toDouble() < 4 ? old : QVariant(old.toDouble() + 1);
        });
        QCOMPARE(seen, QVariantList({5.0, 10.0, 3.0}));
        QCOMPARE(window.people[0]->height(), 12.0);
        QCOMPARE(window.people[1]->height(), 22.0);
        QCOMPARE(window.people[2]->height(), 6.0);
        property.setReflectedValue(8); // the forward conversion, for transformers that are their own inverse
        QCOMPARE(window.people[2]->height(), 4.0);
        property.setKeyPath(QStringLiteral("people.selection.frame.x"));
        property.setValueTransformer(nullptr);
        QVERIFY_EXCEPTION_THROWN(property.updateReflectedValues([](const QVariant &) { return 1; }),
                                 ZelUndefinedKeyException);
        QVERIFY_EXCEPTION_THROWN(property.updateReflectedValues({}), ZelInternalInconsistencyException);
    }

    void withoutASelectionTheOwnerIsEdited()
    {
        EditorWindow window;
        ZelInspectorCustomProperty property(window.owner.get());
        property.setKeyPath(QStringLiteral("unlocked"));
        property.updateReflectedValues([](const QVariant &old) { return !old.toBool(); });
        QVERIFY(!window.owner->isUnlocked());
        window.owner.reset();
        QVERIFY(!property.reflectedValue().isValid());
        property.setReflectedValue(1);
        property.userDidChangeValue(nullptr);
    }

    void anActionIsNamedAndSent()
    {
        EditorWindow window;
        auto *property = window.install(std::make_unique<ZelInspectorCustomProperty>(window.owner.get()));
        window.undo.setActionName(QStringLiteral("old"));
        property->userDidChangeValue(nullptr);
        QCOMPARE(window.undo.actionName(), QString());
        QCOMPARE(window.owner->actions, 0);
        property->setActionName(QStringLiteral("Name"));
        property->setActionSelector("noteAction");
        property->userDidChangeValue(nullptr);
        QCOMPARE(window.undo.actionName(), QStringLiteral("Name"));
        QCOMPARE(window.owner->actions, 1);
    }
};

QTEST_MAIN(tst_ZelInspectorProperty)
#include "tst_ZelInspectorProperty.moc"
