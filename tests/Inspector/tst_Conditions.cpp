// SPDX-License-Identifier: MIT
#include "Blocks/ZelNamedTransformers.h"
#include "Core/Values/ZelTransformerFactory.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Descriptions.h"
#include "Support/Figure.h"

namespace {
class Multiplied : public ZelAbstractValueTransformer
{
public:
    explicit Multiplied(double factor)
        : m_factor(factor)
    {
    }
    QVariant transformedValue(const QVariant &value) const override { return value.toDouble() * m_factor; }

private:
    double m_factor;
};
} // namespace

class tst_Conditions : public QObject
{
    Q_OBJECT
    using Slice = std::unique_ptr<ZelInspectorSlice>;
    Slice slice(const QByteArray &rows)
    {
        ZelDeclarativeInspectorGenerator generator;
        generator.setOwner(&m_owner);
        generator.setDescription({inSection(rows), "Conditions"});
        return Slice(generator.createSlice());
    }

    Descriptions m_files;
    EditorOwner m_owner;

private Q_SLOTS:
    void initTestCase() { ZelRegisterTransformers(); }

    void conditionsCompare()
    {
        Person person;
        const QVariant alignment = QVariant::fromValue<Qt::Alignment>(Qt::AlignLeft | Qt::AlignTop);
        const QVariant role = QVariant::fromValue(Person::Admin);
        const QVariant multiple = QVariant::fromValue(ZelMultipleValuesMarker);
        const QVariant none = QVariant::fromValue(ZelNoSelectionMarker);
        const QVariant notApplicable = QVariant::fromValue(ZelNotApplicableMarker);
        struct Row
        {
            const char *name;
            QVariant value;
            QVariant expected;
        };
        const Row rows[] = {
            {"ZelEquals(3)", 3, true},
            {"ZelEquals( 3 )", 3.0, true},
            {"ZelEquals(3)", 4, false},
            {"ZelEquals(2.5)", 2.5, true},
            {"ZelEquals(2.5)", 3, false},
            {"ZelEquals(0x10)", 16u, true},
            {"ZelEquals(9007199254740993)", qlonglong(9007199254740992), false},
            {"ZelEquals(-1)", qlonglong(-1), true},
            {"ZelEquals(3)", QString("3"), true},
            {"ZelEquals(a (b))", QString("a (b)"), true},
            {"ZelEquals(a)", QString("A"), false},
            {"ZelEquals(Admin)", role, true},
            {"ZelEquals(2)", role, true},
            {"ZelEquals(Member)", role, false},
            {"ZelEquals(Person::Admin)", role, true},
            {"ZelEquals(yes)", true, true},
            {"ZelEquals(0)", false, true},
            {"ZelEquals(AlignLeft|AlignTop)", alignment, true},
            {"ZelEquals(2024-05-06)", QDate(2024, 5, 6), true},
            {"ZelEquals(3)", QVariant(), false},
            {"ZelEquals(3)", multiple, multiple},
            {"ZelEquals(3)", none, none},
            {"ZelNotEquals(Admin)", role, false},
            {"ZelNotEquals(Guest)", role, true},
            {"ZelNotEquals(3)", QVariant(), true},
            {"ZelNotEquals(3)", multiple, multiple},
            {"ZelIsOneOf(Guest, Admin)", role, true},
            {"ZelIsOneOf(Guest,Member)", role, false},
            {"ZelContains(0x4)", 6, true},
            {"ZelContains(0x6)", 4, false},
            {"ZelContains(6)", -1, true},
            {"ZelContains(AlignTop)", alignment, true},
            {"ZelContains(AlignRight)", alignment, false},
            {"ZelContains(b)", QStringList({"a", "b"}), true},
            {"ZelContains(c)", QStringList({"a", "b"}), false},
            {"ZelContains(1)", QVariant(), false},
            {"ZelIsGreater(3)", 3, false},
            {"ZelIsGreater(3)", 3.1, true},
            {"ZelIsGreater(-1)", QVariant(), false},
            {"ZelIsLess(3)", 3, false},
            {"ZelIsLess(3)", 2, true},
            {"ZelIsGreater(Guest)", 1, QVariant()},
            {"ZelIsKind(Person)", QVariant::fromValue<QObject *>(&person), true},
            {"ZelIsKind(QObject)", QVariant::fromValue(&person), true},
            {"ZelIsKind(Figure)", QVariant::fromValue(&person), false},
            {"ZelIsKind(Person)", QVariant(), false},
            {"ZelIsKind(Person)", QVariantList(), false},
            {"ZelIsApplicable", 0, true},
            {"ZelIsApplicable", QVariant(), true},
            {"ZelIsApplicable", multiple, true},
            {"ZelIsApplicable", none, false},
            {"ZelIsApplicable", notApplicable, false},
        };
        Reports reports;
        for (const Row &row : rows) {
            const auto transformer = ZelAbstractValueTransformer::valueTransformerForName(row.name);
            QCOMPARE(bool(transformer), row.expected.isValid());
            if (transformer)
                QVERIFY2(transformer->transformedValue(row.value) == row.expected,
                         qPrintable(row.name + say(row.value)));
        }
        QCOMPARE(reports.messages.join('\n'), QString());
    }

