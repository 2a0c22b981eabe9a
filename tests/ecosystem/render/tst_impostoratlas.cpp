// Far trees as impostors: with the fast switch on, plants at levels of detail
// 5 to 9 are upright quads showing pictures of their trees from the atlas. The
// walk must find the same far plants, change the image only where they stand,
// and give the exact image back when the switch goes off; the pictures must
// show each species' own tree and be drawn again when a tree changes.

#include "ecosystem/render/impostoratlas.h"
#include "ecosystem/render/visibleplantsrender.h"

#include "arbo/arbo.h"
#include "arbo/gltexture.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/render/ecosystemrender.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/entities/rastlina.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"

#include "support/glcontext.h"
#include "support/imagecompare.h"

#include <GL/glu.h>

#include <QtTest>

#include <cmath>
#include <memory>

using ecosystem::data::CTerrainData;
using ecosystem::render::ImpostorAtlas;
using ecosystem::render::VisiblePlantsRender;
using ecosystem::simulationEntities::CRastlina;
using ecosystem::simulationEntities::CVrstaRastlin;

namespace {

const int W = 400, H = 300;
const float eyeY = 40.0f, pitch = 12.0f;
const float farRadius = 25.0f, farHeight = 45.0f; // a box holding any far tree

CVrstaRastlin species(CTerrainData& data, ecosystem::statistics::CEntitiesStatistics& stats,
                      int tip) {
    return CVrstaRastlin(&data, &stats, tip, 1, 0, 3, 10, 20, 0.8f, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                         0, 0, 0, 0, 0, 0, 1, 0, 0, 0);
}

// Bearing in degrees (0 straight ahead, positive to the right), distance.
arbo::Tocka at(double bearing, double distance) {
    const double a = bearing * M_PI / 180.0;
    return arbo::Tocka(float(distance * std::sin(a)), 0.0f, float(-distance * std::cos(a)));
}

QImage texture(const char* name) {
    QImage image(QString(":/gui/textures/") + name);
    ecosystem::render::EcosystemRender::makeTransparent(image);
    return image;
}

} // namespace

class TestImpostorAtlas : public QObject {
    Q_OBJECT
    OffscreenGl gl;
    bool haveGl = false;
    std::unique_ptr<CTerrainData> data;
    ecosystem::statistics::CEntitiesStatistics stats;
    std::vector<CVrstaRastlin> all, nearOnly;
    std::vector<std::unique_ptr<arbo::Arbo>> trees;
    std::vector<arbo::Arbo*> models;
    arbo::Arbo selected;
    std::unique_ptr<ecosystem::render::Camera> camera;
    unsigned bark = 0, leaf = 0, otherLeaf = 0;
    QRect farArea; // where the far plants can show

