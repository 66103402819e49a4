// SPDX-License-Identifier: MIT
#include "FigureSheet.h"

namespace {
const QByteArray g_roles = "<option-group><option title='Guest' value='0'/><option title='Member' value='1'/>"
                           "<option title='Admin' value='2'/></option-group>";

/// The tool tip that the pointer brings up over a widget; null for none.
QString toolTipAt(QWidget *widget, QPoint position = {})
{
    if (position.isNull())
        position = widget->rect().center();
    QToolTip::hideText();
    (void)QTest::qWaitFor([] { return !QToolTip::isVisible(); });
    QWidget *window = widget->window();
    QWidget *under = window->childAt(widget->mapTo(window, position));
    under = under ? under : widget;
    QHelpEvent event(QEvent::ToolTip, under->mapFrom(window, widget->mapTo(window, position)),
                     widget->mapToGlobal(position));
    QCoreApplication::sendEvent(under, &event);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

QString described(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Description);
}

/// One kind of editor, a value of two objects and that of a third one, and what is told of them.
struct Kind
{
    const char *key;
    const char *type;
    const char *more;
    QVariant common;
    QVariant other;
    const char *told;
};

const Kind g_kinds[] = {
    {"name", "string", "", "Ada\nof London", "Bea", "2 values: Ada… (2), Bea"},
    {"name", "string", "", "", "<b>Bea</b>", "2 values: No Value (2), <b>Bea</b>"},
    {"height", "number", "formatUnit=' pt'", 1200.5, 14, "2 values: 1,200.5 pt (2), 14 pt\nFrom 14 pt to 1,200.5 pt"},
    {"note", "number", "placeholder='%1 auto'", QVariant(), 14, "2 values: %1 auto (2), 14"},
    {"height", "number", "slider='linear' maximum='100'", 4, 14, "2 values: 4 (2), 14\nFrom 4 to 14"},
    {"flags", "boolean", "title='Bit' bits='4'", 4, 3, "2 values: On (2), Off"},
    {"role", "enumeration", g_roles.constData(), 1, 2, "2 values: Member (2), Admin"},
    {"flags", "enumeration", g_roles.constData(), 1, 77, "2 values: Member (2), 77"},
    {"flags", "enumeration",
     "bitMask='12'><option-group><option title='four' value='4'/><option title='eight' value='8'/></option-group>", 5,
     11, "2 values: four (2), eight"},
    {"role", "enumeration",
     "editable='no'><option-group><option title='Guest' value='0'/><option title='Admin' value='2'/></option-group>", 0,
     2, "2 values: Guest (2), Admin"},
    {"fill", "color", "colorList='Crayons'", QColor(Qt::yellow), QColor(1, 2, 3), "2 values: Yellow (2), #010203"},
    {"day", "date", "", QDate(2024, 5, 6), QDate(2025, 1, 2), "2 values: 5/6/2024 (2), 1/2/2025"},
    {"pattern", "resource", "resourcesKeyPath='names'", "Waves", "Lines", "2 values: Waves (2), Lines"},
    {"font", "font", "", QFont("DejaVu Serif", 11), QFont("DejaVu Sans Mono", 9),
     "2 values: DejaVu Serif Book 11 (2), DejaVu Sans Mono Book 9"},
    {"tags", "custom", "class='ZelInspectorArrayProperty'", QStringList{"a", "b"}, QStringList{"c"},
     "2 values: a; b (2), c"},
    {"text", "string", "attributed='yes'", ZelAttributedString("one\ntwo").toVariant(),
     ZelAttributedString("other").toVariant(), "2 values: one… (2), other"},
};

class Window : public Sheet
{
public:
    explicit Window(const Kind &kind)
        : Sheet(row(kind.key, kind.type, QByteArray(*kind.more == '<' ? ">" : "") + kind.more))
    {
        set(0, kind.key, kind.common);
        set(1, kind.key, kind.common);
        set(2, kind.key, kind.other);
        select({0, 1, 2});
    }
};

QList<QWidget *> controlsOf(ZelInspectorProperty *editor)
{
    QList<QWidget *> controls = editor->controlsNamedByRow();
    controls.removeAll(nullptr);
    return controls;
}
} // namespace