    void mistakesAreToldAtTheirPlace()
    {
        const auto make = [](const QString &argument, QString *error) {
            bool isNumber = false;
            const double factor = argument.toDouble(&isNumber);
            if (!isNumber)
                *error = QStringLiteral("\"%1\" is no number").arg(argument);
            return ZelValueTransformerPtr(isNumber ? new Multiplied(factor) : nullptr);
        };
        ZelTransformerFactory::registerFactory("Times", "Times(2)", make);
        QCOMPARE(ZelAbstractValueTransformer::valueTransformerForName("Times( 2.5)")->transformedValue(4),
                 QVariant(10.0));
        const std::pair<const char *, const char *> rows[] = {
            {"Nothing(3)", "Missing value transformer for name Nothing(3)"},
            {"ZelEqals(3)", "Missing value transformer for name ZelEqals(3), did you mean \"ZelEquals\"?"},
            {"ZelIsAplicable", "Missing value transformer for name ZelIsAplicable, did you mean \"ZelIsApplicable\"?"},
            {"ZelEquals", "The value transformer ZelEquals needs an argument, as in ZelEquals(3)"},
            {"ZelEquals(3", "The argument of ZelEquals(3 has no closing parenthesis"},
            {"ZelIsApplicable(3)", "The value transformer ZelIsApplicable takes no argument"},
            {"ZelNotEquals()", "ZelNotEquals(): the argument is missing, as in ZelNotEquals(3)"},
            {"ZelIsGreater(Round)", "ZelIsGreater(Round): \"Round\" is no number, as in ZelIsGreater(3)"},
            {"ZelContains(0)", "ZelContains(0): 0 has no bits, as in ZelContains(0x4)"},
            {"ZelIsKind(a b)", "ZelIsKind(a b): \"a b\" is no name of a class, as in ZelIsKind(Rectangle)"},
            {"Times(x)", "Times(x): \"x\" is no number, as in Times(2)"},
        };
        for (const auto &[name, message] : rows) {
            Reports reports;
            const QByteArray text(name);
            reports.collect([&] { slice("<sliver visibleKeyPath='extra' visibleValueTransformer='" + text + "'/>"); });
            reports.collect(
                [&] { slice("<sliver>\n<property type='string' enabledValueTransformer='" + text + "'/></sliver>"); });
            QCOMPARE(reports.messages.join('\n'),
                     QStringLiteral("%1 (Conditions:3:1, <sliver>)\n%1 (Conditions:4:1, <property>)").arg(message));
        }
        ZelTransformerFactory::registerFactory("Times", {}, {});
        QVERIFY(!ZelAbstractValueTransformer::valueTransformerForName("Times(2)"));
    }

    void rowsDependOnTheSelection()
    {
        const QByteArray role = "<sliver visibleKeyPath='people.selection.role' visibleValueTransformer='";
        const auto made =
            slice(role + "ZelEquals(Admin)'/>" + role + "ZelNotEquals(Guest)'/>" +
                  "<sliver visibleKeyPath='people.selection' visibleValueTransformer='ZelIsKind(Figure)'>"
                  "<property type='boolean' keyPath='people.selection.active' enabledKeyPath='people.selection' "
                  "enabledValueTransformer='ZelIsKind(Person)'/></sliver>"
                  "<sliver visibleKeyPath='people.selectedObjects' visibleValueTransformer='ZelIsKind(Person)'/>"
                  "<sliver visibleKeyPath='people.selection.byte' visibleValueTransformer='ZelIsApplicable'/>\n" +
                  role + "ZelEquals(Adnin)'/>");
        QWidget window;
        ZelWindow::attach(&window);
        auto *container = new ZelView(&window);
        container->addSubview(made->view());
        window.show();
        const auto *editor = made->findChild<ZelInspectorBooleanProperty *>();
        const auto shown = [&]() -> QString {
            QCoreApplication::processEvents();
            QString text;
            for (const auto *row : made->sections().first()->sliversAndChoosers())
                text += row->isVisible() ? u'1' : u'0';
            return text + (editor->checkbox()->isEnabled() ? u'e' : u'd');
        };
        Person person;
        Figure figure;
        Figure other;
        other.byte = 1;
        QLabel label;
        const auto select = [&](const QObjectList &objects) -> QString {
            m_owner.controller.setSelectedObjects(objects);
            return shown();
        };
        Reports reports;
        QCOMPARE(select({}), "000000d");
        QCOMPARE(select({&person}), "000100e");
        person.setRole(Person::Admin);
        QCOMPARE(shown(), "110100e");
        QCOMPARE(select({&figure}), "001110e");
        QCOMPARE(select({&figure, &other}), "001110e"); // several values are values
        QCOMPARE(select({&figure, &person}), "000100e");
        QCOMPARE(select({&figure, &label}), "000000d");
        QCOMPARE(select({&label}), "000000d");
        QCOMPARE(select({&figure}), "001110e");
        QCOMPARE(reports.messages.join('\n'), "WARNING: ZelEquals(Adnin) makes no sense for a value of Person::Role, "
                                              "did you mean \"Admin\"? (Conditions:4:1, <sliver>)");
    }
};
QTEST_MAIN(tst_Conditions)
#include "tst_Conditions.moc"
