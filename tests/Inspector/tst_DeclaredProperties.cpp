// SPDX-License-Identifier: MIT
#include "ActionBar/ZelActionBar.h"
#include "ColorPopUpButton/ZelColorMenuItemView.h"
#include "ColorPopUpButton/ZelColorPopUpButton.h"
#include "ColorPopUpButton/ZelUsedColorList.h"
#include "Core/KeyValue/ZelKeyValueCoding.h"
#include "Inspector/Properties/ZelInspectorTextEnumerationProperty.h"
#include "Inspector/ZelInspectorChooser.h"
#include "Inspector/ZelInspectorSliver.h"
#include "Inspector/ZelTabbedInspector.h"
#include "SplitView/ZelPrioritySplitViewDelegate.h"
#include "SplitView/ZelSplitView.h"
#include "Support/Person.h"
#include "TabBar/ZelTabBar.h"
#include "Views/ZelContainerView.h"
#include "Views/ZelEmptyView.h"
#include "Views/ZelHorizontalStackView.h"
#include "Views/ZelMagnificationView.h"
#include "Views/ZelSwitchContainerView.h"

#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>

namespace {

/// What an application can rely on by key.
struct Declared
{
    const QMetaObject *metaObject;
    const char *properties; // read, set and observed
    const char *readOnly;   // read and observed; never changed where there is no NOTIFY
};

const Declared g_declared[] = {
    {&ZelView::staticMetaObject,
     "backgroundColor borderColor flipped opaque viewController installed layerContentsRedrawPolicy", ""},
    {&ZelViewController::staticMetaObject, "title view", "viewLoaded viewInstalled"},
    {&ZelContainerView::staticMetaObject, "childViewController", ""},
    {&ZelSwitchContainerView::staticMetaObject,
     "childViewControllers selectedChildViewControllerIndex constraintSelectdView containerConstraints", ""},
    {&ZelEmptyView::staticMetaObject, "title titleFont titleColor titleBackgroundColor forceShow", ""},
    {&ZelHorizontalStackView::staticMetaObject, "edgeInsets spacing equalSizes stackConstraints compressionConstraints",
     ""},
    {&ZelMagnificationView::staticMetaObject,
     "magnificationFactor minMagnification maxMagnification contentSize pinchMagnificationFactor "
     "updatingDocumentFrame",
     ""},
    {&ZelPrioritySplitViewItem::staticMetaObject, "minLength maxLength priorityIndex collapsible", ""},
    {&ZelPrioritySplitViewDelegate::staticMetaObject, "items", "splitView"},
    {&ZelSplitView::staticMetaObject, "level", ""},
    {&ZelColorPopUpButton::staticMetaObject, "colorList defaultColor selectedColor showsAlpha", "cell"},
    {&ZelColorPopUpButtonCell::staticMetaObject,
     "colorList colors defaultColor selectedColor showsAlpha colorPanelActive controlSize",
     "defaultMenuItem currentMenuItem recentlyMenuItem otherMenuItem"},
    {&ZelUsedColorList::staticMetaObject, "", "colors"},
    {&ZelColorMenuItemView::staticMetaObject, "selectedColor controlSize", "label matrix"},
    {&ZelTabBarItem::staticMetaObject, "image toolTip keyEquivalent keyEquivalentModifierMask tag enabled", ""},
    {&ZelTabBar::staticMetaObject, "style items selectedItem enabled delegate", "matrix"},
    {&ZelActionBarItem::staticMetaObject,
     "type image alternateImage state label enabled autovalidates toolTip keyEquivalent keyEquivalentModifierMask "
     "menu view target action tag minSize maxSize edgeInsets",
     ""},
    {&ZelActionBar::staticMetaObject, "items edgeInsets style itemViews stackConstraints", "validateItemsInvocation"},
    {&ZelTabbedInspector::staticMetaObject,
     "title panes enabled enabledKeyPath enabledValueTransformer selectedPaneIndex currentInspector tabBar "
     "containerView",
     "owner"},
    {&ZelInspectorPane::staticMetaObject, "title image inspectors scrollView containerView", "owner"},
    {&ZelInspector::staticMetaObject, "title visible visibleKeyPath visibleValueTransformer slices slicesView",
     "owner"},
    {&ZelInspectorSlice::staticMetaObject,
     "title usesAlternatingBackgroundColors visible visibleKeyPath visibleValueTransformer sections sectionsView",
     "owner"},
    {&ZelInspectorSection::staticMetaObject,
     "title visible visibleKeyPath visibleValueTransformer sliversAndChoosers labelContainerView label", "owner"},
    {&ZelInspectorSliver::staticMetaObject,
     "title fullWidth visible visibleKeyPath visibleValueTransformer properties label baselineConstraint", "owner"},
    {&ZelInspectorChooser::staticMetaObject,
     "title keyPath enabled enabledKeyPath visible visibleKeyPath visibleValueTransformer actionSelector actionName "
     "choices sliver property containerView currentChoice",
     "owner"},
    {&ZelInspectorProperty::staticMetaObject, "", "owner updateViewInvocation"},
    {&ZelInspectorChooserChoice::staticMetaObject, "title hidden enabled image value sliversAndChoosers", "owner"},
};

QList<QByteArray> keys(const char *list)
{
    QList<QByteArray> keys = QByteArray(list).split(' ');
    keys.removeAll(QByteArray());
    return keys;
}

} // namespace

