#pragma once

#include <QDialog>

#include <vector>

class QLineEdit;
class QPushButton;

namespace gui {

// "Random generator seeds editor": the thirteen states of the simulation's
// random streams as decimal numbers. OK hands the edited values on through
// updateSeeds; Cancel drops them.
class RandomGeneratorSeedsEditor : public QDialog {
    Q_OBJECT
public:
    explicit RandomGeneratorSeedsEditor(QWidget* parent = nullptr);

    void setSeeds(const std::vector<unsigned long long>& seeds);

    // In seed-vector order.
    QLineEdit* randomGrowClose;
    QLineEdit* randomChooseNearPlant;
    QLineEdit* randomChooseNewPlantGrowSide;
    QLineEdit* randomPositionOfNewPlantsAnywhere;
    QLineEdit* random3dPositionOfNewPlantsI;
    QLineEdit* random3dpositionsOfNewPlantsJ;
    QLineEdit* randomDeathBecauseOfBeingDominated;
    QLineEdit* randomDeathBecauseOfBadHeight;
    QLineEdit* randomDeathBecauseOfBadMoisture;
    QLineEdit* randomDeathBecauseOfBadSunniness;
    QLineEdit* randomDeathBecauseOfBadWindiness;
    QLineEdit* randomDeathBecauseOfBadSlope;
    QLineEdit* randomTimeOfDeath;
    QPushButton* okButton;
    QPushButton* cancelButton;

signals:
    void updateSeeds(const std::vector<unsigned long long>& seeds);

public slots:
    void accept() override;
    void reject() override;

private:
    std::vector<QLineEdit*> polja() const;
};

} // namespace gui
