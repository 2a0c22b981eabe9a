#pragma once

#include "gui/statistics/ui_ecosystemstatistics.h"

#include <QColor>
#include <QDialog>
#include <QPointF>

#include <vector>

namespace arbo {
class Krivulja;
}
namespace ecosystem::statistics {
class CEntitiesStatistics;
}

namespace gui {

// "Ecosystem statistics": one species' plants over the simulation steps on a
// logarithmic scale (20 pixels per factor e, a count of 1 on the bottom line),
// either all living plants or only those drawn; the step and count under the
// mouse; and every series written as CSV on request.
class EcosystemStatistics : public QDialog {
    Q_OBJECT
public:
    EcosystemStatistics(QWidget* parent,
                        ecosystem::statistics::CEntitiesStatistics* entitiesStatistics);

    Ui_EcosystemStatistics ui;
    int izbranaVrstaIndex = 0;
    ecosystem::statistics::CEntitiesStatistics* entitiesStatistics;

    // One header row, then one row per step: the simulation's step number, and
    // each species' living plants and the plants drawn in the last frame that
    // showed the step (empty when no frame did). False when the file could not be written;
    // an existing file is then left as it was.
    bool saveCsv(const QString& fileName) const;
    static QColor speciesColour(int index);

public slots:
    void nrPlantsLivingChanged();
    void nrPlantsRenderedChanged();
    void izberiVrsto(int i);
    void hoverLivingSpeciesChanged(const QPointF& p);
    void refreshStatistics();
    // Asks for a file name and writes the CSV there.
    void saveAsCsv();

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void plot(const std::vector<arbo::Krivulja*>* series);
    void replot();
    double plotHeight() const;
    void paintCountAxis(QPainter& p, const QRect& graph) const;
    void paintStepAxis(QPainter& p, const QRect& graph) const;
};

} // namespace gui
