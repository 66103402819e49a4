// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelLinkTextField.h"

#include <QDesktopServices>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>
#include <QVBoxLayout>

namespace {

using Range = ZelAttributedString::Range;

const QString g_manual = QStringLiteral("zeltest://manual");
const QString g_list = QStringLiteral("zeltest://list");

/// "See the manual" and "mailing list" are links, the first of them partly bold.
ZelAttributedString text()
{
    ZelAttributedString string(QStringLiteral("See the manual, or ask the mailing list for help."));
    string.setAttribute(ZelAttributedString::Link, g_manual, {0, 14});
    QFont bold;
    bold.setBold(true);
    string.setAttribute(ZelAttributedString::Font, bold, {8, 6});
    string.setAttribute(ZelAttributedString::Link, g_list, {27, 12});
    return string;
}

class Window : public QWidget
{
    Q_OBJECT
public:
    Window()
    {
        auto *layout = new QVBoxLayout(this);
        before = new QPushButton;
        field = new ZelLinkTextField;
        after = new QPushButton;
        for (QWidget *widget :
             {static_cast<QWidget *>(before), static_cast<QWidget *>(field), static_cast<QWidget *>(after)}) {
            widget->setFocusPolicy(Qt::StrongFocus);
            layout->addWidget(widget);
        }
        field->setObjectValue(text().toVariant());
        resize(500, 200);
        QDesktopServices::setUrlHandler(QStringLiteral("zeltest"), this, "open");
        show();
        activateWindow();
        ready = QTest::qWaitForWindowActive(this);
        before->setFocus();
    }
    ~Window() override { QDesktopServices::unsetUrlHandler(QStringLiteral("zeltest")); }

    QPoint placeOf(qsizetype link) const
    {
        const QRectF rect = field->linkInfos().value(link).value(ZelLinkInfoRectKey).toRectF();
        return rect.center().toPoint();
    }
    void click(const QPoint &place) const
    {
        QTest::mouseClick(field->viewport(), Qt::LeftButton, {}, place - field->viewport()->pos());
    }

    QPushButton *before;
    ZelLinkTextField *field;
    QPushButton *after;
    QStringList opened;
    bool ready = false;

public Q_SLOTS:
    void open(const QUrl &url) { opened.append(url.toString()); }
};

} // namespace

class tst_ZelLinkTextField : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void knowsItsLinks();
    void clicksFollowLinks();
    void theKeyboardGoesFromLinkToLink();
    void theFocusLeavesAFieldThatGoes_data();
    void theFocusLeavesAFieldThatGoes();
    void onlyItsOwnTextIsTheValue();
    void whoFollowsMayDeleteTheField();
};

void tst_ZelLinkTextField::knowsItsLinks()
{
    Window window;
    QVERIFY(window.ready);
    const QList<QVariantMap> infos = window.field->linkInfos();
    QCOMPARE(infos.size(), 2);
    QCOMPARE(infos.at(0).value(ZelLinkInfoCharacterRangeKey).value<Range>(), (Range{0, 14}));
    QCOMPARE(infos.at(0).value(ZelLinkInfoURLKey).toUrl(), QUrl(g_manual));
    QCOMPARE(infos.at(1).value(ZelLinkInfoCharacterRangeKey).value<Range>(), (Range{27, 12}));
    QTRY_COMPARE(window.field->extraSelections().size(), 2); // they look like links
    const QRectF first = infos.at(0).value(ZelLinkInfoRectKey).toRectF();
    const QRectF second = infos.at(1).value(ZelLinkInfoRectKey).toRectF();
    QVERIFY(first.right() < second.left());
    QVERIFY(second.height() < 2 * window.field->fontMetrics().height());
    QCOMPARE(window.field->linkInfoAtPoint(second.center().toPoint()), infos.at(1));
    const QPoint between((first.right() + second.left()) / 2, first.center().y());
    QVERIFY(window.field->linkInfoAtPoint(between).isEmpty());

    window.field->setFixedWidth(window.field->fontMetrics().horizontalAdvance("mailing li")); // breaks the second link
    QTRY_VERIFY(window.field->linkInfos().at(1).value(ZelLinkInfoRectKey).toRectF().height() >
                1.5 * window.field->fontMetrics().height());
    window.field->setEditable(true);
    QVERIFY(window.field->linkInfos().isEmpty());
    window.field->setEditable(false);
    window.field->setObjectValue(QStringLiteral("No link"));
    QVERIFY(window.field->linkInfos().isEmpty());
}

