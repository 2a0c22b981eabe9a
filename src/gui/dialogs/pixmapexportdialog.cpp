#include "gui/dialogs/pixmapexportdialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

namespace gui {

namespace {
QSpinBox* sizeBox(QWidget* parent, const char* name) {
    auto* box = new QSpinBox(parent);
    box->setObjectName(name);
    box->setRange(1, 10000);
    box->setValue(2048);
    return box;
}
} // namespace

PixmapExportDialog::PixmapExportDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Export pixmap"));
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout();
    sbWidth = sizeBox(this, "sbWidth");
    sbHeight = sizeBox(this, "sbHeight");
    sliderQuality = new QSlider(Qt::Horizontal, this);
    sliderQuality->setObjectName("sliderQuality");
    sliderQuality->setRange(0, 99);
    sliderQuality->setValue(0);
    sliderQuality->setMinimumWidth(200);
    // Compressing a large image hardest takes minutes; the user should know.
    sliderQuality->setToolTip(tr("PNG compression: 0 gives the smallest file and takes longest, "
                                 "99 the largest file and is fastest."));
    form->addRow(tr("Pixmap width:"), sbWidth);
    form->addRow(tr("Pixmap height:"), sbHeight);
    form->addRow(tr("Quality:"), sliderQuality);
    layout->addLayout(form);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole)->setObjectName("okButton");
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)->setObjectName("cancelButton");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

} // namespace gui
