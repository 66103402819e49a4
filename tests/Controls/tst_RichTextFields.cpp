// SPDX-License-Identifier: MIT
#include "ControlPanel.h"
#include "Controls/Fields/ZelLinkTextField.h"

namespace {
using String = ZelAttributedString;
using Range = String::Range;
using Panel = ControlPanel<ZelGrowingTextView>;

const QString g_manual = QStringLiteral("zeltest://manual");
const QString g_list = QStringLiteral("zeltest://list");

QVariant rich(const QString &text, const String::Attributes &attributes = {{String::Overline, true}})
{
    return QVariant::fromValue(String(text, attributes));
}

/// "See the manual" and "mailing list" are links, the first of them partly bold.
String text()
{
    String string("See the manual, or ask the mailing list for help.");
    QFont bold;
    bold.setBold(true);
    string.setAttribute(String::Link, g_manual, {0, 14});
    string.setAttribute(String::Font, bold, {8, 6});
    string.setAttribute(String::Link, g_list, {27, 12});
    return string;
}

/// The state is who has the focus, and the link that has it in the field. The log has what was opened.
class LinkPanel : public ControlPanel<ZelLinkTextField>
{
    Q_OBJECT
public:
    LinkPanel()
        : field(control)
    {
        field->setObjectValue(text().toVariant());
        takeLog();
        layout()->addWidget(after);
        resize(500, 200);
        QCoreApplication::processEvents();
        QDesktopServices::setUrlHandler("zeltest", this, "open");
        state = [this]() -> QString {
            const char *focus = keys() == field ? "field" : keys() == after ? "after" : "before";
            return QString("%1 %2").arg(focus).arg(field->focusedLink());
        };
    }
    ~LinkPanel() override { QDesktopServices::unsetUrlHandler("zeltest"); }

    QRectF rectOf(qsizetype link) const { return field->linkInfos().at(link).value(ZelLinkInfoRectKey).toRectF(); }
    QPoint placeOf(qsizetype link) const { return rectOf(link).center().toPoint(); }
    void click(const QPoint &place) const
    {
        QTest::mouseClick(field->viewport(), Qt::LeftButton, {}, place - field->viewport()->pos());
    }

    QPointer<ZelLinkTextField> field;
    QWidget *after = new QPushButton;

public Q_SLOTS:
    void open(const QUrl &url) { log.append(url.toString()); }
};
} // namespace

