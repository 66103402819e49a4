// SPDX-License-Identifier: MIT
#include "ExpandableViews/ZelExpandableHeader.h"
#include "ExpandableViews/ZelExpandableView.h"
#include "Inspector/Descriptions.h"
#include "Inspector/Properties/ZelInspectorBoundsProperty.h"
#include "Inspector/ZelInspectorState.h"
#include "Support/Random.h"

namespace {
const QByteArray g_frame = "<sliver><property type='frame' keyPath='people.selection.frame' showOriginSelector='yes'/>"
                           "</sliver>";
const QByteArray g_name = "<sliver title='Name'><property type='string' keyPath='people.selection.name'/></sliver>";

QByteArray pane(const QByteArray &title, const QByteArray &boxes)
{
    return "<pane title='" + title + "'>" + boxes + "</pane>";
}
QByteArray panes(const QByteArray &all, const QByteArray &attributes = {})
{
    return "<panes " + attributes + ">" + all + "</panes>";
}

const QByteArray g_place = pane("Place", box("Frame", g_frame) + box("Frame", g_frame) + box("More", g_name));
const QByteArray g_text = pane("Text", box("Name", g_name.repeated(40)) + box("More", g_name));
} // namespace

class tst_PanelState : public QObject
{
    Q_OBJECT
    using Panel = std::unique_ptr<ZelTabbedInspector>;
    Panel make(const QByteArray &text)
    {
        ZelDeclarativeInspectorGenerator generator;
        generator.setOwner(m_owner.get());
        generator.setUrl(m_files.write("Main.xml", text));
        return Panel(generator.createTabbedInspector());
    }
    void show(ZelTabbedInspector *panel)
    {
        close();
        m_window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(m_window.get());
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(panel->view());
        m_window->resize(300, 400);
        User::open(m_window.get());
        User::settle();
    }
    void close() { m_window.reset(); }
    static ZelInspectorPane *paneNamed(const Panel &panel, const QString &name)
    {
        for (ZelInspectorPane *pane : panel->panes()) {
            if (pane->stateName() == name)
                return pane;
        }
        return nullptr;
    }
    /// What is folded in the pane, such as "-+".
    static QString folds(const ZelInspectorPane *pane)
    {
        QString text;
        for (const ZelInspector *inspector : pane->inspectors())
            text += inspector->isExpanded() ? '+' : '-';
        return text;
    }
    static QList<int> anchors(const Panel &panel)
    {
        QList<int> result;
        for (const auto *editor : panel->findChildren<ZelInspectorBoundsProperty *>())
            result.append(editor->anchorIndex());
        return result;
    }
    static void arrange(const Panel &panel)
    {
        panel->setSelectedPaneIndex(1);
        paneNamed(panel, "Place")->inspectors()[1]->setExpanded(false);
        paneNamed(panel, "Text")->inspectors()[1]->setExpanded(false);
        panel->findChildren<ZelInspectorBoundsProperty *>()[1]->setAnchor(ZelOriginBottomRight);
    }
    static QScrollBar *scrollBar(const ZelInspectorPane *pane) { return pane->scrollView()->verticalScrollBar(); }
    /// As if the program ran once more, and did this.
    template<typename Work> void run(const QByteArray &text, Work work)
    {
        const Panel panel = make(text);
        show(panel.get());
        work(panel);
        close();
    }

    Descriptions m_files;
    QTemporaryDir m_settingsFolder;
    std::unique_ptr<EditorOwner> m_owner;
    Person m_person;
    std::unique_ptr<QWidget> m_window;
    int m_settingsUses = 0;

private Q_SLOTS:
    void init()
    {
        m_owner = std::make_unique<EditorOwner>();
        m_owner->controller.setSelectedObjects({&m_person});
        QFile::remove(settingsFile());
        ZelInspectorState::setSettings([this] {
            ++m_settingsUses;
            return std::make_unique<QSettings>(settingsFile(), QSettings::IniFormat);
        });
    }
    void cleanup()
    {
        close();
        ZelSetLocalizationFunction({});
        ZelInspectorState::setSettings({});
    }
    QString settingsFile() const { return m_settingsFolder.filePath("settings.ini"); }

