// SPDX-License-Identifier: MIT
#include "Inspector/Descriptions.h"
#include "Inspector/ZelLiveInspector.h"

namespace {
QByteArray row(const QByteArray &title, const QByteArray &key, const QByteArray &type = "number")
{
    return "<sliver title='" + title + "'><property type='" + type + "' keyPath='people.selection." + key +
           "'/></sliver>\n";
}
/// Two panes: the second is long, and its editors of "height" are the only ones of that key.
QByteArray panel(const QByteArray &inserted = {})
{
    return "<panes><pane title='One'>" + box("Flags", row("Flags", "flags")) + "</pane><pane title='Two'>" + inserted +
           box("Tall", row("Flags", "flags").repeated(40)) + box("More", row("Height", "height")) +
           box("Folded", row("Name", "nameLength")) + "</pane></panes>";
}
} // namespace

class tst_ZelLiveInspector : public QObject
{
    Q_OBJECT

    /// Writes as text editors do: another file takes the name of the former one.
    void replace(const QString &name, const QByteArray &text)
    {
        const QString written = m_files->write(name + ".new", text).toLocalFile();
        const QByteArray target = QFile::encodeName(QFileInfo(written).dir().filePath(name));
        QCOMPARE(std::rename(QFile::encodeName(written), target), 0);
    }
    ZelTextField *fieldOf(const QString &keyPath) const
    {
        for (auto *editor : m_live->inspector()->findChildren<ZelInspectorProperty *>()) {
            if (editor->keyPath() == "people.selection." + keyPath && editor->isViewInstalled())
                return editor->view()->findChild<ZelTextField *>();
        }
        return nullptr;
    }
    ZelTextField *type(const QString &keyPath, const QString &text) const
    {
        ZelTextField *field = fieldOf(keyPath);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        return field;
    }
    ZelTabbedInspector *tabs() const { return qobject_cast<ZelTabbedInspector *>(m_live->inspector()); }
    QString errors() const
    {
        const auto *label = m_live->findChild<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        return label->isVisible() ? label->text() : QString();
    }
    void show(const QUrl &url)
    {
        m_window = std::make_unique<QWidget>();
        ZelWindow::attach(m_window.get(), m_stack.get());
        auto *layout = new QVBoxLayout(m_window.get());
        layout->addWidget(new QLineEdit);
        m_live = new ZelLiveInspector;
        layout->addWidget(m_live);
        layout->addWidget(new QLineEdit);
        m_live->setOwner(m_owner.get());
        m_live->setUrl(url);
        m_window->resize(360, 500);
        User::open(m_window.get());
    }

    std::unique_ptr<Descriptions> m_files;
    std::unique_ptr<EditorOwner> m_owner;
    std::unique_ptr<Person> m_first;
    std::unique_ptr<Person> m_second;
    std::unique_ptr<QUndoStack> m_stack;
    std::unique_ptr<QWidget> m_window;
    QPointer<ZelLiveInspector> m_live;

private Q_SLOTS:
    void init()
    {
        m_files = std::make_unique<Descriptions>();
        m_owner = std::make_unique<EditorOwner>();
        m_first = std::make_unique<Person>("Ada");
        m_second = std::make_unique<Person>("Alan");
        m_owner->controller.setSelectedObjects({m_first.get(), m_second.get()});
        m_stack = std::make_unique<QUndoStack>();
    }
    void cleanup()
    {
        m_window.reset();
        m_stack.reset();
        m_owner.reset();
        m_files.reset();
    }

