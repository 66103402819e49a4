// SPDX-License-Identifier: MIT
#include "SplitView/ZelPrioritySplitViewItem.h"
#include "ViewController/ZelKeyedCoder.h"

#include <QTest>

class tst_ZelPrioritySplitViewItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anArchiveKeepsEverything()
    {
        const quint64 largest = std::numeric_limits<quint64>::max();
        const ZelPrioritySplitViewItem item(12.5, 300, largest, true);
        ZelKeyedCoder coder;
        item.encodeWithCoder(coder);
        const QVariantMap expected{
            {"minLength", 12.5}, {"maxLength", 300.0}, {"priorityIndex", largest}, {"collapsible", true}};
        QCOMPARE(coder.values(), expected);
        const ZelPrioritySplitViewItem copy(coder);
        QCOMPARE(copy.minLength(), 12.5);
        QCOMPARE(copy.maxLength(), 300.0);
        QCOMPARE(copy.priorityIndex(), largest);
        QVERIFY(copy.isCollapsible());
    }
    void anArchiveMayLackKeys()
    {
        const ZelPrioritySplitViewItem item(ZelKeyedCoder(QVariantMap{{"minLength", 40}}));
        QCOMPARE(item.minLength(), 40.0);
        QVERIFY(item.maxLength() > QWIDGETSIZE_MAX);
        QCOMPARE(item.priorityIndex(), 0u);
        QVERIFY(!item.isCollapsible());
    }
};

QTEST_MAIN(tst_ZelPrioritySplitViewItem)
#include "tst_ZelPrioritySplitViewItem.moc"
