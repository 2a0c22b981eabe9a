#include "gui/dialogs/advancedtreeproperties.h"

#include "arbo/arbo.h"
#include "gui/dialogs/clampingdoublespinbox.h"
#include "gui/dialogs/clampingspinbox.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace gui {

namespace {

double spinValue(const QAbstractSpinBox* spin) {
    if (auto* d = qobject_cast<const QDoubleSpinBox*>(spin))
        return d->value();
    return static_cast<const QSpinBox*>(spin)->value();
}

// The spin box rounds to its decimals and clamps to its range.
void setSpinValue(QAbstractSpinBox* spin, double v) {
    if (auto* d = qobject_cast<QDoubleSpinBox*>(spin))
        d->setValue(v);
    else
        static_cast<QSpinBox*>(spin)->setValue(int(std::clamp(v, -2e9, 2e9)));
}

QSpinBox* intSpin(QWidget* parent, const char* name, int max) {
    auto* s = new ClampingSpinBox(parent);
    s->setObjectName(name);
    s->setRange(0, max);
    return s;
}

QDoubleSpinBox* doubleSpin(QWidget* parent, const char* name, int decimals, double max,
                           double step) {
    auto* s = new ClampingDoubleSpinBox(parent);
    s->setObjectName(name);
    s->setDecimals(decimals);
    s->setRange(0, max);
    s->setSingleStep(step);
    return s;
}

} // namespace

double AdvancedTreeProperties::sliderValue(int s, int sliderMax, double scale) {
    return scale == 0 ? double(s) : s / double(sliderMax) * scale;
}

// The inverse of the slider's mapping, truncated toward zero: a float field
// widened to double shows where its double value lies (0.01f at 1999, the
// step below 0.01).
int AdvancedTreeProperties::sliderPosition(double value, int sliderMax, double scale) {
    const double x = scale == 0 ? value : value / scale * sliderMax;
    if (std::isnan(x))
        return 0;
    return int(std::clamp(x, -2e9, 2e9));
}

AdvancedTreeProperties::AdvancedTreeProperties(QWidget* parent, arbo::Arbo* tree)
    : QDialog(parent), parametri(&tree->pdPrepared), undoPoint(tree->pdPrepared) {
    setObjectName("AdvancedTreeProperties");
    setWindowTitle(tr("Advanced tree properties"));
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout();
    grid->setColumnMinimumWidth(1, 260);
    addRows(grid);
    layout->addLayout(grid);

    autoProof = new QCheckBox(tr("auto-proof"), this);
    autoProof->setObjectName("autoProof");
    autoProof->setChecked(true);
    auto* buttons = new QDialogButtonBox(this);
    auto* apply = buttons->addButton(tr("Apply"), QDialogButtonBox::ApplyRole);
    apply->setObjectName("applyButton");
    buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole)->setObjectName("okButton");
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)->setObjectName("cancelButton");

    auto* bottom = new QHBoxLayout();
    bottom->addWidget(autoProof);
    bottom->addWidget(buttons, 1);
    layout->addLayout(bottom);

    loadControls();
    connectControls(apply, buttons);
}

