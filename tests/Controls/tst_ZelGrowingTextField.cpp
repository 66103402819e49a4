// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/Fields/ZelTextField.h"

#include "ControlPanel.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QScrollBar>

namespace {

using Panel = ControlPanel<ZelGrowingTextField>;

/// The widget that gets the keys.
QWidget *keys()
{
    return QApplication::focusWidget();
}

QPlainTextEdit *editorOf(QWidget *field)
{
    for (QPlainTextEdit *editor : field->findChildren<QPlainTextEdit *>()) {
        if (editor->isVisible())
            return editor;
    }
    return nullptr;
}

const QString g_longText =
    QStringLiteral("Many words that need more than one line of the field, and even more words. ");

} // namespace

/// How the field grows, and the editor in it; the edit itself is tested for all fields at once.
class tst_ZelGrowingTextField : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void growsWithItsText()
    {
        ZelGrowingTextField field;
        field.setObjectValue(g_longText);
        const int wide = field.heightForWidth(2000);
        const int narrow = field.heightForWidth(120);
        QVERIFY(narrow >= wide + 2 * field.fontMetrics().height());
        QVERIFY(field.heightForWidth(0) > 0);
        field.setObjectValue(QStringLiteral("a\nb\n"));
        const int line = field.fontMetrics().height();
        QVERIFY(qAbs(field.heightForWidth(2000) - wide - 2 * line) <= 1);

        // A layout learns of a changed height.
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&field);
        layout->addStretch();
        window.resize(160, 600);
        window.show();
        const int before = field.height();
        field.setObjectValue(QString(g_longText + g_longText));
        QTRY_COMPARE(field.height(), field.heightForWidth(field.width()));
        QVERIFY(field.height() > before);
        field.setParent(nullptr);
    }

    void oneLineIsLikeALineEdit()
    {
        for (const bool label : {false, true}) {
            ZelTextField lineEdit;
            ZelGrowingTextField field;
            lineEdit.setLabelStyle(label);
            field.setLabelStyle(label);
            lineEdit.setObjectValue(QStringLiteral("Text"));
            field.setObjectValue(QStringLiteral("Text"));
            QCOMPARE(field.heightForWidth(200), lineEdit.sizeHint().height());
            field.resize(200, field.heightForWidth(200));
            lineEdit.resize(field.size());
            QCOMPARE(field.grab().toImage(), lineEdit.grab().toImage());
        }
    }

    void growsWhileTyping()
    {
        Panel panel;
        panel.resize(200, 300);
        panel.control->setFocus();
        const int before = panel.control->heightForWidth(panel.control->width());
        QTest::keyClicks(keys(), QStringLiteral("one"));
        QCOMPARE(panel.control->heightForWidth(panel.control->width()), before);
        QTest::keyClick(keys(), Qt::Key_Return, Qt::AltModifier);
        QVERIFY(panel.control->heightForWidth(panel.control->width()) > before);
        // The whole text fits without scrolling.
        QVERIFY(panel.control->height() >= panel.control->heightForWidth(panel.control->width())); // at once
        QCOMPARE(editorOf(panel.control)->verticalScrollBar()->maximum(), 0);
        QCOMPARE(panel.control->text(), QStringLiteral("one\n"));
        QTest::keyClick(keys(), Qt::Key_Escape);
        QCOMPARE(panel.control->heightForWidth(panel.control->width()), before);
    }

    void hasAnEditorWhileFocused()
    {
        Panel panel;
        QWidget *after = new ZelTextField(&panel);
        panel.layout()->addWidget(after);
        after->show();
        panel.control->setObjectValue(g_longText);
        QVERIFY(panel.control->findChildren<QWidget *>().isEmpty());
        QTest::keyClick(panel.other, Qt::Key_Tab);
        QVERIFY(keys() == editorOf(panel.control) && panel.control->hasFocus());
        QCOMPARE(editorOf(panel.control)->textCursor().selectedText(), g_longText);
        QTest::keyClick(keys(), Qt::Key_Tab);
        QCOMPARE(keys(), after);
        QVERIFY(!editorOf(panel.control));
        QTest::keyClick(keys(), Qt::Key_Backtab);
        QCOMPARE(keys(), editorOf(panel.control));
        QTest::keyClick(keys(), Qt::Key_Backtab);
        QCOMPARE(keys(), panel.other);
        QTRY_VERIFY(panel.control->findChildren<QWidget *>().isEmpty());
    }

    void clickPlacesTheCursor()
    {
        Panel panel;
        panel.control->setObjectValue(QStringLiteral("WWWW"));
        const int x = panel.control->fontMetrics().horizontalAdvance(QStringLiteral("WW")) + 7;
        QWidget *window = panel.window();
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, panel.control->mapTo(window, QPoint(x, 10)));
        QVERIFY(editorOf(panel.control));
        QTest::keyClicks(keys(), QStringLiteral("i"));
        QCOMPARE(panel.control->text(), QStringLiteral("WWiWW"));
    }

    void modifiedReturnBreaksTheLine()
    {
        Panel panel;
        panel.control->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(keys(), QStringLiteral("a"));
        QTest::keyClick(keys(), Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(keys(), QStringLiteral("b"));
        QCOMPARE(panel.log, QStringList());
        QTest::keyClick(keys(), Qt::Key_Enter);
        QCOMPARE(panel.takeLog(), Panel::edits(1));
        QCOMPARE(panel.control->objectValue(), QVariant(QStringLiteral("a\nb")));
        QVERIFY(editorOf(panel.control)->textCursor().hasSelection());
    }

    void readOnlyTextCanBeSelected()
    {
        Panel panel;
        panel.control->setLabelStyle(true);
        QCOMPARE(panel.control->focusPolicy(), Qt::TabFocus); // there is nothing to click for
        panel.control->setObjectValue(QStringLiteral("fixed"));
        QCOMPARE(panel.control->focusPolicy(), Qt::StrongFocus);
        panel.control->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(keys(), QStringLiteral("x"));
        QCOMPARE(editorOf(panel.control)->textCursor().selectedText(), QStringLiteral("fixed"));
    }

    void scrollsThePaneUnderTheWheel()
    {
        for (double pointSize = 6; pointSize < 15; pointSize += 0.5) {
            for (const QString &text : {QStringLiteral("one\ntwo"), g_longText}) {
                Panel panel;
                QFont font = panel.font();
                font.setPointSizeF(pointSize);
                panel.setFont(font);
                panel.control->setObjectValue(text);
                panel.resize(200, 400);
                QVERIFY(!panel.wheel(-120));
                panel.control->setFocus();
                QCoreApplication::processEvents();
                QWidget *viewport = editorOf(panel.control)->viewport();
                const QPointF place = QRectF(viewport->rect()).center();
                QWheelEvent event(place, viewport->mapToGlobal(place), QPoint(), QPoint(0, -120), Qt::NoButton,
                                  Qt::NoModifier, Qt::NoScrollPhase, false);
                event.setAccepted(false);
                QCoreApplication::sendEvent(viewport, &event);
                QVERIFY2(!event.isAccepted() && editorOf(panel.control)->verticalScrollBar()->value() == 0,
                         qPrintable(QStringLiteral("%1 %2").arg(text).arg(pointSize)));
            }
        }
    }

    /// As in a line edit, with and without the focus.
    void textBeginsAtTheEdgeOfItsDirection()
    {
        for (const QString &text : {QStringLiteral("abc"), QString::fromUtf8("\u05d0\u05d1\u05d2")}) {
            Panel panel;
            panel.control->setObjectValue(text);
            panel.resize(200, 400);
            const QImage image = panel.control->grab().toImage();
            const auto inkIn = [&image](int left, int right) {
                for (int x = left; x < right; ++x)
                    for (int y = 4; y < image.height() - 4; ++y)
                        if (image.pixel(x, y) != image.pixel(image.width() / 2, y))
                            return true;
                return false;
            };
            QCOMPARE(inkIn(4, 20), !text.isRightToLeft());
            QCOMPARE(inkIn(image.width() - 20, image.width() - 4), text.isRightToLeft());
            panel.control->setFocus();
            QCOMPARE(editorOf(panel.control)->cursorRect().x() > panel.control->width() / 2, text.isRightToLeft());
        }
    }
};

QTEST_MAIN(tst_ZelGrowingTextField)
#include "tst_ZelGrowingTextField.moc"
