// SPDX-License-Identifier: MIT
#include "InspectorWindow.h"

#include "Core/Values/ZelValues.h"
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Inspector/ZelInspectorPane.h"
#include "Inspector/ZelInspectorSection.h"
#include "TabBar/ZelTabBar.h"

#include <QMenu>
#include <QScrollBar>
#include <QWheelEvent>
#include <QWindow>

namespace {

/// Rows enough to scroll.
QByteArray description()
{
    QByteArray rows;
    for (int i = 0; i < 12; ++i)
        rows += "<sliver title='More'><property type='number' keyPath='people.selection.height'/></sliver>";
    return R"(<panes>
      <pane title="First"><inspector title="Person"><slice>
        <section title="Basics">
          <sliver title="Name"><property type="string" keyPath="people.selection.name" actionName="Rename"/></sliver>
          <sliver title="Height"><property type="number" keyPath="people.selection.height" formatUnit=" cm" maximum="200"
              slider="linear" actionName="Change Height" actionSelector="noteAction"/></sliver>
          <sliver title="Strong"><property type="boolean" title="Strong" keyPath="people.selection.flags" bits="4"
              actionName="Toggle Strong"/></sliver>
          <sliver title="Role"><property type="enumeration" keyPath="people.selection.role" actionName="Change Role">
            <option-group><option title="Guest" value="0"/><option title="Member" value="1"/><option title="Admin" value="2"/>
            </option-group></property></sliver>
          <sliver title="Active"><property type="boolean" title="Active" keyPath="people.selection.active"/></sliver>
        </section>
        <section title="When active" visibleKeyPath="people.selection.active">
          <sliver title="Note"><property type="string" keyPath="people.selection.note" allowsNilValues="yes"/></sliver>
        </section>
        <section title="Many">)" +
           rows + R"(</section></slice></inspector></pane>
      <pane title="Second"><inspector><slice><section>
          <sliver title="Tail"><property type="string" keyPath="people.selection.silent"/></sliver>
      </section></slice></inspector></pane>
    </panes>)";
}

void typeInto(QWidget *field, const QString &text, Qt::Key end = Qt::Key_Return)
{
    QTest::mouseClick(field, Qt::LeftButton);
    QWidget *focus = QApplication::focusWidget();
    QVERIFY(focus && (focus == field || field->isAncestorOf(focus)));
    QTest::keyClick(focus, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(focus, text);
    QTest::keyClick(focus, end);
    InspectorWindow::settle();
}

QAbstractScrollArea *scroller(const InspectorWindow &window)
{
    return window.inspector->currentInspector()->view()->findChild<QAbstractScrollArea *>();
}

} // namespace

