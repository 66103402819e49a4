// SPDX-License-Identifier: MIT
#include "Platform/Runtime/ZelKeyValueCoding.h"

#include "Platform/Runtime/ZelAssertions.h"
#include "Platform/Runtime/ZelPropertyAccessor.h"
#include "Platform/Runtime/ZelValues.h"
#include "Support/Person.h"

#include <QTest>

/// Declares a property of the same name as its base's registered accessor.
class Shadowing : public Person
{
    Q_OBJECT
    Q_PROPERTY(int nickname MEMBER m_nickname)
public:
    int m_nickname = 7;
};

class tst_ZelKeyValueCoding : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void readsAndWritesPlainProperties()
    {
        Person person(QStringLiteral("Ada"));
        ZelSetValueForKey(&person, 3, "height");
        QCOMPARE(person.height(), 3.0);
        ZelSetValueForKey(&person, 2, "role");
        QCOMPARE(person.role(), Person::Admin);
        ZelSetValueForKey(&person, QVariant(), "name");
        QVERIFY(person.name().isNull());
        QVERIFY(!ZelValueForKey(&person, "name").isValid());
        ZelSetValueForKey(&person, QStringLiteral("x"), "name");
        ZelSetValueForKey(&person, QStringLiteral(""), "name");
        QVERIFY(ZelValueForKey(&person, "name").isValid());
        ZelSetValueForKey(&person, ZelNull(), "note");
        QVERIFY(!person.note().isValid());
    }

    void pathsLeadThroughObjectsValuesAndLists()
    {
        Person ada(QStringLiteral("Ada"));
        Person ben(QStringLiteral("Ben"));
        ada.setFriendOf(&ben);
        ZelSetValueForKeyPath(&ada, QStringLiteral("Bea"), "friendOf.name");
        QCOMPARE(ben.name(), QStringLiteral("Bea"));
        ada.setFrame({1, 2, 3, 4});
        ZelSetValueForKeyPath(&ada, 9, "frame.x");
        QCOMPARE(ada.frame(), QRectF(9, 2, 3, 4));
        ada.setNote(QVariantMap{{QStringLiteral("a"), QVariantMap{{QStringLiteral("b"), 1}}}});
        ZelSetValueForKeyPath(&ada, 2, "note.a.b");
        QCOMPARE(ZelValueForKeyPath(&ada, "note.a.b"), QVariant(2));
        const QVariant people = QVariant::fromValue(QList<QObject *>{&ada, &ben});
        QCOMPARE(ZelValueForKeyPath(people, "name"),
                 QVariant(QVariantList{QStringLiteral("Ada"), QStringLiteral("Bea")}));
        ben.setFriendOf(nullptr);
        QVERIFY(!ZelValueForKeyPath(&ben, "friendOf.friendOf.name").isValid());
        ZelSetValueForKeyPath(&ben, 1, "friendOf.name"); // leads nowhere
    }

    void anUnknownKeyNamesClassAndKey()
    {
        Person person;
        try {
            ZelValueForKey(&person, "shoeSize");
            QFAIL("no exception");
        } catch (const ZelUndefinedKeyException &e) {
            QCOMPARE(e.className(), QStringLiteral("Person"));
            QCOMPARE(e.key(), QStringLiteral("shoeSize"));
        }
        QVERIFY_EXCEPTION_THROWN(ZelSetValueForKey(&person, 1, "nameLength"), ZelUndefinedKeyException);
        person.setProperty("shoeSize", 42);
        QCOMPARE(ZelValueForKey(&person, "shoeSize"), QVariant(42));
    }

    void aValueThatDoesNotFitIsRefused()
    {
        Person person;
        person.setHeight(5);
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("^ERROR: Cannot store a value of class QString")));
        ZelSetValueForKey(&person, QStringLiteral("tall"), "height");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^ERROR: Cannot store")));
        ZelSetValueForKey(&person, QVariant::fromValue(ZelMultipleValuesMarker), "height");
        QCOMPARE(person.height(), 5.0);
    }

    void theNearestClassDecides()
    {
        ZelPropertyAccessor::registerAccessor(
            &Person::staticMetaObject, "nickname",
            std::make_unique<ZelFunctionAccessor<Person>>([](const Person *p) { return p->name().left(2); }, nullptr));
        Person person(QStringLiteral("Ada"));
        QCOMPARE(ZelValueForKey(&person, "nickname"), QVariant(QStringLiteral("Ad")));
        Shadowing shadowing;
        QCOMPARE(ZelValueForKey(&shadowing, "nickname"), QVariant(7));
    }
};

QTEST_MAIN(tst_ZelKeyValueCoding)
#include "tst_ZelKeyValueCoding.moc"
