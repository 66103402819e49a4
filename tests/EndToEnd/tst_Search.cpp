// SPDX-License-Identifier: MIT
#include "FigureSheet.h"
#include "Inspector/private/ZelFoldedText.h"
#include "Inspector/private/ZelInspectorNote.h"

namespace {
const QByteArray g_description = R"(<panes search='yes'>
<pane title='A'>
  <inspector title='Look'><slice>
    <section title='Größe'>
      <sliver title='Width'><property type='number' keyPath='people.selection.height'/></sliver>
      <sliver title='Motto'><property type='string' keyPath='people.selection.name'/></sliver>
    </section>
    <section title='More'>
      <sliver title='Radius' visibleKeyPath='unlocked'><property type='string' keyPath='people.selection.note'/></sliver>
      <sliver><property type='boolean' title='Locked' keyPath='unlocked'/></sliver>
      <chooser title='Kind' keyPath='people.selection.role'>
        <choice title='Guest' value='0'><sliver title='Invited'><property type='string' keyPath='people.selection.name'/></sliver></choice>
        <choice title='Member' value='1'><sliver title='Since'><property type='string' keyPath='people.selection.note'/></sliver></choice>
      </chooser>
    </section></slice></inspector>
  <inspector title='Folded'><slice><section>
      %
      <sliver title='Deep'><property type='string' keyPath='people.selection.name'/></sliver>
  </section></slice></inspector>
</pane>
<pane title='B'>
  <inspector title='Never' visibleKeyPath='extra'><slice><section>
      <sliver title='Opacity'><property type='number' keyPath='people.selection.height'/></sliver></section></slice></inspector>
  <inspector title='Always'><slice><section>
      <sliver title='Tone'><property type='boolean' title='Active' keyPath='people.selection.active'/></sliver>
  </section></slice></inspector>
</pane></panes>)";

QByteArray description()
{
    QByteArray many;
    for (int i = 0; i < 40; ++i)
        many += Sheet::row("name", "string");
    return QByteArray(g_description).replace('%', many);
}
} // namespace

/// The field above the tabs, from the keys that are pressed to what is on the screen.
class tst_Search : public QObject
{
    Q_OBJECT
    std::optional<Sheet> m_sheet;
    QLineEdit *m_field = nullptr;
    ZelTabbedInspector *inspector() const { return m_sheet->inspector.get(); }
    ZelInspectorPane *pane(int index) const { return inspector()->panes().at(index); }
    template<typename Class> Class *titled(const QString &title) const
    {
        for (auto *container : inspector()->findChildren<Class *>()) {
            if (container->title() == title)
                return container;
        }
        return nullptr;
    }
    QWidget *field(const QString &title) const
    {
        return titled<ZelInspectorSliver>(title)->view()->findChild<ZelGrowingTextField *>();
    }
    /// The titles of the rows that are on the screen; those of the checkboxes in rows without one.
    QStringList shownRows() const
    {
        QStringList titles;
        for (auto *row : inspector()->findChildren<ZelInspectorSliver *>()) {
            if (row->isViewLoaded() && row->view()->isVisible() && row->view()->height() > 0)
                titles.append(row->title().isEmpty() ? row->properties().first()->title() : row->title());
        }
        return titles;
    }
    QString outcome() const { return m_field->parentWidget()->findChild<ZelLabel *>()->text(); }
    QString notes() const { return pane(int(inspector()->selectedPaneIndex()))->note(); }
    QList<int> counts() const
    {
        QList<int> result;
        for (const ZelTabBarItem *item : inspector()->tabBar()->items())
            result.append(item->count());
        return result;
    }
    void find(const QString &text)
    {
        inspector()->setSearchText(text);
        Sheet::settle();
    }

private Q_SLOTS:
    void init()
    {
        m_sheet.emplace(description(), QSize(340, 400));
        m_sheet->owner->setUnlocked(false);
        m_sheet->select({0});
        m_field = inspector()->view()->findChild<QLineEdit *>(); // the first one, above all others
    }
    void cleanup() { m_sheet.reset(); }