class tst_DeclaredProperties : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void canBeReadSetAndObserved_data()
    {
        QTest::addColumn<const QMetaObject *>("metaObject");
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<bool>("isWritable");
        for (const Declared &declared : g_declared) {
            const auto add = [&](const QByteArray &key, bool isWritable) {
                QTest::addRow("%s.%s", declared.metaObject->className(), key.constData())
                    << declared.metaObject << key << isWritable;
            };
            for (const QByteArray &key : keys(declared.properties))
                add(key, true);
            for (const QByteArray &key : keys(declared.readOnly))
                add(key, false);
        }
    }
    void canBeReadSetAndObserved()
    {
        QFETCH(const QMetaObject *, metaObject);
        QFETCH(QByteArray, key);
        QFETCH(bool, isWritable);
        const QMetaProperty property = metaObject->property(metaObject->indexOfProperty(key));
        QVERIFY(property.isReadable());
        QVERIFY(property.metaType().isValid());
        QCOMPARE(property.isWritable(), isWritable);
        QVERIFY(property.hasNotifySignal() || (property.isConstant() && !isWritable));
    }

    /// What a container makes when its view is loaded.
    void whatIsMadeWithTheViewIsAnnounced_data()
    {
        using Make = std::function<ZelViewController *(QObject * owner)>;
        QTest::addColumn<Make>("make");
        QTest::addColumn<QByteArrayList>("keys");
        QTest::newRow("tabs") << Make([](QObject *owner) {
            auto *inspector = new ZelTabbedInspector(owner);
            inspector->setPanes({new ZelInspectorPane(owner)});
            return inspector;
        }) << QByteArrayList{"tabBar", "containerView", "currentInspector", "view", "viewLoaded"};
        QTest::newRow("pane") << Make([](QObject *owner) { return new ZelInspectorPane(owner); })
                              << QByteArrayList{"scrollView", "containerView"};
        QTest::newRow("inspector") << Make([](QObject *owner) { return new ZelInspector(owner); })
                                   << QByteArrayList{"slicesView"};
        QTest::newRow("slice") << Make([](QObject *owner) { return new ZelInspectorSlice(owner); })
                               << QByteArrayList{"sectionsView"};
        QTest::newRow("section") << Make([](QObject *owner) {
            auto *section = new ZelInspectorSection(owner);
            section->setTitle("Section");
            return section;
        }) << QByteArrayList{"labelContainerView", "label"};
        QTest::newRow("sliver") << Make([](QObject *owner) {
            auto *sliver = new ZelInspectorSliver(owner);
            sliver->setTitle("Row");
            auto *property = new ZelInspectorTextEnumerationProperty(owner);
            property->setKeyPath("flags");
            sliver->setProperties({property});
            return sliver;
        }) << QByteArrayList{"label", "baselineConstraint"};
        QTest::newRow("chooser") << Make([](QObject *owner) {
            auto *chooser = new ZelInspectorChooser(owner);
            auto *choice = new ZelInspectorChooserChoice(owner);
            chooser->setChoices({choice}); // stands for the absent value
            return chooser;
        }) << QByteArrayList{"sliver", "property", "containerView", "currentChoice"};
    }
    void whatIsMadeWithTheViewIsAnnounced()
    {
        using Make = std::function<ZelViewController *(QObject *)>;
        QFETCH(Make, make);
        QFETCH(QByteArrayList, keys);
        Person owner;
        QWidget window;
        const std::unique_ptr<ZelViewController> controller(make(&owner));
        std::vector<std::unique_ptr<QSignalSpy>> spies;
        for (const QByteArray &key : keys) {
            const QMetaObject *metaObject = controller->metaObject();
            const QMetaProperty property = metaObject->property(metaObject->indexOfProperty(key));
            spies.push_back(std::make_unique<QSignalSpy>(controller.get(), property.notifySignal()));
        }
        controller->view()->setParent(&window);
        for (qsizetype i = 0; i < keys.size(); ++i) {
            QVERIFY2(spies[size_t(i)]->count() > 0, keys.at(i));
            QVERIFY2(controller->property(keys.at(i)).isValid(), keys.at(i));
        }
        controller->view()->removeFromSuperview();
    }
};

QTEST_MAIN(tst_DeclaredProperties)
#include "tst_DeclaredProperties.moc"
