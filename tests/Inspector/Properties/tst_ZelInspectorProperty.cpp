// SPDX-License-Identifier: MIT
#include "Inspector/Properties/ZelInspectorCustomProperty.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/Values/ZelValues.h"
#include "FigureWindow.h"

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
            const ZelInspectorCustomProperty property(nullptr);
            QFAIL("no exception");
        } catch (const ZelInternalInconsistencyException &e) {
            QCOMPARE(QString(e.location() + u": " + e.reason()),
                     "Inspector/Properties/ZelInspectorProperty: Invalid parameter not satisfying: owner");
        }
    }

    void keyPathsAreSplitAtTheLastSelection()
    {
        const QString path = "a.selection.b.selection.c";
        QCOMPARE(ZelInspectorProperty::selectionControllerKeyPathFromKeyPath(path), "a.selection.b");
        QCOMPARE(ZelInspectorProperty::keyPathByStripingControllerSelectionPrefix(path), "c");
        QVERIFY(!ZelInspectorProperty::keyPathHasControllerSelectionPrefix("selection.c"));
        FigureWindow window;
        ZelInspectorCustomProperty property(window.owner.get());
        QVERIFY_EXCEPTION_THROWN(property.representedObjectsForControllerSelectionKeyPath("name"),
                                 ZelInternalInconsistencyException);
    }

    void combining()
    {
        const QVariant none = QVariant::fromValue(ZelNoSelectionMarker);
        const QVariant many = QVariant::fromValue(ZelMultipleValuesMarker);
        const std::pair<QVariantList, QVariant> rows[] = {
            {{}, none},        {{QVariant(), QVariant()}, {}}, {{1, 1.0}, 1},    {{1, 1, 2}, many},
            {{1, 2, 1}, many}, {{QVariant(), 1}, many},        {{1, none, 1}, 1}};
        for (const auto &[values, result] : rows) {
            QVariant combined = none;
            for (const QVariant &value : values)
                combined = ZelInspectorProperty::combinedValueWithValue(value, combined);
            QVERIFY2(ZelEqual(combined, result), qPrintable(QDebug::toString(values)));
            QCOMPARE(combined.isValid(), result.isValid());
        }
    }

    void bits()
    {
        const QVariant many = QVariant::fromValue(ZelMultipleValuesMarker);
        QVERIFY(!ZelInspectorProperty::valueForValueBits(ZelNull(), 2).isValid());
        QCOMPARE(ZelInspectorProperty::valueForValueBits(many, 2), many);
        QCOMPARE(ZelInspectorProperty::valueForValueBits(6, 2), 1);
        QCOMPARE(ZelInspectorProperty::valueForValueBits(5, 2), 0);
        QCOMPARE(ZelInspectorProperty::valueForValueBits(1.9F, 2), 0);
        QCOMPARE(ZelInspectorProperty::valueForValueBitMask(0x1F, 0x0C), 0x0CULL);
        QCOMPARE(ZelInspectorProperty::valueForValueBitMask(5.7, 0x0F), 5ULL); // a fraction is cut off
        QCOMPARE(ZelInspectorProperty::valueForValueBitMask(-1.5, 0x0F), 0x0FULL);
    }

    void eachObjectKeepsItsOwnValueOutsideTheEditedPart()
    {
        FigureWindow window;
        Person third;
        const auto heights = [&] {
            return QList<double>{window.first.height(), window.second.height(), third.height()};
        };
        window.first.setHeight(10);
        window.second.setHeight(20);
        third.setHeight(6);
        window.select({&window.first, &window.second, &third});
        const auto made = window.make<ZelInspectorCustomProperty>("height");
        ZelInspectorCustomProperty &property = *made;
        property.setValueTransformer(QSharedPointer<Halving>::create());
        QVariantList seen;
        property.updateReflectedValues([&](const QVariant &old) {
            seen.append(old);
            return old.toDouble() < 4 ? old : QVariant(old.toDouble() + 1);
        });
        QCOMPARE(seen, QVariantList({5.0, 10.0, 3.0}));
        QCOMPARE(heights(), QList<double>({12, 22, 6}));
        property.setReflectedValue(8); // the forward conversion, for transformers that are their own inverse
        QCOMPARE(heights(), QList<double>({4, 4, 4}));
        property.setKeyPath("people.selection.frame.x");
        property.setValueTransformer(nullptr);
        QVERIFY_EXCEPTION_THROWN(property.updateReflectedValues([](const QVariant &) { return 1; }),
                                 ZelUndefinedKeyException);
        QVERIFY_EXCEPTION_THROWN(property.updateReflectedValues({}), ZelInternalInconsistencyException);
        property.setKeyPath("unlocked"); // the owner's own
        property.updateReflectedValues([](const QVariant &old) { return !old.toBool(); });
        QVERIFY(!window.owner->isUnlocked());
    }

    void anActionIsNamedAndSent()
    {
        FigureWindow window;
        auto *property = window.install(std::make_unique<ZelInspectorCustomProperty>(window.owner.get()));
        window.undoManager.setActionName("old");
        property->userDidChangeValue(nullptr);
        QCOMPARE(window.undoManager.actionName(), "");
        QCOMPARE(window.owner->actions, 0);
        property->setActionName("Name");
        property->setActionSelector("noteAction");
        property->userDidChangeValue(nullptr);
        QCOMPARE(window.undoManager.actionName(), "Name");
        QCOMPARE(window.owner->actions, 1);
    }
};

QTEST_MAIN(tst_ZelInspectorProperty)
#include "tst_ZelInspectorProperty.moc"
