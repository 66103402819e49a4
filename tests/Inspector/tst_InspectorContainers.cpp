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

#include <QVBoxLayout>

namespace {

QByteArray pane(const QByteArray &inspectors)
{
    return "<pane>" + inspectors + "</pane>";
}

QByteArray paneOfSection(const QByteArray &content)
{
    return pane("<inspector title='I'><slice><section>" + content + "</section></slice></inspector>");
}

const QByteArray g_noting = "<property type='custom' class='NotingProperty'/>";

} // namespace

class tst_InspectorContainers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void conditionsAreTrueForPresentTrueValues_data();
    void conditionsAreTrueForPresentTrueValues();
    void aDisagreeingSelectionHides();
    void inspectorsAndSlicesFollowTheirConditionFromTheStart();
    void rowsFollowTheirConditionWhileInstalled();
    void conditionsMayChange();
    void aHiddenSliceOfItsOwnWindowIsShownLater();
    void invisibleInspectorsAndSlicesHaveNoView();
    void stacksFollowTheirLists();
    void tabsVisitTheControlsFromTopToBottom();
    void sectionsAreRebuiltLaterInTheTurn();
    void separatorsGoWithTheSectionBelow();
    void everySecondSectionIsColored();
    void onlyTheChosenPaneIsShown();
    void aRefusedEditKeepsTheTab();
    void tabsShareAKeyAndFollowTheirCondition();
    void whatIsToldReachesEveryEditor();
    void hidingAnInspectorCommitsFirst();
    void aChangeThatHidesManyInspectorsCommitsOnce();
    void aChooserShowsTheContentOfTheValue();
    void aChoiceOfTheUserIsWrittenAndShown();
    void choosersWithinChoosers();
    void choicesStandForTextsAndKeys_data();
    void choicesStandForTextsAndKeys();
    void rowsLeaveRoomForTheirLabel();
    void narrowEditorsOfOneKindShareALine();
    void longTitlesAreCutBeforeTheyWiden();
    void rowsFollowTheirProperties();
    void labelsNameTheControlsWithoutTitle();
    void aCommitMayEndTheInspector();
    void whoeverListensMayDeleteAnything_data();
    void whoeverListensMayDeleteAnything();
    void viewsComeBackAfterTheirWindow();
    void nothingIsObservedAfterwards();

private:
    template<typename Class> Class *show(const QByteArray &text, Class *(ZelDeclarativeInspectorGenerator::*create)())
    {
        ZelDeclarativeInspectorGenerator generator;
        generator.setOwner(m_owner.get());
        generator.setUrl(m_files.write(QStringLiteral("Main.xml"), text));
        Class *made = (generator.*create)();
        m_root.reset(made);
        m_window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(m_window.get());
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(made->view());
        m_window->resize(300, 500);
        m_window->show();
        return made;
    }
    ZelInspectorPane *showPane(const QByteArray &text)
    {
        return show(text, &ZelDeclarativeInspectorGenerator::createPane);
    }
    ZelTabbedInspector *showTabs(const QByteArray &text)
    {
        return show(text, &ZelDeclarativeInspectorGenerator::createTabbedInspector);
    }
    ZelInspectorSlice *showSlice(const QByteArray &text)
    {
        return show(text, &ZelDeclarativeInspectorGenerator::createSlice);
    }
    /// Deferred work and layout.
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    template<typename Class> Class *find() const { return m_root->findChild<Class *>(); }
    template<typename Class> QList<Class *> all() const { return m_root->findChildren<Class *>(); }
    QRect inRow(QWidget *widget, ZelInspectorSliver *row) const
    {
        return QRect(widget->mapTo(row->view(), QPoint()), widget->size());
    }

    Descriptions m_files;
    std::unique_ptr<EditorOwner> m_owner;
    std::unique_ptr<Person> m_people[2];
    std::unique_ptr<ZelViewController> m_root;
    std::unique_ptr<QWidget> m_window;
};

void tst_InspectorContainers::initTestCase()
{
    ZelClassRegistry::registerClass<NotingProperty>();
}

void tst_InspectorContainers::init()
{
    m_owner = std::make_unique<EditorOwner>();
    for (auto &person : m_people)
        person = std::make_unique<Person>();
    m_owner->controller.setSelectedObjects({m_people[0].get(), m_people[1].get()});
}

void tst_InspectorContainers::cleanup()
{
    m_window.reset();
    m_root.reset();
    QCOMPARE(NotingProperty::alive, 0);
}

// Conditions

void tst_InspectorContainers::conditionsAreTrueForPresentTrueValues_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("visible");
    QTest::newRow("true") << QVariant(true) << true;
    QTest::newRow("false") << QVariant(false) << false;
    QTest::newRow("number") << QVariant(2.5) << true;
    QTest::newRow("zero") << QVariant(0) << false;
    QTest::newRow("nothing") << QVariant() << false;
    QTest::newRow("null") << ZelNull() << false;
    for (auto marker : {ZelNoSelectionMarker, ZelMultipleValuesMarker, ZelNotApplicableMarker})
        QTest::addRow("marker %d", marker) << QVariant::fromValue(marker) << false;
}

