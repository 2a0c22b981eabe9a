#include "arbo/arbo.h"
#include "arbo/usermessage.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/render/ecosystemrender.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "support/glcontext.h"
#include "support/messagecatcher.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <tuple>

#include <sys/stat.h>

using ecosystem::render::EcosystemRender;
namespace data = ecosystem::data;

// The scene's own behaviour: its trees, switches and tree actions.
class TestEcosystemRender : public QObject {
    Q_OBJECT
    OffscreenGl gl;
    std::unique_ptr<EcosystemRender> scene;
    MessageCatcher catcher;

private slots:
    void initTestCase() {
        QVERIFY(gl.createWithViewState());
        // The working directory has no tree collection: six default trees.
        scene = std::make_unique<EcosystemRender>(&gl.context, nullptr);
        QCOMPARE(catcher.messages.size(), size_t(1)); // naming the five files
        // No frame of the other tests, however slow the machine, gives the
        // slow-frame hint before its own test asks for it.
        scene->slowFrameMs = 1e9;
    }

    // A bad species file is named, with its reason, in one message; its
    // species keeps the default tree and the others load.
    void badSpeciesFileIsNamedAndTheOthersLoad() {
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkpath("bin/zbirka-4"));
        const QString from = VIRELA_SOURCE_DIR "/bin/zbirka-4/";
        for (const QString& f : QDir(from).entryList(QDir::Files))
            QVERIFY(QFile::copy(from + f, dir.filePath("bin/zbirka-4/" + f)));
        const QString bad = dir.filePath("bin/zbirka-4/javorVelikZgorajGost.tree.xml");
        QFile f(bad);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QByteArray text = f.readAll();
        f.close();
        text.replace("\n600\t", "\n2147483647\t");
        QVERIFY(QFile::remove(bad) && f.open(QIODevice::WriteOnly) && f.write(text) > 0);
        f.close();
        const QString here = QDir::currentPath();
        QVERIFY(QDir::setCurrent(dir.path()));
        catcher.messages.clear();
        EcosystemRender other(&gl.context, nullptr);
        QDir::setCurrent(here);
        QCOMPARE(catcher.lines(),
                 std::vector<std::string>{
                     "Error: Could not open file.\n\nbin/zbirka-4/javorVelikZgorajGost.tree.xml: "
                     "line 3: the strand count 2147483647 lies outside 0 to 100000\n\nThese "
                     "species are drawn with the default tree."});
        const int strands[6] = {400, 650, 1000, 900, 250, 1000};
        for (int i = 0; i < 6; ++i)
            QCOMPARE(other.izglediDrevesnihVrst[i]->pdPrepared.stVsehZil, strands[i]);
    }

    // Only a DEM that loads changes the terrain and repaints the views.
    void rejectedDemRepaintsNothing() {
        QSignalSpy repaint(scene.get(), &EcosystemRender::modelDataChanged);
        catcher.messages.clear();
        const QImage* ortho = scene->getTerrainData()->ortofotoTexture.get();
        scene->reloadDMR("/no/such/terrain.dmr");
        QCOMPARE(repaint.count(), 0);
        QCOMPARE(catcher.messages.size(), size_t(1));
        QCOMPARE(scene->getTerrainData()->ortofotoTexture.get(), ortho);
        scene->reloadDMR(":/gui/textures/100x100.dmr");
        QCOMPARE(repaint.count(), 1);
        QVERIFY(scene->getTerrainData()->ortofotoTexture.get() != ortho);
    }

    void startsInEcosystemModeWithTheSixthTree() {
        QCOMPARE(scene->izglediDrevesnihVrst.size(), 6);
        QCOMPARE(scene->indexIzbranegaDrevesa, 5);
        QCOMPARE(scene->getIzbranoArbo(), scene->izglediDrevesnihVrst[5]);
        QVERIFY(!scene->isSingleRender());
        QVERIFY(scene->displaySky && scene->lightingEnabled && scene->showFPS);
        QCOMPARE(scene->autoSaveSimulationStepNr, -1);
        for (arbo::Arbo* tree : scene->izglediDrevesnihVrst)
            QCOMPARE(tree->pdPrepared.stVsehZil, 1000); // default parameters
    }

    void leafSizeFactorsAreNotReciprocal() {
        arbo::Arbo* tree = scene->getIzbranoArbo();
        const float start = tree->pdPrepared.listSize;
        QSignalSpy changed(scene.get(), &EcosystemRender::modelDataChanged);
        scene->actionEnlarge_leave_size();
        scene->actionEnlarge_leave_size();
        scene->actionReduce_leave_size();
        QCOMPARE(tree->pdPrepared.listSize, start * 1.1f * 1.1f * 0.91f);
        QCOMPARE(changed.count(), 3);
        tree->pdPrepared.listSize = start;
    }

    void nextSpeciesWrapsAndCarriesSpinAndSway() {
        arbo::Arbo* sixth = scene->getIzbranoArbo();
        scene->actionSpin_tree();
        scene->actionGrow_tree();
        QVERIFY(sixth->pogled.animateOrbitAround && sixth->pogled.animateGrow);
        scene->selectNextTreeSpecies();
        QCOMPARE(scene->indexIzbranegaDrevesa, 0);
        arbo::Arbo* first = scene->getIzbranoArbo();
        QVERIFY(first->pogled.animateOrbitAround);
        QVERIFY(!first->pogled.animateWindSway);
        QVERIFY(!first->pogled.animateGrow);
        QVERIFY(!sixth->pogled.animateOrbitAround);
        QVERIFY(sixth->pogled.animateGrow); // growing is not handed over
        for (int i = 0; i < 5; ++i)
            scene->selectNextTreeSpecies();
        QCOMPARE(scene->getIzbranoArbo(), sixth);
        QVERIFY(sixth->pogled.animateOrbitAround);
        scene->actionSpin_tree();
        scene->actionGrow_tree();
    }

    void renderStopsTreeAnimationWhenNoFlagIsLeft() {
        QSignalSpy stop(scene.get(), &EcosystemRender::stopTreeAnimation);
        QSignalSpy start(scene.get(), &EcosystemRender::startTreeAnimation);
        scene->actionSway_tree_in_wind();
        QCOMPARE(start.count(), 1);
        scene->render();
        QCOMPARE(stop.count(), 0);
        scene->actionSway_tree_in_wind();
        scene->render();
        QCOMPARE(stop.count(), 1);
        // Even a frame that draws nothing ends the animation.
        scene->doNotRefreshDisplay = true;
        scene->render();
        QCOMPARE(stop.count(), 2);
        scene->doNotRefreshDisplay = false;
    }

    void modeSwitchClearsGrowWireframeAndOrbit() {
        arbo::Arbo* tree = scene->getIzbranoArbo();
        tree->pogled.animateGrow = true;
        tree->pogled.wireframe = true;
        tree->pogled.orbit = 42;
        tree->pogled.animateWindSway = true;
        scene->toggleSingleRender();
        QVERIFY(scene->isSingleRender());
        QVERIFY(!tree->pogled.animateGrow && !tree->pogled.wireframe);
        QCOMPARE(tree->pogled.orbit, 0.0);
        QVERIFY(tree->pogled.animateWindSway);
        scene->toggleSingleRender();
        QVERIFY(!scene->isSingleRender());
        tree->pogled.animateWindSway = false;
    }

    void makeTransparentOnlyAbove200InAllChannels() {
        QImage image(4, 1, QImage::Format_RGB32);
        image.setPixel(0, 0, qRgb(201, 201, 201));
        image.setPixel(1, 0, qRgb(200, 255, 255));
        image.setPixel(2, 0, qRgb(255, 255, 255));
        image.setPixel(3, 0, qRgb(30, 120, 40));
        EcosystemRender::makeTransparent(image);
        QCOMPARE(image.pixel(0, 0), qRgba(255, 255, 255, 0));
        QCOMPARE(image.pixel(1, 0), qRgba(200, 255, 255, 255));
        QCOMPARE(qAlpha(image.pixel(2, 0)), 0);
        QCOMPARE(image.pixel(3, 0), qRgba(30, 120, 40, 255));
    }

    // Every texture the species collection names is compiled into the scene.
    void collectionTexturesLoad() {
        arbo::Arbo* tree = scene->getIzbranoArbo();
        const arbo::ParametriDrevesa old = tree->pdPrepared;
        for (const char* name : {"grm5", "Vrba Zalujka (Salix Babylonica)", "javorVelikZgorajGost",
                                 "smrekaMini", "manjseDefault100_vecjiListi"}) {
            QVERIFY(tree->pdPrepared.loadParameters(std::string(VIRELA_SOURCE_DIR) +
                                                    "/bin/zbirka-4/" + name + ".tree.xml"));
            catcher.messages.clear();
            scene->reloadCurrentTreeTextures();
            QVERIFY2(catcher.messages.empty(), name);
        }
        tree->pdPrepared = old;
        scene->reloadCurrentTreeTextures();
    }

    // A missing file, or a pipe that would never end (a tree file may name
    // anything), keeps the old textures.
    void missingTextureKeepsTheOldOnesAndSaysSo_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing") << "no/such/bark.jpg";
        QTest::newRow("a pipe") << "@fifo";
    }
    void missingTextureKeepsTheOldOnesAndSaysSo() {
        QFETCH(QString, name);
        QTemporaryDir dir;
        if (name == "@fifo") {
            name = dir.filePath("pipe.png");
            QCOMPARE(mkfifo(name.toLocal8Bit().constData(), 0600), 0);
        }
        arbo::Arbo* tree = scene->getIzbranoArbo();
        const GLuint bark = tree->pogled.textureNames[0];
        const GLuint leaf = tree->pogled.textureNames[1];
        const std::string old = tree->pdPrepared.barkTextureFileName;
        catcher.messages.clear();
        tree->pdPrepared.barkTextureFileName = name.toStdString();
        scene->reloadCurrentTreeTextures();
        QCOMPARE(catcher.lines(),
                 std::vector<std::string>{"Error: Could not open bark texture file."});
        QCOMPARE(tree->pogled.textureNames[0], bark);
        QCOMPARE(tree->pogled.textureNames[1], leaf);
        tree->pdPrepared.barkTextureFileName = old;
    }

    void texturesLoadFromBackslashedNames() {
        const QString dir = QDir::temp().filePath("virela_tex");
        QDir().mkpath(dir);
        QImage img(8, 8, QImage::Format_RGB32);
        img.fill(qRgb(90, 60, 30));
        QVERIFY(img.save(dir + "/b.png"));
        QVERIFY(img.save(dir + "/l.png"));
        arbo::Arbo* tree = scene->getIzbranoArbo();
        tree->pdPrepared.barkTextureFileName = QString(dir + "\\b.png").toStdString();
        tree->pdPrepared.leafTextureFileName = QString(dir + "\\l.png").toStdString();
        catcher.messages.clear();
        scene->reloadCurrentTreeTextures();
        QVERIFY(catcher.messages.empty());
        QVERIFY(tree->pogled.textureNames[0] != 0 && tree->pogled.textureNames[1] != 0);
        QVERIFY(glIsTexture(tree->pogled.textureNames[0]));
    }

    void stepsPerFrameNeverBelowOne() {
        scene->actionRender_more_often_skip_less_frames();
        QCOMPARE(scene->simulationStepsPerRenderedFrame, 1);
        scene->actionRender_less_often_skip_more_frames();
        QCOMPARE(scene->simulationStepsPerRenderedFrame, 2);
        scene->actionRender_more_often_skip_less_frames();
        QCOMPARE(scene->simulationStepsPerRenderedFrame, 1);
    }

    void simulationStepPrintsAndAutosaves() {
        QVERIFY(!scene->isSimulationRedyAndRunning());
        // A small plant area keeps the run short.
        scene->setLupaMinX(40);
        scene->setLupaMaxX(46);
        scene->setLupaMinY(40);
        scene->setLupaMaxY(46);
        QCOMPARE(scene->getLupaMaxY(), 46);
        scene->setAutosave(30);
        scene->actionRender_less_often_skip_more_frames(); // two steps per repaint
        QSignalSpy living(scene.get(), &EcosystemRender::nrPlantsLivingChanged);
        QSignalSpy repaint(scene.get(), &EcosystemRender::modelDataChanged);
        for (const char* f : {"0.sim", "30.sim", "60.sim", "31.sim"})
            QFile::remove(f);
        scene->doNotRefreshDisplay = true; // drawing is off, stepping goes on
        for (int i = 0; i < 61; ++i)
            scene->simulateNextStepAndUpdateGL();
        QVERIFY(scene->isSimulationRedyAndRunning());
        QCOMPARE(living.count(), 61);
        QCOMPARE(repaint.count(), 31); // the first step, then every second
        QVERIFY(QFile::exists("30.sim"));
        QVERIFY(QFile::exists("60.sim"));
        QVERIFY(!QFile::exists("31.sim"));
        scene->doNotRefreshDisplay = false;
        scene->actionRender_more_often_skip_less_frames();
    }

    // The walk borrows each species' model tree for its plants; the selected
    // tree keeps the state the user gave it.
    void plantWalkLeavesTheSelectedTreeAsItWas() {
        scene->selectNextTreeSpecies(); // the sixth tree to the first: a species model
        arbo::Arbo* tree = scene->getIzbranoArbo();
        QCOMPARE(tree, scene->izglediDrevesnihVrst[0]);
        tree->pogled.orbit = 12.5;
        tree->pogled.starostDrevesa = 0.25;
        QVERIFY(!tree->pogled.animateGrow && !tree->pogled.wireframe);
        scene->toggleWireframe();
        const int visible = scene->renderVisiblePlants();
        QVERIFY(visible > 0);
        int borrowed = 0;
        for (int i = 0; i < 5; ++i)
            borrowed += scene->izglediDrevesnihVrst[i]->pogled.wireframe;
        QVERIFY(borrowed > 0 || visible < 5); // the others carry the walk's state
        QVERIFY(!tree->pogled.animateGrow && !tree->pogled.wireframe);
        QCOMPARE(tree->pogled.orbit, 12.5);
        QCOMPARE(tree->pogled.starostDrevesa, 0.25);
        scene->toggleWireframe();
        for (int i = 0; i < 5; ++i)
            scene->selectNextTreeSpecies();
    }

    // With every overlay on, a frame draws the terrain, then the normals (red
    // lines), the four layers as diamonds of their colours in order, and the
    // sun's yellow balls last; read back in feedback mode.
    void overlaysFollowTheTerrainInOrder() {
        data::CTerrainData& t = *scene->getTerrainData();
        const auto kept = std::make_tuple(t.terrainInclination, t.terrainMoisture,
                                          t.terrainSunniness, t.terrainWindiness);
        t.terrainInclination.assign(t.terrainInclination.size(), 0.2f);
        t.terrainMoisture.assign(t.terrainMoisture.size(), 0.4f);
        t.terrainSunniness.assign(t.terrainSunniness.size(), 0.6f);
        t.terrainWindiness.assign(t.terrainWindiness.size(), 0.8f);
        auto toggleOverlays = [this] {
            for (auto toggle :
                 {&EcosystemRender::toggleDisplayTerrainNormals,
                  &EcosystemRender::toggleDisplayTerrainInclination,
                  &EcosystemRender::toggleDisplayTerrainMoisture,
                  &EcosystemRender::toggleDisplayTerrainSunniness,
                  &EcosystemRender::toggleDisplayTerrainWindiness,
                  &EcosystemRender::toggleDisplayLandMarkings, &EcosystemRender::toggleDisplaySun,
                  &EcosystemRender::toggleDoNotDrawTrees})
                (scene.get()->*toggle)();
        };
        toggleOverlays();
        std::vector<GLfloat> buffer(8 << 20);
        glFeedbackBuffer(GLsizei(buffer.size()), GL_3D_COLOR, buffer.data());
        glRenderMode(GL_FEEDBACK);
        scene->render();
        const int size = glRenderMode(GL_RENDER);
        QVERIFY(size > 0);

        auto near = [](const GLfloat* c, float r, float g, float b) {
            return std::fabs(c[0] - r) < 0.01f && std::fabs(c[1] - g) < 0.01f &&
                   std::fabs(c[2] - b) < 0.01f;
        };
        QStringList order; // runs of one kind, in the order drawn
        for (int i = 0; i < size;) {
            const int token = int(buffer[i++]);
            int vertices = 1;
            if (token == GL_POLYGON_TOKEN)
                vertices = int(buffer[i++]);
            else if (token == GL_LINE_TOKEN || token == GL_LINE_RESET_TOKEN)
                vertices = 2;
            else if (token == GL_PASS_THROUGH_TOKEN)
                vertices = 0, ++i;
            const GLfloat* c = &buffer[i + 3];
            i += 7 * vertices;
            QString kind = "other";
            if (token == GL_LINE_TOKEN || token == GL_LINE_RESET_TOKEN)
                kind = near(c, 1, 0, 0) ? "normals" : "other lines";
            else if (near(c, 0.2f, 0, 0.2f))
                kind = "inclination";
            else if (near(c, 0, 0.4f, 0))
                kind = "moisture";
            else if (near(c, 0.6f, 0, 0))
                kind = "sunniness";
            else if (near(c, 0.8f, 0.8f, 0))
                kind = "windiness";
            else if (c[0] > 0.9f && c[1] > 0.9f && c[2] < 0.1f)
                kind = "sun";
            if (order.isEmpty() || order.last() != kind)
                order << kind;
        }
        QCOMPARE(order, QStringList({"other", "normals", "inclination", "moisture", "sunniness",
                                     "windiness", "sun"}));
        toggleOverlays();
        std::tie(t.terrainInclination, t.terrainMoisture, t.terrainSunniness, t.terrainWindiness) =
            kept;
    }

    // Slow exact frames name the fast switch once; switching it on takes the
    // hint back, and fast frames never bring it.
    void slowFramesHintAtTheFastSwitchOnce() {
        QSignalSpy hint(scene.get(), &EcosystemRender::statusHint);
        scene->slowFrameMs = -1.0; // every frame is slow
        scene->render();
        scene->render();
        QCOMPARE(hint.count(), 1);
        const QString text = hint.at(0).at(0).toString();
        QVERIFY2(text.contains("\"Fast distant trees\"") && text.contains("Ctrl+Shift+F"),
                 qPrintable(text));
        scene->toggleFastDistantTrees();
        QCOMPARE(hint.count(), 2);
        QVERIFY(hint.at(1).at(0).toString().isEmpty());
        scene->render();
        scene->toggleFastDistantTrees();
        scene->render();
        QCOMPARE(hint.count(), 2);
        scene->slowFrameMs = 500.0;
    }

    void seedsPassThrough() {
        std::vector<unsigned long long> seeds(13);
        for (int i = 0; i < 13; ++i)
            seeds[i] = 100 + i;
        scene->setRandomGeneratorSeeds(seeds);
        QCOMPARE(scene->getRandomGeneratorSeeds(), seeds);
    }

    void cleanupTestCase() { scene.reset(); }
};

QTEST_MAIN(TestEcosystemRender)
#include "tst_ecosystemrender.moc"
