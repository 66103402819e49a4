// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueCoding.h"

#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Values/ZelValues.h"
#include "Support/Person.h"

#include <QLocale>
#include <QPoint>
#include <QTest>
#include <QTime>
#include <QUrl>
#include <QUuid>
#include <limits>
#include <malloc.h>

/// Declares a property of the same name as its base's registered accessor.
class Shadowing : public Person
{
    Q_OBJECT
    Q_PROPERTY(int nickname MEMBER m_nickname)
public:
    int m_nickname = 7;
};

/// A property of every kind of type that does not take every value.
class Measures : public QObject
{
    Q_OBJECT
    Q_PROPERTY(uchar tiny MEMBER m_tiny)
    Q_PROPERTY(short small MEMBER m_small)
    Q_PROPERTY(uint count MEMBER m_count)
    Q_PROPERTY(qlonglong big MEMBER m_big)
    Q_PROPERTY(qulonglong huge MEMBER m_huge)
    Q_PROPERTY(float ratio MEMBER m_ratio)
    Q_PROPERTY(Colour colour MEMBER m_colour)
    Q_PROPERTY(Qt::Alignment alignment MEMBER m_alignment)
    Q_PROPERTY(QPoint place MEMBER m_place)
    Q_PROPERTY(QUrl url MEMBER m_url)
    Q_PROPERTY(QTime time MEMBER m_time)
    Q_PROPERTY(QLocale locale MEMBER m_locale)
    Q_PROPERTY(QUuid uuid MEMBER m_uuid)
    Q_PROPERTY(QString text MEMBER m_text)
public:
    enum Colour { Red, Green };
    Q_ENUM(Colour)
    uchar m_tiny = 1;
    short m_small = 1;
    uint m_count = 1;
    qlonglong m_big = 1;
    qulonglong m_huge = 1;
    float m_ratio = 1;
    Colour m_colour = Green;
    Qt::Alignment m_alignment = Qt::AlignLeft;
    QPoint m_place{1, 1};
    QUrl m_url{QStringLiteral("http://a.b")};
    QTime m_time{1, 1};
    QLocale m_locale{QLocale::German};
    QString m_text{QStringLiteral("old")};
    QUuid m_uuid{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
};

Q_DECLARE_METATYPE(ZelKey)

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

    void aLongPathCostsWhatItsTextDoes()
    {
        QStringList keys;
        for (int i = 0; i < 60000; ++i)
            keys.append(QStringLiteral("unheardOf%1").arg(i));
        Person person;
        person.setFriendOf(&person);
        const size_t before = mallinfo2().uordblks;
        {
            const ZelKeyPath unknown(keys.join(u'.'));
            QVERIFY_EXCEPTION_THROWN(ZelValueForKeyPath(&person, unknown), ZelUndefinedKeyException);
            keys.fill(QStringLiteral("friendOf"));
            keys.append(QStringLiteral("name"));
            const ZelKeyPath known(keys.join(u'.'));
            ZelSetValueForKeyPath(&person, QStringLiteral("Ada"), known);
            QCOMPARE(ZelValueForKeyPath(&person, known), QVariant(QStringLiteral("Ada")));
            QCOMPARE(known.rest().rest(), ZelKeyPath(known.string().mid(18)));
            QCOMPARE(qHash(known.rest()), qHash(ZelKeyPath(known.rest().string())));
        }
        QVERIFY2(mallinfo2().uordblks < before + 1000000, "kept");
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
        try {
            ZelSetValueForKey(&person, 1, "nameLength");
            QFAIL("no exception");
        } catch (const ZelUndefinedKeyException &e) {
            QCOMPARE(e.failure(), ZelUndefinedKeyException::Failure::ReadOnly);
            QVERIFY2(e.reason().contains(QStringLiteral("cannot be written")), e.what());
        }
        person.setProperty("shoeSize", 42);
        QCOMPARE(ZelValueForKey(&person, "shoeSize"), QVariant(42));
        ZelSetValueForKey(&person, ZelNull(), "shoeSize");
        QVERIFY(!ZelValueForKey(&person, "shoeSize").isValid()); // emptied, and still there
    }

