// SPDX-License-Identifier: MIT
#include "Inspector/Descriptions.h"

#include "Controls/Fields/ZelTextField.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/ZelCheckBox.h"
#include "Controls/ZelLabel.h"
#include "Core/KeyValue/ZelClassRegistry.h"
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Values/ZelValues.h"
#include "ExpandableViews/ZelExpandableView.h"
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/ZelTabbedInspector.h"
#include "Support/EditorOwner.h"
#include "Support/Person.h"
#include "TabBar/ZelButtonMatrix.h"
#include "TabBar/ZelTabBar.h"
#include "Views/ZelScrollView.h"
#include "Views/ZelSeparator.h"
#include "Views/ZelSwitchContainerView.h"
#include "Views/ZelVerticalStackView.h"

#include <QMetaProperty>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace {

using Rows = QList<ZelInspectorConditionalContainer *>;
using Widgets = QList<QWidget *>;

QByteArray slice(const QByteArray &content)
{
    return "<slice><section>" + content + "</section></slice>";
}

QByteArray pane(const QByteArray &content)
{
    return "<pane><inspector title='I'>" + slice(content) + "</inspector></pane>";
}

/// Everything depends on a condition.
const QByteArray g_conditional =
    "<panes enabledKeyPath='unlocked'><pane><inspector visibleKeyPath='unlocked'><slice visibleKeyPath='unlocked'>"
    "<section visibleKeyPath='unlocked'><sliver visibleKeyPath='unlocked'>%%</sliver><chooser keyPath='unlocked'>"
    "<choice value='0'/><choice value='1'><sliver>%</sliver></choice></chooser></section></slice></inspector></pane>"
    "</panes>";

} // namespace

class tst_InspectorContainers : public QObject
{
    Q_OBJECT

    /// Makes what the text describes: tabs, a pane or a slice. % stands for an editor that notes what it is told.
    void make(QByteArray text)
    {
        ZelDeclarativeInspectorGenerator generator;
        generator.setOwner(m_owner.get());
        text.replace('%', "<property type='custom' class='NotingProperty'/>");
        generator.setUrl(m_files.write("Main.xml", text));
        if (text.startsWith("<panes"))
            m_root.reset(generator.createTabbedInspector());
        else
            m_root.reset(text.startsWith("<pane") ? static_cast<ZelViewController *>(generator.createPane())
                                                  : generator.createSlice());
    }
    template<typename Class> Class *show(const QByteArray &text)
    {
        make(text);
        showInWindow();
        return static_cast<Class *>(m_root.get());
    }
    /// The first such object below the slice with this content.
    template<typename Class> Class *showIn(const QByteArray &content)
    {
        show<ZelInspectorSlice>(slice(content));
        settle();
        return find<Class>();
    }
    void showInWindow()
    {
        m_window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(m_window.get());
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(m_root->view());
        m_window->resize(300, 500);
        m_window->show();
    }
    /// Deferred work and layout.
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    void setExtra(const QVariant &value)
    {
        m_owner->extra = value;
        Q_EMIT m_owner->extraChanged();
    }
    template<typename Class> Class *find() const { return m_root->findChild<Class *>(); }
    template<typename Class> QList<Class *> all() const { return m_root->findChildren<Class *>(); }
    /// What the editors were told in the meantime: "r" for refresh, and so on.
    template<typename Work> QString told(Work work) const
    {
        QStringList logs;
        for (NotingProperty *editor : all<NotingProperty>())
            editor->log.clear();
        work();
        for (NotingProperty *editor : all<NotingProperty>())
            logs.append(editor->takeLog());
        return logs.join('|');
    }
    static QRect inRow(ZelInspectorSliver *row, qsizetype place)
    {
        QWidget *widget = row->properties().at(place)->view();
        return QRect(widget->mapTo(row->view(), QPoint()), widget->size());
    }

    Descriptions m_files;
    std::unique_ptr<EditorOwner> m_owner;
    std::unique_ptr<Person> m_people[2];
    std::unique_ptr<ZelViewController> m_root;
    std::unique_ptr<QWidget> m_window;

private Q_SLOTS:
    void initTestCase() { ZelClassRegistry::registerClass<NotingProperty>(); }
    void init()
    {
        m_owner = std::make_unique<EditorOwner>();
        for (auto &person : m_people)
            person = std::make_unique<Person>();
        m_owner->controller.setSelectedObjects({m_people[0].get(), m_people[1].get()});
    }
    void cleanup()
    {
        m_window.reset();
        m_root.reset();
        QCOMPARE(NotingProperty::alive, 0);
    }

