// SPDX-License-Identifier: MIT
#include "FigureSheet.h"

namespace {
// Texts, numbers and choices.
const QByteArray g_rows = R"(
    <sliver title="Name"><property type="string" keyPath="people.selection.name"/></sliver>
    <sliver title="With a title"><property type="string" title="below" keyPath="people.selection.name"/></sliver>
    <sliver title="Stepper"><property type="number" title="X" keyPath="people.selection.height" formatUnit=" pt"/>
      <property type="number" title="Y" keyPath="people.selection.height" formatUnit=" pt"/></sliver>
    <sliver title="Linear"><property type="number" keyPath="people.selection.height" slider="linear" maximum="100"/></sliver>
    <sliver title="Circular"><property type="number" keyPath="people.selection.height" slider="circular" maximum="360"/></sliver>
    <sliver title="May be none"><property type="number" keyPath="people.selection.note" nonNilValueTitle="Set"
        nonNilValueKeyPath="extra" placeholder="none"/></sliver>
    <sliver title="Checks"><property type="boolean" title="Active" keyPath="people.selection.active"/>
      <property type="boolean" title="Strong" keyPath="people.selection.flags" bits="4"/></sliver>
    <sliver title="Role"><property type="enumeration" keyPath="people.selection.role">
      <option-group><option title="Guest" value="0"/><option title="A member of long standing" value="1"/></option-group>
      </property></sliver>
    <sliver title="Do"><property type="action" title="Something with a long title" actionSelector="noteAction"/></sliver>
    <chooser title="Kind" keyPath="people.selection.role"><choice title="Guest" value="0">
      <sliver title="Inside"><property type="string" keyPath="people.selection.name"/></sliver></choice></chooser>)";

double baseline(QWidget *widget, const QWidget *in)
{
    return widget->mapTo(in, QPoint()).y() + ZelConstraintLayout::baselineOffset(widget, widget->height());
}

void checkInside(const QWidget *parent)
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

/// Every row has its label on the baseline of its first editor and at the same edge, and its editors inside.
void checkRows(const Sheet &window, int count)
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
} // namespace

/// Rows align and nothing is clipped, at every width.
class tst_Looks : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { ZelBundle::mainBundle().setResourcePaths({QStringLiteral(ZEL_DOCS)}); }

    void rowsAlignAndNothingIsClipped()
    {
        for (const int width : {260, 320, 600}) {
            const TableRow atWidth(QString::number(width));
            Sheet simple(g_rows, {width, 620});
            simple.select({0});
            checkRows(simple, 11);
            Sheet window(Sheet::allRows(), {width, 620});
            window.set(0, "text", ZelAttributedString("A red word and\nmore of it").toVariant());
            window.set(1, "tags", QStringList{"c"});
            window.set(1, "frame", QRectF(1, 20, 100, 60));
            window.set(1, "fill", QColor(Qt::green));
            for (const QList<int> &selection : {QList<int>{}, {0, 1}, {0}}) {
                window.select(selection);
                QTest::qWait(20); // another text has another height, which goes up from layout to layout
                checkRows(window, 9);
            }
        }
    }

    void popoversAndMenusAreInside()
    {
        Sheet window(Sheet::allRows());
        window.select({0});
        auto *font = window.editor<ZelInspectorFontProperty>("font");
        Sheet::click(font->button());
        const QWidget *popover = QApplication::activePopupWidget();
        QVERIFY(popover && popover->rect().contains(font->popoverView()->geometry()));
        checkInside(font->popoverView());
        QCOMPARE(font->popoverView()->width(), 245);
        Sheet::press(Qt::Key_Escape);
        auto *editor = window.editor<ZelInspectorAttributedStringProperty>("text");
        Sheet::click(editor->segmentedControl(), editor->segmentedControl()->segmentRect(7).center());
        checkInside(editor->paragraphStyleInspector()->view());
        Sheet::press(Qt::Key_Escape);
        const QMenu *menu = Sheet::openMenu(window.findChild<ZelPopUpButton *>());
        QVERIFY(menu && menu->screen()->geometry().contains(menu->geometry()));
        Sheet::closePopups();
    }
};
QTEST_MAIN(tst_Looks)
#include "tst_Looks.moc"
