#include "ecosystem/render/camera.h"

#include "ecosystem/simulation/data/terraindata.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <algorithm>
#include <cmath>

namespace ecosystem::render {

namespace {
const float gridSpacing = 25.0f;
const float eyeHeight = 1.7f;
} // namespace

Camera::Camera(QObject* parent, ecosystem::data::CTerrainData* terrainData)
    : QObject(parent), terrainData(terrainData), currCamera(0) {
    reset();
}

void Camera::reset() {
    x_zasuk = 0.0f;
    y_zasuk = 0.0f;
    z_pomik = -15.0f;
    dol_pomik = -13.0f;
    levo_pomik = 0.0f;

    atSurface = false;
    aboveSurface = true;

    lx = 0.0f;
    ly = 0.0f;
    lz = -1.0f;
    gama = 0.0f;

    // A bird's-eye view over the terrain ...
    x = 1243.0f;
    y = 1000.0f;
    z = 192.0f;
    alfa = 180.0f;
    beta = 59.0f;
    saveCamera();

    // ... and a low view across it, where the camera stays.
    beta = 0.0f;
    gama = 0.0f;
    x = 1300.0f;
    y = 250.0f;
    z = 790.0f;
    alfa = 270.0f;
    saveCamera();
}

void Camera::saveCamera() {
    shranjeneLokacije.push_back(arbo::Tocka(x, y, z));
    shranjeniZasuki.push_back(arbo::Tocka(alfa, beta, gama));
}

void Camera::switchEcosystemCamera() {
    if (shranjeneLokacije.empty())
        return;
    currCamera++;
    if (currCamera >= int(shranjeneLokacije.size()))
        currCamera = 0;
    const arbo::Tocka& lokacija = shranjeneLokacije[currCamera];
    const arbo::Tocka& zasuk = shranjeniZasuki[currCamera];
    x = lokacija.x;
    y = lokacija.y;
    z = lokacija.z;
    alfa = zasuk.x;
    beta = zasuk.y;
    gama = zasuk.z;
}

void Camera::updateViewingDirection() {
    const double a = alfa / 180.0 * M_PI;
    lx = float(std::sin(a));
    ly = 0.0f;
    lz = float(-std::cos(a));
}

void Camera::setupEcosystemCamera() {
    updateViewingDirection();
    if (atSurface || aboveSurface)
        hodiPoTerenu();
    glRotatef(beta, 1.0f, 0.0f, 0.0f);
    glRotatef(gama, 0.0f, 0.0f, 1.0f);
    gluLookAt(x, y, z, x + lx, y + ly, z + lz, 0.0, 1.0, 0.0);
}

// Height of the terrain surface at (px, pz), on the triangle of the grid cell
// that holds the point; the cell is split along its (i + 1, j)-(i, j + 1)
// diagonal.
float Camera::surfaceHeight(float px, float pz) const {
    const int nx = terrainData->stTockX;
    const int nz = terrainData->stTockY;
    const int i = std::min(int(px / gridSpacing), nx - 2);
    const int j = std::min(int(pz / gridSpacing), nz - 2);
    const float fx = (px - i * gridSpacing) / gridSpacing;
    const float fz = (pz - j * gridSpacing) / gridSpacing;

    const auto& grid = terrainData->pTerrainVertexData;
    const float h00 = grid[i + j * nx].pos.y;
    const float h10 = grid[i + 1 + j * nx].pos.y;
    const float h01 = grid[i + (j + 1) * nx].pos.y;
    const float h11 = grid[i + 1 + (j + 1) * nx].pos.y;

    if (fx + fz < 1.0f)
        return h00 + (h10 - h00) * fx + (h01 - h00) * fz;
    return h11 + (h01 - h11) * (1.0f - fx) + (h10 - h11) * (1.0f - fz);
}

void Camera::hodiPoTerenu() {
    // A grid smaller than one cell has no surface to walk on: the camera flies.
    if (terrainData == nullptr || terrainData->stTockX < 2 || terrainData->stTockY < 2 ||
        terrainData->pTerrainVertexData.size() <
            size_t(terrainData->stTockX) * size_t(terrainData->stTockY))
        return;

    const float maxX = (terrainData->stTockX - 1) * gridSpacing;
    const float maxZ = (terrainData->stTockY - 1) * gridSpacing;
    if (x < 0.0f || x > maxX || z < 0.0f || z > maxZ) {
        if (!atSurface)
            return;
        x = std::clamp(x, 0.0f, maxX);
        z = std::clamp(z, 0.0f, maxZ);
    }

    const float visinaOci = surfaceHeight(x, z) + eyeHeight;
    if (atSurface)
        y = visinaOci;
    else if (aboveSurface && y < visinaOci)
        y = visinaOci;
}

} // namespace ecosystem::render
