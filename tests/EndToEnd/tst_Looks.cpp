// SPDX-License-Identifier: MIT
#include "FigureSheet.h"

#include "Inspector/ZelInspectorSliver.h"
#include "Layout/ZelConstraintLayout.h"
#include "Resources/ZelBundle.h"

#include <QDir>
#include <QLineEdit>

namespace {

// Texts, numbers and choices.
const QByteArray g_description = R"(<panes><pane title="All"><inspector title="Everything"><slice>
  <section title="Texts">
    <sliver title="Name"><property type="string" keyPath="people.selection.name"/></sliver>
    <sliver title="With a title"><property type="string" title="below" keyPath="people.selection.name"/></sliver>
  </section>
  <section title="Numbers">
    <sliver title="Stepper"><property type="number" title="X" keyPath="people.selection.height" formatUnit=" pt"/>
      <property type="number" title="Y" keyPath="people.selection.height" formatUnit=" pt"/></sliver>
    <sliver title="Linear"><property type="number" keyPath="people.selection.height" slider="linear" maximum="100"/></sliver>
    <sliver title="Circular"><property type="number" keyPath="people.selection.height" slider="circular" maximum="360"/></sliver>
    <sliver title="May be none"><property type="number" keyPath="people.selection.note" nonNilValueTitle="Set"
        nonNilValueKeyPath="extra" placeholder="none"/></sliver>
  </section>
  <section title="Choices">
    <sliver title="Checks"><property type="boolean" title="Active" keyPath="people.selection.active"/>
      <property type="boolean" title="Strong" keyPath="people.selection.flags" bits="4"/></sliver>
    <sliver title="Role"><property type="enumeration" keyPath="people.selection.role">
      <option-group><option title="Guest" value="0"/><option title="A member of long standing" value="1"/></option-group>
      </property></sliver>
    <sliver title="Do"><property type="action" title="Something with a long title" actionSelector="noteAction"/></sliver>
    <chooser title="Kind" keyPath="people.selection.role"><choice title="Guest" value="0">
      <sliver title="Inside"><property type="string" keyPath="people.selection.name"/></sliver></choice></chooser>
  </section>
</slice></inspector></pane></panes>)";

QPalette darkPalette()
{
    QPalette palette(QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::ButtonText, Qt::white);
    for (QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(120, 120, 120));
    return palette;
}

} // namespace

/// Rows align and nothing is clipped, at every width and in both themes. ZEL_SCREENSHOTS names a folder for pictures.
class tst_Looks : public QObject
{
    Q_OBJECT

