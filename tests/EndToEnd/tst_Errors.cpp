// SPDX-License-Identifier: MIT
#include "InspectorWindow.h"

#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/Fields/ZelTextField.h"
#include "Controls/ZelCheckBox.h"
#include "Controls/ZelPushButton.h"
#include "Inspector/Properties/ZelInspectorImageEnumerationProperty.h"
#include "Support/Reports.h"

#include <QShortcut>

namespace {

/// A model whose setters and observers may throw.
class Stubborn : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
    Q_PROPERTY(double number READ number WRITE setNumber NOTIFY changed)
    Q_PROPERTY(bool flag READ flag WRITE setFlag NOTIFY changed)
    Q_PROPERTY(bool watched READ watched WRITE setWatched NOTIFY watchedChanged)
    Q_PROPERTY(int kind READ kind WRITE setKind NOTIFY kindChanged)
    Q_PROPERTY(QRectF frame READ frame WRITE setFrame NOTIFY changed)
    Q_PROPERTY(bool fixed READ flag NOTIFY changed)
    Q_PROPERTY(bool oneWay READ isOneWay WRITE setOneWay NOTIFY changed)
public:
    Stubborn()
    {
        connect(this, &Stubborn::watchedChanged, this, [] { throw std::runtime_error("observer"); });
    }

    QString text() const { return QStringLiteral("old"); }
    void setText(const QString &) { refuse(); }
    double number() const { return 7; }
    void setNumber(double) { refuse(); }
    bool flag() const { return false; }
    void setFlag(bool) { refuse(); }
    bool watched() const { return m_watched; }
    void setWatched(bool watched)
    {
        m_watched = watched;
        Q_EMIT watchedChanged();
    }
    int kind() const { return m_kind; }
    void setKind(int kind)
    {
        m_kind = kind;
        Q_EMIT kindChanged();
    }
    QRectF frame() const { return {1, 2, 30, 40}; }
    void setFrame(const QRectF &) { refuse(); }
    bool isOneWay() const { return m_oneWay; }
    void setOneWay(bool oneWay)
    {
        if (!oneWay)
            refuse();
        m_oneWay = true;
        Q_EMIT changed();
    }

Q_SIGNALS:
    void changed();
    void watchedChanged();
    void kindChanged();

private:
    [[noreturn]] static void refuse() { throw std::runtime_error("setter"); }

    bool m_watched = false;
    int m_kind = 0;
    bool m_oneWay = false;
};

QByteArray description(const QByteArray &property)
{
    return "<panes><pane><inspector><slice><section><sliver title='Row'>" + property +
           "</sliver></section></slice></inspector></pane></panes>";
}

/// Uses the row's first control as a person does.
void useControl(const QWidget &window)
{
    if (auto *button = window.findChild<ZelPushButton *>()) {
        QTest::mouseClick(button, Qt::LeftButton);
    } else if (auto *box = window.findChild<ZelCheckBox *>()) {
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    } else {
        QWidget *field = window.findChild<ZelGrowingTextField *>();
        if (!field)
            field = window.findChild<ZelTextField *>();
        QTest::mouseClick(field, Qt::LeftButton);
        QWidget *focus = QApplication::focusWidget();
        QVERIFY(focus);
        QTest::keyClick(focus, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(focus, QStringLiteral("3"));
        QTest::keyClick(focus, Qt::Key_Return);
    }
    InspectorWindow::settle();
}

/// Adds the lines that are logged as errors.
class ErrorLines
{
public:
    explicit ErrorLines(QStringList *lines)
    {
        s_lines = lines;
        m_former = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &line) {
            if (line.startsWith(QStringLiteral("ERROR:")))
                s_lines->append(line);
        });
    }
    ~ErrorLines() { qInstallMessageHandler(m_former); }
    Q_DISABLE_COPY_MOVE(ErrorLines)

private:
    inline static QStringList *s_lines = nullptr;
    QtMessageHandler m_former;
};

