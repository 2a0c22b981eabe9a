#include "gui/design/hoverpoints.h"

#include "arbo/parametridrevesa.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QResizeEvent>
#include <QWidget>

#include <algorithm>
#include <numeric>

namespace gui {

// A lock wins over the side the mouse is on: a point locked to the right edge
// stays there even when dragged out past the left one.
QPointF boundPoint(const QPointF& point, const QRectF& bounds, unsigned lock) {
    const bool left = lock & HoverPoints::LockToLeft, right = lock & HoverPoints::LockToRight;
    const bool top = lock & HoverPoints::LockToTop, bottom = lock & HoverPoints::LockToBottom;
    QPointF p = point;
    if (left || (!right && p.x() < bounds.left()))
        p.setX(bounds.left());
    else if (right || p.x() > bounds.right())
        p.setX(bounds.right());
    if (top || (!bottom && p.y() < bounds.top()))
        p.setY(bounds.top());
    else if (bottom || p.y() > bounds.bottom())
        p.setY(bounds.bottom());
    return p;
}

HoverPoints::HoverPoints(QWidget* widget, PointShape shape)
    : QObject(widget), widget(widget), shape(shape) {
    widget->installEventFilter(this);
    connect(this, &HoverPoints::pointsChanged, widget, [widget] { widget->update(); });
}

QRectF HoverPoints::boundingRect() const {
    return bounds.isEmpty() ? QRectF(widget->rect()) : bounds;
}

// New points end any drag: the dragged index would name another point.
void HoverPoints::setPoints(const QPolygonF& points) {
    currentIndex = -1;
    pointList.clear();
    for (const QPointF& p : points)
        pointList << boundPoint(p, boundingRect(), 0);
    locks.assign(pointList.size(), 0);
    widget->update();
}

QRectF HoverPoints::handle(const QPointF& point) const {
    return QRectF(point.x() - pointSize.width() / 2, point.y() - pointSize.height() / 2,
                  pointSize.width(), pointSize.height());
}

// The first point whose handle holds the position, or -1.
int HoverPoints::pointAt(const QPointF& position) const {
    for (int i = 0; i < pointList.size(); ++i) {
        QPainterPath path;
        if (shape == CircleShape)
            path.addEllipse(handle(pointList[i]));
        else
            path.addRect(handle(pointList[i]));
        if (path.contains(position))
            return i;
    }
    return -1;
}

// A new point goes before the first point beyond it in the sort order (at 0
// when there is none, or when the points are not sorted).
int HoverPoints::insertionIndex(const QPointF& position) const {
    for (int i = 0; i < pointList.size(); ++i) {
        if ((sortType == XSort && pointList[i].x() > position.x()) ||
            (sortType == YSort && pointList[i].y() > position.y()))
            return i;
    }
    return 0;
}

bool HoverPoints::eventFilter(QObject* object, QEvent* event) {
    if (object != widget || !enabled)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto* me = static_cast<QMouseEvent*>(event);
        return mousePressed(me->position(), me->button());
    }
    case QEvent::MouseButtonRelease:
        currentIndex = -1;
        return false;
    case QEvent::MouseMove:
        mouseMoved(static_cast<QMouseEvent*>(event)->position());
        return false;
    case QEvent::Paint:
        paintWidgetThenPoints(event);
        return true;
    case QEvent::Resize: {
        auto* re = static_cast<QResizeEvent*>(event);
        scaleToNewSize(re->oldSize(), re->size());
        return false;
    }
    default:
        return false;
    }
}

bool HoverPoints::mousePressed(const QPointF& position, Qt::MouseButton button) {
    const int hit = pointAt(position);
    // No more points than a parameter file may hold in a curve.
    if (button == Qt::LeftButton && hit < 0 && editable &&
        pointList.size() < arbo::ParametriDrevesa::najvecTockKrivulje) {
        const int index = insertionIndex(position);
        pointList.insert(index, position);
        locks.insert(locks.begin() + index, 0u);
        currentIndex = index;
        firePointChange();
        return true;
    }
    if (button == Qt::LeftButton && hit >= 0) {
        currentIndex = hit;
        return true;
    }
    if (button == Qt::RightButton && hit >= 0 && editable) {
        if (locks[hit] == 0) {
            pointList.remove(hit);
            locks.erase(locks.begin() + hit);
            // A drag under way keeps its point, or ends with it.
            if (hit == currentIndex)
                currentIndex = -1;
            else if (hit < currentIndex)
                --currentIndex;
            firePointChange();
        }
        return true;
    }
    return false;
}

