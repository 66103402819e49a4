// SPDX-License-Identifier: MIT
#include "Controls/ZelGrowingTokenField.h"
#include "Controls/ZelToken.h"
#include "Platform/Controls/ControlPanel.h"
#include "Platform/Controls/ZelNumberFormatter.h"
#include "Platform/Runtime/ZelValues.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>

namespace {

using Panel = ControlPanel<ZelGrowingTokenField>;

const QVariantList g_colors{QStringLiteral("red"), QStringLiteral("green"), QStringLiteral("blue")};
const QStringList g_report{QStringLiteral("valueEdited"), QStringLiteral("action")};

QStringList texts(const ZelGrowingTokenField *field)
{
    QStringList texts;
    for (const ZelToken *token : field->tokens())
        texts.append(token->text());
    return texts;
}

QString joined(const QVariant &value)
{
    return value.toStringList().join(QLatin1Char('|'));
}

} // namespace

class tst_ZelGrowingTokenField : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void showsValues_data();
    void showsValues();
    void typingMakesTokens_data();
    void typingMakesTokens();
    void whatCannotBeParsedStays();
    void keysMoveAndRemoveTokens();
    void aTokenCanBeEdited();
    void valuesWaitForTheEdit();
    void readOnlyTokensCanBeCopied();
    void removalsWaitForTheText();
    void theWindowCommitsAsItGoes_data();
    void theWindowCommitsAsItGoes();
    void growsWithItsTokens();
    void survivesItsListeners_data();
    void survivesItsListeners();
    void tokensMayGoWithTheFocus_data();
    void tokensMayGoWithTheFocus();
};

void tst_ZelGrowingTokenField::showsValues_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("placeholder");
    QTest::newRow("a list") << QVariant(g_colors) << "red|green|blue"
                            << "";
    QTest::newRow("texts") << QVariant(QStringList{"a, b", "R&D"}) << "a, b|R&D"
                           << "";
    QTest::newRow("one value") << QVariant("single") << "single"
                               << "";
    QTest::newRow("absent") << QVariant() << ""
                            << "none";
    QTest::newRow("empty") << QVariant(QVariantList()) << ""
                           << "none";
    QTest::newRow("several") << QVariant::fromValue(ZelMultipleValuesMarker) << ""
                             << "Multiple Values";
}

void tst_ZelGrowingTokenField::showsValues()
{
    QFETCH(QVariant, value);
    ZelGrowingTokenField field;
    field.setNullPlaceholder(QStringLiteral("none"));
    field.setObjectValue(g_colors);
    field.setObjectValue(value);
    QTEST(texts(&field).join(QLatin1Char('|')), "shown");
    QTEST(field.input()->placeholderText(), "placeholder");
    QVERIFY(!field.isEditing());
    for (ZelToken *token : field.tokens())
        QCOMPARE(QAccessible::queryAccessibleInterface(token)->text(QAccessible::Name), token->text());
}

void tst_ZelGrowingTokenField::typingMakesTokens_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key"); // 0: leave the field
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QStringList>("log");
    QTest::newRow("Return") << " white " << int(Qt::Key_Return) << "red|green|blue|white"
                            << "" << g_report;
    QTest::newRow("a comma") << "white," << -1 << "red|green|blue|white"
                             << "" << g_report;
    QTest::newRow("leaving") << "white" << 0 << "red|green|blue|white"
                             << "" << g_report;
    QTest::newRow("not yet") << "white" << -1 << "red|green|blue"
                             << "white" << QStringList();
    QTest::newRow("nothing") << " , ,," << 0 << "red|green|blue"
                             << "" << QStringList();
    QTest::newRow("Escape") << "white" << int(Qt::Key_Escape) << "red|green|blue"
                            << "" << QStringList();
}

