// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/KeyValue/ZelPropertyAccessor.h"
#include "Core/KeyValue/private/ZelPropertyDomain.h"
#include "Core/Values/ZelValues.h"
#include "Support/Person.h"
#include <QTest>
#include <QtWidgets>
#include <limits>
#include <malloc.h>

/// Declares a property of the same name as its base's registered accessor.
class Shadowing : public Person
{
    Q_OBJECT
    Q_PROPERTY(int nickname MEMBER m_nickname)
    Q_PROPERTY(int resettable MEMBER m_nickname RESET reset)
public:
    int m_nickname = 7;
    void reset() { m_nickname = -1; }
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
    enum Colour : quint32 { Red, Green };
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
    QUrl m_url{"http://a.b"};
    QTime m_time{1, 1};
    QLocale m_locale{QLocale::German};
    QString m_text{"old"};
    QUuid m_uuid{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
};

class tst_ZelKeyValueCoding : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void whatIsWrittenAtAPathIsThere()
    {
        Person ada("Ada"), ben("Ben");
        ada.setFriendOf(&ben);
        ada.setFrame({1, 2, 3, 4});
        ada.setNote(QVariantMap{{"a", QVariantHash{{"b", QPointF(1, 2)}}}});
        ada.setProperty("size", QSizeF(5, 6));
        ada.setProperty("shoeSize", 42);
        const std::pair<QString, QVariant> rows[]{
            {"height", 3.0},       {"name", QString("")},  {"role", Person::Admin},
            {"shoeSize", 43},      {"friendOf.name", "B"}, {"note.a.b.x", 5.0},
            {"note.a.b", "point"}, {"note.c", 1},          {"tags", QStringList("t")},
            {"frame.x", 9.0},      {"frame.y", 8.0},       {"frame.width", 7.0},
            {"frame.height", 6.0}, {"size.width", 3.0},    {"size.height", 4.0}};
        for (const auto &[path, value] : rows) {
            ZelSetValueForKeyPath(&ada, value, path);
            QVERIFY2(ZelEqual(ZelValueForKeyPath(&ada, path), value), qPrintable(path));
        }
        QCOMPARE(ada.height(), 3.0);
        QCOMPARE(ada.role(), Person::Admin);
        QCOMPARE(ben.name(), "B");
        QCOMPARE(ada.frame(), QRectF(9, 8, 7, 6)); // it was moved, then resized
        QCOMPARE(ada.property("size"), QVariant(QSizeF(3, 4)));
        ada.setName("x");
        for (const char *path : {"name", "note", "shoeSize", "friendOf"}) {
            ZelSetValueForKeyPath(&ada, path == QString("note") ? ZelNull() : QVariant(), path);
            QVERIFY2(!ZelValueForKeyPath(&ada, path).isValid(), path);
        }
        QVERIFY(ada.name().isNull() && !ada.note().isValid() && ada.dynamicPropertyNames().contains("shoeSize"));
        QVERIFY(!ZelValueForKeyPath(&ada, "friendOf.friendOf.name").isValid());
        ZelSetValueForKeyPath(&ada, 1, "friendOf.name"); // leads nowhere
        const QVariant people = QVariant::fromValue(QList<QObject *>{&ada, &ben});
        QCOMPARE(ZelValueForKeyPath(people, "height"), QVariant(QVariantList{3.0, 0.0}));
        QCOMPARE(ZelValueForKeyPath(people, "name"), QVariant(QVariantList{ZelNull(), "B"}));
        const QVariant marker = QVariant::fromValue(ZelMultipleValuesMarker);
        QCOMPARE(ZelValueForKeyPath(marker, "any.path"), marker);
        Shadowing shadowing;
        ZelSetValueForKey(&shadowing, QVariant(), "resettable");
        QCOMPARE(shadowing.m_nickname, -1);
        QVERIFY(!ZelPropertyAccessor::find(nullptr, "name") && !ZelPropertyAccessor::find(&ben, ZelKey()));
        QVERIFY(ZelHasKey(&ben, "name") && !ZelHasKey(&ben, "shoeSize") && !ZelHasKey(nullptr, "name"));
    }

    void aLongPathCostsWhatItsTextDoes()
    {
        QStringList keys;
        for (int i = 0; i < 60000; ++i)
            keys.append("unheardOf" + QString::number(i));
        Person person;
        person.setFriendOf(&person);
        const size_t before = mallinfo2().uordblks;
        QVERIFY_EXCEPTION_THROWN(ZelValueForKeyPath(&person, keys.join('.')), ZelUndefinedKeyException);
        {
            const ZelKeyPath path(QString("friendOf.").repeated(60000) + "name");
            ZelSetValueForKeyPath(&person, "Ada", path);
            QCOMPARE(ZelValueForKeyPath(&person, path), QVariant("Ada"));
            QCOMPARE(path.rest().rest(), ZelKeyPath(path.string().mid(18)));
            QCOMPARE(qHash(path.rest()), qHash(ZelKeyPath(path.rest().string())));
        }
        QVERIFY2(mallinfo2().uordblks < before + 1000000, "kept");
    }