// In a sorted editor a dragged point stays between its neighbours: the curve
// keeps its shape around the point instead of the points swapping under the mouse.
void HoverPoints::mouseMoved(const QPointF& position) {
    emit hoverChanged(position);
    if (currentIndex < 0 || currentIndex >= pointList.size())
        return;
    QRectF area = boundingRect();
    if (sortType == XSort) {
        if (currentIndex > 0)
            area.setLeft(std::max(area.left(), pointList[currentIndex - 1].x()));
        if (currentIndex + 1 < pointList.size())
            area.setRight(std::min(area.right(), pointList[currentIndex + 1].x()));
    } else if (sortType == YSort) {
        if (currentIndex > 0)
            area.setTop(std::max(area.top(), pointList[currentIndex - 1].y()));
        if (currentIndex + 1 < pointList.size())
            area.setBottom(std::min(area.bottom(), pointList[currentIndex + 1].y()));
    }
    pointList[currentIndex] = boundPoint(position, area, locks[currentIndex]);
    firePointChange();
}

// The widget paints itself with the filter out of the way, then the points go on top.
void HoverPoints::paintWidgetThenPoints(QEvent* event) {
    widget->removeEventFilter(this);
    QApplication::sendEvent(widget, event);
    widget->installEventFilter(this);
    paintPoints();
}

// On a first resize the old size may have a zero side; there is nothing to scale then.
void HoverPoints::scaleToNewSize(const QSizeF& oldSize, const QSizeF& newSize) {
    if (oldSize.width() <= 0 || oldSize.height() <= 0)
        return;
    const qreal sx = newSize.width() / oldSize.width();
    const qreal sy = newSize.height() / oldSize.height();
    for (QPointF& p : pointList)
        p = QPointF(p.x() * sx, p.y() * sy);
    firePointChange();
}

// Sorting keeps each point's lock with it, so the end points stay locked to
// their edges whatever is added between them.
void HoverPoints::firePointChange() {
    if (sortType != NoSort) {
        std::vector<int> order(pointList.size());
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin(), order.end(), [this](int a, int b) {
            return sortType == XSort ? pointList[a].x() < pointList[b].x()
                                     : pointList[a].y() < pointList[b].y();
        });
        QPolygonF sorted;
        std::vector<unsigned> sortedLocks;
        int newCurrent = -1;
        for (int i = 0; i < int(order.size()); ++i) {
            sorted << pointList[order[i]];
            sortedLocks.push_back(order[i] < int(locks.size()) ? locks[order[i]] : 0u);
            if (order[i] == currentIndex)
                newCurrent = i;
        }
        pointList = sorted;
        locks = sortedLocks;
        currentIndex = newCurrent;
    }
    emit pointsChanged(pointList);
}

void HoverPoints::paintPoints() {
    QPainter p(widget);
    p.setRenderHint(QPainter::Antialiasing);
    if (connectionPen.style() != Qt::NoPen && connectionType != NoConnection &&
        !pointList.isEmpty()) {
        p.setPen(connectionPen);
        if (connectionType == LineConnection) {
            p.drawPolyline(pointList);
        } else {
            QPainterPath path(pointList[0]);
            for (int i = 1; i < pointList.size(); ++i) {
                const QPointF a = pointList[i - 1], b = pointList[i];
                const qreal midX = (a.x() + b.x()) / 2;
                path.cubicTo(midX, a.y(), midX, b.y(), b.x(), b.y());
            }
            p.drawPath(path);
        }
    }
    p.setPen(pointPen);
    p.setBrush(pointBrush);
    for (const QPointF& point : pointList) {
        if (shape == CircleShape)
            p.drawEllipse(handle(point));
        else
            p.drawRect(handle(point));
    }
}

} // namespace gui