    static double baseline(QWidget *widget, const QWidget *in)
    {
        return widget->mapTo(in, QPoint()).y() + ZelConstraintLayout::baselineOffset(widget, widget->height());
    }
    static void checkInside(const QWidget *parent)
    {
        for (QObject *object : parent->children()) {
            auto *child = qobject_cast<QWidget *>(object);
            if (!child || child->isWindow() || !child->isVisible() || !qobject_cast<const ZelView *>(parent))
                continue;
            QVERIFY2(parent->rect().contains(child->geometry()),
                     qPrintable(QDebug::toString(child) + u" in " + QDebug::toString(parent)));
            checkInside(child);
        }
    }
    static void photograph(QWidget *widget, const QString &name)
    {
        const QString folder = qEnvironmentVariable("ZEL_SCREENSHOTS");
        if (folder.isEmpty())
            return;
        QDir().mkpath(folder);
        widget->grab().save(
            QStringLiteral("%1/%2-%3.png").arg(folder, name).arg(qRound(100 * widget->devicePixelRatioF())));
    }
    /// Every row has its label on the baseline of its first editor and at the same edge, and its editors inside.
    static void checkRows(const Sheet &window, int count)
    {
        int aligned = 0;
        for (auto *row : window.inspector->findChildren<ZelInspectorSliver *>()) {
            if (!row->isViewLoaded() || !row->view()->isVisible())
                continue;
            checkInside(row->view());
            if (!row->label() || row->properties().isEmpty())
                continue;
            const TableRow inRow(row->title());
            ZelInspectorProperty *property = row->properties().first();
            const double difference = baseline(row->label(), row->view()) -
                                      baseline(property->viewForBaselineAlignment(), row->view()) -
                                      property->baselineOffsetFromView();
            QVERIFY2(std::abs(difference) <= 1.01, qPrintable(QString::number(difference)));
            QCOMPARE(row->label()->mapTo(&window, QPoint(row->label()->width(), 0)).x(),
                     row->view()->mapTo(&window, QPoint()).x() + 79);
            ++aligned;
        }
        QCOMPARE(aligned, count);
        for (const auto *field : window.findChildren<QLineEdit *>())
            QVERIFY2(!field->isVisible() || field->width() >= 24, qPrintable(QString::number(field->width())));
    }

private Q_SLOTS:
    void initTestCase() { ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)}); }

    void rowsAlignAndNothingIsClipped_data()
    {
        QTest::addColumn<int>("width");
        for (const char *theme : {"light", "dark"}) {
            for (int width : {260, 320, 600})
                QTest::addRow("%d-%s", width, theme) << width;
        }
    }
    void rowsAlignAndNothingIsClipped()
    {
        QFETCH(int, width);
        const QString name = QTest::currentDataTag();
        const QPalette former = QApplication::palette();
        QApplication::setPalette(name.endsWith("dark") ? darkPalette() : former);
        const auto end = qScopeGuard([&] { QApplication::setPalette(former); });
        {
            Sheet window(g_description, {width, 620});
            window.set(0, "height", 42.5);
            window.select({0});
            photograph(&window, u"looks-" + name);
            checkRows(window, 11);
        }
        Sheet window(Sheet::allRows(), {width, 620});
        ZelAttributedString text("A red word and\nmore of it");
        text.setAttribute(ZelAttributedString::ForegroundColor, QColor(Qt::red), {2, 3});
        window.set(0, "text", text.toVariant());
        window.set(1, "tags", QStringList{"c"});
        window.set(1, "frame", QRectF(1, 20, 100, 60));
        window.set(1, "fill", QColor(Qt::green));
        for (const QList<int> &selection : {QList<int>{}, {0, 1}, {0}}) {
            window.select(selection);
            QTest::qWait(20); // another text has another height, which goes up from layout to layout
            photograph(&window, QStringLiteral("editors-%1-%2").arg(name).arg(selection.size()));
            checkRows(window, 9);
        }
        if (width != 320)
            return;
        auto *font = window.editor<ZelInspectorFontProperty>("font");
        Sheet::click(font->button());
        QWidget *popover = QApplication::activePopupWidget();
        QVERIFY(popover);
        photograph(popover, u"font-" + name);
        checkInside(font->popoverView());
        QCOMPARE(font->popoverView()->width(), 245);
        QVERIFY(popover->rect().contains(font->popoverView()->geometry()));
        Sheet::press(Qt::Key_Escape);
        auto *editor = window.editor<ZelInspectorAttributedStringProperty>("text");
        Sheet::click(editor->segmentedControl(), editor->segmentedControl()->segmentRect(7).center());
        popover = QApplication::activePopupWidget();
        QVERIFY(popover);
        photograph(popover, u"paragraphs-" + name);
        checkInside(editor->paragraphStyleInspector()->view());
        Sheet::press(Qt::Key_Escape);
        QMenu *menu = Sheet::openMenu(window.findChild<ZelPopUpButton *>());
        QVERIFY(menu);
        photograph(menu, u"colors-" + name);
        QVERIFY(menu->screen()->geometry().contains(menu->geometry()));
        Sheet::press(Qt::Key_Escape);
    }
};

QTEST_MAIN(tst_Looks)
#include "tst_Looks.moc"
