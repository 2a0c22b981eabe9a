#include "arbo/arbo.h"
#include "arbo/latexexport.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/render/ecosystemrender.h"
#include "ecosystem/simulation/ecosystemsimulation.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"
#include "gui/actionhandling/filehandler.h"
#include "gui/actionhandling/timekeeper.h"
#include "gui/dialogs/pixmapexportdialog.h"
#include "gui/dialogs/skytextures.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "gui/oglwidget.h"
#include "support/dialogscript.h"
#include "support/imagecompare.h"
#include "support/mainwindowfixture.h"
#include "support/messagecatcher.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

using gui::MainWindow;
using gui::actionhandling::FileHandler;
using gui::actionhandling::TimeKeeper;

namespace {

QByteArray head(const QString& name, int n) {
    QFile f(name);
    return f.open(QIODevice::ReadOnly) ? f.read(n) : QByteArray();
}

// The frame numbers of the images "name<number>.png" in the working folder.
QList<int> frameNumbers(const QString& name) {
    QList<int> out;
    for (const QString& f : QDir::current().entryList({name + "*.png"}, QDir::Files)) {
        const QString digits = f.mid(name.size()).chopped(4);
        if (digits.size() >= 5)
            out << digits.toInt();
    }
    std::sort(out.begin(), out.end());
    return out;
}

} // namespace

class TestFileHandler : public QObject {
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<MainWindow> w;
    std::unique_ptr<MessageCatcher> catcher;

    ecosystem::render::EcosystemRender* scene() const { return w->currentModel; }
    arbo::Arbo* tree() const { return scene()->getIzbranoArbo(); }
    gui::OglWidget* view() const { return w->oglWidget; }

