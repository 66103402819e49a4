// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelException.h"
#include "Layout/ZelLayoutConstraint.h"
#include <QTest>
#include <limits>

using Constraint = ZelLayoutConstraint;
using enum ZelLayoutConstraint::Attribute;
using enum ZelLayoutConstraint::Relation;

class tst_ZelVisualFormat : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        m_superview.setObjectName("super");
        for (const char *name : {"a", "b", "label_2"}) {
            (m_views[name] = new QWidget(&m_superview))->setObjectName(name);
        }
    }

    void aFormatGivesConstraints()
    {
        const QString rows[][2]{
            {"H:|-2-[a]-2-|", "a.leading = super.leading + 2; a.trailing = super.trailing - 2"},
            {"V:|[a][b]|", "a.top = super.top; b.top = a.bottom; b.bottom = super.bottom"},
            {"|-[a]-[b]-|",
             "a.leading = super.leading + 20; b.leading = a.trailing + 8; b.trailing = super.trailing - 20"},
            {"H:|[label_2(79)]", "label_2.width = 79; label_2.leading = super.leading"},
            {"V:|[a]-(-2)-[b]-2-|", "a.top = super.top; b.top = a.bottom - 2; b.bottom = super.bottom - 2"},
            {"V:|-0@250-[a]-0@1000-|", "a.top = super.top @250; a.bottom = super.bottom"},
            {"H:[b(==16)]-4-[a]", "b.width = 16; a.leading = b.trailing + 4"},
            {"H:[a(b@750)]", "a.width = b.width @750"},
            {"V:[a(>=20,<=40.5@low)]", "a.height >= 20; a.height <= 40.5 @250"},
            {"H:[a]-(>=gap,==10@200)-[b]", "b.leading >= a.trailing + 5; b.leading = a.trailing + 10 @200"},
            {"H:[a]-(>=3)-|", "a.trailing <= super.trailing - 3"},
            {"V:|-gap-[a]-gap@low-[b]", "a.top = super.top + 5; b.top = a.bottom + 5 @250"}};
        for (const auto &[format, constraints] : rows)
            QCOMPARE(parse(format), constraints);
    }

    void aMalformedFormatIsAnAssertionAtItsPosition()
    {
        const QString rows[][2]{{"", "0: expected \"[\""},
                                {"H:|-2-|", "6: expected \"[\""},
                                {"H:|[c]|", "4: no view named \"c\""},
                                {"V:[a]-wide-[b]", "6: no metric named \"wide\""},
                                {"V:|[a", "5: expected \"]\""},
                                {"V:[a]-2[b]", "7: expected \"-\""},
                                {"V:[a(>=2]", "8: expected \")\""},
                                {"V:[a(>=)]", "7: expected a number or a name"},
                                {"V:[a]-2@1001-[b]", "8: a priority is above 0 and at most 1000"},
                                {"V:[a]-2@0-[b]", "8: a priority is above 0 and at most 1000"},
                                {"V:[a]|x", "6: text after the end"}};
        for (const auto &[format, problem] : rows)
            QCOMPARE(asserted([&, text = format] { parse(text); }),
                     QString("Malformed visual format \"%1\" at position %2").arg(format, problem));
        QWidget orphan;
        const QHash<QString, QWidget *> views{{"v", &orphan}};
        for (const char *format : {"H:|[v]|", "H:[v]|"})
            QVERIFY(asserted([&] {
                        Constraint::constraintsWithVisualFormat(format, views);
                    }).endsWith("the first view has no parent"));
    }

    void aConstraintIsOfOneAxisAndOfFiniteNumbers()
    {
        QWidget *a = m_views.value("a"), *b = m_views.value("b");
        const double infinite = std::numeric_limits<double>::infinity();
        const auto refuses = [](auto... arguments) {
            return asserted([&] { Constraint::constraintWithItem(arguments...); })
                .startsWith("Invalid parameter not satisfying: ");
        };
        QVERIFY(refuses(nullptr, Left, Equal, a, Left));
        QVERIFY(refuses(a, NotAnAttribute, Equal, b, Left));
        QVERIFY(refuses(a, Left, Equal, b, NotAnAttribute));
        QVERIFY(refuses(a, Left, Equal, nullptr, Left));
        QVERIFY(refuses(a, Left, Equal, b, Left, infinite));
        QVERIFY(refuses(a, Left, Equal, b, Left, 1.0, infinite));
        QVERIFY(refuses(a, Left, Equal, b, Left, 1.0, 0.0, 0.F));
        QVERIFY(refuses(a, Left, Equal, b, Left, 1.0, 0.0, 1000.5F));
        QString names;
        for (const auto other : {Left, Top}) {
            for (int i = Left; i <= Baseline; ++i) {
                const auto attribute = Constraint::Attribute(i);
                if (!refuses(a, attribute, Equal, b, other))
                    names +=
                        Constraint::constraintWithItem(a, attribute, Equal, b, other, 2, 1, 5)->description() + ';';
            }
        }
        QCOMPARE(names.count(';'), 11);
        QVERIFY(names.contains("a.centerX = 2 * b.left + 1 @5;") && names.contains("a.baseline = 2 * b.top + 1 @5;"));
        const auto constraint = Constraint::constraintWithItem(a, Width, Equal, nullptr, NotAnAttribute, 1, 7);
        QVERIFY(!asserted([&] { constraint->setConstant(infinite); }).isEmpty());
        QVERIFY(!asserted([&] { constraint->setPriority(0); }).isEmpty());
        QCOMPARE(constraint->description(), "a.width = 7");
    }

private:
    /// Answers the constraints' descriptions.
    QString parse(const QString &format) const
    {
        QStringList texts;
        for (const auto &made : Constraint::constraintsWithVisualFormat(format, m_views, {{"gap", 5}, {"low", 250}}))
            texts.append(made->description());
        return texts.join("; ");
    }
    static QString asserted(const std::function<void()> &work)
    {
        try {
            work();
        } catch (const ZelInternalInconsistencyException &exception) {
            return exception.reason();
        }
        return {};
    }

    QWidget m_superview;
    QHash<QString, QWidget *> m_views;
};
QTEST_MAIN(tst_ZelVisualFormat)
#include "tst_ZelVisualFormat.moc"
