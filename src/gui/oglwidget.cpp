#include "gui/oglwidget.h"

#include "ecosystem/render/camera.h"
#include "ecosystem/render/ecosystemrender.h"

#include <QMessageBox>
#include <QMouseEvent>
#include <QOpenGLContext>

#include <GL/gl.h>
#include <GL/glu.h>

namespace gui {

bool OglWidget::firstWidget = true;

OglWidget::OglWidget(QWidget* parent, ecosystem::render::EcosystemRender* model)
    : QOpenGLWidget(parent), currentModel(model) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setMinimumSize(64, 64);
}

void OglWidget::switchToModel(ecosystem::render::EcosystemRender* model) {
    currentModel = model;
}

void OglWidget::updateGL() {
    update();
}

void OglWidget::setFixedGlState() {
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
    const GLfloat ambient[] = {1, 1, 1, 1};
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, ambient);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_TRUE);
    // Set again, as the view always has: the call sequence stays the documented one.
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glEnable(GL_COLOR_MATERIAL);
    glEnable(GL_TEXTURE_2D);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
}

void OglWidget::initializeGL() {
    setFixedGlState();
    checkExtensions();
    if (!currentModel) {
        currentModel = new ecosystem::render::EcosystemRender(context(), this);
        emit newModelCreated(currentModel);
    } else {
        currentModel->initAllTextures(this);
    }
    connect(currentModel, &ecosystem::render::EcosystemRender::modelDataChanged, this,
            &OglWidget::updateGL, Qt::UniqueConnection);
    emit newGlContextInitialized(this);
}

void OglWidget::checkExtensions() {
    const auto* raw = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    if (!raw) {
        QMessageBox::information(
            this, tr("OpenGL Extensions"),
            tr("Could not query for supported OpenGL extensions, extensions will not be "
               "supported."));
        return;
    }
    const QStringList extensions = QString::fromLatin1(raw).split(' ', Qt::SkipEmptyParts);
    supportMultitexture = extensions.contains("GL_ARB_multitexture");
    supportCompiledVertexArrays = extensions.contains("GL_EXT_compiled_vertex_array");
    if (firstWidget) {
        firstWidget = false;
        if (!supportCompiledVertexArrays)
            QMessageBox::information(
                this, tr("OpenGL Extensions"),
                tr("Compiled vertex array is not supported with this driver, using failover."));
    }
}

void OglWidget::resizeGL(int width, int height) {
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    // The aspect stays 1: the image stretches with the window's shape.
    gluPerspective(90.0, 1.0, 1.0, 30000.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void OglWidget::paintGL() {
    if (currentModel)
        currentModel->render();
}

void OglWidget::mousePressEvent(QMouseEvent* event) {
    emit grabCamera();
    grabMouse();
    const QPoint p = event->position().toPoint();
    if (event->buttons() & Qt::LeftButton) {
        actionMove = true;
        t_z = p.y();
    } else if (event->buttons() & Qt::RightButton) {
        actionRotate = true;
        s_x = p.x();
        s_y = p.y();
    }
}

void OglWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!currentModel)
        return;
    ecosystem::render::Camera* camera = currentModel->getCurrentCamera();
    const QPoint p = event->position().toPoint();
    if (actionMove) {
        camera->z_pomik += float(p.y() - t_z) / mouseSensivity;
        t_z = p.y();
        updateGL();
    }
    if (actionRotate) {
        camera->y_zasuk += float(p.x() - s_x) / mouseSensivity;
        camera->x_zasuk += float(p.y() - s_y) / mouseSensivity;
        s_x = p.x();
        s_y = p.y();
        updateGL();
    }
}

void OglWidget::mouseReleaseEvent(QMouseEvent*) {
    actionRotate = false;
    actionMove = false;
    releaseMouse();
}

} // namespace gui
