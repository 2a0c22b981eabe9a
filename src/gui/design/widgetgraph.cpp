#include "gui/design/widgetgraph.h"

#include "gui/design/hoverpoints.h"

#include <QLinearGradient>
#include <QPainter>

namespace gui {

WidgetGraph::WidgetGraph(QWidget* parent) : QWidget(parent) {
    hoverPoints = new HoverPoints(this, HoverPoints::CircleShape);
    hoverPoints->connectionType = HoverPoints::LineConnection;
    hoverPoints->sortType = HoverPoints::XSort;
    hoverPoints->connectionPen = QPen(QColor(255, 0, 0), 2);
    // The position under the mouse is reported without a button held.
    setMouseTracking(true);
    connect(hoverPoints, &HoverPoints::pointsChanged, this, &WidgetGraph::valuesChanged);
}

const QPolygonF& WidgetGraph::points() const {
    return hoverPoints->points();
}

void WidgetGraph::paintEvent(QPaintEvent*) {
    if (background.size() != size())
        renderBackground();
    QPainter p(this);
    p.drawImage(0, 0, background);
}

// Grey with a darker border and a ten by ten grid, drawn again only when the
// size changes.
void WidgetGraph::renderBackground() {
    background = QImage(size(), QImage::Format_RGB32);
    QPainter p(&background);
    QLinearGradient fill(0, 0, 0, height());
    fill.setColorAt(0, QColor(189, 189, 189));
    p.fillRect(background.rect(), fill);
    p.setPen(QColor(146, 146, 146));
    p.drawRect(0, 0, width() - 1, height() - 1);
    p.setPen(QColor(170, 170, 170));
    for (int i = 0; i < 10; ++i) {
        const int x = i * (width() + 1) / 10;
        const int y = i * (height() + 1) / 10;
        p.drawLine(x, 0, x, height());
        p.drawLine(0, y, width(), y);
    }
}

} // namespace gui