void tst_InspectorContainers::conditionsAreTrueForPresentTrueValues()
{
    QFETCH(QVariant, value);
    QFETCH(bool, visible);
    ZelInspector inspector(m_owner.get());
    inspector.setVisible(!visible);
    m_owner->extra = value;
    inspector.setVisibleKeyPath(QStringLiteral("extra"));
    QCOMPARE(inspector.isVisible(), visible);
}

void tst_InspectorContainers::aDisagreeingSelectionHides()
{
    ZelInspectorSlice slice(m_owner.get());
    slice.setVisibleKeyPath(QStringLiteral("people.selection.active"));
    for (auto &person : m_people)
        person->setActive(true);
    QVERIFY(slice.isVisible());
    m_people[1]->setActive(false);
    QVERIFY(!slice.isVisible());
    m_owner->controller.setSelectedObjects({m_people[0].get()});
    QVERIFY(slice.isVisible());
    m_owner->controller.setSelectedObjects({});
    QVERIFY(!slice.isVisible());
}

void tst_InspectorContainers::inspectorsAndSlicesFollowTheirConditionFromTheStart()
{
    auto inspector = std::make_unique<ZelInspector>(m_owner.get());
    inspector->setVisibleKeyPath(QStringLiteral("unlocked"));
    m_owner->setUnlocked(false);
    QVERIFY(!inspector->isVisible());
    inspector->unbindAndTearDown();
    m_owner->setUnlocked(true);
    QVERIFY(!inspector->isVisible());
    inspector->bindAndConfigure();
    QVERIFY(inspector->isVisible());
    inspector->setVisibleKeyPath({}); // no condition: it stays as it is
    m_owner->setUnlocked(false);
    QVERIFY(inspector->isVisible());
}

void tst_InspectorContainers::rowsFollowTheirConditionWhileInstalled()
{
    showSlice("<slice><section visibleKeyPath='unlocked'><sliver visibleKeyPath='unlocked'/>"
              "<chooser visibleKeyPath='unlocked'/></section></slice>");
    const QList<ZelInspectorConditionalContainer *> rows{find<ZelInspectorSection>(), all<ZelInspectorSliver>().first(),
                                                         find<ZelInspectorChooser>()};
    for (auto *row : rows)
        QVERIFY(row->isVisible() && !row->view()->isHidden());
    m_owner->setUnlocked(false);
    for (auto *row : rows)
        QVERIFY(!row->isVisible() && row->view()->isHidden());
    m_root->view()->setParent(nullptr);
    m_owner->setUnlocked(true);
    for (auto *row : rows)
        QVERIFY(!row->isVisible());
    m_window->layout()->addWidget(m_root->view());
    for (auto *row : rows)
        QVERIFY(row->isVisible() && !row->view()->isHidden());
}

void tst_InspectorContainers::conditionsMayChange()
{
    ZelInspectorSlice slice(m_owner.get());
    m_owner->extra = false;
    slice.setVisibleKeyPath(QStringLiteral("extra"));
    QVERIFY(!slice.isVisible());
    slice.setVisibleValueTransformer(
        ZelAbstractValueTransformer::valueTransformerForName(ZelNegateBooleanTransformerName));
    QVERIFY(slice.isVisible());
    slice.setVisibleKeyPath(QStringLiteral("unlocked"));
    QVERIFY(!slice.isVisible());
    QVERIFY(!ZelIsObserved(m_owner.get(), "extra"));
    m_owner->setUnlocked(false);
    QVERIFY(slice.isVisible());
    m_owner.reset();
    slice.updateVisible(); // no owner, no value; and not of no value is true
    QVERIFY(slice.isVisible());
}

