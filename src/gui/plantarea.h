#pragma once

#include <QDialog>

class QSpinBox;
class QGridLayout;

namespace gui {

// "Plant area setup": the four grid bounds of the rectangle in which plants
// live. Every change takes effect at once through the spin boxes' signals.
class PlantArea : public QDialog {
    Q_OBJECT
public:
    explicit PlantArea(QWidget* parent);

    QSpinBox* minX;
    QSpinBox* maxX;
    QSpinBox* minY;
    QSpinBox* maxY;

private:
    QSpinBox* addBound(QGridLayout* grid, int row, const QString& label, const char* name);
};

} // namespace gui
