#pragma once

#include <QOpenGLWidget>

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
};

} // namespace gui