void tst_InspectorContainers::aHiddenSliceOfItsOwnWindowIsShownLater()
{
    m_owner->setUnlocked(false);
    auto *slice = showSlice("<slice visibleKeyPath='unlocked'><section title='S'/></slice>");
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

// Stacks

void tst_InspectorContainers::invisibleInspectorsAndSlicesHaveNoView()
{
    m_owner->setUnlocked(false);
    m_owner->extra = false;
    ZelInspectorPane *shown =
        showPane(pane(R"(<inspector title="1"><slice title="a" visibleKeyPath="extra"/><slice/></inspector>
        <inspector title="2" visibleKeyPath="unlocked"><slice/></inspector><inspector title="3"><slice/></inspector>)"));
    const QList<ZelInspector *> inspectors = shown->inspectors();
    ZelInspectorSlice *slice = inspectors.at(0)->slices().at(0);
    QVERIFY(!inspectors.at(1)->isViewLoaded() && !slice->isViewLoaded());
    QCOMPARE(shown->containerView()->subviews().size(), 2);
    m_owner->setUnlocked(true);
    QCOMPARE(shown->containerView()->subviews(),
             (QList<QWidget *>{inspectors.at(0)->view(), inspectors.at(1)->view(), inspectors.at(2)->view()}));
    QVERIFY(inspectors.at(1)->view()->isVisible());
    m_owner->extra = true;
    Q_EMIT m_owner->extraChanged();
    QVERIFY(slice->isViewLoaded() && slice->view()->isVisible());
    QCOMPARE(inspectors.at(0)->slicesView()->subviews().first(), static_cast<QWidget *>(slice->view()));
    // What has a view stays in its place, and is hidden.
    m_owner->setUnlocked(false);
    QCOMPARE(shown->containerView()->subviews().size(), 3);
    QVERIFY(inspectors.at(1)->view()->isHidden());
    settle();
    const QRect first = inspectors.at(0)->view()->geometry();
    QCOMPARE(inspectors.at(2)->view()->y(), first.bottom() + 1);
}

void tst_InspectorContainers::stacksFollowTheirLists()
{
    ZelInspectorPane *shown =
        showPane(pane("<inspector title='1'><slice/><slice/></inspector><inspector title='2'><slice/></inspector>"));
    const QList<ZelInspector *> inspectors = shown->inspectors();
    const auto views = [&] { return shown->containerView()->subviews(); };
    shown->setInspectors({inspectors.at(1)});
    QCOMPARE(views(), QList<QWidget *>{inspectors.at(1)->view()});
    inspectors.at(0)->setVisible(false); // nobody listens any more
    inspectors.at(0)->setVisible(true);
    QCOMPARE(views().size(), 1);
    shown->setInspectors({inspectors.at(1), inspectors.at(0)});
    QCOMPARE(views(), (QList<QWidget *>{inspectors.at(1)->view(), inspectors.at(0)->view()}));
    delete inspectors.at(1);
    QCOMPARE(shown->inspectors(), QList<ZelInspector *>{inspectors.at(0)});
    QList<ZelInspectorSlice *> slices = inspectors.at(0)->slices();
    std::reverse(slices.begin(), slices.end());
    inspectors.at(0)->setSlices(slices);
    QCOMPARE(inspectors.at(0)->slicesView()->subviews(),
             (QList<QWidget *>{slices.at(0)->view(), slices.at(1)->view()}));
    inspectors.at(0)->setTitle(QStringLiteral("new"));
    QCOMPARE(qobject_cast<ZelExpandableView *>(inspectors.at(0)->view())->title(), QStringLiteral("new"));
}

void tst_InspectorContainers::tabsVisitTheControlsFromTopToBottom()
{
    const auto inspector = [](const QByteArray &attributes, const QByteArray &title) -> QByteArray {
        const QByteArray editor = "<property type='boolean' keyPath='unlocked' title='" + title + "'/>";
        return "<inspector " + attributes + "><slice><section><sliver>" + editor +
               "</sliver></section></slice></inspector>";
    };
    m_owner->setUnlocked(false);
    m_owner->extra = false;
    ZelInspectorPane *shown = showPane(pane(inspector("visibleKeyPath='unlocked'", "1") + inspector("", "2") +
                                            inspector("visibleKeyPath='extra'", "3") + inspector("", "4")));
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
    QCOMPARE(visited(), QStringLiteral("24"));
    m_owner->extra = true;
    Q_EMIT m_owner->extraChanged();
    QCOMPARE(visited(), QStringLiteral("234"));
    m_owner->setUnlocked(true);
    QCOMPARE(visited(), QStringLiteral("1234"));
    // A row's own order, too.
    auto *row = shown->inspectors().at(2)->slices().first()->sections().first()->findChild<ZelInspectorSliver *>();
    auto *editor = new ZelInspectorBooleanProperty(m_owner.get());
    editor->setTitle(QStringLiteral("a"));
    row->setProperties(QList<ZelInspectorProperty *>{editor} + row->properties());
    QCOMPARE(visited(), QStringLiteral("12a34"));
}

void tst_InspectorContainers::sectionsAreRebuiltLaterInTheTurn()
{
    showSlice("<slice><section><sliver/><sliver/></section></slice>");
    auto *section = find<ZelInspectorSection>();
    const auto rows = section->sliversAndChoosers();
    section->setTitle(QStringLiteral("Heading"));
    section->setSliversAndChoosers({rows.at(1)});
    QVERIFY(!section->label());
    QCOMPARE(section->view()->subviews().size(), 2);
    settle();
    QCOMPARE(section->label()->text(), QStringLiteral("Heading"));
    QCOMPARE(section->view()->subviews(), (QList<QWidget *>{section->labelContainerView(), rows.at(1)->view()}));
    QVERIFY(!rows.at(0)->view()->parentWidget() && !rows.at(0)->isViewInstalled());
    section->setTitle(QStringLiteral(""));
    settle();
    QVERIFY(!section->labelContainerView());
}

void tst_InspectorContainers::separatorsGoWithTheSectionBelow()
{
    m_owner->setUnlocked(false);
    auto *slice = showSlice("<slice><section title='1' visibleKeyPath='unlocked'/><section title='2'/>"
                            "<section title='3' visibleKeyPath='unlocked'/></slice>");
    const QList<QWidget *> views = slice->sectionsView()->subviews();
    QCOMPARE(views.size(), 5);
    const auto *separator = qobject_cast<ZelSeparator *>(views.at(1));
    QVERIFY(separator && separator->level() == 2 && separator->edgeInsets() == QMarginsF(8, 0, 8, 0));
    QVERIFY(!views.at(1)->isHidden() && views.at(3)->isHidden());
    m_owner->setUnlocked(true);
    QVERIFY(!views.at(3)->isHidden());
    slice->sections().at(1)->setVisible(false);
    QVERIFY(views.at(1)->isHidden() && views.at(2)->isHidden() && !views.at(0)->isHidden());
}

void tst_InspectorContainers::everySecondSectionIsColored()
{
    ZelInspectorSlice slice(m_owner.get());
    slice.setUsesAlternatingBackgroundColors(true);
    slice.setSections({new ZelInspectorSection(m_owner.get()), new ZelInspectorSection(m_owner.get()),
                       new ZelInspectorSection(m_owner.get())});
    slice.view();
    const ZelColor grey(ZelColor::CalibratedRGB, {0.871, 0.871, 0.871, 1});
    QCOMPARE(slice.sections().at(1)->view()->backgroundColor(), grey);
    QVERIFY(!slice.sections().at(0)->view()->backgroundColor().isValid());
    QVERIFY(!slice.sections().at(2)->view()->backgroundColor().isValid());
}

// Tabs

static const QByteArray g_tabs = "<panes enabledKeyPath='unlocked' "
                                 "enabledValueTransformer='ZelNegateBooleanTransformerName'><pane title='One'>"
                                 "<inspector><slice><section><sliver>" +
                                 g_noting +
                                 "</sliver></section></slice></inspector></pane><pane title='Two'><inspector><slice>"
                                 "<section><sliver>" +
                                 g_noting + "</sliver></section></slice></inspector></pane></panes>";

void tst_InspectorContainers::onlyTheChosenPaneIsShown()
{
    m_owner->setUnlocked(false);
    ZelTabbedInspector *tabs = showTabs(g_tabs);
    const QList<NotingProperty *> editors = all<NotingProperty>();
    QCOMPARE(tabs->currentInspector(), tabs->panes().at(0));
    QVERIFY(editors.at(0)->view()->isVisible() && !editors.at(1)->view()->isVisible());
    for (NotingProperty *editor : editors)
        editor->takeLog();
    tabs->tabBar()->matrix()->performClickAtColumn(1);
    QCOMPARE(tabs->selectedPaneIndex(), 1U);
    QCOMPARE(tabs->currentInspector(), tabs->panes().at(1));
    QVERIFY(!editors.at(0)->view()->isVisible() && editors.at(1)->view()->isVisible());
    QCOMPARE(editors.at(0)->takeLog(), QStringLiteral("cp"));
    QCOMPARE(editors.at(1)->takeLog(), QStringLiteral("r"));
    tabs->setSelectedPaneIndex(0);
    QCOMPARE(tabs->tabBar()->matrix()->selectedColumn(), 0);
    tabs->selectInspector(7);
    QVERIFY(!tabs->currentInspector() && tabs->commitEditing());
}

void tst_InspectorContainers::aRefusedEditKeepsTheTab()
{
    m_owner->setUnlocked(false);
    ZelTabbedInspector *tabs = showTabs(g_tabs);
    all<NotingProperty>().first()->commits = false;
    tabs->tabBar()->matrix()->performClickAtColumn(1);
    QCOMPARE(tabs->selectedPaneIndex(), 0U);
    QCOMPARE(tabs->tabBar()->matrix()->selectedColumn(), 0);
    QVERIFY(tabs->panes().at(0)->view()->isVisible());
}

void tst_InspectorContainers::tabsShareAKeyAndFollowTheirCondition()
{
    ZelTabbedInspector *tabs = showTabs(g_tabs);
    const QList<ZelTabBarItem *> items = tabs->tabBar()->items();
    QCOMPARE(items.first()->toolTip() + items.last()->toolTip(), QStringLiteral("OneTwo"));
    for (const ZelTabBarItem *item : items) {
        QCOMPARE(item->keyEquivalent(), QStringLiteral("1"));
        QCOMPARE(item->keyEquivalentModifierMask(), Qt::KeyboardModifiers(Qt::ControlModifier));
    }
    QVERIFY(!tabs->tabBar()->isEnabled());
    m_owner->setUnlocked(false);
    QVERIFY(tabs->tabBar()->isEnabled());
    settle();
    QCOMPARE(tabs->tabBar()->height(), 22);
    QCOMPARE(tabs->containerView()->geometry(), QRect(0, 22, 300, 478));
}

// What is handed on

void tst_InspectorContainers::whatIsToldReachesEveryEditor()
{
    showPane(paneOfSection("<sliver>" + g_noting + g_noting +
                           "</sliver><chooser keyPath='extra'><choice value='1'>"
                           "<sliver>" +
                           g_noting + "</sliver></choice><choice value='2'><sliver>" + g_noting +
                           "</sliver></choice></chooser>"));
    m_owner->extra = 1;
    Q_EMIT m_owner->extraChanged();
    const QList<NotingProperty *> editors = all<NotingProperty>();
    const auto told = [&](auto tell) {
        QStringList logs;
        for (NotingProperty *editor : editors)
            editor->log.clear();
        tell();
        for (NotingProperty *editor : editors)
            logs.append(editor->takeLog());
        return logs.join(u'|');
    };
    QCOMPARE(told([&] { m_root->refresh(); }), QStringLiteral("r|r|r|r"));
    QCOMPARE(told([&] { m_root->prepareForReuse(); }), QStringLiteral("p|p|p|p"));
    QCOMPARE(told([&] { QVERIFY(m_root->commitEditing()); }), QStringLiteral("c|c|c|")); // only the chosen content
    QCOMPARE(told([&] { m_root->discardEditing(); }), QStringLiteral("d|d|d|"));
    editors.at(1)->commits = false;
    QCOMPARE(told([&] { QVERIFY(!m_root->commitEditing()); }), QStringLiteral("c|c||"));
}

void tst_InspectorContainers::hidingAnInspectorCommitsFirst()
{
    ZelInspectorPane *shown = showPane(paneOfSection("<sliver>" + g_noting + "</sliver>"));
    auto *editor = find<NotingProperty>();
    editor->log.clear();
    shown->inspectors().first()->setVisible(false);
    QCOMPARE(editor->takeLog(), QStringLiteral("cp"));
    editor->commits = false;
    shown->inspectors().first()->setVisible(true);
    QCOMPARE(editor->takeLog(), QStringLiteral("c"));
}

void tst_InspectorContainers::aChangeThatHidesManyInspectorsCommitsOnce()
{
    const QByteArray hiding = "<inspector visibleKeyPath='unlocked'><slice/></inspector>";
    ZelInspectorPane *shown = showPane(pane(hiding + "<inspector><slice><section><sliver>" + g_noting +
                                            "</sliver></section></slice></inspector>" + hiding + hiding));
    auto *editor = find<NotingProperty>();
    editor->log.clear();
    m_owner->setUnlocked(!m_owner->isUnlocked());
    QCOMPARE(editor->takeLog(), QStringLiteral("cp"));
    // Where one that is told opens an event loop, the others are not held up.
    QList<bool> inTime;
    connect(shown->inspectors().first(), &ZelInspectorConditionalContainer::visibleChanged, this, [&] {
        settle();
        inTime.append(editor->takeLog() == u"cp");
    });
    m_owner->setUnlocked(!m_owner->isUnlocked());
    QCOMPARE(inTime, QList<bool>{true});
}

// Choosers

static const QByteArray g_chooser =
    "<slice><section><chooser title='Role' keyPath='people.selection.role' actionSelector='noteAction'>"
    "<choice title='Guest' value='0'><sliver title='g'>" +
    g_noting +
    "</sliver></choice>"
    "<choice title='Member' value='1'><sliver title='m'>" +
    g_noting + "</sliver><sliver title='n'>" + g_noting + "</sliver></choice></chooser></section></slice>";

void tst_InspectorContainers::aChooserShowsTheContentOfTheValue()
{
    showSlice(g_chooser);
    auto *chooser = find<ZelInspectorChooser>();
    const QList<ZelInspectorChooserChoice *> choices = chooser->choices();
    const QList<NotingProperty *> editors = all<NotingProperty>();
    settle();
    QCOMPARE(chooser->currentChoice(), choices.at(0));
    QVERIFY(editors.at(0)->view()->isVisible() && !editors.at(1)->view()->isVisible());
    QCOMPARE(chooser->sliver()->label()->text(), QStringLiteral("Role"));
    const int low = chooser->view()->sizeHint().height();
    for (auto &person : m_people)
        person->setRole(Person::Member);
    QCOMPARE(chooser->currentChoice(), choices.at(1));
    QCOMPARE(editors.at(0)->takeLog().back(), QChar(u'd')); // what was entered in the old content is dropped
    QVERIFY(!editors.at(0)->view()->isVisible() && editors.at(1)->view()->isVisible());
    settle();
    QCOMPARE(chooser->choiceForValue(1), choices.at(1));
    QCOMPARE(chooser->choiceForValue({}), nullptr);
    // Neither a value without a choice nor disagreement shows anything.
    m_people[0]->setRole(Person::Admin);
    QCOMPARE(chooser->currentChoice(), nullptr);
    for (NotingProperty *editor : editors)
        QVERIFY(!editor->view()->isVisible());
    settle();
    QVERIFY(chooser->view()->sizeHint().height() <= low);
    QVERIFY(!chooser->property()->multipleValuesMenuItem()->isHidden());
    chooser->setTitle(QStringLiteral("Rank"));
    QCOMPARE(chooser->sliver()->label()->text(), QStringLiteral("Rank"));
}

void tst_InspectorContainers::aChoiceOfTheUserIsWrittenAndShown()
{
    showSlice(g_chooser);
    auto *chooser = find<ZelInspectorChooser>();
    settle();
    ZelPopUpButton *button = chooser->property()->popUpButton();
    QCOMPARE(button->shownText(), QStringLiteral("Guest"));
    button->setFocus();
    QTest::keyClick(button, Qt::Key_M); // types ahead
    QCOMPARE(m_people[0]->role(), Person::Member);
    QCOMPARE(m_people[1]->role(), Person::Member);
    QCOMPARE(chooser->currentChoice(), chooser->choices().at(1));
    QCOMPARE(m_owner->actions, 1);
    chooser->setEnabled(false);
    QVERIFY(!button->isEnabled());
    chooser->setKeyPath(QStringLiteral("extra"));
    QCOMPARE(chooser->currentChoice(), nullptr);
    m_owner->extra = 0;
    Q_EMIT m_owner->extraChanged();
    QCOMPARE(chooser->currentChoice(), chooser->choices().at(0));
    settle();
    QCOMPARE(button->shownText(), QStringLiteral("Guest"));
    chooser->setEnabledKeyPath(QStringLiteral("unlocked"));
    QVERIFY(button->isEnabled());
    m_owner->setUnlocked(false);
    settle();
    QVERIFY(!button->isEnabled());
}

void tst_InspectorContainers::choicesStandForTextsAndKeys_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QVariant>("first");
    QTest::addColumn<QByteArrayList>("values");
    QTest::addColumn<QVariant>("chosen");
    QTest::newRow("text") << QByteArray("name") << QVariant("beta") << QByteArrayList{"alpha", "beta", "007"}
                          << QVariant("007");
    QTest::newRow("enumeration") << QByteArray("role") << QVariant::fromValue(Person::Admin)
                                 << QByteArrayList{"Guest", "Admin", "1"} << QVariant::fromValue(Person::Member);
    QTest::newRow("number") << QByteArray("flags") << QVariant(16) << QByteArrayList{"0", "0x10", "2"} << QVariant(2);
}

void tst_InspectorContainers::choicesStandForTextsAndKeys()
{
    QFETCH(QByteArray, key);
    QFETCH(QVariant, first);
    QFETCH(QByteArrayList, values);
    QFETCH(QVariant, chosen);
    for (const QByteArray element : {"option", "choice"}) {
        for (const auto &person : m_people)
            person->setProperty(key, first);
        QByteArray choices;
        for (const char title : {'A', 'B', 'C'})
            choices += "<" + element + " title='" + title + "' value='" + values.at(title - 'A') + "'/>";
        const QByteArray keyPath = "keyPath='people.selection." + key + "'";
        const bool isChooser = element == "choice";
        const QByteArray begin = isChooser
                                     ? QByteArray("chooser " + keyPath + ">")
                                     : QByteArray("sliver><property type='enumeration' " + keyPath + "><option-group>");
        const QByteArray end = isChooser ? "</chooser>" : "</option-group></property></sliver>";
        showSlice("<slice><section><" + begin + choices + end + "</section></slice>");
        settle();
        ZelPopUpButton *button = find<ZelInspectorTextEnumerationProperty>()->popUpButton();
        QCOMPARE(button->shownText(), QStringLiteral("B"));
        if (auto *chooser = find<ZelInspectorChooser>())
            QCOMPARE(chooser->currentChoice(), chooser->choices().at(1));
        button->setFocus();
        QTest::keyClick(button, Qt::Key_C);
        for (const auto &person : m_people)
            QCOMPARE(person->property(key), chosen);
        settle();
        QCOMPARE(button->shownText(), QStringLiteral("C"));
    }
}

void tst_InspectorContainers::choosersWithinChoosers()
{
    showSlice("<slice><section><chooser keyPath='extra'><choice value='1'><chooser keyPath='people.selection.role'>"
              "<choice value='0'><sliver>" +
              g_noting + "</sliver></choice></chooser></choice></chooser></section></slice>");
    auto *editor = find<NotingProperty>();
    QVERIFY(!editor->view()->isVisible());
    m_owner->extra = 1;
    Q_EMIT m_owner->extraChanged();
    settle();
    QVERIFY(editor->view()->isVisible());
    QVERIFY(editor->view()->mapTo(m_window.get(), QPoint()).y() > 30); // below two pop-ups
}

// Rows

void tst_InspectorContainers::rowsLeaveRoomForTheirLabel()
{
    showSlice("<slice><section><sliver title='Name'><property type='string' keyPath='people.selection.name'/></sliver>"
              "<sliver title='Full' fullWidth='yes'>" +
              g_noting + "</sliver><sliver title='Empty'/></section></slice>");
    settle();
    const QList<ZelInspectorSliver *> rows = all<ZelInspectorSliver>();
    QWidget *content = rows.at(0)->properties().first()->view();
    QCOMPARE(inRow(content, rows.at(0)).left(), 82);
    QCOMPARE(inRow(content, rows.at(0)).right() + 1, rows.at(0)->view()->width() - 5);
    QCOMPARE(rows.at(0)->label()->geometry().left(), 0);
    QCOMPARE(rows.at(0)->label()->width(), 79);
    QVERIFY(rows.at(0)->baselineConstraint());
    QVERIFY(!rows.at(1)->label());
    QCOMPARE(inRow(rows.at(1)->properties().first()->view(), rows.at(1)).left(), 4);
    QCOMPARE(rows.at(2)->view()->height(), 0);
    rows.at(1)->setFullWidth(false);
    rows.at(0)->setTitle({});
    settle();
    QCOMPARE(inRow(rows.at(1)->properties().first()->view(), rows.at(1)).left(), 82);
    QCOMPARE(rows.at(1)->label()->text(), QStringLiteral("Full"));
    QVERIFY(!rows.at(0)->label() && !rows.at(0)->baselineConstraint());
}

void tst_InspectorContainers::narrowEditorsOfOneKindShareALine()
{
    const QByteArray number = "<property type='number' title='N' keyPath='people.selection.height'/>";
    showSlice("<slice><section><sliver>" + number + number + number + g_noting + "</sliver></section></slice>");
    settle();
    auto *row = find<ZelInspectorSliver>();
    const auto placeOf = [&](qsizetype index) { return inRow(row->properties().at(index)->view(), row); };
    QCOMPARE(placeOf(0).y(), placeOf(1).y());
    QCOMPARE(placeOf(1).left(), placeOf(0).right() + 1 + 4);
    QVERIFY(std::abs(placeOf(0).width() - placeOf(1).width()) <= 1);
    QCOMPARE(placeOf(1).right() + 1, row->view()->width() - 5);
    QCOMPARE(placeOf(2).y(), placeOf(0).bottom() + 1); // the third is alone, beside an editor of another kind
    QCOMPARE(placeOf(2).width(), row->view()->width() - 82 - 5);
    QCOMPARE(placeOf(3).y(), placeOf(2).bottom() + 1);
    row->view()->window()->setLayoutDirection(Qt::RightToLeft);
    settle();
    QCOMPARE(placeOf(0).left(), placeOf(1).right() + 1 + 4);
}

void tst_InspectorContainers::longTitlesAreCutBeforeTheyWiden()
{
    const QByteArray title = " title='" + QByteArray(100, 'W') + "' ";
    showSlice("<slice><section><sliver><property type='boolean' keyPath='people.selection.active'" + title +
              "/></sliver><sliver><property type='action'" + title + "/></sliver></section></slice>");
    settle();
    for (ZelInspectorSliver *row : all<ZelInspectorSliver>())
        QVERIFY(row->view()->minimumSizeHint().width() < 200);
}

void tst_InspectorContainers::rowsFollowTheirProperties()
{
    showSlice("<slice><section><sliver>" + g_noting + g_noting + g_noting + "</sliver></section></slice>");
    auto *row = find<ZelInspectorSliver>();
    const QList<ZelInspectorProperty *> editors = row->properties();
    QVERIFY(editors.at(0)->view()->parentWidget() == editors.at(1)->view()->parentWidget());
    row->setProperties({editors.at(2), editors.at(0)}); // another pair
    QVERIFY(editors.at(2)->view()->parentWidget() == editors.at(0)->view()->parentWidget());
    QVERIFY(!editors.at(1)->view()->parentWidget() && !editors.at(1)->isViewInstalled());
    QVERIFY(editors.at(0)->isViewInstalled() && editors.at(0)->view()->isVisible());
    row->setProperties({editors.at(0)});
    QCOMPARE(row->view()->subviews(), QList<QWidget *>{editors.at(0)->view()});
    delete editors.at(0);
    QVERIFY(row->properties().isEmpty());
    row->setProperties({editors.at(1)});
    QCOMPARE(row->view()->subviews(), QList<QWidget *>{editors.at(1)->view()});
}

void tst_InspectorContainers::labelsNameTheControlsWithoutTitle()
{
    const QByteArray number = "type='number' keyPath='people.selection.height'/>";
    showSlice("<slice><section><sliver title='Height'><property " + number + "<property slider='linear' " + number +
              "<property title='Own' " + number + "</sliver></section></slice>");
    auto *row = find<ZelInspectorSliver>();
    const auto namesOf = [&](qsizetype place) {
        const auto *editor = static_cast<ZelInspectorNumberProperty *>(row->properties().at(place));
        QStringList names;
        for (const QWidget *control :
             std::initializer_list<QWidget *>{editor->textField(), editor->stepper(), editor->slider()}) {
            if (control)
                names.append(control->accessibleName());
        }
        names.removeDuplicates();
        return names;
    };
    for (const QString &title : {QStringLiteral("Height"), QStringLiteral("Length")}) {
        row->setTitle(title);
        QCOMPARE(namesOf(0), QStringList{title});
        QCOMPARE(namesOf(1), QStringList{title});
        QCOMPARE(namesOf(2), QStringList{QStringLiteral("Own")});
    }
}

// Lifetimes

void tst_InspectorContainers::aCommitMayEndTheInspector()
{
    ZelInspectorPane *shown = showPane(paneOfSection("<sliver>" + g_noting + "</sliver>"));
    find<NotingProperty>()->whenCommitting = [this] { m_root.reset(); };
    shown->inspectors().first()->setVisible(false);
    QVERIFY(!m_root);
    ZelTabbedInspector *tabs = showTabs("<panes>" + paneOfSection("<sliver>" + g_noting + "</sliver>") +
                                        paneOfSection("<sliver/>") + "</panes>");
    find<NotingProperty>()->whenCommitting = [this] { m_root.reset(); };
    QVERIFY(tabs->commitEditing());
    QVERIFY(!m_root);
}

void tst_InspectorContainers::whoeverListensMayDeleteAnything_data()
{
    QTest::addColumn<QString>("victim");
    for (const char *name : {"ZelInspectorSliver", "ZelInspectorSection", "ZelInspectorSlice", "ZelInspector",
                             "ZelInspectorChooserChoice", "ZelInspectorChooser", "ZelInspectorPane", "root", "window"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_InspectorContainers::whoeverListensMayDeleteAnything()
{
    QFETCH(QString, victim);
    const auto kill = [&] {
        if (victim == u"window")
            m_window.reset();
        else if (victim == u"root")
            m_root.reset();
        else if (m_root)
            for (auto *container : all<ZelInspectorContainer>())
                if (victim == QLatin1String(container->metaObject()->className())) {
                    delete container;
                    return;
                }
    };
    const QByteArray text = "<panes>" +
                            pane("<inspector visibleKeyPath='unlocked'><slice visibleKeyPath='unlocked'>"
                                 "<section visibleKeyPath='unlocked'><sliver visibleKeyPath='unlocked'>" +
                                 g_noting +
                                 "</sliver><chooser keyPath='unlocked'><choice value='0'/>"
                                 "<choice value='1'/></chooser></section></slice></inspector>") +
                            "</panes>";
    for (const bool isVisible : {false, true}) {
        m_owner->setUnlocked(isVisible);
        showTabs(text);
        settle();
        for (auto *container : all<ZelInspectorConditionalContainer>())
            connect(container, &ZelInspectorConditionalContainer::visibleChanged, this, kill);
        m_owner->setUnlocked(!isVisible);
        settle();
        cleanup();
    }
}

void tst_InspectorContainers::viewsComeBackAfterTheirWindow()
{
    ZelTabbedInspector *tabs = showTabs("<panes>" +
                                        paneOfSection("<sliver title='a'>" + g_noting + g_noting +
                                                      "</sliver><chooser keyPath='unlocked'><choice value='1'>"
                                                      "<sliver>" +
                                                      g_noting + "</sliver></choice></chooser>") +
                                        "</panes>");
    for (int i = 0; i < 2; ++i) {
        m_window = std::make_unique<QWidget>();
        QVERIFY(!tabs->isViewLoaded());
        new QVBoxLayout(m_window.get());
        m_window->layout()->addWidget(tabs->view());
        m_window->resize(300, 400);
        m_window->show();
        settle();
        for (const NotingProperty *editor : all<NotingProperty>())
            QVERIFY(editor->isViewInstalled() && const_cast<NotingProperty *>(editor)->view()->isVisible());
    }
}

void tst_InspectorContainers::nothingIsObservedAfterwards()
{
    for (const bool windowFirst : {true, false}) {
        showTabs("<panes enabledKeyPath='unlocked'>" +
                 pane("<inspector visibleKeyPath='unlocked'><slice visibleKeyPath='unlocked'>"
                      "<section visibleKeyPath='unlocked'><sliver visibleKeyPath='unlocked'/>"
                      "<chooser keyPath='extra'><choice value='1'/></chooser></section></slice></inspector>") +
                 "</panes>");
        settle();
        QVERIFY(ZelIsObserved(m_owner.get(), "extra"));
        if (windowFirst)
            m_window.reset();
        m_root.reset();
        QVERIFY(!ZelIsObserved(m_owner.get(), "unlocked") && !ZelIsObserved(m_owner.get(), "extra"));
        m_window.reset();
    }
}

QTEST_MAIN(tst_InspectorContainers)
#include "moc_Descriptions.cpp"
#include "tst_InspectorContainers.moc"
