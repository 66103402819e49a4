// SPDX-License-Identifier: MIT
#include "Inspector/Descriptions.h"

#include "Controls/ZelCheckBox.h"
#include "Core/Errors/ZelExceptionReporter.h"
#include "Inspector/ZelInspectorPane.h"
#include "Inspector/ZelInspectorSlice.h"
#include "Support/EditorOwner.h"
#include "Support/Person.h"

#include <QAbstractButton>
#include <QRegularExpression>

namespace {

/// Everything that is reported while it exists: exceptions, log lines of the library, and what nobody catches.
class Reports : public ZelExceptionReporter
{
public:
    Reports()
        : m_former(setCurrent(this))
        , m_formerHandler(qInstallMessageHandler(&Reports::handle))
    {
        s_current = this;
    }
    ~Reports() override
    {
        qInstallMessageHandler(m_formerHandler);
        setCurrent(m_former);
        s_current = nullptr;
    }

    template<typename Work> void collect(Work work)
    {
        try {
            work();
        } catch (const ZelException &exception) {
            messages.append(QString::fromUtf8(exception.what()));
        } catch (const std::runtime_error &) { // knows no place: a line of the log is to tell it
        }
    }
    void reportException(const QString &message, const ZelSourcePlace &place) override
    {
        messages.append(place.appendedTo(message));
    }

    QStringList messages;

private:
    static void handle(QtMsgType, const QMessageLogContext &context, const QString &message)
    {
        if (qstrcmp(context.category, "zel") == 0)
            s_current->messages.append(message);
    }

    ZelExceptionReporter *m_former;
    QtMessageHandler m_formerHandler;
    static inline Reports *s_current = nullptr;
};

/// An application's, with a fault in it.
class Failing : public ZelAbstractValueTransformer
{
public:
    QVariant transformedValue(const QVariant &) const override { throw std::runtime_error("transformer"); }
};

} // namespace

/// A description that does not fit the application: every message says where.
class tst_DescriptionFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void messagesNameTheElement_data();
    void messagesNameTheElement();
    void mistakesAreReportedOnce_data();
    void mistakesAreReportedOnce();
    void keysThatNoSelectedObjectHasAreReportedOnce_data();
    void keysThatNoSelectedObjectHasAreReportedOnce();
    void editorsOutliveTheirOwner();

private:
    Descriptions m_files;
    std::unique_ptr<EditorOwner> m_owner;
    std::unique_ptr<Person> m_person;
};

void tst_DescriptionFaults::init()
{
    ZelAbstractValueTransformer::setValueTransformer(QSharedPointer<Failing>::create(), QStringLiteral("Failing"));
    m_owner = std::make_unique<EditorOwner>();
    m_owner->extra = QStringLiteral("text");
    m_owner->values = {1, 2};
    m_person = std::make_unique<Person>();
    m_owner->controller.setSelectedObjects({m_person.get()});
}

