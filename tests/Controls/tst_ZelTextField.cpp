// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelNumberFormatter.h"
#include "Controls/Fields/ZelPaddedTextField.h"
#include "Controls/Fields/ZelTextField.h"
#include "Controls/private/ZelThemeColor.h"

#include "ControlPanel.h"

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

/// What a line of text shows; the edit itself is tested for all fields at once.
class tst_ZelTextField : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheEditingTextWhileFocused()
    {
        Panel panel;
        panel.control->setFormatter(std::make_shared<MetreFormatter>());
        panel.control->setObjectValue(12);
        QCOMPARE(panel.control->text(), QStringLiteral("12 m"));
        panel.control->setFocus(Qt::TabFocusReason);
        QCOMPARE(panel.control->selectedText(), QStringLiteral("12"));
        QTest::keyClicks(panel.control, QStringLiteral(" 7.50 "));
        QTest::keyClick(panel.control, Qt::Key_Return);
        QCOMPARE(panel.control->selectedText(), QStringLiteral("7.5"));
        panel.other->setFocus();
        QCOMPARE(panel.control->text(), QStringLiteral("7.5 m"));
        // Nothing is typed, although the text is rounded.
        panel.takeLog();
        panel.control->setObjectValue(1.23456);
        panel.control->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(panel.control, QStringLiteral("1.235"));
        QTest::keyClick(panel.control, Qt::Key_Return);
        panel.other->setFocus();
        QCOMPARE(panel.control->objectValue(), QVariant(1.23456));
        QCOMPARE(panel.log, QStringList());
        // An emptied field is an absent value.
        panel.control->setFocus(Qt::TabFocusReason);
        QTest::keyClick(panel.control, Qt::Key_Delete);
        panel.other->setFocus();
        QVERIFY(!panel.control->objectValue().isValid());
    }

    void refusedTextsHaveTheErrorColour()
    {
        Panel panel;
        panel.control->setFormatter(std::make_shared<MetreFormatter>());
        const QPalette plain = panel.control->palette();
        panel.control->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(panel.control, QStringLiteral("abc"));
        panel.other->setFocus();
        QCOMPARE(panel.control->palette().color(QPalette::Text), ZelThemeColor::error(plain));
        QVERIFY(!panel.control->errorText().isEmpty());
        panel.control->discardEditing();
        QCOMPARE(panel.control->palette().color(QPalette::Text), plain.color(QPalette::Text));
    }

    void longTextsAreElidedAndUnitsDimmed()
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

    void textsLieWhereALineEditPutsThem()
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

    void elidedTextsStandOnTheSameLine()
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

    void paddingIsMirrored()
    {
        ZelPaddedTextField field;
        field.setPadding({1, 2, 20, 4});
        QCOMPARE(field.textMargins(), QMargins(1, 2, 20, 4));
        field.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(field.textMargins(), QMargins(20, 2, 1, 4));
        QCOMPARE(field.padding(), QMargins(1, 2, 20, 4));
    }

    void dimmedTextsAreLegible()
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
};

QTEST_MAIN(tst_ZelTextField)
#include "tst_ZelTextField.moc"
