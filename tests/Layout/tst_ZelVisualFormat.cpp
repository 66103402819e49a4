// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelException.h"
#include "Layout/ZelLayoutConstraint.h"

#include <QTest>

class tst_ZelVisualFormat : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void formatGivesConstraints_data();
    void formatGivesConstraints();
    void malformedFormatIsAnAssertionAtItsPosition_data();
    void malformedFormatIsAnAssertionAtItsPosition();
    void edgeOfParentlessViewIsAnAssertion();

private:
    QList<ZelLayoutConstraint::Ptr> parse(const QString &format) const
    {
        return ZelLayoutConstraint::constraintsWithVisualFormat(format, m_views, {{"gap", 5}, {"low", 250}});
    }

    QWidget m_superview;
    QHash<QString, QWidget *> m_views;
};

void tst_ZelVisualFormat::initTestCase()
{
    m_superview.setObjectName("super");
    for (const char *name : {"a", "b", "label_2"}) {
        auto *view = new QWidget(&m_superview);
        view->setObjectName(name);
        m_views.insert(name, view);
    }
}

void tst_ZelVisualFormat::formatGivesConstraints_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("constraints");

    QTest::newRow("pinned") << "H:|-2-[a]-2-|"
                            << "a.leading = super.leading + 2; a.trailing = super.trailing - 2";
    QTest::newRow("no gaps") << "V:|[a][b]|"
                             << "a.top = super.top; b.top = a.bottom; b.bottom = super.bottom";
    QTest::newRow("standard gaps") << "|-[a]-[b]-|"
                                   << "a.leading = super.leading + 20; b.leading = a.trailing + 8; "
                                      "b.trailing = super.trailing - 20";
    QTest::newRow("one end") << "V:[a]-0@250-|"
                             << "a.bottom = super.bottom @250";
    QTest::newRow("start only") << "V:|-2-[a]"
                                << "a.top = super.top + 2";
    QTest::newRow("size") << "H:|[label_2(79)]"
                          << "label_2.width = 79; label_2.leading = super.leading";
    QTest::newRow("overlap") << "V:|[a]-(-2)-[b]-2-|"
                             << "a.top = super.top; b.top = a.bottom - 2; b.bottom = super.bottom - 2";
    QTest::newRow("soft both ends") << "V:|-0@250-[a]-0@250-|"
                                    << "a.top = super.top @250; a.bottom = super.bottom @250";
    QTest::newRow("explicit equality") << "H:[b(==16)]-4-[a]"
                                       << "b.width = 16; a.leading = b.trailing + 4";
    QTest::newRow("like another") << "H:[a(b@750)]"
                                  << "a.width = b.width @750";
    QTest::newRow("limits") << "V:[a(>=20,<=40.5@low)]"
                            << "a.height >= 20; a.height <= 40.5 @250";
    QTest::newRow("gap limits") << "H:[a]-(>=gap,==10@200)-[b]"
                                << "b.leading >= a.trailing + 5; b.leading = a.trailing + 10 @200";
    QTest::newRow("limited end") << "H:[a]-(>=3)-|"
                                 << "a.trailing <= super.trailing - 3";
    QTest::newRow("metrics") << "V:|-gap-[a]-gap@low-[b]"
                             << "a.top = super.top + 5; b.top = a.bottom + 5 @250";
}

void tst_ZelVisualFormat::formatGivesConstraints()
{
    QFETCH(QString, format);
    QFETCH(QString, constraints);
    QStringList texts;
    for (const ZelLayoutConstraint::Ptr &constraint : parse(format))
        texts.append(constraint->description());
    QCOMPARE(texts.join("; "), constraints);
}

void tst_ZelVisualFormat::malformedFormatIsAnAssertionAtItsPosition_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("problem");

    QTest::newRow("empty") << ""
                           << "position 0: expected \"[\"";
    QTest::newRow("no view") << "H:|-2-|"
                             << "position 6: expected \"[\"";
    QTest::newRow("unknown view") << "H:|[c]|"
                                  << "position 4: no view named \"c\"";
    QTest::newRow("unknown metric") << "V:[a]-wide-[b]"
                                    << "position 6: no metric named \"wide\"";
    QTest::newRow("open view") << "V:|[a"
                               << "position 5: expected \"]\"";
    QTest::newRow("open gap") << "V:[a]-2[b]"
                              << "position 7: expected \"-\"";
    QTest::newRow("open rules") << "V:[a(>=2]"
                                << "position 8: expected \")\"";
    QTest::newRow("no number") << "V:[a(>=)]"
                               << "position 7: expected a number or a name";
    QTest::newRow("priority") << "V:[a]-2@1001-[b]"
                              << "position 8: a priority is above 0 and at most 1000";
    QTest::newRow("after the end") << "V:[a]|x"
                                   << "position 6: text after the end";
}

void tst_ZelVisualFormat::malformedFormatIsAnAssertionAtItsPosition()
{
    QFETCH(QString, format);
    QFETCH(QString, problem);
    try {
        parse(format);
        QFAIL("no assertion");
    } catch (const ZelInternalInconsistencyException &exception) {
        QCOMPARE(exception.reason(), QStringLiteral("Malformed visual format \"%1\" at %2").arg(format, problem));
    }
}

void tst_ZelVisualFormat::edgeOfParentlessViewIsAnAssertion()
{
    QWidget orphan;
    QVERIFY_EXCEPTION_THROWN(ZelLayoutConstraint::constraintsWithVisualFormat("H:|[v]|", {{"v", &orphan}}),
                             ZelInternalInconsistencyException);
}

QTEST_MAIN(tst_ZelVisualFormat)
#include "tst_ZelVisualFormat.moc"