    void conditionsAreTrueForPresentTrueValues()
    {
        const auto isVisibleFor = [this](const QVariant &value, bool before) {
            ZelInspector inspector(m_owner.get());
            inspector.setVisible(before);
            m_owner->extra = value;
            inspector.setVisibleKeyPath("extra");
            return inspector.isVisible();
        };
        QVERIFY(isVisibleFor(true, false) && isVisibleFor(2.5, false));
        QVERIFY(!isVisibleFor(false, true) && !isVisibleFor(0, true));
        QVERIFY(!isVisibleFor({}, true) && !isVisibleFor(ZelNull(), true));
        for (const auto marker : {ZelNoSelectionMarker, ZelMultipleValuesMarker, ZelNotApplicableMarker})
            QVERIFY2(!isVisibleFor(QVariant::fromValue(marker), true), qPrintable(say(int(marker))));
    }

    void inspectorsAndSlicesFollowTheirConditionFromTheStart()
    {
        ZelInspectorSlice slice(m_owner.get());
        setExtra(false);
        slice.setVisibleKeyPath("extra");
        QVERIFY(!slice.isVisible());
        slice.unbindAndTearDown();
        setExtra(true);
        QVERIFY(!slice.isVisible());
        slice.bindAndConfigure();
        QVERIFY(slice.isVisible());
        slice.setVisibleValueTransformer(
            ZelAbstractValueTransformer::valueTransformerForName(ZelNegateBooleanTransformerName));
        QVERIFY(!slice.isVisible());
        m_owner->setUnlocked(false);
        slice.setVisibleKeyPath("unlocked");
        QVERIFY(slice.isVisible() && !ZelIsObserved(m_owner.get(), "extra"));
        m_owner->setUnlocked(true);
        QVERIFY(!slice.isVisible());
        slice.setVisibleKeyPath({}); // no condition: it stays as it is
        m_owner->setUnlocked(false);
        QVERIFY(!slice.isVisible());
        slice.setVisibleKeyPath("extra");
        m_owner.reset();
        slice.updateVisible(); // no owner, no value; and not of no value is true
        QVERIFY(slice.isVisible());
    }

    void rowsFollowTheirConditionWhileInstalled()
    {
        show<ZelInspectorSlice>("<slice><section visibleKeyPath='unlocked'><sliver visibleKeyPath='unlocked'/>"
                                "<chooser visibleKeyPath='unlocked'/></section></slice>");
        const Rows rows{find<ZelInspectorSection>(), all<ZelInspectorSliver>().first(), find<ZelInspectorChooser>()};
        const auto areVisible = [&](bool visible) {
            return std::ranges::all_of(rows, [visible](ZelInspectorConditionalContainer *row) {
                return row->isVisible() == visible && row->view()->isHidden() != visible;
            });
        };
        QVERIFY(areVisible(true));
        m_owner->setUnlocked(false);
        QVERIFY(areVisible(false));
        m_root->view()->setParent(nullptr);
        m_owner->setUnlocked(true);
        QVERIFY(areVisible(false));
        m_window->layout()->addWidget(m_root->view());
        QVERIFY(areVisible(true));
    }

    void aHiddenSliceOfItsOwnWindowIsShownLater()
    {
        m_owner->setUnlocked(false);
        auto *slice = show<ZelInspectorSlice>("<slice visibleKeyPath='unlocked'><section title='S'/></slice>");
        QVERIFY(!slice->view()->isVisible());
        m_owner->setUnlocked(true);
        QVERIFY(slice->view()->isVisible());
        // Without a parent it does not become a window.
        m_owner->setUnlocked(false);
        slice->view()->setParent(nullptr);
        m_owner->setUnlocked(true);
        QVERIFY(!slice->view()->isVisible());
        m_window->layout()->addWidget(slice->view());
        settle();
        QVERIFY(slice->view()->isVisible());
    }

