// SPDX-License-Identifier: MIT
#include "Blocks/ZelBlockProperties.h"

#include "Core/Errors/ZelException.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Values/ZelValues.h"
#include "Support/Person.h"
#include "Support/Recorder.h"

#include <QTest>

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

const Base *asBase(const QObject *object)
{
    return static_cast<const Base *>(object);
}

/// A property that stores in the object what the setter was given.
void addStored(const QMetaObject *metaObject, const QString &name, const QString &attributes)
{
    ZelBlockProperties properties(metaObject);
    QVERIFY(properties.declareProperty(name, attributes));
    QVERIFY(properties.addPropertyNameGetter(
        name, [=](const QObject *object) { return asBase(object)->stored.value(name); }));
    QVERIFY(properties.addPropertyNameSetter(name, [=](QObject *object, const QVariant &value) {
        static_cast<Base *>(object)->stored.insert(name, value);
    }));
}

template<typename Function> QString asserted(const Function &function)
{
    try {
        function();
    } catch (const ZelInternalInconsistencyException &e) {
        return e.reason();
    }
    return {};
}

} // namespace

class TestBlockProperties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void convertsBothWays_data();
    void convertsBothWays();
    void absentScalarIsZero();
    void unfitValueIsNotStored();
    void writesAreObserved();
    void inheritedAndOverridden();
    void implementedPropertiesStay();
    void findsDeclarations();
    void asserts_data();
    void asserts();
};

void TestBlockProperties::convertsBothWays_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QVariant>("written");
    QTest::addColumn<QVariant>("boxed"); // what the setter is given, and the type that is read
    QTest::newRow("any") << "@" << QVariant(QUrl("a:b")) << QVariant(QUrl("a:b"));
    QTest::newRow("object of a class") << "@\"QString\"" << QVariant("x") << QVariant("x");
    QTest::newRow("two is true") << "c" << QVariant(2) << QVariant(true);
    QTest::newRow("too much for a short") << "s" << QVariant(65537) << QVariant::fromValue<short>(1);
    QTest::newRow("fraction") << "i" << QVariant(-2.9) << QVariant(-2);
    QTest::newRow("too much for an int") << "i" << QVariant(1e30) << QVariant(std::numeric_limits<int>::max());
    QTest::newRow("text") << "i" << QVariant("12") << QVariant(12);
    QTest::newRow("unsigned") << "I" << QVariant(4294967295.0) << QVariant(4294967295u);
    QTest::newRow("long") << "q" << QVariant(1) << QVariant(qlonglong(1));
    QTest::newRow("float rounds") << "f" << QVariant(0.1) << QVariant(0.1f);
    QTest::newRow("double") << "d" << QVariant(3) << QVariant(3.0);
    QTest::newRow("point") << "{CGPoint=dd}" << QVariant(QPoint(1, 2)) << QVariant(QPointF(1, 2));
    QTest::newRow("size") << "{CGSize=dd}" << QVariant(QSizeF(1, 2)) << QVariant(QSizeF(1, 2));
    QTest::newRow("rectangle") << "{CGRect={CGPoint=dd}{CGSize=dd}}" << QVariant(QRect(1, 2, 3, 4))
                               << QVariant(QRectF(1, 2, 3, 4));
}

void TestBlockProperties::convertsBothWays()
{
    QFETCH(const QString, type);
    QFETCH(const QVariant, written);
    QFETCH(const QVariant, boxed);
    const QString name = QString("p_") + QTest::currentDataTag();
    addStored(&Base::staticMetaObject, name, QString("T" + type + ",D"));
    Base object;
    if (QByteArray(QTest::currentDataTag()).startsWith("too much")) {
        QVERIFY_EXCEPTION_THROWN(ZelSetValueForKey(&object, written, name), ZelGenericException);
        QVERIFY(object.stored.isEmpty());
    } else {
        ZelSetValueForKey(&object, written, name);
        QCOMPARE(object.stored.value(name), boxed);
        QCOMPARE(object.stored.value(name).metaType(), boxed.metaType());
    }
    object.stored.insert(name, written); // the getter's answer is converted as well
    QCOMPARE(ZelValueForKey(&object, name), boxed);
    QCOMPARE(ZelValueForKey(&object, name).metaType(), boxed.metaType());
}

void TestBlockProperties::absentScalarIsZero()
{
    addStored(&Base::staticMetaObject, "number", "Td,D");
    addStored(&Base::staticMetaObject, "anything", "T@,D");
    Base object;
    QCOMPARE(ZelValueForKey(&object, "number"), QVariant(0.0));
    ZelSetValueForKey(&object, ZelNull(), "number");
    ZelSetValueForKey(&object, ZelNull(), "anything");
    QCOMPARE(object.stored.value("number"), QVariant(0.0));
    QVERIFY(object.stored.contains("anything") && !object.stored.value("anything").isValid());
}

void TestBlockProperties::unfitValueIsNotStored()
{
    addStored(&Base::staticMetaObject, "place", "T{CGPoint=dd},D");
    Base object;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Cannot store a value of class QString"));
    ZelSetValueForKey(&object, "nowhere", "place");
    QVERIFY(object.stored.isEmpty());
}

void TestBlockProperties::writesAreObserved()
{
    addStored(&Base::staticMetaObject, "watched", "Ti,D");
    Derived object;
    Recorder recorder;
    ZelAddObserver(&object, &recorder, "watched", ZelKeyValueObservingOptionNew, nullptr);
    ZelSetValueForKey(&object, 7.5, "watched");
    QCOMPARE(recorder.count(), 1);
    QCOMPARE(recorder.changes.at(0).keyValueChangeNew(), QVariant(7));
    ZelWillChangeValueForKey(&object, "watched");
    object.stored.insert("watched", 9);
    ZelDidChangeValueForKey(&object, "watched");
    QCOMPARE(recorder.count(), 2);
    QCOMPARE(recorder.changes.at(1).keyValueChangeNew(), QVariant(9));
    ZelRemoveObserver(&object, &recorder, "watched", nullptr);
}