void tst_ZelLinkTextField::clicksFollowLinks()
{
    Window window;
    QSignalSpy followed(window.field, &ZelLinkTextField::linkActivated);
    QTest::mouseMove(window.field->viewport(), window.placeOf(1));
    QTRY_COMPARE(window.field->viewport()->cursor().shape(), Qt::PointingHandCursor);
    window.click(window.placeOf(1));
    QCOMPARE(window.opened, QStringList(g_list));
    window.click(window.placeOf(1) + QPoint(150, 0)); // beside it
    QCOMPARE(followed.size(), 1);
    // A drag selects.
    QWidget *viewport = window.field->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, {}, window.placeOf(0));
    QTest::mouseMove(viewport, window.placeOf(0) + QPoint(20, 0));
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, window.placeOf(0) + QPoint(20, 0));
    QVERIFY(window.field->textCursor().hasSelection());
    QCOMPARE(followed.size(), 1);
    window.field->setOpensLinks(false);
    window.click(window.placeOf(0) + QPoint(30, 0)); // gives the selection up, and follows
    QCOMPARE(followed.size(), 2);
    QCOMPARE(followed.last().first().toMap().value(ZelLinkInfoURLKey).toUrl(), QUrl(g_manual));
    QCOMPARE(window.opened.size(), 1);
}

void tst_ZelLinkTextField::theKeyboardGoesFromLinkToLink()
{
    Window window;
    QVERIFY(window.ready);
    QTest::keyClick(window.before, Qt::Key_Tab);
    QVERIFY(window.field->hasFocus());
    QCOMPARE(window.field->focusedLink(), 0);
    QTest::keyClick(window.field, Qt::Key_Tab);
    QCOMPARE(window.field->focusedLink(), 1);
    QTest::keyClick(window.field, Qt::Key_Return);
    QCOMPARE(window.opened, QStringList(g_list));
    QTest::keyClick(window.field, Qt::Key_Tab);
    QVERIFY(window.after->hasFocus());
    QCOMPARE(window.field->focusedLink(), -1);
    QTest::keyClick(window.after, Qt::Key_Backtab);
    QCOMPARE(window.field->focusedLink(), 1);
    QTest::keyClick(window.field, Qt::Key_Backtab);
    QCOMPARE(window.field->focusedLink(), 0);
    QTest::keyClick(window.field, Qt::Key_Space);
    QCOMPARE(window.opened, (QStringList{g_list, g_manual}));
    QTest::keyClick(window.field, Qt::Key_Backtab);
    QVERIFY(window.before->hasFocus());
}

void tst_ZelLinkTextField::theFocusLeavesAFieldThatGoes_data()
{
    QTest::addColumn<bool>("hides");
    QTest::newRow("hidden") << true;
    QTest::newRow("disabled") << false;
}

void tst_ZelLinkTextField::theFocusLeavesAFieldThatGoes()
{
    QFETCH(bool, hides);
    Window window;
    QVERIFY(window.ready);
    QTest::keyClick(window.before, Qt::Key_Tab);
    if (hides)
        window.field->hide();
    else
        window.field->setEnabled(false);
    QVERIFY(window.after->hasFocus());
    QCOMPARE(window.field->focusedLink(), -1);
}

void tst_ZelLinkTextField::onlyItsOwnTextIsTheValue()
{
    Window window;
    QTest::keyClick(window.before, Qt::Key_Tab);
    QCOMPARE(window.field->attributedString(), text()); // the links' look is laid over it
    QVERIFY(!window.field->isEditing());
    QTest::keyClicks(window.field, QStringLiteral("typed"));
    QCOMPARE(window.field->attributedString(), text());
}

void tst_ZelLinkTextField::whoFollowsMayDeleteTheField()
{
    Window window;
    QPointer<QWidget> field = window.field;
    connect(window.field, &ZelLinkTextField::linkActivated, this, [&window] { window.field->deleteLater(); });
    window.click(window.placeOf(0));
    QCOMPARE(window.opened, QStringList(g_manual));
    QTRY_VERIFY(!field);
}

QTEST_MAIN(tst_ZelLinkTextField)
#include "tst_ZelLinkTextField.moc"
