#include "ecosystem/render/terrain.h"

#include "ecosystem/simulation/data/terraindata.h"

#include "arbo/gltexture.h"

#include <QOpenGLContext>

namespace ecosystem::render {

static_assert(sizeof(arbo::Tocka) == 3 * sizeof(float), "GL reads the grid as packed floats");

namespace {
const float scaleDetail = 100.0f;

void setTextureFilters() {
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
}
} // namespace

Terrain::Terrain(const QOpenGLContext* qglContext, ecosystem::data::CTerrainData* terrainData)
    : qglContext(qglContext), terrainData(terrainData), idTexturaTeren(0), idTexturaDetail(0),
      wireframe(false), useDetailTexture(true), resolver(GlExtensions::currentContextResolver()) {}

Terrain::~Terrain() {
    // The arrays themselves go with the vectors; only a lock held in a still
    // current context needs releasing.
    if (QOpenGLContext::currentContext() != nullptr)
        unlockArrays();
}

void Terrain::setTextureNames(unsigned int idTexturaTeren, unsigned int idTexturaDetail) {
    this->idTexturaTeren = idTexturaTeren;
    this->idTexturaDetail = idTexturaDetail;
}

void Terrain::getTextureNames(unsigned int& idTexturaTeren, unsigned int& idTexturaDetail) {
    idTexturaTeren = this->idTexturaTeren;
    idTexturaDetail = this->idTexturaDetail;
}

void Terrain::setExtensionResolver(GlExtensions::Resolver resolver) {
    this->resolver = std::move(resolver);
}

bool Terrain::gridFitsIndices() const {
    const long long stTock = (long long)terrainData->stTockX * terrainData->stTockY;
    return terrainData->stTockX >= 2 && terrainData->stTockY >= 2 && stTock <= 65536 &&
           terrainData->ogliscaTerena.size() >= size_t(stTock);
}

void Terrain::unlockArrays() {
    if (locked && gl.unlockArrays)
        gl.unlockArrays();
    locked = false;
}

void Terrain::initGLContexMultitextureAndArrays() {
    unlockArrays();
    gl.load(resolver);
    arraysFor = nullptr;
    // Indices are 16-bit: a grid of more than 65536 vertices is not drawn.
    if (!gridFitsIndices())
        return;
    initMultitexture();
    initCompiledArray();
    if (gl.compiledVertexArray) {
        gl.lockArrays(0, terrainData->stTockX * terrainData->stTockY);
        locked = true;
    }
    arraysFor = terrainData->ogliscaTerena.data();
    ortofotoFor = terrainData->ortofotoTexture.get();
    arraysStTockX = terrainData->stTockX;
    arraysStTockY = terrainData->stTockY;
}

void Terrain::initMultitexture() {
    const int stTockX = terrainData->stTockX;
    const int stTockY = terrainData->stTockY;
    stTextureArray.clear();
    uvTextureArray.clear();
    stTextureArray.reserve(2 * size_t(stTockX) * stTockY);
    uvTextureArray.reserve(2 * size_t(stTockX) * stTockY);
    for (int y = 0; y < stTockY; ++y) {
        for (int x = 0; x < stTockX; ++x) {
            const float s = float(x) / stTockX;
            const float t = float(y) / stTockY;
            stTextureArray.push_back(s);
            stTextureArray.push_back(t);
            uvTextureArray.push_back(scaleDetail * s);
            uvTextureArray.push_back(scaleDetail * t);
        }
    }

    if (gl.multitexture) {
        gl.clientActiveTexture(GL_TEXTURE0_ARB);
        glTexCoordPointer(2, GL_FLOAT, 0, stTextureArray.data());
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        gl.clientActiveTexture(GL_TEXTURE1_ARB);
        glTexCoordPointer(2, GL_FLOAT, 0, uvTextureArray.data());
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        gl.clientActiveTexture(GL_TEXTURE0_ARB);
        gl.activeTexture(GL_TEXTURE0_ARB);
    } else {
        // Without a second unit there is no detail, but the ortho-photo still
        // needs its coordinates on the only unit.
        glTexCoordPointer(2, GL_FLOAT, 0, stTextureArray.data());
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    }
}

void Terrain::initCompiledArray() {
    makeVertexArray();
    makeVertexIndexArray();
}

void Terrain::makeVertexArray() {
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, terrainData->ogliscaTerena.data());
}

void Terrain::makeVertexIndexArray() {
    const int stTockX = terrainData->stTockX;
    const int stTockY = terrainData->stTockY;
    verticesIndexArray.clear();
    verticesIndexArray.reserve(size_t(stTockY - 1) * stTockX * 2);
    for (int y = 0; y < stTockY - 1; ++y) {
        for (int x = 0; x < stTockX; ++x) {
            verticesIndexArray.push_back(std::uint16_t(y * stTockX + x));
            verticesIndexArray.push_back(std::uint16_t((y + 1) * stTockX + x));
        }
    }
}

