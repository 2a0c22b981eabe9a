#pragma once

// A current OpenGL 2.1 compatibility context on an off-screen surface with a
// framebuffer object to draw into, for the render tests (run under Xvfb).

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QSurfaceFormat>

#include <memory>

class OffscreenGl {
public:
    QOffscreenSurface surface;
    QOpenGLContext context;
    std::unique_ptr<QOpenGLFramebufferObject> fbo;

    bool create(int width = 64, int height = 64) {
        QSurfaceFormat format;
        format.setVersion(2, 1);
        format.setProfile(QSurfaceFormat::CompatibilityProfile);
        format.setDepthBufferSize(24);
        surface.setFormat(format);
        surface.create();
        context.setFormat(format);
        if (!context.create() || !context.makeCurrent(&surface))
            return false;
        fbo = std::make_unique<QOpenGLFramebufferObject>(
            width, height, QOpenGLFramebufferObject::CombinedDepthStencil);
        return fbo->bind();
    }
};
