#pragma once

#include "arbo/krivulja.h"

#include <QDialog>
#include <QPointF>
#include <QPolygonF>
#include <QSize>

#include <vector>

class QCheckBox;
class QLabel;

namespace gui {

class WidgetGraph;

// "Distribution designer": one pair of a tree's distribution curves redrawn
// with the mouse, the curve over the branching order g above and the one over
// the depth w below. Shown without blocking; with "auto proof" on every change
// is handed on at once (pointsUpdated), so the tree follows the mouse; Cancel
// gives back the curves as they were when the designer opened (or last took up
// a tree). With "color levels" on, the orders or depths under the mouse are
// reported for colouring in the tree.
class DistributionDesigner : public QDialog {
    Q_OBJECT
public:
    DistributionDesigner(QWidget* parent, const std::vector<int>& ids,
                         const std::vector<arbo::Krivulja*>& krivuljeG,
                         const std::vector<arbo::Krivulja*>& krivuljeW, const QString** labelsG,
                         const QString** labelsW, const QString& title);

    // Shows the curves in the graphs, the end points locked to the edges.
    void setKrivulje();
    // New curves (owned by the caller) from the graphs' points.
    std::vector<arbo::Krivulja*> createKrivuljeG() const;
    std::vector<arbo::Krivulja*> createKrivuljeW() const;
    // Takes up the same kinds of curves of another tree (or of one whose
    // parameters were replaced): they are shown and become what Cancel restores.
    void takeKrivulje(const std::vector<arbo::Krivulja*>& krivuljeG,
                      const std::vector<arbo::Krivulja*>& krivuljeW);

    std::vector<int> ids;
    std::vector<arbo::Krivulja*> krivuljeG, krivuljeW;
    std::vector<arbo::Krivulja> savedG, savedW;

    WidgetGraph* graphG;
    WidgetGraph* graphW;
    QLabel* labelG[5]; // g_0 (bottom) ... g_4 (top)
    QLabel* labelW[5]; // w_0 ... w_4
    QLabel* hoverIndex;
    QLabel* valueG; // the g curve's value under the mouse
    QLabel* valueW;
    QCheckBox* colorLevels;
    QCheckBox* autoProof;

signals:
    void pointsUpdated(const std::vector<int>& ids, const std::vector<arbo::Krivulja*>& krivuljeG,
                       const std::vector<arbo::Krivulja*>& krivuljeW);
    void hoverGChanged(int lo, int hi);
    void hoverWChanged(int lo, int hi);
    // A click or drag on a graph has ended: one step for undo.
    void designEditFinished();

public slots:
    void fireKrivuljeChanged();
    void ponastaviParametreDrevesa();
    void applyHoverGChanged(const QPointF& point);
    void applyHoverWChanged(const QPointF& point);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    // What one graph shows: its curve's vertices as last known, the points
    // they were shown at and the widget size of those points. A point that
    // has not moved gives back its vertex exactly.
    struct Graph {
        WidgetGraph* widget;
        QLabel* labels[5];
        QLabel* value;
        int levels;         // 15 orders or 50 depths across the graph
        const char* prefix; // "G=" or "W="
        std::vector<arbo::Tocka2D> vertices;
        QPolygonF shown;
        QSize shownSize;
        QPointF mouse = {-1, -1};
    };

    QLayout* buildGraph(Graph& g, const QString& caption, const QString** labels,
                        const char* labelName);
    QLayout* buildControls();
    void connectControls();
    void showCurve(Graph& g, const arbo::Krivulja& curve);
    void pointsChanged(Graph& g);
    arbo::Krivulja curveOf(const Graph& g) const;
    void hover(Graph& g, const QPointF& point, void (DistributionDesigner::*report)(int, int));
    void showValue(Graph& g);
    void clearHover();

    Graph grafG{}, grafW{};
};

} // namespace gui
