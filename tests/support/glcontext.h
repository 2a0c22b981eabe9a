#pragma once

// An off-screen OpenGL 2.1 compatibility context with a frame buffer object to
// draw into, for tests and benches (run under Xvfb). create() leaves OpenGL's
// default state; createWithViewState() adds the fixed state of a view
// (lighting, colour material, blending, 90 degree projection of aspect 1,
// near 1, far 30000).

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QSurfaceFormat>

#include <GL/gl.h>
#include <GL/glu.h>

#include <memory>

class OffscreenGl {
public:
    QOffscreenSurface surface;
    QOpenGLContext context;
    std::unique_ptr<QOpenGLFramebufferObject> fbo;

    bool createWithViewState(int w = 800, int h = 600) {
        if (!create(w, h))
            return false;
        applyViewState(w, h);
        return true;
    }

    bool create(int w = 64, int h = 64) {
        QSurfaceFormat f;
        f.setVersion(2, 1);
        f.setProfile(QSurfaceFormat::CompatibilityProfile);
        f.setDepthBufferSize(24);
        f.setStencilBufferSize(8);
        surface.setFormat(f);
        surface.create();
        context.setFormat(f);
        if (!context.create() || !context.makeCurrent(&surface))
            return false;
        fbo = std::make_unique<QOpenGLFramebufferObject>(
            w, h, QOpenGLFramebufferObject::CombinedDepthStencil);
        return fbo->bind();
    }

    static void applyViewState(int w, int h) {
        glShadeModel(GL_SMOOTH);
        glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
        glEnable(GL_COLOR_MATERIAL);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_LIGHTING);
        glEnable(GL_LIGHT0);
        glEnable(GL_LIGHT1);
        glEnable(GL_LIGHT2);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        const GLfloat ambient[4] = {1, 1, 1, 1};
        glLightModelfv(GL_LIGHT_MODEL_AMBIENT, ambient);
        glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 1);
        glEnable(GL_TEXTURE_2D);
        glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
        glViewport(0, 0, w, h);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        gluPerspective(90.0, 1.0, 1.0, 30000.0);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
    }
};
