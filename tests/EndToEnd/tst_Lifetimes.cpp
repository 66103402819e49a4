// SPDX-License-Identifier: MIT
#include "InspectorWindow.h"

#include "Core/KeyValue/ZelKeyValueObserving.h"
#include "Inspector/Properties/ZelInspectorNumberProperty.h"
#include "Inspector/Properties/ZelInspectorStringProperty.h"

namespace {

const QByteArray g_description = R"(<panes>
  <pane title="One"><inspector title="Person" visibleKeyPath="unlocked"><slice><section title="Basics">
    <sliver title="Name"><property type="string" keyPath="people.selection.name" enabledKeyPath="unlocked"/></sliver>
    <sliver title="Height"><property type="number" keyPath="people.selection.height" slider="circular"/></sliver>
    <sliver title="Bits"><property type="boolean" title="Bit" keyPath="people.selection.flags" bits="2"/></sliver>
    <chooser title="Role" keyPath="people.selection.role">
      <choice title="Guest" value="0"><sliver title="Note"><property type="string" keyPath="people.selection.note"/></sliver></choice>
      <choice title="Member" value="1"/>
    </chooser>
  </section></slice></inspector></pane></panes>)";

} // namespace

/// Everything that takes part dies, in any order, also in the middle of something.
class tst_Lifetimes : public QObject
{
    Q_OBJECT

    static void end(std::unique_ptr<InspectorWindow> &window, QChar what)
    {
        if (what == u'm')
            window->people.clear();
        else if (what == u'c')
            window->owner->controller.setSelectedObjects({});
        else if (what == u'o')
            window->owner.reset();
        else if (what == u'i')
            window->inspector.reset();
        else if (what == u'v')
            delete window->inspector->view();
        else if (what == u'w')
            window.reset();
    }

private Q_SLOTS:
    void inAnyOrder_data()
    {
        QTest::addColumn<QString>("order");
        for (const char *order : {"mow", "omw", "imow", "wm", "vmow", "ocw", "viow", "omiw", "ovw", "mcw"})
            QTest::newRow(order) << QString::fromLatin1(order);
    }
    void inAnyOrder()
    {
        QFETCH(QString, order);
        for (const bool inTheMiddle : {false, true}) {
            auto window = std::make_unique<InspectorWindow>(g_description);
            window->select({0, 1});
            if (inTheMiddle) {
                ZelTextField *field = window->editor<ZelInspectorNumberProperty>("height")->textField();
                field->setFocus();
                QTest::keyClicks(field, QStringLiteral("12"));
            }
            for (QChar what : order) {
                if (!window || (what == u'c' && !window->owner))
                    break;
                end(window, what);
                QCoreApplication::processEvents();
            }
        }
    }

    void duringADelivery_data() { inAnyOrder_data(); }
    void duringADelivery()
    {
        QFETCH(QString, order);
        auto window = std::make_unique<InspectorWindow>(g_description);
        window->select({0, 1});
        // The person outlives its turn: it is its signal that is being delivered.
        const std::unique_ptr<Person> person = std::move(window->people[0]);
        connect(person.get(), &Person::heightChanged, person.get(), [&] {
            for (QChar what : order) {
                if (window && (what != u'c' || window->owner))
                    end(window, what);
            }
        });
        person->setHeight(5);
        QCoreApplication::processEvents();
        window.reset();
        for (const char *key : {"name", "height", "flags", "role", "note"})
            QVERIFY2(!ZelIsObserved(person.get(), key), key);
    }

    void theSelectionChangesDuringADelivery()
    {
        InspectorWindow window(g_description);
        window.select({0, 1});
        connect(window.people[0].get(), &Person::heightChanged, &window, [&] { window.select({2}); });
        window.people[0]->setHeight(5);
        QCoreApplication::processEvents();
        QCOMPARE(window.editor<ZelInspectorNumberProperty>("height")->textField()->objectValue(), QVariant(0.0));
    }

    void hidingCommitsWhatEndsTheInspector()
    {
        InspectorWindow window(g_description);
        window.select({0});
        ZelTextField *field = window.editor<ZelInspectorNumberProperty>("height")->textField();
        field->setFocus();
        QTest::keyClicks(field, QStringLiteral("12"));
        connect(window.people[0].get(), &Person::heightChanged, &window, [&] { window.inspector.reset(); });
        window.owner->setUnlocked(false);
        QVERIFY(!window.inspector);
    }

    void aDeletedWindowLeavesNothingObserved()
    {
        auto window = std::make_unique<InspectorWindow>(g_description);
        window->select({0});
        const std::unique_ptr<EditorOwner> owner = std::move(window->owner);
        QVERIFY(ZelIsObserved(owner.get(), "people"));
        window.reset();
        QVERIFY(!ZelIsObserved(owner.get(), "people"));
        QVERIFY(!ZelIsObserved(owner.get(), "unlocked"));
    }
};

QTEST_MAIN(tst_Lifetimes)
#include "tst_Lifetimes.moc"