/// What editors tell about different values of the selected objects.
class tst_SeveralValues : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    void areToldInTheToolTip()
    {
        for (const Kind &row : g_kinds) {
            const TableRow inRow(row.told);
            const Window window(row);
            auto *editor = window.editor<ZelInspectorProperty>(row.key);
            const QString told = QString::fromUtf8(row.told);
            const bool isRich = told.contains(u'<');
            QCOMPARE(editor->valueSummaryText(), told);
            for (QWidget *control : controlsOf(editor)) {
                const QString toolTip = toolTipAt(control);
                QVERIFY2(isRich ? toolTip.contains("&lt;b&gt;") : toolTip.endsWith(told), qPrintable(toolTip));
            }
            for (const QList<int> &selection : {QList<int>{0, 1}, {}}) {
                window.select(selection);
                QVERIFY(!toolTipAt(controlsOf(editor).first()).contains("values:"));
            }
        }
    }

    /// Most frequent first, then by value, and not all of many.
    void manyValues()
    {
        Sheet sheet(Sheet::row("height", "number"));
        std::vector<std::unique_ptr<Figure>> many;
        QList<QObject *> objects;
        for (const int height : {9, 8, 7, 7, 30, 30, 30, 1, 2, 3}) {
            objects.append(many.emplace_back(std::make_unique<Figure>()).get());
            many.back()->setHeight(height);
        }
        sheet.selectObjects(objects);
        const auto *editor = sheet.editor<ZelInspectorNumberProperty>("height");
        QCOMPARE(editor->valueSummaryText(), "7 values: 30 (3), 7 (2), 1, 2, 3, …\nFrom 1 to 30");
    }

    /// Each number of a frame tells its own values, at the anchor that is chosen.
    void partsAreToldApart()
    {
        Sheet sheet(Sheet::row("frame", "frame", "showOriginSelector='yes'"));
        sheet.set(2, "frame", QRectF(11, 20, 200, 50));
        sheet.select({0, 1, 2});
        auto *bounds = sheet.editor<ZelInspectorBoundsProperty>("frame");
        const auto toolTip = [&](int index) {
            return toolTipAt(bounds->findChildren<ZelInspectorNumberProperty *>().at(index)->textField());
        };
        QVERIFY(toolTip(0).endsWith("2 values: 10 (2), 11\nFrom 10 to 11"));
        QCOMPARE(toolTip(1), "");
        QVERIFY(toolTip(2).endsWith("2 values: 100 (2), 200\nFrom 100 to 200"));
        bounds->setAnchor(ZelOriginTopRight);
        Sheet::settle();
        QVERIFY(toolTip(0).endsWith("2 values: 110 (2), 211\nFrom 110 to 211"));
    }

    void anOwnToolTipStaysFirst()
    {
        Sheet sheet(Sheet::row("height", "number"));
        sheet.set(1, "height", 12);
        sheet.select({0, 1});
        auto *editor = sheet.editor<ZelInspectorNumberProperty>("height");
        const QString told = "2 values: 0, 12\nFrom 0 to 12";
        editor->view()->setToolTip("How high");
        QCOMPARE(toolTipAt(editor->textField()), QString("How high\n" + told));
        editor->textField()->setToolTip("The <b>height</b>");
        QVERIFY(toolTipAt(editor->textField()).startsWith("The <b>height</b>"));
        QVERIFY(toolTipAt(editor->textField()).contains("From 0 to 12"));
        QCOMPARE(toolTipAt(editor->stepper()), QString("How high\n" + told));
        sheet.select({1});
        QCOMPARE(toolTipAt(editor->textField()), "The <b>height</b>");
        QCOMPARE(toolTipAt(editor->stepper()), "How high");
    }

    /// Controls with an interface of their own answer when they are asked, the others while they have the focus.
    void assistiveTechnologyIsTold()
    {
        Sheet sheet(Sheet::row("height", "number") + Sheet::row("role", "enumeration", '>' + g_roles));
        sheet.set(1, "height", 12);
        sheet.set(1, "role", 2);
        sheet.select({0, 1});
        const auto *number = sheet.editor<ZelInspectorNumberProperty>("height");
        QCOMPARE(described(number->stepper()), "2 values: 0, 12\nFrom 0 to 12");
        QCOMPARE(described(sheet.editor<ZelInspectorTextEnumerationProperty>("role")->popUpButton()),
                 "2 values: Guest, Admin");
        Sheet::click(number->textField());
        QCOMPARE(described(number->textField()), "2 values: 0, 12\nFrom 0 to 12");
        sheet.set(1, "height", 0);
        QTRY_COMPARE(described(number->textField()), "");
        QCOMPARE(described(number->stepper()), "");
        sheet.set(1, "height", 12);
        QTRY_COMPARE(described(number->textField()), "2 values: 0, 12\nFrom 0 to 12");
        number->stepper()->setFocus();
        QCOMPARE(number->textField()->accessibleDescription(), "");
    }

    /// A getter may do anything when it is read for the tool tip, and the model may change while the tool tip is up.
    void theModelMayChangeMeanwhile()
    {
        auto sheet = std::make_unique<Sheet>(Sheet::row("height", "number"));
        sheet->set(1, "height", 12);
        sheet->select({0, 1});
        const auto *editor = sheet->editor<ZelInspectorNumberProperty>("height");
        QVERIFY(!toolTipAt(editor->textField()).isEmpty());
        sheet->figures.at(1).reset();
        Sheet::settle();
        QCOMPARE(toolTipAt(editor->textField()), "");
        sheet->select({0, 2});
        sheet->set(2, "height", 13);
        QVERIFY(!toolTipAt(editor->textField()).isEmpty());
        sheet.reset();
        Sheet::settle();
        QToolTip::hideText();
    }

    /// The options that some objects have, by what the menu draws and by what it tells.
    void menusMarkTheOptionsInUse()
    {
        Sheet sheet(Sheet::row("role", "enumeration", '>' + g_roles));
        sheet.set(1, "role", 2);
        sheet.select({0, 1});
        auto *button = sheet.editor<ZelInspectorTextEnumerationProperty>("role")->popUpButton();
        const auto marks = [&] {
            button->showMenu();
            Sheet::settle();
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            QStringList marks;
            QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(menu);
            for (int i = 0; i < 3; ++i) {
                const QAccessible::State state = accessible->child(i)->state();
                const QString name = accessible->child(i)->text(QAccessible::Name);
                marks.append(name + (state.checkStateMixed ? "-" : state.checked ? "+" : ""));
            }
            m_picture = menu->grab().toImage();
            menu->setActiveAction(menu->actions().at(2));
            m_activePicture = menu->grab(menu->actionGeometry(menu->actions().at(2))).toImage();
            Sheet::press(Qt::Key_Escape);
            return marks.join(u' ');
        };
        QCOMPARE(marks(), "Guest- Member Admin-");
        const QImage mixed = m_picture;
        const QImage mixedActive = m_activePicture;
        sheet.set(0, "role", 1);
        QCOMPARE(marks(), "Guest Member- Admin-"); // collected when the menu opens
        QVERIFY(m_picture != mixed);
        QCOMPARE(m_activePicture, mixedActive);
        sheet.set(1, "role", 1);
        QCOMPARE(marks(), "Guest Member+ Admin");
        QVERIFY(m_activePicture != mixedActive);
    }

    void theChosenOptionBecomesEveryObjects()
    {
        Sheet sheet(Sheet::row("role", "enumeration", '>' + g_roles) + Sheet::row("font", "font"));
        sheet.set(1, "role", 2);
        sheet.set(1, "font", QFont("DejaVu Serif", 9));
        sheet.select({0, 1});
        const auto open = [](ZelPopUpButton *button) {
            button->showMenu();
            Sheet::settle();
            return QAccessible::queryAccessibleInterface(QApplication::activePopupWidget());
        };
        auto *roles = open(sheet.editor<ZelInspectorTextEnumerationProperty>("role")->popUpButton());
        roles->child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(sheet.value(0, "role").toInt() == 1 && sheet.value(1, "role").toInt() == 1);
        // The families in use are marked.
        auto *font = sheet.editor<ZelInspectorFontProperty>("font");
        Sheet::click(font->button());
        const QAccessibleInterface *menu = open(font->fontFamilyPopUpButton());
        QStringList used;
        for (int i = 0; i < menu->childCount(); ++i) {
            if (menu->child(i)->state().checkStateMixed)
                used.append(menu->child(i)->text(QAccessible::Name));
        }
        QCOMPARE(used.mid(0, 2), QStringList({"DejaVu Sans", "DejaVu Serif"}));
        Sheet::closePopups();
    }

    /// Also with values that an option only names, before any single value has told their type.
    void optionsNamedByKeys()
    {
        Sheet sheet("<sliver title='r'><property type='enumeration' keyPath='people.selection.role'><option-group>"
                    "<option title='First' value='Guest'/><option title='Last' value='Admin'/></option-group>"
                    "</property></sliver>");
        sheet.set(1, "role", 2);
        sheet.select({0, 1});
        const auto *editor = sheet.editor<ZelInspectorTextEnumerationProperty>("role");
        QCOMPARE(editor->valueSummaryText(), "2 values: First, Last");
    }

    /// Where the name of the marker does not fit, a dash stands; never a part of the name.
    void namesOfMarkersAreNeverCut_data()
    {
        QTest::addColumn<QWidget *>("control");
        QTest::addColumn<QWidget *>("same"); // with a dash as its text
        const QVariant marker = QVariant::fromValue(ZelMultipleValuesMarker);
        const QString dash = QStringLiteral("—");
        const auto add = [&](const char *name, auto *control, auto *same) {
            control->setObjectValue(marker);
            same->setNullPlaceholder(dash);
            QTest::newRow(name) << static_cast<QWidget *>(control) << static_cast<QWidget *>(same);
        };
        add("field", new ZelTextField, new ZelTextField);
        add("growing field", new ZelGrowingTextField, new ZelGrowingTextField);
        add("combo box", new ZelComboBox, new ZelComboBox);
        add("date", new ZelDatePicker, new ZelDatePicker);
        add("rich text", new ZelInspectorTextView, new ZelInspectorTextView);
        auto *button = new ZelPopUpButton;
        button->setObjectValue(marker);
        auto *other = new ZelPopUpButton;
        other->selectItem(other->addItemWithTitle(dash, marker));
        QTest::newRow("pop-up") << static_cast<QWidget *>(button) << static_cast<QWidget *>(other);
    }
    void namesOfMarkersAreNeverCut()
    {
        QFETCH(QWidget *, control);
        QFETCH(QWidget *, same);
        const auto picture = [](QWidget *widget) { return widget->grab().toImage(); };
        QWidget window;
        QWidget rest(&window);
        rest.setFocusPolicy(Qt::StrongFocus);
        for (QWidget *widget : {control, same})
            widget->setParent(&window);
        rest.setFocus();
        window.resize(400, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const int height = control->sizeHint().height();
        for (const int width : {200, 70}) {
            control->setGeometry(0, 0, width, height);
            same->setGeometry(0, 100, width, height);
            QCoreApplication::processEvents();
            QCOMPARE(picture(control) == picture(same), width == 70);
        }
        if (!qobject_cast<QTextEdit *>(control))
            QCOMPARE(toolTipAt(control), "Multiple Values");
        const auto *accessible = QAccessible::queryAccessibleInterface(control);
        const QString spoken = accessible->text(QAccessible::Value) + accessible->text(QAccessible::Description);
        QVERIFY2(!spoken.contains(u'—'), qPrintable(spoken));
        delete control;
        delete same;
    }

private:
    QImage m_picture;
    QImage m_activePicture;
};
QTEST_MAIN(tst_SeveralValues)
#include "tst_SeveralValues.moc"