void tst_DescriptionFaults::messagesNameTheElement_data()
{
    QTest::addColumn<QByteArray>("text"); // the element at fault begins line 3
    QTest::addColumn<QString>("element");
    const auto property = [](const char *attributes, const char *children = "") {
        QTest::newRow(attributes) << "<section><sliver>\n\n<property " + QByteArray(attributes) + ">" + children +
                                         "</property></sliver></section>"
                                  << QStringLiteral("property");
    };
    for (const char *type : {"boolean", "number", "string", "string' attributed='yes", "enumeration", "color", "date",
                             "resource", "frame", "size"}) {
        property(qPrintable(QStringLiteral("type='%1' keyPath='missing'").arg(QLatin1String(type))));
        property(qPrintable(QStringLiteral("type='%1' keyPath='people.selection.active' enabledKeyPath='missing.key'")
                                .arg(QLatin1String(type))));
    }
    property("type='boolean' keyPath='people.selection.active' actionSelector='missing'");
    property("type='action' title='Act' actionSelector='missing'");
    property("type='action' title='Act' actionSelector='deleteLater'");
    property("type='custom' class='ZelInspectorArrayProperty' keyPath='people.selection.name'");
    property("type='boolean' titleKeyPath='people.missing'");
    property("type='number' keyPath='extra' valueTransformer='ZelPercentValueTransformerName'");
    property("type='number' keyPath='people.selection.height' minimumKeyPath='missing'");
    property("type='action' menuItemsKeyPath='missing'");
    property("type='enumeration' enumeratedValuesKeyPath='missing' enumeratedDisplayValuesKeyPath='names'");
    property("type='enumeration'",
             "<option-group enumeratedValuesKeyPath='missing' enumeratedDisplayValuesKeyPath='names'/>");
    property("type='enumeration' style='segmented' keyPath='people.selection.flags'",
             "<option-group><option value='7'/></option-group>");
    property("type='resource' resourcesKeyPath='missing'");
    property("type='frame' keyPath='people.selection.frame' flippedKeyPath='missing'");

    // A transformer's exception, and a key behind a value
    for (const char *type : {"number", "string", "boolean", "resource", "frame", "enumeration", "color", "date"}) {
        property(qPrintable(QStringLiteral("type='%1' keyPath='people.selection.note' valueTransformer='Failing'")
                                .arg(QLatin1String(type))));
        property(
            qPrintable(QStringLiteral("type='%1' keyPath='people.selection.flags.more'").arg(QLatin1String(type))));
    }
    property("type='number' keyPath='people.selection.height' enabledKeyPath='people.selection.active' "
             "enabledValueTransformer='Failing'");

    // Editors that write a single key
    property("type='boolean' keyPath='people.selection.friendOf.active'");
    property("type='enumeration' keyPath='people.selection.friendOf.flags'");
    property("type='frame' keyPath='people.friendOf.frame'");

    const std::pair<const char *, const char *> containers[] = {
        {"slice", "\n\n<slice visibleKeyPath='missing'/>"},
        {"section", "\n\n<section visibleKeyPath='people.missing'/>"},
        {"sliver", "<section>\n\n<sliver title='Row' visibleKeyPath='missing'/></section>"},
        {"chooser", "<section>\n\n<chooser keyPath='missing'><choice/></chooser></section>"},
        {"chooser", "<section>\n\n<chooser visibleKeyPath='extra' "
                    "visibleValueTransformer='ZelPercentValueTransformerName'/></section>"},
        {"section", "\n\n<section visibleKeyPath='people.selection.flags' visibleValueTransformer='Failing'/>"},
        {"slice", "\n\n<slice visibleKeyPath='people.selection.flags' visibleValueTransformer='Failing'/>"},
        {"slice", "\n\n<slice visibleKeyPath='people.selection.flags.more'/>"},
        {"option", "<section><sliver><property type='enumeration' keyPath='people.selection.flags'><option-group>\n\n"
                   "<option value='beta'/></option-group></property></sliver></section>"},
        {"option", "<section><sliver><property type='enumeration' keyPath='people.selection.role'><option-group>"
                   "<option value='Guest'/>\n\n<option value='guest'/></option-group></property></sliver></section>"},
        {"option", "<section><sliver><property type='enumeration'><option-group>\n\n"
                   "<option image='Nope'/></option-group></property></sliver></section>"},
        {"choice",
         "<section><chooser keyPath='people.selection.flags'>\n\n<choice value='12abc'/></chooser></section>"},
        {"sliver", "<section><chooser keyPath='people.selection.flags'><choice>\n\n"
                   "<sliver visibleKeyPath='missing'/></choice></chooser></section>"},
    };
    for (const auto &[element, text] : containers)
        QTest::newRow(text) << QByteArray(text) << element;
}

void tst_DescriptionFaults::messagesNameTheElement()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, element);
    if (!text.startsWith("\n\n<slice"))
        text = "<slice>" + text + "</slice>";
    ZelDeclarativeInspectorGenerator generator;
    generator.setOwner(m_owner.get());
    generator.setUrl(m_files.write(QStringLiteral("Faulty.xml"), text));

    Reports reports;
    std::unique_ptr<ZelInspectorSlice> root;
    QWidget window;
    auto *container = new ZelView(&window);
    window.show();
    reports.collect([&] { root.reset(generator.createSlice()); });
    if (root) {
        reports.collect([&] { container->addSubview(root->view()); });
        for (QAbstractButton *button : root->view()->findChildren<QAbstractButton *>())
            reports.collect([&] { button->click(); });
        reports.collect([&] { m_owner->extraChanged(); });
        Person other;
        other.setFlags(1);
        reports.collect([&] { m_owner->controller.setSelectedObjects({&other}); });
        reports.collect([&] { m_owner->controller.setSelectedObjects({}); });
        reports.collect([] { QCoreApplication::processEvents(); });
    }
    QVERIFY(!reports.messages.isEmpty());
    const QRegularExpression place(QStringLiteral("\\(.*/Faulty\\.xml:3:1, <%1>\\)$").arg(element));
    for (const QString &message : std::as_const(reports.messages))
        QVERIFY2(place.match(message).hasMatch(), qPrintable(message));
}

