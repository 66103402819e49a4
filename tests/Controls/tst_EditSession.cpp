// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Fields/ZelComboBox.h"
#include "Controls/Fields/ZelDatePicker.h"
#include "Controls/Fields/ZelGrowingTextView.h"
#include "Controls/Fields/ZelGrowingTokenField.h"
#include "Controls/Fields/ZelToken.h"
#include "Controls/private/ZelErrorNote.h"
#include "Controls/private/ZelRefusalMark.h"

namespace {
using Panel = ControlPanelBase;

/// A class of fields: two values with their texts, and what becomes of the first when the keys are typed.
struct Kind
{
    const char *name;
    Panel *(*make)();
    QVariant first;
    QString firstText;
    QVariant second;
    QString secondText;
    QString keys;
    QVariant typed;
    QString typedText;
    QString keysAgain;   // mean the first value; empty where it is there when what was typed is deleted
    bool refuses = true; // some texts
    bool checks = true;  // values
    bool mayGoInItsKeys = true;
    bool hasTokens = false;
};

const QString g_tooMuch = QStringLiteral("Too much.");

/// Values are numbers where the field has a formatter.
template<typename Control> Panel *make()
{
    auto *panel = new ControlPanel<Control>;
    auto *field = [panel] {
        if constexpr (std::is_same_v<Control, ZelComboBox>)
            return panel->control->textField();
        else
            return panel->control.get();
    }();
    const auto formatter = std::make_shared<ZelNumberFormatter>();
    formatter->setLocale(QLocale::c());
    if constexpr (requires { field->setFormatter(formatter); })
        field->setFormatter(formatter);
    const auto check = [](const QVariant &value) { return value.toDouble() > 1000 ? g_tooMuch : QString(); };
    if constexpr (requires { field->setValueCheck(check); })
        field->setValueCheck(check);
    return panel;
}

/// What stands in the field; its placeholder where that is nothing.
QString textOf(const QWidget *field)
{
    const auto orElse = [](const QString &text, const QString &other) { return text.isEmpty() ? other : text; };
    if (const auto *view = qobject_cast<const ZelGrowingTextView *>(field))
        return orElse(view->attributedString().text(), view->placeholderText());
    if (const auto *growing = qobject_cast<const ZelGrowingTextField *>(field)) {
        const auto editors = field->findChildren<QPlainTextEdit *>(); // those of former edits may wait for their end
        return orElse(growing->text(), editors.isEmpty() ? QString() : editors.last()->placeholderText());
    }
    QStringList texts;
    if (const auto *tokenField = qobject_cast<const ZelGrowingTokenField *>(field))
        for (const ZelToken *token : tokenField->tokens())
            texts.append(token->text());
    const auto *own = qobject_cast<const QLineEdit *>(field);
    const QLineEdit *edit = own ? own : field->findChild<QLineEdit *>();
    texts.append(orElse(edit->text(), edit->placeholderText()));
    texts.removeAll(QString());
    return texts.join(' ');
}

QVariant rich(const QString &text)
{
    return ZelAttributedString(text).toVariant();
}

QList<Kind> kinds()
{
    const QDate first(2024, 2, 3), second(1999, 1, 1), typed(2024, 2, 7);
    return {
        {"text field", make<ZelTextField>, 1, "1", 2, "2", "7", 7, "7", "1.0"},
        {"growing text field", make<ZelGrowingTextField>, 1, "1", 2, "2", "7", 7, "7", "1.0", true, true, false},
        {"text view", make<ZelGrowingTextView>, rich("one"), "one", rich("two"), "two", "7", rich("7one"), "7one", "",
         false, false},
        {"token field", make<ZelGrowingTokenField>, QVariantList{1}, "1", QVariantList{2}, "2", "7", QVariantList{1, 7},
         "1 7", "", true, false, true, true},
        {"date picker", make<ZelDatePicker>, first, "03.02.2024", second, "01.01.1999", "07", typed, "07.02.2024", "03",
         false, false},
        {"combo box", make<ZelComboBox>, 1, "1", 2, "2", "7", 7, "7", "1.0"},
    };
}

/// A field of a kind with its first value, which was entered with the Tab key.
class Bench
{
public:
    explicit Bench(const Kind &kind)
        : kind(kind)
        , panel(kind.make())
        , field(panel->widget)
        , editor(qobject_cast<ZelEditor *>(field))
    {
        setValue(kind.first);
        QTest::keyClick(panel->other, Qt::Key_Tab);
        panel->state = [this]() -> QString { return state(); };
        addActions();
    }
    void setValue(const QVariant &value) const { ZelSetValueForKey(field, value, "value"); }
    /// That in which the text is.
    QWidget *inner() const
    {
        const auto *box = qobject_cast<const ZelComboBox *>(field);
        return box ? box->textField() : field.get();
    }
    QKeySequence commitKeys() const
    {
        return qobject_cast<ZelGrowingTextView *>(field) ? Qt::CTRL | Qt::Key_Return : Qt::Key_Return;
    }
    /// The text, the value, and what else there is to say; in the words of the kind.
    QString state()
    {
        const QVariant value = ZelValueForKey(field, "value");
        QString shown = textOf(field);
        QString held = value.isValid() ? "other" : "absent";
        const std::tuple<const char *, QString, QVariant> known[] = {{"first", kind.firstText, kind.first},
                                                                     {"second", kind.secondText, kind.second},
                                                                     {"typed", kind.typedText, kind.typed},
                                                                     {"several", "Multiple Values", several()}};
        for (const auto &[name, text, itsValue] : known) {
            if (shown == text)
                shown = name;
            if (ZelEqual(value, itsValue))
                held = name;
        }
        if (kind.hasTokens && shown.startsWith("1 ")) // which stays while a text is refused
            shown.remove(0, 2);
        QString state = shown + "/" + held;
        if (dynamic_cast<ZelEditSession *>(inner())->isEditing())
            state += " editing";
        const auto *mark = inner()->findChild<ZelRefusalMark *>(QString(), Qt::FindDirectChildrenOnly);
        const auto *note = panel->findChild<ZelErrorNote *>();
        const QString told = note && note->isVisible() ? note->text() : QString();
        const QString error = inner()->accessibleDescription();
        if (mark)
            state += told.isEmpty() ? " marked" : " marked with a note";
        else if (!error.isEmpty())
            state += error == g_tooMuch ? " too much" : " error";
        if (error != told && !(mark && told.isEmpty()))
            state += " with another note";
        return state + (panel->isPassive && panel->log.contains("valueEdited") ? " passively" : "");
    }

