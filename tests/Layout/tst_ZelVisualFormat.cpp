// SPDX-License-Identifier: MIT
#include "Core/Errors/ZelException.h"
#include "Layout/ZelLayoutConstraint.h"

#include <QTest>
#include <limits>

using Constraint = ZelLayoutConstraint;

class tst_ZelVisualFormat : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        m_superview.setObjectName("super");
        for (const char *name : {"a", "b", "label_2"}) {
            m_views.insert(name, new QWidget(&m_superview));
            m_views.value(name)->setObjectName(name);
        }
    }

    void aFormatGivesConstraints()
    {
        const QString rows[][2]{
            {"H:|-2-[a]-2-|", "a.leading = super.leading + 2; a.trailing = super.trailing - 2"},
            {"V:|[a][b]|", "a.top = super.top; b.top = a.bottom; b.bottom = super.bottom"},
            {"|-[a]-[b]-|",
             "a.leading = super.leading + 20; b.leading = a.trailing + 8; b.trailing = super.trailing - 20"},
            {"V:[a]-0@250-|", "a.bottom = super.bottom @250"},
            {"V:|-2-[a]", "a.top = super.top + 2"},
            {"H:|[label_2(79)]", "label_2.width = 79; label_2.leading = super.leading"},
            {"V:|[a]-(-2)-[b]-2-|", "a.top = super.top; b.top = a.bottom - 2; b.bottom = super.bottom - 2"},
            {"V:|-0@250-[a]-0@1000-|", "a.top = super.top @250; a.bottom = super.bottom"},
            {"H:[b(==16)]-4-[a]", "b.width = 16; a.leading = b.trailing + 4"},
            {"H:[a(b@750)]", "a.width = b.width @750"},
            {"V:[a(>=20,<=40.5@low)]", "a.height >= 20; a.height <= 40.5 @250"},
            {"H:[a]-(>=gap,==10@200)-[b]", "b.leading >= a.trailing + 5; b.leading = a.trailing + 10 @200"},
            {"H:[a]-(>=3)-|", "a.trailing <= super.trailing - 3"},
            {"V:|-gap-[a]-gap@low-[b]", "a.top = super.top + 5; b.top = a.bottom + 5 @250"}};
        for (const auto &[format, constraints] : rows) {
            QStringList texts;
            for (const Constraint::Ptr &constraint : parse(format))
                texts.append(constraint->description());
            QCOMPARE(texts.join("; "), constraints);
        }
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
        for (const char *format : {"H:|[v]|", "H:[v]|"})
            QVERIFY(asserted([&] {
                        Constraint::constraintsWithVisualFormat(format, {{"v", &orphan}});
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
        const auto none = Constraint::NotAnAttribute;
        const auto equal = Constraint::Equal;
        QVERIFY(refuses(nullptr, Constraint::Left, equal, a, Constraint::Left));
        QVERIFY(refuses(a, none, equal, b, Constraint::Left));
        QVERIFY(refuses(a, Constraint::Left, equal, b, none));
        QVERIFY(refuses(a, Constraint::Left, equal, nullptr, Constraint::Left));
        QVERIFY(refuses(a, Constraint::Left, equal, b, Constraint::Left, infinite));
        QVERIFY(refuses(a, Constraint::Left, equal, b, Constraint::Left, 1.0, infinite));
        QVERIFY(refuses(a, Constraint::Left, equal, b, Constraint::Left, 1.0, 0.0, 0.F));
        QVERIFY(refuses(a, Constraint::Left, equal, b, Constraint::Left, 1.0, 0.0, 1000.5F));
        QString names;
        for (const bool isVertical : {false, true}) {
            for (int i = Constraint::Left; i <= Constraint::Baseline; ++i) {
                const auto attribute = Constraint::Attribute(i);
                const auto other = isVertical ? Constraint::Top : Constraint::Left;
                if (const bool isRefused = refuses(a, attribute, equal, b, other); !isRefused)
                    names +=
                        Constraint::constraintWithItem(a, attribute, equal, b, other, 2, 1, 5)->description() + '\n';
            }
        }
        QCOMPARE(names.count('\n'), 11);
        QVERIFY(names.contains("a.centerX = 2 * b.left + 1 @5\n") && names.contains("a.baseline = 2 * b.top + 1 @5\n"));
        const auto constraint = Constraint::constraintWithItem(a, Constraint::Width, equal, nullptr, none, 1, 7);
        QVERIFY(!asserted([&] { constraint->setConstant(infinite); }).isEmpty());
        QVERIFY(!asserted([&] { constraint->setPriority(0); }).isEmpty());
        QCOMPARE(constraint->description(), "a.width = 7");
    }

private:
    QList<Constraint::Ptr> parse(const QString &format) const
    {
        return Constraint::constraintsWithVisualFormat(format, m_views, {{"gap", 5}, {"low", 250}});
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
