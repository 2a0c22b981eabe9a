#pragma once

#include <QBrush>
#include <QObject>
#include <QPen>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>

#include <vector>

class QWidget;

namespace gui {

// Decorates a widget with points the user adds, drags and removes with the
// mouse: an event filter on the widget that draws the points and the line
// through them after the widget has painted, and reports every change of the
// points and every position of the mouse over the widget.
class HoverPoints : public QObject {
    Q_OBJECT
public:
    enum PointShape { CircleShape, RectangleShape };
    enum SortType { NoSort, XSort, YSort };
    enum ConnectionType { NoConnection, LineConnection, CurveConnection };
    // Lock bits: the point stays on that edge of the bounds.
    enum LockType { LockToLeft = 0x01, LockToRight = 0x02, LockToTop = 0x04, LockToBottom = 0x08 };

    HoverPoints(QWidget* widget, PointShape shape);

    // Moves each point into the bounds, unlocks every point and ends a drag.
    void setPoints(const QPolygonF& points);
    const QPolygonF& points() const { return pointList; }
    void setEnabled(bool on) { enabled = on; }
    int getCurrentIndex() const { return currentIndex; }
    // The bounds, or the widget's rectangle while they are empty.
    QRectF boundingRect() const;

    bool eventFilter(QObject* object, QEvent* event) override;
    void paintPoints();
    void firePointChange();

    QWidget* widget;
    QRectF bounds;
    PointShape shape;
    SortType sortType = NoSort;
    ConnectionType connectionType = CurveConnection;
    std::vector<unsigned> locks;
    QSizeF pointSize = QSizeF(11, 11);
    int currentIndex = -1;
    bool editable = true;
    bool enabled = true;
    QPen pointPen = QPen(QColor(255, 255, 255, 191), 1);
    QBrush pointBrush = QBrush(QColor(191, 191, 191, 127));
    QPen connectionPen = QPen(QColor(255, 255, 255, 127), 1);

signals:
    void pointsChanged(const QPolygonF& points);
    void hoverChanged(const QPointF& position);

private:
    QRectF handle(const QPointF& point) const;
    int pointAt(const QPointF& position) const;
    int insertionIndex(const QPointF& position) const;
    bool mousePressed(const QPointF& position, Qt::MouseButton button);
    void mouseMoved(const QPointF& position);
    void paintWidgetThenPoints(QEvent* event);
    void scaleToNewSize(const QSizeF& oldSize, const QSizeF& newSize);

    QPolygonF pointList;
};

// Where a dragged point may go: onto the edge its lock names, else into the bounds.
QPointF boundPoint(const QPointF& point, const QRectF& bounds, unsigned lock);

} // namespace gui
