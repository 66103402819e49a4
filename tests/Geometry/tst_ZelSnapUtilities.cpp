// SPDX-License-Identifier: MIT
#include "Geometry/ZelSnapUtilities.h"

#include <QImage>
#include <QPainter>
#include <QTest>
#include <QWidget>

namespace {

bool same(const QPointF &p, double x, double y)
{
    return p.x() == x && p.y() == y;
}

bool same(const QRectF &r, const QRectF &s)
{
    return same(r.topLeft(), s.x(), s.y()) && r.width() == s.width() && r.height() == s.height();
}

/// A widget on a screen of any ratio.
class RatioWidget : public QWidget
{
public:
    explicit RatioWidget(double ratio, QWidget *parent = nullptr)
        : QWidget(parent)
        , m_ratio(ratio)
    {
    }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        return metric == PdmDevicePixelRatioScaled ? int(m_ratio * devicePixelRatioFScale()) : QWidget::metric(metric);
    }

private:
    double m_ratio;
};

/// Keeps what was asserted, and returns.
class KeepingHandler : public ZelAssertionHandler
{
public:
    KeepingHandler()
        : m_former(setCurrent(this))
    {
    }
    ~KeepingHandler() override { setCurrent(m_former); }
    void handleFailure(const QString &location, const QString &message, const ZelSourcePlace &) override
    {
        failures.append(location + u": " + message);
    }
    QStringList failures;

private:
    ZelAssertionHandler *m_former;
};

/// The white picture in which the rectangle was painted black.
template<typename Snap> QImage painted(double ratio, const QTransform &transform, const Snap &snapped)
{
    QImage image(60, 60, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDevicePixelRatio(ratio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(transform);
    painter.fillRect(snapped(&painter), Qt::black);
    return image;
}

/// The pixels that are black; nothing if any is grey, or if they are no rectangle. The painter's own fixed-point
/// numbers may miss a pixel's coverage by one step of 255.
QRect blackPixels(const QImage &image)
{
    QRect bounds;
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int level = qGray(image.pixel(x, y));
            if (level > 1 && level < 254)
                return {};
            if (level <= 1) {
                bounds |= QRect(x, y, 1, 1);
                ++count;
            }
        }
    }
    return count == bounds.width() * bounds.height() ? bounds : QRect();
}

} // namespace

class TestSnapUtilities : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void snapsPointsAndSizes_data();
    void snapsPointsAndSizes();
    void rectanglesShrinkGrowOrRound_data();
    void rectanglesShrinkGrowOrRound();
    void unknownModeFailsForPointsAlone();
    void snappedRectangleFillsWholePixels_data();
    void snappedRectangleFillsWholePixels();
    void rotatedAndMirroredSpaces();
    void deviceNeedsPainterAndBlock();
    void backingCountsRatioAndPlace_data();
    void backingCountsRatioAndPlace();
    void snappingAgainChangesNothing_data();
    void snappingAgainChangesNothing();
};

void TestSnapUtilities::snapsPointsAndSizes_data()
{
    QTest::addColumn<ZelSnapMode>("mode");
    QTest::addColumn<bool>("halfPoints");
    QTest::addColumn<QPointF>("value");
    QTest::addColumn<QPointF>("expected");
    QTest::newRow("floor") << ZelSnapModeFloor << false << QPointF(1.9, -1.1) << QPointF(1, -2);
    QTest::newRow("ceil") << ZelSnapModeCeil << false << QPointF(1.1, -1.9) << QPointF(2, -1);
    QTest::newRow("round") << ZelSnapModeRound << false << QPointF(1.5, -0.5) << QPointF(2, -1);
    QTest::newRow("floor to centres") << ZelSnapModeFloor << true << QPointF(3, 0.4) << QPointF(2.5, -0.5);
    QTest::newRow("ceil to centres") << ZelSnapModeCeil << true << QPointF(3, 0.6) << QPointF(3.5, 1.5);
    QTest::newRow("round to centres") << ZelSnapModeRound << true << QPointF(3, 2.5) << QPointF(3.5, 2.5);
}