    void stateBelongsToNamesWhateverTheirOrderAndLanguage()
    {
        const Panel first = make(panes(g_place + g_text));
        arrange(first);
        const QByteArray state = first->saveState();
        ZelSetLocalizationFunction([](const QString &text) -> QString { return "translated " + text; });
        const Panel second = make(panes(pane("New", box("More", g_frame)) + g_text + g_place));
        const auto closed = qScopeGuard([this] { close(); });
        QVERIFY(second->restoreState(state));
        QCOMPARE(second->selectedPaneIndex(), 1u);
        QCOMPARE(folds(paneNamed(second, "Place")), "+-+"); // the second of two with the same name
        QCOMPARE(folds(paneNamed(second, "Text")), "+-");
        QCOMPARE(anchors(second), (QList<int>{0, 0, 8}));
        for (const ZelViewController *controller : second->findChildren<ZelViewController *>())
            QVERIFY(!controller->isViewLoaded());
        show(second.get());
        const auto boxes = m_window->findChildren<ZelExpandableView *>();
        QCOMPARE(std::count_if(boxes.begin(), boxes.end(), [](auto *box) { return box->isExpanded(); }),
                 boxes.size() - 2);
        // A part that is missing for a while keeps its state, and stays the selected one.
        second->setSelectedPaneIndex(2);
        const Panel fewer = make(panes(g_text));
        QVERIFY(fewer->restoreState(second->saveState()));
        fewer->panes()[0]->inspectors()[1]->setExpanded(true);
        const Panel third = make(panes(g_place + g_text));
        QVERIFY(third->restoreState(fewer->saveState()));
        QCOMPARE(folds(third->panes()[0]) + folds(third->panes()[1]), "+-+++");
        QCOMPARE(third->selectedPaneIndex(), 0u);
        QCOMPARE(anchors(third), (QList<int>{0, 8}));
    }

    /// Bytes are cut off, changed and mixed. Some are states all the same; none does harm.
    void foreignBytesAreRefusedAndDoNoHarm()
    {
        const Panel source = make(panes(g_place + g_text));
        arrange(source);
        const QByteArray state = source->saveState();
        const Panel panel = make(panes(g_place + g_text));
        const auto closed = qScopeGuard([this] { close(); });
        const QByteArray before = panel->saveState();
        QByteArrayList foreign{"",
                               "{}",
                               "[1]",
                               "null",
                               QByteArray(state).replace(":1}", ":2}"),
                               "\xff\xfe",
                               QByteArray(100000, '['),
                               "{\"zelInspectorState\":1,\"parts\":[]}",
                               "{\"zelInspectorState\":1,\"state\":{\"a\":[]}}",
                               "{\"zelInspectorState\":1," + QByteArray(5 << 20, ' ') + "\"state\":{}}"};
        QByteArray deep = "{}";
        for (int i = 0; i < 200; ++i)
            deep = "{\"parts\":{\"Place\":" + deep + "}}";
        foreign.append(deep.replace(0, 1, "{\"zelInspectorState\":1,"));
        for (qsizetype length = 0; length < state.size(); ++length)
            foreign.append(state.first(length));
        for (const QByteArray &bytes : std::as_const(foreign)) {
            QVERIFY2(!panel->restoreState(bytes), bytes.left(200));
            QCOMPARE(panel->saveState(), before);
        }
        show(panel.get());
        const QByteArrayList words{"8",    "-1",   "9",  "1e300", "4294967296", "true",
                                   "null", "\"\"", "{}", "Place", "\xc3"};
        Random random(5);
        int accepted = 0;
        for (int round = 0; round < 3000; ++round) {
            QByteArray bytes = state;
            for (quint32 change = 0; change <= random.below(3); ++change) {
                const qsizetype at = random.below(quint32(bytes.size()));
                bytes.replace(at, random.below(4), words[random.below(quint32(words.size()))]);
            }
            const QByteArray former = panel->saveState();
            if (panel->restoreState(bytes))
                ++accepted;
            else
                QCOMPARE(panel->saveState(), former);
            for (const int anchor : anchors(panel))
                QVERIFY(anchor >= 0 && anchor <= 8);
            QVERIFY(panel->selectedPaneIndex() < 2);
        }
        QVERIFY(accepted > 50);
        User::settle();
    }

