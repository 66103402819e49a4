// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Fields/ZelComboBox.h"
#include "Controls/Fields/ZelDatePicker.h"
#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/Fields/ZelGrowingTextView.h"
#include "Controls/Fields/ZelGrowingTokenField.h"
#include "Controls/Fields/ZelNumberFormatter.h"
#include "Controls/Fields/ZelTextField.h"
#include "Controls/Fields/ZelToken.h"
#include "Controls/private/ZelErrorNote.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Core/Values/ZelValues.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QSignalSpy>

namespace {

using Panel = ControlPanelBase;

/// A class of fields, and how one is used whatever it is.
struct Kind
{
    const char *name;
    Panel *(*make)();
    // Two values with their texts, and what becomes of the first when the keys are typed.
    QVariant first;
    QString firstText;
    QVariant second;
    QString secondText;
    QString keys;
    QVariant typed;
    QString typedText;
    const char *keysAgain; // mean the first value; null where it is there when what was typed is deleted
    /// What stands in the field; its placeholder where that is nothing.
    QString (*text)(const QWidget *field);
    bool refuses = true; // some texts
    bool mayGoInItsKeys = true;
};

const QString g_tooMuch = QStringLiteral("Too much.");

QString check(const QVariant &value)
{
    return value.toDouble() > 1000 ? g_tooMuch : QString();
}

/// Values are numbers where the field has a formatter.
template<typename Field> void setUp(Field *field)
{
    const auto formatter = std::make_shared<ZelNumberFormatter>();
    formatter->setLocale(QLocale::c());
    if constexpr (requires { field->setFormatter(formatter); })
        field->setFormatter(formatter);
    if constexpr (requires { field->setValueCheck(check); })
        field->setValueCheck(check);
}

template<typename Control> Panel *make()
{
    auto *panel = new ControlPanel<Control>;
    if constexpr (std::is_same_v<Control, ZelComboBox>)
        setUp(panel->control->textField());
    else
        setUp(panel->control.get());
    return panel;
}

QString orElse(const QString &text, const QString &placeholder)
{
    return text.isEmpty() ? placeholder : text;
}

QString textOfLineEdit(const QWidget *field)
{
    const auto *edit = qobject_cast<const QLineEdit *>(field);
    if (!edit)
        edit = field->findChild<QLineEdit *>();
    return orElse(edit->text(), edit->placeholderText());
}

QString textOfGrowingField(const QWidget *field)
{
    const auto *editor = field->findChild<QPlainTextEdit *>();
    return orElse(static_cast<const ZelGrowingTextField *>(field)->text(),
                  editor ? editor->placeholderText() : QString());
}

QString textOfView(const QWidget *field)
{
    const auto *view = static_cast<const ZelGrowingTextView *>(field);
    return orElse(view->attributedString().text(), view->placeholderText());
}

QString textOfTokens(const QWidget *field)
{
    QStringList texts;
    for (const ZelToken *token : static_cast<const ZelGrowingTokenField *>(field)->tokens())
        texts.append(token->text());
    texts.append(textOfLineEdit(field));
    texts.removeAll(QString());
    return texts.join(QLatin1Char(' '));
}

const QList<Kind> &kinds()
{
    const auto rich = [](const char *text) { return ZelAttributedString(QString::fromLatin1(text)).toVariant(); };
    static const QList<Kind> kinds{
        {"text field", &make<ZelTextField>, 1, "1", 2, "2", "7", 7, "7", "1.0", &textOfLineEdit},
        {"growing text field", &make<ZelGrowingTextField>, 1, "1", 2, "2", "7", 7, "7", "1.0", &textOfGrowingField,
         true, false},
        {"text view", &make<ZelGrowingTextView>, rich("one"), "one", rich("two"), "two", "7", rich("7one"), "7one",
         nullptr, &textOfView, false},
        {"token field", &make<ZelGrowingTokenField>, QVariantList{1}, "1", QVariantList{2}, "2", "7",
         QVariantList{1, 7}, "1 7", nullptr, &textOfTokens},
        {"date picker", &make<ZelDatePicker>, QDate(2024, 2, 3), "03.02.2024", QDate(1999, 1, 1), "01.01.1999", "07",
         QDate(2024, 2, 7), "07.02.2024", "03", &textOfLineEdit, false},
        {"combo box", &make<ZelComboBox>, 1, "1", 2, "2", "7", 7, "7", "1.0", &textOfLineEdit},
    };
    return kinds;
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
        enter();
    }