bool Terrain::arraysAreCurrent() const {
    return arraysFor != nullptr && arraysFor == terrainData->ogliscaTerena.data() &&
           arraysStTockX == terrainData->stTockX && arraysStTockY == terrainData->stTockY;
}

bool Terrain::demWasReloaded() const {
    return !arraysAreCurrent() || ortofotoFor != terrainData->ortofotoTexture.get();
}

// A DEM reload fills the grid anew (possibly in the same storage, which a
// locked array may have cached) and replaces the ortho-photo image: upload the
// new photo and set the arrays up again before the first frame that shows it.
void Terrain::takeUpReloadedDem() {
    if (ortofotoFor != terrainData->ortofotoTexture.get() && terrainData->ortofotoTexture) {
        arbo::GlTexture::release(idTexturaTeren);
        idTexturaTeren = arbo::GlTexture::bind(*terrainData->ortofotoTexture);
    }
    initGLContexMultitextureAndArrays();
}

void Terrain::render() {
    if (arraysFor != nullptr && demWasReloaded())
        takeUpReloadedDem();
    if (!arraysAreCurrent())
        return;

    const int stTockX = arraysStTockX;
    const GLenum mode = wireframe ? GL_LINE_STRIP : GL_TRIANGLE_STRIP;
    enableArrays();
    bindTextures();
    for (int y = 0; y < arraysStTockY - 1; ++y)
        glDrawElements(mode, 2 * stTockX, GL_UNSIGNED_SHORT,
                       verticesIndexArray.data() + 2 * size_t(stTockX) * y);
    unbindTextures();
    disableArrays();
}

// The trees draw from client arrays of their own in the same context: an array
// left enabled here (the detail coordinates on unit 1 above all) would be read
// past its end by their draws. So the terrain's arrays are enabled, pointed and
// locked only while the terrain draws.
void Terrain::enableArrays() {
    makeVertexArray();
    if (gl.multitexture) {
        gl.clientActiveTexture(GL_TEXTURE1_ARB);
        glTexCoordPointer(2, GL_FLOAT, 0, uvTextureArray.data());
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        gl.clientActiveTexture(GL_TEXTURE0_ARB);
    }
    glTexCoordPointer(2, GL_FLOAT, 0, stTextureArray.data());
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    if (gl.compiledVertexArray && !locked) {
        gl.lockArrays(0, arraysStTockX * arraysStTockY);
        locked = true;
    }
}

void Terrain::disableArrays() {
    unlockArrays();
    if (gl.multitexture) {
        gl.clientActiveTexture(GL_TEXTURE1_ARB);
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
        gl.clientActiveTexture(GL_TEXTURE0_ARB);
    }
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
}

void Terrain::renderFallback() {
    if (!gridFitsIndices() || verticesIndexArray.empty())
        return;
    const int stTockX = terrainData->stTockX;
    const int stTockY = terrainData->stTockY;
    const bool multitexture = gl.multitexture;
    const GLenum mode = wireframe ? GL_LINE_STRIP : GL_TRIANGLE_STRIP;
    for (int y = 0; y < stTockY - 1; ++y) {
        glBegin(mode);
        for (int k = 0; k < 2 * stTockX; ++k) {
            const int index = verticesIndexArray[2 * size_t(stTockX) * y + k];
            const int locS = index % stTockX;
            const int locT = index / stTockX;
            const float* st = &stTextureArray[2 * size_t(locS + locT * stTockX)];
            if (multitexture) {
                gl.multiTexCoord2fv(GL_TEXTURE0_ARB, st);
                if (useDetailTexture)
                    gl.multiTexCoord2fv(GL_TEXTURE1_ARB,
                                        &uvTextureArray[2 * size_t(locS + locT * stTockX)]);
            } else {
                glTexCoord2fv(st);
            }
            const arbo::Tocka& v = terrainData->ogliscaTerena[index];
            glVertex3f(v.x, v.y, v.z);
        }
        glEnd();
    }
}

void Terrain::bindTextures() {
    glColor3f(1.0f, 1.0f, 1.0f);
    if (gl.multitexture)
        gl.activeTexture(GL_TEXTURE0_ARB);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, idTexturaTeren);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_DECAL);
    setTextureFilters();

    if (useDetailTexture && gl.multitexture) {
        gl.activeTexture(GL_TEXTURE1_ARB);
        glEnable(GL_TEXTURE_2D);
        glBindTexture(GL_TEXTURE_2D, idTexturaDetail);
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_COMBINE_ARB);
        // detail + ortho-photo - 0.5: the detail brightens and darkens by turns
        glTexEnvi(GL_TEXTURE_ENV, GL_COMBINE_RGB_ARB, GL_ADD_SIGNED_ARB);
        setTextureFilters();
    }
}

void Terrain::unbindTextures() {
    if (useDetailTexture && gl.multitexture) {
        glDisable(GL_TEXTURE_2D);
        gl.activeTexture(GL_TEXTURE0_ARB);
    }
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
}

void Terrain::toggleWireframe() {
    wireframe = !wireframe;
}

} // namespace ecosystem::render