/// The view of rich text, which grows up to a limit, and the text with links.
class tst_RichTextFields : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void isAsHighAsItsTextUpToALimit()
    {
        ZelGrowingTextView view;
        view.setHeightLimits(19, 120);
        const auto height = [&view](const QVariant &value, int width = 200) {
            view.setObjectValue(value);
            return view.heightForWidth(width);
        };
        const int one = height("one");
        QVERIFY(one >= view.fontMetrics().height() && one < 60);
        QVERIFY(height("one\ntwo") > one);
        const QString words("many words that do not fit into such a narrow view");
        QVERIFY(height(words, 120) > height(words, 1000));
        QFont font;
        font.setPointSize(30);
        QVERIFY(height(rich("one", {{String::Font, font}})) > one);
        view.setFont(font);
        QVERIFY(!view.isEditing());
        QCOMPARE(height(QString("line\n").repeated(100)), 120);
        // Shown, it measures as it does alone.
        Panel panel;
        panel.control->setObjectValue(rich("some words that wrap in a narrow view\n\nand more"));
        panel.resize(120, 300);
        QCoreApplication::processEvents();
        view.setFont(panel.control->font());
        QCOMPARE(panel.control->heightForWidth(90), height(panel.control->objectValue(), 90));
        const int width = panel.control->width();
        QCOMPARE(panel.control->heightForWidth(width), view.heightForWidth(width));
    }

    void whatIsDroppedBecomesTextAndIsCommitted()
    {
        Panel panel;
        ZelGrowingTextView *view = panel.control;
        QMimeData data;
        data.setHtml("<ul><li>one</li></ul><table><tr><td>t<b>w</b>o</td></tr></table>");
        for (const bool isPlain : {false, true}) {
            if (isPlain)
                (data.clear(), data.setText("dropped"));
            view->setObjectValue({});
            panel.takeLog();
            QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(view->viewport(), &enter);
            QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(view->viewport(), &drop);
            QCOMPARE(panel.log, panel.oneEdit);
            if (isPlain)
                continue;
            QVERIFY(view->document()->rootFrame()->childFrames().isEmpty());
            const String string = view->attributedString();
            QVERIFY(string.text().contains("one\n") && string.text().contains("two"));
            const QVariant font = string.attributeAt(String::Font, string.text().indexOf('w'));
            QCOMPARE(font.value<QFont>().weight(), QFont::Bold);
            QVERIFY(view->textCursor().atEnd());
        }
        QCOMPARE(view->attributedString().text(), "dropped");
    }

    void aFieldKnowsItsLinks()
    {
        LinkPanel panel;
        ZelLinkTextField *field = panel.control;
        const QList<QVariantMap> infos = field->linkInfos();
        QCOMPARE(infos.size(), 2);
        QCOMPARE(infos.at(0).value(ZelLinkInfoCharacterRangeKey).value<Range>(), (Range{0, 14}));
        QCOMPARE(infos.at(0).value(ZelLinkInfoURLKey).toUrl(), QUrl(g_manual));
        QCOMPARE(infos.at(1).value(ZelLinkInfoCharacterRangeKey).value<Range>(), (Range{27, 12}));
        QTRY_COMPARE(field->extraSelections().size(), 2); // they look like links
        const QRectF first = panel.rectOf(0);
        const QRectF second = panel.rectOf(1);
        const int line = field->fontMetrics().height();
        QVERIFY(first.right() < second.left());
        QVERIFY(second.height() < 2 * line);
        QCOMPARE(field->linkInfoAtPoint(second.center().toPoint()), infos.at(1));
        QVERIFY(field->linkInfoAtPoint(QPoint((first.right() + second.left()) / 2, first.center().y())).isEmpty());
        field->setFixedWidth(field->fontMetrics().horizontalAdvance("mailing li")); // breaks the second link
        QTRY_VERIFY(panel.rectOf(1).height() > 1.5 * line);
        field->setEditable(true);
        QVERIFY(field->linkInfos().isEmpty());
        field->setEditable(false);
        field->setObjectValue("No link");
        QVERIFY(field->linkInfos().isEmpty());
    }

    void clicksFollowLinks()
    {
        LinkPanel panel;
        QWidget *viewport = panel.field->viewport();
        QSignalSpy followed(panel.field, &ZelLinkTextField::linkActivated);
        QTest::mouseMove(viewport, panel.placeOf(1));
        QTRY_COMPARE(viewport->cursor().shape(), Qt::PointingHandCursor);
        panel.click(panel.placeOf(1));
        QCOMPARE(panel.log, QStringList(g_list));
        panel.click(panel.placeOf(1) + QPoint(150, 0)); // beside it
        QCOMPARE(followed.size(), 1);
        QTest::mousePress(viewport, Qt::LeftButton, {}, panel.placeOf(0)); // a drag selects
        QTest::mouseMove(viewport, panel.placeOf(0) + QPoint(20, 0));
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, panel.placeOf(0) + QPoint(20, 0));
        QVERIFY(panel.field->textCursor().hasSelection());
        QCOMPARE(followed.size(), 1);
        panel.field->setOpensLinks(false);
        panel.click(panel.placeOf(0) + QPoint(30, 0)); // gives the selection up, and follows
        QCOMPARE(followed.size(), 2);
        QCOMPARE(followed.last().first().toMap().value(ZelLinkInfoURLKey).toUrl(), QUrl(g_manual));
        QCOMPARE(panel.log.size(), 1);
        panel.field->setOpensLinks(true); // which goes on after the field was told to go
        connect(panel.field, &ZelLinkTextField::linkActivated, panel.field, &QObject::deleteLater);
        panel.click(panel.placeOf(0));
        QCOMPARE(panel.log, (QStringList{g_list, g_manual}));
        QTRY_VERIFY(!panel.field);
    }

    void theKeyboardGoesFromLinkToLink()
    {
        LinkPanel panel;
        panel.play("Tab > field 0; Tab > field 1; Return > field 1 zeltest://list; Tab > after -1; Backtab > field 1; "
                   "Backtab > field 0; Space > field 0 zeltest://manual; Backtab > before -1; Tab > field 0; 'typed'");
        QCOMPARE(panel.field->attributedString(), text()); // the links' look is laid over it
        QVERIFY(!panel.field->isEditing());
        // The focus leaves a field that goes.
        panel.play("set enabled false > after -1; set enabled true; Backtab > field 1; set hidden true > after -1");
    }

    void growsWhileTypingAndScrollsAtTheLimit()
    {
        Panel panel;
        ZelGrowingTextView *view = panel.control;
        view->setHeightLimits(19, 100);
        view->setFocus();
        const int before = view->sizeHint().height();
        press(Qt::Key_Return);
        QVERIFY(view->heightForWidth(view->width()) > before);
        QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        for (int i = 0; i < 20; ++i)
            press(Qt::Key_Return);
        QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
        QCOMPARE(view->attributedString().text(), QString(21, '\n'));
        QVERIFY(view->commitEditing() && !view->document()->isUndoAvailable()); // that of the edit is the window's
    }
};
QTEST_MAIN(tst_RichTextFields)
#include "tst_RichTextFields.moc"