    const Kind kind;
    const std::unique_ptr<Panel> panel;
    QPointer<QWidget> field;
    ZelEditor *editor;
    QWidget window;

private:
    void addActions()
    {
        const std::pair<const char *, QVariant> values[] = {
            {"first", kind.first},  {"second", kind.second},
            {"absent", {}},         {"no-selection", QVariant::fromValue(ZelNoSelectionMarker)},
            {"several", several()}, {"not-applicable", QVariant::fromValue(ZelNotApplicableMarker)},
        };
        for (const auto &[name, value] : values)
            panel->actions[name] = [this, value = value](const QString &) { setValue(value); };
        const auto add = [this](const char *name, auto act) { panel->actions[name] = act; };
        add("type", [this](const QString &) { type(kind.keys); });
        add("type-over", [](const QString &text) { press(Qt::Key_A, Qt::ControlModifier), type(text); });
        add("type-the-same", [this](const QString &) {
            type(kind.keysAgain.isEmpty() ? kind.keys : kind.keysAgain);
            if (kind.keysAgain.isEmpty())
                press(Qt::Key_Backspace);
        });
        add("Commit", [this](const QString &) { QTest::keySequence(keys(), commitKeys()); });
        add("next", [this](const QString &) {
            for (int i = 0; i < 3 && field->hasFocus(); ++i) // a date picker has sections
                press(Qt::Key_Tab);
        });
        add("commit", [this](const QString &) { QVERIFY(editor->commitEditing()); });
        add("refuse", [this](const QString &) { QVERIFY(!editor->commitEditing()); });
        add("discard", [this](const QString &) { editor->discardEditing(); });
        add("undo", [this](const QString &) { panel->undo.undo(); });
        add("window", [this](const QString &) { User::open(&window); });
        add("menu", [this](const QString &whose) {
            QWidget *edit = field->findChild<QLineEdit *>();
            QMenu menu(whose != "own" ? panel->other.get() : edit ? edit : keys());
            menu.addAction("Item");
            menu.popup(QPoint());
            menu.close();
        });
        add("shortcut", [this](const QString &key) {
            const QKeySequence sequence = key == "Commit" ? commitKeys() : QKeySequence(key);
            QObject::connect(new QShortcut(sequence, panel.get()), &QShortcut::activated, panel.get(),
                             [this, key] { panel->log.append(key); });
        });
        add("answer", [this](const QString &) { panel->whenEdited = [this] { setValue(kind.second); }; });
    }
};
} // namespace

