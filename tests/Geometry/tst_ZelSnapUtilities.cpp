// SPDX-License-Identifier: MIT
#include "Geometry/Digits.h"
#include "Geometry/ZelSnapUtilities.h"
#include "Support/Failures.h"
#include "Support/TableRow.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

namespace {

constexpr auto Floor = ZelSnapModeFloor;
constexpr auto Ceil = ZelSnapModeCeil;
constexpr auto Round = ZelSnapModeRound;
constexpr auto Unknown = ZelSnapMode(7);

/// A widget on a screen of any ratio.
class RatioWidget : public QWidget
{
public:
    using QWidget::QWidget;
    double ratio = 1;

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        return metric == PdmDevicePixelRatioScaled ? int(ratio * devicePixelRatioFScale()) : QWidget::metric(metric);
    }
};

} // namespace

class TestSnapUtilities : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void snapsToWholeNumbersOrCentres()
    {
        const auto checkPoint = [](ZelSnapMode mode, bool halfPoints, const QPointF &value, const char *expected) {
            QCOMPARE(text(ZelSnapPoint(value, mode, halfPoints)), expected);
            QCOMPARE(text(ZelSnapSize({value.x(), value.y()}, mode, halfPoints)), expected);
        };
        checkPoint(Floor, false, {1.9, -1.1}, "1 -2");
        checkPoint(Ceil, false, {1.1, -1.9}, "2 -1");
        checkPoint(Round, false, {1.5, -0.5}, "2 -1");
        checkPoint(Floor, true, {3, 0.4}, "2.5 -0.5");
        checkPoint(Ceil, true, {3, 0.6}, "3.5 1.5");
        checkPoint(Round, true, {3, 2.5}, "3.5 2.5");
        const auto checkRect = [](ZelSnapMode mode, bool halfPoints, const QRectF &value, const char *expected) {
            QCOMPARE(text(ZelSnapRect(value, mode, halfPoints)), expected);
        };
        Failures failures;
        const QRectF rect(0.25, -1.75, 3, 4); // to 3.25 and 2.25
        const QRectF small(0.2, 0.2, 0.5, 0.5);
        checkRect(Floor, false, rect, "1 -1 2 3");
        checkRect(Floor, false, small, "1 1 -1 -1"); // less than a pixel
        checkRect(Ceil, false, rect, "0 -2 4 5");
        checkRect(Ceil, false, small, "0 0 1 1");
        checkRect(Round, false, rect, "0 -2 3 4");
        checkRect(Unknown, false, rect, "0 -2 3 4"); // rounds
        checkRect(Floor, true, rect, "0.5 -1.5 2 3");
        checkRect(Round, false, {-2.5, -0.5, 5, 3}, "-3 -1 6 4");            // halves go outwards
        checkRect(Ceil, true, {-1e300, 0.2, 0x1p60, 1}, "-1e+300 -0.5 0 2"); // beyond halves
        checkRect(Ceil, false, {3.25, 2.25, -3, -4}, "0 -2 4 5");            // a negative size
        QCOMPARE(failures.taken(), QStringList());
        checkPoint(Unknown, false, {1.5, 2.5}, "1.5 2.5");
        QCOMPARE(failures.taken(), QStringList(4, "Geometry/ZelSnapUtilities: Unexpected case"));
    }

    void snappedRectanglesFillWholePixels()
    {
        const QRectF rect(3.3, 4.7, 6.6, 8); // (4.4, 5, 6.6, 8) after the move
        const auto check = [&](double ratio, ZelSnapMode mode, const QRectF &pixels, const QTransform &transform) {
            const TableRow row(text(ratio, pixels));
            QImage image(60, 60, QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
            QPainter painter(&image);
            painter.setTransform(transform);
            const QRectF snapped = ZelSnapRectInDeviceSpace(&painter, rect, mode, false);
            QCOMPARE((transform * QTransform::fromScale(ratio, ratio)).mapRect(snapped), pixels);
        };
        const QTransform moved = QTransform::fromTranslate(1.1, 0.3), mirrored(1.5, 0, 0, -1.5, 0, 50);
        check(1, Ceil, {4, 5, 7, 8}, moved);
        check(1.25, Floor, {6, 7, 7, 9}, moved);
        check(1.25, Ceil, {5, 6, 9, 11}, moved);
        check(1.25, Round, {6, 6, 8, 10}, moved);
        check(1.5, Floor, {7, 8, 9, 11}, moved);
        check(1.5, Ceil, {6, 7, 11, 13}, moved);
        check(1, Ceil, {4, 30, 11, 13}, mirrored);
        check(1, Ceil, {27, 3, 9, 7}, QTransform::fromTranslate(40, 0).rotate(90));
        QImage image(10, 10, QImage::Format_RGB32);
        QPainter painter(&image);
        painter.setTransform(mirrored);
        const QSizeF size = ZelSnapSizeInDeviceSpace(&painter, {3, 3}, Floor, false); // 4.5 by -4.5 pixels
        QCOMPARE(text(size), text(QSizeF(4 / 1.5, 5 / 1.5)));
        const QRectF small = ZelSnapRectInDeviceSpace(&painter, {0.2, 0.2, 0.2, 0.2}, Floor, false);
        QVERIFY(small.width() < 0 && small.height() < 0);
        painter.setTransform(QTransform(0, 2, -2, 0, 5, 0)); // a quarter turn
        QCOMPARE(text(ZelSnapPointInDeviceSpace(&painter, {1.3, 2.4}, Ceil, false)), "1.5 2");
        QCOMPARE(text(ZelSnapSizeInDeviceSpace(&painter, {1.3, 2.4}, Floor, false)), "1 2.5");
        painter.setTransform(QTransform::fromScale(0, 0));
        QCOMPARE(text(ZelSnapPointInDeviceSpace(&painter, {1.2, 3.4}, Floor, false)), "1.2 3.4");
    }

    void deviceNeedsPainterAndBlock()
    {
        QImage image(10, 10, QImage::Format_RGB32);
        image.setDevicePixelRatio(2);
        QPainter painter(&image), idle;
        QCOMPARE(text(ZelTransformPointInDeviceSpace(&painter, {1, 2}, [](auto &p) { return p + QPointF(1, 5); })),
                 "1.5 4.5");
        Failures failures;
        QCOMPARE(text(ZelSnapPointInDeviceSpace(nullptr, {1.2, 3.4}, Floor, false)), "1.2 3.4");
        QCOMPARE(text(ZelTransformSizeInDeviceSpace(&idle, {1, 2}, [](const QSizeF &s) { return s * 2; })), "1 2");
        QCOMPARE(text(ZelTransformRectInDeviceSpace(&painter, {1, 2, 3, 4}, {})), "1 2 3 4");
        QCOMPARE(text(ZelSnapUtilities(nullptr).transformPointInBacking({1, 2}, {})), "1 2");
        const QString device = "CG%1 ZelTransform%1InDeviceSpace(CGContextRef, CG%1, __strong Zel%1TransformBlock): ";
        QCOMPARE(failures.seen,
                 (QStringList{device.arg("Point") + "Missing context", device.arg("Size") + "Missing context",
                              device.arg("Rect") + "Missing dispatch block",
                              "Geometry/ZelSnapUtilities: Invalid parameter not satisfying: block"}));
    }

    void backingCountsRatioAndPlace()
    {
        const auto check = [](double ratio, const QPointF &inWindow, const QPointF &inChild) {
            const TableRow row(text(ratio));
            RatioWidget window, child(&window);
            window.ratio = child.ratio = ratio;
            child.setGeometry(1, 2, 50, 50);
            const ZelSnapUtilities ofWindow(&window), ofChild(&child);
            QCOMPARE(ofWindow.snapPointInBacking({10.3, 10.8}, Floor, false), inWindow);
            QCOMPARE(ofChild.snapPointInBacking({10.3, 10.8}, Floor, false), inChild);
            // A size has no place.
            const QSizeF size = ofChild.snapSizeInBacking({10.3, 10.8}, Floor, false);
            QCOMPARE(QPointF(size.width(), size.height()), inWindow);
            const QRectF rect = ofChild.snapRectInBacking({10.3, 10.8, 40, 40}, Ceil, false);
            QCOMPARE(rect.topLeft(), inChild);
            QVERIFY(rect.right() >= 50.3 && rect.right() < 50.3 + 1 / ratio);
            for (double x = -100; x < 100; x += 0.37) { // snapping again changes nothing
                const QPointF once = ofWindow.snapPointInBacking({x, 0}, Ceil, false);
                QCOMPARE(text(ofWindow.snapPointInBacking(once, Ceil, false).x()), text(once.x()));
            }
        };
        check(1.25, {9.6, 10.4}, {10.2, 10.8});
        check(1.5, {10, 32 / 3.0}, {29 / 3.0, 32 / 3.0});
    }
};

QTEST_MAIN(TestSnapUtilities)
#include "tst_ZelSnapUtilities.moc"