    void aPathIsItsKeys()
    {
        for (const char *text : {"ab.c", "ab.c."}) {
            const ZelKeyPath path(text), rest = path.rest();
            QVERIFY(path.first().string() == "ab" && rest.first().name() == "c" && !path.isEmpty() && !rest.isEmpty());
            QVERIFY(!path.isSingleKey() && rest.isSingleKey() && rest.rest() == ZelKeyPath());
        }
        const ZelKeyPath none;
        QVERIFY(none.isEmpty() && none.isSingleKey() && none.string().isEmpty() && none.first().isEmpty());
        QVERIFY(ZelKeyPath("a.b") == ZelKeyPath("x.a.b").rest() && ZelKeyPath("a.b") != ZelKeyPath("a"));
        const QString longest(ZelKeyPath::maximumLength, 'a'),
            most = QString("a.").repeated(ZelKeyPath::maximumKeys - 1);
        QVERIFY(ZelKeyPath::isWithinLimits(longest) && !ZelKeyPath::isWithinLimits(longest + 'a'));
        QVERIFY(ZelKeyPath::isWithinLimits(most + 'a') && !ZelKeyPath::isWithinLimits(most + "a.a"));
    }

    void whatIsUnknownOrCannotBeWrittenIsNamed()
    {
        Person person;
        person.setFrame({1, 2, 3, 4});
        const auto caught = [](const auto &work) -> QString {
            try {
                work();
                return "nothing";
            } catch (const ZelUndefinedKeyException &e) {
                const bool isReadOnly = e.failure() == ZelUndefinedKeyException::Failure::ReadOnly;
                return e.className() + '.' + e.key() + (isReadOnly ? e.reason().section("cannot", 1) : QString());
            }
        };
        QCOMPARE(caught([&] { ZelValueForKey(&person, "shoeSize"); }), "Person.shoeSize");
        QCOMPARE(caught([&] { ZelSetValueForKey(&person, 1, "shoeSize"); }), "Person.shoeSize");
        QCOMPARE(caught([&] { ZelValueForKeyPath(&person, "frame.depth"); }), "QRectF.depth");
        QCOMPARE(caught([&] { ZelSetValueForKeyPath(&person, 1, "frame.depth"); }), "QRectF.depth");
        QVERIFY(
            caught([&] { ZelSetValueForKey(&person, 1, "nameLength"); }).startsWith("Person.nameLength be written"));
        QCOMPARE(person.frame(), QRectF(1, 2, 3, 4));
    }

