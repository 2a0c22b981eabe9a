#pragma once

#include "ecosystem/render/glextensions.h"

#include <cstdint>
#include <vector>

class QOpenGLContext;

namespace ecosystem::data {
class CTerrainData;
}

namespace ecosystem::render {

// Draws the terrain grid as one triangle strip per grid row from client-side
// arrays: the ortho-photo stretched once over the whole terrain on texture unit
// 0, and a detail texture repeated 100 times across it and added signed on
// unit 1.
class Terrain {
public:
    std::vector<std::uint16_t> verticesIndexArray;
    std::vector<float> stTextureArray;          // (s, t) of the ortho-photo per vertex
    std::vector<float> uvTextureArray;          // (u, v) of the detail texture per vertex
    const QOpenGLContext* qglContext;           // not owned
    ecosystem::data::CTerrainData* terrainData; // not owned
    unsigned int idTexturaTeren;
    unsigned int idTexturaDetail;
    bool wireframe;
    bool useDetailTexture;

    Terrain(const QOpenGLContext* qglContext, ecosystem::data::CTerrainData* terrainData);
    ~Terrain();
    Terrain(const Terrain&) = delete;
    Terrain& operator=(const Terrain&) = delete;

    void setTextureNames(unsigned int idTexturaTeren, unsigned int idTexturaDetail);
    void getTextureNames(unsigned int& idTexturaTeren, unsigned int& idTexturaDetail);

    // Needs a current GL context. Safe to run again (another view's context, a
    // reloaded DEM): the previous lock is released first.
    void initGLContexMultitextureAndArrays();
    void initMultitexture();
    void initCompiledArray();
    void makeVertexArray();
    void makeVertexIndexArray();

    void render();
    void renderFallback();
    void bindTextures();
    void unbindTextures();
    void toggleWireframe();

    // Where the extension entry points come from; the current QOpenGLContext
    // unless a test gives another. Takes effect at the next initialisation.
    void setExtensionResolver(GlExtensions::Resolver resolver);
    const GlExtensions& extensions() const { return gl; }

private:
    GlExtensions::Resolver resolver;
    GlExtensions gl;
    // The vertex array and grid the GL pointers were set up for; a DEM reload
    // replaces the array, and the pointers must follow before the next draw.
    const void* arraysFor = nullptr;
    const void* ortofotoFor = nullptr; // a reload brings a new ortho-photo image
    int arraysStTockX = 0;
    int arraysStTockY = 0;
    bool locked = false;

    bool arraysAreCurrent() const;
    bool demWasReloaded() const;
    void takeUpReloadedDem();
    bool gridFitsIndices() const;
    void unlockArrays();
    void enableArrays();
    void disableArrays();
};

} // namespace ecosystem::render
