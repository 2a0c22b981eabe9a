#pragma once

#include <QObject>
#include <QString>

class QWidget;
class QOpenGLWidget;

namespace ecosystem::render {
class EcosystemRender;
}

namespace gui::actionhandling {

// Carries out the actions that read or write files. Every action asks for a
// file with the standard file dialog; a cancelled dialog does nothing.
class FileHandler : public QObject {
    Q_OBJECT
public:
    FileHandler(QWidget* parentWindow, ecosystem::render::EcosystemRender* model,
                QOpenGLWidget* qglWidget);

    QString lastFileNameVertex;
    QString lastFileNameImage;
    QWidget* parentWindow;
    ecosystem::render::EcosystemRender* model;
    QOpenGLWidget* qglWidget;

signals:
    void reloadCurrentTreeTextures();

public slots:
    void actionLoad_simulation();
    void actionSave_simulation();
    void actionAutosave_simulation();

private:
    // The "First run simulation please." box when no simulation was started.
    bool simulationStarted();
};

} // namespace gui::actionhandling
