// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Fields/ZelGrowingTokenField.h"
#include "Controls/Fields/ZelToken.h"

namespace {
const QVariantList g_colors{"red", "green", "blue"};

/// The state is the tokens, with the selected one in brackets, what is typed, and the value where it is another one.
class Panel : public ControlPanel<ZelGrowingTokenField>
{
public:
    explicit Panel(const QVariant &value = g_colors)
        : input(control->input())
    {
        control->setObjectValue(value);
        takeLog();
        state = [this]() -> QString {
            QStringList texts;
            QStringList marked;
            for (const ZelToken *token : control->tokens()) {
                texts.append(token->text());
                marked.append(token->hasFocus() ? "[" + token->text() + "]" : token->text());
            }
            const QStringList value = control->objectValue().toStringList();
            return marked.join('|') + (input->text().isEmpty() ? QString() : " " + input->text()) +
                   (value == texts ? QString() : " (" + value.join('|') + ")");
        };
        actions.insert({
            {"edit", [this](const QString &index) { QTest::mouseDClick(token(index.toInt()), Qt::LeftButton); }},
            {"click", [this](const QString &index) { QTest::mouseClick(token(index.toInt()), Qt::LeftButton); }},
            {"input", [this](const QString &) { input->setFocus(); }},
        });
    }

    ZelToken *token(qsizetype index) const { return control->tokens().at(index); }

    QPointer<QLineEdit> input;
};
} // namespace

