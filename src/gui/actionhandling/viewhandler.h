#pragma once

#include <QObject>

namespace ecosystem::render {
class EcosystemRender;
}

namespace gui::actionhandling {

// Carries out the display switches of the View menu: each flips one flag of
// the scene or of the selected tree, then asks every view to repaint.
class ViewHandler : public QObject {
    Q_OBJECT
public:
    ViewHandler(QObject* parent, ecosystem::render::EcosystemRender* model);

    ecosystem::render::EcosystemRender* model;

signals:
    void forceRepaint();

public slots:
    void actionShow_ecosystem();
    void actionDisplay_leaves();
    void actionColour_uppon();
    void actionRender_wireframe();
    void actionHigh_quality_rendering_more_polygons();
    void actionLighting_enabled();
    void actionDisplay_background_sky();
    void actionShow_frame_rate();
    void actionDo_not_draw_trees_ecosystem_mode();
    void actionDo_not_refresh_display_only_run_simulation_ecosystem_mode();
    void actionShow_ecologic_neighborhood_ecosystem_mode();
    void actionDisplay_terrain_normals();
    void actionDisplay_terrain_inclination();
    void actionDisplay_terrain_moisture();
    void actionDisplay_terrain_sunniness();
    void actionDisplay_terrain_windiness();
    void actionDisplay_terrain_land_markings_S_N_E_W();
    void actionDisplay_sun();
    void actionFast_distant_trees();
};

} // namespace gui::actionhandling