void TestSnapUtilities::snapsPointsAndSizes()
{
    QFETCH(const ZelSnapMode, mode);
    QFETCH(const bool, halfPoints);
    QFETCH(const QPointF, value);
    QFETCH(const QPointF, expected);
    QVERIFY(same(ZelSnapPoint(value, mode, halfPoints), expected.x(), expected.y()));
    const QSizeF size = ZelSnapSize({value.x(), value.y()}, mode, halfPoints);
    QVERIFY(size.width() == expected.x() && size.height() == expected.y());
}

void TestSnapUtilities::rectanglesShrinkGrowOrRound_data()
{
    QTest::addColumn<ZelSnapMode>("mode");
    QTest::addColumn<bool>("halfPoints");
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<QRectF>("expected");
    const QRectF rect(0.25, -1.75, 3, 4); // to 3.25 and 2.25
    const QRectF small(0.2, 0.2, 0.5, 0.5);
    QTest::newRow("shrink") << ZelSnapModeFloor << false << rect << QRectF(1, -1, 2, 3);
    QTest::newRow("shrink below a pixel") << ZelSnapModeFloor << false << small << QRectF(1, 1, -1, -1);
    QTest::newRow("grow") << ZelSnapModeCeil << false << rect << QRectF(0, -2, 4, 5);
    QTest::newRow("grow to a pixel") << ZelSnapModeCeil << false << small << QRectF(0, 0, 1, 1);
    QTest::newRow("round") << ZelSnapModeRound << false << rect << QRectF(0, -2, 3, 4);
    QTest::newRow("unknown mode rounds") << ZelSnapMode(7) << false << rect << QRectF(0, -2, 3, 4);
    QTest::newRow("to centres") << ZelSnapModeFloor << true << rect << QRectF(0.5, -1.5, 2, 3);
    QTest::newRow("halves go outwards") << ZelSnapModeRound << false << QRectF(-2.5, -0.5, 5, 3)
                                        << QRectF(-3, -1, 6, 4);
    QTest::newRow("beyond halves") << ZelSnapModeCeil << true << QRectF(-1e300, 0.2, 0x1p60, 1)
                                   << QRectF(-1e300, -0.5, 0, 2);
    QTest::newRow("negative size") << ZelSnapModeCeil << false << QRectF(3.25, 2.25, -3, -4) << QRectF(0, -2, 4, 5);
}

void TestSnapUtilities::rectanglesShrinkGrowOrRound()
{
    QFETCH(const ZelSnapMode, mode);
    QFETCH(const bool, halfPoints);
    QFETCH(const QRectF, rect);
    QFETCH(const QRectF, expected);
    QVERIFY(same(ZelSnapRect(rect, mode, halfPoints), expected));
}

void TestSnapUtilities::unknownModeFailsForPointsAlone()
{
    KeepingHandler handler;
    QVERIFY(same(ZelSnapPoint({1.5, 2.5}, ZelSnapMode(7), false), 1.5, 2.5));
    QCOMPARE(handler.failures.value(0), "Geometry/ZelSnapUtilities: Unexpected case");
    handler.failures.clear();
    ZelSnapRect({0, 0, 1.5, 1}, ZelSnapMode(7), true);
    QVERIFY(handler.failures.isEmpty());
}

