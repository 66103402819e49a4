// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelTextField.h"
#include "Controls/ZelCheckBox.h"
#include "Controls/ZelPushButton.h"
#include "Core/Errors/ZelAssertions.h"
#include "Inspector/Properties/ZelInspectorActionProperty.h"
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/ZelInspector.h"
#include "Inspector/ZelTabbedInspector.h"
#include "window/InspectorPanel.h"
#include "window/MainWindow.h"
#include "window/Options.h"
#include "window/SwatchRow.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

namespace {
/// Notes assertions and the library's warnings in the place of raising them.
class Faults : public ZelAssertionHandler
{
public:
    Faults()
    {
        list.clear();
        m_handler = ZelAssertionHandler::setCurrent(this);
        m_messages = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &text) {
            if (type != QtDebugMsg && qstrcmp(context.category, "zel") == 0)
                list.append(text);
        });
    }
    ~Faults() override
    {
        ZelAssertionHandler::setCurrent(m_handler);
        qInstallMessageHandler(m_messages);
    }
    void handleFailure(const QString &, const QString &message, const ZelSourcePlace &) override
    {
        list.append(message);
    }

    static inline QStringList list;

private:
    ZelAssertionHandler *m_handler;
    QtMessageHandler m_messages;
};

void settle()
{
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
}
} // namespace

/// The drawing program with its inspector, from the windows to the models.
class tst_ShapesInspector : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void allTabsShowAllSelectionsWithoutFault();
    void oneUndoTakesBackAnEditOfSeveralShapes();
    void bitsOfOtherShapesStay();
    void ownEditorWritesAndFollows();
    void switchingANilValueOnStartsWithTheStandard();
    void deletingWhileAnEditIsOpenIsSafe();
    void languageAndPaletteChangeWhileItRuns();
    void faultyDescriptionIsShownWithItsPlace();

private:
    void open(const Options &options = {})
    {
        window = std::make_unique<MainWindow>(options);
        window->show();
        settle();
    }
    void select(const QList<int> &rows)
    {
        QList<Shape *> shapes;
        for (int row : rows)
            shapes.append(shape(row));
        window->selection().set(shapes);
        settle();
    }
    void showTab(int tab)
    {
        window->findChild<InspectorPanel *>()->selectTab(tab);
        settle();
    }
    Shape *shape(int row) { return window->document().shapes()[row]; }
    ZelTabbedInspector *inspector() { return window->findChild<ZelTabbedInspector *>(); }
    template<typename Editor> Editor *editor(const QString &keyPath, const QString &title = {})
    {
        for (Editor *editor : inspector()->findChildren<Editor *>()) {
            if (editor->keyPath().endsWith(keyPath) && (title.isEmpty() || editor->title() == title) &&
                editor->isViewInstalled())
                return editor;
        }
        return nullptr;
    }
    void type(ZelTextField *field, const QString &text)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
        settle();
    }

    std::unique_ptr<Faults> faults;
    std::unique_ptr<MainWindow> window;
};

void tst_ShapesInspector::init()
{
    faults = std::make_unique<Faults>();
    open();
}

void tst_ShapesInspector::cleanup()
{
    window.reset();
    QCOMPARE(Faults::list, QStringList());
    faults.reset();
}

void tst_ShapesInspector::allTabsShowAllSelectionsWithoutFault()
{
    for (int tab = 0; tab < 5; ++tab) {
        showTab(tab);
        for (int row = 0; row < window->document().shapeCount(); ++row)
            select({row});
        window->selection().selectAll();
        settle();
        select({});
        QCOMPARE(Faults::list, QStringList());
    }
}

void tst_ShapesInspector::oneUndoTakesBackAnEditOfSeveralShapes()
{
    select({5, 8});
    const double widths[] = {shape(5)->width(), shape(8)->width()};
    QVERIFY(widths[0] != widths[1]);
    auto *property = editor<ZelInspectorNumberProperty>("sizeWidth");
    QVERIFY(property);
    type(property->textField(), "77");
    QCOMPARE(shape(5)->width(), 77.0);
    QCOMPARE(shape(8)->width(), 77.0);
    QCOMPARE(window->undoStack().count(), 1);
    QVERIFY(window->actions()[Actions::Undo]->text().contains("Change Width"));
    window->actions()[Actions::Undo]->trigger();
    QCOMPARE(shape(5)->width(), widths[0]);
    QCOMPARE(shape(8)->width(), widths[1]);
}

