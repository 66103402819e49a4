// SPDX-License-Identifier: MIT
#include "Core/Undo/ZelUndoManager.h"
#include "FigureSheet.h"
#include "Support/Reports.h"

namespace {
/// A model whose setters and observers may throw.
class Stubborn : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool watched MEMBER watched NOTIFY watchedChanged)
    Q_PROPERTY(bool fixed READ flag NOTIFY changed)
    Q_PROPERTY(bool oneWay MEMBER oneWay WRITE setOneWay NOTIFY changed)
public:
    Stubborn()
    {
        connect(this, &Stubborn::watchedChanged, this, [] { throw std::runtime_error("observer"); });
    }
    STORED(QString, text, setText)
    STORED(double, number, setNumber)
    STORED(bool, flag, setFlag)
    STORED(QRectF, frame, setFrame)
    void setOneWay(bool value)
    {
        if (!value)
            store({}, value);
        oneWay = true;
        Q_EMIT changed();
    }

    bool watched = false;
    MODEL_VALUE(int, kind, 0)
    bool oneWay = false;

Q_SIGNALS:
    void changed();
    void watchedChanged();

private:
    [[noreturn]] static void store(const QString &, const QVariant &) { throw std::runtime_error("setter"); }

    const QVariantMap values{{"text", "old"}, {"number", 7}, {"frame", QRectF(1, 2, 30, 40)}};
};

/// A window with one row, and a stubborn model that is selected.
struct Window : Sheet
{
    explicit Window(const QByteArray &elements)
        : Sheet(elements.startsWith("<sliver") ? elements : "<sliver title='Row'>" + elements + "</sliver>")
    {
        owner->controller.setSelectedObjects({&model});
        settle();
    }
    ~Window() override { inspector.reset(); }

    Stubborn model;
};

/// What is reported or logged as an error while it lives.
class Errors : public Reports
{
public:
    Errors()
    {
        s_lines = &messages;
        m_former = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &line) {
            if (line.startsWith("ERROR:"))
                s_lines->append(line);
        });
    }
    ~Errors() override { qInstallMessageHandler(m_former); }
    Q_DISABLE_COPY_MOVE(Errors)

private:
    inline static QStringList *s_lines = nullptr;
    QtMessageHandler m_former;
};
} // namespace

/// What is thrown while the event loop calls into the library must not reach it: nobody is there to catch it.
class tst_Errors : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void anEditThatFailsIsReportedAndShowsTheModelsValue()
    {
        struct Row
        {
            const char *key;
            const char *type;
            const char *message; // a part of it; empty: none
            const char *shown;
            int steps = 0;
            const char *after = "";
        };
        const Row rows[] = {
            {"flag", "boolean' title='a", "setter", "off"},
            {"flag", "boolean' title='a' bits='1", "setter", "off"},
            {"text", "string", "setter", "old"},
            {"number", "number", "setter", "7"},
            {"frame", "frame", "setter", "1"},
            {"frame.x", "boolean' title='a' bits='1", "", "on"}, // two keys for one, and not enabled
            {"watched", "boolean' title='a", "observer", "on", 1},
            {"kind", "boolean' title='a' actionSelector='failAction", "action", "on", 1},
            {"fixed", "boolean' title='a", "", "off"}, // without WRITE
            {"fixed", "boolean' title='a' bits='1", "", "off"},
            {"kind", "boolean' title='a' actionSelector='noSuchSlot", "noSuchSlot", "on", 1},
            {"nothing", "boolean' title='a", "", "off"}, // not applicable, and not enabled
            {"kind", "number", "3", "3", 1,              // which the segments do not know
             "<property type='enumeration' style='segmented' keyPath='people.selection.kind'><option-group>"
             "<option title='A' value='0'/></option-group></property>"},
        };
        for (const Row &row : rows) {
            const TableRow inRow(QString(row.key) + u' ' + row.type);
            Errors errors;
            Window window(QByteArray("<property type='") + row.type + "' keyPath='people.selection." + row.key + "'/>" +
                          row.after);
            errors.messages.clear();
            window.edit(row.key, "3");
            QCOMPARE(errors.messages.size(), *row.message ? 1 : 0);
            QVERIFY2(errors.messages.join(u'|').contains(row.message), qPrintable(errors.messages.join(u'|')));
            QCOMPARE(window.shown(row.key), row.shown);
            QCOMPARE(window.stack.count(), row.steps);
        }
        for (const char *action : {"failAction", "noSuchSlot"}) {
            Errors errors;
            const Window window(QByteArray("<property type='action' title='Go' actionSelector='") + action + "'/>");
            errors.messages.clear();
            Sheet::click(window.findChild<ZelPushButton *>());
            QCOMPARE(errors.messages.size(), 1);
            QVERIFY(errors.messages[0].contains(QString(action).remove("fail"), Qt::CaseInsensitive));
        }
    }

    /// The application's command is the one that runs, and its stack must not be touched meanwhile.
    void typingIsTakenWhenACommandChangesTheSelection()
    {
        struct Select : QUndoCommand
        {
            explicit Select(const Sheet &window)
                : window(window)
            {
            }
            void select(size_t index) { window.owner->controller.setSelectedObjects({window.figures[index].get()}); }
            void undo() override { select(0); }
            void redo() override { select(1); }
            const Sheet &window;
        };
        Sheet window(Sheet::row("name", "string"));
        window.stack.push(new Select(window));
        window.undo();
        window.begin("name", "typed");
        window.stack.redo();
        window.settle();
        QCOMPARE(window.figures[0]->name(), "typed");
        QCOMPARE(window.figures[1]->name(), "P1");
        QCOMPARE(window.stack.count(), 2);
        window.stack.undo();
        QCOMPARE(window.figures[0]->name(), "P0");
    }

    /// Undone by a key, through the manager or on the stack itself.
    void aStepThatFailsIsReported()
    {
        for (const bool byManager : {true, false}) {
            Window window(Sheet::row("oneWay", "boolean", "title='Switch'"));
            const QShortcut shortcut(QKeySequence::Undo, &window);
            connect(&shortcut, &QShortcut::activated, this,
                    [&] { byManager ? ZelUndoManager::forWidget(&window)->undo() : window.stack.undo(); });
            window.edit("oneWay", {});
            QCOMPARE(window.stack.index(), 1);
            const Reports reports;
            QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
            Sheet::settle();
            QCOMPARE(reports.messages.size(), 1);
            QVERIFY(reports.messages[0].startsWith("Undo \"Change oneWay\": setter ("));
            QVERIFY(reports.messages[0].endsWith(", <property>)"));
            QVERIFY(window.model.oneWay);
            QCOMPARE(window.shown("oneWay"), "on");
            QCOMPARE(window.stack.index(), 0);
        }
    }
};
QTEST_MAIN(tst_Errors)
#include "tst_Errors.moc"
