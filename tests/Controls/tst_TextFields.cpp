// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Fields/ZelComboBox.h"
#include "Controls/Fields/ZelDatePicker.h"
#include "Controls/Fields/ZelPaddedTextField.h"
#include "Controls/private/ZelErrorNote.h"
#include "Controls/private/ZelThemeColor.h"
#include <cmath>

namespace {
constexpr double g_largest = std::numeric_limits<double>::max();
const QString g_longText =
    QStringLiteral("Many words that need more than one line of the field, and even more words. ");
const QString g_hebrew = QStringLiteral("\u05d0\u05d1\u05d2");
const QStringList g_names{"Alpha", "Beta", "Gamma"};

/// Numbers with a unit that is shown and not edited.
class MetreFormatter : public ZelNumberFormatter
{
public:
    MetreFormatter() { setLocale(QLocale::c()); }
    QString stringForObjectValue(const QVariant &value) const override
    {
        return editingStringForObjectValue(value) + " m";
    }
    QString editingStringForObjectValue(const QVariant &value) const override
    {
        return ZelNumberFormatter::stringForObjectValue(value);
    }
    Range unitRange(const QString &text) const override { return {text.size() - 2, 2}; }
};

ZelNumberFormatter formatter(const char *locale, int minimumDigits = 0, int maximumDigits = 3)
{
    ZelNumberFormatter formatter;
    formatter.setMinimumFractionDigits(minimumDigits);
    formatter.setMaximumFractionDigits(maximumDigits);
    formatter.setLocale(QLocale(QString::fromLatin1(locale)));
    return formatter;
}

/// The value of the text, with "refused" where it is none and that is explained.
QVariant parsed(const ZelNumberFormatter &numbers, const QString &text)
{
    QVariant value = "refused";
    QString error;
    const bool isValue = numbers.objectValueForString(text, &value, &error);
    return isValue == (value == "refused") || isValue != error.isEmpty() ? QVariant("wrong result") : value;
}

int pixelsOf(QWidget *widget, const QColor &color)
{
    const QImage image = widget->grab().toImage();
    int count = 0;
    for (int i = 0; i < image.width() * image.height(); ++i)
        count += image.pixelColor(i % image.width(), i / image.width()) == color;
    return count;
}

class GrowingPanel : public ControlPanel<ZelGrowingTextField>
{
public:
    explicit GrowingPanel(const QVariant &value = {})
    {
        control->setObjectValue(value);
        takeLog();
        other->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
        resize(200, 400);
    }
    int neededHeight() const { return control->heightForWidth(control->width()); }
    QPlainTextEdit *editor() const
    {
        for (QPlainTextEdit *editor : control->findChildren<QPlainTextEdit *>())
            if (editor->isVisible())
                return editor;
        return nullptr;
    }
};

/// The state is the text, and the value where it is another one.
template<typename Field> class ValuePanel : public ControlPanel<Field>
{
public:
    explicit ValuePanel(const QVariant &value)
    {
        Field *field = this->control;
        if constexpr (std::is_same_v<Field, ZelComboBox>)
            field->setContentValues(g_names);
        field->setObjectValue(value);
        this->state = [field]() -> QString {
            const QDate date = field->objectValue().toDate();
            const QString text = date.isValid() ? date.toString("dd.MM.yyyy") : field->objectValue().toString();
            const QVariant typed = field->property("currentText");
            const QString shown = typed.isValid() ? typed.toString() : field->property("text").toString();
            return shown == text ? shown : shown + "/" + text;
        };
    }
};
using ComboPanel = ValuePanel<ZelComboBox>;
using DatePanel = ValuePanel<ZelDatePicker>;
} // namespace