    void invisibleInspectorsAndSlicesHaveNoView()
    {
        m_owner->setUnlocked(false);
        m_owner->extra = false;
        auto *shown = show<ZelInspectorPane>(R"(<pane>
            <inspector title="1"><slice title="a" visibleKeyPath="extra"/><slice/></inspector>
            <inspector title="2" visibleKeyPath="unlocked"><slice/></inspector>
            <inspector title="3"><slice/></inspector></pane>)");
        const QList<ZelInspector *> inspectors = shown->inspectors();
        ZelInspectorSlice *slice = inspectors.at(0)->slices().at(0);
        QVERIFY(!inspectors.at(1)->isViewLoaded() && !slice->isViewLoaded());
        QCOMPARE(shown->containerView()->subviews().size(), 2);
        m_owner->setUnlocked(true);
        QCOMPARE(shown->containerView()->subviews(),
                 Widgets({inspectors.at(0)->view(), inspectors.at(1)->view(), inspectors.at(2)->view()}));
        QVERIFY(inspectors.at(1)->view()->isVisible());
        setExtra(true);
        QVERIFY(slice->isViewLoaded() && slice->view()->isVisible());
        QCOMPARE(inspectors.at(0)->slicesView()->subviews().first(), slice->view());
        // What has a view stays in its place, and is hidden.
        m_owner->setUnlocked(false);
        QCOMPARE(shown->containerView()->subviews().size(), 3);
        QVERIFY(inspectors.at(1)->view()->isHidden());
        settle();
        QCOMPARE(inspectors.at(2)->view()->y(), inspectors.at(0)->view()->geometry().bottom() + 1);
    }

    void stacksFollowTheirLists()
    {
        auto *shown = show<ZelInspectorPane>(
            "<pane><inspector title='1'><slice/><slice/></inspector><inspector title='2'><slice/></inspector></pane>");
        ZelInspector *first = shown->inspectors().at(0);
        ZelInspector *second = shown->inspectors().at(1);
        const auto views = [&] { return shown->containerView()->subviews(); };
        shown->setInspectors({second});
        QCOMPARE(views(), Widgets({second->view()}));
        first->setVisible(false); // nobody listens any more
        first->setVisible(true);
        QCOMPARE(views().size(), 1);
        shown->setInspectors({second, first});
        QCOMPARE(views(), Widgets({second->view(), first->view()}));
        delete second;
        QCOMPARE(shown->inspectors(), QList<ZelInspector *>{first});
        const QList<ZelInspectorSlice *> slices{first->slices().at(1), first->slices().at(0)};
        first->setSlices(slices);
        QCOMPARE(first->slicesView()->subviews(), Widgets({slices.at(0)->view(), slices.at(1)->view()}));
        first->setTitle("new");
        QCOMPARE(qobject_cast<ZelExpandableView *>(first->view())->title(), "new");
    }

    void tabsVisitTheControlsFromTopToBottom()
    {
        QByteArray text;
        for (const QByteArray attributes :
             {"title='1' visibleKeyPath='unlocked'", "title='2'", "title='3' visibleKeyPath='extra'", "title='4'"})
            text += "<inspector " + attributes + ">" +
                    slice("<sliver><property type='boolean' keyPath='unlocked' " + attributes.left(9) + "/></sliver>") +
                    "</inspector>";
        m_owner->setUnlocked(false);
        m_owner->extra = false;
        auto *shown = show<ZelInspectorPane>("<pane>" + text + "</pane>");
        shown->view()->setParent(nullptr);
        QWidget *before = new QCheckBox(m_window.get());
        m_window->layout()->addWidget(shown->view());
        QWidget *after = new QCheckBox(m_window.get());
        const auto visited = [&] {
            QString titles;
            for (QWidget *widget = before->nextInFocusChain(); widget != after; widget = widget->nextInFocusChain()) {
                if (auto *box = qobject_cast<QCheckBox *>(widget))
                    titles += box->text();
            }
            return titles;
        };
        QCOMPARE(visited(), "24");
        setExtra(true);
        QCOMPARE(visited(), "234");
        m_owner->setUnlocked(true);
        QCOMPARE(visited(), "1234");
        // A row's own order, too.
        auto *row = shown->inspectors().at(2)->findChild<ZelInspectorSliver *>();
        auto *editor = new ZelInspectorBooleanProperty(m_owner.get());
        editor->setTitle("a");
        row->setProperties(QList<ZelInspectorProperty *>{editor} + row->properties());
        QCOMPARE(visited(), "12a34");
    }

