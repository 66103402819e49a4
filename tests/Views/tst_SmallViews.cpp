// SPDX-License-Identifier: MIT
#include "Controls/Cells/ZelResizableSegmentedControlView.h"
#include "Controls/Fields/ZelBorderedTextField.h"
#include "Controls/ZelFocusRingOverlay.h"
#include "Controls/ZelTitleBarButton.h"
#include "Support/TableRow.h"
#include "Support/User.h"
#include "Views/ZelEmptyView.h"
#include "Views/ZelScrollView.h"
#include "Views/ZelSeparator.h"
#include "Views/ZelVerticalStackView.h"

namespace {
const QColor g_green(0, 200, 0);

/// Two fields, one in a frame, in an active window.
struct Form : QWidget
{
    Form()
    {
        resize(300, 200);
        frame->setGeometry(20, 20, 200, 100);
        first->setGeometry(10, 10, 80, 20);
        second->setGeometry(20, 150, 80, 20);
        User::open(this);
        first->setFocus();
    }
    QRect shownRing() const { return ring->isVisible() ? ring->geometry() : QRect(); }

    QWidget *frame = new QWidget(this);
    QLineEdit *first = new QLineEdit(frame);
    QLineEdit *second = new QLineEdit(this);
    ZelFocusRingOverlay *ring = new ZelFocusRingOverlay(this);
};

/// A shown stack that scrolls.
struct ScrolledStack
{
    ScrolledStack(const QSize &size, const QList<QWidget *> &views, QStyle *style = nullptr)
    {
        view.verticalScrollBar()->setStyle(style);
        stack->setSubviews(views);
        view.setDocumentView(stack);
        view.resize(size);
        User::open(&view);
    }
    ZelScrollView view;
    ZelVerticalStackView *stack = new ZelVerticalStackView;
};

struct PaintCounter : QObject
{
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
    int paints = 0;
};
} // namespace

