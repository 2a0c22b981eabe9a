#include "gui/plantarea.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

namespace gui {

PlantArea::PlantArea(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Plant area setup"));
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout();
    // The bounds are grid indices of the compiled-in 100 x 100 DEM.
    minX = addBound(grid, 0, tr("Minimum x:"), "minX");
    maxX = addBound(grid, 1, tr("Maximum x:"), "maxX");
    minY = addBound(grid, 2, tr("Minimum y:"), "minY");
    maxY = addBound(grid, 3, tr("Maximum y:"), "maxY");
    layout->addLayout(grid);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole)->setObjectName("okButton");
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)->setObjectName("cancelButton");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

QSpinBox* PlantArea::addBound(QGridLayout* grid, int row, const QString& label, const char* name) {
    auto* spin = new QSpinBox(this);
    spin->setObjectName(name);
    spin->setRange(0, 99);
    auto* slider = new QSlider(Qt::Horizontal, this);
    slider->setRange(1, 99);
    slider->setMinimumWidth(200);
    connect(spin, &QSpinBox::valueChanged, slider, &QSlider::setValue);
    connect(slider, &QSlider::valueChanged, spin, &QSpinBox::setValue);
    auto* text = new QLabel(label, this);
    text->setBuddy(spin);
    grid->addWidget(text, row, 0);
    grid->addWidget(spin, row, 1);
    grid->addWidget(slider, row, 2);
    return spin;
}

} // namespace gui