    void sectionsAreRebuiltLaterInTheTurn()
    {
        auto *section = showIn<ZelInspectorSection>("<sliver/><sliver/>");
        const Rows rows = section->sliversAndChoosers();
        section->setTitle("Heading");
        section->setSliversAndChoosers({rows.at(1)});
        QVERIFY(!section->label());
        QCOMPARE(section->view()->subviews().size(), 2);
        settle();
        QCOMPARE(section->label()->text(), "Heading");
        QCOMPARE(section->view()->subviews(), Widgets({section->labelContainerView(), rows.at(1)->view()}));
        QVERIFY(!rows.at(0)->view()->parentWidget() && !rows.at(0)->isViewInstalled());
        section->setTitle("");
        settle();
        QVERIFY(!section->labelContainerView());
    }

    void separatorsAndColorsOfSections()
    {
        m_owner->setUnlocked(false);
        auto *shown = show<ZelInspectorSlice>(
            "<slice><section visibleKeyPath='unlocked'/><section/><section visibleKeyPath='unlocked'/></slice>");
        const Widgets views = shown->sectionsView()->subviews();
        QCOMPARE(views.size(), 5);
        const auto *separator = qobject_cast<ZelSeparator *>(views.at(1));
        QVERIFY(separator && separator->level() == 2 && separator->edgeInsets() == QMarginsF(8, 0, 8, 0));
        const auto hidden = [&] {
            QString text;
            for (const QWidget *view : views)
                text += view->isHidden() ? '-' : '+';
            return text;
        };
        QCOMPARE(hidden(), "-++--");
        m_owner->setUnlocked(true);
        QCOMPARE(hidden(), "+++++");
        shown->sections().at(1)->setVisible(false);
        QCOMPARE(hidden(), "+--++");

        ZelInspectorSlice colored(m_owner.get());
        colored.setUsesAlternatingBackgroundColors(true);
        colored.setSections({new ZelInspectorSection(m_owner.get()), new ZelInspectorSection(m_owner.get()),
                             new ZelInspectorSection(m_owner.get())});
        colored.view();
        QString colors;
        for (const ZelInspectorSection *section : colored.sections())
            colors += const_cast<ZelInspectorSection *>(section)->view()->backgroundColor().toQColor().name() + ' ';
        QCOMPARE(colors, "#000000 #dedede #000000 ");
    }

    void onlyTheChosenPaneIsShown()
    {
        auto *tabs = show<ZelTabbedInspector>(
            "<panes enabledKeyPath='unlocked' enabledValueTransformer='ZelNegateBooleanTransformerName'>" +
            pane("<sliver>%</sliver>").replace("<pane>", "<pane title='One'>") +
            pane("<sliver>%</sliver>").replace("<pane>", "<pane title='Two'>") + "</panes>");
        QString items;
        for (const ZelTabBarItem *item : tabs->tabBar()->items())
            items += say(item->toolTip(), item->keyEquivalent(), item->keyEquivalentModifierMask().toInt());
        QCOMPARE(items, R"("One" "1" 67108864"Two" "1" 67108864)"); // with the control key
        QVERIFY(!tabs->tabBar()->isEnabled());
        m_owner->setUnlocked(false);
        QVERIFY(tabs->tabBar()->isEnabled());
        settle();
        QCOMPARE(tabs->tabBar()->height(), 22);
        QCOMPARE(tabs->containerView()->geometry(), QRect(0, 22, 300, 478));

        const QList<NotingProperty *> editors = all<NotingProperty>();
        const auto state = [&] {
            const qsizetype current = tabs->panes().indexOf(tabs->currentInspector());
            return say(tabs->selectedPaneIndex(), current, tabs->tabBar()->matrix()->selectedColumn(),
                       editors.at(0)->view()->isVisible(), editors.at(1)->view()->isVisible());
        };
        QCOMPARE(state(), "0 0 0 true false");
        editors.at(0)->commits = false;
        tabs->tabBar()->matrix()->performClickAtColumn(1);
        QCOMPARE(state(), "0 0 0 true false");
        editors.at(0)->commits = true;
        QCOMPARE(told([&] { tabs->tabBar()->matrix()->performClickAtColumn(1); }), "cp|r");
        QCOMPARE(state(), "1 1 1 false true");
        tabs->setSelectedPaneIndex(0);
        QCOMPARE(state(), "0 0 0 true false");
        tabs->selectInspector(7);
        QVERIFY(!tabs->currentInspector() && tabs->commitEditing());
    }

