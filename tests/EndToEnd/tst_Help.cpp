// SPDX-License-Identifier: MIT
#include "FigureSheet.h"

namespace {
/// Notes whose help was shown last: the receiver of the event that was accepted. Qt does not tell the text.
struct HelpSpy : QObject
{
    HelpSpy() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        const bool isHelp = event->type() == QEvent::WhatsThis || event->type() == QEvent::KeyPress;
        if (isHelp && receiver->isWidgetType())
            text = static_cast<QWidget *>(receiver)->whatsThis();
        return false;
    }
    QString text;
};

QWidget *helpWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->inherits("QWhatsThat"))
            return widget;
    }
    return nullptr;
}

/// The tool tip that appears where the mouse rests on the middle of the widget.
QString toolTipOf(QWidget *widget)
{
    QToolTip::hideText();
    const QPoint middle = widget->rect().center();
    QHelpEvent event(QEvent::ToolTip, middle, widget->mapToGlobal(middle));
    QCoreApplication::sendEvent(widget, &event);
    const QString text = QToolTip::isVisible() ? QToolTip::text() : QString();
    QToolTip::hideText();
    return text;
}
} // namespace

/// Tool tips and help texts of a description, as people come upon them.
class tst_Help : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theNearestTextIsShown()
    {
        Sheet sheet(
            "<panes><pane title='Pane' toolTip='pane tip' whatsThis='pane'>"
            "<inspector title='Inspector' toolTip='inspector tip' whatsThis='inspector'><slice>"
            "<section title='Section' toolTip='section tip' whatsThis='section'>"
            "<sliver title='Row' toolTip='row tip' whatsThis='row'>"
            "<property type='string' keyPath='people.selection.pattern' toolTip='tip' whatsThis='own'/></sliver>"
            "<sliver title='Other' toolTip='other tip'>"
            "<property type='date' keyPath='people.selection.day'/></sliver>" +
            Sheet::row("address", "string") +
            "<chooser title='Chooser' keyPath='people.selection.byte'><choice title='Choice' value='7' toolTip='choice "
            "tip' whatsThis='choice'><sliver title='Below'><property type='string' "
            "keyPath='people.selection.name'/></sliver></choice></chooser></section></slice></inspector></pane></"
            "panes>");
        sheet.select({0});
        const auto rowOf = [&](const QString &key) {
            return qobject_cast<ZelInspectorSliver *>(sheet.editor<ZelInspectorProperty>(key)->parent());
        };
        QWidget *field = sheet.editor<ZelInspectorStringProperty>("pattern")->textField();
        QWidget *date = sheet.editor<ZelInspectorDateProperty>("day")->datePicker();
        QWidget *plain = sheet.editor<ZelInspectorStringProperty>("address")->textField();
        const auto *section = sheet.inspector->findChild<ZelInspectorSection *>();
        const auto *chooser = sheet.inspector->findChild<ZelInspectorChooser *>();
        auto *header = sheet.inspector->view()->findChild<ZelExpandableHeader *>();
        QWidget *below = sheet.editor<ZelInspectorStringProperty>("name")->textField();
        QCOMPARE(sheet.inspector->tabBar()->items().first()->toolTip(), "Pane\npane tip");
        const QList<std::tuple<QWidget *, QString, QString>> expected{
            {field, "tip", "own"},
            {rowOf("pattern")->label(), "row tip", "row"},
            {date, "other tip", "section"},
            {plain, "", "section"},
            {section->label(), "section tip", "section"},
            {header, "inspector tip", "inspector"},
            {below, "", "choice"},
        };
        HelpSpy spy;
        for (const auto &[widget, tip, help] : expected) {
            QCOMPARE(toolTipOf(widget), tip);
            QWhatsThis::enterWhatsThisMode();
            Sheet::click(widget);
            QTRY_VERIFY(helpWindow());
            QCOMPARE(spy.text, help);
            Sheet::click(helpWindow());
            QTRY_VERIFY(!helpWindow());
        }
        const QAction *item = chooser->property()->popUpButton()->items().first();
        QCOMPARE(item->toolTip(), "choice tip");
        QCOMPARE(item->whatsThis(), "choice");
    }

    void disabledControlsSayWhy()
    {
        const QByteArray when = "toolTip='tip' enabledKeyPath='unlocked' disabledReason='locked'";
        Sheet sheet(Sheet::row("day", "date", when) + Sheet::row("frame", "frame", when));
        sheet.select({0});
        const auto *bounds = sheet.editor<ZelInspectorBoundsProperty>("frame");
        QWidget *controls[] = {sheet.editor<ZelInspectorDateProperty>("day")->datePicker(),
                               bounds->originXProperty()->textField(), bounds->sizeWidthProperty()->stepper()};
        for (const bool isUnlocked : {false, true, false}) {
            sheet.owner->setUnlocked(isUnlocked);
            Sheet::settle();
            for (QWidget *control : controls)
                QCOMPARE(toolTipOf(control), isUnlocked ? "tip" : "tip\nlocked");
        }
    }

    /// Whatever control of whatever editor has the focus.
    void shiftF1ShowsTheHelpAtTheFocus()
    {
        Sheet sheet("<panes><pane><inspector title='I' whatsThis='far'><slice><section>" + Sheet::allRows() +
                        Sheet::row("address", "string", "whatsThis='near'") +
                        Sheet::row("byte", "number", "slider='linear'") + Sheet::row("byte", "boolean") +
                        "</section></slice></inspector></pane></panes>",
                    {340, 1000});
        // An application's own key for the What's This mode does not come before the help.
        sheet.addAction(QWhatsThis::createAction(&sheet));
        sheet.select({0});
        HelpSpy spy;
        QWidgetList visited;
        Sheet::click(sheet.editor<ZelInspectorColorProperty>("fill")->popUpButton()->window(), {1, 1});
        while (!QTest::currentTestFailed()) {
            Sheet::press(Qt::Key_Tab);
            if (QApplication::focusWidget() && QApplication::focusWidget()->inherits("QTextEdit"))
                Sheet::press(Qt::Key_Tab, Qt::ControlModifier);
            QWidget *focus = QApplication::focusWidget();
            if (!visited.isEmpty() && focus == visited.last())
                continue; // the date's sections
            if (!focus || visited.contains(focus))
                break;
            visited.append(focus);
            Sheet::press(Qt::Key_F1, Qt::ShiftModifier);
            const QPointer<QWidget> help = helpWindow();
            if (!sheet.inspector->containerView()->isAncestorOf(focus))
                continue;
            QVERIFY2(help && !QWhatsThis::inWhatsThisMode(), focus->metaObject()->className());
            const auto *near = sheet.editor<ZelInspectorStringProperty>("address");
            QCOMPARE(spy.text, near->textField()->isAncestorOf(focus) ? "near" : "far");
            const QRect place(focus->mapToGlobal(QPoint()), focus->size());
            QVERIFY(help->geometry().intersects(place.adjusted(-40, -40, 40, 40)));
            Sheet::press(Qt::Key_Escape);
            delete help.data();
        }
        QVERIFY(visited.size() > 15);
    }

    void whatIsWrongIsToldBeforeTheToolTip()
    {
        Sheet sheet(Sheet::row("byte", "number", "toolTip='A &lt;b&gt;small&lt;/b&gt; number'") +
                    Sheet::row("pattern", "resource", "toolTip='A name'"));
        sheet.select({0});
        auto *field = sheet.editor<ZelInspectorNumberProperty>("byte")->textField();
        Sheet::enter(field, "300");
        const QString tip = toolTipOf(field);
        QVERIFY2(tip.indexOf("between 0 and 255") > 0 && tip.indexOf("small") > tip.indexOf("255"), qPrintable(tip));
        sheet.set(0, "pattern", QString(QString(99, u'x') + "<i>"));
        auto *box = sheet.editor<ZelInspectorResourceProperty>("pattern")->comboBox();
        QVERIFY(toolTipOf(box->textField()).contains("x&lt;i&gt;"));
        QVERIFY(toolTipOf(box->textField()).endsWith("A name</p>"));
        sheet.set(0, "pattern", "short");
        QCOMPARE(toolTipOf(box->textField()), "A name");
        QCOMPARE(box->accessibleDescription(), "");
        QCOMPARE(QAccessible::queryAccessibleInterface(box)->text(QAccessible::Description), "A name");
    }

    void placeholdersStandForNoDateAndNoFont()
    {
        Sheet sheet(Sheet::row("day", "date", "placeholder='Never'") +
                    "<sliver><property type='font' keyPath='extra' placeholder='Any'/></sliver>");
        QCOMPARE(sheet.inspector->findChild<ZelInspectorFontProperty *>()->textField()->text(), "Any");
        sheet.set(0, "day", QDate());
        sheet.select({0});
        Sheet::click(sheet.editor<ZelInspectorDateProperty>("day")->datePicker());
        Sheet::press(Qt::Key_Delete); // there is nothing to clear
        Sheet::press(Qt::Key_Return);
        QCOMPARE(sheet.owner->actions, 0);
        QCOMPARE(sheet.shown("day"), "Never");
    }
};
QTEST_MAIN(tst_Help)
#include "tst_Help.moc"
