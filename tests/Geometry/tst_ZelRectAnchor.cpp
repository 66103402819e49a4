// SPDX-License-Identifier: MIT
#include "Geometry/ZelRectAnchor.h"

#include <QTest>

namespace {

constexpr auto NoAnchor = ZelRectAnchor(9);

/// QRectF's own comparison takes rectangles for equal that are not.
constexpr bool same(const QRectF &a, const QRectF &b)
{
    return a.x() == b.x() && a.y() == b.y() && a.width() == b.width() && a.height() == b.height();
}

constexpr bool same(const QPointF &a, const QPointF &b)
{
    return a.x() == b.x() && a.y() == b.y();
}

static_assert(same(CGRectSetSizeWidthForAnchor({0, 0, 10, 10}, ZelOriginMiddleCenter, 20), {-5, 0, 20, 10}));
static_assert(same(CGRectSetOriginXForAnchor({0, 0, 10, 10}, ZelOriginTopLeft, 4, true), {4, 0, 6, 10}));
static_assert(same(CGRectSetOriginXForAnchor({0, 0, 10, 10}, ZelOriginTopLeft, 4, false), {4, 0, 10, 10}));

} // namespace

class TestRectAnchor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyAnchor_data();
    void everyAnchor();
    void negativeSizeMixesStoredAndNormalisedEdges();
    void noAnchorReadsTheStoredOriginAndResizesNothing();
    void infiniteSizesStayInTheirAxis();
};

void TestRectAnchor::everyAnchor_data()
{
    QTest::addColumn<QPointF>("point");        // of the anchor of (10, 20, 40, 8)
    QTest::addColumn<QRectF>("resized");       // with the anchor moved by (4, -2) and the opposite corner kept
    QTest::addColumn<QRectF>("aboutItsPoint"); // with a size of 20 by 16
    QTest::newRow("top left") << QPointF(10, 20) << QRectF(14, 18, 36, 10) << QRectF(10, 20, 20, 16);
    QTest::newRow("top center") << QPointF(30, 20) << QRectF(14, 18, 40, 10) << QRectF(20, 20, 20, 16);
    QTest::newRow("top right") << QPointF(50, 20) << QRectF(10, 18, 44, 10) << QRectF(30, 20, 20, 16);
    QTest::newRow("middle left") << QPointF(10, 24) << QRectF(14, 18, 36, 8) << QRectF(10, 16, 20, 16);
    QTest::newRow("middle center") << QPointF(30, 24) << QRectF(14, 18, 40, 8) << QRectF(20, 16, 20, 16);
    QTest::newRow("middle right") << QPointF(50, 24) << QRectF(10, 18, 44, 8) << QRectF(30, 16, 20, 16);
    QTest::newRow("bottom left") << QPointF(10, 28) << QRectF(14, 20, 36, 6) << QRectF(10, 12, 20, 16);
    QTest::newRow("bottom center") << QPointF(30, 28) << QRectF(14, 20, 40, 6) << QRectF(20, 12, 20, 16);
    QTest::newRow("bottom right") << QPointF(50, 28) << QRectF(10, 20, 44, 6) << QRectF(30, 12, 20, 16);
}

void TestRectAnchor::everyAnchor()
{
    const QList<QByteArray> names{"top left",     "top center",  "top right",     "middle left", "middle center",
                                  "middle right", "bottom left", "bottom center", "bottom right"};
    const auto anchor = ZelRectAnchor(names.indexOf(QTest::currentDataTag()));
    const QRectF rect(10, 20, 40, 8);
    QFETCH(const QPointF, point);
    QFETCH(const QRectF, resized);
    QFETCH(const QRectF, aboutItsPoint);
    const QPointF target(point.x() + 4, point.y() - 2);

    QVERIFY(same(CGRectGetOriginForAnchor(anchor, rect), point));
    QVERIFY(same(CGRectSetOriginForAnchor(rect, anchor, target, true), resized));
    QVERIFY(same(CGRectSetOriginForAnchor(rect, anchor, target, false), QRectF(14, 18, 40, 8)));
    const QRectF sized = CGRectSetSizeForAnchor(rect, anchor, {20, 16});
    QVERIFY(same(sized, aboutItsPoint));
    QVERIFY(same(CGRectGetOriginForAnchor(anchor, sized), point));
}

void TestRectAnchor::negativeSizeMixesStoredAndNormalisedEdges()
{
    const QRectF rect(10, 20, -4, -6);
    QVERIFY(same(CGRectGetOriginForAnchor(ZelOriginTopLeft, rect), QPointF(10, 20)));
    QVERIFY(same(CGRectGetOriginForAnchor(ZelOriginMiddleCenter, rect), QPointF(8, 17)));
    QVERIFY(same(CGRectGetOriginForAnchor(ZelOriginBottomRight, rect), QPointF(10, 20)));
    QVERIFY(same(CGRectSetOriginXForAnchor(rect, ZelOriginMiddleRight, 13, true), QRectF(10, 20, -1, -6)));
    // Here the anchor of the stored size stays, not the one that is read.
    QVERIFY(same(CGRectSetSizeHeightForAnchor(rect, ZelOriginBottomRight, 2), QRectF(10, 12, -4, 2)));
}

void TestRectAnchor::noAnchorReadsTheStoredOriginAndResizesNothing()
{
    const QRectF rect(1, 2, 3, 4);
    QVERIFY(same(CGRectGetOriginForAnchor(NoAnchor, rect), QPointF(1, 2)));
    QVERIFY(same(CGRectSetOriginForAnchor(rect, NoAnchor, {50, 60}, true), rect));
    QVERIFY(same(CGRectSetSizeForAnchor(rect, NoAnchor, {30, 40}), QRectF(1, 2, 30, 40)));
    // Moving all of it needs no anchor: it goes by its stored origin.
    QVERIFY(same(CGRectSetOriginForAnchor(rect, NoAnchor, {50, 60}, false), QRectF(50, 60, 3, 4)));
}

void TestRectAnchor::infiniteSizesStayInTheirAxis()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const QRectF sized = CGRectSetSizeWidthForAnchor({1, 2, 3, 4}, ZelOriginBottomLeft, infinity);
    QVERIFY(same(sized, QRectF(1, 2, infinity, 4)));
    const QRectF moved = CGRectSetOriginXForAnchor({1, 2, 3, 4}, ZelOriginMiddleRight, std::nan(""), true);
    QVERIFY(std::isnan(moved.width()));
    QVERIFY(moved.x() == 1 && moved.y() == 2 && moved.height() == 4);
}

QTEST_APPLESS_MAIN(TestRectAnchor)
#include "tst_ZelRectAnchor.moc"
