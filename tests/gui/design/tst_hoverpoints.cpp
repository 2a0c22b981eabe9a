#include "arbo/parametridrevesa.h"
#include "gui/design/hoverpoints.h"
#include "gui/design/widgetgraph.h"
#include "support/mouseover.h"

#include <QApplication>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QtTest>

using gui::HoverPoints;
using gui::WidgetGraph;

// The point editor as a user drives it: adding, dragging, removing, locked end
// points, sorting, resizing and hover; and the graph it decorates.
class TestHoverPoints : public QObject {
    Q_OBJECT

    // Hands one mouse event to the widget's editor; returns whether it was consumed.
    static bool mouse(QWidget* w, QEvent::Type type, QPointF pos, Qt::MouseButton button) {
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonPress ? Qt::MouseButtons(button) : Qt::NoButton;
        QMouseEvent e(type, pos, w->mapToGlobal(pos), button, held, Qt::NoModifier);
        return w->findChild<HoverPoints*>()->eventFilter(w, &e);
    }
    static void drag(QWidget* w, QPointF from, QPointF to) {
        mouse(w, QEvent::MouseButtonPress, from, Qt::LeftButton);
        mouse(w, QEvent::MouseMove, to, Qt::NoButton);
        mouse(w, QEvent::MouseButtonRelease, to, Qt::LeftButton);
    }

    // A 300 x 100 graph with points at x 0, 100, 200, 300, the ends locked to
    // the left and right edges as the curve designer locks them.
    static void prepare(WidgetGraph& g) {
        g.resize(300, 100);
        g.hoverPoints->setPoints(QPolygonF({{0, 50}, {100, 20}, {200, 80}, {300, 50}}));
        g.hoverPoints->locks = {HoverPoints::LockToLeft, 0, 0, HoverPoints::LockToRight};
    }

private slots:
    void leftClickAddsAPointInOrder_data() {
        QTest::addColumn<QPointF>("click");
        QTest::addColumn<int>("index");
        QTest::newRow("between") << QPointF(150, 10) << 2;
        QTest::newRow("first gap") << QPointF(40, 90) << 1;
    }
    void leftClickAddsAPointInOrder() {
        QFETCH(QPointF, click);
        QFETCH(int, index);
        WidgetGraph g;
        prepare(g);
        QSignalSpy changed(&g, &WidgetGraph::valuesChanged);
        mouse(&g, QEvent::MouseButtonPress, click, Qt::LeftButton);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(g.points().size(), 5);
        QCOMPARE(g.points()[index], click);
        QCOMPARE(g.hoverPoints->getCurrentIndex(), index);
        // The locks travel with their points.
        QCOMPARE(g.hoverPoints->locks.front(), unsigned(HoverPoints::LockToLeft));
        QCOMPARE(g.hoverPoints->locks.back(), unsigned(HoverPoints::LockToRight));
        QCOMPARE(g.hoverPoints->locks[index], 0u);
    }

    // A click right of every point first goes in at index 0; the sort moves it
    // to the end and the dragged index follows.
    void pointRightOfAllMovesToTheEnd() {
        QWidget w;
        w.resize(400, 100);
        HoverPoints h(&w, HoverPoints::CircleShape);
        h.sortType = HoverPoints::XSort;
        h.setPoints(QPolygonF({{20, 10}, {100, 10}, {180, 10}}));
        mouse(&w, QEvent::MouseButtonPress, {250, 40}, Qt::LeftButton);
        QCOMPARE(h.points(), QPolygonF({{20, 10}, {100, 10}, {180, 10}, {250, 40}}));
        QCOMPARE(h.getCurrentIndex(), 3);
        mouse(&w, QEvent::MouseButtonRelease, {250, 40}, Qt::LeftButton);
        QCOMPARE(h.getCurrentIndex(), -1);
    }

    void dragsStayInTheGraphAndBetweenNeighbours() {
        WidgetGraph g;
        prepare(g);
        drag(&g, {0, 50}, {80, 500}); // locked left: x stays, y stops at the bottom
        QCOMPARE(g.points()[0], QPointF(0, 100));
        drag(&g, {100, 20}, {260, -40}); // not past the next point, not above the top
        QCOMPARE(g.points()[1], QPointF(200, 0));
        QCOMPARE(g.points().size(), 4);
        drag(&g, {300, 50}, {-50, 30}); // locked right
        QCOMPARE(g.points()[3], QPointF(300, 30));
        QVERIFY(std::is_sorted(g.points().begin(), g.points().end(),
                               [](QPointF a, QPointF b) { return a.x() < b.x(); }));
    }