void tst_ZelGrowingTokenField::typingMakesTokens()
{
    QFETCH(QString, typed);
    QFETCH(int, key);
    Panel panel;
    QVERIFY(panel.ready);
    panel.control->setObjectValue(g_colors);
    panel.control->setFocus();
    QVERIFY(panel.control->input()->hasFocus());
    QTest::keyClicks(panel.control->input(), typed);
    if (key > 0)
        QTest::keyClick(panel.control->input(), Qt::Key(key));
    else if (key == 0)
        panel.other->setFocus();
    QTEST(joined(panel.control->objectValue()), "value");
    QTEST(texts(panel.control).join(QLatin1Char('|')), "value");
    QTEST(panel.control->input()->text(), "left");
    QTEST(panel.log, "log");
}

void tst_ZelGrowingTokenField::whatCannotBeParsedStays()
{
    Panel panel;
    panel.control->setFormatter(std::make_shared<ZelNumberFormatter>());
    panel.control->setObjectValue(QVariantList{1, 2});
    panel.control->setFocus();
    QLineEdit *input = panel.control->input();
    QApplication::clipboard()->setText(QStringLiteral("3, four, 5"));
    input->paste();
    QCOMPARE(texts(panel.control), (QStringList{"1", "2"})); // all or nothing
    QCOMPARE(input->text(), QStringLiteral("3, four, 5"));
    QVERIFY(!panel.control->errorText().isEmpty());
    panel.other->setFocus();
    QCOMPARE(input->text(), QStringLiteral("3, four, 5"));
    QCOMPARE(panel.log, QStringList());
    QVERIFY(!panel.control->commitEditing());

    panel.control->setFocus();
    input->selectAll();
    QTest::keyClicks(input, QStringLiteral("3, 4"));
    QVERIFY(panel.control->errorText().isEmpty());
    QVERIFY(panel.control->commitEditing());
    QCOMPARE(panel.control->objectValue().toList().size(), 4);
    QCOMPARE(panel.control->objectValue().toList().at(3).toDouble(), 4.0);
}

void tst_ZelGrowingTokenField::keysMoveAndRemoveTokens()
{
    Panel panel;
    panel.control->setObjectValue(g_colors);
    panel.control->setFocus();
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    const auto selected = [] {
        const auto *token = qobject_cast<ZelToken *>(QApplication::focusWidget());
        return token ? token->text() : QString();
    };
    press(Qt::Key_Backspace); // selects before it removes
    QCOMPARE(selected(), QStringLiteral("blue"));
    press(Qt::Key_Left);
    QCOMPARE(selected(), QStringLiteral("green"));
    QCOMPARE(panel.log, QStringList());
    press(Qt::Key_Delete);
    QCOMPARE(joined(panel.control->objectValue()), QStringLiteral("red|blue"));
    QCOMPARE(panel.log, g_report);
    QCOMPARE(selected(), QStringLiteral("blue"));
    press(Qt::Key_Right);
    QVERIFY(panel.control->input()->hasFocus());
    press(Qt::Key_Left);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_W); // typing goes on in the text
    QCOMPARE(panel.control->input()->text(), QStringLiteral("w"));
    QVERIFY(panel.control->input()->hasFocus());
    press(Qt::Key_Left);
    QVERIFY(panel.control->input()->hasFocus()); // within the text

    panel.control->discardEditing();
    panel.control->setLayoutDirection(Qt::RightToLeft);
    press(Qt::Key_Right);
    QCOMPARE(selected(), QStringLiteral("blue"));
    QVERIFY(panel.control->tokens().at(0)->x() > panel.control->tokens().at(1)->x());
}