// The ten values, in the order of the form; the leaf type's combo box among them.
void AdvancedTreeProperties::addRows(QGridLayout* grid) {
    using P = arbo::ParametriDrevesa;

    // The strand count and leaf density end where a parameter file's do: a tree
    // made here can always be saved and loaded again, and stays within memory.
    editNumberOfStrands = intSpin(this, "editNumberOfStrands", P::najvecZil);
    addRow(
        grid, tr("Tree age (number of strands):"), sliderNumberOfStrands, 5000, editNumberOfStrands,
        0, [](const P& p) { return double(p.stVsehZil); },
        [](P& p, double v) { p.stVsehZil = int(v); });
    editTrinkHeight = doubleSpin(this, "editTrinkHeight", 3, 100, 0.05);
    addRow(
        grid, tr("Trunk height:"), sliderTrinkHeight, 10000, editTrinkHeight, 10,
        [](const P& p) { return p.dolzinaDebla; }, [](P& p, double v) { p.dolzinaDebla = v; });
    editBranchThicknessPerStrand = doubleSpin(this, "editBranchThicknessPerStrand", 5, 1.0, 0.001);
    addRow(
        grid, tr("Branch relative thickness per strand:"), sliderBranchThicknessPerStrand, 10000,
        editBranchThicknessPerStrand, 0.05, [](const P& p) { return double(p.sirinaSteblaNaZilo); },
        [](P& p, double v) { p.sirinaSteblaNaZilo = float(v); });
    editGravicentralism = doubleSpin(this, "editGravicentralism", 5, 1.0, 0.05);
    addRow(
        grid, tr("Gravicentralism (central trunk uprightness):"), sliderGravicentralism, 10000,
        editGravicentralism, 1, [](const P& p) { return p.graviCentralizem; },
        [](P& p, double v) { p.graviCentralizem = v; });
    editPhyllotaxisAngle = doubleSpin(this, "editPhyllotaxisAngle", 2, 360, 1);
    addRow(
        grid, tr("Phyllotaxis angle (branch rotation along the trunk) :"), sliderPhyllotaxisAngle,
        360, editPhyllotaxisAngle, 0, [](const P& p) { return p.phyllotaxisAngle; },
        [](P& p, double v) { p.phyllotaxisAngle = v; });

    editLeafType = new QComboBox(this);
    editLeafType->setObjectName("editLeafType");
    editLeafType->addItems(
        {tr("Spiral"), tr("Stacked"), tr("Staggered"), tr("Bunched"), tr("Coniferous")});
    auto* leafType = new QLabel(tr("Leaf type:"), this);
    leafType->setBuddy(editLeafType);
    grid->addWidget(leafType, LeafTypeRow, 0);
    grid->addWidget(editLeafType, LeafTypeRow, 2);

    editLeafDensity = intSpin(this, "editLeafDensity", P::najvecListov);
    addRow(
        grid, tr("Leaf density:"), sliderLeafDensity, 30, editLeafDensity, 0,
        [](const P& p) { return double(p.gostotaListov); },
        [](P& p, double v) { p.gostotaListov = int(v); });
    editLeafSize = doubleSpin(this, "editLeafSize", 3, 1000, 0.01);
    addRow(
        grid, tr("Leaf size:"), sliderLeafSize, 10000, editLeafSize, 0.3,
        [](const P& p) { return double(p.listSize); },
        [](P& p, double v) { p.listSize = float(v); });
    editWindSpeed = doubleSpin(this, "editWindSpeed", 3, 1000, 0.3);
    addRow(
        grid, tr("Wind gust speed:"), sliderWindSpeed, 10000, editWindSpeed, 10,
        [](const P& p) { return p.windSpeed; }, [](P& p, double v) { p.windSpeed = v; });
    editWindSpeedNodirect = doubleSpin(this, "editWindSpeedNodirect", 3, 1000, 0.3);
    addRow(
        grid, tr("Wind nonuniform speed:"), sliderWindSpeedNodirect, 10000, editWindSpeedNodirect,
        10, [](const P& p) { return p.windSpeedNodirect; },
        [](P& p, double v) { p.windSpeedNodirect = v; });
}

void AdvancedTreeProperties::connectControls(QPushButton* apply, QDialogButtonBox* buttons) {
    using A = AdvancedTreeProperties;
    const std::pair<void (A::*)(int), void (A::*)(double)> handlers[] = {
        {&A::on_sliderTrinkHeight_valueChanged, &A::on_editTrinkHeight_valueChanged},
        {&A::on_sliderBranchThicknessPerStrand_valueChanged,
         &A::on_editBranchThicknessPerStrand_valueChanged},
        {&A::on_sliderGravicentralism_valueChanged, &A::on_editGravicentralism_valueChanged},
        {&A::on_sliderPhyllotaxisAngle_valueChanged, &A::on_editPhyllotaxisAngle_valueChanged},
        {&A::on_sliderLeafSize_valueChanged, &A::on_editLeafSize_valueChanged},
        {&A::on_sliderWindSpeed_valueChanged, &A::on_editWindSpeed_valueChanged},
        {&A::on_sliderWindSpeedNodirect_valueChanged, &A::on_editWindSpeedNodirect_valueChanged}};
    const RowId doubles[] = {TrunkHeight, Thickness, Gravicentralism,  Phyllotaxis,
                             LeafSize,    WindSpeed, WindSpeedNodirect};
    for (int i = 0; i < 7; ++i) {
        connect(rows[doubles[i]].slider, &QSlider::valueChanged, this, handlers[i].first);
        connect(static_cast<QDoubleSpinBox*>(rows[doubles[i]].spin), &QDoubleSpinBox::valueChanged,
                this, handlers[i].second);
    }
    connect(sliderNumberOfStrands, &QSlider::valueChanged, this,
            &A::on_sliderNumberOfStrands_valueChanged);
    connect(editNumberOfStrands, &QSpinBox::valueChanged, this,
            &A::on_editNumberOfStrands_valueChanged);
    connect(sliderLeafDensity, &QSlider::valueChanged, this, &A::on_sliderLeafDensity_valueChanged);
    connect(editLeafDensity, &QSpinBox::valueChanged, this, &A::on_editLeafDensity_valueChanged);
    connect(editLeafType, &QComboBox::currentIndexChanged, this,
            &A::on_editLeafType_currentIndexChanged);

    for (const Row& r : rows) {
        connect(r.slider, &QSlider::sliderReleased, this, &A::designEditFinished);
        connect(r.spin, &QAbstractSpinBox::editingFinished, this, &A::designEditFinished);
    }
    connect(editLeafType, &QComboBox::activated, this, &A::designEditFinished);
    connect(apply, &QPushButton::clicked, this, &A::applyParameters);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::rejected, this, &A::makeUndo);
}