/// What becomes of tokens; the edit itself is tested for all fields at once.
class tst_ZelGrowingTokenField : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void showsListsAsTokens()
    {
        Panel panel;
        panel.control->setNullPlaceholder("none");
        const std::pair<QVariant, QString> shown[] = {
            {QStringList{"a, b", "R&D"}, "a, b|R&D"}, {"single", "single"}, {QVariantList(), ""}};
        for (const auto &[value, text] : shown) {
            panel.control->setObjectValue(value);
            QCOMPARE(panel.state(), text);
            QCOMPARE(panel.input->placeholderText().isEmpty(), !text.isEmpty());
            for (ZelToken *token : panel.control->tokens())
                QCOMPARE(QAccessible::queryAccessibleInterface(token)->text(QAccessible::Name), token->text());
        }
    }

    void keysMakeAndMoveAndRemoveTokens()
    {
        for (const char *script : {
                 "focus; ' white ' > red|green|blue  white ; Return > red|green|blue|white reported",
                 "focus; 'white,' > red|green|blue|white reported; 'bl' > red|green|blue|white bl",
                 "focus; ' , ,,'; Return > red|green|blue",
                 // What has the focus is selected before it is removed. Typing goes on in the text.
                 "focus; Backspace > red|green|[blue]; Left > red|[green]|blue; Delete > red|[blue] reported; "
                 "Right > red|blue; Left > red|[blue]; W > red|blue w; Left > red|blue w",
                 // A token can be edited, before the next one; or removed with all of its text.
                 "edit 1 > red|blue green (red|green|blue); Escape > red|green|blue; edit 1; Return > red|green|blue; "
                 "edit 1; 'white, black' > red|white|blue  black reported; edit 2 > red|white|black blue "
                 "(red|white|black|blue) reported; Escape > red|white|black|blue; "
                 "click 0; F2 > white|black|blue red (red|white|black|blue); Backspace; leave > white|black|blue "
                 "reported",
                 // Removals wait for the text, or the token that is being edited would be lost to the value.
                 "edit 1; click 0; Delete > [blue] green (red|green|blue); input; Escape > red|green|blue; "
                 "edit 1; click 0; Delete; leave > green|blue reported",
             })
            Panel().play(script);
        Panel panel;
        panel.control->setLayoutDirection(Qt::RightToLeft);
        panel.play("focus; Right > red|green|[blue]");
        QVERIFY(panel.token(0)->x() > panel.token(1)->x());
        panel.control->setLayoutDirection(Qt::LeftToRight);
        panel.play("edit 1");
        QVERIFY(panel.input->hasFocus());
        QVERIFY(panel.input->x() > panel.token(0)->x() && panel.input->x() < panel.token(1)->x());
    }

    void readOnlyTokensCanBeCopied()
    {
        Panel panel;
        panel.control->setEditable(false);
        panel.play("focus; Left > red|green|[blue]; Delete; Return; W; edit 2 > red|green|[blue]; Ctrl+C");
        QCOMPARE(QApplication::clipboard()->text(), "blue");
        QVERIFY(!panel.input->isVisible());
    }

    void aPasteMakesAllTokensOrNone()
    {
        Panel panel(QVariantList{1, 2});
        panel.control->setFormatter(std::make_shared<ZelNumberFormatter>());
        QApplication::clipboard()->setText("3, four, 5");
        panel.play("focus; Ctrl+V > 1|2 3, four, 5");
        QVERIFY(!panel.control->errorText().isEmpty());
        panel.play("Ctrl+A; '3,4' > 1|2|3 4 reported; Return > 1|2|3|4 reported");
    }

    void onlyTokensThatDifferAreReplaced()
    {
        Panel panel;
        const QList<ZelToken *> before = panel.control->tokens();
        panel.play("focus; Left");
        panel.control->setObjectValue(QVariantList{"red", "white", "black", "blue"});
        QCOMPARE(panel.state(), "red|white|black|[blue]");
        QVERIFY(panel.token(0) == before.first() && panel.token(3) == before.last());
        panel.control->setObjectValue(QStringList("other")); // the selection stays in the field
        QCOMPARE(panel.state(), "[other]");
        panel.control->setObjectValue(QVariantList{1000});
        const auto formatter = std::make_shared<ZelNumberFormatter>();
        formatter->setMinimumFractionDigits(2);
        panel.control->setFormatter(formatter); // which has other texts for the same values
        QCOMPARE(panel.token(0)->text(), formatter->stringForObjectValue(1000));
    }

    /// What is committed by a window that goes becomes a token in the next turn.
    void theWindowCommitsAsItGoes()
    {
        Panel panel;
        panel.play("focus; 'white'");
        panel.hide();
        QCOMPARE(panel.state(), "red|green|blue white (red|green|blue|white)");
        QTRY_COMPARE(panel.state(), "red|green|blue|white");
        QCOMPARE(panel.log, panel.oneEdit);
    }

    void growsWithItsTokens()
    {
        Panel panel("one");
        ZelGrowingTokenField *field = panel.control;
        panel.resize(160, 400);
        QCoreApplication::processEvents();
        const int line = QLineEdit().sizeHint().height();
        QCOMPARE(field->heightForWidth(field->width()), line);
        QStringList many("a token that is much wider than the field can be");
        for (int i = 0; i < 20; ++i)
            many.append(QString("token %1").arg(i));
        field->setObjectValue(many);
        QVERIFY(field->heightForWidth(field->width()) > 4 * line);
        QTRY_VERIFY(field->height() >= field->heightForWidth(field->width()));
        for (const ZelToken *token : field->tokens())
            QVERIFY(field->rect().contains(token->geometry()));
        QVERIFY(field->heightForWidth(1000) < field->heightForWidth(100));
    }

    void survivesItsListeners()
    {
        for (const char *script :
             {"focus; 'white'; edit 1", "focus; Left; Delete"}) { // the first ends another edit first
            for (const int report : {1, 2, 3}) {
                Panel panel;
                panel.dyingAt = panel.told + report;
                panel.play(script);
                QVERIFY(!panel.control);
            }
        }
        for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Delete}) { // whose token goes with the focus
            Panel panel;
            panel.token(2)->setFocus();
            QObject listener;
            connect(qApp, &QApplication::focusChanged, &listener,
                    [&panel] { panel.control->setObjectValue(QVariantList{1}); });
            press(key);
            QCOMPARE(panel.state().remove('[').remove(']'), "1");
            QVERIFY(!panel.log.contains("valueEdited"));
        }
    }
};
QTEST_MAIN(tst_ZelGrowingTokenField)
#include "tst_ZelGrowingTokenField.moc"