    void numbersDoNotWrapAndTextsAreNotLost_data()
    {
        using Result = ZelValueConversion;
        QTest::addColumn<ZelKey>("key");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<Result::Result>("result");
        QTest::addColumn<QVariant>("stored"); // what is there afterwards
        const auto row = [](const char *key, const QVariant &value, Result::Result result, const QVariant &stored) {
            QTest::addRow("%s %s", key, qPrintable(ZelDescription(value))) << ZelKey(key) << value << result << stored;
        };
        row("tiny", 300, Result::OutOfRange, 1);
        row("tiny", 254.6, Result::Fits, 255);
        row("tiny", 255.5, Result::OutOfRange, 1);
        row("tiny", QStringLiteral(" 300 "), Result::OutOfRange, 1);
        row("tiny", QStringLiteral("some"), Result::Unconvertible, 1);
        row("small", -32768, Result::Fits, -32768);
        row("small", QStringLiteral("2.6"), Result::Fits, 3);
        row("small", 99999, Result::OutOfRange, 1);
        row("count", -5, Result::OutOfRange, 1);
        row("count", qQNaN(), Result::OutOfRange, 1);
        row("count", QStringLiteral("-5"), Result::OutOfRange, 1);
        row("big", 9.3e18, Result::OutOfRange, 1);
        row("big", 18000000000000000000ull, Result::OutOfRange, 1);
        row("big", -9223372036854775808.0, Result::Fits, std::numeric_limits<qlonglong>::min());
        row("huge", 1.8e19, Result::Fits, 18000000000000000000ull);
        row("huge", 1.9e19, Result::OutOfRange, 1);
        row("ratio", 1e39, Result::OutOfRange, 1);
        row("ratio", qInf(), Result::Fits, qInf());
        row("colour", 5'000'000'000ll, Result::OutOfRange, 1);
        row("colour", 0, Result::Fits, 0);
        row("colour", QStringLiteral("Red"), Result::Fits, 0);
        row("colour", QStringLiteral("Mauve"), Result::Unconvertible, 1);
        row("alignment", 0x84, Result::Fits, 0x84);
        row("place", QPointF(3e9, 0), Result::OutOfRange, QPoint(1, 1));
        row("place", QPointF(1.5, 2), Result::Fits, QPoint(2, 2));
        row("url", QStringLiteral("http://[bad"), Result::Unconvertible, QUrl(QStringLiteral("http://a.b")));
        row("url", QString(), Result::Fits, QUrl());
        row("url", QStringLiteral(""), Result::Fits, QUrl());
        row("time", QStringLiteral("25:99"), Result::Unconvertible, QTime(1, 1));
        row("time", QStringLiteral(""), Result::Fits, QTime());
        row("locale", QStringLiteral("Klingon"), Result::Unconvertible, QLocale(QLocale::German));
        row("text", 5, Result::Fits, QStringLiteral("5"));
        row("text", QUrl(QStringLiteral("http://a.b")), Result::Fits, QStringLiteral("http://a.b"));
        row("text", QFont(), Result::Unconvertible, QStringLiteral("old"));
        row("text", QColor(Qt::white), Result::Unconvertible, QStringLiteral("old"));
        row("text", QStringList(QStringLiteral("one")), Result::Unconvertible, QStringLiteral("old"));
        row("uuid", QStringLiteral("nobody"), Result::Unconvertible, QUuid(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
    }

    void numbersDoNotWrapAndTextsAreNotLost()
    {
        QFETCH(const ZelKey, key);
        QFETCH(const QVariant, value);
        QFETCH(const ZelValueConversion::Result, result);
        QFETCH(const QVariant, stored);
        Measures measures;
        const auto domain = ZelPropertyDomain::ofKeyPath(&measures, key);
        QCOMPARE(domain.check(value), result);
        QString message;
        if (result == ZelValueConversion::Unconvertible)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^ERROR: Cannot store a value of")));
        try {
            ZelSetValueForKey(&measures, value, key);
        } catch (const ZelGenericException &exception) {
            message = exception.reason();
        }
        QCOMPARE(!message.isEmpty(), result == ZelValueConversion::OutOfRange);
        if (domain.limits().isValid() && !message.isEmpty())
            QVERIFY2(message.contains(QRegularExpression(QStringLiteral("must be between -?\\d.* and \\d"))),
                     qPrintable(message));
        const QVariant now = measures.property(key.name().constData());
        if (ZelIsNumber(now))
            QVERIFY2(ZelEqual(now, stored), qPrintable(ZelDescription(now)));
        else
            QCOMPARE(now, stored);
    }

    void bitsMayReachTheSignButNotBeyond()
    {
        const QMetaType type = QMetaType::fromType<int>();
        QCOMPARE(ZelValueConversion::ofBits(~0ull, type), QVariant(-1));
        QCOMPARE(ZelValueConversion::ofBits(0x80000000ull, type), QVariant(std::numeric_limits<int>::min()));
        QCOMPARE(ZelValueConversion::ofBits(1ull << 32, type), QVariant(1ull << 32));
    }

    void aDomainKeepsNumbersInEveryObjectsProperty()
    {
        Measures measures;
        QObject outer;
        outer.setProperty("inner", QVariant::fromValue<QObject *>(&measures));
        QCOMPARE(ZelPropertyDomain::ofKeyPath(&outer, "inner.small").bounded(1e6), 32767.0);
        QVERIFY(ZelPropertyDomain::ofKeyPath(&outer, "inner.small").isWritable());
        Person person;
        QVERIFY(!ZelPropertyDomain::ofKeyPath(&person, "nameLength").isWritable());
        QVERIFY(!ZelPropertyDomain::ofKeyPath(&person, "height").limits().isValid());
        for (const char *key : {"big", "huge"}) {
            const auto domain = ZelPropertyDomain::ofKeyPath(&measures, key);
            QVERIFY(domain.takes(domain.bounded(1e300)) && domain.takes(domain.bounded(-1e300)));
        }
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
