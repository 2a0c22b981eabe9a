#include "gui/actionhandling/navigationhandler.h"

#include "ecosystem/render/camera.h"
#include "ecosystem/render/ecosystemrender.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "gui/navigationpanel.h"

#include <charconv>
#include <cmath>

namespace gui::actionhandling {

namespace {
const float dusenje = 0.9f;       // the velocity kept from one glide tick to the next
const float pragUstavitve = 0.5f; // the glide stops when every component is below this
// The shortest text that reads back as the same float.
QString shortest(float v) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, v);
    return QString::fromLatin1(buffer, int(result.ptr - buffer));
}
} // namespace

NavigationHandler::NavigationHandler(QWidget* parentWindow,
                                     ecosystem::render::EcosystemRender* model)
    : QObject(parentWindow), parentWindow(parentWindow), model(model) {}

ecosystem::render::Camera* NavigationHandler::camera() const {
    return model->getCurrentCamera();
}

bool NavigationHandler::treeEditMode() const {
    return model->isSingleRender();
}

void NavigationHandler::pushForward(float step) {
    const ecosystem::render::Camera* c = camera();
    hitrostiPremikaRelative.x += step * c->lx;
    hitrostiPremikaRelative.z += step * c->lz;
    emit startCameraAnimation();
}

void NavigationHandler::pushRight(float step) {
    // right = forward x up = (-lz, 0, lx)
    const ecosystem::render::Camera* c = camera();
    hitrostiPremikaRelative.x += step * -c->lz;
    hitrostiPremikaRelative.z += step * c->lx;
    emit startCameraAnimation();
}

void NavigationHandler::pushUp(float step) {
    hitrostiPremikaRelative.y += step;
    emit startCameraAnimation();
}

void NavigationHandler::pushRotation(float alfa, float beta, float gama) {
    hitrostiZasuka.x += alfa;
    hitrostiZasuka.y += beta;
    hitrostiZasuka.z += gama;
    emit startCameraAnimation();
}

void NavigationHandler::shiftTreeDown(float step) {
    camera()->dol_pomik += step;
    emit forceRefresh();
}

void NavigationHandler::actionMove_forward() {
    treeEditMode() ? shiftTreeDown(ordinalMoveStep) : pushForward(ordinalMoveStep);
}
void NavigationHandler::actionMove_backward() {
    treeEditMode() ? shiftTreeDown(-ordinalMoveStep) : pushForward(-ordinalMoveStep);
}
void NavigationHandler::actionMove_forward_more() {
    treeEditMode() ? shiftTreeDown(treeMoveHugeStep) : pushForward(hugeMoveStep);
}
void NavigationHandler::actionMove_backward_more() {
    treeEditMode() ? shiftTreeDown(-treeMoveHugeStep) : pushForward(-hugeMoveStep);
}
void NavigationHandler::actionMove_forward_less() {
    treeEditMode() ? shiftTreeDown(fineMoveStep) : pushForward(fineMoveStep);
}
void NavigationHandler::actionMove_backward_less() {
    treeEditMode() ? shiftTreeDown(-fineMoveStep) : pushForward(-fineMoveStep);
}

void NavigationHandler::actionMove_right() {
    treeEditMode() ? emit forceRefresh() : pushRight(ordinalMoveStep);
}
void NavigationHandler::actionMove_left() {
    treeEditMode() ? emit forceRefresh() : pushRight(-ordinalMoveStep);
}
void NavigationHandler::actionMove_right_more() {
    treeEditMode() ? emit forceRefresh() : pushRight(hugeMoveStep);
}
void NavigationHandler::actionMove_left_more() {
    treeEditMode() ? emit forceRefresh() : pushRight(-hugeMoveStep);
}
void NavigationHandler::actionMove_right_less() {
    treeEditMode() ? emit forceRefresh() : pushRight(fineMoveStep);
}
void NavigationHandler::actionMove_left_less() {
    treeEditMode() ? emit forceRefresh() : pushRight(-fineMoveStep);
}

void NavigationHandler::actionMove_up() {
    treeEditMode() ? emit forceRefresh() : pushUp(ordinalMoveStep);
}
void NavigationHandler::actionMove_down() {
    treeEditMode() ? emit forceRefresh() : pushUp(-ordinalMoveStep);
}
void NavigationHandler::actionMove_up_more() {
    treeEditMode() ? emit forceRefresh() : pushUp(hugeMoveStep);
}
void NavigationHandler::actionMove_down_more() {
    treeEditMode() ? emit forceRefresh() : pushUp(-hugeMoveStep);
}
void NavigationHandler::actionMove_up_less() {
    treeEditMode() ? emit forceRefresh() : pushUp(fineMoveStep);
}
void NavigationHandler::actionMove_down_less() {
    treeEditMode() ? emit forceRefresh() : pushUp(-fineMoveStep);
}

void NavigationHandler::actionRotate_left() {
    if (treeEditMode()) {
        camera()->levo_pomik += ordinalMoveStep;
        emit forceRefresh();
    } else {
        pushRotation(-normalRotateStep, 0, 0);
    }
}
void NavigationHandler::actionRotate_right() {
    if (treeEditMode()) {
        camera()->levo_pomik -= ordinalMoveStep;
        emit forceRefresh();
    } else {
        pushRotation(normalRotateStep, 0, 0);
    }
}
void NavigationHandler::actionRotate_up() {
    treeEditMode() ? emit forceRefresh() : pushRotation(0, -normalRotateStep, 0);
}
void NavigationHandler::actionRotate_down() {
    treeEditMode() ? emit forceRefresh() : pushRotation(0, normalRotateStep, 0);
}
void NavigationHandler::actionRotate_in() {
    treeEditMode() ? emit forceRefresh() : pushRotation(0, 0, -normalRotateStep);
}
void NavigationHandler::actionRotate_out() {
    treeEditMode() ? emit forceRefresh() : pushRotation(0, 0, normalRotateStep);
}