    void numbersDoNotWrapAndTextsAreNotLost()
    {
        using enum ZelValueConversion::Result;
        const auto refused = QVariant::fromValue(ZelMultipleValuesMarker);
        const struct
        {
            const char *key;
            ZelValueConversion::Result result;
            QVariantList values;
            QVariant stored; // what is there afterwards; what was there before, unless it fits
        } rows[]{{"tiny", OutOfRange, {300, 255.5, " 300 ", -1}},
                 {"tiny", Unconvertible, {"some"}},
                 {"tiny", Fits, {254.6, 255, "255"}, 255},
                 {"small", OutOfRange, {-32769, 32768ull, 32767.5}},
                 {"small", Fits, {-32768, -32768.4}, -32768},
                 {"small", Fits, {"2.6", 3}, 3},
                 {"count", OutOfRange, {-5, qQNaN(), "-5", 4294967296ull}},
                 {"count", Fits, {4294967295ull}, 4294967295u},
                 {"big", OutOfRange, {9.3e18, 18000000000000000000ull}},
                 {"big", Fits, {-9223372036854775808.0}, std::numeric_limits<qlonglong>::min()},
                 {"big", Fits, {"9007199254740993"}, 9007199254740993ll},
                 {"huge", OutOfRange, {1.9e19, -1}},
                 {"huge", Fits, {1.8e19, "18000000000000000000"}, 18000000000000000000ull},
                 {"ratio", OutOfRange, {1e39, -1e39}},
                 {"ratio", Fits, {qInf()}, qInf()},
                 {"colour", OutOfRange, {5'000'000'000ll, -5'000'000'000ll}},
                 {"colour", Unconvertible, {"Mauve", QString("")}},
                 {"colour", Fits, {0, "Red"}, 0},
                 {"alignment", Fits, {0x84}, 0x84},
                 {"place", OutOfRange, {QPointF(3e9, 0), QPointF(0, -3e9)}},
                 {"place", Fits, {QPointF(1.5, 1 << 30)}, QPoint(2, 1 << 30)},
                 {"url", Unconvertible, {"http://[bad"}},
                 {"url", Fits, {QString(), QString("")}, QUrl()},
                 {"time", Unconvertible, {"25:99"}},
                 {"time", Fits, {QString(""), QTime()}, QTime()},
                 {"locale", Unconvertible, {"Klingon"}},
                 {"text", Unconvertible, {QFont(), QColor(Qt::white), QStringList("one"), refused}},
                 {"text", Fits, {5, "5", QUrl("5")}, "5"},
                 {"uuid", Unconvertible, {"nobody"}},
                 {"uuid", Fits, {QUuid().toString(), QUuid()}, QUuid()}};
        for (const auto &[key, result, values, fitting] : rows) {
            for (const QVariant &value : values) {
                const QByteArray what = QByteArray(key).append(' ').append(ZelDescription(value).toUtf8());
                Measures measures;
                const QVariant stored = result == Fits ? fitting : measures.property(key);
                const auto domain = ZelPropertyDomain::ofKeyPath(&measures, key);
                QVERIFY2(domain.check(value) == result, what);
                if (result == Unconvertible)
                    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^ERROR: Cannot store .* class .* in .*\\."));
                QString message;
                try {
                    ZelSetValueForKey(&measures, value, key);
                } catch (const ZelGenericException &exception) {
                    message = exception.reason();
                }
                QVERIFY2(message.isEmpty() == (result != OutOfRange), what);
                if (domain.limits().isValid() && !message.isEmpty())
                    QVERIFY2(message.contains(QRegularExpression("must be between -?\\d.* and \\d")), what);
                const QVariant now = measures.property(key);
                QVERIFY2(ZelIsNumber(now) ? ZelEqual(now, stored) : now == stored, what);
            }
        }
        const QMetaType type = QMetaType::fromType<int>(); // whose bits may reach the sign, but not beyond
        QCOMPARE(ZelValueConversion::ofBits(~0ull, type), QVariant(-1));
        QCOMPARE(ZelValueConversion::ofBits(0x80000000ull, type), QVariant(std::numeric_limits<int>::min()));
        QCOMPARE(ZelValueConversion::ofBits(1ull << 32, type), QVariant(1ull << 32));
    }

    void aDomainKeepsNumbersInEveryObjectsProperty()
    {
        Measures measures;
        Person person;
        QObject outer;
        outer.setProperty("inner", QVariant::fromValue<QObject *>(&measures));
        const auto domain = [](const QObject *of, const char *path) { return ZelPropertyDomain::ofKeyPath(of, path); };
        const std::tuple<const char *, double, double, bool> rows[]{{"inner.small", 32767, -32768, true},
                                                                    {"inner.count", 4294967295, 0, true},
                                                                    {"inner.colour", 4294967295, 0, true},
                                                                    {"inner.text", 1e300, -1e300, false}};
        for (const auto &[path, most, least, losesFraction] : rows) {
            QCOMPARE(domain(&outer, path).bounded(1e300), most);
            QCOMPARE(domain(&outer, path).bounded(-1e300), least);
            QCOMPARE(domain(&outer, path).bounded(5), 5);
            QCOMPARE(domain(&outer, path).losesFraction(1.5), losesFraction);
            QVERIFY(!domain(&outer, path).losesFraction(2.0) && domain(&outer, path).isWritable());
        }
        QVERIFY(domain(&measures, "small").losesFraction("1.5") && !domain(&measures, "small").losesFraction("some"));
        QVERIFY(!domain(&person, "nameLength").isWritable() && domain(&person, "frame.x").isWritable());
        QVERIFY(!domain(&person, "height").limits().isValid());
        QVERIFY(domain(&person, "name").isOfTexts() && !domain(&person, "note").isOfTexts());
        for (const char *key : {"big", "huge"})
            for (const double number : {1e300, -1e300})
                QVERIFY(domain(&measures, key).takes(domain(&measures, key).bounded(number)));
    }

    void theNearestClassDecides()
    {
        const auto read = [](const Person *person) { return person->name().left(2); };
        ZelPropertyAccessor::registerAccessor(&Person::staticMetaObject, "nickname",
                                              std::make_unique<ZelFunctionAccessor<Person>>(read, nullptr));
        const Person person("Ada");
        const Shadowing shadowing;
        QCOMPARE(ZelValueForKey(&person, "nickname"), QVariant("Ad"));
        QCOMPARE(ZelValueForKey(&shadowing, "nickname"), QVariant(7));
    }
};
QTEST_MAIN(tst_ZelKeyValueCoding)
#include "tst_ZelKeyValueCoding.moc"