    QVariant value() const { return ZelValueForKey(field, "value"); }
    void setValue(const QVariant &value) const { ZelSetValueForKey(field, value, "value"); }
    QString text() const { return kind.text(field); }
    /// That in which the text is.
    QWidget *inner() const
    {
        const auto *box = qobject_cast<const ZelComboBox *>(field);
        return box ? box->textField() : field.get();
    }
    bool isEditing() const { return dynamic_cast<const ZelEditSession *>(inner())->isEditing(); }
    template<typename Field> bool is() const { return qobject_cast<const Field *>(field.get()); }
    QString error() const { return inner()->accessibleDescription(); }

    static QWidget *keys() { return QApplication::focusWidget(); }
    void enter() const { QTest::keyClick(panel->other, Qt::Key_Tab); }
    void leave() const { panel->other->setFocus(); }
    void type() const { QTest::keyClicks(keys(), kind.keys); }
    void typeOver(const QString &text) const
    {
        QTest::keyClick(keys(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(keys(), text);
    }
    void press(Qt::Key key) const { QTest::keyClick(keys(), key); }
    QKeySequence commitKeys() const { return is<ZelGrowingTextView>() ? Qt::CTRL | Qt::Key_Return : Qt::Key_Return; }
    void pressReturn() const { QTest::keySequence(keys(), commitKeys()); }
    void openMenu(bool own) const
    {
        QWidget *inner = field->findChild<QLineEdit *>();
        QMenu menu(!own ? panel->other : inner ? inner : keys());
        menu.addAction(QStringLiteral("Item"));
        menu.popup(QPoint());
        menu.close();
    }

    const Kind kind;
    const std::unique_ptr<Panel> panel;
    QPointer<QWidget> field;
    ZelEditor *editor;
};

/// Deletes an object when it is told to.
class Killer : public QObject
{
    Q_OBJECT
public:
    explicit Killer(QObject *victim)
        : m_victim(victim)
    {
    }
public Q_SLOTS:
    void kill() { delete m_victim; }

private:
    QPointer<QObject> m_victim;
};

} // namespace

/// The rules of editing that hold for every field.
class tst_EditSession : public QObject
{
    Q_OBJECT