void TestSnapUtilities::snappedRectangleFillsWholePixels_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<ZelSnapMode>("mode");
    QTest::addColumn<QRect>("pixels");
    // The rectangle (3.3, 4.7, 6.6, 8) after a move by (1.1, 0.3): (4.4, 5, 6.6, 8).
    QTest::newRow("1, shrink") << 1.0 << ZelSnapModeFloor << QRect(QPoint(5, 5), QPoint(10, 12));
    QTest::newRow("1, grow") << 1.0 << ZelSnapModeCeil << QRect(QPoint(4, 5), QPoint(10, 12));
    QTest::newRow("1.25, shrink") << 1.25 << ZelSnapModeFloor << QRect(QPoint(6, 7), QPoint(12, 15));
    QTest::newRow("1.25, grow") << 1.25 << ZelSnapModeCeil << QRect(QPoint(5, 6), QPoint(13, 16));
    QTest::newRow("1.25, round") << 1.25 << ZelSnapModeRound << QRect(QPoint(6, 6), QPoint(13, 15));
    QTest::newRow("1.5, shrink") << 1.5 << ZelSnapModeFloor << QRect(QPoint(7, 8), QPoint(15, 18));
    QTest::newRow("1.5, grow") << 1.5 << ZelSnapModeCeil << QRect(QPoint(6, 7), QPoint(16, 19));
    QTest::newRow("2, round") << 2.0 << ZelSnapModeRound << QRect(QPoint(9, 10), QPoint(21, 25));
    QTest::newRow("3, round") << 3.0 << ZelSnapModeRound << QRect(QPoint(13, 15), QPoint(32, 38));
}

void TestSnapUtilities::snappedRectangleFillsWholePixels()
{
    QFETCH(const double, ratio);
    QFETCH(const ZelSnapMode, mode);
    QFETCH(const QRect, pixels);
    const QRectF rect(3.3, 4.7, 6.6, 8);
    const QTransform moved = QTransform::fromTranslate(1.1, 0.3);
    const QImage image =
        painted(ratio, moved, [&](QPainter *p) { return ZelSnapRectInDeviceSpace(p, rect, mode, false); });
    QCOMPARE(blackPixels(image), pixels);
    QVERIFY(blackPixels(painted(ratio, moved, [&](QPainter *) { return rect; })).isNull()); // it is grey otherwise
}

