// SPDX-License-Identifier: MIT
#include "Platform/Controls/ZelErrorNote.h"
#include "Platform/Controls/ZelNumberFormatter.h"
#include "Platform/Controls/ZelPaddedTextField.h"
#include "Platform/Controls/ZelTextField.h"
#include "Platform/Controls/ZelThemeColor.h"
#include "Platform/Runtime/ZelValues.h"

#include "ControlPanel.h"

#include <QApplication>
#include <QShortcut>
#include <QSignalSpy>

namespace {

/// Numbers with a unit that is shown and not edited.
class MetreFormatter : public ZelNumberFormatter
{
public:
    MetreFormatter() { setLocale(QLocale::c()); }
    QString stringForObjectValue(const QVariant &value) const override
    {
        return ZelNumberFormatter::stringForObjectValue(value) + QStringLiteral(" m");
    }
    QString editingStringForObjectValue(const QVariant &value) const override
    {
        return ZelNumberFormatter::stringForObjectValue(value);
    }
    Range unitRange(const QString &text) const override { return {text.size() - 2, 2}; }
};

using Panel = ControlPanel<ZelTextField>;

/// How many pixels of the widget have nearly the colour.
int pixelsOf(QWidget *widget, const QColor &color)
{
    const QImage image = widget->grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            count += std::abs(pixel.red() - color.red()) + std::abs(pixel.green() - color.green()) +
                         std::abs(pixel.blue() - color.blue()) <
                     24;
        }
    }
    return count;
}

} // namespace

class tst_ZelTextField : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void showsValuesAndMarkers();
    void showsTheEditingTextWhileFocused();
    void returnCommits();
    void focusOutCommits();
    void unchangedTextIsSilent_data();
    void unchangedTextIsSilent();
    void escapeDiscards();
    void textThatIsNoValueStays();
    void checkRefusesValues();
    void refusesTextOfADyingWindow();
    void valueArrivingWhileTypingIsKeptAside();
    void programmaticChangesAreNotReported();
    void losingEditabilityDiscards();
    void mayDieWhenItReports();
    void undoShortcutIsTheWindowsUnlessTyping();
    void longTextsAreElidedAndUnitsDimmed();
    void textsLieWhereALineEditPutsThem();
    void elidedTextsStandOnTheSameLine();
    void paddingIsMirrored();
    void dimmedTextsAreLegible();
};

void tst_ZelTextField::showsValuesAndMarkers()
{
    ZelTextField field;
    field.setNullPlaceholder(QStringLiteral("none"));
    const auto shown = [&field](const QVariant &value) {
        field.setObjectValue(value);
        return QString(field.text() + QLatin1Char('|') + field.placeholderText());
    };
    QCOMPARE(shown(QStringLiteral("text")), QStringLiteral("text|none"));
    QCOMPARE(shown({}), QStringLiteral("|none"));
    QCOMPARE(shown(ZelNull()), QStringLiteral("|none"));
    QCOMPARE(shown(QVariant::fromValue(ZelMultipleValuesMarker)), QStringLiteral("|Multiple Values"));
    QCOMPARE(shown(QVariant::fromValue(ZelNoSelectionMarker)), QStringLiteral("|No Selection"));
    field.setFormatter(std::make_shared<MetreFormatter>());
    QCOMPARE(shown(QVariant::fromValue(ZelMultipleValuesMarker)), QStringLiteral("|Multiple Values"));
    QCOMPARE(shown(12.5), QStringLiteral("12.5 m|none"));
}

void tst_ZelTextField::showsTheEditingTextWhileFocused()
{
    Panel panel;
    panel.control->setFormatter(std::make_shared<MetreFormatter>());
    panel.control->setObjectValue(12);
    panel.control->setFocus(Qt::TabFocusReason);
    QCOMPARE(panel.control->text(), QStringLiteral("12"));
    QCOMPARE(panel.control->selectedText(), QStringLiteral("12"));
    panel.other->setFocus();
    QCOMPARE(panel.control->text(), QStringLiteral("12 m"));
    QCOMPARE(panel.log, QStringList());
}

void tst_ZelTextField::returnCommits()
{
    Panel panel;
    panel.control->setFormatter(std::make_shared<MetreFormatter>());
    panel.control->setObjectValue(QVariant::fromValue(ZelMultipleValuesMarker));
    panel.control->setFocus();
    QTest::keyClicks(panel.control, QStringLiteral(" 7.50 "));
    QVERIFY(panel.control->isEditing());
    QTest::keyClick(panel.control, Qt::Key_Return);
    QCOMPARE(panel.takeLog(), Panel::edits(1));
    QCOMPARE(panel.level, 1);
    QCOMPARE(panel.undo.stack()->count(), 1);
    QCOMPARE(panel.control->objectValue(), QVariant(7.5));
    QCOMPARE(panel.control->text(), QStringLiteral("7.5"));
    QCOMPARE(panel.control->selectedText(), QStringLiteral("7.5"));
    // An emptied field is an absent value.
    QTest::keyClick(panel.control, Qt::Key_Delete);
    QTest::keyClick(panel.control, Qt::Key_Return);
    QCOMPARE(panel.takeLog(), Panel::edits(1));
    QVERIFY(!panel.control->objectValue().isValid());
}