class tst_SmallViews : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theRingGoesRoundTheFocus()
    {
        Form form;
        QCOMPARE(form.ring->widget(), form.first);
        QCOMPARE(form.shownRing(), QRect(28, 28, 84, 24));
        form.frame->move(40, 20); // and the field with it
        QCOMPARE(form.shownRing(), QRect(48, 28, 84, 24));
        form.second->setFocus();
        QCOMPARE(form.shownRing(), QRect(18, 148, 84, 24));
        form.ring->setRingWidth(3);
        QCOMPARE(form.shownRing(), QRect(17, 147, 86, 26));
        form.ring->setColor(g_green);
        const QImage image = form.grab().toImage();
        for (const QPoint side : {QPoint(60, 148), QPoint(60, 171), QPoint(18, 160), QPoint(101, 160)})
            QCOMPARE(image.pixelColor(side), g_green);
        QVERIFY(form.childAt(60, 160) == form.second); // clicks go through
        // It goes round what it is told to, too.
        form.ring->setRingedWidget([&form](QWidget *widget) { return widget == form.first ? form.frame : nullptr; });
        QVERIFY(!form.ring->widget() && !form.ring->isVisible());
        form.first->setFocus();
        QCOMPARE(form.ring->widget(), form.frame);
        auto *mark = new QWidget(&form); // that is no part of the field
        mark->show();
        form.ring->setRingedWidget([mark](QWidget *) { return mark; });
        mark->setParent(form.frame);
        QVERIFY(!form.ring->isVisible());
        mark->show();
        QVERIFY(form.ring->isVisible() && form.ring->widget() == mark);
        delete mark; // which does not change the focus
        QVERIFY(!form.ring->isVisible());
        form.ring->setRingedWidget(nullptr);
        QVERIFY(form.ring->isVisible());
        const auto other = std::make_unique<Form>(); // moved into another window, it is out of the ring's reach
        form.first->setParent(other.get());
        QVERIFY(!form.ring->isVisible());
        // In a scroll area it is cut off with its widget.
        auto *area = new QScrollArea(&form);
        area->setFrameShape(QFrame::NoFrame);
        area->setGeometry(20, 20, 200, 60);
        area->setWidget(new QWidget);
        area->widget()->resize(150, 400);
        form.second->setParent(area->widget());
        form.second->move(10, 10);
        form.second->show();
        area->show();
        User::activate(&form);
        form.second->setFocus();
        for (const auto &[scrolled, ring] :
             {std::pair(0, QRect(27, 27, 86, 26)), {20, {27, 20, 86, 13}}, {200, QRect()}}) {
            area->verticalScrollBar()->setValue(scrolled);
            QCOMPARE(form.shownRing(), ring);
        }
    }

    void linesLieAlongTheirEdges()
    {
        const std::pair<Qt::Edges, int> rows[] = {
            {Qt::TopEdge | Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge, 1}, {Qt::BottomEdge, 3}, {{}, 2}};
        for (const auto &[edges, width] : rows) {
            ZelBorderedTextField field;
            field.setBorderColor(g_green);
            field.setBorderWidth(width);
            field.setBorderEdges(edges);
            field.resize(80, field.sizeHint().height());
            field.setObjectValue(QStringLiteral("Text"));
            const QImage image = field.grab().toImage();
            const QPoint middle = image.rect().center();
            const std::tuple<Qt::Edge, QPoint, QPoint> lines[] = {
                {Qt::TopEdge, {middle.x(), 0}, {0, 1}},
                {Qt::BottomEdge, {middle.x(), image.height() - 1}, {0, -1}},
                {Qt::LeftEdge, {0, middle.y()}, {1, 0}},
                {Qt::RightEdge, {image.width() - 1, middle.y()}, {-1, 0}}};
            for (const auto &[edge, start, step] : lines) {
                int seen = 0;
                for (QPoint place = start; image.pixelColor(place) == g_green; place += step)
                    ++seen;
                QCOMPARE(seen, edges & edge ? width : 0);
            }
        }
    }

    void separatorsLieAcross()
    {
        const std::tuple<Qt::Orientation, QSize, QRect> rows[] = {{Qt::Horizontal, {12, 5}, {4, 3, 28, 1}},
                                                                  {Qt::Vertical, {13, 4}, {4, 3, 1, 36}}};
        ZelSeparator separator(Qt::Vertical);
        separator.setEdgeInsets({4, 3, 8, 1});
        QImage image(40, 40, QImage::Format_RGB32);
        separator.resize(image.size());
        for (const auto &[orientation, size, line] : rows) {
            separator.setOrientation(orientation);
            QCOMPARE(separator.sizeHint(), size);
            QCOMPARE(separator.sizePolicy().transposed().horizontalPolicy() == QSizePolicy::Fixed,
                     orientation == Qt::Horizontal);
            int lightness = -1;
            for (quint32 level = 0; level < 4; ++level) {
                separator.setLevel(level);
                image.fill(Qt::white);
                separator.render(&image, {}, {}, QWidget::DrawChildren);
                QRegion drawn;
                for (int y = 0; y < image.height(); ++y)
                    for (int x = 0; x < image.width(); ++x)
                        if (image.pixelColor(x, y) != Qt::white)
                            drawn += QRect(x, y, 1, 1);
                QCOMPARE(drawn, QRegion(line));
                const int former = std::exchange(lightness, image.pixelColor(line.topLeft()).lightness());
                QVERIFY(level < 3 ? lightness > former : lightness == former); // fainter, as far as there are levels
            }
        }
    }

    void whatIsFaintFollowsTheWindow()
    {
        for (QWidget *widget :
             {static_cast<QWidget *>(new ZelBorderedTextField), static_cast<QWidget *>(new ZelSeparator),
              static_cast<QWidget *>(new ZelTitleBarButton)}) {
            const TableRow row(QString::fromLatin1(widget->metaObject()->className()));
            Form form;
            widget->setParent(&form);
            widget->setPalette(QPalette(Qt::lightGray)); // the same in windows that are not active
            widget->resize(20, 20);
            PaintCounter counter(widget);
            widget->show();
            QTRY_VERIFY(counter.paints > 0);
            counter.paints = 0;
            QApplication::setActiveWindow(nullptr);
            QVERIFY(!form.isActiveWindow());
            QTRY_VERIFY_WITH_TIMEOUT(counter.paints > 0, 1000);
        }
    }

    void segmentsShareTheWidth()
    {
        auto *control = new ZelSegmentedControl;
        control->setSegmentCount(3);
        ZelResizableSegmentedControlView view(control);
        QCOMPARE(view.sizeHint(), control->sizeHint());
        QCOMPARE(view.minimumSizeHint(), control->minimumSizeHint());
        QCOMPARE(view.baselineOffsetForHeight(20), control->baselineOffsetForHeight(20));
        view.resize(300, 22);
        view.show();
        QCOMPARE(control->geometry(), view.rect());
        for (const auto direction : {Qt::RightToLeft, Qt::LeftToRight}) { // within two points of the edges
            control->setLayoutDirection(direction);
            const QRect all = control->segmentRect(0) | control->segmentRect(1) | control->segmentRect(2);
            QCOMPARE(all, control->rect().adjusted(2, 2, -2, -2));
        }
        QCOMPARE(control->segmentRect(1).width(), 99);
        control->setSegmentCount(30);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(view.sizeHint(), control->sizeHint());
        // They may replace themselves.
        const QPointer<QWidget> former = control;
        connect(control, &ZelSegmentedControl::action, &view,
                [&view] { view.setSegmentedControl(new ZelSegmentedControl); });
        QTest::mouseClick(control, Qt::LeftButton, {}, control->segmentRect(1).center());
        QVERIFY(view.segmentedControl() != former && !view.isAncestorOf(former));
        QTRY_VERIFY(!former);
        QCOMPARE(view.sizeHint(), view.segmentedControl()->sizeHint());
        delete view.segmentedControl();
        QCOMPARE(view.baselineOffsetForHeight(20), 20.0);
    }

    void aScrolledDocumentFollowsTheWidth()
    {
        auto *label = new QLabel(QString("word ").repeated(60));
        label->setWordWrap(true);
        auto *box = new QWidget;
        box->setFixedHeight(50);
        ScrolledStack scrolled({300, 400}, {label, box});
        QWidget *viewport = scrolled.view.viewport();
        QVERIFY(scrolled.stack->isInstalled());
        QCOMPARE(scrolled.stack->size(), QSize(viewport->width(), label->heightForWidth(300) + 50));
        scrolled.view.resize(150, 400);
        QCOMPARE(scrolled.stack->width(), viewport->width());
        QTRY_COMPARE(scrolled.stack->height(), label->heightForWidth(viewport->width()) + 50);
        box->setFixedHeight(1000);
        QTRY_VERIFY(scrolled.stack->height() > 1000);
        QTRY_VERIFY(scrolled.view.verticalScrollBar()->isVisible()); // the turn after the height changed
        QTRY_COMPARE(scrolled.stack->width(), viewport->width());
        box->hide();
        QTRY_COMPARE(scrolled.stack->width(), 150);
        // Scroll bars that lie over the document need not take the width that they have.
        struct Style : QProxyStyle
        {
            int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
            {
                return metric == PM_ScrollView_ScrollBarOverlap ? 1 : QProxyStyle::pixelMetric(metric, option, widget);
            }
        } style;
        auto *other = new QWidget;
        other->setFixedHeight(50);
        const ScrolledStack below({150, 400}, {other}, &style);
        other->setFixedHeight(500);
        QTRY_VERIFY(below.view.verticalScrollBar()->isVisible());
        QCOMPARE(below.stack->width(), below.view.viewport()->width());
    }

    void theWheelScrollsOverFieldsWithoutFocus()
    {
        QSpinBox *fields[] = {new QSpinBox, new QSpinBox};
        auto *filler = new QWidget;
        filler->setFixedHeight(1000);
        ScrolledStack scrolled({200, 200}, {fields[0], fields[1], filler});
        fields[0]->setFocus();
        for (QSpinBox *field : fields) { // one that has the focus keeps the wheel
            field->setValue(50);
            scrolled.view.verticalScrollBar()->setValue(0);
            User::turnWheel(field, -120);
            QVERIFY(field->value() == 50 || field == fields[0]);
            QCOMPARE(scrolled.view.verticalScrollBar()->value() > 0, field == fields[1]);
        }
    }

    void anEmptyViewDrawsItsBadge()
    {
        ZelEmptyView view;
        view.resize(300, 100);
        const auto badgeHeight = [&view] { // between the title and the left edge of the badge
            const int x = (view.width() - QFontMetrics(view.titleFont()).horizontalAdvance(view.title())) / 2 - 8;
            const QImage image = view.grab().toImage();
            int height = 0;
            for (int y = 0; y < view.height(); ++y)
                height += image.pixel(x, y) == view.titleBackgroundColor().toQColor().rgb();
            return height;
        };
        const int height = int(QFontMetricsF(view.titleFont()).size(0, view.title()).height()) + 10;
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        PaintCounter counter(&view);
        const std::tuple<std::function<void()>, bool, int> changes[] = {
            // whether it redraws, and the badge
            {[&] { new QWidget(&view); }, true, height},
            {[&] { view.setForceShow(false); }, true, 0},
            {[&] { delete view.subviews().first(); }, true, height},
            {[&] { view.setTitleColor(QColor(Qt::red)); }, true, height},
            {[&] { view.setTitleBackgroundColor(QColor(Qt::red)); }, false, height},
            {[&] { view.setTitle("other"); }, true, height},
            {[&] { view.setTitleFont(QFont("Sans", 3)); }, true, -1}};
        QCOMPARE(badgeHeight(), height);
        for (const auto &[change, redraws, badge] : changes) {
            QTest::qWait(20);
            counter.paints = 0;
            change();
            QTest::qWait(20);
            QCOMPARE(counter.paints > 0, redraws);
            if (badge >= 0)
                QCOMPARE(badgeHeight(), badge);
        }
    }
};
QTEST_MAIN(tst_SmallViews)
#include "tst_SmallViews.moc"