    void whatIsToldReachesEveryEditor()
    {
        show<ZelInspectorPane>(pane("<sliver>%%</sliver><chooser keyPath='extra'><choice value='1'><sliver>%</sliver>"
                                    "</choice><choice value='2'><sliver>%</sliver></choice></chooser>"));
        setExtra(1);
        QCOMPARE(told([&] { m_root->refresh(); }), "r|r|r|r");
        QCOMPARE(told([&] { m_root->prepareForReuse(); }), "p|p|p|p");
        QCOMPARE(told([&] { QVERIFY(m_root->commitEditing()); }), "c|c|c|"); // only the chosen content
        QCOMPARE(told([&] { m_root->discardEditing(); }), "d|d|d|");
        all<NotingProperty>().at(1)->commits = false;
        QCOMPARE(told([&] { QVERIFY(!m_root->commitEditing()); }), "c|c||");
    }

    void hidingAnInspectorCommitsFirst()
    {
        const QByteArray hiding = "<inspector visibleKeyPath='unlocked'><slice/></inspector>";
        auto *shown = show<ZelInspectorPane>("<pane>" + hiding + "<inspector>" + slice("<sliver>%</sliver>") +
                                             "</inspector>" + hiding + hiding + "</pane>");
        const auto toggle = [&] { m_owner->setUnlocked(!m_owner->isUnlocked()); };
        QCOMPARE(told(toggle), "cp"); // once for all that are hidden by a change
        // Where one that is told opens an event loop, the others are not held up.
        QStringList inTime;
        connect(shown->inspectors().first(), &ZelInspectorConditionalContainer::visibleChanged, this, [&] {
            settle();
            inTime.append(find<NotingProperty>()->takeLog());
        });
        toggle();
        QCOMPARE(inTime, QStringList{"cp"});
        shown->inspectors().first()->disconnect(this);
        QCOMPARE(told([&] { shown->inspectors().at(1)->setVisible(false); }), "cp");
        find<NotingProperty>()->commits = false;
        QCOMPARE(told([&] { shown->inspectors().at(1)->setVisible(true); }), "c");
    }

    void aChooserShowsAndWritesTheContentOfTheValue()
    {
        auto *chooser = showIn<ZelInspectorChooser>(
            "<chooser title='Role' keyPath='people.selection.role' actionSelector='noteAction'><choice title='Guest' "
            "value='0'><sliver title='g'>%</sliver></choice><choice title='Member' value='1'><sliver title='m'>%"
            "</sliver><sliver title='n'>%</sliver></choice></chooser>");
        const auto state = [&]() -> QString {
            settle();
            QString visible;
            for (NotingProperty *editor : all<NotingProperty>())
                visible += editor->view()->isVisible() ? '+' : '-';
            const qsizetype current = chooser->choices().indexOf(chooser->currentChoice());
            return say(current, chooser->property()->popUpButton()->shownText()) + visible;
        };
        QCOMPARE(state(), "0 \"Guest\"+--");
        QCOMPARE(chooser->sliver()->label()->text(), "Role");
        const int low = chooser->view()->sizeHint().height();
        QVERIFY(told([&] {
                    for (auto &person : m_people)
                        person->setRole(Person::Member);
                }).startsWith("d|")); // what was entered in the old content is dropped
        QCOMPARE(state(), "1 \"Member\"-++");
        QVERIFY(chooser->choiceForValue(1) == chooser->choices().at(1) && !chooser->choiceForValue({}));
        // Neither a value without a choice nor disagreement shows anything.
        m_people[0]->setRole(Person::Admin);
        QVERIFY2(state().startsWith("-1 ") && state().endsWith("\"---"), qPrintable(state()));
        QVERIFY(chooser->view()->sizeHint().height() <= low);
        QVERIFY(!chooser->property()->multipleValuesMenuItem()->isHidden());
        chooser->setTitle("Rank");
        QCOMPARE(chooser->sliver()->label()->text(), "Rank");
        // What the user chooses is written and shown.
        for (auto &person : m_people)
            person->setRole(Person::Guest);
        settle();
        ZelPopUpButton *button = chooser->property()->popUpButton();
        button->setFocus();
        QTest::keyClick(button, Qt::Key_M); // types ahead
        QVERIFY(m_people[0]->role() == Person::Member && m_people[1]->role() == Person::Member);
        QCOMPARE(state(), "1 \"Member\"-++");
        QCOMPARE(m_owner->actions, 1);
        chooser->setEnabled(false);
        QVERIFY(!button->isEnabled());
        chooser->setKeyPath("extra");
        QCOMPARE(chooser->currentChoice(), nullptr);
        setExtra(0);
        QCOMPARE(state(), "0 \"Guest\"+--");
        chooser->setEnabledKeyPath("unlocked");
        QVERIFY(button->isEnabled());
        m_owner->setUnlocked(false);
        settle();
        QVERIFY(!button->isEnabled());
    }