/// What the row's first control shows.
QVariant shownValue(const QWidget &window)
{
    if (const auto *box = window.findChild<ZelCheckBox *>())
        return box->isChecked();
    if (const auto *field = window.findChild<ZelGrowingTextField *>())
        return field->objectValue();
    if (const auto *field = window.findChild<ZelTextField *>())
        return field->objectValue();
    return {};
}

} // namespace

/// What is thrown while the event loop calls into the library must not reach it: nobody is there to catch it.
class tst_Errors : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void anEditThatFailsIsReportedAndShowsTheModelsValue_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QString>("message"); // a part of it; empty: none
        QTest::addColumn<QVariant>("shown");
        QTest::addColumn<int>("steps");
        const QByteArray path = " keyPath='people.selection.";
        const auto row = [](const char *name, const QByteArray &property, const char *message, const QVariant &shown,
                            int steps = 0) {
            const QByteArray elements = property.startsWith('<') ? property : "<property " + property + "/>";
            QTest::newRow(name) << elements << QString::fromLatin1(message) << shown << steps;
        };
        row("checkbox, setter", "type='boolean'" + path + "flag'", "setter", false);
        row("checkbox with bits, setter", "type='boolean' bits='1'" + path + "flag'", "setter", false);
        row("text, setter", "type='string'" + path + "text'", "setter", "old");
        row("number, setter", "type='number'" + path + "number'", "setter", 7);
        row("frame, setter", "type='frame'" + path + "frame'", "setter", 1);
        row("two keys for one", "type='boolean' bits='1'" + path + "frame.x'", "frame.x", true);
        row("observer", "type='boolean'" + path + "watched'", "observer", true, 1);
        row("action", "type='action' title='Go' actionSelector='failAction'", "action", {});
        row("action after an edit", "type='boolean' actionSelector='failAction'" + path + "kind'", "action", true, 1);
        row("no WRITE", "type='boolean'" + path + "fixed'", "", false);
        row("no WRITE, bits", "type='boolean' bits='1'" + path + "fixed'", "", false);
        row("no such slot", "type='action' title='Go' actionSelector='noSuchSlot'", "noSuchSlot", {});
        row("no such slot after an edit", "type='boolean' actionSelector='noSuchSlot'" + path + "kind'", "noSuchSlot",
            true, 1);
        row("no such key", "type='boolean'" + path + "nothing'", "", false); // not applicable, and not enabled
        row("a value that an image enumeration does not know",
            "<property type='number'" + path + "kind'/><property type='enumeration' style='segmented'" + path +
                "kind'><option-group><option title='A' value='0'/></option-group></property>",
            "3", 3, 1);
    }
    void anEditThatFailsIsReportedAndShowsTheModelsValue()
    {
        QFETCH(QByteArray, property);
        QFETCH(QString, message);
        QFETCH(QVariant, shown);
        QFETCH(int, steps);
        Reports reports;
        Stubborn model;
        InspectorWindow window(description(property));
        window.owner->controller.setSelectedObjects({&model});
        InspectorWindow::settle();
        reports.messages.clear();
        const ErrorLines lines(&reports.messages);
        useControl(window);
        QVERIFY2(reports.messages.size() == !message.isEmpty(), qPrintable(reports.messages.join(u'|')));
        QVERIFY2(reports.messages.join(u'|').contains(message), qPrintable(reports.messages.join(u'|')));
        QCOMPARE(shownValue(window), shown);
        QCOMPARE(window.stack.count(), steps);
    }

    /// Undone by a key, through the manager or on the stack itself.
    void aStepThatFailsIsReported_data()
    {
        QTest::addColumn<bool>("byManager");
        QTest::newRow("manager") << true;
        QTest::newRow("stack") << false;
    }
    void aStepThatFailsIsReported()
    {
        QFETCH(bool, byManager);
        Stubborn model;
        InspectorWindow window(
            description("<property type='boolean' keyPath='people.selection.oneWay' actionName='Switch'/>"));
        window.owner->controller.setSelectedObjects({&model});
        InspectorWindow::settle();
        const QShortcut shortcut(QKeySequence::Undo, &window);
        if (byManager)
            connect(&shortcut, &QShortcut::activated, ZelUndoManager::forWidget(&window), &ZelUndoManager::undo);
        else
            connect(&shortcut, &QShortcut::activated, &window.stack, &QUndoStack::undo);
        useControl(window);
        QCOMPARE(window.stack.index(), 1);
        const Reports reports;
        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
        InspectorWindow::settle();
        QCOMPARE(reports.messages, QStringList("Undo \"Switch\": setter"));
        QCOMPARE(reports.places.constFirst().element, QStringLiteral("property"));
        QVERIFY(model.isOneWay() && shownValue(window).toBool());
        QCOMPARE(window.stack.index(), 0);
    }

    void aRefreshThatFailsIsReported()
    {
        Stubborn model;
        InspectorWindow window(description("<property type='enumeration' style='segmented' "
                                           "keyPath='people.selection.kind'><option-group><option title='A' value='0'/>"
                                           "</option-group></property>"));
        window.owner->controller.setSelectedObjects({&model});
        InspectorWindow::settle();
        const Reports reports;
        model.setKind(77);
        InspectorWindow::settle();
        QCOMPARE(reports.messages.size(), 1);
    }

    void typingIsTakenBeforeAStep_data()
    {
        QTest::addColumn<QString>("by");
        QTest::addColumn<QString>("undone");
        QTest::newRow("manager") << "manager"
                                 << "second";
        QTest::newRow("the application's stack") << "stack"
                                                 << "first";
    }
    void typingIsTakenBeforeAStep()
    {
        QFETCH(QString, by);
        QFETCH(QString, undone);
        InspectorWindow window(description("<property type='string' keyPath='people.selection.name'/>"));
        Person &person = *window.people[0];
        person.setName(QStringLiteral("first"));
        window.select({0});
        auto *field = window.findChild<ZelGrowingTextField *>();
        QTest::mouseClick(field, Qt::LeftButton);
        const auto type = [](const QString &text) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(QApplication::focusWidget(), text);
        };
        type(QStringLiteral("second"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        type(QStringLiteral("third"));
        QCOMPARE(person.name(), QStringLiteral("second"));
        if (by == "manager")
            ZelUndoManager::forWidget(&window)->undo();
        else
            window.stack.undo();
        QCOMPARE(person.name(), undone);
        window.stack.redo();
        QCOMPARE(person.name(), QStringLiteral("third"));
        while (window.stack.canUndo())
            window.stack.undo();
        QCOMPARE(person.name(), QStringLiteral("first"));
        InspectorWindow::settle();
        QCOMPARE(field->objectValue(), QStringLiteral("first"));
    }

    /// The application's command is the one that runs, and its stack must not be touched meanwhile.
    void typingIsTakenWhenACommandChangesTheSelection()
    {
        class Select : public QUndoCommand
        {
        public:
            Select(ZelObjectController &controller, Person *before, Person *after)
                : m_controller(controller)
                , m_before(before)
                , m_after(after)
            {
            }
            void undo() override { m_controller.setSelectedObjects({m_before}); }
            void redo() override { m_controller.setSelectedObjects({m_after}); }

        private:
            ZelObjectController &m_controller;
            Person *m_before;
            Person *m_after;
        };
        InspectorWindow window(description("<property type='string' keyPath='people.selection.name'/>"));
        Person &first = *window.people[0];
        Person &second = *window.people[1];
        window.select({0});
        window.stack.push(new Select(window.owner->controller, &first, &second));
        window.stack.undo();
        InspectorWindow::settle();
        QTest::mouseClick(window.findChild<ZelGrowingTextField *>(), Qt::LeftButton);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("typed"));
        window.stack.redo();
        InspectorWindow::settle();
        QCOMPARE(first.name(), QStringLiteral("typed"));
        QCOMPARE(second.name(), QStringLiteral("P1"));
        QCOMPARE(window.stack.count(), 2);
        window.stack.undo();
        QCOMPARE(first.name(), QStringLiteral("P0"));
    }
};

QTEST_MAIN(tst_Errors)
#include "tst_Errors.moc"
