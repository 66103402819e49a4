// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBarButton.h"
#include "Core/Values/ZelValues.h"
#include "EditorWindow.h"
#include "Inspector/Properties/ZelInspectorArrayProperty.h"
#include "Layout/ZelConstraintLayout.h"

#include <QApplication>
#include <QLineEdit>

namespace {

using Editor = ZelInspectorArrayProperty;

Editor *install(EditorWindow &window, const QString &key)
{
    auto property = std::make_unique<Editor>(window.owner.get());
    property->setKeyPath(QStringLiteral("people.selection.") + key);
    property->setActionName(QStringLiteral("List"));
    property->setActionSelector("noteAction");
    property->setEnabledKeyPath(QStringLiteral("unlocked"));
    return window.install(std::move(property));
}

QStringList rows(const Editor *editor)
{
    QStringList texts;
    const QAbstractItemModel *model = editor->tableView()->model();
    for (int row = 0; row < model->rowCount(); ++row)
        texts.append(model->index(row, 0).data().toString());
    return texts;
}

void selectRows(const Editor *editor, const QList<int> &rows)
{
    editor->tableView()->clearSelection();
    for (int row : rows)
        editor->tableView()->selectionModel()->select(editor->tableView()->model()->index(row, 0),
                                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void click(const Editor *editor, qsizetype item)
{
    QTest::mouseClick(editor->actionBar()->itemViews().at(item), Qt::LeftButton);
    QCoreApplication::processEvents();
}

/// Opens the cell, types and ends with the key.
void typeIntoRow(const Editor *editor, int row, const QString &text, Qt::Key end = Qt::Key_Return)
{
    QTableView *table = editor->tableView();
    table->setCurrentIndex(table->model()->index(row, 0));
    table->edit(table->currentIndex());
    auto *field = table->findChild<QLineEdit *>();
    QVERIFY(field);
    field->setText(text);
    QTest::keyClick(field, end);
    QCoreApplication::processEvents();
}

QStringList list(std::initializer_list<const char *> texts)
{
    QStringList result;
    for (const char *text : texts)
        result.append(QString::fromUtf8(text));
    return result;
}

} // namespace

class tst_ZelInspectorArrayProperty : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void showsNoneOneManyEqualAndDifferent();
    void cellsAreEditedInPlace();
    void rowsAreAdded();
    void rowsAreRemoved();
    void removingNothingIsStillAnAction();
    void anObjectWithoutAListGetsOne();
    void listsKeepTheirTypes_data();
    void listsKeepTheirTypes();
    void theButtonsFollowTableAndSelection();
    void typingSurvivesOtherChanges();
    void theRowsLabelStandsBesideTheFirstRow();
    void survivesTheDeathOfOwnerAndView();
};

void tst_ZelInspectorArrayProperty::showsNoneOneManyEqualAndDifferent()
{
    EditorWindow window(3);
    window.people[0]->tags = window.people[1]->tags = list({"a", "b"});
    window.people[2]->tags = list({"c"});
    Editor *editor = install(window, QStringLiteral("tags"));
    QVERIFY(ZelIsMarker(editor->reflectedValues(), ZelNoSelectionMarker));
    QCOMPARE(editor->numberOfRows(), 0);
    window.select({0});
    QCOMPARE(rows(editor), list({"a", "b"}));
    window.select({0, 1});
    QCOMPARE(rows(editor), list({"a", "b"}));
    window.select({0, 1, 2});
    QCOMPARE(rows(editor), QStringList());
    QCOMPARE(editor->tableView()->accessibleDescription(), QStringLiteral("Multiple Values"));
    QVERIFY(!editor->addActionItem()->isEnabled());
    editor->addObject(nullptr);
    editor->removeObject(nullptr);
    editor->setObjectValueForRow(QStringLiteral("x"), 0);
    QCOMPARE(window.people[0]->tags, list({"a", "b"}));
    QCOMPARE(window.people[2]->tags, list({"c"}));
    QCOMPARE(window.owner->actions, 0);
    QCOMPARE(window.undo.stack()->count(), 0);
    window.select({2});
    window.people[2]->setProperty("tags", list({"x", "y", "z"}));
    QTRY_COMPARE(rows(editor), list({"x", "y", "z"}));
    QCOMPARE(editor->objectValueForRow(2).toString(), QStringLiteral("z"));
    QVERIFY(!editor->objectValueForRow(3).isValid());
}

void tst_ZelInspectorArrayProperty::cellsAreEditedInPlace()
{
    EditorWindow window;
    window.people[0]->tags = window.people[1]->tags = list({"a", "b"});
    Editor *editor = install(window, QStringLiteral("tags"));
    window.select({0, 1});
    typeIntoRow(editor, 1, QStringLiteral("beta"));
    QCOMPARE(window.people[0]->tags, list({"a", "beta"}));
    QCOMPARE(window.people[1]->tags, list({"a", "beta"}));
    QCOMPARE(rows(editor), list({"a", "beta"}));
    QCOMPARE(window.undo.stack()->count(), 1);
    QCOMPARE(window.undo.stack()->undoText(), QString()); // an edit of a cell is no action
    QCOMPARE(window.owner->actions, 0);
    typeIntoRow(editor, 0, QStringLiteral("dropped"), Qt::Key_Escape);
    typeIntoRow(editor, 0, QStringLiteral("a")); // the same
    QCOMPARE(window.undo.stack()->count(), 1);
    window.undo.undo();
    QTRY_COMPARE(rows(editor), list({"a", "b"}));
}

void tst_ZelInspectorArrayProperty::rowsAreAdded()
{
    EditorWindow window;
    window.people[0]->tags = list({"a"});
    Editor *editor = install(window, QStringLiteral("tags"));
    window.select({0});
    click(editor, 0);
    QCOMPARE(window.people[0]->tags, list({"a", "Item"}));
    QCOMPARE(rows(editor), window.people[0]->tags);
    QCOMPARE(editor->tableView()->currentIndex().row(), 1);
    QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("List"));
    QCOMPARE(window.owner->actions, 1);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("mine")); // over the default value
    click(editor, 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(window.people[0]->tags, list({"a", "mine", "Item"}));
    editor->defaultValue = QStringLiteral("more");
    editor->addObject(nullptr);
    editor->addObject(nullptr); // before the model's change was shown
    QCOMPARE(window.people[0]->tags, list({"a", "mine", "Item", "more", "more"}));
}