    void choicesStandForTextsAndKeys()
    {
        const struct
        {
            QByteArray key;
            QVariant first;
            QByteArrayList values;
            QVariant chosen;
        } rows[] = {
            {"name", "beta", {"alpha", "beta", "007"}, "007"},
            {"role", QVariant::fromValue(Person::Admin), {"Guest", "Admin", "1"}, QVariant::fromValue(Person::Member)},
            {"flags", 16, {"0", "0x10", "2"}, 2},
        };
        for (const auto &[key, first, values, chosen] : rows) {
            for (const auto &person : m_people)
                person->setProperty(key, first);
            auto *chooser = showIn<ZelInspectorChooser>(
                "<chooser keyPath='people.selection." + key + "'><choice title='A' value='" + values.at(0) +
                "'/><choice title='B' value='" + values.at(1) + "'/><choice title='C' value='" + values.at(2) +
                "'/></chooser>");
            ZelPopUpButton *button = chooser->property()->popUpButton();
            QCOMPARE(button->shownText(), "B");
            QCOMPARE(chooser->currentChoice(), chooser->choices().at(1));
            button->setFocus();
            QTest::keyClick(button, Qt::Key_C);
            for (const auto &person : m_people)
                QCOMPARE(person->property(key), chosen);
            settle();
            QCOMPARE(button->shownText(), "C");
        }
    }

    void choosersWithinChoosers()
    {
        auto *editor = showIn<NotingProperty>(
            "<chooser keyPath='extra'><choice value='1'><chooser keyPath='people.selection.role'><choice value='0'>"
            "<sliver>%</sliver></choice></chooser></choice></chooser>");
        QVERIFY(!editor->view()->isVisible());
        setExtra(1);
        settle();
        QVERIFY(editor->view()->isVisible());
        QVERIFY(editor->view()->mapTo(m_window.get(), QPoint()).y() > 30); // below two pop-ups
    }

    void rowsLeaveRoomForTheirLabel()
    {
        const QByteArray title = " title='" + QByteArray(100, 'W') + "' ";
        showIn<ZelInspectorSliver>(
            "<sliver title='Name'><property type='string' keyPath='people.selection.name'/></sliver>"
            "<sliver title='Full' fullWidth='yes'>%</sliver><sliver title='Empty'/><sliver><property type='boolean' "
            "keyPath='people.selection.active'" +
            title + "/></sliver><sliver><property type='action'" + title + "/></sliver>");
        const QList<ZelInspectorSliver *> rows = all<ZelInspectorSliver>();
        QCOMPARE(inRow(rows.at(0), 0).left(), 82);
        QCOMPARE(inRow(rows.at(0), 0).right() + 1, rows.at(0)->view()->width() - 5);
        QCOMPARE(rows.at(0)->label()->geometry().left(), 0);
        QCOMPARE(rows.at(0)->label()->width(), 79);
        QCOMPARE(rows.at(0)->label()->alignment(), Qt::AlignRight | Qt::AlignVCenter);
        QVERIFY(rows.at(0)->baselineConstraint() && !rows.at(1)->label());
        QCOMPARE(inRow(rows.at(1), 0).left(), 4);
        QCOMPARE(rows.at(2)->view()->height(), 0);
        rows.at(1)->setFullWidth(false);
        rows.at(0)->setTitle({});
        settle();
        QCOMPARE(inRow(rows.at(1), 0).left(), 82);
        QCOMPARE(rows.at(1)->label()->text(), "Full");
        QVERIFY(!rows.at(0)->label() && !rows.at(0)->baselineConstraint());
        for (const qsizetype cut : {3, 4}) // a long title is cut before it widens
            QVERIFY(rows.at(cut)->view()->minimumSizeHint().width() < 200);
    }

