#pragma once

#include "arbo/tocka.h"

#include <QObject>

#include <vector>

namespace ecosystem::data {
class CTerrainData;
}

namespace ecosystem::render {

// The viewpoint of both scene modes. In tree-edit mode five values place and
// turn the single tree; in ecosystem mode the camera walks or flies over the
// terrain, optionally tied to its surface, and can switch between saved
// viewpoints.
class Camera : public QObject {
    Q_OBJECT
public:
    // Tree-edit mode.
    float x_zasuk;    // tilt of the tree about x
    float y_zasuk;    // turn of the tree about y
    float z_pomik;    // shift along the viewing axis
    float dol_pomik;  // shift downwards
    float levo_pomik; // shift to the left

    // Ecosystem mode.
    float alfa; // heading about the vertical axis
    float beta; // pitch about x
    float gama; // roll about z
    float x, y, z;
    float lx, ly, lz; // unit viewing direction in the ground plane, from alfa

    bool atSurface;    // hold the eye at the terrain surface
    bool aboveSurface; // keep the eye from going below the surface

    ecosystem::data::CTerrainData* terrainData; // not owned

    std::vector<arbo::Tocka> shranjeneLokacije; // predefined positions (x, y, z)
    std::vector<arbo::Tocka> shranjeniZasuki;   // predefined rotations (alfa, beta, gama)
    int currCamera;

    Camera(QObject* parent, ecosystem::data::CTerrainData* terrainData);

    void reset();
    void saveCamera();
    void switchEcosystemCamera();
    // Sets up the model-view transformation; expects the identity on entry.
    void setupEcosystemCamera();
    // Applies the surface modes to the eye height.
    void hodiPoTerenu();

private:
    void updateViewingDirection();
    float surfaceHeight(float px, float pz) const;
};

} // namespace ecosystem::render
