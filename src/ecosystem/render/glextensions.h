#pragma once

#include <GL/gl.h>
#include <GL/glext.h>

#include <QtGlobal>

#include <functional>

namespace ecosystem::render {

// The two OpenGL extensions the terrain uses, ARB_multitexture and
// EXT_compiled_vertex_array: whether the current context offers them, and their
// entry points, looked up at run time (libOpenGL does not export them).
class GlExtensions {
public:
    using Resolver = std::function<QFunctionPointer(const char*)>;

    bool multitexture = false;
    bool compiledVertexArray = false;

    PFNGLACTIVETEXTUREARBPROC activeTexture = nullptr;
    PFNGLCLIENTACTIVETEXTUREARBPROC clientActiveTexture = nullptr;
    PFNGLMULTITEXCOORD2FVARBPROC multiTexCoord2fv = nullptr;
    PFNGLLOCKARRAYSEXTPROC lockArrays = nullptr;
    PFNGLUNLOCKARRAYSEXTPROC unlockArrays = nullptr;

    // Reads the current context's extension string and asks the resolver for the
    // entry points. An extension counts as present only when it is listed and
    // all its entry points resolve.
    void load(const Resolver& resolve);

    // Resolves through the current QOpenGLContext.
    static Resolver currentContextResolver();
};

} // namespace ecosystem::render
