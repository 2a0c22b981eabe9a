#include "gui/actionhandling/filehandler.h"

#include "arbo/arbo.h"
#include "arbo/latexexport.h"
#include "arbo/objexport.h"
#include "arbo/usermessage.h"
#include "ecosystem/render/ecosystemrender.h"
#include "gui/dialogs/pixmapexportdialog.h"
#include "gui/dialogs/skytextures.h"
#include "gui/oglwidget.h"

#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QLineEdit>
#include <QLocale>
#include <QProgressDialog>
#include <QSaveFile>
#include <QSlider>
#include <QSpinBox>
#include <QTextStream>
#include <QThread>

namespace gui::actionhandling {

namespace {

QString imageFilter() {
    return FileHandler::tr("Images (*.png *.xpm *.jpg *.bmp)");
}

QString imageNotWritten(const QString& fileName) {
    return FileHandler::tr("Could not write the image file %1.")
        .arg(QDir::toNativeSeparators(fileName));
}

// File names reach the data layers in the file system's encoding.
std::string local(const QString& fileName) {
    return QFile::encodeName(fileName).toStdString();
}

// A PNG whatever the name's extension; the old file stays until the new one
// is complete.
bool writePng(const QImage& image, const QString& fileName, int quality = -1) {
    if (image.isNull())
        return false;
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QImageWriter writer(&file, "png");
    writer.setQuality(quality);
    return writer.write(image) && file.commit();
}

class WaitCursor {
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace

FileHandler::FileHandler(QWidget* parentWindow, ecosystem::render::EcosystemRender* model,
                         gui::OglWidget* qglWidget)
    : QObject(parentWindow), parentWindow(parentWindow), model(model), qglWidget(qglWidget) {}

QString FileHandler::frameFileName(const QString& name, int frameNr, const QString& suffix) {
    return name + QStringLiteral("%1").arg(frameNr, 5, 10, QLatin1Char('0')) + suffix;
}

void FileHandler::error(const QString& text) {
    arbo::showUserMessage(tr("Error").toStdString(), text.toStdString());
}

void FileHandler::frameFailed(const QString& text) {
    // Stopped before the box opens: the ticks go on while it is shown.
    emit sequenceFrameFailed();
    error(text);
}

QString FileHandler::askOpen(const QString& caption, const QString& filter, const QString& start) {
    return QFileDialog::getOpenFileName(parentWindow, caption, start, filter);
}

QString FileHandler::askSave(const QString& caption, const QString& filter) {
    return QFileDialog::getSaveFileName(parentWindow, caption, QString(), filter);
}

bool FileHandler::simulationStarted() {
    if (model->isSimulationRedyAndRunning())
        return true;
    error(tr("First run simulation please."));
    return false;
}

// --- Tree parameters ---

void FileHandler::actionLoad_parameters() {
    const QString name =
        askOpen(tr("Choose a file to open"), tr("Tree version 3.x parameters (*.tree.xml)"));
    if (name.isEmpty())
        return;
    std::string reason;
    if (!model->loadSelectedTreeParameters(local(name), &reason)) {
        error(tr("Could not open file.") + '\n' + QString::fromStdString(reason));
        return;
    }
    // The loaded set may name other textures; the views show it at once.
    reloadTreeTexturesInView();
}

void FileHandler::actionSave_parameters() {
    const QString name = askSave(tr("Choose a filename to save under"),
                                 tr("Tree version 3.x parameters (*.tree.xml)"));
    if (!name.isEmpty() && !model->getIzbranoArbo()->pdPrepared.saveParameters(local(name)))
        error(tr("Could not open file."));
}

void FileHandler::actionImport_tree_2_x_parameters() {
    const QString name =
        askOpen(tr("Choose a file to import"), tr("Tree version 2.x parameters (*.tree)"));
    if (!name.isEmpty())
        arbo::showUserMessage(tr("Information").toStdString(),
                              tr("Not yet implemented.").toStdString());
}

// --- Tree exports ---

// The file is written while the tree is next drawn.
void FileHandler::actionExport_current_tree_geometry_as_vertices() {
    const QString name =
        askSave(tr("Choose a filename to export under"), tr("Tree geometry vertices (*.crs)"));
    if (name.isEmpty())
        return;
    lastFileNameVertex = name;
    model->getIzbranoArbo()->markSerializingToFile(local(name));
    qglWidget->updateGL();
}

void FileHandler::grabGeometryFrame(int frame) {
    if (lastFileNameVertex.isEmpty())
        return;
    model->getIzbranoArbo()->markSerializingToFile(
        local(frameFileName(lastFileNameVertex, frame, ".crs")));
}

void FileHandler::actionExport_current_tree_as_OBJ() {
    QString name = askSave(tr("Choose a filename to export under"), tr("Wavefront OBJ (*.obj)"));
    if (name.isEmpty())
        return;
    // The material library and images are named after the OBJ file.
    if (QFileInfo(name).suffix().isEmpty())
        name += ".obj";
    arbo::Arbo& tree = *model->getIzbranoArbo();
    QImage bark, leaf;
    if (!ecosystem::render::EcosystemRender::loadTreeTextureImages(tree, bark, leaf))
        return;
    QString failure;
    bool written;
    {
        WaitCursor wait;
        written = arbo::ObjExport::write(tree, name, bark, leaf, failure);
    }
    if (!written)
        error(failure);
}

void FileHandler::actionExport_current_tree_as_Latex_formulas() {
    const QString name =
        askSave(tr("Choose a filename to export under"), tr("Latex files (*.tex)"));
    if (name.isEmpty())
        return;
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        error(tr("Could not save file."));
        return;
    }
    QTextStream out(&file);
    out.setRealNumberPrecision(4);
    arbo::LatexExport(model->getIzbranoArbo()->pdPrepared, QLocale::system().name())
        .exportTreeAsLatexFormulas(out);
    out.flush();
    if (!file.commit())
        error(tr("Could not save file."));
}

// --- Terrain, textures, sky ---

void FileHandler::actionLoad_DEM_terrain_model() {
    const QString name = askOpen(tr("Choose a file to open"), tr("DEM model (*.dmr)"));
    if (name.isEmpty())
        return;
    WaitCursor wait; // every terrain layer is built again
    model->reloadDMR(local(name));
}

void FileHandler::reloadTreeTexturesInView() {
    qglWidget->makeCurrent();
    emit reloadCurrentTreeTextures();
    qglWidget->doneCurrent();
}

// The name is kept only for an image that loads, and only if the parameter
// file can hold it (one line of at most 254 characters).
void FileHandler::loadTreeTexture(std::string arbo::ParametriDrevesa::*fileName) {
    const QString name = askOpen(tr("Choose a file to open"), imageFilter());
    if (name.isEmpty())
        return;
    const std::string stored = name.toStdString();
    if (QImage(name).isNull()) {
        error(tr("Could not open bark texture file."));
        return;
    }
    if (stored.size() > 254 || name.contains('\n')) {
        error(tr("The file name is too long to be kept with the tree's parameters (at most 254 "
                 "characters)."));
        return;
    }
    model->getIzbranoArbo()->pdPrepared.*fileName = stored;
    reloadTreeTexturesInView();
}

void FileHandler::actionLoad_bark_texture() {
    loadTreeTexture(&arbo::ParametriDrevesa::barkTextureFileName);
}

void FileHandler::actionLoadleaf_texture() {
    loadTreeTexture(&arbo::ParametriDrevesa::leafTextureFileName);
}

void FileHandler::actionSet_sky_textures() {
    SkyTextures dialog(parentWindow);
    QString n, s, e, w, u, d;
    model->getSkyTextureFileNames(n, s, e, w, u, d);
    dialog.north->setText(n);
    dialog.south->setText(s);
    dialog.east->setText(e);
    dialog.west->setText(w);
    dialog.up->setText(u);
    dialog.down->setText(d);
    if (dialog.exec() != QDialog::Accepted)
        return;
    qglWidget->makeCurrent();
    model->reloadSkyTextures(dialog.north->text(), dialog.south->text(), dialog.east->text(),
                             dialog.west->text(), dialog.up->text(), dialog.down->text());
    qglWidget->doneCurrent();
}

// --- Images ---

void FileHandler::actionExport_window_image() {
    const QString name = askSave(tr("Choose a filename to export under"), imageFilter());
    if (name.isEmpty())
        return;
    if (!writePng(qglWidget->grabFrameBuffer(), name)) {
        error(imageNotWritten(name));
        return;
    }
    lastFileNameImage = name;
}

void FileHandler::grabAnimationFrame(int frameNr) {
    if (lastFileNameImage.isEmpty())
        return;
    const QString name = frameFileName(lastFileNameImage, frameNr, ".png");
    // Drawing the frame writes its geometry file, if one is due.
    const bool written = writePng(qglWidget->grabFrameBuffer(), name);
    if (!reportGeometryFailure() && !written)
        frameFailed(imageNotWritten(name));
}

bool FileHandler::reportGeometryFailure() {
    std::string& failed = model->getIzbranoArbo()->serializatorDelckovDrevesa.neuspelo;
    if (failed.empty())
        return false;
    const QString name = QFile::decodeName(failed.c_str());
    failed.clear();
    frameFailed(tr("Could not write %1.").arg(QDir::toNativeSeparators(name)));
    return true;
}

void FileHandler::resetLastNames() {
    lastFileNameVertex.clear();
    lastFileNameImage.clear();
}

void FileHandler::actionExport_custom_resolution_image() {
    const QString name = askSave(tr("Choose a filename to export under"), imageFilter());
    if (name.isEmpty())
        return;
    PixmapExportDialog dialog(parentWindow);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QImage image = renderWithProgress(dialog.sbWidth->value(), dialog.sbHeight->value());
    if (!image.isNull() && !writeInBackground(image, name, dialog.sliderQuality->value()))
        error(imageNotWritten(name));
}

// Null when cancelled (nothing said) or when the image does not fit in memory.
QImage FileHandler::renderWithProgress(int width, int height) {
    QProgressDialog progress(tr("Rendering the image..."), tr("Cancel"), 0, 1, parentWindow);
    progress.setWindowTitle(tr("Export pixmap"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(300);
    progress.setValue(0);
    const QImage image =
        qglWidget->renderPixmap(width, height, 4096, [&progress](int done, int total) {
            progress.setMaximum(total);
            progress.setValue(done);
            return !progress.wasCanceled();
        });
    if (image.isNull() && !progress.wasCanceled())
        error(tr("Could not make an image of %1 x %2 pixels: not enough memory.")
                  .arg(width)
                  .arg(height));
    return image;
}

// A large PNG takes long to compress: it is written on another thread while
// the window stays drawn and a busy bar shows.
bool FileHandler::writeInBackground(const QImage& image, const QString& fileName, int quality) {
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QProgressDialog progress(tr("Saving the image..."), QString(), 0, 0, parentWindow);
    progress.setWindowTitle(tr("Export pixmap"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(300);
    progress.setValue(0);
    bool written = false;
    QThread* writer = QThread::create([&] {
        QImageWriter png(&file, "png");
        png.setQuality(quality);
        written = png.write(image);
    });
    QEventLoop loop;
    connect(writer, &QThread::finished, &loop, &QEventLoop::quit);
    writer->start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    writer->wait();
    delete writer;
    return written && file.commit();
}

// --- Simulations ---

void FileHandler::actionLoad_simulation() {
    if (!simulationStarted())
        return;
    const QString name =
        askOpen(tr("Choose a simulation file to open"), tr("Simulation files (*.sim)"));
    if (!name.isEmpty())
        model->loadSimulation(local(name));
}

void FileHandler::actionSave_simulation() {
    if (!simulationStarted())
        return;
    const QString name =
        askSave(tr("Choose a filename to save under"), tr("Simulation files (*.sim)"));
    if (!name.isEmpty())
        model->saveSimulation(local(name));
}

// Every trigger switches autosaving on; nothing switches it off (the window
// keeps the action's tick on to say so).
void FileHandler::actionAutosave_simulation() {
    model->setAutosave(30);
}

} // namespace gui::actionhandling
