#include "ecosystem/simulation/data/terrainnormalsfactory.h"

#include "ecosystem/simulation/data/rowworkers.h"
#include "ecosystem/simulation/data/terraindata.h"

#include <QCoreApplication>

#include <algorithm>

namespace ecosystem::data {

using arbo::Tocka;

CTerrainNormalsFactory::CTerrainNormalsFactory(CTerrainData& terrainData)
    : terrainData(terrainData) {}

Tocka CTerrainNormalsFactory::getNormal(Tocka& v1, Tocka& v2, Tocka& v3) {
    const Tocka r1 = v1 - v2;
    const Tocka r2 = v3 - v2;
    Tocka n = Tocka::vektorskiProd(r1, r2);
    n.normalize();
    return n;
}

// Each vertex gets the normal of the triangle it spans with its +X and
// next-row neighbours. The last column and row span none: they take the normal
// of the nearest vertex that does (a grid one point wide keeps "up").
void CTerrainNormalsFactory::buildTriangleNormals() {
    CTerrainData& t = terrainData;
    const int w = t.stTockX;
    const int h = t.stTockY;
    auto pos = [&](int index) -> Tocka& { return t.pTerrainVertexData[index].pos; };
    // Rows are independent: they are shared out over the processor cores.
    forEachRow(
        std::max(h - 1, 0), w,
        QCoreApplication::translate("CTerrainNormalsFactory", "Computing normals").toStdString(),
        [&](int y) {
            for (int x = 0; x + 1 < w; ++x) {
                const int base = y * w + x;
                t.terrainNormals[base] = getNormal(pos(base), pos(base + 1), pos(base + w));
            }
        });
    if (w < 2 || h < 2) {
        std::fill(t.terrainNormals.begin(), t.terrainNormals.end(), Tocka(0, 1, 0));
        return;
    }
    for (int y = 0; y < h; ++y)
        t.terrainNormals[y * w + w - 1] = t.terrainNormals[std::min(y, h - 2) * w + w - 2];
    for (int x = 0; x < w - 1; ++x)
        t.terrainNormals[(h - 1) * w + x] = t.terrainNormals[(h - 2) * w + x];
}

} // namespace ecosystem::data