    void aKeyKeepsTheStateInTheSettings()
    {
        const QByteArray text = panes(g_place + g_text, "stateKey='main'");
        run(text, [](const Panel &panel) { arrange(panel); });
        const QSettings settings(settingsFile(), QSettings::IniFormat);
        QCOMPARE(settings.allKeys(), QStringList{"ZelInspectorState/main"});
        run(panes(g_text, "stateKey='main'"), [](const Panel &panel) { // the other pane is missing
            QCOMPARE(folds(panel->panes()[0]), "+-");
            panel->panes()[0]->inspectors()[0]->setExpanded(false);
        });
        run(text, [](const Panel &panel) {
            QCOMPARE(folds(panel->panes()[0]) + folds(panel->panes()[1]), "+-+--");
            QCOMPARE(anchors(panel), (QList<int>{0, 8}));
            QCOMPARE(panel->selectedPaneIndex(), 1u);
        });
        // It is written a little after the change, too, and not before.
        const int uses = m_settingsUses;
        run(text, [&](const Panel &panel) {
            QCOMPARE(m_settingsUses, uses + 1);
            panel->panes()[0]->inspectors()[0]->setExpanded(false);
            panel->panes()[0]->inspectors()[2]->setExpanded(false);
            QCOMPARE(m_settingsUses, uses + 1);
            QTRY_COMPARE(m_settingsUses, uses + 2);
        });
        run(panes(g_place, "stateKey='other'"), [](const Panel &panel) { QCOMPARE(folds(panel->panes()[0]), "+++"); });
        // What comes after the view takes its state, too.
        run(panes(g_text, "stateKey='main'"), [&](const Panel &panel) {
            const Panel donor = make(panes(g_place));
            panel->setPanes(panel->panes() + donor->panes());
            QCOMPARE(folds(panel->panes()[1]), "---");
        });
        ZelInspectorState::setSettings([] { return nullptr; });
        run(text, [](const Panel &panel) {
            QCOMPARE(folds(panel->panes()[0]), "+++");
            panel->panes()[0]->inspectors()[0]->setExpanded(false);
        });
    }

    void aKeyBelowAnotherIsAName()
    {
        const auto keyed = [](const QByteArray &title) {
            return panes(pane("P", "<inspector stateKey='first' title='" + title + "'>" + inSection(g_name) +
                                       "</inspector>" + box("Old", g_name)),
                         "stateKey='main'");
        };
        run(keyed("Old"), [](const Panel &panel) { panel->panes()[0]->inspectors()[0]->setExpanded(false); });
        QCOMPARE(QSettings(settingsFile(), QSettings::IniFormat).allKeys().size(), 1);
        run(keyed("New"), [](const Panel &panel) { QCOMPARE(folds(panel->panes()[0]), "-+"); });
    }

    void panesScrollToWhereTheyWere()
    {
        const QByteArray text = panes(g_text + g_place, "stateKey='main'");
        run(text, [](const Panel &panel) {
            QVERIFY(scrollBar(panel->panes()[0])->maximum() > 300);
            scrollBar(panel->panes()[0])->setValue(300);
        });
        run(text, [this](const Panel &panel) {
            ZelInspectorPane *pane = panel->panes()[0];
            QTRY_COMPARE(scrollBar(pane)->value(), 300);
            panel->setSelectedPaneIndex(1);
            User::settle();
            panel->setSelectedPaneIndex(0);
            User::settle();
            QCOMPARE(scrollBar(pane)->value(), 300);
            // It cannot scroll while the column is short, and does so later unless the user scrolls meanwhile.
            pane->inspectors()[0]->setExpanded(false);
            User::settle();
            QCOMPARE(pane->scrollPosition(), 0);
            pane->setScrollPosition(200);
            User::settle();
            QCOMPARE(pane->scrollPosition(), 200);
            QCOMPARE(scrollBar(pane)->value(), 0);
            pane->inspectors()[0]->setExpanded(true);
            QTRY_COMPARE(scrollBar(pane)->value(), 200);
            pane->setScrollPosition(100000);
            scrollBar(pane)->setValue(50);
            m_window->resize(300, 300);
            User::settle();
            QCOMPARE(pane->scrollPosition(), 50);
            QCOMPARE(scrollBar(pane)->value(), 50);
        });
    }

    /// The view may die before its controller, and the controller without the view.
    void endsInAnyOrder()
    {
        const QByteArray text = panes(g_text, "stateKey='main'");
        Panel panel = make(text);
        show(panel.get());
        scrollBar(panel->panes()[0])->setValue(250);
        panel->panes()[0]->inspectors()[1]->setExpanded(false);
        close();
        panel.reset();
        panel = make(text);
        panel->panes()[0]->inspectors()[0]->setExpanded(false); // before it knows what is kept
        show(panel.get());
        QCOMPARE(folds(panel->panes()[0]), "+-");
        QTRY_COMPARE(scrollBar(panel->panes()[0])->value(), 250);
        close();
        qDeleteAll(panel->panes());
        panel->setStateKey("other");
    }

