#include "gui/design/distributiondesigner.h"

#include "arbo/parametridrevesa.h"
#include "gui/design/hoverpoints.h"
#include "gui/design/widgetgraph.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMetaMethod>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace gui {

namespace {

// A number as the value labels write it: at most one decimal, a decimal comma.
QString number(double v) {
    QString t = QString::number(v, 'f', 1);
    if (t.endsWith(".0"))
        t.chop(2);
    if (t == "-0")
        t = "0";
    return t.replace('.', ',');
}

// "62,5%" gives 62.5 and "%", "-180°" gives -180 and "°".
double labelValue(const QString& label, QString* unit = nullptr) {
    int i = 0;
    while (i < label.size() && (label[i].isDigit() || label[i] == '-' || label[i] == ','))
        ++i;
    if (unit)
        *unit = label.mid(i);
    return label.left(i).replace(',', '.').toDouble();
}

// The labels of an axis: the first at its start, the last at its end and the
// others spread evenly between them.
void spread(QBoxLayout* layout, const QList<QLabel*>& labels, bool vertical) {
    for (int i = 0; i < labels.size(); ++i) {
        if (i > 0)
            layout->addStretch(1);
        const Qt::Alignment end = i == 0 ? (vertical ? Qt::AlignTop : Qt::AlignLeft)
                                  : i == labels.size() - 1
                                      ? (vertical ? Qt::AlignBottom : Qt::AlignRight)
                                      : (vertical ? Qt::AlignVCenter : Qt::AlignHCenter);
        layout->addWidget(labels[i], 0, end);
    }
}

std::vector<arbo::Krivulja*> copies(const arbo::Krivulja& curve, size_t n) {
    std::vector<arbo::Krivulja*> out;
    for (size_t i = 0; i < n; ++i)
        out.push_back(new arbo::Krivulja(curve));
    return out;
}

} // namespace

DistributionDesigner::DistributionDesigner(QWidget* parent, const std::vector<int>& ids,
                                           const std::vector<arbo::Krivulja*>& krivuljeG,
                                           const std::vector<arbo::Krivulja*>& krivuljeW,
                                           const QString** labelsG, const QString** labelsW,
                                           const QString& title)
    : QDialog(parent), ids(ids) {
    setObjectName("DistributionDesigner");
    setWindowTitle(tr("Distribution designer"));
    grafG.levels = 15;
    grafW.levels = 50;
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buildGraph(grafG, tr("Gravelius order distribution:"), labelsG, "g_%1"));
    layout->addLayout(buildGraph(grafW, tr("Weibull order distribution:"), labelsW, "w_%1"));
    graphG = grafG.widget;
    graphW = grafW.widget;
    std::copy(grafG.labels, grafG.labels + 5, labelG);
    std::copy(grafW.labels, grafW.labels + 5, labelW);
    valueG = grafG.value;
    valueW = grafW.value;

    layout->addWidget(new QLabel(
        tr("Left click to add and move to modify a point or right click to remove."), this));
    layout->addLayout(buildControls());
    setWindowTitle(windowTitle() + title);
    takeKrivulje(krivuljeG, krivuljeW);
    connectControls();
}

// The selected level, the two check boxes, OK and Cancel.
QLayout* DistributionDesigner::buildControls() {
    auto* controls = new QVBoxLayout();
    auto* state = new QHBoxLayout();
    state->addWidget(new QLabel(tr("Selected level:"), this));
    hoverIndex = new QLabel(tr("no hover"), this);
    hoverIndex->setObjectName("hoverIndex");
    hoverIndex->setMinimumWidth(hoverIndex->fontMetrics().horizontalAdvance("W=00-00") + 8);
    state->addWidget(hoverIndex);
    state->addStretch(1);
    colorLevels = new QCheckBox(tr("color levels"), this);
    colorLevels->setObjectName("colorLevels");
    autoProof = new QCheckBox(tr("auto proof"), this);
    autoProof->setObjectName("autoProof");
    autoProof->setChecked(true);
    state->addWidget(colorLevels);
    state->addWidget(autoProof);
    controls->addLayout(state);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole)->setObjectName("okButton");
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)->setObjectName("cancelButton");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    controls->addWidget(buttons);
    return controls;
}

void DistributionDesigner::connectControls() {
    connect(this, &QDialog::rejected, this, &DistributionDesigner::ponastaviParametreDrevesa);
    connect(graphG->hoverPoints, &HoverPoints::pointsChanged, this,
            [this] { pointsChanged(grafG); });
    connect(graphW->hoverPoints, &HoverPoints::pointsChanged, this,
            [this] { pointsChanged(grafW); });
    connect(graphG->hoverPoints, &HoverPoints::hoverChanged, this,
            &DistributionDesigner::applyHoverGChanged);
    connect(graphW->hoverPoints, &HoverPoints::hoverChanged, this,
            &DistributionDesigner::applyHoverWChanged);
    // Switching either box on takes effect at once: the tree shows the graphs
    // again, and the highlight goes when the colouring is switched off.
    connect(autoProof, &QCheckBox::toggled, this, [this](bool on) {
        if (on)
            fireKrivuljeChanged();
    });
    connect(colorLevels, &QCheckBox::toggled, this, [this](bool on) {
        if (!on)
            clearHover();
    });
}

