#include "gui/oglwidget.h"

#include "arbo/arbo.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/render/ecosystemrender.h"

#include <QMessageBox>
#include <QMouseEvent>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <QScopedValueRollback>

#include <algorithm>
#include <memory>
#include <vector>

#include <GL/gl.h>
#include <GL/glu.h>

namespace gui {

bool OglWidget::firstWidget = true;

OglWidget::OglWidget(QWidget* parent, ecosystem::render::EcosystemRender* model)
    : QOpenGLWidget(parent), currentModel(model) {
    // The frame buffer keeps its content between paints: a frame drawn ahead
    // for an image export is shown as it is.
    setUpdateBehavior(QOpenGLWidget::PartialUpdate);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setMinimumSize(64, 64);
}

void OglWidget::switchToModel(ecosystem::render::EcosystemRender* model) {
    currentModel = model;
}

void OglWidget::updateGL() {
    updatePending = true;
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
    drawnAhead = false; // a new frame buffer: nothing drawn in it yet
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    // The aspect stays 1: the image stretches with the window's shape.
    gluPerspective(90.0, 1.0, 1.0, 30000.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

void OglWidget::paintGL() {
    if (drawnAhead && !updatePending) {
        drawnAhead = false;
        return;
    }
    drawnAhead = false;
    updatePending = false;
    if (currentModel)
        currentModel->render();
}

// The repaint asked for, drawn now as the toolkit would draw it (the view's
// frame buffer and viewport), for the caller to read at once.
void OglWidget::drawPendingFrame() {
    makeCurrent();
    const qreal ratio = devicePixelRatioF();
    glViewport(0, 0, qRound(width() * ratio), qRound(height() * ratio));
    updatePending = false;
    if (currentModel)
        currentModel->render();
    drawnAhead = true;
    doneCurrent();
}

namespace {

// Read back from the frame buffer bound now: GL's rows run bottom-up, and the
// alpha the blending leaves behind is not shown on screen.
void readPixels(QImage& image, int x, int y, int width, int height, int glX, int glY) {
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glPixelStorei(GL_PACK_ROW_LENGTH, image.width());
    glPixelStorei(GL_PACK_SKIP_PIXELS, x);
    glPixelStorei(GL_PACK_SKIP_ROWS, y);
    glReadPixels(glX, glY, width, height, GL_BGRA, GL_UNSIGNED_BYTE, image.bits());
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
}

// Rows read bottom-up with any alpha become the image the view shows.
void finishReadBack(QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] |= 0xff000000u;
    }
    image.reinterpretAsFormat(QImage::Format_RGB32);
    image.mirror(false, true);
}

// The animation state of every model tree; drawing moves it on.
struct TreeStates {
    std::vector<arbo::Pogled> pogledi;
    std::vector<double> veter;

    explicit TreeStates(const std::vector<arbo::Arbo*>& trees) {
        for (const arbo::Arbo* t : trees) {
            pogledi.push_back(t->pogled);
            veter.push_back(t->delckiDrevesa.maxKotZasukaVetra);
        }
    }
    void restore(const std::vector<arbo::Arbo*>& trees) const {
        for (size_t i = 0; i < trees.size() && i < pogledi.size(); ++i) {
            trees[i]->pogled = pogledi[i];
            trees[i]->delckiDrevesa.maxKotZasukaVetra = veter[i];
        }
    }
};

} // namespace

QImage OglWidget::grabFrameBuffer() {
    if (!isValid())
        return {};
    if (updatePending)
        drawPendingFrame();
    const qreal ratio = devicePixelRatioF();
    QImage image(qRound(width() * ratio), qRound(height() * ratio), QImage::Format_ARGB32);
    if (image.isNull())
        return {};
    makeCurrent();
    context()->functions()->glBindFramebuffer(GL_FRAMEBUFFER, defaultFramebufferObject());
    readPixels(image, 0, 0, image.width(), image.height(), 0, 0);
    doneCurrent();
    finishReadBack(image);
    return image;
}

QImage OglWidget::renderPixmap(int width, int height, int maxTile,
                               const std::function<bool(int, int)>& progress) {
    if (!currentModel || !isValid() || width < 1 || height < 1)
        return {};
    QImage image(width, height, QImage::Format_ARGB32);
    if (image.isNull())
        return {}; // not enough memory
    makeCurrent();
    GLint maxRenderbuffer = 0, maxViewport[2] = {0, 0};
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &maxRenderbuffer);
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, maxViewport);
    const int tileW = std::max(1, std::min({maxTile, int(maxRenderbuffer), int(maxViewport[0])}));
    const int tileH = std::max(1, std::min({maxTile, int(maxRenderbuffer), int(maxViewport[1])}));
    const int columns = (width + tileW - 1) / tileW, rows = (height + tileH - 1) / tileH;
    // Tiles of equal size as far as the image allows.
    const int w = (width + columns - 1) / columns, h = (height + rows - 1) / rows;
    auto fbo = std::make_unique<QOpenGLFramebufferObject>(
        w, h, QOpenGLFramebufferObject::CombinedDepthStencil);
    const std::vector<arbo::Arbo*>& trees = currentModel->izglediDrevesnihVrst;
    const TreeStates atStart(trees);
    // The progress report handles events between tiles: the timers must not
    // move the scene on meanwhile.
    const QScopedValueRollback<bool> held(currentModel->holdTime, true);
    bool done = fbo->isValid();
    for (int r = 0; done && r < rows; ++r)
        for (int c = 0; done && c < columns; ++c) {
            // Image rows run top-down, GL's bottom-up.
            const QRect tile(c * w, r * h, std::min(w, width - c * w), std::min(h, height - r * h));
            makeCurrent();
            fbo->bind();
            const TreeStates now(trees);
            atStart.restore(trees);
            renderTile(tile, image.size());
            now.restore(trees);
            readPixels(image, tile.x(), height - tile.y() - tile.height(), tile.width(),
                       tile.height(), 0, 0);
            context()->functions()->glBindFramebuffer(GL_FRAMEBUFFER, defaultFramebufferObject());
            const qreal ratio = devicePixelRatioF();
            glViewport(0, 0, qRound(this->width() * ratio), qRound(this->height() * ratio));
            doneCurrent();
            if (progress && !progress(r * columns + c + 1, rows * columns))
                done = false;
        }
    // Released in its own context, not whenever the context is next current.
    makeCurrent();
    fbo.reset();
    doneCurrent();
    if (!done)
        return {};
    finishReadBack(image);
    return image;
}

// The view's projection narrowed to one tile of the image: the whole frustum
// maps to normalised coordinates -1..1, the tile's part of it is scaled up to
// fill them.
void OglWidget::renderTile(const QRect& tile, const QSize& image) {
    const double x0 = -1.0 + 2.0 * tile.left() / image.width();
    const double x1 = -1.0 + 2.0 * (tile.left() + tile.width()) / image.width();
    const double y1 = 1.0 - 2.0 * tile.top() / image.height();
    const double y0 = 1.0 - 2.0 * (tile.top() + tile.height()) / image.height();
    glViewport(0, 0, tile.width(), tile.height());
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    if (tile.size() != image) {
        glTranslated(-(x1 + x0) / (x1 - x0), -(y1 + y0) / (y1 - y0), 0.0);
        glScaled(2.0 / (x1 - x0), 2.0 / (y1 - y0), 1.0);
    }
    gluPerspective(90.0, 1.0, 1.0, 30000.0);
    glMatrixMode(GL_MODELVIEW);
    currentModel->renderOffScreen();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
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
