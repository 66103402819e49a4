// SPDX-License-Identifier: MIT
#include "Inspector/Descriptions.h"

namespace {
/// An application's, with a fault in it.
class Failing : public ZelAbstractValueTransformer
{
public:
    QVariant transformedValue(const QVariant &) const override { throw std::runtime_error("transformer"); }
};

QByteArray options(const QByteArray &attributes, const QByteArray &text)
{
    return "<slice><section><sliver><property type='enumeration' " + attributes + "><option-group>\n\n" + text +
           "</option-group></property></sliver></section></slice>";
}

QByteArray replaced(QByteArray text, const char *type)
{
    return text.replace('%', type);
}
} // namespace

/// A description that does not fit the application: every message says where.
class tst_DescriptionFaults : public QObject
{
    Q_OBJECT
    std::unique_ptr<ZelInspectorSlice> makeSlice(const QByteArray &text)
    {
        ZelDeclarativeInspectorGenerator generator;
        generator.setOwner(m_owner.get());
        generator.setUrl(m_files.write("Faulty.xml", text));
        return std::unique_ptr<ZelInspectorSlice>(generator.createSlice());
    }
    /// Shows the slice, and uses all of its buttons.
    void use(ZelInspectorSlice *slice, Reports &reports)
    {
        m_container = new ZelView(m_window.get());
        m_window->show();
        reports.collect([&] { m_container->addSubview(slice->view()); });
        for (QAbstractButton *button : slice->view()->findChildren<QAbstractButton *>())
            reports.collect([&] { button->click(); });
        reports.collect([] { QCoreApplication::processEvents(); });
    }

    Descriptions m_files;
    std::unique_ptr<EditorOwner> m_owner;
    std::unique_ptr<Person> m_person;
    std::unique_ptr<QWidget> m_window;
    ZelView *m_container = nullptr;

private Q_SLOTS:
    void init()
    {
        ZelAbstractValueTransformer::setValueTransformer(QSharedPointer<Failing>::create(), "Failing");
        m_owner = std::make_unique<EditorOwner>();
        m_owner->extra = "text";
        m_owner->values = {1, 2};
        m_person = std::make_unique<Person>();
        m_owner->controller.setSelectedObjects({m_person.get()});
        m_window = std::make_unique<QWidget>();
    }

