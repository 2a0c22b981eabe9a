#pragma once

#include "arbo/tocka.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <vector>

class QImage;

namespace ecosystem::data {
class CTerrainData;
}

namespace ecosystem::render {

// Diagnostic overlays on the terrain: the surface normals as short lines, each
// environment layer (inclination, moisture, sunniness, windiness) as flat
// coloured diamonds whose size follows the layer value, and the day's sun path
// as a row of yellow balls in the sky.
class TerrainMarkings {
public:
    explicit TerrainMarkings(data::CTerrainData* terrainData);
    ~TerrainMarkings();
    TerrainMarkings(const TerrainMarkings&) = delete;
    TerrainMarkings& operator=(const TerrainMarkings&) = delete;

    // Lines in the current colour (the scene sets red before the call).
    void renderNormals();
    void renderInclination();
    void renderMoisture();
    void renderSunniness();
    void renderWindiness();
    // One layer as diamonds (type 1 to 4), or the normals when data is null.
    void renderDataOnVertices(float* data, int type);
    void renderSun();
    void renderSunBall(arbo::Tocka sunPos);
    // There are no land markings to draw.
    void renderLandMarkings();

    // The sun balls' surface: warm yellow mottling, seamless around the ball.
    static QImage sunImage();

    data::CTerrainData* terrainData;
    GLUquadric* kvadraticnePloskve;
    // The texture the sun balls are drawn with; the scene creates it from
    // sunImage() in its context. 0 draws them plain.
    GLuint sunTexture = 0;

private:
    void renderLayer(const std::vector<float>& layer, int type);
    void drawNormalLines();
    void drawDiamonds(const float* data, int type);

    // Reused from frame to frame so that an overlay allocates nothing while drawn.
    std::vector<GLfloat> vertices;
    std::vector<GLfloat> colours;
};

} // namespace ecosystem::render
