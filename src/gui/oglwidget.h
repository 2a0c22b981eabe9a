#pragma once

#include <QImage>
#include <QOpenGLWidget>

#include <functional>

namespace ecosystem::render {
class EcosystemRender;
}

namespace gui {

// An OpenGL view of the scene. The first view creates the scene when its GL
// context comes up; further views share it. Mouse drags turn and move the
// tree in tree-edit mode.
class OglWidget : public QOpenGLWidget {
    Q_OBJECT
public:
    OglWidget(QWidget* parent, ecosystem::render::EcosystemRender* model);

    bool supportMultitexture = false;
    bool supportCompiledVertexArrays = false;
    ecosystem::render::EcosystemRender* currentModel;
    int s_x = 0, s_y = 0;
    int t_z = 0;
    bool actionMove = false;
    bool actionRotate = false;
    float mouseSensivity = 10.0f;

    // The extension warning is shown at most once per run.
    static bool firstWidget;

    void checkExtensions();

    // What the view shows, read back without drawing another frame (drawing
    // moves an animated tree on): a repaint that was asked for and not yet
    // done is drawn first, since it is the frame the caller wants, and is then
    // not drawn again when the toolkit paints. Opaque, as the view is shown.
    QImage grabFrameBuffer();

    // The scene drawn off screen at width x height with the view's camera and
    // projection (a fixed aspect of 1: any size shows the same field), in
    // tiles of at most maxTile pixels a side and never more than the GL
    // limits allow. progress(done, total) is told after each tile and stops
    // the work (a null image) by returning false. The view's context, frame
    // buffer, viewport and projection are left as they were, and the trees'
    // animation does not move on.
    QImage renderPixmap(int width, int height, int maxTile = 4096,
                        const std::function<bool(int done, int total)>& progress = nullptr);

signals:
    void newModelCreated(ecosystem::render::EcosystemRender* model);
    void newGlContextInitialized(gui::OglWidget* view);
    void grabCamera();

public slots:
    void switchToModel(ecosystem::render::EcosystemRender* model);
    // Every repaint request of the program ends here.
    void updateGL();

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void setFixedGlState();
    void renderTile(const QRect& tile, const QSize& image);

    void drawPendingFrame();

    bool updatePending = false; // a repaint was asked for and not yet drawn
    // The frame of the last repaint asked for was drawn by grabFrameBuffer;
    // the toolkit's own paint for it only shows it.
    bool drawnAhead = false;
};

} // namespace gui