void tst_DescriptionFaults::mistakesAreReportedOnce_data()
{
    QTest::addColumn<QByteArray>("text"); // the element at fault begins line 3
    QTest::addColumn<QString>("message"); // null: none
    const auto property = [](const char *attributes, const char *message) {
        QTest::newRow(attributes) << "<slice><section><sliver>\n\n<property " + QByteArray(attributes) +
                                         "/></sliver></section></slice>"
                                  << (message ? QString::fromUtf8(message) + u'|' + u"property" : QString());
    };
    property("type='string' keypath='extra'",
             "Unknown attribute \"keypath\" of <property type=\"string\">, did you mean \"keyPath\"?");
    property("type='string' actonName='Act'",
             "Unknown attribute \"actonName\" of <property type=\"string\">, did you mean \"actionName\"?");
    property("type='string' slider='linear'", "Unknown attribute \"slider\" of <property type=\"string\">");
    property("type='point' titel='X'", "Unknown attribute \"titel\" of <property type=\"point\">");
    property("type='custom' pattern='x' subtitle='y'", nullptr);
    property("type='custom' keypath='extra'",
             "Unknown attribute \"keypath\" of <property type=\"custom\">, did you mean \"keyPath\"?");
    property("type='string' xmlns:own='own' own:pattern='x'", nullptr);

    property("type='number' maximum='ten'", "maximum=\"ten\" is no number");
    property("type='number' maximum='10px'", "maximum=\"10px\" is no number");
    property("type='number' maximum='nan'", "maximum=\"nan\" is no number");
    property("type='number' minimum='10' maximum='1'", "The minimum 10 is above the maximum 1");
    property("type='number' maximum='-1'", "The minimum 0 is above the maximum -1");
    property("type='number' minimum='-1e2' maximum=' .5' increment='0.25'", nullptr);
    property("type='frame' increment='0'", "increment=\"0\" is not above 0");
    property("type='size' increment='-1'", "increment=\"-1\" is not above 0");
    property("type='boolean' bits='one'", "bits=\"one\" is no integer of 64 bits");
    property("type='boolean' bits='0xFFFFFFFFFFFFFFFFF'", "bits=\"0xFFFFFFFFFFFFFFFFF\" is no integer of 64 bits");
    property("type='boolean' bits='0XFFFFFFFFFFFFFFFF'", nullptr);
    property("type='enumeration' bitMask='x'", "bitMask=\"x\" is no integer of 64 bits");
    property("type='color' defaultColor='NSCalibratedRGBColorSpace 1'",
             "defaultColor=\"NSCalibratedRGBColorSpace 1\" has 1 components instead of 4");
    property("type='color' defaultColor='NSDeviceWhiteColorSpace 1 x'",
             "defaultColor=\"NSDeviceWhiteColorSpace 1 x\" has components that are no numbers from 0 to 1");
    property("type='color' defaultColor='NSDeviceCMYKColorSpace 1 0 0 0.5 1'", nullptr);
    property("type='string' enabled='maybe'", "enabled=\"maybe\" is neither yes nor no");
    property("type='string' enabled='NO' editable='True'", nullptr);
    property("type='string' keyPath='people.selection.'",
             "keyPath=\"people.selection.\" has an empty name in its path");

    const struct
    {
        const char *element;
        const char *message;
        const char *text;
    } others[] = {
        {"sektion", "Unknown element <sektion> in <slice>, did you mean \"section\"?", "<slice>\n\n<sektion/></slice>"},
        {"poperty", "Unknown element <poperty> in <sliver>, did you mean \"property\"?",
         "<slice><section><sliver>\n\n<poperty/></sliver></section></slice>"},
        {"property", "Unknown element <property> in <chooser>",
         "<slice><section><chooser>\n\n<property type='string'/></chooser></section></slice>"},
        {"opt", "Unknown element <opt> in <option-group>",
         "<slice><section><sliver><property type='enumeration'><option-group>\n\n"
         "<opt/></option-group></property></sliver></section></slice>"},
        {"option", "value=\"0x41\" has bits outside of the bitMask 0x30",
         "<slice><section><sliver><property type='enumeration' bitMask='0x30'><option-group><option value='0x10'/>\n\n"
         "<option value='0x41'/></option-group></property></sliver></section></slice>"},
        {"section", "file=\"Nope.xml\" is no resource of the application",
         "<slice>\n\n<section file='Nope.xml'/></slice>"},
    };
    for (const auto &[element, message, text] : others)
        QTest::newRow(message) << QByteArray(text) << QString::fromUtf8(message) + u'|' + QLatin1String(element);
}

