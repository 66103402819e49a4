// SPDX-License-Identifier: MIT
#include "Split.h"

#include "SplitView/ZelSplitView.h"

#include <QTest>

class tst_Dividers : public QObject
{
    Q_OBJECT
private Q_SLOTS:
};

QTEST_MAIN(tst_Dividers)
#include "tst_Dividers.moc"
