#pragma once

// Small hand-built terrains and message capture for the terrain data tests.

#include "arbo/usermessage.h"
#include "ecosystem/simulation/data/terraindata.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace terraintest {

using ecosystem::data::CTerrainData;

// Turns t into a w x h grid 25 m apart with the given heights (from 0 up); the
// terrain box matches the grid so rays step 25 m per grid unit.
inline void reshape(CTerrainData& t, int w, int h, const std::function<float(int, int)>& height) {
    t.stTockX = w;
    t.stTockY = h;
    const int n = w * h;
    t.ogliscaTerena.assign(n, arbo::Tocka(0, 0, 0));
    t.pTerrainVertexData.resize(n);
    t.terrainNormals.assign(n, arbo::Tocka(0, 0, 0));
    t.terrainInclination.assign(n, 0.0f);
    t.terrainMoisture.assign(n, 0.0f);
    t.terrainWindiness.assign(n, 0.0f);
    t.terrainSunniness.assign(n, 0.0f);
    float highest = 0.0f;
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const float hy = height(x, y);
            highest = std::max(highest, hy);
            t.ogliscaTerena[x + y * w] = arbo::Tocka(25.0f * x, hy, 25.0f * y);
            t.pTerrainVertexData[x + y * w].pos = t.ogliscaTerena[x + y * w];
        }
    }
    t.dmrMinZ = 0;
    t.dmrMaxZ = highest;
    t.visinskaRazlikaNaTerenu = highest;
    t.dimen = arbo::Tocka(25.0f * w, 1000.0f, 25.0f * h);
    t.spawnLupa();
}

// Records what would have been shown to the user while it lives.
class MessageCatcher {
public:
    std::vector<std::pair<std::string, std::string>> messages;

    MessageCatcher() {
        arbo::setUserMessageHandler([this](const std::string& title, const std::string& text) {
            messages.emplace_back(title, text);
        });
    }
    ~MessageCatcher() { arbo::setUserMessageHandler(nullptr); }
};

} // namespace terraintest