void tst_ZelTextField::focusOutCommits()
{
    Panel panel;
    panel.control->setFocus();
    QTest::keyClicks(panel.control, QStringLiteral("abc"));
    panel.other->setFocus();
    QCOMPARE(panel.takeLog(), Panel::edits(1));
    QCOMPARE(panel.control->objectValue(), QVariant(QStringLiteral("abc")));
}

void tst_ZelTextField::unchangedTextIsSilent_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("typed");
    QTest::newRow("nothing typed, text rounded") << QVariant(1.23456) << "";
    QTest::newRow("same text again") << QVariant(1.23456) << "1.235";
    QTest::newRow("same number, other text") << QVariant(12) << "12.00";
    QTest::newRow("nothing typed for several values") << QVariant::fromValue(ZelMultipleValuesMarker) << "";
}

void tst_ZelTextField::unchangedTextIsSilent()
{
    QFETCH(QVariant, value);
    QFETCH(QString, typed);
    Panel panel;
    panel.control->setFormatter(std::make_shared<MetreFormatter>());
    panel.control->setObjectValue(value);
    panel.control->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(panel.control, typed);
    QTest::keyClick(panel.control, Qt::Key_Enter);
    QVERIFY(panel.control->commitEditing());
    panel.other->setFocus();
    QCOMPARE(panel.log, QStringList());
    QCOMPARE(panel.control->objectValue(), value);
}

void tst_ZelTextField::escapeDiscards()
{
    Panel panel;
    QShortcut shortcut(QKeySequence(Qt::Key_Escape), &panel);
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    panel.control->setObjectValue(QStringLiteral("old"));
    panel.control->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(panel.control, QStringLiteral("new"));
    QTest::keyClick(panel.control, Qt::Key_Escape);
    QCOMPARE(panel.control->text(), QStringLiteral("old"));
    QCOMPARE(activated.count(), 0);
    QTest::keyClick(panel.control, Qt::Key_Escape);
    QCOMPARE(activated.count(), 1);
    QCOMPARE(panel.log, QStringList());
}

void tst_ZelTextField::textThatIsNoValueStays()
{
    Panel panel;
    panel.control->setFormatter(std::make_shared<MetreFormatter>());
    panel.control->setObjectValue(3);
    const QPalette plain = panel.control->palette();
    panel.control->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(panel.control, QStringLiteral("abc"));
    QTest::keyClick(panel.control, Qt::Key_Return);
    QVERIFY(!panel.control->errorText().isEmpty());
    QCOMPARE(panel.control->accessibleDescription(), panel.control->errorText());
    QCOMPARE(panel.control->palette().color(QPalette::Text), ZelThemeColor::error(plain));
    panel.other->setFocus();
    QCOMPARE(panel.control->text(), QStringLiteral("abc"));
    QVERIFY(!panel.control->commitEditing());
    panel.control->setObjectValue(3.0);
    QCOMPARE(panel.control->text(), QStringLiteral("abc"));
    QCOMPARE(panel.log, QStringList());

    // The reason stands beside the field until the text is mended; Escape takes both away.
    const QPointer<ZelErrorNote> note = panel.findChild<ZelErrorNote *>();
    QVERIFY(note && note->isVisible());
    QCOMPARE(note->text(), panel.control->errorText());
    QVERIFY(panel.rect().contains(note->geometry()) && !note->geometry().intersects(panel.control->geometry()));
    panel.control->setFocus(Qt::OtherFocusReason);
    QCOMPARE(panel.control->text(), QStringLiteral("abc"));
    QTest::keyClick(panel.control, Qt::Key_Backspace);
    QVERIFY(!panel.control->errorText().isEmpty());
    QTest::keyClick(panel.control, Qt::Key_Home);
    QTest::keyClick(panel.control, Qt::Key_Delete);
    QTest::keyClick(panel.control, Qt::Key_Delete);
    QTest::keyClicks(panel.control, QStringLiteral("5"));
    QVERIFY(panel.control->errorText().isEmpty());
    QVERIFY(!note);
    QCOMPARE(panel.control->palette().color(QPalette::Text), plain.color(QPalette::Text));
    QTest::keyClick(panel.control, Qt::Key_Escape);
    QCOMPARE(panel.control->text(), QStringLiteral("3"));
    QVERIFY(panel.control->commitEditing());

    // Left behind, it gives way to another value.
    QTest::keyClicks(panel.control, QStringLiteral("abc"));
    panel.other->setFocus();
    QCOMPARE(panel.control->text(), QStringLiteral("abc"));
    panel.control->setObjectValue(4);
    QCOMPARE(panel.control->text(), QStringLiteral("4 m"));
    QVERIFY(panel.control->errorText().isEmpty());
}