    void setUpView() {
        glViewport(0, 0, W, H);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glRotatef(pitch, 1, 0, 0);
        glTranslatef(0, -eyeY, 0);
        // The scene's lights, placed after the camera.
        const GLfloat l0[] = {4609, 0, 5750, 0}, l1[] = {4609, 2500, 5750, 2500},
                      l2[] = {4609, 1000, 5750, 715};
        glLightfv(GL_LIGHT0, GL_POSITION, l0);
        glLightfv(GL_LIGHT1, GL_POSITION, l1);
        glLightfv(GL_LIGHT2, GL_POSITION, l2);
        glClearColor(0.35f, 0.45f, 0.3f, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    }

    QImage frame(VisiblePlantsRender& walk, std::vector<CVrstaRastlin>& plants,
                 VisiblePlantsRender::Flags flags) {
        // The atlas draws its pictures over a few frames when asked for many.
        for (int i = 0; i < 100; ++i) {
            setUpView();
            std::vector<int> counts;
            walk.render(plants, models, selected, *camera, flags, counts);
            if (!walk.atlasPending)
                break;
        }
        glFinish();
        return gl.fbo->toImage();
    }

    // The screen rectangle of a box around every far plant.
    QRect projectedFarArea() {
        setUpView();
        GLdouble mv[16], pr[16];
        GLint vp[4];
        glGetDoublev(GL_MODELVIEW_MATRIX, mv);
        glGetDoublev(GL_PROJECTION_MATRIX, pr);
        glGetIntegerv(GL_VIEWPORT, vp);
        QRect area;
        for (const CVrstaRastlin& v : all)
            for (const CRastlina& r : v.ziviPrimerkiTeVrste) {
                if (std::hypot(r.pozicija3D.x, eyeY, r.pozicija3D.z) < 125)
                    continue;
                for (int k = 0; k < 8; ++k) {
                    double x, y, z;
                    gluProject(
                        r.pozicija3D.x + (k & 1 ? farRadius : -farRadius), k & 2 ? farHeight : 0.0,
                        r.pozicija3D.z + (k & 4 ? farRadius : -farRadius), mv, pr, vp, &x, &y, &z);
                    area |= QRect(int(x) - 1, H - 1 - int(y) - 1, 3, 3);
                }
            }
        return area;
    }

private slots:
    void initTestCase() {
        haveGl = gl.createWithViewState(W, H);
        if (!haveGl)
            return;
        data = std::make_unique<CTerrainData>();
        data->buildTerrainData();
        camera = std::make_unique<ecosystem::render::Camera>(nullptr, data.get());
        camera->x = 0;
        camera->y = eyeY;
        camera->z = 0;
        bark = arbo::GlTexture::bind(texture("bark.jpg"));
        leaf = arbo::GlTexture::bind(texture("leaf.png"));
        otherLeaf = arbo::GlTexture::bind(texture("bark.jpg"));
        const char* files[] = {"grm5.tree.xml", "Vrba Zalujka (Salix Babylonica).tree.xml",
                               "javorVelikZgorajGost.tree.xml", "smrekaMini.tree.xml",
                               "manjseDefault100_vecjiListi.tree.xml"};
        for (const char* f : files) {
            trees.push_back(std::make_unique<arbo::Arbo>());
            trees.back()->createKvadraticnePloskve();
            QVERIFY(trees.back()->pdPrepared.loadParameters(std::string(VIRELA_SOURCE_DIR) +
                                                            "/bin/zbirka-4/" + f));
            trees.back()->pogled.textureNames[0] = bark;
            trees.back()->pogled.textureNames[1] = leaf;
            models.push_back(trees.back().get());
        }
        // Near plants (levels 2 to 4) to the left, far ones (5 to 9) to the
        // right, young to full-grown; and a full-grown tree of every species
        // at level 5 (its nearest cells), all seen from the same side.
        auto plant = [&](std::vector<CVrstaRastlin>& list, arbo::Tocka where, float size) {
            CVrstaRastlin& v = list.back();
            v.ziviPrimerkiTeVrste.emplace_back(v, ecosystem::Tocka2i(1, 1), where);
            v.ziviPrimerkiTeVrste.back().trenutnaVelikost = size;
        };
        for (int tip = 0; tip < 5; ++tip) {
            all.push_back(species(*data, stats, tip));
            nearOnly.push_back(species(*data, stats, tip));
            for (int lod = 2; lod < 10; ++lod) {
                const double d = 5.0 * lod * lod + 8.0;
                const float size = 0.35f + 0.15f * float((lod + tip) % 5);
                if (lod >= ImpostorAtlas::prvaRaven) {
                    plant(all, at(12 + 5 * tip + lod, d), size);
                } else {
                    plant(all, at(-40 + 6 * tip, d), size);
                    plant(nearOnly, at(-40 + 6 * tip, d), size);
                }
            }
            plant(all, at(15 + 1.5 * tip, 128), 1.0f);
        }
        farArea = projectedFarArea();
    }

    void cleanupTestCase() {
        if (!haveGl)
            return;
        for (unsigned t : {bark, leaf, otherLeaf})
            arbo::GlTexture::release(t);
    }

    void farPlantsChangeOnlyWhereTheyStand() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        VisiblePlantsRender exactWalk, fastWalk;
        exactWalk.stNiti = 1;
        // The near trees grown by three threads while the far ones are impostors.
        fastWalk.stNiti = 3;
        fastWalk.najmanjKosovZaVzporedno = 0;
        const VisiblePlantsRender::Flags exactFlags{false, false, true, false, false};
        const VisiblePlantsRender::Flags fastFlags{false, false, true, false, true};
        const QImage exact = frame(exactWalk, all, exactFlags);
        const std::vector<arbo::Tocka> exactFar = exactWalk.farPlants;
        const std::vector<int> exactLods(exactWalk.treesPerLod, exactWalk.treesPerLod + 10);
        const QImage fast = frame(fastWalk, all, fastFlags);
        const std::vector<arbo::Tocka> fastFar = fastWalk.farPlants;
        const std::vector<int> fastLods(fastWalk.treesPerLod, fastWalk.treesPerLod + 10);
        QVERIFY(fastWalk.lastWalkParallel);
        QCOMPARE(fastWalk.atlas().stImpostorjev, 5 * 6);
        const QImage exactAgain = frame(fastWalk, all, exactFlags);
        // A frame of an exported image draws every picture first: one walk
        // shows all far trees (as closely as two atlases agree).
        VisiblePlantsRender wholeWalk;
        wholeWalk.stNiti = 1;
        setUpView();
        std::vector<int> counts;
        wholeWalk.render(all, models, selected, *camera, {false, false, true, false, true, true},
                         counts);
        QVERIFY(!wholeWalk.atlasPending);
        glFinish();
        const QImage whole = gl.fbo->toImage();
        const QImage withoutFar = frame(exactWalk, nearOnly, exactFlags);

        QCOMPARE(int(exactFar.size()), 5 * 6);
        QCOMPARE(fastLods, exactLods);
        // The same far plants, in the same order, at the same feet.
        QCOMPARE(fastFar.size(), exactFar.size());
        for (size_t i = 0; i < exactFar.size(); ++i) {
            QCOMPARE(fastFar[i].x, exactFar[i].x);
            QCOMPARE(fastFar[i].z, exactFar[i].z);
        }
        // Far trees show, and only where far plants stand.
        const QRect changed = imagecompare::differingArea(exact, fast);
        QVERIFY(!changed.isEmpty());
        QVERIFY2(farArea.contains(changed),
                 qPrintable(QString("changed %1,%2 %3x%4 outside the far plants' %5,%6 %7x%8")
                                .arg(changed.x())
                                .arg(changed.y())
                                .arg(changed.width())
                                .arg(changed.height())
                                .arg(farArea.x())
                                .arg(farArea.y())
                                .arg(farArea.width())
                                .arg(farArea.height())));
        QVERIFY(!imagecompare::differingArea(exact, withoutFar).isEmpty());
        // The far trees bring about as much colour as the exact ones (a far
        // tree is a few pixels, where one leaf more or less counts), and seen
        // from farther away (16 x 16 pixel averages) the image is much closer
        // to the exact one than without them.
        auto colour = [&](const QImage& a) {
            double sum = 0;
            for (int y = 0; y < H; ++y)
                for (int x = 0; x < W; ++x) {
                    const QRgb p = a.pixel(x, y), q = withoutFar.pixel(x, y);
                    sum += qRed(p) + qGreen(p) + qBlue(p) - qRed(q) - qGreen(q) - qBlue(q);
                }
            return sum;
        };
        const double exactColour = colour(exact), fastColour = colour(fast);
        QVERIFY2(std::fabs(fastColour - exactColour) < 0.25 * exactColour,
                 qPrintable(QString("%1 vs %2").arg(fastColour).arg(exactColour)));
        const double error = imagecompare::meanAbsoluteDifference(exact, fast, 16);
        const double missing = imagecompare::meanAbsoluteDifference(exact, withoutFar, 16);
        QVERIFY2(error < 0.5 * missing, qPrintable(QString("%1 vs %2").arg(error).arg(missing)));
        QVERIFY(imagecompare::meanAbsoluteDifference(whole, fast, 16) < 0.1 * missing);
        // Switching off gives the exact image back.
        QCOMPARE(imagecompare::differingPixels(exact, exactAgain), 0);
        QCOMPARE(glGetError(), GLenum(GL_NO_ERROR));
    }

