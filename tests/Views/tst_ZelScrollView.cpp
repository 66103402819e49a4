// SPDX-License-Identifier: MIT
#include "Views/ZelScrollView.h"

#include "Views/ZelVerticalStackView.h"

#include <QLabel>
#include <QProxyStyle>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

class tst_ZelScrollView : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theDocumentFollowsTheWidth()
    {
        ZelScrollView scrollView;
        auto *stack = new ZelVerticalStackView;
        auto *label = new QLabel(QString("word ").repeated(60));
        label->setWordWrap(true);
        auto *box = new QWidget;
        box->setFixedHeight(50);
        stack->setSubviews({label, box});
        scrollView.setDocumentView(stack);
        scrollView.resize(300, 400);
        scrollView.show();
        QVERIFY(QTest::qWaitForWindowExposed(&scrollView));
        QVERIFY(stack->isInstalled());
        QCOMPARE(stack->width(), scrollView.viewport()->width());
        const int wide = stack->height();
        QCOMPARE(wide, label->heightForWidth(300) + 50);
        scrollView.resize(150, 400);
        QCOMPARE(stack->width(), scrollView.viewport()->width());
        QTRY_VERIFY(stack->height() > wide);
        box->setFixedHeight(1000);
        QTRY_VERIFY(stack->height() > 1000);
        QTRY_VERIFY(scrollView.verticalScrollBar()->isVisible()); // the turn after the height changed
        QTRY_COMPARE(stack->width(), scrollView.viewport()->width());
        box->hide();
        QTRY_COMPARE(stack->width(), 150);
    }

    /// Which need not take the width that they have.
    void scrollBarsMayLieOverTheDocument()
    {
        class Style : public QProxyStyle
        {
        public:
            int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
            {
                return metric == PM_ScrollView_ScrollBarOverlap ? 10 : QProxyStyle::pixelMetric(metric, option, widget);
            }
        } style;
        ZelScrollView scrollView;
        scrollView.setStyle(&style);
        scrollView.verticalScrollBar()->setStyle(&style);
        auto *stack = new ZelVerticalStackView;
        auto *box = new QWidget;
        box->setFixedHeight(50);
        stack->setSubviews({box});
        scrollView.setDocumentView(stack);
        scrollView.resize(150, 400);
        scrollView.show();
        QVERIFY(QTest::qWaitForWindowExposed(&scrollView));
        box->setFixedHeight(500);
        QTRY_VERIFY(scrollView.verticalScrollBar()->isVisible());
        QCOMPARE(stack->width(), scrollView.viewport()->width());
    }

    void theWheelScrollsOverFieldsWithoutFocus()
    {
        ZelScrollView scrollView;
        auto *stack = new ZelVerticalStackView;
        auto *first = new QSpinBox;
        auto *second = new QSpinBox;
        auto *filler = new QWidget;
        filler->setFixedHeight(1000);
        for (QSpinBox *field : {first, second})
            field->setValue(50);
        stack->setSubviews({first, second, filler});
        scrollView.setDocumentView(stack);
        scrollView.resize(200, 200);
        scrollView.show();
        QVERIFY(QTest::qWaitForWindowActive(&scrollView));
        first->setFocus();
        const auto wheel = [&](QSpinBox *field, int delta) {
            const QPoint position = field->mapTo(&scrollView, field->rect().center());
            QWheelEvent event(position, scrollView.mapToGlobal(position), QPoint(), QPoint(0, delta), {}, {},
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(scrollView.windowHandle(), &event);
        };
        wheel(second, -120);
        QCOMPARE(second->value(), 50);
        QVERIFY(scrollView.verticalScrollBar()->value() > 0);
        scrollView.verticalScrollBar()->setValue(0);
        wheel(first, -120); // has the focus, and keeps the wheel
        QCOMPARE(scrollView.verticalScrollBar()->value(), 0);
    }
};

QTEST_MAIN(tst_ZelScrollView)
#include "tst_ZelScrollView.moc"