    /// Parts of editors are found by their titles and keys, and what was found is marked wherever it is written.
    void partsAreFoundAndMarked()
    {
        Sheet sheet(
            "<panes search='yes'><pane><inspector title='Placement'><slice><section>"
            "<sliver><property type='frame' keyPath='people.selection.frame'/></sliver>"
            "<sliver><property type='boolean' title='Active' keyPath='people.selection.active'/></sliver>"
            "<sliver title='Distance'><property type='number' keyPath='people.selection.note' "
            "nonNilValueTitle='Shadow' nonNilValueKeyPath='extra'/></sliver>" +
            Sheet::row("role", "enumeration", "><option-group><option title='Chief' value='2'/></option-group>") +
            Sheet::row("font", "font") +
            "<sliver><property type='boolean' keyPath='people.selection.flags' "
            "titleKeyPath='people.selection.name'/></sliver></section></slice></inspector></pane></panes>");
        sheet.set(0, "name", "Ada");
        sheet.select({0});
        auto *bounds = sheet.editor<ZelInspectorBoundsProperty>("frame");
        const auto *header = sheet.findChild<ZelExpandableView *>()->header();
        const auto *shadow = sheet.editor<ZelInspectorNumberProperty>("note")->nonNillCheckbox();
        const auto *active = sheet.editor<ZelInspectorBooleanProperty>("active")->checkbox();
        const auto find = [&](const QString &text) {
            sheet.inspector->setSearchText(text);
            Sheet::settle();
            return sheet.inspector->searchCount();
        };
        QCOMPARE(find("wid"), 1);
        QCOMPARE(bounds->sizeWidthProperty()->label()->markedParts(), (QList<ZelLabel::Part>{{0, 3}}));
        QVERIFY(bounds->originXProperty()->label()->markedParts().isEmpty());
        QCOMPARE(find("frame.x"), 1);
        QVERIFY(bounds->view()->isVisible());
        QVERIFY(bounds->sizeWidthProperty()->label()->markedParts().isEmpty());
        QCOMPARE(find("shad"), 1);
        QCOMPARE(shadow->markedParts(), (QList<ZelLabel::Part>{{0, 4}}));
        QCOMPARE(find("place act"), 1);
        QCOMPARE(header->markedParts(), (QList<ZelLabel::Part>{{0, 5}}));
        QCOMPARE(active->markedParts(), (QList<ZelLabel::Part>{{0, 3}}));
        for (const char *text : {"chief", "font.size", "ada"}) // an option, a part, and a title of the model
            QCOMPARE(find(text), 1);
        // The key goes to the control whose title is marked, and not to the first one of its row.
        QCOMPARE(find("wid"), 1);
        sheet.inspector->focusSearchField();
        Sheet::press(Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget(), bounds->sizeWidthProperty()->textField());
        find({});
        QVERIFY(header->markedParts().isEmpty() && active->markedParts().isEmpty());
    }

    /// Where nothing is selected, this is the reason, whatever the condition is.
    void tellsThatNothingIsSelected()
    {
        m_sheet->select({});
        find("opac");
        QCOMPARE(notes(), u"Opacity – nothing is selected"_qs);
        QVERIFY(pane(1)->view()->findChild<ZelInspectorNote *>()->isVisible());
        m_sheet->select({0});
        QCOMPARE(notes(), u"Opacity – not shown at present"_qs);
    }

    void rowsAreFoundByWhatTheyAreCalled()
    {
        const std::tuple<QString, QStringList, const char *> found[] = {
            {"MOTT", {"Motto"}, "1 found"},
            {" wid  grosse", {"Width"}, "1 found"}, // words of the title and the section
            {u"gro\u0308ße"_qs, {"Width", "Motto"}, "2 found"},
            {"lock look", {"Locked"}, "1 found"},       // the title of an editor
            {"height", {"Width"}, "1 found, 1 hidden"}, // the key, in another pane, too
            {"ton", {"Tone"}, "1 found"},
            {"kind role", {"Kind"}, "1 found"},
            {"guest", {"Invited"}, "1 found"}, // in the choice
            {"radi", {}, "1 hidden"},
            {"opac", {}, "1 hidden"}, // never shown before
            {"motto size", {}, "Nothing found"}};
        const QStringList all = shownRows();
        for (const auto &[text, rows, expected] : found) {
            const TableRow inRow(text);
            find(text);
            QCOMPARE(shownRows(), rows);
            QCOMPARE(outcome(), expected);
            QCOMPARE(inspector()->searchCount(), rows.size());
            QVERIFY(!titled<ZelInspector>("Never")->isViewLoaded());
            find({});
            QCOMPARE(shownRows(), all);
            QCOMPARE(outcome(), QString());
        }
    }