/// What a person does with an inspector, with mouse and keyboard in a shown window.
class tst_Editing : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void typedTextReachesAllAndIsOneStep()
    {
        InspectorWindow window(description());
        window.people[1]->setHeight(9);
        window.select({0, 1});
        ZelTextField *field = window.editor<ZelInspectorNumberProperty>("height")->textField();
        typeInto(field, QStringLiteral("150 cm"));
        QCOMPARE(window.people[0]->height(), 150.0);
        QCOMPARE(window.people[1]->height(), 150.0);
        QCOMPARE(window.people[2]->height(), 0.0);
        QCOMPARE(window.stack.undoText(), QStringLiteral("Change Height"));
        QCOMPARE(window.owner->actions, 1);
        window.stack.undo();
        window.settle();
        QCOMPARE(window.people[0]->height(), 0.0);
        QCOMPARE(window.people[1]->height(), 9.0);
        QVERIFY(ZelIsMarker(field->objectValue(), ZelMultipleValuesMarker));
        window.stack.redo();
        QCOMPARE(window.people[1]->height(), 150.0);
    }

    void aCheckboxInItsThreeStates()
    {
        InspectorWindow window(description());
        window.people[0]->setFlags(1);
        window.people[1]->setFlags(6);
        window.select({0, 1});
        ZelCheckBox *box = window.editor<ZelInspectorBooleanProperty>("flags")->checkbox();
        QCOMPARE(box->checkState(), Qt::PartiallyChecked);
        const QPoint mark(8, box->height() / 2);
        QTest::mouseClick(box, Qt::LeftButton, {}, mark);
        QCOMPARE(window.people[0]->flags(), 5);
        QCOMPARE(window.people[1]->flags(), 6);
        QTest::mouseClick(box, Qt::LeftButton, {}, mark);
        QCOMPARE(window.people[0]->flags(), 1);
        QCOMPARE(window.people[1]->flags(), 2);
        QTest::keyClick(box, Qt::Key_Space);
        QCOMPARE(window.people[1]->flags(), 6);
        QCOMPARE(window.stack.count(), 3);
        QCOMPARE(window.stack.undoText(), QStringLiteral("Toggle Strong"));
    }

    void aPopUpChoice()
    {
        InspectorWindow window(description());
        window.select({0, 1});
        ZelPopUpButton *button = window.editor<ZelInspectorTextEnumerationProperty>("role")->popUpButton();
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_VERIFY(QApplication::activePopupWidget());
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        for (int i = 0; i < 3 && (!menu->activeAction() || menu->activeAction()->data() != 2); ++i)
            QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        window.settle();
        QCOMPARE(window.people[1]->role(), Person::Admin);
        QCOMPARE(window.stack.undoText(), QStringLiteral("Change Role"));
        window.stack.undo();
        QCOMPARE(window.people[1]->role(), Person::Guest);
    }

    void anEditShowsAndHidesWhatDependsOnIt()
    {
        InspectorWindow window(description());
        window.select({0});
        ZelGrowingTextField *note = nullptr;
        QTRY_VERIFY((note = window.editor<ZelInspectorStringProperty>("note")->textField()) == nullptr ||
                    !note->isVisible());
        ZelCheckBox *box = window.editor<ZelInspectorBooleanProperty>("active")->checkbox();
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
        QTRY_VERIFY((note = window.editor<ZelInspectorStringProperty>("note")->textField()) && note->isVisible());
        typeInto(note, QStringLiteral("tall"));
        QCOMPARE(window.people[0]->note(), QVariant(QStringLiteral("tall")));
        window.people[0]->setActive(false);
        QTRY_VERIFY(!note->isVisible());
    }

    void textThatIsNoNumberKeepsTheTabAndNothingElse()
    {
        InspectorWindow window(description());
        window.people[0]->setHeight(3);
        window.select({0});
        ZelTextField *field = window.editor<ZelInspectorNumberProperty>("height")->textField();
        typeInto(field, QStringLiteral("very tall"));
        QCOMPARE(window.people[0]->height(), 3.0);
        QVERIFY(!field->toolTip().isEmpty() || !field->errorText().isEmpty());
        ZelTabBar *tabs = window.inspector->tabBar();
        const QPoint second(tabs->width() / 2 + 16, tabs->height() / 2);
        QTest::mouseClick(tabs->childAt(second), Qt::LeftButton, {}, tabs->childAt(second)->mapFrom(tabs, second));
        window.settle();
        QCOMPARE(window.inspector->selectedPaneIndex(), 0u);
        ZelCheckBox *box = window.editor<ZelInspectorBooleanProperty>("active")->checkbox();
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
        QVERIFY(window.people[0]->isActive());
        QTest::mouseClick(field, Qt::LeftButton);
        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(field->objectValue(), QVariant(3.0));
        QTest::mouseClick(tabs->childAt(second), Qt::LeftButton, {}, tabs->childAt(second)->mapFrom(tabs, second));
        window.settle();
        QCOMPARE(window.inspector->selectedPaneIndex(), 1u);
    }

    void typingIsKeptWhileTheModelChanges()
    {
        InspectorWindow window(description());
        window.select({0});
        ZelTextField *field = window.editor<ZelInspectorNumberProperty>("height")->textField();
        QTest::mouseClick(field, Qt::LeftButton);
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, QStringLiteral("12"));
        window.people[0]->setHeight(77);
        window.settle();
        QCOMPARE(field->text(), QStringLiteral("12"));
        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(field->text(), QStringLiteral("77"));
    }

    void typingIsTakenBeforeTheSelectionChanges()
    {
        InspectorWindow window(description());
        window.people[1]->setHeight(9);
        window.select({0});
        ZelTextField *field = window.editor<ZelInspectorNumberProperty>("height")->textField();
        QTest::mouseClick(field, Qt::LeftButton);
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, QStringLiteral("12"));
        window.select({1}); // by a shortcut, say: the field keeps the focus
        QCOMPARE(window.people[0]->height(), 12.0);
        QCOMPARE(field->objectValue(), QVariant(9.0));
        QTest::keyClicks(field, QStringLiteral("no number"));
        window.select({0});
        QCOMPARE(field->objectValue(), QVariant(12.0));
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(window.people[0]->height(), 12.0);
        QCOMPARE(window.people[1]->height(), 9.0);
    }

    void tabsFollowTheRows()
    {
        InspectorWindow window(description());
        window.select({0});
        QWidget *name = window.editor<ZelInspectorStringProperty>("name")->textField();
        QTest::mouseClick(name, Qt::LeftButton);
        int top = -1;
        for (int i = 0; i < 8; ++i) {
            QWidget *focus = QApplication::focusWidget();
            QVERIFY(focus);
            const int y = focus->mapTo(&window, QPoint(0, focus->height() / 2)).y() +
                          scroller(window)->verticalScrollBar()->value();
            QVERIFY2(y >= top - focus->height() / 2, qPrintable(QString::number(i)));
            top = y;
            QTest::keyClick(focus, Qt::Key_Tab);
            window.settle();
        }
    }

    void theWheelScrollsUnlessTheEditorHasTheFocus()
    {
        InspectorWindow window(description(), {320, 200});
        window.people[0]->setHeight(50);
        window.select({0});
        ZelSlider *slider = window.editor<ZelInspectorNumberProperty>("height")->slider();
        const QPoint centre = slider->rect().center();
        QWheelEvent wheel(slider->mapTo(&window, centre), slider->mapToGlobal(centre), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QScrollBar *bar = scroller(window)->verticalScrollBar();
        QVERIFY(bar->maximum() > 0);
        QSpontaneKeyEvent::setSpontaneous(&wheel); // only what comes from the system is passed on to parents
        qApp->notify(window.windowHandle(), &wheel);
        window.settle();
        QCOMPARE(window.people[0]->height(), 50.0);
        QVERIFY(bar->value() > 0);
    }

    void manyChangesAreOneRefresh()
    {
        InspectorWindow window(description());
        window.select({0, 1, 2});
        auto *name = window.editor<ZelInspectorStringProperty>("name");
        int refreshes = 0;
        connect(name->textField(), &ZelGrowingTextField::objectValueChanged, &window, [&] { ++refreshes; });
        for (int i = 0; i < 50; ++i) {
            for (const auto &person : window.people)
                person->setName(QStringLiteral("N%1").arg(i));
        }
        QCOMPARE(refreshes, 0);
        window.settle();
        QCOMPARE(refreshes, 1);
        QCOMPARE(name->textField()->text(), QStringLiteral("N49"));
    }

    void aSilentPropertyIsReadAgainAfterEveryEdit()
    {
        InspectorWindow window(description());
        window.select({0});
        window.inspector->selectInspector(1);
        window.settle();
        auto *silent = window.editor<ZelInspectorStringProperty>("silent");
        typeInto(silent->textField(), QStringLiteral("a"));
        QCOMPARE(window.people[0]->silent, QStringLiteral("a"));
        window.people[0]->silent = QStringLiteral("changed behind its back");
        window.inspector->selectInspector(0);
        window.settle();
        typeInto(window.editor<ZelInspectorStringProperty>("name")->textField(), QStringLiteral("x"));
        window.inspector->selectInspector(1);
        window.settle();
        QCOMPARE(silent->textField()->text(), QStringLiteral("changed behind its back"));
    }
};

QTEST_MAIN(tst_Editing)
#include "tst_Editing.moc"