void TestBlockProperties::inheritedAndOverridden()
{
    Derived derived;
    Sibling sibling;
    QVERIFY_EXCEPTION_THROWN(ZelValueForKey(&derived, "kind"), ZelUndefinedKeyException);
    addStored(&Base::staticMetaObject, "kind", "T@,D"); // after it was looked for
    ZelSetValueForKey(&derived, "base", "kind");
    QCOMPARE(ZelValueForKey(&derived, "kind"), QVariant("base"));

    // A subclass's own getter leaves the inherited setter, and other subclasses, as they are.
    const ZelBlockProperties properties(&Derived::staticMetaObject);
    QVERIFY(properties.addPropertyNameGetter("kind", [](const QObject *) { return "derived"; }));
    ZelSetValueForKey(&derived, "again", "kind");
    ZelSetValueForKey(&sibling, "sibling", "kind");
    QCOMPARE(ZelValueForKey(&derived, "kind"), QVariant("derived"));
    QCOMPARE(derived.stored.value("kind"), QVariant("again"));
    QCOMPARE(ZelValueForKey(&sibling, "kind"), QVariant("sibling"));
}

void TestBlockProperties::implementedPropertiesStay()
{
    addStored(&Base::staticMetaObject, "once", "Ti,D");
    const ZelBlockProperties properties(&Base::staticMetaObject);
    Base object;
    QVERIFY(!properties.addPropertyNameGetter("once", [](const QObject *) { return 1; }));
    QCOMPARE(ZelValueForKey(&object, "once"), QVariant(0));
    QVERIFY(!properties.addPropertyNameGetter("fixed", [](const QObject *) { return 1; }));
    QVERIFY(!ZelBlockProperties(&Derived::staticMetaObject).addPropertyNameGetter("fixed", [](const QObject *) {
        return 1;
    }));
    QCOMPARE(ZelValueForKey(&object, "fixed"), QVariant(5));
}

void TestBlockProperties::findsDeclarations()
{
    ZelBlockProperties properties(&Derived::staticMetaObject);
    QVERIFY(properties.declareProperty("owner", "T@\"Person\",D,R"));
    QVERIFY(properties.declareProperty("count", "Tq,D"));
    QVERIFY(!properties.declareProperty("count", "Td,D"));
    QCOMPARE(properties.propertyNamesAndTypes(), (QMap<QString, QString>{{"owner", "Person"}, {"count", "q"}}));
    const auto types = ZelBlockProperties(&Person::staticMetaObject).propertyNamesAndTypes();
    QCOMPARE(types.value("name") + types.value("height") + types.value("friendOf"), "QStringdPerson");

    QVERIFY(properties.propertyWithName("title").has_value()); // of the base
    QVERIFY(properties.propertyWithName("fixed")->isReadOnly());
    QVERIFY(!properties.propertyWithName("objectName").has_value());
    QVERIFY(!ZelBlockProperties(&Base::staticMetaObject).propertyWithName("owner").has_value());

    QCOMPARE(ZelBlockProperties::getPropertyType("T@\"QString\",D"), "QString");
    QCOMPARE(ZelBlockProperties::getPropertyType("Tq,D"), "");
}

void TestBlockProperties::asserts_data()
{
    QTest::addColumn<QString>("attributes"); // of the property, unless it is not declared
    QTest::addColumn<bool>("hasBlock");
    QTest::addColumn<QString>("getterMessage");
    QTest::addColumn<QString>("setterMessage");
    const QString unknown = "Expecting property with name p in class Sibling";
    QTest::newRow("undeclared") << QString() << true << unknown << unknown;
    QTest::newRow("no type") << "D" << true << "Expected a type for the property"
                             << "Expected a type for the property";
    QTest::newRow("not dynamic") << "Ti" << true << ""
                                 << "Expected a dynamic property";
    QTest::newRow("read-only") << "Ti,D,R" << true << ""
                               << "Unexpected read-only property";
    QTest::newRow("no block") << "Ti,D" << false << "No getter block"
                              << "No setter block";
    QTest::newRow("simple type") << "TL,D" << true << "Unknown simple type: 'L'"
                                 << "Unknown simple type: 'L'";
    QTest::newRow("struct type") << "T{A=i},D" << true << "Unknown struct type: '{A=i}'"
                                 << "Unknown struct type: '{A=i}'";
}

void TestBlockProperties::asserts()
{
    QFETCH(const QString, attributes);
    QFETCH(const bool, hasBlock);
    const ZelBlockProperties::Getter getter = [](const QObject *) { return 1; };
    const ZelBlockProperties::Setter setter = [](QObject *, const QVariant &) {};
    ZelBlockProperties properties(&Sibling::staticMetaObject);
    const QString name = attributes.isNull() ? QString("p") : attributes;
    QVERIFY(attributes.isNull() || properties.declareProperty(name, attributes));
    QTEST(asserted([&] { properties.addPropertyNameGetter(name, hasBlock ? getter : nullptr); }), "getterMessage");
    QTEST(asserted([&] { properties.addPropertyNameSetter(name, hasBlock ? setter : nullptr); }), "setterMessage");
}

QTEST_APPLESS_MAIN(TestBlockProperties)
#include "tst_ZelBlockProperties.moc"