    void matchesAreMarkedWhereTheyStand()
    {
        const auto parts = [](const QString &text, const QString &typed) {
            QList<qsizetype> numbers;
            for (const ZelLabel::Part &part : ZelFoldedText::partsOf(text, ZelFoldedText::words(typed)))
                numbers << part.start << part.length;
            return numbers;
        };
        using Numbers = QList<qsizetype>;
        QCOMPARE(parts("Banana", "AN n"), (Numbers{1, 4}));
        QCOMPARE(parts(u"e\u0301Ǆ Straße"_qs, "e dz ss"), (Numbers{0, 3, 8, 2})); // letters with marks, and ligatures
        QCOMPARE(parts(u"\U0001F600x"_qs, "X"), (Numbers{2, 1}));
        find("oTt");
        const ZelLabel *label = titled<ZelInspectorSliver>("Motto")->label();
        QCOMPARE(label->markedParts(), (QList<ZelLabel::Part>{{1, 3}}));
        find("width");
        QVERIFY(label->markedParts().isEmpty());
    }

    /// Everything is put back: the rows, the tab, what is folded, the scroll position and the focus.
    void escapeGivesEverythingBack()
    {
        auto *box = static_cast<ZelExpandableView *>(titled<ZelInspector>("Look")->view());
        QScrollBar *bar = pane(0)->scrollView()->verticalScrollBar();
        Sheet::click(box->header());
        QVERIFY(!box->isExpanded());
        QWidget *deep = field("Deep");
        deep->setFocus();
        pane(0)->scrollView()->ensureWidgetVisible(deep);
        Sheet::settle();
        const QStringList before = shownRows();
        const int position = bar->value();
        QVERIFY(position > 0);
        Sheet::press(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget(), m_field);
        Sheet::type("motto");
        QCOMPARE(shownRows(), QStringList{"Motto"});
        QCOMPARE(bar->value(), 0);
        QCOMPARE(counts(), (QList{1, 0}));
        QTRY_VERIFY(titled<ZelInspectorSliver>("Tone")->isFilteredOut() ||
                    titled<ZelInspector>("Always")->isFilteredOut());
        Sheet::press(Qt::Key_F, Qt::ControlModifier);
        Sheet::type("tone"); // replaces what was selected
        QCOMPARE(shownRows(), QStringList{"Tone"});
        QCOMPARE(inspector()->selectedPaneIndex(), 1);
        QCOMPARE(counts(), (QList{0, 1}));
        Sheet::press(Qt::Key_Escape);
        QCOMPARE(inspector()->selectedPaneIndex(), 0);
        QVERIFY(!box->isExpanded());
        QCOMPARE(shownRows(), before);
        QCOMPARE(bar->value(), position);
        QCOMPARE(counts(), (QList{-1, -1}));
        QVERIFY(deep->isAncestorOf(QApplication::focusWidget()));
        QCOMPARE(inspector()->searchText(), QString());
    }

    void theOutcomeIsShownOnceInATurn()
    {
        QSignalSpy spy(m_field->parentWidget()->findChild<ZelLabel *>(), &ZelLabel::textChanged);
        inspector()->setSearchText("o");
        inspector()->setSearchText("wi");
        QCOMPARE(spy.count(), 0);
        Sheet::settle();
        QCOMPARE(spy.count(), 1);
        QCOMPARE(outcome(), QString("1 found"));
        QCOMPARE(inspector()->tabBar()->matrix()->cellName(0), QString("A (1)"));
    }

    void foundRowsAreEdited()
    {
        Sheet::click(m_field);
        Sheet::type("motto");
        Sheet::press(Qt::Key_Down);
        QVERIFY(field("Motto")->isAncestorOf(QApplication::focusWidget()));
        Sheet::type("new");
        Sheet::press(Qt::Key_Return);
        QCOMPARE(m_sheet->value(0, "name").toString(), "new");
        QCOMPARE(m_sheet->stack.count(), 1);
        Sheet::type("x");
        Sheet::press(Qt::Key_Escape); // discards the typing, and nothing else
        QCOMPARE(inspector()->searchText(), QString("motto"));
        Sheet::type("half"); // what is being typed is committed when the row hides
        find("width");
        QCOMPARE(m_sheet->value(0, "name").toString(), "half");
        Sheet::press(Qt::Key_Escape);
        QCOMPARE(inspector()->searchText(), QString());
    }