    /// A row for each kind of field and each of the cases.
    static void addRows(const QStringList &cases)
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("how");
        for (int i = 0; i < kinds().size(); ++i)
            for (const QString &how : cases)
                QTest::addRow("%s, %s", kinds().at(i).name, qPrintable(how)) << i << how;
    }

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    /// An edit is reported once, in an undo grouping of its own. It is passive unless the user ended it.
    void committingReportsOnce_data() { addRows({"Return", "Tab", "leaving", "program", "undoing", "menu", "window"}); }
    void committingReportsOnce()
    {
        QFETCH(int, kind);
        QFETCH(QString, how);
        const Bench bench(kinds().at(kind));
        bench.type();
        QVERIFY(bench.isEditing());
        QCOMPARE(bench.text(), bench.kind.typedText);
        QCOMPARE(bench.value(), bench.kind.first);
        QCOMPARE(bench.panel->takeLog(), QStringList());
        QWidget otherWindow;
        QShortcut shortcut(bench.commitKeys(), bench.panel.get());
        if (how == "Return") {
            bench.pressReturn(); // the field's, although the window has a use for it
        } else if (how == "Tab") {
            for (int i = 0; i < 3 && bench.field->hasFocus(); ++i) // a date picker has sections
                bench.press(Qt::Key_Tab);
        } else if (how == "leaving") {
            bench.leave();
        } else if (how == "program") {
            QVERIFY(bench.editor->commitEditing());
        } else if (how == "undoing") {
            bench.panel->undo.undo();
        } else if (how == "menu") {
            bench.openMenu(false);
        } else {
            otherWindow.show();
            otherWindow.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&otherWindow));
        }
        QCOMPARE(bench.panel->takeLog(), Panel::edits(1));
        QCOMPARE(bench.panel->level, 1);
        QCOMPARE(bench.panel->isPassive, how != "Return" && how != "program" && how != "undoing");
        QCOMPARE(bench.panel->undo.stack()->count(), 1);
        QCOMPARE(bench.panel->undo.stack()->index(), how == "undoing" ? 0 : 1);
        QVERIFY(ZelEqual(bench.value(), bench.kind.typed));
        QVERIFY(!bench.isEditing());
        bench.leave();
        QTRY_COMPARE(bench.text(), bench.kind.typedText);
        QCOMPARE(bench.panel->takeLog(), QStringList());
    }

    void nothingIsReportedWithoutAChange_data() { addRows({"Return", "leaving", "program", "own menu"}); }
    void nothingIsReportedWithoutAChange()
    {
        QFETCH(int, kind);
        QFETCH(QString, how);
        const Bench bench(kinds().at(kind));
        const QVariant mixed = QVariant::fromValue(ZelMultipleValuesMarker);
        const QSignalSpy changed(bench.field, SIGNAL(objectValueChanged()));
        const auto end = [&] {
            if (how == "Return")
                bench.pressReturn();
            else if (how == "leaving")
                bench.leave();
            else if (how == "program")
                QVERIFY(bench.editor->commitEditing());
            else
                bench.openMenu(true);
            QCOMPARE(bench.panel->log, QStringList());
        };
        end();
        bench.leave();
        bench.setValue(mixed);
        bench.setValue(mixed);
        QCOMPARE(changed.count(), 1);
        bench.enter();
        end();
        QCOMPARE(bench.value(), mixed);
        bench.setValue(bench.kind.first);
        bench.leave();
        bench.enter();
        if (how == "own menu") { // does not end the edit
            bench.type();
            end();
            QVERIFY(bench.isEditing());
            return;
        }
        if (bench.kind.keysAgain) {
            QTest::keyClicks(bench.keys(), QString::fromLatin1(bench.kind.keysAgain));
        } else {
            bench.type();
            bench.press(Qt::Key_Backspace);
        }
        end();
        QCOMPARE(bench.text(), bench.kind.firstText);
        QVERIFY(ZelEqual(bench.value(), bench.kind.first));
    }

    /// Escape and the keys of undo are the field's while something is typed, and the window's otherwise.
    void escapeDiscards_data() { addRows({"by key"}); }
    void escapeDiscards()
    {
        QFETCH(int, kind);
        const Bench bench(kinds().at(kind));
        QShortcut escape(QKeySequence(Qt::Key_Escape), bench.panel.get());
        QShortcut undo(QKeySequence(Qt::CTRL | Qt::Key_Z), bench.panel.get());
        const QSignalSpy escaped(&escape, &QShortcut::activated);
        const QSignalSpy undone(&undo, &QShortcut::activated);
        bench.type();
        QTest::keyClick(bench.keys(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(undone.count(), 0);
        bench.editor->discardEditing();
        QCOMPARE(bench.text(), bench.kind.firstText);
        bench.type();
        bench.press(Qt::Key_Escape);
        QCOMPARE(escaped.count(), 0);
        QCOMPARE(bench.text(), bench.kind.firstText);
        QVERIFY(!bench.isEditing());
        bench.press(Qt::Key_Escape);
        QCOMPARE(escaped.count(), 1);
        QTest::keyClick(bench.keys(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(undone.count(), 1);
        bench.leave();
        QCOMPARE(bench.panel->log, QStringList());
        QCOMPARE(bench.value(), bench.kind.first);
    }

    /// A text that was refused stays with its reason until it is mended or discarded, or another value takes its place.
    void refusedTextsStay_data() { addRows({"no value", "checked"}); }
    void refusedTextsStay()
    {
        QFETCH(int, kind);
        QFETCH(QString, how);
        const Bench bench(kinds().at(kind));
        const bool isTokenField = bench.is<ZelGrowingTokenField>();
        const bool checks = how == "checked";
        if (!bench.kind.refuses || (checks && isTokenField))
            return;
        const QString refused = checks ? QStringLiteral("5000") : QStringLiteral("abc");
        const QString text = isTokenField ? QStringLiteral("1 abc") : refused;
        bench.typeOver(refused);
        QVERIFY(bench.error().isEmpty()); // not before it is committed
        bench.pressReturn();
        QVERIFY(!bench.error().isEmpty());
        QCOMPARE(bench.error() == g_tooMuch, checks);
        QCOMPARE(bench.text(), text);
        const QPointer<ZelErrorNote> note = bench.panel->findChild<ZelErrorNote *>();
        QVERIFY(note && note->isVisible());
        QCOMPARE(note->text(), bench.error());
        bench.leave();
        QVERIFY(!bench.editor->commitEditing());
        bench.setValue(bench.kind.first);
        QCOMPARE(bench.text(), text);
        bench.enter();
        QCOMPARE(bench.text(), text);
        bench.press(Qt::Key_End);
        bench.press(Qt::Key_Backspace);
        QCOMPARE(bench.error().isEmpty(), checks); // 500 is not too much
        bench.typeOver(QStringLiteral("5"));
        QVERIFY(bench.error().isEmpty());
        QVERIFY(!note);
        bench.typeOver(refused);
        bench.leave();
        bench.enter();
        bench.press(Qt::Key_Escape);
        QVERIFY(bench.error().isEmpty());
        QCOMPARE(bench.text(), bench.kind.firstText);
        QVERIFY(bench.editor->commitEditing());
        bench.typeOver(refused);
        bench.leave();
        QVERIFY(!bench.error().isEmpty());
        bench.setValue(bench.kind.second);
        QVERIFY(bench.error().isEmpty());
        QCOMPARE(bench.text(), bench.kind.secondText);
        QCOMPARE(bench.panel->log, QStringList());
    }

    void valuesWaitForTheTyping_data() { addRows({"Escape", "Return", "answer"}); }
    void valuesWaitForTheTyping()
    {
        QFETCH(int, kind);
        QFETCH(QString, how);
        const Bench bench(kinds().at(kind));
        bench.setValue(bench.kind.second); // nothing is typed
        QCOMPARE(bench.text(), bench.kind.secondText);
        bench.setValue(bench.kind.first);
        bench.leave();
        bench.enter();
        bench.type();
        bench.setValue(bench.kind.second);
        QCOMPARE(bench.text(), bench.kind.typedText);
        QCOMPARE(bench.value(), bench.kind.second);
        QCOMPARE(bench.panel->takeLog(), QStringList());
        if (how == "Escape") {
            bench.press(Qt::Key_Escape);
            QCOMPARE(bench.text(), bench.kind.secondText);
            return;
        }
        // What the model answers to the edit is newer than the edit.
        if (how == "answer")
            bench.panel->whenEdited = [&bench] { bench.setValue(bench.kind.second); };
        bench.pressReturn();
        bench.leave();
        QCOMPARE(bench.text(), how == "answer" ? bench.kind.secondText : bench.kind.typedText);
        QCOMPARE(bench.panel->takeLog(), Panel::edits(1));
    }

    void markersAreShownAsPlaceholders_data() { addRows({"entered"}); }
    void markersAreShownAsPlaceholders()
    {
        QFETCH(int, kind);
        const Bench bench(kinds().at(kind));
        const auto marker = [](const auto &marker) { return QVariant::fromValue(marker); };
        bench.field->setProperty("nullPlaceholder", QStringLiteral("none"));
        const std::pair<QVariant, QString> shown[] = {{QVariant(), QStringLiteral("none")},
                                                      {marker(ZelMultipleValuesMarker), "Multiple Values"},
                                                      {bench.kind.first, bench.kind.firstText},
                                                      {marker(ZelNoSelectionMarker), "No Selection"},
                                                      {marker(ZelNotApplicableMarker), "Not Applicable"},
                                                      {ZelNull(), QStringLiteral("none")}};
        for (const auto &[value, text] : shown) {
            bench.setValue(value);
            QCOMPARE(bench.text(), text);
            QVERIFY(!bench.isEditing());
        }
        bench.field->setProperty("nullPlaceholder", QStringLiteral("other"));
        QCOMPARE(bench.text(), QStringLiteral("other"));
        QCOMPARE(bench.panel->log, QStringList());
    }

    void whatCannotBeEditedKeepsNoTyping_data() { addRows({"not editable", "disabled"}); }
    void whatCannotBeEditedKeepsNoTyping()
    {
        QFETCH(int, kind);
        QFETCH(QString, how);
        const Bench bench(kinds().at(kind));
        const QSignalSpy changed(bench.field, SIGNAL(editableChanged()));
        bench.type();
        if (how == "disabled") { // which takes the focus away first
            bench.field->setEnabled(false);
            QVERIFY(!bench.isEditing());
            QVERIFY(ZelEqual(bench.value(), bench.kind.typed));
            bench.field->setEnabled(true);
            bench.leave();
            bench.enter();
            bench.typeOver(QStringLiteral("abc"));
            bench.leave();
            QCOMPARE(bench.isEditing(), bench.kind.refuses);
            bench.field->setEnabled(false);
            QVERIFY(!bench.isEditing());
            return;
        }
        bench.field->setProperty("editable", false);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(bench.text(), bench.kind.firstText);
        bench.type();
        bench.pressReturn();
        bench.leave();
        QCOMPARE(bench.text(), bench.kind.firstText);
        QCOMPARE(bench.value(), bench.kind.first);
        QCOMPARE(bench.panel->log, QStringList());
        QVERIFY(bench.field->isEnabled());
    }

    void mayGoInItsSignals_data()
    {
        QStringList cases;
        for (const char *signal : {"objectValueChanged", "valueEdited", "action"})
            for (const char *end : {"Return", "leaving", "program"})
                cases << QString::fromLatin1(end) + QStringLiteral(" - ") + QString::fromLatin1(signal);
        addRows(cases);
    }
    void mayGoInItsSignals()
    {
        QFETCH(int, kind);
        QFETCH(QString, how);
        const Bench bench(kinds().at(kind));
        Killer killer(bench.field);
        const QByteArray signal = "2" + how.section(QStringLiteral(" - "), 1).toLatin1() + "()";
        const bool atOnce = bench.kind.mayGoInItsKeys || how.startsWith(QStringLiteral("program"));
        connect(bench.field, signal.constData(), atOnce ? &killer : static_cast<QObject *>(bench.field.get()),
                atOnce ? SLOT(kill()) : SLOT(deleteLater()));
        bench.type();
        if (how.startsWith(QStringLiteral("Return")))
            bench.pressReturn();
        else if (how.startsWith(QStringLiteral("leaving")))
            bench.leave();
        else
            bench.editor->commitEditing();
        QTRY_VERIFY(!bench.field);
        QVERIFY(bench.panel->log.size() <= 2);
    }

    /// The typing in a field that is deleted itself is lost; a window that goes commits it first.
    void mayGoWhileItIsEdited_data() { addRows({"field", "window", "window with an error"}); }
    void mayGoWhileItIsEdited()
    {
        QFETCH(int, kind);
        QFETCH(QString, how);
        auto bench = std::make_unique<Bench>(kinds().at(kind));
        const QPointer<QWidget> field = bench->field;
        const QSignalSpy edited(field, SIGNAL(valueEdited()));
        const bool isRefused = how == "window with an error" && bench->kind.refuses;
        if (isRefused)
            bench->typeOver(QStringLiteral("abc"));
        else
            bench->type();
        if (how == "field")
            delete field;
        bench.reset();
        QVERIFY(!field);
        QCOMPARE(edited.count(), isRefused || how == "field" ? 0 : 1);
    }
};

QTEST_MAIN(tst_EditSession)
#include "tst_EditSession.moc"
