#include "gui/randomgeneratorseedseditor.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace gui {

RandomGeneratorSeedsEditor::RandomGeneratorSeedsEditor(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Random generator seeds editor"));
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout();
    layout->addLayout(form);
    auto dodaj = [&](const QString& oznaka, const char* ime) {
        auto* polje = new QLineEdit(this);
        polje->setObjectName(ime);
        form->addRow(oznaka, polje);
        return polje;
    };
    randomGrowClose = dodaj(tr("Random: grow close"), "randomGrowClose");
    randomChooseNearPlant = dodaj(tr("Random: choose near plant\n"), "randomChooseNearPlant");
    randomChooseNewPlantGrowSide =
        dodaj(tr("Random: choose new plant grow side"), "randomChooseNewPlantGrowSide");
    randomPositionOfNewPlantsAnywhere =
        dodaj(tr("Random: position of new plants anywhere"), "randomPositionOfNewPlantsAnywhere");
    random3dPositionOfNewPlantsI =
        dodaj(tr("Random: 3D positions of new plants I"), "random3dPositionOfNewPlantsI");
    random3dpositionsOfNewPlantsJ =
        dodaj(tr("Random: 3D positions of new plants J"), "random3dpositionsOfNewPlantsJ");
    randomDeathBecauseOfBeingDominated =
        dodaj(tr("Random: death because of being dominated"), "randomDeathBecauseOfBeingDominated");
    randomDeathBecauseOfBadHeight =
        dodaj(tr("Random: death because of bad height"), "randomDeathBecauseOfBadHeight");
    randomDeathBecauseOfBadMoisture =
        dodaj(tr("Random: death because of bad moisture"), "randomDeathBecauseOfBadMoisture");
    randomDeathBecauseOfBadSunniness =
        dodaj(tr("Random: death because of bad sunniness"), "randomDeathBecauseOfBadSunniness");
    randomDeathBecauseOfBadWindiness =
        dodaj(tr("Random: death because of bad windiness"), "randomDeathBecauseOfBadWindiness");
    randomDeathBecauseOfBadSlope =
        dodaj(tr("Random: death because of bad slope/pH"), "randomDeathBecauseOfBadSlope");
    randomTimeOfDeath = dodaj(tr("Random: time of death"), "randomTimeOfDeath");

    auto* gumbi = new QHBoxLayout();
    gumbi->addStretch();
    okButton = new QPushButton(tr("OK"), this);
    okButton->setObjectName("okButton");
    okButton->setDefault(true);
    cancelButton = new QPushButton(tr("Cancel"), this);
    cancelButton->setObjectName("cancelButton");
    gumbi->addWidget(okButton);
    gumbi->addWidget(cancelButton);
    layout->addLayout(gumbi);
    connect(okButton, &QPushButton::clicked, this, &RandomGeneratorSeedsEditor::accept);
    connect(cancelButton, &QPushButton::clicked, this, &RandomGeneratorSeedsEditor::reject);
}

std::vector<QLineEdit*> RandomGeneratorSeedsEditor::polja() const {
    return {randomGrowClose,
            randomChooseNearPlant,
            randomChooseNewPlantGrowSide,
            randomPositionOfNewPlantsAnywhere,
            random3dPositionOfNewPlantsI,
            random3dpositionsOfNewPlantsJ,
            randomDeathBecauseOfBeingDominated,
            randomDeathBecauseOfBadHeight,
            randomDeathBecauseOfBadMoisture,
            randomDeathBecauseOfBadSunniness,
            randomDeathBecauseOfBadWindiness,
            randomDeathBecauseOfBadSlope,
            randomTimeOfDeath};
}

void RandomGeneratorSeedsEditor::setSeeds(const std::vector<unsigned long long>& seeds) {
    const std::vector<QLineEdit*> vsa = polja();
    for (size_t i = 0; i < vsa.size() && i < seeds.size(); ++i)
        vsa[i]->setText(QString("%1").arg(seeds[i]));
}

// Any text that is not a decimal number gives 0, without a message.
void RandomGeneratorSeedsEditor::accept() {
    std::vector<unsigned long long> seeds;
    for (QLineEdit* polje : polja()) {
        bool ok = false;
        const unsigned long long vrednost = polje->text().trimmed().toULongLong(&ok, 10);
        seeds.push_back(ok ? vrednost : 0);
    }
    emit updateSeeds(seeds);
    QDialog::accept();
}

void RandomGeneratorSeedsEditor::reject() {
    QDialog::reject();
}

} // namespace gui