void NavigationHandler::actionSwitch_to_next_predefined_camera() {
    if (treeEditMode())
        return;
    camera()->switchEcosystemCamera();
    hitrostiPremikaRelative = arbo::Tocka(0, 0, 0);
    hitrostiZasuka = arbo::Tocka(0, 0, 0);
    emit forceRefresh();
}

void NavigationHandler::actionSave_camera_as_predefined() {
    camera()->saveCamera();
}

void NavigationHandler::actionReset_camera_view() {
    camera()->reset();
    emit forceRefresh();
}

void NavigationHandler::actionKeep_camera_position_above_terrain_surface_ecosystem_mode() {
    camera()->aboveSurface = !camera()->aboveSurface;
    emit forceRefresh();
}

void NavigationHandler::actionForce_camera_position_at_terrain_surface_ecosystem_mode() {
    camera()->atSurface = !camera()->atSurface;
    emit forceRefresh();
}

void NavigationHandler::animateCamera() {
    ecosystem::render::Camera* c = camera();
    for (float* v :
         {&hitrostiPremikaRelative.x, &hitrostiPremikaRelative.y, &hitrostiPremikaRelative.z,
          &hitrostiZasuka.x, &hitrostiZasuka.y, &hitrostiZasuka.z})
        *v *= dusenje;
    c->x += hitrostiPremikaRelative.x;
    c->z += hitrostiPremikaRelative.z;
    c->y += hitrostiPremikaRelative.y;
    c->alfa += hitrostiZasuka.x;
    c->beta += hitrostiZasuka.y;
    c->gama += hitrostiZasuka.z;

    bool miruje = true;
    for (float v : {hitrostiPremikaRelative.x, hitrostiPremikaRelative.y, hitrostiPremikaRelative.z,
                    hitrostiZasuka.x, hitrostiZasuka.y, hitrostiZasuka.z})
        miruje = miruje && std::fabs(v) < pragUstavitve;
    if (miruje) {
        hitrostiPremikaRelative = arbo::Tocka(0, 0, 0);
        hitrostiZasuka = arbo::Tocka(0, 0, 0);
        emit stopCameraAnimation();
    }
    emit forceRefresh();
}

void NavigationHandler::action_Navigation_panel() {
    navigationPanel = new NavigationPanel(parentWindow);
    updateNavigationPanelValues();
    const Ui_NavigationPanel& ui = navigationPanel->ui;
    connect(ui.X, &QSlider::valueChanged, this, &NavigationHandler::absoluteMoveX);
    connect(ui.Y, &QSlider::valueChanged, this, &NavigationHandler::absoluteMoveY);
    connect(ui.Z, &QSlider::valueChanged, this, &NavigationHandler::absoluteMoveZ);
    connect(ui.Turn, &QDial::valueChanged, this, &NavigationHandler::absoluteMoveTurn);
    connect(ui.Roll, &QDial::valueChanged, this, &NavigationHandler::absoluteMoveRoll);
    connect(ui.Yow, &QDial::valueChanged, this, &NavigationHandler::absoluteMoveYow);
    connect(ui.travelForward, &QPushButton::pressed, this, &NavigationHandler::actionMove_forward);
    connect(ui.travelBackward, &QPushButton::pressed, this,
            &NavigationHandler::actionMove_backward);
    connect(this, &NavigationHandler::forceRefresh, this,
            &NavigationHandler::updateNavigationPanelValues);
    navigationPanel->show();
}

void NavigationHandler::updateNavigationPanelValues() {
    if (navigationPanel == nullptr)
        return;
    const ecosystem::render::Camera* c = camera();
    // Each set value that changes fires valueChanged, which writes the whole
    // number back into the camera: with the panel open the camera is held to
    // whole numbers within the controls' ranges.
    Ui_NavigationPanel& ui = navigationPanel->ui;
    ui.X->setValue(int(c->x));
    ui.Y->setValue(int(c->y));
    ui.Z->setValue(int(c->z));
    ui.Turn->setValue(int(c->alfa));
    ui.Roll->setValue(int(c->beta));
    ui.Yow->setValue(int(c->gama));
    const ecosystem::data::CTerrainData* t = model->getTerrainData();
    ui.dmr->setText(QString("(%1, %2, %3)")
                        .arg(shortest(c->x + t->dmrMinX), shortest(c->z + t->dmrMinY),
                             shortest(c->y + t->dmrMinZ)));
}

void NavigationHandler::absoluteMoveX(int v) {
    camera()->x = float(v);
    emit forceRefresh();
}
void NavigationHandler::absoluteMoveY(int v) {
    camera()->y = float(v);
    emit forceRefresh();
}
void NavigationHandler::absoluteMoveZ(int v) {
    camera()->z = float(v);
    emit forceRefresh();
}
void NavigationHandler::absoluteMoveTurn(int v) {
    camera()->alfa = float(v);
    emit forceRefresh();
}
void NavigationHandler::absoluteMoveRoll(int v) {
    camera()->beta = float(v);
    emit forceRefresh();
}
void NavigationHandler::absoluteMoveYow(int v) {
    camera()->gama = float(v);
    emit forceRefresh();
}

} // namespace gui::actionhandling
