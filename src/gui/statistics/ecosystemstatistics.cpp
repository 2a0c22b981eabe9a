#include "gui/statistics/ecosystemstatistics.h"

#include "arbo/krivulja.h"
#include "arbo/usermessage.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"
#include "gui/design/hoverpoints.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPainter>
#include <QSaveFile>

#include <algorithm>
#include <cmath>

namespace gui {

using ecosystem::statistics::CEntitiesStatistics;

namespace {

constexpr double pixelsPerFactorE = 20.0;

// A count's height above the bottom line. A count of 0 has no logarithm: it
// goes on the bottom line with the count 1, the floor of the plot.
double heightOfCount(double n) {
    return n > 0 ? pixelsPerFactorE * std::log(n) : 0.0;
}

// 1, 10, 100, 1k, 10k, 100k, 1M, ...: short enough for the room beside the plot.
QString countLabel(double n) {
    const char* suffixes[] = {"", "k", "M", "G"};
    int thousands = 0;
    while (n >= 1000 && thousands < 3)
        n /= 1000, ++thousands;
    return QString::number(n, 'f', 0) + suffixes[thousands];
}

QString csvField(const QString& text) {
    if (!text.contains(',') && !text.contains('"') && !text.contains('\n'))
        return text;
    return '"' + QString(text).replace("\"", "\"\"") + '"';
}

} // namespace

EcosystemStatistics::EcosystemStatistics(QWidget* parent, CEntitiesStatistics* entitiesStatistics)
    : QDialog(parent), entitiesStatistics(entitiesStatistics) {
    ui.setupUi(this);
    connect(ui.izbranaVrsta, &QComboBox::currentIndexChanged, this,
            &EcosystemStatistics::izberiVrsto);
    HoverPoints* points = ui.graf1->hoverPoints;
    connect(points, &HoverPoints::hoverChanged, this,
            &EcosystemStatistics::hoverLivingSpeciesChanged);
    points->pointSize = QSizeF(0, 0);
    points->editable = false;
    // The box takes effect at once, not only at the next choice of species.
    connect(ui.showOnlyRenderedOnes, &QCheckBox::toggled, this, &EcosystemStatistics::replot);
    // The plot's scale is fixed in pixels: a resized plot is plotted again (once
    // the point handler has seen the resize too).
    ui.graf1->installEventFilter(this);
    connect(ui.saveCsv, &QPushButton::clicked, this, &EcosystemStatistics::saveAsCsv);
    nrPlantsLivingChanged();
}

bool EcosystemStatistics::eventFilter(QObject* object, QEvent* event) {
    if (object == ui.graf1 && event->type() == QEvent::Resize)
        QMetaObject::invokeMethod(this, &EcosystemStatistics::replot, Qt::QueuedConnection);
    return QDialog::eventFilter(object, event);
}

double EcosystemStatistics::plotHeight() const {
    return ui.graf1->hoverPoints->boundingRect().height();
}

void EcosystemStatistics::nrPlantsLivingChanged() {
    if (ui.showOnlyRenderedOnes->isChecked())
        return;
    plot(entitiesStatistics->getGrafiStevilaRastlin());
}

void EcosystemStatistics::nrPlantsRenderedChanged() {
    if (!ui.showOnlyRenderedOnes->isChecked())
        return;
    plot(entitiesStatistics->getGrafiStevilaUpodobljenihRastlin());
}

// A species without a series yet plots as an empty one.
void EcosystemStatistics::plot(const std::vector<arbo::Krivulja*>* series) {
    const double h = plotHeight();
    QPolygonF points;
    const arbo::Krivulja* curve =
        izbranaVrstaIndex >= 0 && size_t(izbranaVrstaIndex) < series->size()
            ? (*series)[izbranaVrstaIndex]
            : nullptr;
    if (curve) {
        points.reserve(int(curve->tocke.size()));
        for (const arbo::Tocka2D& t : curve->tocke)
            points << QPointF(t.x, h - heightOfCount(t.y));
    }
    ui.graf1->hoverPoints->setPoints(points);
    if (curve && !curve->tocke.empty()) {
        const arbo::Tocka2D& last = curve->tocke.back();
        ui.currentValue->setText(QString("(%1, %2)").arg(last.x).arg(last.y));
    }
    refreshStatistics();
}

void EcosystemStatistics::izberiVrsto(int i) {
    izbranaVrstaIndex = i;
    replot();
}

// Exactly one of the two plots, by the state of "rendered only"; the axes
// around the plot are drawn again too.
void EcosystemStatistics::replot() {
    nrPlantsLivingChanged();
    nrPlantsRenderedChanged();
    update();
}

void EcosystemStatistics::hoverLivingSpeciesChanged(const QPointF& p) {
    const double h = ui.graf1->height();
    ui.currentValue->setText(
        QString("(%1, %2)").arg(p.x()).arg(std::exp((h - p.y()) / pixelsPerFactorE)));
}

QColor EcosystemStatistics::speciesColour(int index) {
    switch (index) {
    case 0:
        return QColor(255, 0, 0);
    case 1:
        return QColor(0, 255, 0);
    case 2:
        return QColor(0, 0, 255);
    case 3:
        return QColor(255, 0, 255);
    case 4:
        return QColor(255, 255, 0);
    default:
        return QColor(255, 255, 255);
    }
}

void EcosystemStatistics::refreshStatistics() {
    QColor colour = speciesColour(izbranaVrstaIndex);
    colour.setAlpha(200);
    ui.graf1->hoverPoints->connectionPen =
        QPen(QBrush(colour), 2.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    ui.graf1->update();
}

void EcosystemStatistics::paintEvent(QPaintEvent* event) {
    QDialog::paintEvent(event);
    QPainter p(this);
    p.setPen(palette().color(QPalette::WindowText));
    const QRect graph = ui.graf1->geometry();
    paintCountAxis(p, graph);
    paintStepAxis(p, graph);
}

// A labelled tick at every power of ten that fits, the axis title turned
// along the axis.
void EcosystemStatistics::paintCountAxis(QPainter& p, const QRect& graph) const {
    const QFontMetrics fm(font());
    const double h = plotHeight();
    const int labelRight = graph.left() - 6;
    for (double n = 1; h - heightOfCount(n) >= 0; n *= 10) {
        const int y = graph.top() + int(std::lround(h - heightOfCount(n)));
        p.drawLine(graph.left() - 4, y, graph.left() - 1, y);
        const QRect label(labelRight - 40, y - fm.height() / 2, 40, fm.height());
        p.drawText(label, Qt::AlignRight | Qt::AlignVCenter, countLabel(n));
    }
    p.save();
    p.translate(graph.left() - Ui_EcosystemStatistics::countAxisWidth + fm.height(),
                graph.center().y());
    p.rotate(-90);
    p.drawText(QRect(-graph.height() / 2, -fm.height(), graph.height(), fm.height()),
               Qt::AlignCenter, tr("plants"));
    p.restore();
}

// One step per pixel: a labelled tick every 100 steps, a short one between.
// The drawn plants are counted per frame.
void EcosystemStatistics::paintStepAxis(QPainter& p, const QRect& graph) const {
    const QFontMetrics fm(font());
    const int y = graph.bottom() + 1;
    const QString title = ui.showOnlyRenderedOnes->isChecked() ? tr("frame") : tr("step");
    const QRect titleRect(graph.right() - fm.horizontalAdvance(title), y + 5,
                          fm.horizontalAdvance(title), fm.height());
    p.drawText(titleRect, Qt::AlignRight, title);
    for (int s = 0; s <= graph.width(); s += 50) {
        const int x = graph.left() + s;
        p.drawLine(x, y, x, y + (s % 100 == 0 ? 4 : 2));
        if (s % 100 != 0)
            continue;
        const QString text = QString::number(s);
        const int w = fm.horizontalAdvance(text);
        const QRect label(x - w / 2, y + 5, w, fm.height());
        if (!label.intersects(titleRect.adjusted(-8, 0, 0, 0)))
            p.drawText(label, Qt::AlignCenter, text);
    }
}

bool EcosystemStatistics::saveCsv(const QString& fileName) const {
    const std::vector<arbo::Krivulja*>& living = *entitiesStatistics->getGrafiStevilaRastlin();
    const std::vector<arbo::Krivulja*>& drawn =
        *entitiesStatistics->getGrafiStevilaUpodobljenihRastlin();
    const std::vector<int>& stepNumbers = entitiesStatistics->korakiZivih;
    const std::vector<int>& stepOfFrame = entitiesStatistics->korakiUpodobitev;
    const size_t species = std::max(living.size(), drawn.size());
    size_t steps = 0;
    for (const arbo::Krivulja* k : living)
        steps = std::max(steps, k->tocke.size());
    // Row s shows the last frame drawn after its step and before the next
    // (frames are booked with the number of steps counted before them: 1
    // after the first); a step with no such frame leaves its drawn cells empty.
    std::vector<long> lastFrame(steps, -1);
    for (size_t f = 0; f < stepOfFrame.size(); ++f)
        if (stepOfFrame[f] >= 1 && size_t(stepOfFrame[f]) <= steps)
            lastFrame[stepOfFrame[f] - 1] = long(f);

    QStringList header{tr("step")};
    for (size_t i = 0; i < species; ++i) {
        const QString name = i < size_t(ui.izbranaVrsta->count())
                                 ? ui.izbranaVrsta->itemText(int(i))
                                 : tr("Species %1").arg(i + 1);
        header << csvField(tr("%1 living").arg(name)) << csvField(tr("%1 drawn").arg(name));
    }
    QString text = header.join(',') + '\n';
    auto count = [](const arbo::Krivulja* k, long point) {
        return k && point >= 0 && size_t(point) < k->tocke.size()
                   ? QString::number(k->tocke[point].y, 'g', 15)
                   : QString();
    };
    for (size_t s = 0; s < steps; ++s) {
        QStringList row{s < stepNumbers.size() ? QString::number(stepNumbers[s]) : QString()};
        for (size_t i = 0; i < species; ++i)
            row << count(i < living.size() ? living[i] : nullptr, long(s))
                << count(i < drawn.size() ? drawn[i] : nullptr, lastFrame[s]);
        text += row.join(',') + '\n';
    }
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    file.write(text.toUtf8());
    return file.commit();
}

void EcosystemStatistics::saveAsCsv() {
    QString fileName = QFileDialog::getSaveFileName(this, tr("Save statistics as CSV"),
                                                    "statistics.csv", tr("CSV files (*.csv)"));
    if (fileName.isEmpty())
        return;
    if (QFileInfo(fileName).suffix().isEmpty())
        fileName += ".csv";
    if (!saveCsv(fileName))
        arbo::showUserMessage(tr("Error").toStdString(), tr("Could not save file.").toStdString());
}

} // namespace gui