    void narrowEditorsOfOneKindShareALine()
    {
        const QByteArray number = "<property type='number' title='N' keyPath='people.selection.height'/>";
        auto *row = showIn<ZelInspectorSliver>("<sliver>" + number.repeated(3) + "%</sliver>");
        QCOMPARE(inRow(row, 0).y(), inRow(row, 1).y());
        QCOMPARE(inRow(row, 1).left(), inRow(row, 0).right() + 1 + 4);
        QVERIFY(std::abs(inRow(row, 0).width() - inRow(row, 1).width()) <= 1);
        QCOMPARE(inRow(row, 1).right() + 1, row->view()->width() - 5);
        QCOMPARE(inRow(row, 2).y(), inRow(row, 0).bottom() + 1); // the third is alone, beside an editor of another kind
        QCOMPARE(inRow(row, 2).width(), row->view()->width() - 82 - 5);
        QCOMPARE(inRow(row, 3).y(), inRow(row, 2).bottom() + 1);
        row->view()->window()->setLayoutDirection(Qt::RightToLeft);
        settle();
        QCOMPARE(inRow(row, 0).left(), inRow(row, 1).right() + 1 + 4);
    }

    void rowsFollowTheirProperties()
    {
        auto *row = showIn<ZelInspectorSliver>("<sliver>%%%</sliver>");
        const QList<ZelInspectorProperty *> editors = row->properties();
        QVERIFY(editors.at(0)->view()->parentWidget() == editors.at(1)->view()->parentWidget());
        row->setProperties({editors.at(2), editors.at(0)}); // another pair
        QVERIFY(editors.at(2)->view()->parentWidget() == editors.at(0)->view()->parentWidget());
        QVERIFY(!editors.at(1)->view()->parentWidget() && !editors.at(1)->isViewInstalled());
        QVERIFY(editors.at(0)->isViewInstalled() && editors.at(0)->view()->isVisible());
        row->setProperties({editors.at(0)});
        QCOMPARE(row->view()->subviews(), Widgets({editors.at(0)->view()}));
        delete editors.at(0);
        QVERIFY(row->properties().isEmpty());
        row->setProperties({editors.at(1)});
        QCOMPARE(row->view()->subviews(), Widgets({editors.at(1)->view()}));
    }

    void labelsNameTheControlsWithoutTitle()
    {
        const QByteArray number = "type='number' keyPath='people.selection.height'/>";
        auto *row =
            showIn<ZelInspectorSliver>("<sliver title='Height'><property " + number + "<property slider='linear' " +
                                       number + "<property title='Own' " + number + "</sliver>");
        for (const QString title : {"Height", "Length"}) {
            row->setTitle(title);
            QStringList names;
            for (auto *property : row->properties()) {
                const auto *editor = static_cast<ZelInspectorNumberProperty *>(property);
                for (const QWidget *control : Widgets{editor->textField(), editor->stepper(), editor->slider()})
                    names += control ? control->accessibleName() : QString();
            }
            QCOMPARE(names.join(' ').replace(title, "T"), "T T  T T T Own Own ");
        }
    }

