#include "gui/dialogs/skytextures.h"

#include "arbo/usermessage.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace gui {

SkyTextures::SkyTextures(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Sky textures"));
    auto* layout = new QVBoxLayout(this);
    auto* grid = new QGridLayout();
    north = addFace(grid, 0, tr("North texture:"), "north");
    south = addFace(grid, 1, tr("South texture:"), "south");
    east = addFace(grid, 2, tr("East texture:"), "east");
    west = addFace(grid, 3, tr("West texture:"), "west");
    up = addFace(grid, 4, tr("Upper texture:"), "up");
    down = addFace(grid, 5, tr("Lower texture:"), "down");
    layout->addLayout(grid);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole)->setObjectName("okButton");
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)->setObjectName("cancelButton");
    connect(buttons, &QDialogButtonBox::accepted, this, &SkyTextures::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

QLineEdit* SkyTextures::addFace(QGridLayout* grid, int row, const QString& label,
                                const char* name) {
    auto* field = new QLineEdit(this);
    field->setObjectName(name);
    field->setMinimumWidth(320);
    auto* browse = new QPushButton(tr("..."), this);
    browse->setObjectName(QString(name) + "Browse");
    connect(browse, &QPushButton::clicked, this, [this, field] { chooseFile(field); });
    auto* text = new QLabel(label, this);
    text->setBuddy(field);
    grid->addWidget(text, row, 0);
    grid->addWidget(field, row, 1);
    grid->addWidget(browse, row, 2);
    return field;
}

void SkyTextures::chooseFile(QLineEdit* field) {
    const QString name = QFileDialog::getOpenFileName(
        this, tr("Choose a file to open"), field->text(), tr("Images (*.png *.xpm *.jpg *.bmp)"));
    if (!name.isEmpty())
        field->setText(name);
}

// A face whose image cannot be read would be left blank in the sky: the user
// is told which one, and the dialog stays open.
void SkyTextures::accept() {
    for (QLineEdit* field : {north, south, east, west, up, down}) {
        if (QImageReader(field->text()).canRead())
            continue;
        arbo::showUserMessage(
            tr("Error").toStdString(),
            tr("Could not open sky texture file %1.").arg(field->text()).toStdString());
        field->setFocus();
        field->selectAll();
        return;
    }
    QDialog::accept();
}

} // namespace gui