/// The rules of editing that hold for every field.
class tst_EditSession : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    void edits()
    {
        const QStringList scripts{
            // An edit is reported once. It is passive unless the user ended it.
            "shortcut Commit; type > typed/first editing; Commit > typed/typed reported; leave > typed/typed",
            "type; next > typed/typed passively reported; leave > typed/typed",
            "type; leave > typed/typed passively reported; leave > typed/typed",
            "type; commit > typed/typed reported; leave > typed/typed",
            "type; undo > typed/typed reported; leave > typed/typed",
            "type; menu > typed/typed passively reported; leave > typed/typed",
            "type; window > typed/typed passively reported; leave > typed/typed",
            // Without a change nothing is.
            "Commit > first/first; commit > first/first; menu own > first/first; leave; enter; type-the-same; "
            "Commit > first/first; leave > first/first",
            "type-the-same; commit > first/first; leave > first/first",
            "type-the-same; leave > first/first",
            "leave; several; several; enter > several/several changed; Commit; commit; menu own > several/several",
            "type; menu own > typed/first editing",
            // Escape and the keys of undo are the field's while something is typed, and the window's otherwise.
            "shortcut Escape; shortcut Ctrl+Z; type; Ctrl+Z; discard > first/first; type; Escape > first/first; "
            "Escape > first/first Escape; Ctrl+Z > first/first Ctrl+Z; leave > first/first",
            // Values wait for the typing, and the answer of a model is newer than the edit.
            "second > second/second changed; first; leave; enter > first/first changed; type; "
            "second > typed/second editing changed; Escape > second/second; leave > second/second",
            "type; second > typed/second editing changed; Commit > typed/typed reported; leave > typed/typed",
            "answer; type; second > typed/second editing changed; "
            "Commit > second/second marked with a note changed+valueEdited+changed+action; "
            "leave > second/second marked with a note",
            // Markers are placeholders.
            "set nullPlaceholder none; absent > none/absent changed; several > several/several changed; "
            "first > first/first changed; no-selection > No Selection/other changed; "
            "not-applicable > Not Applicable/other changed; absent > none/absent changed; "
            "set nullPlaceholder new > new/absent",
            // What cannot be edited keeps no typing; what is disabled loses the focus first.
            "type; set editable false > first/first editable; type; Commit; leave > first/first",
            "type; set enabled false > typed/typed passively reported",
        };
        // A refused text stays with its reason until it is mended or discarded, or another value takes its place.
        const QStringList refused{
            "type-over abc > abc/first editing; Commit > abc/first editing error; leave; refuse; first > abc/first "
            "editing error; enter > abc/first editing error; End; Backspace > ab/first editing error; type-over 5 > "
            "5/first editing; type-over abc; leave; enter; Escape > first/first; commit > first/first; type-over abc; "
            "leave > abc/first editing error; second > second/second changed",
            "type-over abc; leave; set enabled false > first/first",
        };
        const QStringList checked{"type-over 5000 > 5000/first editing; Commit > 5000/first editing too much; leave; "
                                  "enter; End; Backspace > 500/first editing; Escape > first/first"};
        for (const Kind &kind : kinds()) {
            const TableRow row(kind.name);
            for (const QString &script :
                 scripts + (kind.refuses ? refused : QStringList()) + (kind.checks ? checked : QStringList())) {
                Bench bench(kind);
                bench.panel->play(script);
                if (QTest::currentTestFailed())
                    return;
                // Each edit is one step of undo, in a grouping of its own.
                const qsizetype edits = script.count("reported") + script.count("valueEdited");
                QCOMPARE(bench.panel->undo.stack()->count(), edits);
                QCOMPARE(bench.panel->undo.stack()->index(), script.contains("undo") ? 0 : edits);
                QCOMPARE(bench.panel->level, edits > 0 ? 1 : -1);
            }
        }
    }

    /// The typing in a field that is deleted itself is lost; a window that goes commits it first.
    void mayGoInItsSignalsAndWhileItIsEdited()
    {
        for (const Kind &kind : kinds()) {
            for (const QString end : {"Commit", "leave", "commit"}) {
                for (const int report : {1, 2, 3}) {
                    const TableRow row(QString("%1 %2 %3").arg(kind.name, end).arg(report));
                    const Bench bench(kind);
                    bench.panel->dyingAt = bench.panel->told + report;
                    bench.panel->diesLater = !kind.mayGoInItsKeys && end != "commit";
                    bench.panel->play("type; " + end);
                    QTRY_VERIFY(!bench.field);
                }
            }
            for (const auto &[goesAlone, isRefused] : {std::pair(true, false), {false, false}, {false, kind.refuses}}) {
                const TableRow row(QString("%1 %2 %3").arg(kind.name).arg(goesAlone).arg(isRefused));
                auto bench = std::make_unique<Bench>(kind);
                const QPointer<QWidget> field = bench->field;
                const QSignalSpy edited(field, SIGNAL(valueEdited()));
                type(isRefused ? QString("abc") : kind.keys);
                if (goesAlone)
                    delete field;
                bench.reset();
                QVERIFY(!field);
                QCOMPARE(edited.count(), isRefused || goesAlone ? 0 : 1);
            }
        }
    }
};
QTEST_MAIN(tst_EditSession)
#include "tst_EditSession.moc"
