// SPDX-License-Identifier: MIT
#include "Blocks/ZelBlockProperties.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"
#include "Support/Failures.h"
#include "Support/Person.h"
#include "Support/Recorder.h"
#include "Support/TableRow.h"

namespace {
class Base : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int fixed READ fixed CONSTANT)
    Q_PROPERTY(QString title MEMBER title)
public:
    int fixed() const { return 5; }
    QString title;
    QVariantMap stored;
};

class Derived : public Base
{
    Q_OBJECT
};
class Sibling : public Base
{
    Q_OBJECT
};

/// A property that stores in the object what the setter was given.
void addStored(const QMetaObject *metaObject, const QString &name, const QString &attributes)
{
    ZelBlockProperties properties(metaObject);
    QVERIFY(properties.declareProperty(name, attributes));
    QVERIFY(properties.addPropertyNameGetter(
        name, [=](const QObject *object) { return static_cast<const Base *>(object)->stored.value(name); }));
    QVERIFY(properties.addPropertyNameSetter(name, [=](QObject *object, const QVariant &value) {
        static_cast<Base *>(object)->stored.insert(name, value);
    }));
}
} // namespace

class TestBlockProperties : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void valuesAreConvertedBothWaysAndObserved()
    {
        Derived object;
        QString name;
        const auto typed = [](const QVariant &value) { return std::pair(value, value.metaType()); };
        // What the setter is given, unless it is refused, and what is read, have the type of the property.
        const auto check = [&](const char *type, const QVariant &written, const QVariant &boxed, bool fits = true) {
            const TableRow row(type + (", " + written.toString()));
            addStored(&Base::staticMetaObject, name += 'p', "T" + QString(type) + ",D");
            object.stored.clear();
            try {
                ZelSetValueForKey(&object, written, name);
            } catch (const ZelGenericException &) {
                QVERIFY(!fits);
            }
            QCOMPARE(object.stored.size(), fits);
            QVERIFY(!fits || typed(object.stored.value(name)) == typed(boxed));
            object.stored.insert(name, written); // the getter's answer is converted as well
            QVERIFY(typed(ZelValueForKey(&object, name)) == typed(boxed));
        };
        check("@\"QString\"", "x", "x");
        check("@", ZelNull(), QVariant());
        check("c", 2, true);
        check("s", 65537, QVariant::fromValue<short>(1), false);
        check("i", 1e30, std::numeric_limits<int>::max(), false);
        check("i", -1e30, std::numeric_limits<int>::min(), false);
        check("i", "12", 12);
        check("I", 4294967295.0, 4294967295u);
        check("q", 1, qlonglong(1));
        check("f", 0.1, 0.1f);
        check("d", 3, 3.0);
        check("d", ZelNull(), 0.0);
        check("{CGPoint=dd}", QPoint(1, 2), QPointF(1, 2));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Cannot store a value of class QString"));
        check("{CGPoint=dd}", "nowhere", QPointF(), false);
        check("{CGSize=dd}", QSizeF(1, 2), QSizeF(1, 2));
        check("{CGRect={CGPoint=dd}{CGSize=dd}}", QRect(1, 2, 3, 4), QRectF(1, 2, 3, 4));
        check("i", -2.9, -2);
        Recorder recorder;
        ZelAddObserver(&object, &recorder, name, ZelKeyValueObservingOptionNew, nullptr);
        ZelSetValueForKey(&object, 7.5, name);
        ZelWillChangeValueForKey(&object, name);
        object.stored.insert(name, 9);
        ZelDidChangeValueForKey(&object, name);
        ZelRemoveObserver(&object, &recorder, name, nullptr);
        QCOMPARE(recorder.count(), 2);
        QCOMPARE(recorder.changes.first().keyValueChangeNew(), QVariant(7));
        QCOMPARE(recorder.changes.last().keyValueChangeNew(), QVariant(9));
    }

    void propertiesAreInheritedAndOverridden()
    {
        Derived derived;
        Sibling sibling;
        QVERIFY_EXCEPTION_THROWN(ZelValueForKey(&derived, "kind"), ZelUndefinedKeyException);
        addStored(&Base::staticMetaObject, "kind", "T@,D"); // after it was looked for
        ZelSetValueForKey(&derived, "base", "kind");
        QCOMPARE(ZelValueForKey(&derived, "kind"), "base");
        // A subclass's own getter leaves the inherited setter, and other subclasses, as they are.
        const ZelBlockProperties properties(&Derived::staticMetaObject), ofBase(&Base::staticMetaObject);
        QVERIFY(properties.addPropertyNameGetter("kind", [](const QObject *) { return "derived"; }));
        ZelSetValueForKey(&derived, "again", "kind");
        ZelSetValueForKey(&sibling, "sibling", "kind");
        QCOMPARE(ZelValueForKey(&derived, "kind"), "derived");
        QCOMPARE(derived.stored.value("kind"), "again");
        QCOMPARE(ZelValueForKey(&sibling, "kind"), "sibling");
        // What is implemented stays.
        const auto one = [](const QObject *) { return 1; };
        QVERIFY(!ofBase.addPropertyNameGetter("kind", one));
        QCOMPARE(ZelValueForKey(&sibling, "kind"), "sibling");
        QVERIFY(!ofBase.addPropertyNameGetter("fixed", one) && !properties.addPropertyNameGetter("fixed", one));
        QCOMPARE(ZelValueForKey(&derived, "fixed"), QVariant(5));
    }

    void declarationsAreFound()
    {
        ZelBlockProperties properties(&Derived::staticMetaObject);
        QVERIFY(properties.declareProperty("owner", "T@\"Person\",D,R"));
        QVERIFY(properties.declareProperty("count", "Tq,D") && !properties.declareProperty("count", "Td,D"));
        QCOMPARE(properties.propertyNamesAndTypes(), (QMap<QString, QString>{{"owner", "Person"}, {"count", "q"}}));
        const auto types = ZelBlockProperties(&Person::staticMetaObject).propertyNamesAndTypes();
        QCOMPARE(types.value("name") + types.value("height") + types.value("friendOf"), "QStringdPerson");
        QVERIFY(properties.propertyWithName("title").has_value()); // of the base
        QVERIFY(properties.propertyWithName("fixed")->isReadOnly());
        QVERIFY(!properties.propertyWithName("objectName").has_value());
        QVERIFY(!ZelBlockProperties(&Base::staticMetaObject).propertyWithName("owner").has_value());
        QCOMPARE(ZelBlockProperties::getPropertyType("T@\"QString\",D"), "QString");
    }

    void unfitBlocksAreAsserted()
    {
        ZelBlockProperties properties(&Sibling::staticMetaObject);
        const ZelBlockProperties::Getter getter = [](const QObject *) { return 1; };
        const ZelBlockProperties::Setter setter = [](QObject *, const QVariant &) {};
        const auto check = [&](const QString &attributes, const QString &ofGetter, const QString &ofSetter,
                               bool hasBlocks = true) {
            const TableRow row(attributes);
            if (attributes != "undeclared")
                properties.declareProperty(attributes, attributes);
            Failures failures;
            const auto taken = [&] { return failures.taken().join('|').remove("Blocks/ZelBlockProperties: "); };
            const bool isGetterAdded = properties.addPropertyNameGetter(attributes, hasBlocks ? getter : nullptr);
            QCOMPARE(isGetterAdded, ofGetter.isEmpty());
            QCOMPARE(taken(), ofGetter);
            QVERIFY(!properties.addPropertyNameSetter(attributes, hasBlocks ? setter : nullptr));
            QCOMPARE(taken(), ofSetter);
        };
        const auto both = [&](const QString &attributes, const QString &message) {
            check(attributes, QString(message).replace('*', "getter"), QString(message).replace('*', "setter"));
        };
        both("undeclared", "Expecting property with name undeclared in class Sibling");
        both("D", "Expected a type for the property");
        both("TL,D", "Unknown simple type: 'L'|No * implementation block");
        both("T{A=i},D", "Unknown struct type: '{A=i}'|No * implementation block");
        check("Ti", "", "Expected a dynamic property");
        check("Ti,D,R", "", "Unexpected read-only property");
        check("Ti,D", "No getter block", "No setter block", false);
    }
};
QTEST_APPLESS_MAIN(TestBlockProperties)
#include "tst_ZelBlockProperties.moc"