    void rightClickRemovesOnlyUnlockedPoints() {
        WidgetGraph g;
        prepare(g);
        QVERIFY(mouse(&g, QEvent::MouseButtonPress, {300, 50}, Qt::RightButton));
        QVERIFY(mouse(&g, QEvent::MouseButtonPress, {0, 50}, Qt::RightButton));
        QCOMPARE(g.points().size(), 4);
        mouse(&g, QEvent::MouseButtonPress, {102, 22}, Qt::RightButton);
        QCOMPARE(g.points(), QPolygonF({{0, 50}, {200, 80}, {300, 50}}));
        QCOMPARE(g.hoverPoints->locks.size(), size_t(3));

        // While the left button drags a point, a right press removes the point
        // before it: the drag goes on with its own point until a button is
        // released; a right press on the dragged point itself ends the drag.
        prepare(g);
        const Qt::MouseButtons both = Qt::LeftButton | Qt::RightButton;
        QTest::mousePress(&g, Qt::LeftButton, {}, QPoint(200, 80));
        QTest::mousePress(&g, Qt::RightButton, {}, QPoint(100, 20));
        mouseOver(&g, QPoint(180, 60), both);
        QCOMPARE(g.points(), QPolygonF({{0, 50}, {180, 60}, {300, 50}}));
        QTest::mouseRelease(&g, Qt::RightButton, {}, QPoint(180, 60));
        QTest::mouseRelease(&g, Qt::LeftButton, {}, QPoint(180, 60));
        QTest::mousePress(&g, Qt::LeftButton, {}, QPoint(180, 60));
        QTest::mousePress(&g, Qt::RightButton, {}, QPoint(180, 60));
        mouseOver(&g, QPoint(150, 10), both);
        QCOMPARE(g.points(), QPolygonF({{0, 50}, {300, 50}}));
        QTest::mouseRelease(&g, Qt::RightButton, {}, QPoint(150, 10));
        QTest::mouseRelease(&g, Qt::LeftButton, {}, QPoint(150, 10));
    }

    // Hover reports the position; not editable, points stay; disabled, hover
    // and points both stay.
    void hoverNotEditableOrDisabled() {
        WidgetGraph g;
        prepare(g);
        QSignalSpy hover(g.hoverPoints, &HoverPoints::hoverChanged);
        mouse(&g, QEvent::MouseMove, {42, 17}, Qt::NoButton);
        QCOMPARE(hover.count(), 1);
        QCOMPARE(hover[0][0].toPointF(), QPointF(42, 17));
        g.hoverPoints->editable = false;
        QVERIFY(!mouse(&g, QEvent::MouseButtonPress, {150, 10}, Qt::LeftButton));
        mouse(&g, QEvent::MouseButtonPress, {100, 20}, Qt::RightButton);
        QCOMPARE(g.points().size(), 4);
        g.hoverPoints->editable = true;
        g.hoverPoints->setEnabled(false);
        hover.clear();
        QVERIFY(!mouse(&g, QEvent::MouseButtonPress, {150, 10}, Qt::LeftButton));
        mouse(&g, QEvent::MouseMove, {150, 10}, Qt::NoButton);
        QCOMPARE(g.points().size(), 4);
        QCOMPARE(hover.count(), 0);
    }

    // A curve ends at the points a parameter file may hold: it can always be saved.
    void aFullCurveTakesNoMorePoints() {
        QWidget w;
        w.resize(400, 100);
        HoverPoints h(&w, HoverPoints::CircleShape);
        QPolygonF full;
        for (int i = 0; i < arbo::ParametriDrevesa::najvecTockKrivulje - 1; ++i)
            full << QPointF(i * 0.3, 10);
        h.setPoints(full);
        mouse(&w, QEvent::MouseButtonPress, {350, 40}, Qt::LeftButton);
        mouse(&w, QEvent::MouseButtonRelease, {350, 40}, Qt::LeftButton);
        QCOMPARE(h.points().size(), full.size() + 1);
        mouse(&w, QEvent::MouseButtonPress, {380, 60}, Qt::LeftButton);
        QCOMPARE(h.points().size(), full.size() + 1);
    }

    void resizeScalesThePoints() {
        WidgetGraph g;
        prepare(g);
        QResizeEvent grow(QSize(600, 50), QSize(300, 100));
        QApplication::sendEvent(&g, &grow);
        QCOMPARE(g.points(), QPolygonF({{0, 25}, {200, 10}, {400, 40}, {600, 25}}));
        QResizeEvent first(QSize(300, 100), QSize(0, 0)); // no scale from a zero side
        QApplication::sendEvent(&g, &first);
        QCOMPARE(g.points()[1], QPointF(200, 10));
    }

    void graphDrawsGridAndCurve() {
        WidgetGraph g;
        g.resize(200, 100);
        const QImage empty = g.grab().toImage();
        QCOMPARE(empty.pixel(5, 5), qRgb(189, 189, 189));
        QCOMPARE(empty.pixel(20, 5), qRgb(170, 170, 170));   // x = 1 * 201 / 10
        QCOMPARE(empty.pixel(5, 30), qRgb(170, 170, 170));   // y = 3 * 101 / 10
        QCOMPARE(empty.pixel(199, 55), qRgb(146, 146, 146)); // border
        g.hoverPoints->setPoints(QPolygonF({{0, 55}, {200, 55}}));
        const QImage curve = g.grab().toImage();
        QCOMPARE(curve.pixel(100, 55), qRgb(255, 0, 0));
        QCOMPARE(curve.pixel(100, 5), empty.pixel(100, 5));
    }
};

QTEST_MAIN(TestHoverPoints)
#include "tst_hoverpoints.moc"