    void farthestTreesShowAsMuchAsTheExactOnes_data() {
        QTest::addColumn<double>("distance");
        QTest::newRow("450 m") << 450.0;
        QTest::newRow("700 m") << 700.0;
        QTest::newRow("1000 m") << 1000.0;
    }

    // Trees of the last level are a few scattered pixels, each leaf a pixel
    // or none: rows of them must bring as many pixels, and as much colour, as
    // the exact trees, however far (not a haze, nor fewer as they shrink).
    void farthestTreesShowAsMuchAsTheExactOnes() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        QFETCH(double, distance);
        std::vector<CVrstaRastlin> row, none;
        for (int tip : {1, 2, 4}) {
            row.push_back(species(*data, stats, tip));
            CVrstaRastlin& v = row.back();
            for (int k = 0; k < 80; ++k) {
                // On a plain below the eye, across the view, a little nearer
                // or farther so that they stand at all fractions of a pixel.
                v.ziviPrimerkiTeVrste.emplace_back(
                    v, ecosystem::Tocka2i(1, 1),
                    at(-24 + 0.2 * (3 * k + tip / 2), distance + 3.7 * ((7 * k) % 10)));
                v.ziviPrimerkiTeVrste.back().pozicija3D.y = -100;
                v.ziviPrimerkiTeVrste.back().trenutnaVelikost = 1.0f;
            }
        }
        VisiblePlantsRender walk;
        walk.stNiti = 1;
        const QImage bare = frame(walk, none, {false, false, true, false, false});
        const QImage exact = frame(walk, row, {false, false, true, false, false});
        const QImage fast = frame(walk, row, {false, false, true, false, true});
        QCOMPARE(walk.treesPerLod[9], 240);
        QCOMPARE(walk.atlas().stImpostorjev, 240);
        const double exactColour = imagecompare::meanAbsoluteDifference(bare, exact);
        const double fastColour = imagecompare::meanAbsoluteDifference(bare, fast);
        const int exactPixels = imagecompare::differingPixels(bare, exact, 6);
        const int fastPixels = imagecompare::differingPixels(bare, fast, 6);
        QVERIFY(exactPixels > 100);
        QVERIFY2(std::fabs(fastColour / exactColour - 1) < 0.2 &&
                     std::abs(fastPixels - exactPixels) < 0.25 * exactPixels,
                 qPrintable(QString("colour %1 vs %2, pixels %3 vs %4")
                                .arg(fastColour)
                                .arg(exactColour)
                                .arg(fastPixels)
                                .arg(exactPixels)));
    }

    void wireFrameHasNoImpostors() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        VisiblePlantsRender walk;
        walk.stNiti = 1;
        const QImage exact = frame(walk, all, {false, false, true, true, false});
        const QImage fast = frame(walk, all, {false, false, true, true, true});
        QCOMPARE(walk.atlas().stImpostorjev, 0);
        QCOMPARE(imagecompare::differingPixels(exact, fast), 0);
    }

    void picturesShowEachSpeciesAndFollowChanges_data() {
        QTest::addColumn<int>("change");
        QTest::newRow("leaf size") << 0;
        QTest::newRow("leaf texture") << 1;
        QTest::newRow("branching table") << 2;
        QTest::newRow("colouring by order") << 3;
    }

    void picturesShowEachSpeciesAndFollowChanges() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        QFETCH(int, change);
        VisiblePlantsRender walk;
        walk.stNiti = 1;
        const VisiblePlantsRender::Flags fastFlags{false, false, true, false, true};
        frame(walk, all, fastFlags);
        ImpostorAtlas& atlas = walk.atlas();
        // The full-grown tree of every species at level 5, from the view it
        // was seen in (each plant takes one of the two nearest views).
        auto viewOf = [&](int m, int& smer, int& visina) {
            for (smer = 0; smer < ImpostorAtlas::stSmeri; ++smer)
                for (visina = 0; visina < ImpostorAtlas::stVisin; ++visina)
                    if (atlas.celica(m, 5, 7, smer, visina).narisana)
                        return true;
            return false;
        };
        std::vector<QImage> pictures;
        int smer, visina;
        for (int m = 0; m < 5; ++m) {
            QVERIFY2(viewOf(m, smer, visina), qPrintable(QString("species %1").arg(m)));
            pictures.push_back(ImpostorAtlas::slika(atlas.celica(m, 5, 7, smer, visina)));
            // Not empty: tree pixels with full colour.
            QVERIFY(imagecompare::pixelsOtherThan(pictures.back(), qRgba(0, 0, 0, 0)) > 20);
            for (int k = 0; k < m; ++k)
                QVERIFY(pictures[size_t(k)].size() != pictures.back().size() ||
                        imagecompare::differingPixels(pictures[size_t(k)], pictures.back()) > 0);
        }
        QVERIFY(viewOf(1, smer, visina));

        // A change to the second species' tree draws its pictures again, and
        // only its.
        arbo::Arbo& tree = *models[1];
        const arbo::ParametriDrevesa before = tree.pdPrepared;
        const arbo::Pogled viewBefore = tree.pogled;
        switch (change) {
        case 0:
            tree.pdPrepared.listSize *= 3;
            break;
        case 1:
            tree.pogled.textureNames[1] = otherLeaf;
            break;
        case 2:
            for (auto& row : tree.pdPrepared.kotVejitve)
                for (double& a : row)
                    a *= 0.5;
            break;
        case 3:
            tree.pogled.colorMonopodial = true;
            break;
        }
        const int drawnBefore = atlas.stNarisanihCelic;
        frame(walk, all, fastFlags);
        const ImpostorAtlas::Celica& c = atlas.celica(1, 5, 7, smer, visina);
        QVERIFY(c.narisana);
        const QImage after = ImpostorAtlas::slika(c);
        QVERIFY(after.size() != pictures[1].size() ||
                imagecompare::differingPixels(after, pictures[1]) > 0);
        const int redrawn = atlas.stNarisanihCelic - drawnBefore;
        QVERIFY(redrawn > 0);
        // The other species kept theirs: a walk without changes draws nothing.
        tree.pdPrepared = before;
        tree.pogled.textureNames[1] = viewBefore.textureNames[1];
        tree.pogled.colorMonopodial = viewBefore.colorMonopodial;
        frame(walk, all, fastFlags);
        const int drawnAfterRestore = atlas.stNarisanihCelic;
        frame(walk, all, fastFlags);
        QCOMPARE(atlas.stNarisanihCelic, drawnAfterRestore);
        QCOMPARE(drawnAfterRestore - drawnBefore, 2 * redrawn);
        QCOMPARE(glGetError(), GLenum(GL_NO_ERROR));
    }
};

QTEST_MAIN(TestImpostorAtlas)
#include "tst_impostoratlas.moc"