/// The focus is lost while the window is destroyed: nothing may be put into it any more.
void tst_ZelTextField::refusesTextOfADyingWindow()
{
    auto panel = std::make_unique<Panel>();
    panel->control->setFormatter(std::make_shared<MetreFormatter>());
    panel->control->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(panel->control, QStringLiteral("abc"));
    const QPointer<ZelTextField> field = panel->control;
    panel.reset();
    QVERIFY(!field);
}

void tst_ZelTextField::checkRefusesValues()
{
    Panel panel;
    panel.control->setFormatter(std::make_shared<MetreFormatter>());
    panel.control->setObjectValue(3);
    const QString reason = QStringLiteral("Too much.");
    panel.control->setValueCheck([&](const QVariant &value) { return value.toInt() > 10 ? reason : QString(); });
    panel.control->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(panel.control, QStringLiteral("11"));
    panel.other->setFocus();
    QCOMPARE(panel.log, QStringList());
    QCOMPARE(panel.control->errorText(), reason);
    QCOMPARE(panel.control->objectValue(), QVariant(3));
    panel.control->setFocus(Qt::OtherFocusReason);
    QTest::keyClick(panel.control, Qt::Key_Escape);
    QCOMPARE(panel.control->text(), QStringLiteral("3"));
}

void tst_ZelTextField::valueArrivingWhileTypingIsKeptAside()
{
    Panel panel;
    panel.control->setObjectValue(QStringLiteral("one"));
    panel.control->setFocus(Qt::TabFocusReason);
    panel.control->setObjectValue(QStringLiteral("two"));
    QCOMPARE(panel.control->text(), QStringLiteral("two"));
    QTest::keyClicks(panel.control, QStringLiteral("typed"));
    panel.control->setObjectValue(QStringLiteral("three"));
    QCOMPARE(panel.control->text(), QStringLiteral("typed"));
    QTest::keyClick(panel.control, Qt::Key_Escape);
    QCOMPARE(panel.control->text(), QStringLiteral("three"));

    // The model's answer to the edit, arriving within the report, is the newest value of all.
    panel.whenEdited = [&panel] { panel.control->setObjectValue(QStringLiteral("corrected")); };
    QTest::keyClicks(panel.control, QStringLiteral("wrong"));
    QTest::keyClick(panel.control, Qt::Key_Return);
    QCOMPARE(panel.control->text(), QStringLiteral("corrected"));
    panel.other->setFocus();
    QCOMPARE(panel.takeLog(), Panel::edits(1));
}

void tst_ZelTextField::programmaticChangesAreNotReported()
{
    Panel panel;
    const QSignalSpy changed(panel.control, &ZelTextField::objectValueChanged);
    panel.control->setObjectValue(1);
    panel.control->setObjectValue(1.0);
    panel.control->setFormatter(std::make_shared<MetreFormatter>());
    panel.control->discardEditing();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(panel.log, QStringList());
}

void tst_ZelTextField::losingEditabilityDiscards()
{
    Panel panel;
    panel.control->setObjectValue(QStringLiteral("old"));
    panel.control->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(panel.control, QStringLiteral("new"));
    panel.control->setEditable(false);
    QCOMPARE(panel.control->text(), QStringLiteral("old"));
    QTest::keyClicks(panel.control, QStringLiteral("more"));
    QTest::keyClick(panel.control, Qt::Key_Return);
    panel.other->setFocus();
    QCOMPARE(panel.control->text(), QStringLiteral("old"));
    QVERIFY(panel.control->isEnabled());
    QCOMPARE(panel.log, QStringList());
}

void tst_ZelTextField::mayDieWhenItReports()
{
    for (const bool byReturn : {true, false}) {
        Panel panel;
        panel.whenEdited = [&panel] { delete panel.control; };
        panel.control->setFocus();
        QTest::keyClicks(panel.control, QStringLiteral("x"));
        if (byReturn) {
            QTest::keyPress(panel.control, Qt::Key_Return);
        } else {
            panel.other->setFocus();
        }
        QVERIFY(!panel.control);
        QCOMPARE(panel.log, QStringList(QStringLiteral("valueEdited")));
    }
}