void TestSnapUtilities::rotatedAndMirroredSpaces()
{
    const QRectF rect(3.3, 4.6, 6.5, 8);
    const auto snapped = [&](QPainter *p) { return ZelSnapRectInDeviceSpace(p, rect, ZelSnapModeCeil, false); };
    QTransform mirrored(1.5, 0, 0, -1.5, 0, 50);
    QCOMPARE(blackPixels(painted(1, mirrored, snapped)), QRect(QPoint(4, 31), QPoint(14, 43)));
    QTransform turned = QTransform::fromTranslate(40, 0).rotate(90);
    QCOMPARE(blackPixels(painted(1, turned, snapped)), QRect(QPoint(27, 3), QPoint(35, 9)));

    QImage image(10, 10, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setTransform(mirrored);
    const QSizeF size = ZelSnapSizeInDeviceSpace(&painter, {3, 3}, ZelSnapModeFloor, false); // 4.5 by -4.5 pixels
    QVERIFY(size.width() == 4 / 1.5 && size.height() == 5 / 1.5);
    const QRectF small = ZelSnapRectInDeviceSpace(&painter, {0.2, 0.2, 0.2, 0.2}, ZelSnapModeFloor, false);
    QVERIFY(small.width() < 0 && small.height() < 0);
    painter.setTransform(QTransform::fromScale(0, 0));
    QVERIFY(same(ZelSnapPointInDeviceSpace(&painter, {1.2, 3.4}, ZelSnapModeFloor, false), 1.2, 3.4));
}

void TestSnapUtilities::deviceNeedsPainterAndBlock()
{
    QImage image(10, 10, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    QPainter painter(&image);
    QVERIFY(same(ZelTransformPointInDeviceSpace(&painter, {1, 2}, [](const QPointF &p) { return p + QPointF(1, 5); }),
                 1.5, 4.5));

    KeepingHandler handler;
    QPainter idle;
    QVERIFY(same(ZelSnapPointInDeviceSpace(nullptr, {1.2, 3.4}, ZelSnapModeFloor, false), 1.2, 3.4));
    ZelTransformSizeInDeviceSpace(&idle, {1, 2}, [](const QSizeF &s) { return s; });
    QVERIFY(same(ZelTransformRectInDeviceSpace(&painter, {1, 2, 3, 4}, {}), {1, 2, 3, 4}));
    QVERIFY(same(ZelSnapUtilities(nullptr).transformPointInBacking({1, 2}, {}), 1, 2));
    const QStringList expected{
        "CGPoint ZelTransformPointInDeviceSpace(CGContextRef, CGPoint, __strong ZelPointTransformBlock): Missing "
        "context",
        "CGSize ZelTransformSizeInDeviceSpace(CGContextRef, CGSize, __strong ZelSizeTransformBlock): Missing context",
        "CGRect ZelTransformRectInDeviceSpace(CGContextRef, CGRect, __strong ZelRectTransformBlock): "
        "Missing dispatch block",
        "Geometry/ZelSnapUtilities: Invalid parameter not satisfying: block"};
    QCOMPARE(handler.failures, expected);
}

void TestSnapUtilities::backingCountsRatioAndPlace_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QPointF>("inWindow"); // the point (10.3, 10.8), snapped downwards
    QTest::addColumn<QPointF>("inChild");  // in a child at (1, 2)
    QTest::newRow("1") << 1.0 << QPointF(10, 10) << QPointF(10, 10);
    QTest::newRow("1.25") << 1.25 << QPointF(9.6, 10.4) << QPointF(10.2, 10.8);
    QTest::newRow("1.5") << 1.5 << QPointF(10, 32 / 3.0) << QPointF(29 / 3.0, 32 / 3.0);
    QTest::newRow("2") << 2.0 << QPointF(10, 10.5) << QPointF(10, 10.5);
}

void TestSnapUtilities::backingCountsRatioAndPlace()
{
    QFETCH(const double, ratio);
    QFETCH(const QPointF, inWindow);
    QFETCH(const QPointF, inChild);
    RatioWidget window(ratio);
    auto *child = new RatioWidget(ratio, &window);
    child->setGeometry(1, 2, 50, 50);
    QCOMPARE(ZelSnapUtilities(&window).snapPointInBacking({10.3, 10.8}, ZelSnapModeFloor, false), inWindow);
    QCOMPARE(ZelSnapUtilities(child).snapPointInBacking({10.3, 10.8}, ZelSnapModeFloor, false), inChild);
    // A size has no place.
    const QSizeF size = ZelSnapUtilities(child).snapSizeInBacking({10.3, 10.8}, ZelSnapModeFloor, false);
    QCOMPARE(QPointF(size.width(), size.height()), inWindow);
    const QRectF rect = ZelSnapUtilities(child).snapRectInBacking({10.3, 10.8, 40, 40}, ZelSnapModeCeil, false);
    QCOMPARE(rect.topLeft(), inChild);
    QVERIFY(rect.right() >= 50.3 && rect.right() < 50.3 + 1 / ratio);
}

void TestSnapUtilities::snappingAgainChangesNothing_data()
{
    QTest::addColumn<double>("ratio");
    for (double ratio : {1.25, 1.5, 2.0, 3.0})
        QTest::addRow("%g", ratio) << ratio;
}

void TestSnapUtilities::snappingAgainChangesNothing()
{
    QFETCH(const double, ratio);
    RatioWidget window(ratio);
    const ZelSnapUtilities snap(&window);
    for (double x = -100; x < 100; x += 0.37) {
        for (ZelSnapMode mode : {ZelSnapModeFloor, ZelSnapModeCeil, ZelSnapModeRound}) {
            const QPointF once = snap.snapPointInBacking({x, 0}, mode, false);
            const QPointF twice = snap.snapPointInBacking(once, mode, false);
            QVERIFY2(once.x() == twice.x(), qPrintable(QString::number(x)));
        }
    }
}

QTEST_MAIN(TestSnapUtilities)
#include "tst_ZelSnapUtilities.moc"