// The caption and the readout above the graph, the value labels at its left,
// the order or depth axis below it.
QLayout* DistributionDesigner::buildGraph(Graph& gr, const QString& caption, const QString** labels,
                                          const char* labelName) {
    auto* grid = new QGridLayout();
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(2);
    grid->addWidget(new QLabel(caption, this), 0, 0, 1, 2);
    gr.value = new QLabel(this);
    gr.value->setObjectName(gr.levels == 15 ? "valueG" : "valueW");
    grid->addWidget(gr.value, 0, 1, Qt::AlignRight);

    auto* values = new QVBoxLayout();
    QList<QLabel*> upwards;
    for (int i = 4; i >= 0; --i) {
        gr.labels[i] = new QLabel(*labels[i], this);
        gr.labels[i]->setObjectName(QString(labelName).arg(i));
        gr.labels[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        upwards << gr.labels[i];
    }
    spread(values, upwards, true);
    grid->addLayout(values, 1, 0);

    gr.widget = new WidgetGraph(this);
    gr.widget->setMinimumSize(420, 150);
    gr.widget->installEventFilter(this);
    grid->addWidget(gr.widget, 1, 1);

    // Orders 0 ... 15 or depths 0 ... 50 on every other grid line.
    auto* axis = new QHBoxLayout();
    QList<QLabel*> ticks;
    for (int i = 0; i <= 5; ++i)
        ticks << new QLabel(QString::number(i * gr.levels / 5), this);
    spread(axis, ticks, false);
    grid->addLayout(axis, 2, 1);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(1, 1);
    return grid;
}

void DistributionDesigner::takeKrivulje(const std::vector<arbo::Krivulja*>& krivuljeG,
                                        const std::vector<arbo::Krivulja*>& krivuljeW) {
    this->krivuljeG = krivuljeG;
    this->krivuljeW = krivuljeW;
    savedG.clear();
    savedW.clear();
    for (const arbo::Krivulja* k : krivuljeG)
        savedG.push_back(*k);
    for (const arbo::Krivulja* k : krivuljeW)
        savedW.push_back(*k);
    setKrivulje();
}

void DistributionDesigner::setKrivulje() {
    for (size_t i = 0; i < ids.size(); ++i) {
        showCurve(grafG, *krivuljeG[i]);
        showCurve(grafW, *krivuljeW[i]);
    }
}

// A vertex (x, y) is shown at (x * width, (1 - y) * height): value 1 at the top.
void DistributionDesigner::showCurve(Graph& gr, const arbo::Krivulja& curve) {
    HoverPoints* hp = gr.widget->hoverPoints;
    const QRectF r = hp->boundingRect();
    QPolygonF points;
    for (const arbo::Tocka2D& t : curve.tocke)
        points << QPointF(t.x * r.width(), (1 - t.y) * r.height());
    hp->setPoints(points);
    if (!hp->locks.empty()) {
        hp->locks.front() |= HoverPoints::LockToLeft;
        hp->locks.back() |= HoverPoints::LockToRight;
    }
    gr.vertices = curve.tocke;
    gr.shown = hp->points();
    gr.shownSize = gr.widget->size();
    gr.widget->update();
    showValue(gr);
}

// Points that have not moved keep their vertices exactly; the others become
// (x / width, 1 - y / height). A resize changes no vertex: the points are shown
// again from the vertices at the new size.
void DistributionDesigner::pointsChanged(Graph& gr) {
    if (gr.widget->size() != gr.shownSize) {
        showCurve(gr, curveOf(gr));
        return;
    }
    const QPolygonF& points = gr.widget->points();
    const QRectF r = gr.widget->hoverPoints->boundingRect();
    std::vector<arbo::Tocka2D> vertices;
    vertices.reserve(points.size());
    for (const QPointF& p : points) {
        const int j = int(gr.shown.indexOf(p));
        if (j >= 0 && j < int(gr.vertices.size()))
            vertices.push_back(gr.vertices[j]);
        else
            vertices.emplace_back(p.x() / r.width(), 1 - p.y() / r.height());
    }
    gr.vertices = std::move(vertices);
    gr.shown = points;
    showValue(gr);
    fireKrivuljeChanged();
}

arbo::Krivulja DistributionDesigner::curveOf(const Graph& gr) const {
    arbo::Krivulja k;
    k.tocke = gr.vertices;
    return k;
}

std::vector<arbo::Krivulja*> DistributionDesigner::createKrivuljeG() const {
    return copies(curveOf(grafG), ids.size());
}

std::vector<arbo::Krivulja*> DistributionDesigner::createKrivuljeW() const {
    return copies(curveOf(grafW), ids.size());
}

void DistributionDesigner::fireKrivuljeChanged() {
    if (!autoProof->isChecked() ||
        !isSignalConnected(QMetaMethod::fromSignal(&DistributionDesigner::pointsUpdated)))
        return;
    emit pointsUpdated(ids, createKrivuljeG(), createKrivuljeW());
}

// Cancel: the curves go back as they were, and the receiver recomputes the
// tables from fresh copies of them.
void DistributionDesigner::ponastaviParametreDrevesa() {
    for (size_t i = 0; i < ids.size(); ++i) {
        *krivuljeG[i] = savedG[i];
        *krivuljeW[i] = savedW[i];
    }
    std::vector<arbo::Krivulja*> g, w;
    for (size_t i = 0; i < ids.size(); ++i) {
        g.push_back(new arbo::Krivulja(savedG[i]));
        w.push_back(new arbo::Krivulja(savedW[i]));
    }
    if (isSignalConnected(QMetaMethod::fromSignal(&DistributionDesigner::pointsUpdated))) {
        emit pointsUpdated(ids, g, w);
        return;
    }
    for (size_t i = 0; i < ids.size(); ++i) {
        delete g[i];
        delete w[i];
    }
}

void DistributionDesigner::applyHoverGChanged(const QPointF& point) {
    hover(grafG, point, &DistributionDesigner::hoverGChanged);
}

void DistributionDesigner::applyHoverWChanged(const QPointF& point) {
    hover(grafW, point, &DistributionDesigner::hoverWChanged);
}

// The order (depth) under the mouse, or while a point is dragged the range
// between its neighbours (the point itself at either end).
void DistributionDesigner::hover(Graph& gr, const QPointF& point,
                                 void (DistributionDesigner::*report)(int, int)) {
    gr.mouse = point;
    showValue(gr);
    if (!colorLevels->isChecked())
        return;
    const HoverPoints* hp = gr.widget->hoverPoints;
    const double width = hp->boundingRect().width();
    const QPolygonF& points = hp->points();
    const int i = hp->getCurrentIndex();
    auto level = [&](double x) { return int(x / width * gr.levels); };
    int lo = level(point.x()), hi = lo;
    if (i >= 0 && i < points.size()) {
        lo = level(points[std::max(i - 1, 0)].x());
        hi = level(points[std::min(i + 1, int(points.size()) - 1)].x());
    }
    const bool g = &gr == &grafG;
    if (lo != hi)
        hoverIndex->setText((g ? tr("G=%1-%2") : tr("W=%1-%2")).arg(lo).arg(hi));
    else
        hoverIndex->setText((g ? tr("G=%1") : tr("W=%1")).arg(lo));
    emit(this->*report)(lo, hi);
}

// The curve's value at the mouse (at the dragged point while one is dragged),
// in the unit of the value labels.
void DistributionDesigner::showValue(Graph& gr) {
    const HoverPoints* hp = gr.widget->hoverPoints;
    if (gr.mouse.x() < 0 || gr.vertices.empty()) {
        gr.value->clear();
        return;
    }
    const QRectF r = hp->boundingRect();
    const int i = hp->getCurrentIndex();
    const double px = i >= 0 && i < hp->points().size() ? hp->points()[i].x() : gr.mouse.x();
    const double x = std::clamp(px / r.width(), 0.0, 1.0);
    const arbo::Krivulja curve = curveOf(gr);
    const double y = arbo::ParametriDrevesa::interpoliraj(x, &curve);
    QString unit;
    const double low = labelValue(gr.labels[0]->text(), &unit);
    const double high = labelValue(gr.labels[4]->text());
    const QString at = number(x * gr.levels);
    gr.value->setText((&gr == &grafG ? tr("G=%1") : tr("W=%1")).arg(at) + ": " +
                      number(low + (high - low) * y) + unit);
}

void DistributionDesigner::clearHover() {
    hoverIndex->setText(tr("no hover"));
    emit hoverGChanged(-1, -1);
}

// A finished click or drag is one design step; leaving a graph ends its
// readout and, with the colouring on, the highlight.
bool DistributionDesigner::eventFilter(QObject* object, QEvent* event) {
    Graph* gr = object == graphG ? &grafG : object == graphW ? &grafW : nullptr;
    if (!gr)
        return QDialog::eventFilter(object, event);
    if (event->type() == QEvent::MouseButtonRelease) {
        emit designEditFinished();
    } else if (event->type() == QEvent::Leave) {
        gr->mouse = QPointF(-1, -1);
        gr->value->clear();
        if (colorLevels->isChecked() && gr->widget->hoverPoints->getCurrentIndex() < 0)
            clearHover();
    }
    return false;
}

} // namespace gui