    /// The key belongs to the inspector only while the focus is in it, and then to nobody else.
    void theKeyIsNotTakenElsewhere()
    {
        auto *other = new QLineEdit;
        m_sheet->layout()->addWidget(other);
        int ofTheApplication = 0;
        QShortcut shortcut(QKeySequence::Find, &*m_sheet);
        connect(&shortcut, &QShortcut::activated, this, [&] { ++ofTheApplication; });
        other->setFocus();
        Sheet::press(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(ofTheApplication, 1);
        QCOMPARE(QApplication::focusWidget(), other);
        field("Motto")->setFocus();
        Sheet::press(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(ofTheApplication, 1);
        QCOMPARE(QApplication::focusWidget(), m_field);
        inspector()->setSearchEnabled(false);
        Sheet::press(Qt::Key_Tab);
        Sheet::press(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(ofTheApplication, 2);
        inspector()->setSearchEnabled(true);
        inspector()->focusSearchField();
        Sheet::press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), inspector()->tabBar()->matrix()); // the field stands before all others
    }

    void hiddenRowsSayWhy()
    {
        find("radi");
        QCOMPARE(notes(), u"Radius – shown when “Locked” is on"_qs);
        find("since");
        QCOMPARE(notes(), u"Since – shown when “Kind” is “Member”"_qs);
        find("opac");
        QCOMPARE(inspector()->selectedPaneIndex(), 1);
        QCOMPARE(notes(), u"Opacity – not shown at present"_qs); // no row has the key, which is no name for people
        QVERIFY(pane(1)->view()->findChild<QLabel *>()->isVisible());
        // While the search goes on, the conditions change.
        m_sheet->owner->setProperty("extra", true);
        Sheet::settle();
        QCOMPARE(notes(), QString());
        QCOMPARE(shownRows(), QStringList{"Opacity"});
        find("since");
        m_sheet->set(0, "role", 1);
        QCOMPARE(shownRows(), QStringList{"Since"});
        m_sheet->select({});
        QCOMPARE(shownRows(), QStringList());
        QCOMPARE(outcome(), QString("1 hidden"));
        find({});
        QCOMPARE(notes(), QString());
        QVERIFY(!pane(0)->view()->findChild<QLabel *>());
    }

    /// Containers come, go and die while there is a search.
    void theInspectorMayChangeMeanwhile()
    {
        find("motto");
        auto *row = titled<ZelInspectorSliver>("Width");
        row->setTitle("Motto II");
        Sheet::settle();
        QCOMPARE(shownRows(), (QStringList{"Motto II", "Motto"}));
        auto *motto = titled<ZelInspectorSliver>("Motto");
        delete motto->view();
        delete motto;
        Sheet::settle();
        QCOMPARE(outcome(), QString("1 found"));
        ZelInspector *look = titled<ZelInspector>("Look");
        pane(0)->setInspectors({titled<ZelInspector>("Folded")});
        Sheet::settle();
        QCOMPARE(outcome(), QString("Nothing found"));
        pane(0)->setInspectors({});
        find("tone");
        pane(0)->setInspectors({look}); // it left while it was filtered out
        find({});
        QVERIFY(shownRows().contains("Kind"));
        find("kind role");
        delete pane(1)->view();
        delete pane(1);
        inspector()->setPanes({pane(0)});
        Sheet::settle();
        QCOMPARE(shownRows(), QStringList{"Kind"});
    }

    void theTextOutlivesTheWindow()
    {
        find("motto");
        ZelView *view = inspector()->view();
        view->removeFromSuperview();
        QVERIFY(!titled<ZelInspectorSliver>("Width")->isFilteredOut());
        QCOMPARE(inspector()->searchCount(), 0);
        m_sheet->layout()->addWidget(view);
        for (const bool isFieldShown : {true, false, true}) {
            inspector()->setSearchEnabled(isFieldShown);
            Sheet::settle();
            QCOMPARE(shownRows() == QStringList{"Motto"}, isFieldShown);
        }
    }

    /// An edit that the search commits may end everything.
    void anEditMayEndTheInspector()
    {
        QWidget *motto = field("Motto");
        Sheet::replaceText(motto, "last");
        auto *property = titled<ZelInspectorSliver>("Motto")->properties().first();
        property->setActionSelector(ZelSelector("noteAction"));
        connect(m_sheet->figures.front().get(), &Person::nameChanged, this, [this] {
            delete m_sheet->inspector->view();
            m_sheet->inspector.reset();
        });
        inspector()->setSearchText("width");
        QVERIFY(!m_sheet->inspector);
        QCOMPARE(m_sheet->value(0, "name").toString(), "last");
    }
};
QTEST_MAIN(tst_Search)
#include "tst_Search.moc"