    void altFoldsAllBoxesOfThePane()
    {
        for (const bool isMirrored : {false, true}) {
            const Panel panel = make(panes(g_place + g_text));
            const auto closed = qScopeGuard([this] { close(); });
            show(panel.get());
            m_window->setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
            ZelInspectorPane *pane = panel->panes()[0];
            ZelExpandableHeader *header = m_window->findChildren<ZelExpandableHeader *>()[1];
            const auto fold = isMirrored ? Qt::Key_Right : Qt::Key_Left;
            const auto unfold = isMirrored ? Qt::Key_Left : Qt::Key_Right;
            QTest::mouseClick(header, Qt::LeftButton);
            QCOMPARE(folds(pane), "+-+");
            QTest::mouseClick(header, Qt::LeftButton, Qt::AltModifier);
            pane->inspectors()[0]->setExpanded(false);
            QCOMPARE(folds(pane), "-++");
            QTest::keyClick(header, unfold, Qt::AltModifier); // which is unfolded itself
            QCOMPARE(folds(pane), "+++");
            QTest::keyClick(header, fold, Qt::AltModifier);
            QCOMPARE(folds(pane), "---");
            QTest::keyClick(header, Qt::Key_Return, Qt::AltModifier);
            QCOMPARE(folds(pane), "+++");
            QTest::keyClick(header, Qt::Key_Space, Qt::AltModifier);
            QCOMPARE(folds(pane), "---");
            QTest::keyClick(header, Qt::Key_Space);
            QCOMPARE(folds(pane), "-+-");
            QCOMPARE(folds(panel->panes()[1]), "++");
        }
    }

    void returnGoesOnWhereItIsToldSo()
    {
        const QByteArray rows =
            "<sliver title='Name'><property type='string' keyPath='people.selection.name'/></sliver><sliver><property "
            "type='size' keyPath='extra'/></sliver><sliver><property type='string' keyPath='people.selection.name' "
            "returnAdvances='no'/></sliver><sliver><property type='number' keyPath='people.selection.height' "
            "maximum='9'/></sliver>";
        m_owner->extra = QSizeF(1, 2);
        const Panel panel = make(panes(pane("P", box("B", rows)), "returnAdvances='yes'"));
        const auto closed = qScopeGuard([this] { close(); });
        show(panel.get());
        QList<QWidget *> fields;
        for (QWidget *widget : m_window->findChildren<QWidget *>()) {
            if (dynamic_cast<ZelEditSession *>(widget))
                fields.append(widget);
        }
        QCOMPARE(fields.size(), 5);
        const auto focused = [&] {
            for (qsizetype i = 0; i < fields.size(); ++i) {
                if (QApplication::focusWidget() &&
                    (QApplication::focusWidget() == fields[i] || fields[i]->isAncestorOf(QApplication::focusWidget())))
                    return int(i);
            }
            return -1;
        };
        const auto enter = [&](const QString &text) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(QApplication::focusWidget(), text);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        };
        fields[0]->setFocus(Qt::TabFocusReason);
        enter("Ann");
        QCOMPARE(m_person.name(), "Ann");
        for (const int expected : {1, 2, 3}) {
            while (QApplication::focusWidget() && focused() < 0) // a stepper
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(focused(), expected);
            if (expected < 3)
                enter("5");
        }
        QCOMPARE(m_owner->extra.toSizeF(), QSizeF(5, 5));
        enter("Bob"); // this one commits and stays
        QCOMPARE(focused(), 3);
        QCOMPARE(m_person.name(), "Bob");
        fields[4]->setFocus(Qt::TabFocusReason);
        enter("(1"); // what is refused keeps the focus
        QCOMPARE(focused(), 4);
    }

    void whatASearchChangesForAWhileIsNotKept()
    {
        const QByteArray text = panes(g_text + g_place, "stateKey='main' search='yes'");
        run(text, [](const Panel &panel) {
            panel->panes()[0]->inspectors()[1]->setExpanded(false);
            panel->setSearchText("more");
            User::settle();
            QCOMPARE(folds(panel->panes()[0]), "++");
        });
        run(text, [](const Panel &panel) {
            User::settle();
            QCOMPARE(panel->searchText(), "more");
            QCOMPARE(folds(panel->panes()[0]), "++");
            panel->setSearchText({});
            QCOMPARE(folds(panel->panes()[0]), "+-");
        });
        run(text, [](const Panel &panel) {
            QCOMPARE(panel->searchText(), QString());
            QCOMPARE(folds(panel->panes()[0]), "+-");
        });
    }
};
QTEST_MAIN(tst_PanelState)
#include "tst_PanelState.moc"
