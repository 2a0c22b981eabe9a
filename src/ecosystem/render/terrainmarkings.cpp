#include "ecosystem/render/terrainmarkings.h"

#include "ecosystem/simulation/data/sunfactory.h"
#include "ecosystem/simulation/data/terraindata.h"

#include <QImage>

#include <algorithm>
#include <cmath>

namespace ecosystem::render {

namespace {

// A diamond of layer value 1 reaches 17.75 m from its vertex to each corner.
constexpr float diamondRadius = 17.75f;
constexpr float normalLength = 50.0f;
constexpr double sunBallRadius = 50.0;

// The diamond's colour for a layer value; false for a type without one.
bool diamondColour(int type, float v, GLfloat* rgba) {
    rgba[3] = 0.5f;
    switch (type) {
    case 1: // inclination
        rgba[0] = v, rgba[1] = 0, rgba[2] = v;
        return true;
    case 2: // moisture
        rgba[0] = 0, rgba[1] = v, rgba[2] = 0;
        return true;
    case 3: // sunniness
        rgba[0] = v, rgba[1] = 0, rgba[2] = 0;
        return true;
    case 4: // windiness
        rgba[0] = v, rgba[1] = v, rgba[2] = 0;
        return true;
    default:
        return false;
    }
}

} // namespace

TerrainMarkings::TerrainMarkings(data::CTerrainData* terrainData)
    : terrainData(terrainData), kvadraticnePloskve(gluNewQuadric()) {
    gluQuadricDrawStyle(kvadraticnePloskve, GLU_FILL);
    gluQuadricTexture(kvadraticnePloskve, GL_TRUE);
}

TerrainMarkings::~TerrainMarkings() {
    gluDeleteQuadric(kvadraticnePloskve);
}

void TerrainMarkings::renderNormals() {
    renderDataOnVertices(nullptr, 0);
}
void TerrainMarkings::renderInclination() {
    renderLayer(terrainData->terrainInclination, 1);
}
void TerrainMarkings::renderMoisture() {
    renderLayer(terrainData->terrainMoisture, 2);
}
void TerrainMarkings::renderSunniness() {
    renderLayer(terrainData->terrainSunniness, 3);
}
void TerrainMarkings::renderWindiness() {
    renderLayer(terrainData->terrainWindiness, 4);
}

// A layer that does not cover the grid (not built yet) draws nothing.
void TerrainMarkings::renderLayer(const std::vector<float>& layer, int type) {
    const auto& t = *terrainData;
    if (layer.size() < size_t(t.stTockX) * size_t(std::max(t.stTockY, 0)))
        return;
    renderDataOnVertices(const_cast<float*>(layer.data()), type);
}

void TerrainMarkings::renderDataOnVertices(float* data, int type) {
    glDisable(GL_BLEND);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_LIGHTING);
    if (data)
        drawDiamonds(data, type);
    else
        drawNormalLines();
    glEnable(GL_LIGHTING);
    glEnable(GL_BLEND);
    glEnable(GL_TEXTURE_2D);
    glColor4f(1, 1, 1, 1);
}

// One line per vertex, the last row and column left out, from the vertex 50 m
// along its normal; all lines go to OpenGL in one array.
void TerrainMarkings::drawNormalLines() {
    const auto& t = *terrainData;
    const size_t n = size_t(std::max(t.stTockX, 0)) * size_t(std::max(t.stTockY, 0));
    if (t.stTockX < 2 || t.stTockY < 2 || t.pTerrainVertexData.size() < n ||
        t.terrainNormals.size() < n)
        return;
    const size_t lines = size_t(t.stTockX - 1) * size_t(t.stTockY - 1);
    if (vertices.size() < lines * 6)
        vertices.resize(lines * 6);
    GLfloat* vertex = vertices.data();
    for (int y = 0; y < t.stTockY - 1; ++y)
        for (int x = 0; x < t.stTockX - 1; ++x) {
            const int base = y * t.stTockX + x;
            const arbo::Tocka& p = t.pTerrainVertexData[base].pos;
            const arbo::Tocka& nv = t.terrainNormals[base];
            const GLfloat ends[6] = {p.x,
                                     p.y,
                                     p.z,
                                     p.x + normalLength * nv.x,
                                     p.y + normalLength * nv.y,
                                     p.z + normalLength * nv.z};
            vertex = std::copy(ends, ends + 6, vertex);
        }
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, vertices.data());
    glDrawArrays(GL_LINES, 0, GLsizei(lines * 2));
    glDisableClientState(GL_VERTEX_ARRAY);
}

