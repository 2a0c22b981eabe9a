#include "gui/actionhandling/viewhandler.h"

#include "arbo/arbo.h"
#include "ecosystem/render/ecosystemrender.h"

namespace gui::actionhandling {

using ecosystem::render::EcosystemRender;

namespace {
void flip(bool& flag) {
    flag = !flag;
}
} // namespace

ViewHandler::ViewHandler(QObject* parent, EcosystemRender* model) : QObject(parent), model(model) {}

void ViewHandler::actionShow_ecosystem() {
    model->toggleSingleRender();
    emit forceRepaint();
}

void ViewHandler::actionDisplay_leaves() {
    flip(model->getIzbranoArbo()->pdPrepared.listi);
    emit forceRepaint();
}

void ViewHandler::actionColour_uppon() {
    flip(model->getIzbranoArbo()->pogled.colorMonopodial);
    emit forceRepaint();
}

// The tree in tree-edit mode, the terrain in ecosystem mode.
void ViewHandler::actionRender_wireframe() {
    if (model->isSingleRender())
        flip(model->getIzbranoArbo()->pogled.wireframe);
    else
        model->toggleWireframe();
    emit forceRepaint();
}

void ViewHandler::actionHigh_quality_rendering_more_polygons() {
    flip(model->getIzbranoArbo()->pogled.highQualityRendering);
    emit forceRepaint();
}

void ViewHandler::actionLighting_enabled() {
    model->toggleLightingEnabled();
    emit forceRepaint();
}

// The tree-edit background and the sky box go together.
void ViewHandler::actionDisplay_background_sky() {
    flip(model->getIzbranoArbo()->pogled.backgroundSky);
    model->toggleDisplaySky();
    emit forceRepaint();
}

// Shows in the next frame's print; nothing to repaint.
void ViewHandler::actionShow_frame_rate() {
    model->toggleShowFPS();
}

void ViewHandler::actionDo_not_draw_trees_ecosystem_mode() {
    model->toggleDoNotDrawTrees();
    emit forceRepaint();
}

void ViewHandler::actionDo_not_refresh_display_only_run_simulation_ecosystem_mode() {
    model->toggleDoNotRefreshDisplay();
    emit forceRepaint();
}

void ViewHandler::actionShow_ecologic_neighborhood_ecosystem_mode() {
    model->toggleShowNeighborHood();
    emit forceRepaint();
}

void ViewHandler::actionDisplay_terrain_normals() {
    model->toggleDisplayTerrainNormals();
    emit forceRepaint();
}

void ViewHandler::actionDisplay_terrain_inclination() {
    model->toggleDisplayTerrainInclination();
    emit forceRepaint();
}

void ViewHandler::actionDisplay_terrain_moisture() {
    model->toggleDisplayTerrainMoisture();
    emit forceRepaint();
}

void ViewHandler::actionDisplay_terrain_sunniness() {
    model->toggleDisplayTerrainSunniness();
    emit forceRepaint();
}

void ViewHandler::actionDisplay_terrain_windiness() {
    model->toggleDisplayTerrainWindiness();
    emit forceRepaint();
}

void ViewHandler::actionDisplay_terrain_land_markings_S_N_E_W() {
    model->toggleDisplayLandMarkings();
    emit forceRepaint();
}

void ViewHandler::actionDisplay_sun() {
    model->toggleDisplaySun();
    emit forceRepaint();
}

// Far plants as impostors, or exactly as their trees draw.
void ViewHandler::actionFast_distant_trees() {
    model->toggleFastDistantTrees();
    emit forceRepaint();
}

} // namespace gui::actionhandling
