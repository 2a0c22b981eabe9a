#pragma once

#include "arbo/parametridrevesa.h"

#include <QDialog>

#include <functional>
#include <vector>

class QAbstractSpinBox;
class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QDoubleSpinBox;
class QGridLayout;
class QPushButton;
class QSlider;
class QSpinBox;

namespace arbo {
class Arbo;
}

namespace gui {

// "Advanced tree properties": the scalars of a tree's parameters, each with a
// slider and a spin box kept in step. Every change is written into the tree at
// once (and repainted with "auto-proof" on); "Apply" makes the values the new
// undo point, "Cancel" (or closing) returns to it, "OK" keeps the values.
class AdvancedTreeProperties : public QDialog {
    Q_OBJECT
public:
    AdvancedTreeProperties(QWidget* parent, arbo::Arbo* tree);

    // Edits another tree (or one whose parameters were replaced): its values
    // are shown and become the undo point.
    void takeTree(arbo::Arbo* tree);
    // Shows the tree's values again (after an undo elsewhere); the undo point stays.
    void loadControls();

    arbo::ParametriDrevesa* parametri;
    arbo::ParametriDrevesa undoPoint;

    QSlider* sliderNumberOfStrands;
    QSpinBox* editNumberOfStrands;
    QSlider* sliderTrinkHeight;
    QDoubleSpinBox* editTrinkHeight;
    QSlider* sliderBranchThicknessPerStrand;
    QDoubleSpinBox* editBranchThicknessPerStrand;
    QSlider* sliderGravicentralism;
    QDoubleSpinBox* editGravicentralism;
    QSlider* sliderPhyllotaxisAngle;
    QDoubleSpinBox* editPhyllotaxisAngle;
    QComboBox* editLeafType;
    QSlider* sliderLeafDensity;
    QSpinBox* editLeafDensity;
    QSlider* sliderLeafSize;
    QDoubleSpinBox* editLeafSize;
    QSlider* sliderWindSpeed;
    QDoubleSpinBox* editWindSpeed;
    QSlider* sliderWindSpeedNodirect;
    QDoubleSpinBox* editWindSpeedNodirect;
    QCheckBox* autoProof;

signals:
    void forceRefresh();
    // A slider let go, a value typed or chosen, Apply: one step for undo.
    void designEditFinished();

public slots:
    void applyParameters();
    void makeUndo();
    void on_sliderNumberOfStrands_valueChanged(int s);
    void on_editNumberOfStrands_valueChanged(int v);
    void on_sliderTrinkHeight_valueChanged(int s);
    void on_editTrinkHeight_valueChanged(double v);
    void on_sliderBranchThicknessPerStrand_valueChanged(int s);
    void on_editBranchThicknessPerStrand_valueChanged(double v);
    void on_sliderGravicentralism_valueChanged(int s);
    void on_editGravicentralism_valueChanged(double v);
    void on_sliderPhyllotaxisAngle_valueChanged(int s);
    void on_editPhyllotaxisAngle_valueChanged(double v);
    void on_editLeafType_currentIndexChanged(int index);
    void on_sliderLeafDensity_valueChanged(int s);
    void on_editLeafDensity_valueChanged(int v);
    void on_sliderLeafSize_valueChanged(int s);
    void on_editLeafSize_valueChanged(double v);
    void on_sliderWindSpeed_valueChanged(int s);
    void on_editWindSpeed_valueChanged(double v);
    void on_sliderWindSpeedNodirect_valueChanged(int s);
    void on_editWindSpeedNodirect_valueChanged(double v);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // One value: its slider (value = s / sliderMax * scale, or s itself when
    // scale is 0), its spin box and its field in the parameters.
    struct Row {
        QSlider* slider;
        QAbstractSpinBox* spin;
        double scale;
        std::function<double(const arbo::ParametriDrevesa&)> read;
        std::function<void(arbo::ParametriDrevesa&, double)> write;
    };
    enum RowId {
        Strands,
        TrunkHeight,
        Thickness,
        Gravicentralism,
        Phyllotaxis,
        LeafDensity,
        LeafSize,
        WindSpeed,
        WindSpeedNodirect
    };
    static constexpr int LeafTypeRow = 5;

    void addRows(QGridLayout* grid);
    void connectControls(QPushButton* apply, QDialogButtonBox* buttons);
    void addRow(QGridLayout* grid, const QString& label, QSlider*& slider, int sliderMax,
                QAbstractSpinBox* spin, double scale,
                std::function<double(const arbo::ParametriDrevesa&)> read,
                std::function<void(arbo::ParametriDrevesa&, double)> write);
    void sliderMoved(RowId row, int s);
    void spinChanged(RowId row, double v);
    void refreshIfAutoProof();

    std::vector<Row> rows;
    bool fromSlider = false;

public:
    // The slider's value and the position that shows a value, as the rows map them.
    static double sliderValue(int s, int sliderMax, double scale);
    static int sliderPosition(double value, int sliderMax, double scale);
};

} // namespace gui