void tst_ZelGrowingTokenField::aTokenCanBeEdited()
{
    Panel panel;
    panel.control->setObjectValue(g_colors);
    QLineEdit *input = panel.control->input();
    const auto edit = [&panel](qsizetype index) {
        QTest::mouseDClick(panel.control->tokens().at(index), Qt::LeftButton);
    };
    edit(1);
    QVERIFY(input->hasFocus());
    QCOMPARE(input->text(), QStringLiteral("green"));
    QVERIFY(input->x() > panel.control->tokens().at(0)->x() && input->x() < panel.control->tokens().at(1)->x());
    QTest::keyClick(input, Qt::Key_Escape);
    QCOMPARE(texts(panel.control), (QStringList{"red", "green", "blue"}));
    edit(1);
    QTest::keyClick(input, Qt::Key_Return); // as it was
    QCOMPARE(panel.log, QStringList());
    edit(1);
    QTest::keyClicks(input, QStringLiteral("white, black"));
    panel.other->setFocus();
    QCOMPARE(joined(panel.control->objectValue()), QStringLiteral("red|white|black|blue"));
    panel.control->tokens().at(0)->setFocus();
    QTest::keyClick(panel.control->tokens().at(0), Qt::Key_F2);
    QTest::keyClick(input, Qt::Key_Backspace); // all of the text
    panel.other->setFocus();
    QCOMPARE(joined(panel.control->objectValue()), QStringLiteral("white|black|blue"));
}

void tst_ZelGrowingTokenField::valuesWaitForTheEdit()
{
    Panel panel;
    panel.control->setObjectValue(g_colors);
    panel.control->setFocus();
    QTest::keyClicks(panel.control->input(), QStringLiteral("whi"));
    panel.control->setObjectValue(QStringList{QStringLiteral("other")});
    QCOMPARE(panel.control->input()->text(), QStringLiteral("whi"));
    QCOMPARE(texts(panel.control).size(), 3);
    QTest::keyClick(panel.control->input(), Qt::Key_Escape);
    QCOMPARE(texts(panel.control), QStringList("other"));

    QTest::keyClick(panel.control->input(), Qt::Key_Left);
    panel.control->setObjectValue(g_colors); // the selection stays in the field
    QCOMPARE(panel.control->tokens().at(0), QApplication::focusWidget());
}

void tst_ZelGrowingTokenField::readOnlyTokensCanBeCopied()
{
    Panel panel;
    panel.control->setObjectValue(g_colors);
    panel.control->setEditable(false);
    panel.control->setFocus();
    QTest::keyClick(panel.control, Qt::Key_Left);
    QCOMPARE(QApplication::focusWidget(), panel.control->tokens().at(2));
    QWidget *token = panel.control->tokens().at(2);
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Return, Qt::Key_W})
        QTest::keyClick(token, key);
    QTest::mouseDClick(token, Qt::LeftButton);
    QCOMPARE(joined(panel.control->objectValue()), QStringLiteral("red|green|blue"));
    QTest::keySequence(token, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("blue"));
    QVERIFY(!panel.control->input()->isVisible());
}

/// Else the token that is being edited would be lost to the value, and not come back with Escape.
void tst_ZelGrowingTokenField::removalsWaitForTheText()
{
    Panel panel;
    panel.control->setObjectValue(g_colors);
    const auto editGreenAndRemoveRed = [&panel] {
        QTest::mouseDClick(panel.control->tokens().at(1), Qt::LeftButton);
        QTest::mouseClick(panel.control->tokens().at(0), Qt::LeftButton);
        QTest::keyClick(panel.control->tokens().at(0), Qt::Key_Delete);
    };
    editGreenAndRemoveRed();
    QCOMPARE(panel.log, QStringList());
    QCOMPARE(texts(panel.control), QStringList("blue"));
    panel.control->input()->setFocus();
    QTest::keyClick(panel.control->input(), Qt::Key_Escape);
    QCOMPARE(texts(panel.control), (QStringList{"red", "green", "blue"}));
    editGreenAndRemoveRed();
    panel.other->setFocus();
    QCOMPARE(joined(panel.control->objectValue()), QStringLiteral("green|blue"));
    QCOMPARE(panel.log, g_report);
}

void tst_ZelGrowingTokenField::theWindowCommitsAsItGoes_data()
{
    QTest::addColumn<bool>("isDeleted");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("value");
    QTest::newRow("hidden") << false << "4"
                            << "1|4";
    QTest::newRow("deleted") << true << "4"
                             << "1|4";
    QTest::newRow("deleted with an error") << true << "four"
                                           << "";
}