void tst_ZelInspectorArrayProperty::rowsAreRemoved()
{
    EditorWindow window;
    window.people[0]->tags = list({"a", "b", "c", "d", "e"});
    Editor *editor = install(window, QStringLiteral("tags"));
    window.select({0});
    selectRows(editor, {3, 0, 4});
    click(editor, 1);
    QCOMPARE(window.people[0]->tags, list({"b", "c"}));
    QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("List"));
    QCOMPARE(window.owner->actions, 1);
    selectRows(editor, {0, 1});
    click(editor, 1);
    QCOMPARE(window.people[0]->tags, QStringList());
    QVERIFY(!editor->removeActionItem()->isEnabled());
    window.undo.undo();
    window.undo.undo();
    QTRY_COMPARE(rows(editor), list({"a", "b", "c", "d", "e"}));
}

void tst_ZelInspectorArrayProperty::removingNothingIsStillAnAction()
{
    EditorWindow window;
    window.people[0]->tags = list({"a"});
    Editor *editor = install(window, QStringLiteral("tags"));
    window.select({0});
    const ZelUndoGrouping grouping(&window.undo);
    editor->removeObject(nullptr);
    QCOMPARE(window.people[0]->tags, list({"a"}));
    QCOMPARE(window.undo.actionName(), QStringLiteral("List"));
    QCOMPARE(window.owner->actions, 1);
}

void tst_ZelInspectorArrayProperty::anObjectWithoutAListGetsOne()
{
    EditorWindow window;
    Editor *editor = install(window, QStringLiteral("note"));
    window.select({0, 1});
    QVERIFY(ZelIsNull(editor->reflectedValues()));
    editor->removeObject(nullptr);
    QCOMPARE(window.people[0]->note(), QVariant());
    QVERIFY(editor->addActionItem()->isEnabled());
    click(editor, 0);
    QCOMPARE(window.people[0]->note(), QVariant(QVariantList{QStringLiteral("Item")}));
    QCOMPARE(window.people[1]->note(), window.people[0]->note());
    QCOMPARE(rows(editor), list({"Item"}));
    QCOMPARE(window.owner->actions, 0); // nobody is told
    click(editor, 0);
    QCOMPARE(window.owner->actions, 1);
    window.people[0]->setNote({});
    window.select({0});
    editor->setObjectValueForRow(QStringLiteral("first"), 7);
    QCOMPARE(window.people[0]->note(), QVariant(QVariantList{QStringLiteral("first")}));
}

void tst_ZelInspectorArrayProperty::listsKeepTheirTypes_data()
{
    QTest::addColumn<QVariant>("before");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("after");
    QTest::newRow("texts") << QVariant(list({"a", "b"})) << QStringLiteral("x") << QVariant(list({"a", "x"}));
    QTest::newRow("numbers") << QVariant(QVariantList{1, 2.5}) << QStringLiteral("7.25")
                             << QVariant(QVariantList{1, 7.25});
    QTest::newRow("no number") << QVariant(QVariantList{1, 2}) << QStringLiteral("many")
                               << QVariant(QVariantList{1, 2});
    QTest::newRow("mixed") << QVariant(QVariantList{1, QStringLiteral("b")}) << QStringLiteral("7")
                           << QVariant(QVariantList{1, QStringLiteral("7")});
    QTest::newRow("a list of numbers") << QVariant::fromValue(QList<int>{1, 2}) << QStringLiteral("3")
                                       << QVariant::fromValue(QList<int>{1, 3});
}