void tst_ZelTextField::undoShortcutIsTheWindowsUnlessTyping()
{
    Panel panel;
    QShortcut shortcut(QKeySequence(Qt::CTRL | Qt::Key_Z), &panel);
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    panel.control->setFocus();
    QTest::keyClicks(panel.control, QStringLiteral("x"));
    QTest::keyClick(panel.control, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(panel.control->text(), QString());
    QCOMPARE(activated.count(), 0);
    QTest::keyClick(panel.control, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(activated.count(), 1);
}

void tst_ZelTextField::longTextsAreElidedAndUnitsDimmed()
{
    QWidget parent;
    ZelTextField field(&parent);
    QPalette colors = field.palette();
    colors.setColor(QPalette::Text, Qt::blue);
    colors.setColor(QPalette::Disabled, QPalette::Text, Qt::darkRed);
    colors.setColor(QPalette::Base, Qt::white);
    parent.setPalette(colors);
    parent.setFont(QFont(QStringLiteral("DejaVu Sans"), 40));
    field.setFormatter(std::make_shared<MetreFormatter>());
    field.setObjectValue(88);
    field.resize(400, 100);
    const int unit = pixelsOf(&field, Qt::darkRed);
    const int number = pixelsOf(&field, Qt::blue);
    QVERIFY2(unit > 50 && number > 50, qPrintable(QStringLiteral("%1 %2").arg(unit).arg(number)));

    // Too narrow for both: the number's start is what remains.
    field.setObjectValue(8888);
    field.resize(120, 100);
    QCOMPARE(pixelsOf(&field, Qt::darkRed), 0);
    QVERIFY(pixelsOf(&field, Qt::blue) > 50);
    field.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(pixelsOf(&field, Qt::blue) > 50);
}

void tst_ZelTextField::textsLieWhereALineEditPutsThem()
{
    QWidget parent;
    QPalette colors = parent.palette();
    colors.setColor(QPalette::Disabled, QPalette::Text, colors.color(QPalette::Text));
    parent.setPalette(colors);
    ZelTextField field(&parent);
    QLineEdit lineEdit(&parent);
    field.setFormatter(std::make_shared<MetreFormatter>());
    field.setObjectValue(1234);
    lineEdit.setText(field.text());
    // Whatever the direction of the window.
    for (int pointSize = 7; pointSize < 14; ++pointSize) {
        parent.setFont(QFont(QStringLiteral("DejaVu Sans"), pointSize));
        field.resize(151, lineEdit.sizeHint().height());
        lineEdit.resize(field.size());
        for (const Qt::AlignmentFlag alignment : {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter}) {
            parent.setLayoutDirection(pointSize % 2 ? Qt::LeftToRight : Qt::RightToLeft);
            field.setAlignment(alignment);
            lineEdit.setAlignment(alignment);
            QCOMPARE(field.grab().toImage(), lineEdit.grab().toImage());
        }
    }
}

void tst_ZelTextField::elidedTextsStandOnTheSameLine()
{
    QWidget parent;
    ZelTextField field(&parent);
    field.setText(QStringLiteral("HHHHHHHHHHHHHHHHHHHH"));
    field.setCursorPosition(0);
    for (const char *family : {"DejaVu Sans", "DejaVu Serif", "Liberation Sans"}) {
        for (double pointSize = 6; pointSize < 15; pointSize += 0.5) {
            QFont font(QString::fromUtf8(family));
            font.setPointSizeF(pointSize);
            parent.setFont(font);
            const int height = field.sizeHint().height();
            const int letter = field.fontMetrics().horizontalAdvance(u'H');
            const QRect first(0, 0, letter, height);
            field.resize(30 * letter, height);
            const QImage whole = field.grab(first).toImage();
            field.resize(8 * letter, height);
            QVERIFY2(field.grab(first).toImage() == whole,
                     qPrintable(QStringLiteral("%1 %2").arg(QString::fromUtf8(family)).arg(pointSize)));
        }
    }
}

void tst_ZelTextField::paddingIsMirrored()
{
    ZelPaddedTextField field;
    field.setPadding({1, 2, 20, 4});
    QCOMPARE(field.textMargins(), QMargins(1, 2, 20, 4));
    field.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(field.textMargins(), QMargins(20, 2, 1, 4));
    QCOMPARE(field.padding(), QMargins(1, 2, 20, 4));
}

void tst_ZelTextField::dimmedTextsAreLegible()
{
    for (const QPalette &palette : {QPalette(QColor(0xef, 0xef, 0xef)), QPalette(QColor(0x35, 0x35, 0x35))}) {
        for (const QColor &faint :
             {ZelThemeColor::dimmed(palette),
              ZelThemeColor::legible(palette.color(QPalette::Disabled, QPalette::Text), palette)}) {
            for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Button, QPalette::Window})
                QVERIFY(ZelThemeColor::contrast(faint, palette.color(role)) >= 4.5);
        }
    }
    QCOMPARE(ZelThemeColor::contrast(Qt::black, Qt::white), 21.0);
}

QTEST_MAIN(tst_ZelTextField)
#include "tst_ZelTextField.moc"