// Each vertex's diamond is the four-slice disk of radius 17.75 v laid on the
// ground and turned by 45 degrees: a square with its corners on that circle,
// its sides along the grid. The squares go to OpenGL in one array, in vertex
// order, over everything drawn so far (no depth test). A value of 0 or less
// draws nothing, as a disk of such a radius would not.
void TerrainMarkings::drawDiamonds(const float* data, int type) {
    const auto& t = *terrainData;
    const size_t n = size_t(std::max(t.stTockX, 0)) * size_t(std::max(t.stTockY, 0));
    GLfloat rgba[4];
    if (t.stTockX < 2 || t.stTockY < 2 || t.pTerrainVertexData.size() < n ||
        !diamondColour(type, 0.0f, rgba))
        return;
    // Room for every diamond, kept from frame to frame; filled in place.
    const size_t most = size_t(t.stTockX - 1) * size_t(t.stTockY - 1);
    if (vertices.size() < most * 12)
        vertices.resize(most * 12);
    if (colours.size() < most * 16)
        colours.resize(most * 16);
    GLfloat* vertex = vertices.data();
    GLfloat* colour = colours.data();
    const float cornerToSide = float(std::sqrt(0.5));
    for (int y = 0; y < t.stTockY - 1; ++y)
        for (int x = 0; x < t.stTockX - 1; ++x) {
            const int base = y * t.stTockX + x;
            const float v = data[base];
            if (!(v > 0.0f) || !std::isfinite(v))
                continue;
            const arbo::Tocka& p = t.pTerrainVertexData[base].pos;
            const float d = diamondRadius * v * cornerToSide;
            const GLfloat corners[12] = {p.x - d, p.y, p.z + d, p.x + d, p.y, p.z + d,
                                         p.x + d, p.y, p.z - d, p.x - d, p.y, p.z - d};
            vertex = std::copy(corners, corners + 12, vertex);
            diamondColour(type, v, rgba);
            for (int corner = 0; corner < 4; ++corner)
                colour = std::copy(rgba, rgba + 4, colour);
        }
    const GLsizei count = GLsizei((vertex - vertices.data()) / 3);
    glDisable(GL_DEPTH_TEST);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, vertices.data());
    glColorPointer(4, GL_FLOAT, 0, colours.data());
    glDrawArrays(GL_QUADS, 0, count);
    glDisableClientState(GL_COLOR_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
    glEnable(GL_DEPTH_TEST);
}

// The sun's positions of the day on a half-ellipsoid over the middle of the
// terrain: its horizontal half-axes twice the terrain's size, its height the
// terrain box's height.
void TerrainMarkings::renderSun() {
    const data::CSunFactory* sun = terrainData->getSunFactory();
    if (!sun)
        return;
    const arbo::Tocka& dimen = terrainData->dimen;
    for (int i = 0; i < sun->getNrSunSamples(); ++i) {
        const arbo::Tocka p = sun->getSunPositionAtSample(i);
        renderSunBall(arbo::Tocka((p.x + 0.5f) * dimen.x, p.y * dimen.y, (p.z + 0.5f) * dimen.z));
    }
    glColor3f(1, 1, 1);
}

// A yellow ball of radius 50 m. It wears the scene's own sun texture rather
// than whatever texture happens to be named 1 in the context (the first tree's
// bark, as a rule), so that it looks like a sun.
void TerrainMarkings::renderSunBall(arbo::Tocka sunPos) {
    glPushMatrix();
    glColor3f(1, 1, 0);
    glTranslatef(sunPos.x, sunPos.y, sunPos.z);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, sunTexture);
    gluSphere(kvadraticnePloskve, sunBallRadius, 10, 10);
    glPopMatrix();
}

void TerrainMarkings::renderLandMarkings() {}

// White to orange mottling (the ball's yellow colour modulates it into yellow
// and deep gold); periodic around the ball so no seam shows.
QImage TerrainMarkings::sunImage() {
    const int w = 64, h = 32;
    QImage image(w, h, QImage::Format_RGB32);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const double s = 2.0 * M_PI * x / w, t = M_PI * y / (h - 1);
            const double f = 0.5 + 0.25 * std::sin(5.0 * s + 3.0 * std::sin(2.0 * t)) +
                             0.25 * std::sin(7.0 * t + 2.0 * std::cos(3.0 * s));
            image.setPixel(x, y, qRgb(255, 170 + int(85 * f), 60 + int(140 * f)));
        }
    return image;
}

} // namespace ecosystem::render
