// SPDX-License-Identifier: MIT
#include "Controls/Fields/ZelGrowingTextField.h"
#include "Controls/Menus/ZelMenuItem.h"
#include "Controls/Menus/ZelPopUpButton.h"
#include "Controls/ZelCheckBox.h"
#include "Controls/ZelPushButton.h"
#include "Core/Values/ZelValues.h"
#include "EditorWindow.h"
#include "Inspector/Properties/ZelInspectorActionProperty.h"
#include "Inspector/Properties/ZelInspectorBooleanProperty.h"
#include "Inspector/Properties/ZelInspectorMenuActionProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"

class tst_SimpleProperties : public QObject
{
    Q_OBJECT

    static ZelInspectorBooleanProperty *bitEditor(EditorWindow &window, quint64 bits)
    {
        auto property = std::make_unique<ZelInspectorBooleanProperty>(window.owner.get());
        property->setKeyPath(QStringLiteral("people.selection.flags"));
        property->setActionName(QStringLiteral("Toggle"));
        property->bits = bits;
        return window.install(std::move(property));
    }
    static ZelInspectorStringProperty *nameEditor(EditorWindow &window, bool allowsNil)
    {
        auto property = std::make_unique<ZelInspectorStringProperty>(window.owner.get());
        property->setKeyPath(QStringLiteral("people.selection.name"));
        property->setActionName(QStringLiteral("Rename"));
        property->setActionSelector("noteAction");
        property->allowsNilValues = allowsNil;
        return window.install(std::move(property));
    }
    static void type(QWidget *field, const QString &text)
    {
        field->setFocus();
        QWidget *focused = QApplication::focusWidget();
        QTest::keyClick(focused, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(focused, Qt::Key_Delete);
        QTest::keyClicks(focused, text);
        QTest::keyClick(focused, Qt::Key_Return);
        QCoreApplication::processEvents();
    }

private Q_SLOTS:
    void bitsAreSetInEveryObjectAndOthersAreKept()
    {
        EditorWindow window;
        window.people[0]->setFlags(-3); // its sign is a bit as well
        window.people[1]->setFlags(1);
        ZelCheckBox *box = bitEditor(window, 4)->checkbox();
        QVERIFY(!box->isEnabled()); // no selection
        window.select({0, 1});
        QCOMPARE(box->checkState(), Qt::PartiallyChecked);
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
        QCOMPARE(window.people[0]->flags(), -3);
        QCOMPARE(window.people[1]->flags(), 5);
        QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Toggle"));
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
        QCOMPARE(window.people[0]->flags(), -7);
        QCOMPARE(window.undo.stack()->count(), 2);
        window.undo.undo();
        window.undo.undo();
        QCoreApplication::processEvents();
        QCOMPARE(window.people[1]->flags(), 1);
        QCOMPARE(box->checkState(), Qt::PartiallyChecked);
    }

    void aBooleanFollowsModelSelectionAndEnabledKeyPath()
    {
        EditorWindow window;
        auto property = std::make_unique<ZelInspectorBooleanProperty>(window.owner.get());
        property->setKeyPath(QStringLiteral("people.selection.active"));
        property->setEnabledKeyPath(QStringLiteral("unlocked"));
        ZelCheckBox *box = window.install(std::move(property))->checkbox();
        window.select({0});
        QVERIFY(box->isEnabled());
        window.people[0]->setActive(true);
        QTRY_COMPARE(box->checkState(), Qt::Checked);
        window.owner->setUnlocked(false);
        QTRY_VERIFY(!box->isEnabled());
        window.select({0, 1});
        QCOMPARE(box->checkState(), Qt::PartiallyChecked);
        window.select({});
        QCOMPARE(box->checkState(), Qt::Unchecked);
    }

    void clearingATextWritesTheEmptyTextOrNone_data()
    {
        QTest::addColumn<bool>("allowsNil");
        QTest::addColumn<QVariant>("entered");
        QTest::newRow("none becomes empty") << false << QVariant();
        QTest::newRow("an unset text becomes empty") << false << QVariant(QString());
        QTest::newRow("empty stays so") << false << QVariant(QStringLiteral(""));
        QTest::newRow("none stays none") << true << QVariant();
        QTest::newRow("empty becomes none") << true << QVariant(QStringLiteral(""));
    }
    void clearingATextWritesTheEmptyTextOrNone()
    {
        QFETCH(bool, allowsNil);
        QFETCH(QVariant, entered);
        EditorWindow window;
        window.people[0]->setName(QStringLiteral("Ada"));
        auto *property = nameEditor(window, allowsNil);
        window.select({0});
        property->textField()->setObjectValue(entered);
        property->userDidChangeValue(nullptr);
        QVERIFY(window.people[0]->name().isEmpty());
        QCOMPARE(window.people[0]->name().isNull(), allowsNil);
        window.people[0]->setName(QStringLiteral("Bea"));
        QCoreApplication::processEvents();
        type(property->textField(), QString());
        QVERIFY(window.people[0]->name().isEmpty());
        QCOMPARE(window.people[0]->name().isNull(), allowsNil);
    }

    void theSameTextWritesNothing()
    {
        EditorWindow window;
        window.people[0]->setName(QStringLiteral("Ada"));
        auto *property = nameEditor(window, false);
        window.select({0});
        type(property->textField(), QStringLiteral("Ada"));
        QCOMPARE(window.undo.stack()->count(), 0);
        QCOMPARE(window.owner->actions, 0);
        type(property->textField(), QStringLiteral("Bea"));
        QCOMPARE(window.people[0]->name(), QStringLiteral("Bea"));
        QCOMPARE(window.undo.stack()->undoText(), QStringLiteral("Rename"));
        QCOMPARE(window.owner->actions, 1);
    }

    void aTextOfSeveralObjectsIsNotEdited()
    {
        EditorWindow window;
        window.people[0]->setName(QStringLiteral("Ada"));
        auto *property = nameEditor(window, false);
        window.select({0, 1});
        QVERIFY(!property->textField()->isEditable());
        QCOMPARE(property->textField()->objectValue(), QVariant());
        QCOMPARE(property->textField()->nullPlaceholder(), QStringLiteral("Multiple Values"));
        window.people[1]->setName(QStringLiteral("Ada"));
        QTRY_VERIFY(property->textField()->isEditable());
        QCOMPARE(property->textField()->text(), QStringLiteral("Ada"));
    }

    void aButtonSendsItsAction()
    {
        EditorWindow window;
        auto property = std::make_unique<ZelInspectorActionProperty>(window.owner.get());
        property->setTitle(QStringLiteral("Go"));
        property->setActionSelector("noteAction");
        property->setEnabledKeyPath(QStringLiteral("unlocked"));
        auto *editor = window.install(std::move(property));
        QTest::mouseClick(editor->button(), Qt::LeftButton);
        QCOMPARE(window.owner->actions, 1);
        window.owner->setUnlocked(false);
        QTest::mouseClick(editor->button(), Qt::LeftButton);
        QCOMPARE(window.owner->actions, 1);
    }

    void aMenuShowsTheOwnersActions()
    {
        EditorWindow window;
        QAction first(QStringLiteral("First"));
        auto second = std::make_unique<QAction>(QStringLiteral("Second"));
        window.owner->values = {QVariant::fromValue<QObject *>(&first), QVariant::fromValue<QObject *>(second.get())};
        auto property = std::make_unique<ZelInspectorMenuActionProperty>(window.owner.get());
        property->setTitle(QStringLiteral("Arrange"));
        property->menuItemsKeyPath = QStringLiteral("values");
        auto *editor = window.install(std::move(property));
        QCOMPARE(editor->popUpButton()->actions().size(), 3);
        QCOMPARE(ZelMenuItem::titleOf(editor->popUpButton()->actions().first()), QStringLiteral("Arrange"));
        window.owner->values = {QVariant::fromValue<QObject *>(&first)};
        Q_EMIT window.owner->valuesChanged();
        QTRY_COMPARE(editor->popUpButton()->actions().size(), 2);
        second.reset();
    }

    void anythingMayDieFirst_data()
    {
        QTest::addColumn<QString>("order");
        QTest::newRow("owner, editor") << "oe";
        QTest::newRow("model, owner") << "mo";
        QTest::newRow("editor, model") << "em";
        QTest::newRow("view, owner") << "vo";
        QTest::newRow("view, editor") << "ve";
    }
    void anythingMayDieFirst()
    {
        QFETCH(QString, order);
        EditorWindow window;
        nameEditor(window, false);
        window.select({0, 1});
        for (QChar what : order) {
            if (what == u'o')
                window.owner.reset();
            else if (what == u'm')
                window.people.clear();
            else if (what == u'e')
                window.editor.reset();
            else
                delete window.editor->view();
            QCoreApplication::processEvents();
        }
    }
};

QTEST_MAIN(tst_SimpleProperties)
#include "tst_SimpleProperties.moc"