void tst_ZelInspectorArrayProperty::listsKeepTheirTypes()
{
    QFETCH(QVariant, before);
    QFETCH(QString, text);
    QFETCH(QVariant, after);
    EditorWindow window;
    window.people[0]->setNote(before);
    Editor *editor = install(window, QStringLiteral("note"));
    window.select({0});
    typeIntoRow(editor, 1, text);
    QCOMPARE(window.people[0]->note().metaType(), after.metaType());
    QVERIFY(ZelList(window.people[0]->note()) == ZelList(after));
    QCOMPARE(rows(editor).value(1), ZelList(after).at(1).toString());
}

void tst_ZelInspectorArrayProperty::theButtonsFollowTableAndSelection()
{
    EditorWindow window;
    window.people[0]->tags = list({"a", "b"});
    Editor *editor = install(window, QStringLiteral("tags"));
    window.select({0});
    QVERIFY(editor->addActionItem()->isEnabled());
    QVERIFY(!editor->removeActionItem()->isEnabled());
    selectRows(editor, {1});
    QVERIFY(editor->removeActionItem()->isEnabled());
    QVERIFY(editor->actionBar()->itemViews().at(1)->isEnabled());
    window.people[0]->setProperty("tags", list({"a"}));
    QTRY_VERIFY(!editor->removeActionItem()->isEnabled()); // with the row
    selectRows(editor, {0});
    window.owner->setUnlocked(false);
    QTRY_VERIFY(!editor->addActionItem()->isEnabled());
    QVERIFY(!editor->removeActionItem()->isEnabled());
    window.owner->setUnlocked(true);
    QTRY_VERIFY(editor->addActionItem()->isEnabled());
    QTest::keyClick(editor->tableView(), Qt::Key_A); // the user does something: the bar leaves the items alone
    QTest::qWait(150);
    QVERIFY(editor->removeActionItem()->isEnabled());
}

void tst_ZelInspectorArrayProperty::typingSurvivesOtherChanges()
{
    EditorWindow window;
    window.people[0]->tags = list({"a", "b"});
    Editor *editor = install(window, QStringLiteral("tags"));
    window.select({0});
    selectRows(editor, {1});
    editor->tableView()->edit(editor->tableView()->model()->index(0, 0));
    QPointer<QLineEdit> field = editor->tableView()->findChild<QLineEdit *>();
    field->setText(QStringLiteral("typing"));
    window.people[0]->setProperty("tags", list({"a", "new", "c"}));
    QTRY_COMPARE(rows(editor), list({"a", "new", "c"}));
    QCOMPARE(field->text(), QStringLiteral("typing"));
    QVERIFY(editor->removeActionItem()->isEnabled());
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_COMPARE(window.people[0]->tags, list({"typing", "new", "c"}));
}

void tst_ZelInspectorArrayProperty::theRowsLabelStandsBesideTheFirstRow()
{
    EditorWindow window;
    window.people[0]->tags = list({"a"});
    Editor *editor = install(window, QStringLiteral("tags"));
    window.select({0});
    QWidget *view = editor->viewForBaselineAlignment();
    const double baseline =
        ZelConstraintLayout::baselineOffset(view, view->height()) + editor->baselineOffsetFromView();
    const QTableView *table = editor->tableView();
    const QRect row = table->visualRect(table->model()->index(0, 0));
    const double middle = table->viewport()->mapTo(view, row.center()).y();
    QVERIFY2(baseline > middle && baseline < middle + row.height() / 2.0, qPrintable(QString::number(baseline)));
    QCOMPARE(editor->tableView()->height(), 64);
    QCOMPARE(editor->actionBar()->height(), 16);
}

void tst_ZelInspectorArrayProperty::survivesTheDeathOfOwnerAndView()
{
    EditorWindow window;
    window.people[0]->tags = list({"a", "b"});
    Editor *editor = install(window, QStringLiteral("tags"));
    window.select({0});
    editor->tableView()->edit(editor->tableView()->model()->index(0, 0));
    editor->tableView()->findChild<QLineEdit *>()->setText(QStringLiteral("late"));
    window.owner.reset();
    editor->addObject(nullptr);
    editor->updateView();
    QCOMPARE(editor->numberOfRows(), 0);
    delete editor->view();
    editor->updateView();
    editor->removeObject(nullptr);
    QCOMPARE(window.people[0]->tags, list({"a", "b"}));
}

QTEST_MAIN(tst_ZelInspectorArrayProperty)
#include "tst_ZelInspectorArrayProperty.moc"
