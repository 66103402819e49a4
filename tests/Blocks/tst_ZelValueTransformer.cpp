// SPDX-License-Identifier: MIT
#include "Blocks/ZelReversibleValueTransformer.h"
#include "Blocks/ZelTransformerKit.h"
#include "Core/Errors/ZelAssertions.h"
#include "Core/KeyValue/ZelClassRegistry.h"

#include <QTest>

namespace {

QVariant doubled(const QVariant &value)
{
    return value.toInt() * 2;
}

QVariant halved(const QVariant &value)
{
    return value.toInt() / 2;
}

/// Notes what failed, and goes on.
class QuietHandler : public ZelAssertionHandler
{
public:
    QuietHandler()
        : m_former(setCurrent(this))
    {
    }
    ~QuietHandler() override { setCurrent(m_former); }
    void handleFailure(const QString &location, const QString &message, const ZelSourcePlace &) override
    {
        messages.append(location + u": " + message);
    }
    QStringList messages;

private:
    ZelAssertionHandler *m_former;
};

} // namespace

class tst_ZelValueTransformer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void blocksTransform();
    void missingBlocksAreAssertions();
    void registrationKeepsWhatIsThere();
    void registrationAssertsItsParameters();
};

void tst_ZelValueTransformer::blocksTransform()
{
    const auto oneWay = ZelValueTransformer::transformerWithBlock(&doubled);
    QCOMPARE(oneWay->transformedValue(4), QVariant(8));
    QVERIFY(!oneWay->allowsReverseTransformation());
    QCOMPARE(oneWay->transformedValueClass(), QStringLiteral("QVariant"));
    const auto sameWay = ZelValueTransformer::reversibleTransformerWithBlock(&doubled);
    QVERIFY(sameWay->allowsReverseTransformation());
    QCOMPARE(sameWay->reverseTransformedValue(4), QVariant(8));
    const auto bothWays = ZelValueTransformer::reversibleTransformerWithForwardBlock(&doubled, &halved);
    QCOMPARE(bothWays->transformedValue(4), QVariant(8));
    QCOMPARE(bothWays->reverseTransformedValue(4), QVariant(2));
}

void tst_ZelValueTransformer::missingBlocksAreAssertions()
{
    QVERIFY_EXCEPTION_THROWN(ZelValueTransformer::transformerWithBlock({}), ZelInternalInconsistencyException);
    QuietHandler handler;
    const ZelReversibleValueTransformer transformer({}, {});
    const QString prefix = QStringLiteral(": Invalid parameter not satisfying: ");
    QCOMPARE(handler.messages, QStringList({u"Blocks/ZelValueTransformer" + prefix + u"forwardBlock != nil",
                                            u"Blocks/ZelReversibleValueTransformer" + prefix + u"reverseBlock"}));
    QVERIFY(!transformer.transformedValue(1).isValid());
    QVERIFY(!transformer.reverseTransformedValue(1).isValid());
}

void tst_ZelValueTransformer::registrationKeepsWhatIsThere()
{
    const QString name = QStringLiteral("Doubled");
    QVERIFY(ZelTransformerKit::registerValueTransformerWithName(name, QStringLiteral("int"), &doubled, &halved));
    const ZelValueTransformerPtr registered = ZelAbstractValueTransformer::valueTransformerForName(name);
    QCOMPARE(registered->transformedValueClass(), QStringLiteral("int"));
    QVERIFY(registered->allowsReverseTransformation());
    QCOMPARE(registered->reverseTransformedValue(8), QVariant(4));
    QVERIFY(!ZelTransformerKit::registerValueTransformerWithName(name, QStringLiteral("int"), &halved));
    QCOMPARE(ZelAbstractValueTransformer::valueTransformerForName(name), registered);

    const QString oneWay = QStringLiteral("Halved");
    QVERIFY(ZelTransformerKit::registerValueTransformerWithName(oneWay, QStringLiteral("int"), &halved));
    QVERIFY(!ZelAbstractValueTransformer::valueTransformerForName(oneWay)->allowsReverseTransformation());

    ZelClassRegistry::registerClass(QStringLiteral("Shape"), &QObject::staticMetaObject,
                                    [](QObject *owner) { return new QObject(owner); });
    for (const char *taken : {"Shape", "QObject", "QString", "QSignalMapper", "ZelNegateBooleanTransformerName"}) {
        QVERIFY2(!ZelTransformerKit::registerValueTransformerWithName(QString::fromUtf8(taken), QStringLiteral("int"),
                                                                      &halved),
                 taken);
    }
}

void tst_ZelValueTransformer::registrationAssertsItsParameters()
{
    QuietHandler handler;
    const QString name = QStringLiteral("Nothing");
    const QString type = QStringLiteral("int");
    QVERIFY(!ZelTransformerKit::registerValueTransformerWithName({}, type, &halved));
    QVERIFY(!ZelTransformerKit::registerValueTransformerWithName(name, {}, &halved));
    QVERIFY(!ZelTransformerKit::registerValueTransformerWithName(name, type, {}));
    const QString prefix = QStringLiteral("Blocks/ZelTransformerKit: Invalid parameter not satisfying: ");
    QCOMPARE(handler.messages,
             QStringList({prefix + u"name", prefix + u"transformedValueClass", prefix + u"transformedValueBlock"}));
    QVERIFY(!ZelAbstractValueTransformer::valueTransformerForName(name));
}

QTEST_APPLESS_MAIN(tst_ZelValueTransformer)
#include "tst_ZelValueTransformer.moc"