void tst_ZelGrowingTokenField::theWindowCommitsAsItGoes()
{
    QFETCH(bool, isDeleted);
    QFETCH(QString, typed);
    auto *panel = new Panel;
    ZelGrowingTokenField *control = panel->control;
    QVERIFY(panel->ready);
    control->setFormatter(std::make_shared<ZelNumberFormatter>());
    control->setObjectValue(QVariantList{1});
    control->setFocus();
    QTest::keyClicks(control->input(), typed);
    QStringList reported;
    connect(control, &ZelGrowingTokenField::valueEdited, this,
            [&] { reported.append(joined(control->objectValue())); });
    if (isDeleted)
        delete panel;
    else
        panel->hide();
    QTEST(reported.join(QLatin1Char(';')), "value");
    if (isDeleted)
        return;
    QTRY_COMPARE(texts(control), (QStringList{"1", "4"}));
    QCOMPARE(control->input()->text(), QString());
    QCOMPARE(reported.size(), 1);
    delete panel;
}

void tst_ZelGrowingTokenField::growsWithItsTokens()
{
    Panel panel;
    panel.resize(160, 400);
    panel.control->setObjectValue(QStringList{QStringLiteral("one")});
    QCoreApplication::processEvents();
    const int line = panel.control->heightForWidth(panel.control->width());
    QCOMPARE(line, QLineEdit().sizeHint().height());
    QStringList many;
    for (int i = 0; i < 20; ++i)
        many.append(QStringLiteral("token %1").arg(i));
    panel.control->setObjectValue(many);
    QTRY_VERIFY(panel.control->height() >= panel.control->heightForWidth(panel.control->width()));
    QVERIFY(panel.control->heightForWidth(panel.control->width()) > 4 * line);
    for (const ZelToken *token : panel.control->tokens())
        QVERIFY(panel.control->rect().contains(token->geometry()));
    QVERIFY(panel.control->heightForWidth(1000) < panel.control->heightForWidth(100));
    panel.control->setObjectValue(QStringList{QStringLiteral("a token that is much wider than the field can be")});
    QCoreApplication::processEvents();
    QVERIFY(panel.control->rect().contains(panel.control->tokens().at(0)->geometry()));
}

void tst_ZelGrowingTokenField::survivesItsListeners_data()
{
    QTest::addColumn<bool>("editsToken");
    QTest::newRow("by Delete") << false;
    QTest::newRow("by a double click that ends another edit") << true;
}

void tst_ZelGrowingTokenField::survivesItsListeners()
{
    QFETCH(bool, editsToken);
    Panel panel;
    QPointer<ZelGrowingTokenField> control = panel.control;
    control->setObjectValue(g_colors);
    panel.whenEdited = [&panel] { delete std::exchange(panel.control, nullptr); };
    control->setFocus();
    if (editsToken) {
        QTest::keyClicks(control->input(), QStringLiteral("white"));
        Q_EMIT control->tokens().at(1)->doubleClicked();
    } else {
        QTest::keyClick(control->input(), Qt::Key_Left);
        QTest::keyClick(control->tokens().at(2), Qt::Key_Delete);
    }
    QVERIFY(!control);
}

void tst_ZelGrowingTokenField::tokensMayGoWithTheFocus_data()
{
    QTest::addColumn<bool>("editsToken");
    QTest::newRow("removed") << false;
    QTest::newRow("edited") << true;
}

void tst_ZelGrowingTokenField::tokensMayGoWithTheFocus()
{
    QFETCH(bool, editsToken);
    Panel panel;
    ZelGrowingTokenField *control = panel.control;
    control->setObjectValue(g_colors);
    control->tokens().at(2)->setFocus();
    QObject listener;
    connect(qApp, &QApplication::focusChanged, &listener, [control] { control->setObjectValue(QVariantList{1}); });
    QTest::keyClick(control->tokens().at(2), editsToken ? Qt::Key_F2 : Qt::Key_Delete);
    QCOMPARE(texts(control), QStringList("1"));
    QCOMPARE(control->input()->text(), QString());
    QCOMPARE(panel.log, QStringList());
}

QTEST_MAIN(tst_ZelGrowingTokenField)
#include "tst_ZelGrowingTokenField.moc"
