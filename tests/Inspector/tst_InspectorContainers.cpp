// SPDX-License-Identifier: MIT
#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Core/Values/ZelValues.h"
#include "Inspector/Descriptions.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Views/ZelSeparator.h"

namespace {
using Rows = QList<ZelInspectorConditionalContainer *>;
using Widgets = QList<QWidget *>;

QByteArray pane(const QByteArray &content, const QByteArray &title = {})
{
    return "<pane title='" + title + "'><inspector title='I'>" + inSection(content) + "</inspector></pane>";
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
    /// The first such object below a slice with this content.
    template<typename Class> Class *showIn(const QByteArray &content)
    {
        show<ZelInspectorSlice>(inSection(content));
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
        User::settle();
    }
    void setExtra(const QVariant &value)
    {
        m_owner->extra = value;
        Q_EMIT m_owner->extraChanged();
        User::settle();
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
    /// Which of the widgets are shown, such as "+-".
    static QString shown(const Widgets &widgets)
    {
        QString text;
        for (const QWidget *widget : widgets)
            text += widget->isVisible() ? '+' : '-';
        return text;
    }
    Widgets editorViews() const
    {
        Widgets views;
        for (NotingProperty *editor : all<NotingProperty>())
            views += editor->view();
        return views;
    }
    /// Where the editors of a row are: left edge, distance to the right edge, top edge, one after the other.
    static QString places(ZelInspectorSliver *row)
    {
        QStringList texts;
        for (const ZelInspectorProperty *editor : row->properties()) {
            QWidget *view = const_cast<ZelInspectorProperty *>(editor)->view();
            const QRect place(view->mapTo(row->view(), QPoint()), view->size());
            texts += say(place.left(), row->view()->width() - place.right() - 1, place.top());
        }
        return texts.join(", ");
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

    void inspectorsAndSlicesFollowTheirConditionFromTheStart()
    {
        ZelInspectorSlice slice(m_owner.get());
        setExtra(false);
        slice.setVisibleKeyPath("extra");
        QVERIFY(!slice.isVisible());
        for (const QVariant &value :
             {QVariant(2.5), QVariant(0), QVariant(true), QVariant(), QVariant(ZelNull()),
              QVariant::fromValue(ZelNoSelectionMarker), QVariant::fromValue(ZelMultipleValuesMarker),
              QVariant::fromValue(ZelNotApplicableMarker)}) {
            const bool isTrue = value == 2.5 || value == true;
            slice.setVisible(!isTrue);
            setExtra(value);
            QVERIFY2(slice.isVisible() == isTrue, qPrintable(say(value)));
        }
        slice.unbindAndTearDown();
        slice.setVisible(false);
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
        slice.setVisibleKeyPath({}); // no condition: it stays as it is
        m_owner->setUnlocked(true);
        QVERIFY(slice.isVisible());
        slice.setVisible(false);
        slice.setVisibleKeyPath("extra");
        m_owner.reset();
        slice.updateVisible(); // no owner, no value; and not of no value is true
        QVERIFY(slice.isVisible());
    }

    void whatIsHiddenIsShownLater()
    {
        m_owner->setUnlocked(false);
        auto *slice = show<ZelInspectorSlice>(
            "<slice visibleKeyPath='unlocked'><section title='S' visibleKeyPath='unlocked'>"
            "<sliver visibleKeyPath='unlocked'/><chooser visibleKeyPath='unlocked'/></section></slice>");
        const Rows rows{find<ZelInspectorSection>(), find<ZelInspectorSliver>(), find<ZelInspectorChooser>()};
        const auto state = [&] {
            QString text = shown({slice->view()});
            for (auto *row : rows)
                text += row->isVisible() == row->view()->isHidden() ? '!' : row->isVisible() ? '+' : '-';
            return text;
        };
        QCOMPARE(state(), "----");
        m_owner->setUnlocked(true);
        QCOMPARE(state(), "++++");
        m_owner->setUnlocked(false);
        QCOMPARE(state(), "----");
        // Without a parent the slice does not become a window, and rows follow while they are installed.
        slice->view()->setParent(nullptr);
        m_owner->setUnlocked(true);
        QCOMPARE(state(), "----");
        m_window->layout()->addWidget(slice->view());
        User::settle();
        QCOMPARE(state(), "++++");
    }

    void invisibleInspectorsAndSlicesHaveNoView()
    {
        m_owner->setUnlocked(false);
        m_owner->extra = false;
        auto *pane = show<ZelInspectorPane>("<pane><inspector><slice visibleKeyPath='extra'/><slice/></inspector>"
                                            "<inspector visibleKeyPath='unlocked'><slice/></inspector>"
                                            "<inspector><slice/></inspector></pane>");
        const QList<ZelInspector *> inspectors = pane->inspectors();
        ZelInspectorSlice *slice = inspectors.at(0)->slices().at(0);
        const auto views = [&] { return pane->containerView()->subviews(); };
        QVERIFY(!inspectors.at(1)->isViewLoaded() && !slice->isViewLoaded());
        QCOMPARE(shown(views()), "++");
        m_owner->setUnlocked(true);
        const Widgets all{inspectors.at(0)->view(), inspectors.at(1)->view(), inspectors.at(2)->view()};
        QCOMPARE(views(), all);
        QCOMPARE(shown(all), "+++");
        setExtra(true);
        QVERIFY(slice->isViewLoaded() && slice->view()->isVisible());
        QCOMPARE(inspectors.at(0)->slicesView()->subviews().first(), slice->view());
        // What has a view stays in its place, and is hidden.
        m_owner->setUnlocked(false);
        QCOMPARE(views(), all);
        QCOMPARE(shown(all), "+-+");
        User::settle();
        QCOMPARE(all.at(2)->y(), all.at(0)->geometry().bottom() + 1);
    }

    void stacksFollowTheirLists()
    {
        auto *pane = show<ZelInspectorPane>(
            "<pane><inspector title='1'><slice/><slice/></inspector><inspector title='2'><slice/></inspector></pane>");
        ZelInspector *first = pane->inspectors().at(0);
        ZelInspector *second = pane->inspectors().at(1);
        const auto views = [&] { return pane->containerView()->subviews(); };
        pane->setInspectors({second});
        first->setVisible(false); // nobody listens any more
        first->setVisible(true);
        QCOMPARE(views(), Widgets({second->view()}));
        pane->setInspectors({second, first});
        QCOMPARE(views(), Widgets({second->view(), first->view()}));
        const QList<ZelInspectorSlice *> slices{first->slices().at(1), first->slices().at(0)};
        first->setSlices(slices);
        QCOMPARE(first->slicesView()->subviews(), Widgets({slices.at(0)->view(), slices.at(1)->view()}));
    }

    void tabsVisitTheControlsFromTopToBottom()
    {
        QByteArray text;
        for (const QByteArray attributes :
             {"title='1' visibleKeyPath='unlocked'", "title='2'", "title='3' visibleKeyPath='extra'", "title='4'"})
            text += "<inspector " + attributes + ">" +
                    inSliver("<property type='boolean' keyPath='unlocked' " + attributes.left(9) + "/>") +
                    "</inspector>";
        for (const QString &before : {"<", ""}) { // a control before the pane, or none
            m_owner->setUnlocked(false);
            m_owner->extra = false;
            auto *pane = show<ZelInspectorPane>("<pane>" + text + "</pane>");
            pane->view()->setParent(nullptr);
            if (!before.isEmpty())
                new QCheckBox(before, m_window.get());
            m_window->layout()->addWidget(pane->view());
            new QCheckBox(">", m_window.get());
            const auto visited = [&] {
                QString titles;
                for (QWidget *stop = m_window->nextInFocusChain(); stop != m_window.get();
                     stop = stop->nextInFocusChain()) {
                    if (auto *box = qobject_cast<QCheckBox *>(stop))
                        titles += box->text();
                }
                return titles;
            };
            QCOMPARE(visited(), before + "24>");
            setExtra(true);
            QCOMPARE(visited(), before + "234>");
            m_owner->setUnlocked(true);
            QCOMPARE(visited(), before + "1234>");
            // A row's own order, too.
            auto *row = pane->inspectors().at(2)->findChild<ZelInspectorSliver *>();
            auto *editor = new ZelInspectorBooleanProperty(m_owner.get());
            editor->setTitle("a");
            row->setProperties(QList<ZelInspectorProperty *>{editor} + row->properties());
            QCOMPARE(visited(), before + "12a34>");
        }
    }

    void separatorsAndColorsOfSections()
    {
        m_owner->setUnlocked(false);
        make("<slice><section visibleKeyPath='unlocked'/><section/><section visibleKeyPath='unlocked'/></slice>");
        auto *slice = static_cast<ZelInspectorSlice *>(m_root.get());
        slice->setUsesAlternatingBackgroundColors(true);
        showInWindow();
        const Widgets views = slice->sectionsView()->subviews();
        const auto *separator = qobject_cast<ZelSeparator *>(views.at(1));
        QVERIFY(separator && separator->level() == 2 && separator->edgeInsets() == QMarginsF(8, 0, 8, 0));
        QCOMPARE(shown(views), "-++--");
        m_owner->setUnlocked(true);
        QCOMPARE(shown(views), "+++++");
        slice->sections().at(1)->setVisible(false);
        QCOMPARE(shown(views), "+--++");
        QString colors;
        for (ZelInspectorSection *section : slice->sections())
            colors += section->view()->backgroundColor().toQColor().name() + ' ';
        QCOMPARE(colors, "#000000 #dedede #000000 ");
    }

    void onlyTheChosenPaneIsShown()
    {
        auto *tabs = show<ZelTabbedInspector>(
            "<panes enabledKeyPath='unlocked' enabledValueTransformer='ZelNegateBooleanTransformerName'>" +
            pane("<sliver>%</sliver>", "One") + pane("<sliver>%</sliver>", "Two") + "</panes>");
        QString items;
        for (const ZelTabBarItem *item : tabs->tabBar()->items())
            items += say(item->toolTip(), item->keyEquivalent(), item->keyEquivalentModifierMask().toInt());
        QCOMPARE(items, R"("One" "1" 67108864"Two" "1" 67108864)"); // with the control key
        QVERIFY(!tabs->tabBar()->isEnabled());
        m_owner->setUnlocked(false);
        QVERIFY(tabs->tabBar()->isEnabled());
        QCOMPARE(tabs->tabBar()->height(), 22);
        QCOMPARE(tabs->containerView()->geometry(), QRect(0, 22, 300, 478));
        const Widgets views = editorViews();
        const auto state = [&]() -> QString {
            const qsizetype current = tabs->panes().indexOf(tabs->currentInspector());
            return say(tabs->selectedPaneIndex(), current, tabs->tabBar()->matrix()->selectedColumn()) + shown(views);
        };
        const auto choose = [&](bool commits) {
            return told([&] {
                all<NotingProperty>().at(0)->commits = commits;
                tabs->tabBar()->matrix()->performClickAtColumn(1);
            });
        };
        QCOMPARE(state(), "0 0 0+-");
        QCOMPARE(choose(false), "c|");
        QCOMPARE(state(), "0 0 0+-");
        QCOMPARE(choose(true), "cp|r");
        QCOMPARE(state(), "1 1 1-+");
        tabs->setSelectedPaneIndex(0);
        QCOMPARE(state(), "0 0 0+-");
        tabs->selectInspector(7);
        QVERIFY(!tabs->currentInspector() && tabs->commitEditing());
        tabs->selectInspector(0);
        find<NotingProperty>()->whenCommitting = [this] { m_root.reset(); };
        QVERIFY(tabs->commitEditing() && !m_root); // what is committed may end the inspector
    }

    void hidingAnInspectorCommitsFirst()
    {
        const QByteArray hiding = "<inspector visibleKeyPath='unlocked'><slice/></inspector>";
        const QByteArray noting = "<inspector>" + inSection("<sliver>%</sliver>") + "</inspector>";
        auto *pane = show<ZelInspectorPane>("<pane>" + hiding + noting + hiding + hiding + "</pane>");
        const auto toggle = [&] { m_owner->setUnlocked(!m_owner->isUnlocked()); };
        QCOMPARE(told(toggle), "cp"); // once for all that are hidden by a change
        // Where one that is told opens an event loop, the others are not held up.
        QStringList inTime;
        connect(pane->inspectors().first(), &ZelInspectorConditionalContainer::visibleChanged, this, [&] {
            User::settle();
            inTime.append(find<NotingProperty>()->takeLog());
        });
        toggle();
        QCOMPARE(inTime, QStringList{"cp"});
        pane->inspectors().first()->disconnect(this);
        QCOMPARE(told([&] { pane->inspectors().at(1)->setVisible(false); }), "cp");
        find<NotingProperty>()->commits = false;
        QCOMPARE(told([&] { pane->inspectors().at(1)->setVisible(true); }), "c");
    }

    void aChooserShowsAndWritesTheContentOfTheValue()
    {
        auto *chooser = showIn<ZelInspectorChooser>(
            "<chooser title='Role' keyPath='people.selection.role'><choice title='Guest' "
            "value='0'><sliver>%</sliver></choice><choice title='Member' value='1'><sliver>%</sliver><sliver>%</sliver>"
            "</choice></chooser>");
        const auto state = [&]() -> QString {
            User::settle();
            const qsizetype current = chooser->choices().indexOf(chooser->currentChoice());
            return say(current, chooser->property()->popUpButton()->shownText()) + shown(editorViews());
        };
        QCOMPARE(state(), "0 \"Guest\"+--");
        QCOMPARE(chooser->sliver()->label()->text(), "Role");
        const QString log = told([&] {
            for (auto &person : m_people)
                person->setRole(Person::Member);
        });
        QVERIFY2(log.startsWith("d|"), qPrintable(log)); // what was entered is dropped
        QCOMPARE(state(), "1 \"Member\"-++");
        QVERIFY(chooser->choiceForValue(1) == chooser->choices().at(1) && !chooser->choiceForValue({}));
        // Neither a value without a choice nor disagreement shows anything.
        m_people[0]->setRole(Person::Admin);
        QVERIFY2(state().startsWith("-1 ") && state().endsWith("\"---"), qPrintable(state()));
        QVERIFY(!chooser->property()->multipleValuesMenuItem()->isHidden());
        QVERIFY(chooser->view()->sizeHint().height() < 30);
        auto *several = new ZelMenuItem("Several");
        chooser->setMultipleValuesMenuItem(several);
        QVERIFY(chooser->multipleValuesMenuItem() == several && several->parent() == chooser);
        chooser->setTitle("Rank");
        QCOMPARE(chooser->sliver()->label()->text(), "Rank");
        ZelPopUpButton *button = chooser->property()->popUpButton();
        chooser->setEnabled(false);
        QVERIFY(!button->isEnabled());
        chooser->setKeyPath("extra");
        QCOMPARE(chooser->currentChoice(), nullptr);
        setExtra(0);
        QCOMPARE(state(), "0 \"Guest\"+--");
        chooser->setEnabledKeyPath("unlocked");
        QVERIFY(button->isEnabled());
        m_owner->setUnlocked(false);
        User::settle();
        QVERIFY(!button->isEnabled());
    }

    void choicesStandForTextsAndKeys()
    {
        const std::tuple<QByteArray, QVariant, QByteArrayList, QVariant> rows[] = {
            {"name", "beta", {"alpha", "beta", "007"}, "007"},
            {"role", QVariant::fromValue(Person::Admin), {"Guest", "Admin", "1"}, QVariant::fromValue(Person::Member)},
            {"flags", 16, {"0", "0x10", "2"}, 2},
        };
        for (const auto &[key, first, values, chosen] : rows) {
            for (const auto &person : m_people)
                person->setProperty(key, first);
            QByteArray choices;
            for (int i = 0; i < 3; ++i)
                choices += "<choice title='" + QByteArray("ABC").mid(i, 1) + "' value='" + values.at(i) + "'/>";
            const QByteArray attributes = "actionSelector='noteAction' keyPath='people.selection." + key + "'";
            auto *chooser = showIn<ZelInspectorChooser>("<chooser " + attributes + ">" + choices + "</chooser>");
            ZelPopUpButton *button = chooser->property()->popUpButton();
            QCOMPARE(button->shownText(), "B");
            QCOMPARE(chooser->currentChoice(), chooser->choices().at(1));
            button->setFocus();
            QTest::keyClick(button, Qt::Key_C);
            QVERIFY(m_people[0]->property(key) == chosen && m_people[1]->property(key) == chosen);
            User::settle();
            QCOMPARE(button->shownText(), "C");
            QCOMPARE(chooser->currentChoice(), chooser->choices().at(2));
        }
        QCOMPARE(m_owner->actions, 3);
    }

    void rowsLeaveRoomForTheirLabel()
    {
        const QByteArray title = " title='" + QByteArray(100, 'W') + "'/>";
        showIn<ZelInspectorSliver>(
            "<sliver title='Name'><property type='string' keyPath='people.selection.name'/></sliver>"
            "<sliver title='Full' fullWidth='yes'>%</sliver><sliver title='Empty'/><sliver><property type='boolean' "
            "keyPath='people.selection.active'" +
            title + "</sliver><sliver><property type='action'" + title + "</sliver>");
        const QList<ZelInspectorSliver *> rows = all<ZelInspectorSliver>();
        const ZelLabel *label = rows.at(0)->label();
        QCOMPARE(places(rows.at(0)) + " | " + places(rows.at(1)), "82 5 0 | 4 5 0");
        QCOMPARE(say(label->x(), label->width(), label->alignment().toInt()), "0 79 130"); // to the right, centred
        QVERIFY(rows.at(0)->baselineConstraint() && !rows.at(1)->label());
        QCOMPARE(rows.at(2)->view()->height(), 0);
        rows.at(1)->setFullWidth(false);
        rows.at(0)->setTitle({});
        User::settle();
        QCOMPARE(places(rows.at(1)), "82 5 0");
        QCOMPARE(rows.at(1)->label()->text(), "Full");
        QVERIFY(!rows.at(0)->label() && !rows.at(0)->baselineConstraint());
        for (const qsizetype cut : {3, 4}) // a long title is cut before it widens
            QVERIFY(rows.at(cut)->view()->minimumSizeHint().width() < 200);
    }

    void narrowEditorsOfOneKindShareALine()
    {
        const QByteArray number = "<property type='number' title='N' keyPath='people.selection.height'/>";
        auto *row = showIn<ZelInspectorSliver>("<sliver>" + number.repeated(3) + "%</sliver>");
        // The third is alone, beside an editor of another kind. A line is 213 wide.
        const int height = row->properties().first()->view()->height();
        QCOMPARE(places(row), QString("82 113 0, 191 5 0, 82 5 %1, 82 5 %2").arg(height).arg(2 * height));
        m_window->setLayoutDirection(Qt::RightToLeft);
        User::settle();
        QCOMPARE(places(row), QString("114 82 0, 5 190 0, 5 82 %1, 5 82 %2").arg(height).arg(2 * height));
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
            for (const auto *editor : all<ZelInspectorNumberProperty>()) {
                for (const QWidget *control : Widgets{editor->textField(), editor->stepper(), editor->slider()})
                    names += control ? control->accessibleName() : QString();
            }
            QCOMPARE(names.join(' ').replace(title, "T"), "T T  T T T Own Own ");
        }
    }

    void allThatChangesIsAnnounced()
    {
        m_owner->extra = 1;
        make("<panes enabled='no'><pane><inspector><slice><section title='S'><sliver title='R'><property "
             "type='number'/></sliver>"
             "<chooser keyPath='extra'><choice value='1'><sliver/></choice></chooser></section></slice></inspector>"
             "</pane></panes>");
        std::vector<std::tuple<QObject *, QMetaProperty, QVariant, std::unique_ptr<QSignalSpy>>> watched;
        for (QObject *object : QObjectList{m_root.get()} + m_root->findChildren<QObject *>()) {
            const int count = qobject_cast<ZelInspectorContainer *>(object) ? object->metaObject()->propertyCount() : 0;
            for (int i = QObject::staticMetaObject.propertyCount(); i < count; ++i) {
                const QMetaProperty property = object->metaObject()->property(i);
                // Reading a view would make it, and images are not compared.
                if (property.hasNotifySignal() && property.name() != QByteArray("view") &&
                    property.typeId() != QMetaType::QIcon)
                    watched.emplace_back(object, property, property.read(object),
                                         std::make_unique<QSignalSpy>(object, property.notifySignal()));
            }
        }
        showInWindow();
        QVERIFY(!static_cast<ZelTabbedInspector *>(m_root.get())->tabBar()->isEnabled());
        int made = 0;
        for (const auto &[object, property, before, spy] : watched) {
            if (property.read(object) == before || QByteArray(property.name()).startsWith("view"))
                continue;
            QVERIFY2(spy->count() > 0, property.name());
            ++made;
        }
        QCOMPARE(made, 15);
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
            // A choice's text is announced also where it stays the same.
            if (!property.isWritable() || former == other || property.name() == QByteArray("text"))
                continue;
            spy->clear();
            for (int round = 0; round < 2; ++round) { // the second changes nothing
                property.write(object, other);
                QVERIFY2(spy->count() == 1 && property.read(object) == other, property.name());
            }
            ++written;
        }
        QCOMPARE(written, 72);
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
                m_window.reset();
                showInWindow();
                QVERIFY(!isVisible || shown(editorViews()) == "+++"); // views come back after their window
                for (auto *container : all<ZelInspectorConditionalContainer>())
                    connect(container, &ZelInspectorConditionalContainer::visibleChanged, this, kill);
                m_owner->setUnlocked(!isVisible);
                User::settle();
                cleanup();
                QVERIFY(!ZelIsObserved(m_owner.get(), "unlocked"));
            }
        }
    }
};
QTEST_MAIN(tst_InspectorContainers)
#include "moc_Descriptions.cpp"
#include "tst_InspectorContainers.moc"
