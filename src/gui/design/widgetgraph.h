#pragma once

#include <QImage>
#include <QPolygonF>
#include <QWidget>

namespace gui {

class HoverPoints;

// A curve on a grey grid, its points edited with the mouse: round handles,
// straight red connections, points kept in order of x.
class WidgetGraph : public QWidget {
    Q_OBJECT
public:
    explicit WidgetGraph(QWidget* parent = nullptr);

    const QPolygonF& points() const;

    HoverPoints* hoverPoints;

signals:
    void valuesChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void renderBackground();

    QImage background;
};

} // namespace gui