/// What single kinds of fields show, and how they grow; the edit itself is tested for all fields at once.
class tst_TextFields : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }

    // Numbers

    void numbersAreShown()
    {
        // Rounded half to even: that half which is typed, and not its binary.
        const std::tuple<QVariant, int, int, QString> rows[] = {{2.1256, 0, 3, "2.126"},
                                                                {0.125, 0, 2, "0.12"},
                                                                {0.375, 0, 2, "0.38"},
                                                                {1.015, 0, 2, "1.02"},
                                                                {0.5, 0, 0, "0"},
                                                                {0.50001, 0, 0, "1"},
                                                                {999.9996, 0, 3, "1000"},
                                                                {4e-9, 0, 3, "0"},
                                                                {0.0007, 0, 3, "0.001"},
                                                                {-0.0001, 0, 3, "0"},
                                                                {2.5, 2, 3, "2.50"},
                                                                {7, 1, 3, "7.0"},
                                                                {0.1F, 0, 3, "0.1"},
                                                                {{}, 0, 3, ""},
                                                                {"auto", 0, 3, "auto"},
                                                                {std::nan(""), 0, 3, "NaN"},
                                                                {1234567.0, 0, 3, "1234567"},
                                                                {~0ULL, 0, 3, "18446744073709551615"}};
        for (const auto &[value, minimum, maximum, text] : rows)
            QCOMPARE(formatter("C", minimum, maximum).stringForObjectValue(value), text);
        QCOMPARE(formatter("C").stringForObjectValue(9007199254740993LL), "9007199254740993");
        QCOMPARE(formatter("C").stringForObjectValue(g_largest), QString("17976931348623157" + QString(292, '0')));
        QCOMPARE(formatter("en_US").stringForObjectValue(1234567.0), "1234567");
        QCOMPARE(formatter("de_DE").stringForObjectValue(-1.5), "-1,5");
    }

    void numbersAreParsed()
    {
        // Some locales have a true minus sign, and in some the point is a group's.
        const std::tuple<QString, const char *, QVariant> rows[] = {
            {" \t14\u00a0", "C", 14.0},   {"  ", "C", {}},
            {"1e3", "C", 1000.0},         {".5", "C", 0.5},
            {"1,5", "de_DE", 1.5},        {"\u22123", "C", -3.0},
            {"-3", "sv_SE", -3.0},        {"9007199254740993", "C", 9007199254740993LL},
            {"1.500", "de_DE", "refused"}};
        for (const auto &[text, locale, value] : rows) {
            QCOMPARE(parsed(formatter(locale), text), value);
            QCOMPARE(parsed(formatter(locale), text).metaType(), value.metaType());
        }
        for (const char *text : {"twelve", "12pt", "1 2", "1e999", "nan", "-inf", "1,234", "-"})
            QCOMPARE(parsed(formatter("C"), text), QVariant("refused"));
        for (const char *name : {"C", "de_DE", "sv_SE", "ar_EG", "fa_IR", "fr_FR", "hi_IN"}) {
            const ZelNumberFormatter numbers = formatter(name, 0, 308);
            for (const double value : {0.1, -1.0 / 3, 1e21, -5e-300, 123456.789, g_largest}) {
                const QString shown = numbers.stringForObjectValue(value);
                bool isNumber = false;
                const double result = parsed(numbers, shown).toDouble(&isNumber);
                // Digits behind the 308th are not shown.
                QVERIFY2(isNumber && std::abs(result - value) <= 1e-307, qPrintable(shown));
            }
        }
    }

    void digitsAreGroupedAsTheLocaleDoes()
    {
        // In Spain from five digits on.
        const std::tuple<const char *, double, QString, QString> rows[] = {
            {"C", 1234567.0, "1234567", "1234567"},     {"en_US", 1234567.25, "1,234,567.25", "1234567.25"},
            {"en_US", -999.0, "-999", "-999"},          {"hi_IN", 12345678.0, "1,23,45,678", "1,23,45,678"},
            {"es_ES", 1234.0, "1234", "1234"},          {"es_ES", 12345.0, "12.345", "12345"},
            {"fr_FR", 12345.0, "12\u202f345", "12 345"}};
        for (const auto &[locale, number, text, typed] : rows) {
            ZelNumberFormatter grouping = formatter(locale);
            grouping.setUsesGroupSeparator(true);
            QCOMPARE(grouping.stringForObjectValue(number), text);
            QCOMPARE(parsed(grouping, text), QVariant(number));
            QCOMPARE(parsed(grouping, typed), QVariant(number));
            QCOMPARE(parsed(grouping, "1,2,3.4,5"), QVariant("refused"));
        }
    }

    // A line of text

    void showsTheEditingTextWhileFocused()
    {
        ValuePanel<ZelTextField> panel(12);
        ZelTextField *field = panel.control;
        panel.layout()->addItem(new QSpacerItem(1, 100));
        panel.resize(400, 300);
        QCoreApplication::processEvents();
        field->setFormatter(std::make_shared<MetreFormatter>());
        // A text that is shown for a value is not typed. Nothing is an absent value.
        panel.play("leave > 12 m/12; enter > 12; ' 7.50 '; Return > 7.5 reported; '8' > 8/7.5; Escape > 7.5; "
                   "leave > 7.5 m/7.5; set value 1.23456; enter; '1.235'; Return; leave > 1.235 m/1.23456 changed; "
                   "enter; Delete; leave >  reported; enter; 'abc'; leave > abc/");
        QVERIFY(!field->objectValue().isValid());
        const QPalette plain = panel.palette();
        QCOMPARE(field->palette().color(QPalette::Text), ZelThemeColor::error(plain));
        const auto *note = panel.findChild<ZelErrorNote *>(); // right below the field
        QCOMPARE(note->pos(), field->geometry().bottomLeft() + QPoint(0, 3));
        QCOMPARE(note->text(), field->errorText());
        field->discardEditing();
        QCOMPARE(field->palette().color(QPalette::Text), plain.color(QPalette::Text));
    }

    void textsLieWhereALineEditPutsThem()
    {
        QWidget parent;
        QPalette colors(Qt::lightGray);
        colors.setColor(QPalette::Text, Qt::blue); // also of what is disabled
        parent.setPalette(colors);
        ZelTextField field(&parent);
        QLineEdit lineEdit(&parent);
        field.setFormatter(std::make_shared<MetreFormatter>());
        field.setObjectValue(1234);
        lineEdit.setText(field.text());
        for (int pointSize = 7; pointSize < 14; ++pointSize) {
            parent.setFont(QFont("DejaVu Sans", pointSize));
            parent.setLayoutDirection(pointSize % 2 ? Qt::LeftToRight : Qt::RightToLeft);
            field.resize(151, lineEdit.sizeHint().height());
            lineEdit.resize(field.size());
            for (const Qt::AlignmentFlag alignment : {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter}) {
                field.setAlignment(alignment);
                lineEdit.setAlignment(alignment);
                QCOMPARE(field.grab().toImage(), lineEdit.grab().toImage());
            }
        }
        // The unit is dimmed. In a field that is too narrow for both, the number's start is what remains.
        colors.setColor(QPalette::Disabled, QPalette::Text, Qt::darkRed);
        parent.setPalette(colors);
        parent.setFont(QFont("DejaVu Sans", 40));
        field.resize(400, 100);
        QVERIFY(pixelsOf(&field, Qt::darkRed) > 50 && pixelsOf(&field, Qt::blue) > 50);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            parent.setLayoutDirection(direction);
            field.resize(120, 100);
            QVERIFY(pixelsOf(&field, Qt::darkRed) == 0 && pixelsOf(&field, Qt::blue) > 50);
        }
    }

    void elidedTextsStandOnTheSameLine()
    {
        ZelTextField field;
        QLineEdit lineEdit;
        for (QLineEdit *edit : {static_cast<QLineEdit *>(&field), &lineEdit}) {
            edit->setText("HHHHHHHHHHHHHHHHHHHH");
            edit->setCursorPosition(0);
        }
        for (const char *family : {"DejaVu Sans", "DejaVu Serif", "Liberation Sans"}) {
            for (double pointSize = 6; pointSize < 15; pointSize += 0.5) {
                const TableRow row(QString("%1 %2").arg(family).arg(pointSize));
                QFont font(QString::fromUtf8(family));
                font.setPointSizeF(pointSize);
                field.setFont(font);
                lineEdit.setFont(font);
                const int height = field.sizeHint().height();
                const int letter = field.fontMetrics().horizontalAdvance('H');
                const QRect first(0, 0, letter, height);
                field.resize(30 * letter, height);
                const QImage whole = field.grab(first).toImage();
                field.resize(8 * letter, height);
                QCOMPARE(field.grab(first).toImage(), whole);
                lineEdit.resize(field.size());
                QVERIFY(field.grab().toImage() != lineEdit.grab().toImage()); // which is cut
            }
        }
    }

    void paddingIsMirrored()
    {
        ZelPaddedTextField field;
        field.setPadding({1, 2, 20, 4});
        QCOMPARE(field.textMargins(), QMargins(1, 2, 20, 4));
        field.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(field.textMargins(), QMargins(20, 2, 1, 4));
    }

    void dimmedTextsAreLegible()
    {
        for (const QPalette &palette : {QPalette(QColor(0xef, 0xef, 0xef)), QPalette(QColor(0x35, 0x35, 0x35))}) {
            const QColor disabled = palette.color(QPalette::Disabled, QPalette::Text);
            for (const QColor &faint : {ZelThemeColor::dimmed(palette), ZelThemeColor::legible(disabled, palette)})
                for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Button, QPalette::Window})
                    QVERIFY(ZelThemeColor::contrast(faint, palette.color(role)) >= 4.5);
        }
        QCOMPARE(ZelThemeColor::contrast(Qt::black, Qt::white), 21.0);
    }

    // A field that grows

    void oneLineIsLikeALineEdit()
    {
        for (const bool isLabel : {false, true}) {
            ZelTextField lineEdit;
            ZelGrowingTextField field;
            lineEdit.setLabelStyle(isLabel);
            field.setLabelStyle(isLabel);
            lineEdit.setObjectValue("Text");
            field.setObjectValue("Text");
            QCOMPARE(field.heightForWidth(200), lineEdit.sizeHint().height());
            field.resize(200, field.heightForWidth(200));
            lineEdit.resize(field.size());
            const QImage image = field.grab().toImage();
            QCOMPARE(image, lineEdit.grab().toImage());
            field.setObjectValue(g_hebrew); // begins on the right
            const QImage mirrored = field.grab().toImage();
            field.setObjectValue({});
            const QImage empty = field.grab().toImage();
            const QRect left(0, 0, 150, field.height());
            QVERIFY(image.copy(left) != empty.copy(left) && mirrored != empty);
            QCOMPARE(mirrored.copy(left) == empty.copy(left), !isLabel); // a label begins where the window does
            for (QWidget *widget : {static_cast<QWidget *>(&field), static_cast<QWidget *>(&lineEdit)})
                widget->setLayoutDirection(Qt::RightToLeft);
            field.setObjectValue("Text");
            QCOMPARE(field.grab().toImage().copy(left) == empty.copy(left), isLabel);
            QCOMPARE(lineEdit.grab().toImage().copy(left) == empty.copy(left), isLabel);
        }
    }

    void growsWhileTyping()
    {
        GrowingPanel panel;
        ZelGrowingTextField *field = panel.control;
        field->setFocus(Qt::TabFocusReason);
        const int before = panel.neededHeight();
        type("one");
        QCOMPARE(panel.neededHeight(), before);
        press(Qt::Key_Return, Qt::AltModifier);
        QVERIFY(panel.neededHeight() > before);
        QCOMPARE(field->height(), panel.neededHeight()); // at once
        QTRY_COMPARE(panel.editor()->verticalScrollBar()->maximum(), 0);
        QCOMPARE(field->text(), "one\n");
        press(Qt::Key_Escape);
        QCOMPARE(panel.neededHeight(), before);
        type("a");
        press(Qt::Key_Return, Qt::ShiftModifier);
        type("b");
        QCOMPARE(panel.log, QStringList());
        press(Qt::Key_Enter);
        QCOMPARE(panel.log, panel.oneEdit);
        QCOMPARE(field->objectValue(), QVariant("a\nb"));
        QVERIFY(panel.editor()->textCursor().hasSelection());
    }

    void hasAnEditorWhileFocused()
    {
        GrowingPanel panel(g_hebrew);
        QWidget *after = new ZelTextField(&panel);
        panel.layout()->addWidget(after);
        after->show();
        QVERIFY(panel.control->findChildren<QWidget *>().isEmpty());
        QTest::keyClick(panel.other, Qt::Key_Tab);
        QVERIFY(keys() == panel.editor() && panel.control->hasFocus());
        QCOMPARE(panel.editor()->textCursor().selectedText(), g_hebrew);
        press(Qt::Key_Home);
        QVERIFY(panel.editor()->cursorRect().x() > panel.control->width() / 2);
        press(Qt::Key_Tab);
        QCOMPARE(keys(), after);
        QVERIFY(!panel.editor());
        press(Qt::Key_Backtab);
        QCOMPARE(keys(), panel.editor());
        press(Qt::Key_Backtab);
        QCOMPARE(keys(), panel.other);
        QTRY_VERIFY(panel.control->findChildren<QWidget *>().isEmpty());
        // A click places the cursor.
        panel.control->setObjectValue("WWWW");
        const QPoint place(panel.control->fontMetrics().horizontalAdvance("WW") + 7, 10);
        QTest::mouseClick(panel.windowHandle(), Qt::LeftButton, {}, panel.control->mapTo(&panel, place));
        type("i");
        QCOMPARE(panel.control->text(), "WWiWW");
        // What is read-only can be selected.
        panel.control->setObjectValue({});
        panel.control->setLabelStyle(true);
        QCOMPARE(panel.control->focusPolicy(), Qt::TabFocus); // there is nothing to click for
        panel.control->setObjectValue("fixed");
        QCOMPARE(panel.control->focusPolicy(), Qt::StrongFocus);
        press(Qt::Key_A, Qt::ControlModifier);
        type("x");
        QCOMPARE(panel.editor()->textCursor().selectedText(), "fixed");
    }

    void scrollsThePaneUnderTheWheel()
    {
        for (double pointSize = 6; pointSize < 15; pointSize += 0.5) {
            for (const QString &text : {QString("one\ntwo"), g_longText}) {
                const TableRow row(QString("%1 %2").arg(text).arg(pointSize));
                GrowingPanel panel(text);
                QFont font = panel.font();
                font.setPointSizeF(pointSize);
                panel.setFont(font);
                QVERIFY(!panel.wheel(-120));
                panel.control->setFocus();
                QCoreApplication::processEvents();
                QVERIFY(!panel.wheel(-120, panel.editor()->viewport()));
                QCOMPARE(panel.editor()->verticalScrollBar()->value(), 0);
            }
        }
    }

    // A field with a list

    void theValueMayBeOutsideTheList()
    {
        const std::tuple<QVariant, QString, int> rows[] = {
            {"Beta", "Beta", 1}, {"beta", "beta", -1}, {{}, "", -1}, {several(), "", -1}};
        for (const auto &[value, text, index] : rows) {
            const TableRow row(text);
            ComboPanel panel("Gamma");
            panel.control->setObjectValue(value);
            panel.takeLog();
            for (const QStringList &names : {g_names, QStringList("Delta"), g_names}) {
                ZelSetValueForKey(panel.control, names, "contentValues");
                QCOMPARE(ZelValueForKey(panel.control, "contentValues"), QVariant(names));
                QCOMPARE(panel.control->currentText(), text);
                QCOMPARE(panel.control->currentIndex(), names == g_names ? index : -1);
            }
            QVERIFY(ZelEqual(panel.control->objectValue(), value));
            QCOMPARE(panel.log, QStringList());
        }
    }

    void valuesAreTypedAndChosenFromTheList()
    {
        ComboPanel panel("");
        panel.play("enter; 'ga' > gamma/; Return > Gamma reported; Ctrl+A; 'Own'; leave > Own reported; "
                   "set value Alpha > Alpha changed; wheel -120 > Alpha passed; enter; wheel -120 > Beta reported; "
                   "Up > Alpha reported; Down > Beta reported; Ctrl+A; 'xy' > xy/Beta");
        panel.control->setContentValues({"Delta", "Xylo"}); // which the typing outlives
        QCOMPARE(panel.state(), "xy/Beta");
        panel.play("Escape > Beta; set editable false > Beta editable; Down > Beta");
        panel.control->showPopup();
        QVERIFY(!panel.control->view()->isVisible() && panel.control->lineEdit());
    }

    // A date

    void theWholeTextIsDeletedForNoDate()
    {
        const QString today = QDate::currentDate().toString("MM.yyyy"); // with which typing begins
        for (const QString &script : {
                 QString("focus; Ctrl+A; Delete > \u2013/03.02.2024; Escape > 03.02.2024; Ctrl+A; Delete; Ctrl+Z > "
                         "03.02.2024; '5'; Ctrl+Z > 03.02.2024; Ctrl+A; Backspace; 5; "
                         "Return > 05.%1 reported")
                     .arg(today),
                 QString("focus; Ctrl+A; Delete; leave > \u2013/ reported; focus; Ctrl+A; Delete; leave > \u2013/"),
                 QString("set editable false; focus; Ctrl+A; Delete > 03.02.2024 editable; Up > 03.02.2024; leave; "
                         "wheel 120 > 03.02.2024 passed"),
             })
            DatePanel(QDate(2024, 2, 3)).play(script);
        DatePanel(several()).play("focus; Ctrl+A; Delete; Return > \u2013/ reported");
        for (const QVariant &value : {QVariant(), QVariant(QDate()), QVariant("x"), several()}) {
            DatePanel panel(QDate(2024, 2, 3));
            panel.control->setObjectValue(value);
            QCOMPARE(panel.control->text(), QString(value == several() ? "Multiple Values" : "\u2013"));
            panel.play(QString("focus; '5'; Return > 05.%1 reported").arg(today));
        }
    }

    void datesKeepTheOrderOfTheirLanguageInAMirroredWindow()
    {
        DatePanel panel(QDate(2024, 2, 3));
        panel.setLayoutDirection(Qt::RightToLeft);
        panel.resize(panel.width() + 100, panel.height());
        QCOMPARE(panel.control->layoutDirection(), Qt::LeftToRight);
        const QRect text = panel.control->findChild<QLineEdit *>()->geometry();
        QVERIFY(text.x() > panel.control->width() - text.right()); // the stepper stands on the left
    }

    void stepsAreCommittedAtOnceAndKeepWhatIsNotShown()
    {
        DatePanel panel(QDate(2024, 2, 3));
        panel.control->setFocus();
        panel.control->setSelectedSection(QDateTimeEdit::MonthSection);
        panel.play("Up > 03.03.2024 reported; Up > 03.04.2024 reported");
        QCOMPARE(panel.level, 1);
        panel.play("wheel -120 > 03.03.2024 reported; leave; wheel 120 > 03.03.2024 passed; focus");
        panel.control->setObjectValue(QDateTime(QDate(1024, 2, 3), QTime(14, 5)));
        QCOMPARE(panel.control->text(), "03.02.1024 14:05");
        const QDateTime time(QDate(2024, 2, 3), QTime(10, 20, 30, 40), QTimeZone("Asia/Tokyo"));
        panel.control->setObjectValue(time);
        panel.control->setSelectedSection(QDateTimeEdit::MinuteSection);
        panel.control->stepBy(1);
        const QDateTime result = panel.control->objectValue().toDateTime();
        QCOMPARE(result.timeZone(), time.timeZone());
        QCOMPARE(result, time.addSecs(60));
    }
};
QTEST_MAIN(tst_TextFields)
#include "tst_TextFields.moc"