void tst_ShapesInspector::bitsOfOtherShapesStay()
{
    shape(5)->setKind(Shape::Text);
    shape(8)->setKind(Shape::Text);
    shape(5)->setTextStyle(Shape::Italic);
    shape(8)->setTextStyle(Shape::Bold | Shape::StrikeOut);
    showTab(1);
    select({5, 8});
    auto *bold = editor<ZelInspectorBooleanProperty>(".textStyle", "Bold");
    QVERIFY(bold);
    QCOMPARE(bold->checkbox()->checkState(), Qt::PartiallyChecked);
    bold->checkbox()->click();
    QCOMPARE(shape(5)->textStyle(), int(Shape::Italic | Shape::Bold));
    QCOMPARE(shape(8)->textStyle(), int(Shape::Bold | Shape::StrikeOut));
}

void tst_ShapesInspector::ownEditorWritesAndFollows()
{
    showTab(1);
    select({5, 8});
    auto *row = inspector()->view()->findChild<SwatchRow *>();
    QVERIFY(row);
    QTest::keyClick(row, Qt::Key_Right);
    const QColor color = row->color();
    QCOMPARE(shape(5)->fillColor(), color);
    QCOMPARE(shape(8)->fillColor(), color);
    shape(5)->setFillColor(Qt::red);
    settle();
    QVERIFY(!row->color().isValid());
    shape(8)->setFillColor(Qt::red);
    settle();
    QCOMPARE(row->color(), QColor(Qt::red));
    window->undoStack().undo();
    QVERIFY(shape(8)->fillColor() != color);
}

void tst_ShapesInspector::switchingANilValueOnStartsWithTheStandard()
{
    select({0});
    QVERIFY(!shape(0)->cornerRadius().isValid());
    auto *property = editor<ZelInspectorNumberProperty>(".cornerRadius");
    QVERIFY(property);
    property->nonNillCheckbox()->click();
    QCOMPARE(shape(0)->cornerRadius().toDouble(), 12.0);
    property->nonNillCheckbox()->click();
    QVERIFY(!shape(0)->cornerRadius().isValid());
}

void tst_ShapesInspector::deletingWhileAnEditIsOpenIsSafe()
{
    select({5});
    auto *width = editor<ZelInspectorNumberProperty>("sizeWidth")->textField();
    width->setFocus();
    QTest::keyClicks(width, "12");
    window->actions()[Actions::Delete]->trigger();
    settle();
    window->undoStack().undo();
    window->undoStack().undo();
    settle();
    showTab(2);
    window->selection().selectAll();
    settle();
    ZelPushButton *button = nullptr;
    for (auto *property : inspector()->findChildren<ZelInspectorActionProperty *>()) {
        if (property->titleKeyPath() == "deleteTitle")
            button = property->button();
    }
    QVERIFY(button);
    const int count = window->document().shapeCount();
    QCOMPARE(button->text(), QString("Delete %1 Shapes").arg(count));
    button->click();
    settle();
    QCOMPARE(window->document().shapeCount(), 0);
    window->undoStack().undo();
    QCOMPARE(window->document().shapeCount(), count);
}

void tst_ShapesInspector::languageAndPaletteChangeWhileItRuns()
{
    showTab(3);
    window->actions()[Actions::German]->trigger();
    if (window->windowTitle().isEmpty() || !window->actions()[Actions::German]->isChecked())
        QSKIP("built without Qt's linguist tools");
    settle();
    QCOMPARE(inspector()->selectedPaneIndex(), 3u);
    QCOMPARE(inspector()->panes()[0]->inspectors()[0]->title(), "Form");
    window->actions()[Actions::DarkPalette]->trigger();
    settle();
    window->actions()[Actions::English]->trigger();
    window->actions()[Actions::DarkPalette]->trigger();
    settle();
    QCOMPARE(inspector()->panes()[0]->inspectors()[0]->title(), "Shape");
}

void tst_ShapesInspector::faultyDescriptionIsShownWithItsPlace()
{
    QTemporaryDir folder;
    QFile file(folder.filePath("Inspector.xml"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<panes>\n  <pane title='A'>\n    <inspector>\n</panes>");
    file.close();
    Options options;
    options.description = folder.path();
    open(options);
    QVERIFY(!inspector());
    const QString text = window->findChild<InspectorPanel *>()->findChild<QLabel *>()->text();
    QVERIFY2(text.contains("Inspector.xml:4:"), qPrintable(text));
    window->selection().selectAll();
    settle();
}

QTEST_MAIN(tst_ShapesInspector)
#include "tst_ShapesInspector.moc"