void tst_DescriptionFaults::mistakesAreReportedOnce()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    const QUrl url = m_files.write(QStringLiteral("Faulty.xml"), text);
    ZelDeclarativeInspectorGenerator generator;
    generator.setOwner(m_owner.get());
    generator.setUrl(
        m_files.write(QStringLiteral("Twice.xml"),
                      "<pane><inspector><slice file='Faulty.xml'/><slice file='Faulty.xml'/></inspector></pane>"));

    Reports reports;
    reports.collect([&] { std::unique_ptr<ZelInspectorPane>(generator.createPane()); });
    QStringList expected;
    if (!message.isNull())
        expected.append(QStringLiteral("WARNING: %1 (%2:3:1, <%3>)")
                            .arg(message.section(u'|', 0, 0), QFileInfo(url.toLocalFile()).canonicalFilePath(),
                                 message.section(u'|', 1)));
    QCOMPARE(reports.messages, expected);
}

void tst_DescriptionFaults::keysThatNoSelectedObjectHasAreReportedOnce_data()
{
    QTest::addColumn<QByteArray>("type");
    for (const char *type : {"boolean", "number", "string", "string' attributed='yes", "enumeration", "color", "date",
                             "font", "resource", "frame", "size", "custom' class='ZelInspectorArrayProperty"})
        QTest::newRow(type) << QByteArray(type);
}

void tst_DescriptionFaults::keysThatNoSelectedObjectHasAreReportedOnce()
{
    QFETCH(QByteArray, type);
    QObject plain;
    QObject otherPlain;
    ZelDeclarativeInspectorGenerator generator;
    generator.setOwner(m_owner.get());
    const QByteArray property = "<property type='" + type + "' keyPath='people.selection.";
    generator.setUrl(m_files.write(QStringLiteral("Keys.xml"),
                                   "<slice><section><sliver>\n" + property + "nmae'/></sliver><sliver>\n" + property +
                                       "silent'/></sliver><sliver visibleKeyPath='unlocked'>\n" + property +
                                       "hidden'/></sliver></section></slice>"));
    m_owner->setUnlocked(false);
    m_owner->controller.setSelectedObjects({});

    Reports reports;
    const std::unique_ptr<ZelInspectorSlice> root(generator.createSlice());
    QWidget window;
    auto *container = new ZelView(&window);
    window.show();
    container->addSubview(root->view());
    const auto linesOf = [&](const QList<QObject *> &objects) {
        reports.messages.clear();
        m_owner->controller.setSelectedObjects(objects);
        QCoreApplication::processEvents();
        return reports.messages.filter(QStringLiteral("No selected object")).join(u'\n');
    };
    QCOMPARE(linesOf({}), QString());
    const QString first = linesOf({&plain, m_person.get()}); // of which one has the second key
    QVERIFY2(first.startsWith(u"WARNING: No selected object has the property \"nmae\" ("), qPrintable(first));
    QVERIFY2(first.endsWith(u"/Keys.xml:2:1, <property>)"), qPrintable(first));
    QCOMPARE(linesOf({&plain}), QString());
    QCOMPARE(linesOf({&otherPlain, &plain}), QString());
    root->view()->setParent(nullptr);
    container->addSubview(root->view());
    QCOMPARE(linesOf({m_person.get()}), QString());
    m_owner->setUnlocked(true);
    QVERIFY(linesOf({&plain}).contains(u"\"hidden\""));
}

void tst_DescriptionFaults::editorsOutliveTheirOwner()
{
    QByteArray text =
        "<slice><section><chooser title='Kind' keyPath='people.selection.flags'><choice><sliver/></choice></chooser>";
    for (const QByteArray type :
         {"boolean", "action", "action' menuItemsKeyPath='menu", "number", "string", "string' attributed='yes",
          "enumeration", "enumeration' style='segmented", "color", "date", "font", "resource", "frame", "size",
          "custom' class='ZelInspectorArrayProperty"})
        text += "<sliver><property type='" + type + "' keyPath='people.selection.name'/></sliver>";
    ZelDeclarativeInspectorGenerator generator;
    generator.setOwner(m_owner.get());
    generator.setUrl(m_files.write(QStringLiteral("All.xml"), text + "</section></slice>"));
    const std::unique_ptr<ZelInspectorSlice> root(generator.createSlice());
    m_owner.reset();

    Reports reports;
    QWidget window;
    auto *container = new ZelView(&window);
    window.show();
    reports.collect([&] { container->addSubview(root->view()); });
    for (QAbstractButton *button : root->view()->findChildren<QAbstractButton *>())
        reports.collect([&] { button->click(); });
    reports.collect([] { QCoreApplication::processEvents(); });
    QCOMPARE(reports.messages, QStringList());
}

QTEST_MAIN(tst_DescriptionFaults)
#include "tst_DescriptionFaults.moc"