    void messagesNameTheElement()
    {
        QByteArrayList properties{
            "type='boolean' keyPath='people.selection.active' actionSelector='missing'",
            "type='action' title='Act' actionSelector='missing'",
            "type='action' title='Act' actionSelector='deleteLater'",
            "type='custom' class='ZelInspectorArrayProperty' keyPath='people.selection.name'",
            "type='boolean' titleKeyPath='people.missing'",
            "type='number' keyPath='extra' valueTransformer='ZelPercentValueTransformerName'",
            "type='number' keyPath='people.selection.height' minimumKeyPath='missing'",
            "type='action' menuItemsKeyPath='missing'",
            "type='enumeration' enumeratedValuesKeyPath='missing' enumeratedDisplayValuesKeyPath='names'",
            "type='enumeration'><option-group enumeratedValuesKeyPath='missing' "
            "enumeratedDisplayValuesKeyPath='names'/></property><property type='custom'",
            "type='enumeration' style='segmented' keyPath='people.selection.flags'><option-group>"
            "<option value='7'/></option-group></property><property type='custom'",
            "type='resource' resourcesKeyPath='missing'",
            "type='frame' keyPath='people.selection.frame' flippedKeyPath='missing'",
            "type='number' keyPath='people.selection.height' enabledKeyPath='people.selection.active' "
            "enabledValueTransformer='Failing'",
            // Editors that write a single key
            "type='boolean' keyPath='people.selection.friendOf.active'",
            "type='enumeration' keyPath='people.selection.friendOf.flags'",
            "type='frame' keyPath='people.friendOf.frame'",
        };
        for (const char *type : {"boolean", "number", "string", "string' attributed='yes", "enumeration", "color",
                                 "date", "resource", "frame", "size"}) {
            properties += replaced("type='%' keyPath='missing'", type);
            properties += replaced("type='%' keyPath='people.selection.active' enabledKeyPath='missing.key'", type);
        }
        // A transformer's exception, and a key behind a value
        for (const char *type : {"number", "string", "boolean", "resource", "frame", "enumeration", "color", "date"}) {
            properties += replaced("type='%' keyPath='people.selection.note' valueTransformer='Failing'", type);
            properties += replaced("type='%' keyPath='people.selection.flags.more'", type);
        }
        QList<std::pair<const char *, QByteArray>> rows{
            // The element at fault begins line 3.
            {"slice", "\n\n<slice visibleKeyPath='missing'/>"},
            {"slice", "\n\n<slice visibleKeyPath='people.selection.flags' visibleValueTransformer='Failing'/>"},
            {"slice", "\n\n<slice visibleKeyPath='people.selection.flags.more'/>"},
            {"section", "<slice>\n\n<section visibleKeyPath='people.missing'/></slice>"},
            {"section", "<slice>\n\n<section visibleKeyPath='extra' visibleValueTransformer='Failing'/></slice>"},
            {"sliver", inSection("<sliver title='Row' visibleKeyPath='missing'/>")},
            {"sliver", "<slice><section><chooser keyPath='people.selection.flags'><choice>\n\n"
                       "<sliver visibleKeyPath='missing'/></choice></chooser></section></slice>"},
            {"chooser", inSection("<chooser keyPath='missing'><choice/></chooser>")},
            {"chooser", inSection("<chooser visibleKeyPath='extra' "
                                  "visibleValueTransformer='ZelPercentValueTransformerName'/>")},
            {"choice", "<slice><section><chooser keyPath='people.selection.flags'>\n\n<choice value='12abc'/>"
                       "</chooser></section></slice>"},
            {"option", options("keyPath='people.selection.flags'", "<option value='beta'/>")},
            {"option", options("keyPath='people.selection.role'", "<option value='guest'/>")},
            {"option", options({}, "<option image='Nope'/>")},
        };
        for (const QByteArray &attributes : std::as_const(properties))
            rows.append({"property", inSliver("<property " + attributes + "/>")});
        for (const auto &[element, text] : std::as_const(rows)) {
            init();
            Reports reports;
            std::unique_ptr<ZelInspectorSlice> slice;
            reports.collect([&, xml = text] { slice = makeSlice(xml); });
            if (slice) {
                use(slice.get(), reports);
                reports.collect([&] { m_owner->extraChanged(); });
                Person other;
                other.setFlags(1);
                for (const QObjectList &selected : {QObjectList{&other}, QObjectList()})
                    reports.collect([&] { m_owner->controller.setSelectedObjects(selected); });
                reports.collect([] { QCoreApplication::processEvents(); });
            }
            QVERIFY2(!reports.messages.isEmpty(), text);
            const QRegularExpression place(QStringLiteral("\\(.*/Faulty\\.xml:3:1, <%1>\\)$").arg(element));
            for (const QString &message : std::as_const(reports.messages))
                QVERIFY2(place.match(message).hasMatch(), qPrintable(text + "\n" + message));
        }
    }

    void mistakesAreReportedOnce()
    {
        const auto unknown = [](const char *name, const char *in, const char *meant = nullptr) {
            const QString question = meant ? QStringLiteral(", did you mean \"%1\"?").arg(meant) : QString();
            return QStringLiteral("Unknown attribute \"%1\" of <property type=\"%2\">%3").arg(name, in, question);
        };
        QList<std::pair<QByteArray, QString>> properties{
            {"type='string' kyePtahXy='extra'", unknown("kyePtahXy", "string")},
            {"type='custom' pattern='x' subtitle='y'", {}},
            {"type='custom' keypath='extra'", unknown("keypath", "custom", "keyPath")},
            {"type='number' maximum='nan'", "maximum=\"nan\" is no number"},
            {"type='number' maximum='-1'", "The minimum 0 is above the maximum -1"},
            {"type='number' minimum='1' maximum='1'", {}},
            {"type='number' minimum='-1e2' maximum=' .5' increment='0.25'", {}},
            {"type='boolean' bits='0xFFFFFFFFFFFFFFFFF'", "bits=\"0xFFFFFFFFFFFFFFFFF\" is no integer of 64 bits"},
            {"type='color' defaultColor='NSDeviceWhiteColorSpace 1 x'",
             "defaultColor=\"NSDeviceWhiteColorSpace 1 x\" has components that are no numbers from 0 to 1"},
            {"type='color' defaultColor='NSDeviceCMYKColorSpace 1 0 0 0.5 1'", {}},
            {"type='enumeration' enabled='NO' editable='True' bitMask='0XFFFFFFFFFFFFFFFF' xmlns:o='o' o:pattern='x'",
             {}},
            {"type='string' keyPath='extra.'", "keyPath=\"extra.\" has an empty name in its path"},
            {"type='string' keyPath='.extra'", "keyPath=\".extra\" has an empty name in its path"},
        };
        QList<std::tuple<const char *, QString, QByteArray>> rows{
            // The element at fault begins line 3.
            {"opt", "Unknown element <opt> in <option-group>", options({}, "<opt/>")},
            {"choice", "The value \"a\" is given to several elements <choice>",
             "<slice><section><chooser><choice value='a'/><choice value='A'/>\n\n<choice "
             "value='a'/></chooser></section>"
             "</slice>"},
        };
        for (const auto &[attributes, message] : std::as_const(properties))
            rows.append({"property", message, inSliver("<property " + attributes + "/>")});
        for (const auto &[element, message, text] : std::as_const(rows)) {
            const QString file = QFileInfo(m_files.write("Faulty.xml", text).toLocalFile()).canonicalFilePath();
            ZelDeclarativeInspectorGenerator generator;
            generator.setOwner(m_owner.get());
            generator.setUrl(m_files.write("Twice.xml", "<pane><inspector><slice file='Faulty.xml'/>"
                                                        "<slice file='Faulty.xml'/></inspector></pane>"));
            Reports reports;
            reports.collect([&] { std::unique_ptr<ZelInspectorPane>(generator.createPane()); });
            QCOMPARE(reports.messages.join('\n'),
                     message.isEmpty() ? QString()
                                       : QStringLiteral("WARNING: %1 (%2:3:1, <%3>)").arg(message, file, element));
        }
    }

