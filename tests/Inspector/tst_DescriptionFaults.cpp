// SPDX-License-Identifier: MIT
#include "Inspector/Descriptions.h"

#include "Inspector/ZelInspectorSlice.h"
#include "Platform/Controls/ZelCheckBox.h"
#include "Platform/Runtime/ZelExceptionReporter.h"
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
        } catch (const std::exception &exception) {
            messages.append(QString::fromUtf8(exception.what()));
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

} // namespace

/// A description that does not fit the application: every message says where.
class tst_DescriptionFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void messagesNameTheElement_data();
    void messagesNameTheElement();
    void editorsOutliveTheirOwner();

private:
    Descriptions m_files;
    std::unique_ptr<EditorOwner> m_owner;
    std::unique_ptr<Person> m_person;
};

void tst_DescriptionFaults::init()
{
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
        {"option", "<section><sliver><property type='enumeration' keyPath='people.selection.flags'><option-group>\n\n"
                   "<option value='beta'/></option-group></property></sliver></section>"},
        {"option", "<section><sliver><property type='enumeration' keyPath='people.selection.role'><option-group>"
                   "<option value='Guest'/>\n\n<option value='guest'/></option-group></property></sliver></section>"},
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
        reports.collect([] { QCoreApplication::processEvents(); });
    }
    QVERIFY(!reports.messages.isEmpty());
    const QRegularExpression place(QStringLiteral("\\(.*/Faulty\\.xml:3:1, <%1>\\)$").arg(element));
    for (const QString &message : std::as_const(reports.messages))
        QVERIFY2(place.match(message).hasMatch(), qPrintable(message));
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
