// SPDX-License-Identifier: MIT
#include "Observation/ZelKeyValueBinding.h"

#include "Core/Errors/ZelAssertions.h"
#include "Observation/ZelObservations.h"
#include "Support/Person.h"

#include <QRegularExpression>
#include <QTest>

static const char g_context = 0;

/// Shouts; and takes the shouting back where it is reversible.
class Louder : public ZelAbstractValueTransformer
{
public:
    explicit Louder(bool reversible)
        : m_reversible(reversible)
    {
    }
    QVariant transformedValue(const QVariant &value) const override { return value.toString().toUpper(); }
    bool allowsReverseTransformation() const override { return m_reversible; }

private:
    bool m_reversible;
};

class tst_ZelKeyValueBinding : public QObject
{
    Q_OBJECT

    static void ignoreNotWritten()
    {
        QTest::ignoreMessage(QtWarningMsg, "ERROR: NSObservedObjectKey was nil for binding \"name\" in "
                                           "-[NSObject(ZelKeyValueBinding) setValue:forBinding:]");
    }

private Q_SLOTS:
    void aNameThatIsNotBoundIsAKey()
    {
        Person person("Ada");
        const ZelKeyValueBinding values(&person);
        QCOMPARE(values.valueForBinding("name"), "Ada");
        values.setValue("Bea", "name");
        QCOMPARE(person.name(), "Bea");
        QVERIFY(!values.controllerForBinding("name") && values.keyPathForBinding("name").isEmpty());
        QVERIFY_EXCEPTION_THROWN(values.valueForBinding({}), ZelInternalInconsistencyException);
    }

    void aBoundValueIsReadButNotWritten()
    {
        Person control, model("Ada");
        const ZelKeyValueBinding values(&control);
        ZelBind(&control, "name", &model, "name");
        QCOMPARE(values.controllerForBinding("name"), &model);
        QCOMPARE(values.keyPathForBinding("name").string(), "name");
        QCOMPARE(values.valueForBinding("name"), "Ada");
        ignoreNotWritten();
        values.setValue("Bea", "name");
        QCOMPARE(model.name(), "Ada");
        ZelUnbind(&control, "name");
    }

    void transformersComeAsSuchOrByName()
    {
        Person control, model("Ada");
        const ZelKeyValueBinding values(&control);
        const auto oneWay = ZelValueTransformerPtr(new Louder(false));
        ZelAbstractValueTransformer::setValueTransformer(ZelValueTransformerPtr(new Louder(true)), "Louder");
        const ZelBindingOptions named{{ZelValueTransformerNameBindingOption, "Louder"}};
        ZelBind(&control, "name", &model, "name", named);
        QCOMPARE(values.valueForBinding("name"), "ADA");
        ZelBind(&control, "name", &model, "name", {{ZelValueTransformerNameBindingOption, "Unknown"}});
        QVERIFY(!values.valueTransformerForBinding("name"));
        QCOMPARE(values.valueForBinding("name"), "Ada");

        ZelBindingOptions both = named;
        both.insert(ZelValueTransformerBindingOption, QVariant::fromValue(oneWay));
        ZelBind(&control, "name", &model, "name", both);
        QCOMPARE(values.valueTransformerForBinding("name"), oneWay);
        QTest::ignoreMessage(QtWarningMsg,
                             "WARNING: binding \"name\" has value transformer, but it doesn't allow reverse "
                             "transformations in -[NSObject(ZelKeyValueBinding) setValue:forBinding:]");
        ignoreNotWritten();
        values.setValue("BEA", "name");
        ZelUnbind(&control, "name");
    }

    void cancellingUnbinds_data()
    {
        QTest::addColumn<QVariant>("nilOnCancel");
        QTest::addColumn<QString>("left");
        QTest::newRow("by default") << QVariant() << "Ada";
        QTest::newRow("false") << QVariant(false) << "Ada";
        QTest::newRow("true") << QVariant(true) << QString();
    }

    void cancellingUnbinds()
    {
        QFETCH(QVariant, nilOnCancel);
        Person control, model("Ada");
        ZelBindingOptions options;
        if (nilOnCancel.isValid())
            options.insert(ZelNilOnCancelBindingOption, nilOnCancel);
        const ZelObservations observations(&control);
        observations.addBindingWithObject(&control, &model, {{"name", "name"}, {"flags", "flags"}}, options,
                                          &g_context);
        model.setFlags(5);
        QCOMPARE(control.name(), "Ada");
        QCOMPARE(control.flags(), 5);
        observations.removeAllObservationsForContext(&g_context);
        QTEST(control.name(), "left");
        model.setFlags(6);
        QVERIFY(control.flags() != 6);
        QVERIFY(!ZelInfoForBinding(&control, "name"));
    }

    void eitherObjectMayDieFirst()
    {
        Person owner;
        auto control = std::make_unique<Person>();
        auto model = std::make_unique<Person>("Ada");
        const ZelObservations observations(&owner);
        observations.addBindingWithObject(control.get(), "name", model.get(), "name", {}, &g_context);
        observations.addBindingWithObject(&owner, "name", model.get(), "name", {}, &g_context);
        control.reset();
        model->setName("Bea");
        QCOMPARE(owner.name(), "Bea");
        model.reset();
        observations.removeAllObservationsForContext(&g_context);
        QVERIFY(!ZelInfoForBinding(&owner, "name"));
    }

    void aForgottenBindingIsReportedAndUndone()
    {
        Person control, model("Ada");
        auto binding = ZelBindingObservation::bindingWithObject(&control, "name", &model, "name");
        QTest::ignoreMessage(
            QtWarningMsg,
            QRegularExpression("^ERROR: Observation is not cancelled: <ZelBindingObservation: "
                               "0x[0-9a-f]+>\\{object=<Person: 0x[0-9a-f]+>, binding=name target=<Person: "
                               "0x[0-9a-f]+> keyPath=name\\}$"));
        binding.reset();
        model.setName("Bea");
        QCOMPARE(control.name(), "Ada");
    }
};

QTEST_MAIN(tst_ZelKeyValueBinding)
#include "tst_ZelKeyValueBinding.moc"