// Enter ends the typing of a value; it does not press the dialog's default button.
void AdvancedTreeProperties::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
    else
        QDialog::keyPressEvent(event);
}

// The dialog's own actions (the design undo and redo) keep their keys while a
// spin box has the focus: it would claim them for its line edit's text undo.
bool AdvancedTreeProperties::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const QKeySequence key(static_cast<QKeyEvent*>(event)->keyCombination());
        for (const QAction* a : actions())
            if (a->isEnabled() && a->shortcuts().contains(key)) {
                event->ignore();
                return true;
            }
    }
    return QDialog::eventFilter(watched, event);
}

void AdvancedTreeProperties::addRow(QGridLayout* grid, const QString& label, QSlider*& slider,
                                    int sliderMax, QAbstractSpinBox* spin, double scale,
                                    std::function<double(const arbo::ParametriDrevesa&)> read,
                                    std::function<void(arbo::ParametriDrevesa&, double)> write) {
    slider = new QSlider(Qt::Horizontal, this);
    slider->setObjectName(QString(spin->objectName()).replace("edit", "slider"));
    slider->setRange(0, sliderMax);
    // A page of the slider is a tenth of its range.
    slider->setPageStep(std::max(1, sliderMax / 10));
    auto* text = new QLabel(label, this);
    text->setBuddy(spin);
    spin->installEventFilter(this);
    // The leaf type's combo box has a row of its own among the sliders.
    const int row = int(rows.size()) < LeafTypeRow ? int(rows.size()) : int(rows.size()) + 1;
    grid->addWidget(text, row, 0);
    grid->addWidget(slider, row, 1);
    grid->addWidget(spin, row, 2);
    rows.push_back({slider, spin, scale, std::move(read), std::move(write)});
}

void AdvancedTreeProperties::takeTree(arbo::Arbo* tree) {
    parametri = &tree->pdPrepared;
    undoPoint = *parametri;
    loadControls();
}

// Showing the values writes nothing: a spin box rounds to its decimals, but
// the tree keeps its exact values until a control is used.
void AdvancedTreeProperties::loadControls() {
    for (const Row& r : rows) {
        const QSignalBlocker blockSlider(r.slider), blockSpin(r.spin);
        const double v = r.read(*parametri);
        setSpinValue(r.spin, v);
        r.slider->setValue(sliderPosition(v, r.slider->maximum(), r.scale));
    }
    const QSignalBlocker blockType(editLeafType);
    const int type = parametri->tipListov;
    editLeafType->setCurrentIndex(type >= 0 && type < editLeafType->count() ? type : -1);
}

// The tree gets the slider's value, then the spin box shows it rounded to its
// decimals; only when that changes what the spin box shows does the spin box
// write its rounded value in turn.
void AdvancedTreeProperties::sliderMoved(RowId row, int s) {
    const Row& r = rows[row];
    const double v = sliderValue(s, r.slider->maximum(), r.scale);
    r.write(*parametri, v);
    {
        const QScopedValueRollback<bool> guard(fromSlider, true);
        setSpinValue(r.spin, v);
    }
    refreshIfAutoProof();
}

