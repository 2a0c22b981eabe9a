#include "ecosystem/render/glextensions.h"

#include <QByteArray>
#include <QList>
#include <QOpenGLContext>

namespace ecosystem::render {

namespace {

bool isListed(const QList<QByteArray>& extensions, const char* name) {
    return extensions.contains(QByteArray(name));
}

template <typename Proc> Proc resolved(const GlExtensions::Resolver& resolve, const char* name) {
    return reinterpret_cast<Proc>(resolve(name));
}

} // namespace

void GlExtensions::load(const Resolver& resolve) {
    *this = GlExtensions();
    const char* string = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    if (string == nullptr)
        return;
    const QList<QByteArray> extensions = QByteArray(string).split(' ');

    if (isListed(extensions, "GL_ARB_multitexture")) {
        activeTexture = resolved<PFNGLACTIVETEXTUREARBPROC>(resolve, "glActiveTexture");
        clientActiveTexture =
            resolved<PFNGLCLIENTACTIVETEXTUREARBPROC>(resolve, "glClientActiveTexture");
        multiTexCoord2fv = resolved<PFNGLMULTITEXCOORD2FVARBPROC>(resolve, "glMultiTexCoord2fv");
        multitexture = activeTexture && clientActiveTexture && multiTexCoord2fv;
    }
    if (isListed(extensions, "GL_EXT_compiled_vertex_array")) {
        lockArrays = resolved<PFNGLLOCKARRAYSEXTPROC>(resolve, "glLockArraysEXT");
        unlockArrays = resolved<PFNGLUNLOCKARRAYSEXTPROC>(resolve, "glUnlockArraysEXT");
        compiledVertexArray = lockArrays && unlockArrays;
    }
}

GlExtensions::Resolver GlExtensions::currentContextResolver() {
    return [](const char* name) -> QFunctionPointer {
        QOpenGLContext* context = QOpenGLContext::currentContext();
        return context ? context->getProcAddress(name) : nullptr;
    };
}

} // namespace ecosystem::render
