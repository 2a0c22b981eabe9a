#pragma once

#include "arbo/tocka.h"

namespace ecosystem::data {

class CTerrainData;

// One unit normal per vertex: that of the triangle the vertex spans with its
// +X and next-row neighbours.
class CTerrainNormalsFactory {
public:
    CTerrainData& terrainData;

    explicit CTerrainNormalsFactory(CTerrainData& terrainData);

    arbo::Tocka getNormal(arbo::Tocka& v1, arbo::Tocka& v2, arbo::Tocka& v3);
    void buildTriangleNormals();
};

} // namespace ecosystem::data
