#pragma once

#include "arbo/tocka.h"

#include <QObject>

class QWidget;

namespace ecosystem::render {
class EcosystemRender;
class Camera;
} // namespace ecosystem::render

namespace gui {
class NavigationPanel;
}

namespace gui::actionhandling {

// Turns the navigation actions and the navigation panel into camera changes.
// In ecosystem mode an action adds an impulse to a velocity and the camera
// glides on the 10 ms camera timer while the velocity dies out; in tree-edit
// mode a few actions shift the single tree at once.
class NavigationHandler : public QObject {
    Q_OBJECT
public:
    NavigationHandler(QWidget* parentWindow, ecosystem::render::EcosystemRender* model);

    QWidget* parentWindow;
    ecosystem::render::EcosystemRender* model;
    NavigationPanel* navigationPanel = nullptr;
    float fineMoveStep = 0.1f;
    float ordinalMoveStep = 1.0f;
    float hugeMoveStep = 30.0f;
    float normalRotateStep = 1.0f;
    float treeMoveHugeStep = 10.0f;
    arbo::Tocka hitrostiPremikaRelative{0, 0, 0}; // x, y, z per glide tick
    arbo::Tocka hitrostiZasuka{0, 0, 0};          // alfa, beta, gama per glide tick

signals:
    void forceRefresh();
    void startCameraAnimation();
    void stopCameraAnimation();

public slots:
    void actionMove_forward();
    void actionMove_backward();
    void actionMove_forward_more();
    void actionMove_backward_more();
    void actionMove_forward_less();
    void actionMove_backward_less();
    void actionMove_right();
    void actionMove_left();
    void actionMove_right_more();
    void actionMove_left_more();
    void actionMove_right_less();
    void actionMove_left_less();
    void actionMove_up();
    void actionMove_down();
    void actionMove_up_more();
    void actionMove_down_more();
    void actionMove_up_less();
    void actionMove_down_less();
    void actionRotate_left();
    void actionRotate_right();
    void actionRotate_up();
    void actionRotate_down();
    void actionRotate_in();
    void actionRotate_out();
    void actionSwitch_to_next_predefined_camera();
    void actionSave_camera_as_predefined();
    void actionReset_camera_view();
    void actionKeep_camera_position_above_terrain_surface_ecosystem_mode();
    void actionForce_camera_position_at_terrain_surface_ecosystem_mode();

    void animateCamera();
    void action_Navigation_panel();
    void updateNavigationPanelValues();

    void absoluteMoveX(int v);
    void absoluteMoveY(int v);
    void absoluteMoveZ(int v);
    void absoluteMoveTurn(int v);
    void absoluteMoveRoll(int v);
    void absoluteMoveYow(int v);

private:
    ecosystem::render::Camera* camera() const;
    bool treeEditMode() const;
    // Ecosystem mode: an impulse of `step` along the viewing direction (forward)
    // or to its right, in the ground plane; then the glide starts.
    void pushForward(float step);
    void pushRight(float step);
    void pushUp(float step);
    void pushRotation(float alfa, float beta, float gama);
    // Tree-edit mode: moves the single tree down by `step` and repaints.
    void shiftTreeDown(float step);
};

} // namespace gui::actionhandling