    void optionsAreCheckedInEveryRow()
    {
        const auto row = [](const QByteArray &attributes, const QByteArray &second) -> QByteArray {
            return "\n<sliver><property type='enumeration'" + attributes +
                   "><option-group><option value='1'/><option value='" + second +
                   "'/></option-group></property></sliver>";
        };
        const QByteArray rows = row({}, "2") + row({}, "1") + row({}, "1") + row({}, "2") + row(" bitMask='1'", "2") +
                                row(" bitMask='1'", "2");
        Reports reports;
        reports.collect([&] { makeSlice("<slice><section>" + rows + "</section></slice>"); });
        QStringList lines;
        for (const QString &message : std::as_const(reports.messages))
            lines.append(message.section(':', -2, -2));
        QCOMPARE(lines.join(' '), "3 4 6 7");
    }

    void keysThatNoSelectedObjectHasAreReportedOnce()
    {
        for (const QByteArray type :
             {"boolean", "number", "string", "string' attributed='yes", "enumeration", "color", "date", "font",
              "resource", "frame", "size", "custom' class='ZelInspectorArrayProperty"}) {
            init();
            QObject plain;
            QObject otherPlain;
            const auto row = [&](const QByteArray &key, const QByteArray &attributes = {}) -> QByteArray {
                return "<sliver" + attributes + ">\n<property type='" + type + "' keyPath='people.selection." + key +
                       "'/></sliver>";
            };
            m_owner->setUnlocked(false);
            m_owner->controller.setSelectedObjects({});
            Reports reports;
            const auto slice = makeSlice("<slice><section>" + row("nmae") + row("silent") +
                                         row("hidden", " visibleKeyPath='unlocked'") + "</section></slice>");
            use(slice.get(), reports);
            const QString none = QString(type) + ": ";
            const auto linesOf = [&](const QObjectList &objects) -> QString {
                reports.messages.clear();
                m_owner->controller.setSelectedObjects(objects);
                QCoreApplication::processEvents();
                const QString lines = reports.messages.filter("No selected object").join('\n');
                return none + QString(lines).remove(QRegularExpression("file.*/|/.*/"));
            };
            QCOMPARE(linesOf({}), none);
            QCOMPARE(linesOf({&plain, m_person.get()}), // of which one has the second key
                     none + "WARNING: No selected object has the property \"nmae\" (Faulty.xml:2:1, <property>)");
            QCOMPARE(linesOf({&plain}), none);
            QCOMPARE(linesOf({&otherPlain, &plain}), none);
            slice->view()->setParent(nullptr);
            m_container->addSubview(slice->view());
            QCOMPARE(linesOf({m_person.get()}), none);
            m_owner->setUnlocked(true);
            QVERIFY2(linesOf({&plain}).contains("\"hidden\""), type);
        }
    }
};
QTEST_MAIN(tst_DescriptionFaults)
#include "tst_DescriptionFaults.moc"