// A value beyond the slider's range is written but leaves the slider where it is.
void AdvancedTreeProperties::spinChanged(RowId row, double v) {
    const Row& r = rows[row];
    r.write(*parametri, v);
    if (fromSlider)
        return;
    const int s = sliderPosition(v, r.slider->maximum(), r.scale);
    if (s >= r.slider->minimum() && s <= r.slider->maximum()) {
        const QSignalBlocker block(r.slider);
        r.slider->setValue(s);
    }
    refreshIfAutoProof();
}

void AdvancedTreeProperties::refreshIfAutoProof() {
    if (autoProof->isChecked())
        emit forceRefresh();
}

// Every value shown except the nonuniform wind speed goes into the tree, and
// the tree's whole parameter set becomes the undo point.
void AdvancedTreeProperties::applyParameters() {
    for (int i = Strands; i <= WindSpeed; ++i)
        rows[i].write(*parametri, spinValue(rows[i].spin));
    if (editLeafType->currentIndex() >= 0)
        parametri->tipListov = editLeafType->currentIndex();
    undoPoint = *parametri;
    emit forceRefresh();
    emit designEditFinished();
}

// Back to the undo point: the ten values this dialog edits, exactly.
void AdvancedTreeProperties::makeUndo() {
    for (const Row& r : rows)
        r.write(*parametri, r.read(undoPoint));
    parametri->tipListov = undoPoint.tipListov;
}

void AdvancedTreeProperties::on_sliderNumberOfStrands_valueChanged(int s) {
    sliderMoved(Strands, s);
}
void AdvancedTreeProperties::on_editNumberOfStrands_valueChanged(int v) {
    spinChanged(Strands, v);
}
void AdvancedTreeProperties::on_sliderTrinkHeight_valueChanged(int s) {
    sliderMoved(TrunkHeight, s);
}
void AdvancedTreeProperties::on_editTrinkHeight_valueChanged(double v) {
    spinChanged(TrunkHeight, v);
}
void AdvancedTreeProperties::on_sliderBranchThicknessPerStrand_valueChanged(int s) {
    sliderMoved(Thickness, s);
}
void AdvancedTreeProperties::on_editBranchThicknessPerStrand_valueChanged(double v) {
    spinChanged(Thickness, v);
}
void AdvancedTreeProperties::on_sliderGravicentralism_valueChanged(int s) {
    sliderMoved(Gravicentralism, s);
}
void AdvancedTreeProperties::on_editGravicentralism_valueChanged(double v) {
    spinChanged(Gravicentralism, v);
}
void AdvancedTreeProperties::on_sliderPhyllotaxisAngle_valueChanged(int s) {
    sliderMoved(Phyllotaxis, s);
}
void AdvancedTreeProperties::on_editPhyllotaxisAngle_valueChanged(double v) {
    spinChanged(Phyllotaxis, v);
}
void AdvancedTreeProperties::on_editLeafType_currentIndexChanged(int index) {
    if (index >= 0)
        parametri->tipListov = index;
    refreshIfAutoProof();
}
void AdvancedTreeProperties::on_sliderLeafDensity_valueChanged(int s) {
    sliderMoved(LeafDensity, s);
}
void AdvancedTreeProperties::on_editLeafDensity_valueChanged(int v) {
    spinChanged(LeafDensity, v);
}
void AdvancedTreeProperties::on_sliderLeafSize_valueChanged(int s) {
    sliderMoved(LeafSize, s);
}
void AdvancedTreeProperties::on_editLeafSize_valueChanged(double v) {
    spinChanged(LeafSize, v);
}
void AdvancedTreeProperties::on_sliderWindSpeed_valueChanged(int s) {
    sliderMoved(WindSpeed, s);
}
void AdvancedTreeProperties::on_editWindSpeed_valueChanged(double v) {
    spinChanged(WindSpeed, v);
}
void AdvancedTreeProperties::on_sliderWindSpeedNodirect_valueChanged(int s) {
    sliderMoved(WindSpeedNodirect, s);
}
void AdvancedTreeProperties::on_editWindSpeedNodirect_valueChanged(double v) {
    spinChanged(WindSpeedNodirect, v);
}

} // namespace gui
