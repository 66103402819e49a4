// SPDX-License-Identifier: MIT
#include "Controls/ControlPanel.h"
#include "Controls/Fields/ZelGrowingTokenField.h"
#include "Controls/Fields/ZelNumberFormatter.h"
#include "Controls/Fields/ZelToken.h"

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

/// What becomes of tokens; the edit itself is tested for all fields at once.
class tst_ZelGrowingTokenField : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsListsAsTokens()
    {
        ZelGrowingTokenField field;
        field.setNullPlaceholder(QStringLiteral("none"));
        const std::pair<QVariant, QString> shown[] = {{g_colors, "red|green|blue"},
                                                      {QStringList{"a, b", "R&D"}, "a, b|R&D"},
                                                      {"single", "single"},
                                                      {QVariantList(), ""}};
        for (const auto &[value, text] : shown) {
            field.setObjectValue(value);
            QCOMPARE(texts(&field).join(QLatin1Char('|')), text);
            QCOMPARE(field.input()->placeholderText().isEmpty(), !text.isEmpty());
            for (ZelToken *token : field.tokens())
                QCOMPARE(QAccessible::queryAccessibleInterface(token)->text(QAccessible::Name), token->text());
        }
    }

    void typingMakesTokens_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("ends");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("left");
        QTest::newRow("Return") << " white " << true << "red|green|blue|white"
                                << "";
        QTest::newRow("a comma") << "white," << false << "red|green|blue|white"
                                 << "";
        QTest::newRow("more after it") << "white,bl" << false << "red|green|blue|white"
                                       << "bl";
        QTest::newRow("nothing") << " , ,," << true << "red|green|blue"
                                 << "";
    }
    void typingMakesTokens()
    {
        QFETCH(QString, typed);
        QFETCH(bool, ends);
        Panel panel;
        panel.control->setObjectValue(g_colors);
        panel.control->setFocus();
        QTest::keyClicks(panel.control->input(), typed);
        if (ends)
            QTest::keyClick(panel.control->input(), Qt::Key_Return);
        QTEST(joined(panel.control->objectValue()), "value");
        QTEST(texts(panel.control).join(QLatin1Char('|')), "value");
        QTEST(panel.control->input()->text(), "left");
        QCOMPARE(panel.log, panel.control->tokens().size() > 3 ? g_report : QStringList());
    }

    void aPasteMakesAllTokensOrNone()
    {
        Panel panel;
        panel.control->setFormatter(std::make_shared<ZelNumberFormatter>());
        panel.control->setObjectValue(QVariantList{1, 2});
        panel.control->setFocus();
        QLineEdit *input = panel.control->input();
        QApplication::clipboard()->setText(QStringLiteral("3, four, 5"));
        input->paste();
        QCOMPARE(texts(panel.control), (QStringList{"1", "2"}));
        QCOMPARE(input->text(), QStringLiteral("3, four, 5"));
        QVERIFY(!panel.control->errorText().isEmpty());
        input->selectAll();
        QTest::keyClicks(input, QStringLiteral("3, 4"));
        QVERIFY(panel.control->commitEditing());
        QCOMPARE(texts(panel.control), (QStringList{"1", "2", "3", "4"}));
    }

    void onlyTokensThatDifferAreReplaced()
    {
        Panel panel;
        panel.control->setObjectValue(g_colors);
        const QList<ZelToken *> before = panel.control->tokens();
        panel.control->setFocus();
        QTest::keyClick(panel.control->input(), Qt::Key_Left);
        panel.control->setObjectValue(QVariantList{"red", "white", "black", "blue"});
        QCOMPARE(texts(panel.control), (QStringList{"red", "white", "black", "blue"}));
        QCOMPARE(panel.control->tokens().first(), before.first());
        QCOMPARE(panel.control->tokens().last(), before.last());
        QCOMPARE(QApplication::focusWidget(), before.last());
        panel.control->setObjectValue(QStringList("other")); // the selection stays in the field
        QCOMPARE(QApplication::focusWidget(), panel.control->tokens().at(0));
        panel.control->setObjectValue(QVariantList{1000});
        const auto formatter = std::make_shared<ZelNumberFormatter>();
        formatter->setLocale(QLocale(QLocale::German));
        panel.control->setFormatter(formatter); // which has other texts for the same values
        QCOMPARE(texts(panel.control), QStringList(formatter->stringForObjectValue(1000)));
    }

    void keysMoveAndRemoveTokens()
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

    void aTokenCanBeEdited()
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
        edit(2); // of the next one, which the typed one comes before
        QCOMPARE(input->text(), QStringLiteral("blue"));
        QTest::keyClick(input, Qt::Key_Escape);
        QCOMPARE(joined(panel.control->objectValue()), QStringLiteral("red|white|black|blue"));
        panel.control->tokens().at(0)->setFocus();
        QTest::keyClick(panel.control->tokens().at(0), Qt::Key_F2);
        QTest::keyClick(input, Qt::Key_Backspace); // all of the text
        panel.other->setFocus();
        QCOMPARE(joined(panel.control->objectValue()), QStringLiteral("white|black|blue"));
    }

    void readOnlyTokensCanBeCopied()
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
    void removalsWaitForTheText()
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

    /// What is committed by a window that goes becomes a token in the next turn.
    void theWindowCommitsAsItGoes()
    {
        Panel panel;
        panel.control->setObjectValue(g_colors);
        panel.control->setFocus();
        QTest::keyClicks(panel.control->input(), QStringLiteral("white"));
        panel.hide();
        QCOMPARE(joined(panel.control->objectValue()), QStringLiteral("red|green|blue|white"));
        QCOMPARE(texts(panel.control).size(), 3);
        QTRY_COMPARE(texts(panel.control).size(), 4);
        QCOMPARE(panel.control->input()->text(), QString());
        QCOMPARE(panel.log, g_report);
    }

    void growsWithItsTokens()
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

    void survivesItsListeners()
    {
        for (const bool editsToken : {true, false}) {
            Panel panel;
            QPointer<ZelGrowingTokenField> control = panel.control;
            control->setObjectValue(g_colors);
            panel.whenEdited = [&panel] { delete std::exchange(panel.control, nullptr); };
            control->setFocus();
            if (editsToken) { // which ends another edit first
                QTest::keyClicks(control->input(), QStringLiteral("white"));
                Q_EMIT control->tokens().at(1)->doubleClicked();
            } else {
                QTest::keyClick(control->input(), Qt::Key_Left);
                QTest::keyClick(control->tokens().at(2), Qt::Key_Delete);
            }
            QVERIFY(!control);
        }
    }

    void tokensMayGoWithTheFocus()
    {
        for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Delete}) {
            Panel panel;
            ZelGrowingTokenField *control = panel.control;
            control->setObjectValue(g_colors);
            control->tokens().at(2)->setFocus();
            QObject listener;
            connect(qApp, &QApplication::focusChanged, &listener,
                    [control] { control->setObjectValue(QVariantList{1}); });
            QTest::keyClick(control->tokens().at(2), key);
            QCOMPARE(texts(control), QStringList("1"));
            QCOMPARE(control->input()->text(), QString());
            QCOMPARE(panel.log, QStringList());
        }
    }
};

QTEST_MAIN(tst_ZelGrowingTokenField)
#include "tst_ZelGrowingTokenField.moc"