    void allThatChangesIsAnnounced()
    {
        m_owner->extra = 1;
        make("<panes><pane><inspector><slice><section title='S'><sliver title='R'><property type='number'/></sliver>"
             "<chooser keyPath='extra'><choice value='1'><sliver/></choice></chooser></section></slice></inspector>"
             "</pane></panes>");
        struct Watched
        {
            ZelInspectorContainer *object;
            QMetaProperty property;
            QVariant before;
            std::unique_ptr<QSignalSpy> spy;
        };
        std::vector<Watched> watched;
        for (auto *object : QList<ZelInspectorContainer *>{qobject_cast<ZelInspectorContainer *>(m_root.get())} +
                                all<ZelInspectorContainer>()) {
            for (int i = QObject::staticMetaObject.propertyCount(); i < object->metaObject()->propertyCount(); ++i) {
                const QMetaProperty property = object->metaObject()->property(i);
                QVERIFY2(property.hasNotifySignal() || property.isConstant(), property.name());
                const bool isMakingOrIncomparable =
                    property.name() == QByteArray("view") || property.typeId() == QMetaType::QIcon;
                if (property.hasNotifySignal() && !isMakingOrIncomparable)
                    watched.push_back({object, property, property.read(object),
                                       std::make_unique<QSignalSpy>(object, property.notifySignal())});
            }
        }
        showInWindow();
        settle();
        QStringList made;
        for (const auto &[object, property, before, spy] : watched) {
            const bool isMade = property.read(object) != before;
            QVERIFY2(!isMade || spy->count() > 0, property.name());
            if (isMade && !QByteArray(property.name()).startsWith("view"))
                made += property.name();
        }
        QCOMPARE(made.join(' '),
                 "currentInspector tabBar containerView scrollView containerView slicesView sectionsView "
                 "labelContainerView label label baselineConstraint currentChoice sliver property "
                 "containerView");
        int written = 0;
        for (const auto &[object, property, before, spy] : watched) {
            const QVariant former = property.read(object);
            QVariant other(property.metaType()); // an empty list
            if (property.typeId() == QMetaType::Bool)
                other = !former.toBool();
            else if (property.typeId() == QMetaType::QString)
                other = former == "extra" ? "unlocked" : "extra";
            else if (!QByteArray(property.typeName()).startsWith("QList"))
                continue;
            const bool isComparedFirst = property.name() != QByteArray("text"); // others announce changes only
            if (!property.isWritable() || former == other || !isComparedFirst)
                continue;
            spy->clear();
            for (int round = 0; round < 2; ++round) { // the second changes nothing
                property.write(object, other);
                QVERIFY2(spy->count() == 1 && property.read(object) == other, property.name());
            }
            ++written;
        }
        QCOMPARE(written, 40);
    }

    void aCommitMayEndTheInspector()
    {
        auto *shown = show<ZelInspectorPane>(pane("<sliver>%</sliver>"));
        find<NotingProperty>()->whenCommitting = [this] { m_root.reset(); };
        shown->inspectors().first()->setVisible(false);
        QVERIFY(!m_root);
        auto *tabs = show<ZelTabbedInspector>("<panes enabled='no'>" + pane("<sliver>%</sliver>") + pane("<sliver/>") +
                                              "</panes>");
        QVERIFY(!tabs->tabBar()->isEnabled());
        find<NotingProperty>()->whenCommitting = [this] { m_root.reset(); };
        QVERIFY(tabs->commitEditing());
        QVERIFY(!m_root);
    }

    void whoeverListensMayDeleteAnything()
    {
        for (const QByteArray victim :
             {"ZelInspectorSliver", "ZelInspectorSection", "ZelInspectorSlice", "ZelInspector",
              "ZelInspectorChooserChoice", "ZelInspectorChooser", "ZelInspectorPane", "root", "window"}) {
            const auto kill = [&] {
                if (victim == "window")
                    m_window.reset();
                else if (victim == "root")
                    m_root.reset();
                for (auto *container : m_root ? all<ZelInspectorContainer>() : QList<ZelInspectorContainer *>()) {
                    if (victim == container->metaObject()->className())
                        return delete container;
                }
            };
            for (const bool isVisible : {false, true}) {
                m_owner->setUnlocked(isVisible);
                show<ZelTabbedInspector>(g_conditional);
                settle();
                for (auto *container : all<ZelInspectorConditionalContainer>())
                    connect(container, &ZelInspectorConditionalContainer::visibleChanged, this, kill);
                m_owner->setUnlocked(!isVisible);
                settle();
                cleanup();
            }
        }
    }

    void viewsComeBackAfterTheirWindow()
    {
        for (const bool windowFirst : {true, false}) {
            auto *tabs = show<ZelTabbedInspector>(g_conditional);
            for (int i = 0; i < 2; ++i) {
                m_window.reset();
                QVERIFY(!tabs->isViewLoaded());
                showInWindow();
                settle();
                for (NotingProperty *editor : all<NotingProperty>())
                    QVERIFY(editor->isViewInstalled() && editor->view()->isVisible());
            }
            // Nothing is observed afterwards.
            QVERIFY(ZelIsObserved(m_owner.get(), "unlocked"));
            if (windowFirst)
                m_window.reset();
            m_root.reset();
            QVERIFY(!ZelIsObserved(m_owner.get(), "unlocked"));
        }
    }
};

QTEST_MAIN(tst_InspectorContainers)
#include "moc_Descriptions.cpp"
#include "tst_InspectorContainers.moc"
