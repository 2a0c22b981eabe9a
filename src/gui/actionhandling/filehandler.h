#pragma once

#include <QObject>
#include <QString>

#include <string>

class QImage;
class QWidget;

namespace arbo {
class ParametriDrevesa;
}

namespace ecosystem::render {
class EcosystemRender;
}

namespace gui {
class OglWidget;
}

namespace gui::actionhandling {

// Carries out the actions that read or write files: tree parameters, DEM
// terrain, simulations, bark, leaf and sky textures, images of the view (one,
// a custom-resolution one, or a numbered frame per tick while the sequence
// export is on) and the tree's vertex geometry, OBJ and LaTeX description.
// Every action asks for a file with the standard file dialog; a cancelled
// dialog does nothing. Failures are told in "Error" boxes.
class FileHandler : public QObject {
    Q_OBJECT
public:
    FileHandler(QWidget* parentWindow, ecosystem::render::EcosystemRender* model,
                gui::OglWidget* qglWidget);

    QString lastFileNameVertex;
    QString lastFileNameImage;
    QWidget* parentWindow;
    ecosystem::render::EcosystemRender* model;
    gui::OglWidget* qglWidget;

    // The name of frame frameNr of a sequence: the name as chosen, the number
    // zero-filled to at least five digits, and the suffix.
    static QString frameFileName(const QString& name, int frameNr, const QString& suffix);

signals:
    void reloadCurrentTreeTextures();
    // A frame of a sequence could not be written; the sequence export must stop
    // rather than go on without it.
    void sequenceFrameFailed();

public slots:
    void actionLoad_parameters();
    void actionSave_parameters();
    void actionImport_tree_2_x_parameters();
    void actionExport_current_tree_geometry_as_vertices();
    void actionExport_current_tree_as_OBJ();
    void actionExport_current_tree_as_Latex_formulas();
    void actionLoad_DEM_terrain_model();
    void actionSet_sky_textures();
    void actionExport_window_image();
    void actionExport_custom_resolution_image();
    void actionLoad_bark_texture();
    void actionLoadleaf_texture();
    void actionLoad_simulation();
    void actionSave_simulation();
    void actionAutosave_simulation();
    void grabAnimationFrame(int frameNr);
    void grabGeometryFrame(int frame);
    void resetLastNames();
    // A geometry file is finished inside the frame that draws it, where no box
    // may open: its failure is told here, once that frame is done, and ends a
    // sequence as a failed image does. Called after each frame a view shows;
    // true when there was a failure to tell.
    bool reportGeometryFailure();

private:
    // The "First run simulation please." box when no simulation was started.
    bool simulationStarted();
    void error(const QString& text);
    // Ends a running sequence, then tells why.
    void frameFailed(const QString& text);
    QString askOpen(const QString& caption, const QString& filter, const QString& start = {});
    QString askSave(const QString& caption, const QString& filter);
    void loadTreeTexture(std::string arbo::ParametriDrevesa::*fileName);
    // The scene binds textures in the view's context.
    void reloadTreeTexturesInView();
    QImage renderWithProgress(int width, int height);
    bool writeInBackground(const QImage& image, const QString& fileName, int quality);
};

} // namespace gui::actionhandling