    void keepsWhatUsersArrangedWhenFilesAreReplaced()
    {
        show(m_files->write("Main.xml", panel()));
        tabs()->setSelectedPaneIndex(1);
        ZelInspectorPane *pane = tabs()->panes().at(1);
        pane->inspectors().at(2)->setExpanded(false);
        ZelTextField *height = type("height", "125");
        QTest::keyClick(height, Qt::Key_Return);
        height->setSelection(1, 2);
        QTRY_VERIFY(pane->scrollView()->verticalScrollBar()->maximum() > 100);
        pane->scrollView()->verticalScrollBar()->setValue(100);
        QCOMPARE(m_stack->count(), 1);
        const QSignalSpy reloaded(m_live, &ZelLiveInspector::reloaded);
        for (int save = 0; save < 10; ++save) // a burst, of which only the last is right
            replace("Main.xml",
                    save < 9 ? QByteArray("<panes>") : panel(box("New", row("Height", "silent", "string"))));
        QTRY_COMPARE(reloaded.count(), 1);
        QTest::qWait(300);
        QCOMPARE(reloaded.count(), 1);
        QCOMPARE(errors(), QString());
        QCOMPARE(tabs()->selectedPaneIndex(), 1U);
        pane = tabs()->panes().at(1);
        QCOMPARE(pane->inspectors().size(), 4);
        QVERIFY(pane->inspectors().at(2)->isExpanded());
        QVERIFY(!pane->inspectors().at(3)->isExpanded());
        QTRY_COMPARE(pane->scrollView()->verticalScrollBar()->value(), 100);
        height = fieldOf("height");
        QCOMPARE(QApplication::focusWidget(), height);
        QCOMPARE(height->selectedText(), "25");
        QTest::keyClicks(height, "7");
        QTest::keyClick(height, Qt::Key_Return);
        QCOMPARE(m_second->height(), 17.);
        QCOMPARE(m_stack->count(), 2);
        m_stack->setIndex(0);
        QCOMPARE(m_first->height(), 0.);
        // The file that came by renaming is watched as well, and Tab still goes through the panel.
        m_files->write("Main.xml", inSection(row("Height", "height") + row("Flags", "flags")));
        QTRY_COMPARE(reloaded.count(), 2);
        const QList<QLineEdit *> around = m_window->findChildren<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly);
        around.first()->setFocus();
        QList<QWidget *> visited;
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            visited.append(QApplication::focusWidget());
        }
        QCOMPARE(visited, (QList<QWidget *>{fieldOf("height"), fieldOf("flags"), around.last()}));
    }

    void tellsAllErrorsAboveTheLastGoodPanel()
    {
        m_files->write("Row.xml", "<slice title='Height'><property type='number' keyPath='people.selection.height'/>"
                                  "</slice>");
        show(m_files->write("Main.xml", inSection("<sliver file='Row.xml'/>")));
        ZelInspectorContainer *const good = m_live->inspector();
        QVERIFY(good);
        replace("Row.xml", "<slice>\n <property type='numer' keyPath='people.selection.height'/>\n"
                           " <property type='custom' class='Nobody'/></slice>");
        QTRY_COMPARE(errors(), "Row.xml:2:2: Type not suppored: numer\nRow.xml:3:2: Missing class Nobody");
        QCOMPARE(m_live->inspector(), good);
        QTest::keyClick(type("height", "9"), Qt::Key_Return);
        QCOMPARE(m_first->height(), 9.);
        replace("Row.xml", "<slice>\n<property</slice>");
        QTRY_COMPARE(m_live->errors().size(), 1);
        QVERIFY(errors().startsWith("Row.xml:2:"));
        // A key that the owner lacks fails when the editor is shown: the former panel is there again, and works.
        replace("Row.xml", "<slice>\n<property type='string' keyPath='nobody'/></slice>");
        QTRY_VERIFY(errors().startsWith("Row.xml:2:1: "));
        QCOMPARE(m_live->inspector(), good);
        QVERIFY(good->isViewInstalled() && fieldOf("height")->isVisible());
        QFile::remove(m_files->write("Row.xml", {}).toLocalFile()); // a warning: the row is empty
        QTRY_COMPARE(errors(), QString());
        QVERIFY(!fieldOf("height"));
        replace("Row.xml", "<slice><property type='number' keyPath='people.selection.height'/></slice>");
        QTRY_VERIFY(fieldOf("height"));
        replace("Main.xml", "<pane/>");
        QTRY_COMPARE(errors(), "Main.xml:1:1: No inspectors in the configuration");
        replace("Main.xml", "<slice/>");
        QTRY_COMPARE(errors(), QString());
    }

    void losesNoTyping()
    {
        const QByteArray described = inSection(row("Height", "height") + row("Flags", "flags"));
        show(m_files->write("Main.xml", described));
        const QSignalSpy reloaded(m_live, &ZelLiveInspector::reloaded);
        type("height", "12");
        replace("Main.xml", described + " ");
        QTRY_COMPARE(reloaded.count(), 1);
        QCOMPARE(m_second->height(), 12.);
        QCOMPARE(m_stack->count(), 1);
        const QPointer<ZelTextField> field = type("flags", "none");
        replace("Main.xml", inSection(row("Flags", "flags")));
        QTest::qWait(600);
        QCOMPARE(reloaded.count(), 1);
        QCOMPARE(field ? field->text() : QString(), "none");
        QTest::keyClick(field, Qt::Key_Escape);
        QTRY_COMPARE(reloaded.count(), 2);
        QVERIFY(!fieldOf("height"));
        QCOMPARE(m_stack->count(), 1);
        // Neither does a press that is under way lose what it is about to do.
        QTest::mousePress(m_window.get(), Qt::LeftButton, {}, {2, 2});
        replace("Main.xml", described);
        QTest::qWait(400);
        const int during = int(reloaded.count());
        QTest::mouseRelease(m_window.get(), Qt::LeftButton, {}, {2, 2});
        QTRY_COMPARE(reloaded.count(), 3);
        QCOMPARE(during, 2);
    }

    void readsSourceFoldersInsteadOfResources()
    {
        const QString folder = QFileInfo(m_files->write("Row.xml", "<slice title='A'/>").toLocalFile()).path();
        m_files->write("Main.xml", inSection("<sliver file='Row.xml'/>"));
        ZelBundle::mainBundle().setResourcePaths({":/live"});
        ZelBundle::setSourceFolder(":/live", folder);
        show(QUrl("qrc:/live/Main.xml"));
        const auto titles = [this] {
            QStringList all;
            for (const auto *sliver : m_live->inspector()->findChildren<ZelInspectorSliver *>())
                all.append(sliver->title());
            return all;
        };
        QCOMPARE(titles(), QStringList("A"));
        replace("Row.xml", "<slice title='B'/>");
        QTRY_COMPARE(titles(), QStringList("B"));
        ZelBundle::setSourceFolder(":/live", {});
        QVERIFY(!m_live->reload());
        QVERIFY(errors().contains("qrc:/live/Main.xml"));
    }

    /// A file of translations beside the description: the application loads it when it changes.
    void followsTranslations()
    {
        QTemporaryDir folder;
        QString translation = "Size";
        const auto former =
            ZelSetLocalizationFunction([&](const QString &key) { return key == "Name" ? translation : key; });
        show(m_files->write("Main.xml", "<pane title='P'>" + box("Name", row("Height", "height")) + "</pane>"));
        m_live->setWatchedFolders({folder.path()});
        connect(m_live, &ZelLiveInspector::filesChanged, this,
                [&](const QStringList &files) { translation = QFileInfo(files.value(0)).fileName(); });
        const auto title = [this] { return m_live->inspector()->findChild<ZelInspector *>()->title(); };
        QCOMPARE(title(), "Size");
        QFile file(folder.filePath("de"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QTRY_COMPARE(title(), "de");
        translation = "Taille";
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(m_window.get(), &change);
        QTRY_COMPARE(title(), "Taille");
        ZelSetLocalizationFunction(former);
    }

    /// The folder of the description is deleted and comes again, as when a version control system changes branches.
    void followsFoldersThatComeAgain()
    {
        QTemporaryDir folder;
        const QString inner = folder.filePath("inspector");
        const auto write = [&](const QByteArray &text) {
            QVERIFY(QDir().mkpath(inner));
            QFile file(inner + "/Main.xml");
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        };
        write(inSection(row("Height", "height")));
        show(QUrl::fromLocalFile(inner + "/Main.xml"));
        QVERIFY(fieldOf("height"));
        QVERIFY(QDir(inner).removeRecursively());
        QTRY_VERIFY(errors().contains("does not exist"));
        QVERIFY(fieldOf("height"));
        QTest::qWait(200);
        write(inSection(row("Flags", "flags")));
        QTRY_VERIFY(fieldOf("flags"));
        QCOMPARE(errors(), QString());
    }

    void outlivesWhatHappensMeanwhile()
    {
        show(
            m_files->write("Main.xml", inSection("<sliver><property type='custom' class='NotingProperty'/></sliver>")));
        const auto editor = [this] { return m_live->inspector()->findChild<NotingProperty *>(); };
        const QPointer<NotingProperty> former = editor();
        editor()->whenCommitting = [this] { QVERIFY(m_live->reload()); };
        QVERIFY(m_live->reload());
        QVERIFY(!former && editor());
        QTRY_COMPARE(NotingProperty::alive, 1);
        editor()->commits = false; // an editor that refuses, and is asked again
        m_live->reload();
        editor()->commits = true;
        const QPointer<NotingProperty> refusing = editor();
        QTRY_VERIFY(!refusing);
        editor()->whenCommitting = [this] { m_owner.reset(); };
        m_live->reload();
        m_live->reload();
        QCOMPARE(errors(), "Missing owner");
        m_owner = std::make_unique<EditorOwner>();
        m_live->setOwner(m_owner.get());
        QTRY_COMPARE(errors(), QString());
        editor()->whenCommitting = [this] { m_window.reset(); };
        m_live->reload();
        QVERIFY(!m_live);
        QCOMPARE(NotingProperty::alive, 0);
    }

    void initTestCase() { ZelClassRegistry::registerClass<NotingProperty>(); }
};
QTEST_MAIN(tst_ZelLiveInspector)
#include "moc_Descriptions.cpp"
#include "tst_ZelLiveInspector.moc"