    // Triggers the action while the script answers its dialogs.
    bool run(QAction* action, DialogScript& script) {
        action->trigger();
        return script.done();
    }
    void toTreeEditMode() {
        w->ui.actionShow_ecosystem->trigger();
        QVERIFY(scene()->isSingleRender());
    }

private slots:
    void init() {
        if (QTest::currentTestFunction() == QLatin1String("frameFileNames"))
            return; // needs no window
        dir = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir::setCurrent(dir->path()));
        catcher = std::make_unique<MessageCatcher>();
        w = std::make_unique<MainWindow>();
        w->resize(900, 700);
        QVERIFY(showWithScene(*w));
        // The species files are not in the test's own directory: start-up said so.
        catcher->messages.clear();
    }
    void cleanup() {
        if (catcher)
            catcher->whileShown = nullptr;
        w.reset();
        catcher.reset();
        dir.reset();
    }

    void frameFileNames_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("frame");
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QString>("expected");
        QTest::newRow("image") << "shot.png" << 7 << ".png"
                               << "shot.png00007.png";
        QTest::newRow("geometry") << "tree.crs" << 42 << ".crs"
                                  << "tree.crs00042.crs";
        QTest::newRow("first") << "a" << 0 << ".png"
                               << "a00000.png";
        QTest::newRow("five digits") << "a" << 99999 << ".png"
                                     << "a99999.png";
        QTest::newRow("six digits") << "a" << 123456 << ".png"
                                    << "a123456.png";
    }
    void frameFileNames() {
        QFETCH(QString, name);
        QFETCH(int, frame);
        QFETCH(QString, suffix);
        QFETCH(QString, expected);
        QCOMPARE(FileHandler::frameFileName(name, frame, suffix), expected);
    }

    // A saved tree loads back the same; a file the loader rejects changes
    // nothing and says "Could not open file." and why.
    void parameterFilesThroughTheMenu() {
        tree()->pdPrepared.stVsehZil = 321;
        tree()->pdPrepared.kotVejitveG.tocke = {{0, 0.1}, {0.4, 0.3}, {1, 0.2}};
        DialogScript save;
        QVERIFY(run(w->ui.actionSave_parameters, save.file("a.tree.xml")));
        const QByteArray saved = head("a.tree.xml", 100000);
        QVERIFY(saved.contains("321\t5\t0.01"));

        tree()->pdPrepared = arbo::ParametriDrevesa();
        QSignalSpy repaint(scene(), &ecosystem::render::EcosystemRender::modelDataChanged);
        QSignalSpy replaced(scene(), &ecosystem::render::EcosystemRender::selectedTreeReplaced);
        DialogScript load;
        QVERIFY(run(w->ui.actionLoad_parameters, load.file("a.tree.xml")));
        QVERIFY(repaint.count() > 0);
        QCOMPARE(replaced.count(), 1); // open designers take the loaded curves up
        QVERIFY(tree()->pdPrepared.saveParameters("b.tree.xml"));
        QCOMPARE(head("b.tree.xml", 100000), saved);

        QFile bad("bad.tree.xml");
        QVERIFY(bad.open(QIODevice::WriteOnly));
        bad.write(saved.left(saved.size() / 2));
        bad.close();
        DialogScript rejected;
        QVERIFY(run(w->ui.actionLoad_parameters, rejected.file("bad.tree.xml")));
        QCOMPARE(catcher->lines().size(), size_t(1));
        // The loader's reason follows on a line of its own.
        const QString told = QString::fromStdString(catcher->lines()[0]);
        QVERIFY2(told.contains(QRegularExpression("^Error: Could not open file\\.\nline \\d+: ")),
                 qPrintable(told));
        QCOMPARE(replaced.count(), 1);
        QVERIFY(tree()->pdPrepared.saveParameters("c.tree.xml"));
        QCOMPARE(head("c.tree.xml", 100000), saved);

        catcher->messages.clear();
        DialogScript import;
        QVERIFY(run(w->ui.actionImport_tree_2_x_parameters, import.file("bad.tree.xml")));
        QCOMPARE(catcher->lines(), std::vector<std::string>{"Information: Not yet implemented."});
    }

    void cancelledDialogsWriteNothing_data() {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("cancelled"); // the file dialog, or the one after it
        for (const char* a :
             {"actionSave_parameters", "actionLoad_parameters", "actionImport_tree_2_x_parameters",
              "actionExport_current_tree_geometry_as_vertices", "actionExport_current_tree_as_OBJ",
              "actionExport_current_tree_as_Latex_formulas", "actionLoad_DEM_terrain_model",
              "actionExport_window_image", "actionExport_custom_resolution_image",
              "actionLoad_bark_texture", "actionLoadleaf_texture", "actionSave_simulation",
              "actionLoad_simulation"})
            QTest::newRow(a) << a << "file";
        QTest::newRow("pixmap size cancelled") << "actionExport_custom_resolution_image"
                                               << "pixmap";
        QTest::newRow("sky textures cancelled") << "actionSet_sky_textures"
                                                << "sky";
    }
    void cancelledDialogsWriteNothing() {
        QFETCH(QString, action);
        QFETCH(QString, cancelled);
        toTreeEditMode();
        // The simulation actions open their dialog only once a run has begun.
        scene()->ecosystemSimulation->simulationRunning = true;
        const std::string bark = tree()->pdPrepared.barkTextureFileName;
        QSignalSpy repaint(scene(), &ecosystem::render::EcosystemRender::modelDataChanged);
        DialogScript script;
        if (cancelled == "pixmap")
            script.file("big.png").then<gui::PixmapExportDialog>(
                [](gui::PixmapExportDialog* d) { d->reject(); });
        else if (cancelled == "sky")
            script.then<gui::SkyTextures>([](gui::SkyTextures* d) {
                d->north->setText("n.png");
                d->reject();
            });
        else
            script.file(QString());
        QVERIFY(run(w->findChild<QAction*>(action), script));
        // A repaint would write a pending vertex export.
        view()->updateGL();
        QVERIFY(view()->grabFrameBuffer().width() > 0);
        QCOMPARE(QDir::current().entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
        QVERIFY(catcher->messages.empty());
        QCOMPARE(tree()->pdPrepared.barkTextureFileName, bark);
        QCOMPARE(repaint.count(), 0); // nothing loaded
    }

    void windowImageIsAPngWhateverItsName() {
        DialogScript script;
        QVERIFY(run(w->ui.actionExport_window_image, script.file("shot.jpg")));
        QCOMPARE(head("shot.jpg", 8), QByteArray("\x89PNG\r\n\x1a\n"));
        const QImage shot("shot.jpg", "png");
        QCOMPARE(shot.size(), view()->size() * view()->devicePixelRatio());
        QVERIFY(!shot.hasAlphaChannel());
        QCOMPARE(w->fileHandler->lastFileNameImage, QDir::current().absoluteFilePath("shot.jpg"));
    }

    // Each tick of a spinning tree gives one geometry file and one image,
    // numbered after the vertex export and the window image; the image shows
    // what that tick drew: the tree turned once per tick and by nothing else,
    // and the image equals that state drawn again (without an export).
    void animationSequenceHoldsEveryFrameOnce() {
        toTreeEditMode();
        DialogScript script;
        QVERIFY(run(w->ui.actionExport_window_image, script.file("seq.png")));
        DialogScript vertices;
        QVERIFY(
            run(w->ui.actionExport_current_tree_geometry_as_vertices, vertices.file("seq.crs")));
        QTRY_VERIFY(QFile::exists("seq.crs"));
        QList<double> before, after;
        connect(w->timeKeeper, &TimeKeeper::grabGeometry, this,
                [&] { before << tree()->pogled.orbit; });
        connect(w->timeKeeper, &TimeKeeper::grabFrameBuffer, this,
                [&] { after << tree()->pogled.orbit; });
        w->ui.actionAnimation_rendering_mode_Sequence_export->trigger();
        w->ui.actionSpin_tree->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(after.size() >= 6, 20000);
        w->ui.actionAnimation_rendering_mode_Sequence_export->trigger();
        w->ui.actionSpin_tree->trigger();
        QTRY_VERIFY(w->timeKeeper->treeTimer == nullptr);
        QVERIFY(w->fileHandler->lastFileNameImage.isEmpty());

        const int n = int(after.size());
        QCOMPARE(int(before.size()), n);
        QList<int> expected;
        for (int k = 0; k < n; ++k) {
            expected << 2 * k + 1; // even numbers go to the geometry frames
            QCOMPARE(after[k], before[k] + 5.37);
            if (k > 0)
                QCOMPARE(before[k], after[k - 1]);
        }
        QCOMPARE(frameNumbers("seq.png"), expected);
        for (int k = 0; k < n; ++k)
            QCOMPARE(head(FileHandler::frameFileName("seq.crs", 2 * k, ".crs"), 4),
                     QByteArray("B 0\n"));
        QVERIFY(!QFile::exists(FileHandler::frameFileName("seq.crs", 2 * n, ".crs")));
        QImage previous;
        for (int k = 0; k < n; ++k) {
            const QImage frame =
                QImage(FileHandler::frameFileName("seq.png", 2 * k + 1, ".png"), "png")
                    .convertToFormat(QImage::Format_RGB32);
            QVERIFY(frame != previous);
            previous = frame;
            tree()->pogled.orbit = before[k];
            view()->updateGL();
            QCOMPARE(imagecompare::differingPixels(view()->grabFrameBuffer(), frame), 0);
        }
    }

    // With three steps per drawn frame the sequence still draws and saves
    // every step, each image after its own step.
    void simulationSequenceShowsEveryStep() {
        scene()->setLupaMinX(44);
        scene()->setLupaMaxX(50);
        scene()->setLupaMinY(44);
        scene()->setLupaMaxY(50);
        w->ui.actionCompute_more_simulation_steps_per_one_rendered_frame->trigger();
        w->ui.actionCompute_more_simulation_steps_per_one_rendered_frame->trigger();
        QCOMPARE(scene()->simulationStepsPerRenderedFrame, 3);
        DialogScript script;
        QVERIFY(run(w->ui.actionExport_window_image, script.file("sim.png")));
        QList<int> drawn, grabbed;
        const int& step = scene()->ecosystemSimulation->simulationStepNr;
        auto painted =
            connect(scene(), &ecosystem::render::EcosystemRender::nrPlantsRenderedChanged, this,
                    [&] { drawn << step; });
        connect(w->timeKeeper, &TimeKeeper::grabFrameBuffer, this, [&] { grabbed << step; });
        w->ui.actionAnimation_rendering_mode_Sequence_export->trigger();
        w->ui.actionRun_simulation->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(grabbed.size() >= 5, 30000);
        w->ui.actionAnimation_rendering_mode_Sequence_export->trigger();
        disconnect(painted);
        w->ui.actionRun_simulation->trigger();
        QVERIFY(!drawn.isEmpty());
        for (int k = 0; k < grabbed.size(); ++k)
            QCOMPARE(grabbed[k], grabbed[0] + k);
        // Drawn once per step; a paint still pending at the switch is left out.
        QCOMPARE(drawn.mid(drawn.size() - grabbed.size()), grabbed);
        QList<int> expected;
        for (int k = 0; k < grabbed.size(); ++k)
            expected << k;
        QCOMPARE(frameNumbers("sim.png"), expected);
    }

    // A frame that cannot be written, image or geometry, ends the sequence,
    // tick included, before its one box opens: the ticks that run on in the
    // box's event loop export nothing more and open no box inside it.
    void unwritableFrameStopsTheSequence_data() {
        QTest::addColumn<QString>("image"); // the window image's name, if any
        QTest::addColumn<QString>("taken"); // a folder that takes a frame's file name
        QTest::newRow("image") << "gone.png"
                               << "gone.png00001.png";
        QTest::newRow("geometry") << "gone.png"
                                  << "gone.crs00000.crs.part";
        QTest::newRow("geometry, no images") << QString() << "gone.crs00000.crs.part";
    }
    void unwritableFrameStopsTheSequence() {
        QFETCH(QString, image);
        QFETCH(QString, taken);
        toTreeEditMode();
        DialogScript script, vertices;
        if (!image.isEmpty())
            QVERIFY(run(w->ui.actionExport_window_image, script.file(image)));
        QVERIFY(
            run(w->ui.actionExport_current_tree_geometry_as_vertices, vertices.file("gone.crs")));
        QTRY_VERIFY(QFile::exists("gone.crs"));
        QVERIFY(QDir::current().mkdir(taken));
        int open = 0, deepest = 0;
        catcher->whileShown = [&] {
            deepest = std::max(deepest, ++open);
            if (open == 1)
                QTest::qWait(300);
            --open;
        };
        w->ui.actionAnimation_rendering_mode_Sequence_export->trigger();
        w->ui.actionGrow_tree->trigger();
        QTRY_VERIFY(!w->ui.actionAnimation_rendering_mode_Sequence_export->isChecked());
        QTRY_COMPARE(catcher->lines().size(), size_t(1));
        w->ui.actionGrow_tree->trigger();
        catcher->whileShown = nullptr;
        QCOMPARE(deepest, 1);
        QCOMPARE(catcher->lines().size(), size_t(1));
        QVERIFY(QString::fromStdString(catcher->lines()[0]).startsWith("Error: Could not write"));
        QCOMPARE(w->timeKeeper->animationFrameNumber, 0);
        QVERIFY(w->fileHandler->lastFileNameImage.isEmpty());
        QVERIFY(w->fileHandler->lastFileNameVertex.isEmpty());
    }

    // The custom-resolution image: the view's field of view stretched to the
    // asked size, the same in tiles as in one piece, the view undisturbed.
    void customResolutionImage() {
        const QImage before = view()->grabFrameBuffer();
        DialogScript script;
        script.file("big.jpg").then<gui::PixmapExportDialog>([](gui::PixmapExportDialog* d) {
            QCOMPARE(d->windowTitle(), QString("Export pixmap"));
            QCOMPARE(d->sbWidth->value(), 2048);
            QCOMPARE(d->sbHeight->maximum(), 10000);
            QCOMPARE(d->sliderQuality->maximum(), 99);
            d->sbWidth->setValue(320);
            d->sbHeight->setValue(200);
            d->sliderQuality->setValue(90);
            d->accept();
        });
        QVERIFY(run(w->ui.actionExport_custom_resolution_image, script));
        QCOMPARE(head("big.jpg", 4), QByteArray("\x89PNG"));
        const QImage big = QImage("big.jpg", "png").convertToFormat(QImage::Format_RGB32);
        QCOMPARE(big.size(), QSize(320, 200));
        QVERIFY(w->fileHandler->lastFileNameImage.isEmpty());
        const QImage tiled = view()->renderPixmap(320, 200, 64);
        QCOMPARE(tiled.size(), QSize(320, 200));
        QVERIFY(imagecompare::differingPixels(big, tiled) < 320 * 200 / 200);
        const QImage scaled =
            before.scaled(320, 200, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QVERIFY(imagecompare::meanAbsoluteDifference(big, scaled) < 12.0);
        view()->updateGL();
        QCOMPARE(imagecompare::differingPixels(view()->grabFrameBuffer(), before), 0);

        // Events are handled between the tiles (the progress dialog does): no
        // simulation step or camera glide moves the scene on meanwhile, and no
        // tile adds a point to the statistics; after, the scene goes on.
        scene()->setLupaMinX(44);
        scene()->setLupaMaxX(50);
        scene()->setLupaMinY(44);
        scene()->setLupaMaxY(50);
        const int& step = scene()->ecosystemSimulation->simulationStepNr;
        const ecosystem::render::Camera& camera = *scene()->getCurrentCamera();
        const std::vector<int>& points = scene()->getEntitiesStatistics()->korakiUpodobitev;
        w->ui.actionRun_simulation->trigger();
        QTRY_VERIFY(step > 1);
        w->ui.actionMove_forward_more->trigger();
        QList<QList<double>> seen;
        QVERIFY(!view()
                     ->renderPixmap(320, 200, 64,
                                    [&](int, int) {
                                        QTest::qWait(20);
                                        seen << QList<double>{double(step), camera.x, camera.z,
                                                              double(points.size())};
                                        return true;
                                    })
                     .isNull());
        QTRY_VERIFY(step > seen.first()[0]);
        w->ui.actionRun_simulation->trigger();
        QCOMPARE(seen.size(), 20);
        for (const QList<double>& tile : seen)
            QCOMPARE(tile, seen.first());
    }

    void treeExportsThroughTheMenu() {
        toTreeEditMode();
        DialogScript vertices;
        QVERIFY(
            run(w->ui.actionExport_current_tree_geometry_as_vertices, vertices.file("tree.crs")));
        QTRY_COMPARE(head("tree.crs", 4), QByteArray("B 0\n"));
        QVERIFY(!QFile::exists("tree.crs.part"));
        // A failed export leaves the older file whole and says so.
        const QByteArray exported = head("tree.crs", 1 << 30);
        QVERIFY(QDir::current().mkdir("tree.crs.part"));
        DialogScript failing;
        // The user agrees to replace the file (the dialog's own question is not scripted).
        failing.then<QFileDialog>([](QFileDialog* d) {
            d->setOption(QFileDialog::DontConfirmOverwrite);
            d->selectFile(QDir::current().absoluteFilePath("tree.crs"));
            static_cast<QDialog*>(d)->accept();
        });
        QVERIFY(run(w->ui.actionExport_current_tree_geometry_as_vertices, failing));
        QTRY_COMPARE(catcher->lines().size(), size_t(1));
        const QString told = QString::fromStdString(catcher->lines()[0]);
        QVERIFY2(told.startsWith("Error: Could not write ") && told.endsWith("tree.crs."),
                 qPrintable(told));
        QCOMPARE(head("tree.crs", 1 << 30), exported);
        QVERIFY(QDir::current().rmdir("tree.crs.part"));
        catcher->messages.clear();
        DialogScript obj;
        QVERIFY(run(w->ui.actionExport_current_tree_as_OBJ, obj.file("tree")));
        for (const char* f : {"tree.obj", "tree.mtl", "tree_bark.png", "tree_leaf.png"})
            QVERIFY2(QFile::exists(f), f);
        DialogScript tex;
        QVERIFY(run(w->ui.actionExport_current_tree_as_Latex_formulas, tex.file("tree.tex")));
        const QString text = QString::fromUtf8(head("tree.tex", 100000));
        QVERIFY(text.startsWith("%\\documentclass"));
        QVERIFY(text.contains("$S=1000$, $L_0=5$"));
        QVERIFY(text.endsWith("%\\end{document}\n"));
        QVERIFY(catcher->messages.empty());

        // The sentences in Slovene come from the compiled-in translation.
        QTranslator sl;
        QVERIFY(sl.load(":/gui/translations/virela_sl_SI"));
        QCoreApplication::installTranslator(&sl);
        QString slovene;
        QTextStream out(&slovene);
        arbo::LatexExport(tree()->pdPrepared, "sl_SI").exportTreeAsLatexFormulas(out);
        out.flush();
        QCoreApplication::removeTranslator(&sl);
        const QStringList lines = slovene.split('\n');
        QCOMPARE(lines[6], QString("Drevo smo modelirali z naslednjimi skalarnimi parametri: "));
        QVERIFY(lines[7].startsWith("$S=1000$, $L_0=5$, $k_d=0,01$"));
        QVERIFY(lines[8].endsWith("$k_f=1$  in $l_{LOD}=0$."));
    }

    // An unreadable image keeps the old texture and name; a good one is taken
    // and shown at once.
    void treeTextures() {
        QFile bad("bad.png");
        QVERIFY(bad.open(QIODevice::WriteOnly));
        bad.write("not an image");
        bad.close();
        QImage good(16, 16, QImage::Format_RGB32);
        good.fill(qRgb(120, 80, 40));
        QVERIFY(good.save("good.png"));
        const std::string bark = tree()->pdPrepared.barkTextureFileName;
        const GLuint name = tree()->pogled.textureNames[0];
        DialogScript refused;
        QVERIFY(run(w->ui.actionLoad_bark_texture, refused.file("bad.png")));
        QCOMPARE(catcher->lines(),
                 std::vector<std::string>{"Error: Could not open bark texture file."});
        QCOMPARE(tree()->pdPrepared.barkTextureFileName, bark);
        QCOMPARE(tree()->pogled.textureNames[0], name);

        QSignalSpy repaint(scene(), &ecosystem::render::EcosystemRender::modelDataChanged);
        DialogScript taken;
        QVERIFY(run(w->ui.actionLoadleaf_texture, taken.file("good.png")));
        QCOMPARE(tree()->pdPrepared.leafTextureFileName,
                 QDir::current().absoluteFilePath("good.png").toStdString());
        QCOMPARE(repaint.count(), 1);
        QCOMPARE(int(catcher->messages.size()), 1);
    }

    void skyTexturesDialog() {
        QImage n(32, 32, QImage::Format_RGB32);
        n.fill(qRgb(200, 30, 30));
        QVERIFY(n.save("n.png"));
        QSignalSpy repaint(scene(), &ecosystem::render::EcosystemRender::modelDataChanged);
        bool checked = false;
        DialogScript script;
        script
            .then<gui::SkyTextures>([&](gui::SkyTextures* d) {
                QCOMPARE(d->windowTitle(), QString("Sky textures"));
                QCOMPARE(d->north->text(), QString(":/gui/textures/sky_n.png"));
                QCOMPARE(d->down->text(), QString(":/gui/textures/sky_d.png"));
                QStringList labels;
                for (QLabel* l : d->findChildren<QLabel*>())
                    labels << l->text();
                QCOMPARE(labels,
                         QStringList({"North texture:", "South texture:", "East texture:",
                                      "West texture:", "Upper texture:", "Lower texture:"}));
                d->up->setText("missing.png");
                QTimer::singleShot(0, d->findChild<QPushButton*>("northBrowse"),
                                   &QPushButton::click);
            })
            .file("n.png")
            .then<gui::SkyTextures>([&](gui::SkyTextures* d) {
                QCOMPARE(d->north->text(), QDir::current().absoluteFilePath("n.png"));
                d->accept(); // refused: the upper face cannot be read
                QVERIFY(d->isVisible());
                QCOMPARE(catcher->lines(),
                         std::vector<std::string>{"Error: Could not open sky texture file "
                                                  "missing.png."});
                d->up->setText(":/gui/textures/sky_u.png");
                d->accept();
                checked = true;
            });
        QVERIFY(run(w->ui.actionSet_sky_textures, script));
        QVERIFY(checked);
        QString north, s, e, we, u, d;
        scene()->getSkyTextureFileNames(north, s, e, we, u, d);
        QCOMPARE(north, QDir::current().absoluteFilePath("n.png"));
        QCOMPARE(u, QString(":/gui/textures/sky_u.png"));
        QCOMPARE(repaint.count(), 1);
    }

    // A new DEM and a loaded simulation are on screen at once: the scene asks
    // every view to repaint.
    void demAndSimulationRepaintAtOnce() {
        QFile dem(VIRELA_SOURCE_DIR "/resources/textures/100x100.dmr");
        QVERIFY(dem.open(QIODevice::ReadOnly));
        QFile flipped("flipped.dmr");
        QVERIFY(flipped.open(QIODevice::WriteOnly));
        while (!dem.atEnd()) {
            const QList<QByteArray> p = dem.readLine().simplified().split(' ');
            if (p.size() == 3)
                flipped.write(p[0] + ' ' + p[1] + ' ' + QByteArray::number(1600 - p[2].toDouble()) +
                              '\n');
        }
        flipped.close();
        const QImage before = view()->grabFrameBuffer();
        QSignalSpy repaint(scene(), &ecosystem::render::EcosystemRender::modelDataChanged);
        DialogScript load;
        QVERIFY(run(w->ui.actionLoad_DEM_terrain_model, load.file("flipped.dmr")));
        QCOMPARE(repaint.count(), 1);
        QVERIFY(catcher->messages.empty());
        QVERIFY(imagecompare::differingPixels(view()->grabFrameBuffer(), before) > 1000);

        w->ui.actionLoad_simulation->trigger(); // no dialog before a run
        QCOMPARE(catcher->lines(), std::vector<std::string>{"Error: First run simulation please."});
        scene()->setLupaMinX(44);
        scene()->setLupaMaxX(48);
        scene()->setLupaMinY(44);
        scene()->setLupaMaxY(48);
        for (int i = 0; i < 3; ++i)
            scene()->simulateNextStepAndUpdateGL();
        const int saved = scene()->ecosystemSimulation->simulationStepNr;
        DialogScript save;
        QVERIFY(run(w->ui.actionSave_simulation, save.file("a.sim")));
        scene()->simulateNextStepAndUpdateGL();
        repaint.clear();
        DialogScript open;
        QVERIFY(run(w->ui.actionLoad_simulation, open.file("a.sim")));
        QCOMPARE(repaint.count(), 1);
        QCOMPARE(scene()->ecosystemSimulation->simulationStepNr, saved);

        // Every trigger switches autosaving on, and its tick stays.
        for (int i = 0; i < 2; ++i) {
            w->ui.actionAutosave_simulation->trigger();
            QVERIFY(w->ui.actionAutosave_simulation->isChecked());
        }
        QCOMPARE(scene()->autoSaveSimulationStepNr, 30);
    }
};

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    TestFileHandler test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_filehandler.moc"
