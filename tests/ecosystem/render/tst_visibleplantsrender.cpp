#include "ecosystem/render/visibleplantsrender.h"

#include "arbo/arbo.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/entities/rastlina.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"

#include "support/glcontext.h"

#include <GL/glu.h>

#include <QtTest>

#include <memory>

using ecosystem::data::CTerrainData;
using ecosystem::render::VisiblePlantsRender;
using ecosystem::simulationEntities::CRastlina;
using ecosystem::simulationEntities::CVrstaRastlin;

namespace {

const int imageSize = 100;

CVrstaRastlin species(CTerrainData& data, ecosystem::statistics::CEntitiesStatistics& stats,
                      int tip) {
    return CVrstaRastlin(&data, &stats, tip, 1, 0, 3, 10, 20, 0.8f, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                         0, 0, 0, 0, 0, 0, 1, 0, 0, 0);
}

CRastlina& plant(CVrstaRastlin& vrsta, arbo::Tocka where, float velikost, float radij = 1.0f) {
    vrsta.ziviPrimerkiTeVrste.emplace_back(vrsta, ecosystem::Tocka2i(1, 1), where);
    CRastlina& r = vrsta.ziviPrimerkiTeVrste.back();
    r.trenutnaVelikost = velikost;
    r.trenutniRadij = radij;
    return r;
}

} // namespace

class TestVisiblePlantsRender : public QObject {
    Q_OBJECT
    OffscreenGl gl;
    bool haveGl = false;
    std::unique_ptr<CTerrainData> data;
    ecosystem::statistics::CEntitiesStatistics stats;
    std::vector<CVrstaRastlin> vrste;
    std::unique_ptr<arbo::Arbo> modeli[2];
    std::vector<arbo::Arbo*> izgledi;
    arbo::Arbo izbrano;

    // The eye at (0, eyeY, 0) looking along -z, 90 degree field, as the scene's
    // camera would set it up.
    void setUpView(float eyeY) {
        glViewport(0, 0, imageSize, imageSize);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        gluPerspective(90.0, 1.0, 1.0, 30000.0);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glTranslatef(0, -eyeY, 0);
        glClearColor(1, 1, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glEnable(GL_DEPTH_TEST);
    }

private slots:
    void initTestCase() {
        haveGl = gl.create(imageSize, imageSize);
        if (!haveGl)
            return;
        data = std::make_unique<CTerrainData>();
        data->buildTerrainData();
        // Three species; the second has no living plants, the third a type
        // without a model of its own.
        vrste.push_back(species(*data, stats, 0));
        vrste.push_back(species(*data, stats, 1));
        vrste.push_back(species(*data, stats, 9));
        plant(vrste[0], arbo::Tocka(0, 0, -4.9f), 0.5f);          // level 0, cuts the near plane
        plant(vrste[0], arbo::Tocka(0, 0, 50.0f), 0.5f);          // behind the eye
        plant(vrste[0], arbo::Tocka(3, 0, -30.0f), 0.25f, 20.0f); // level 2
        plant(vrste[2], arbo::Tocka(0, 0, -500.0f), 1.7f);        // level 9, size capped at 1
        for (auto& m : modeli) {
            m = std::make_unique<arbo::Arbo>();
            m->createKvadraticnePloskve();
            izgledi.push_back(m.get());
        }
        izbrano.createKvadraticnePloskve();
    }

    void countsAndLevelsOfDetail() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        ecosystem::render::Camera camera(nullptr, data.get());
        camera.x = camera.y = camera.z = 0.0f;
        setUpView(0.0f);
        izbrano.pogled.animateWindSway = false;
        izbrano.pogled.animateOrbitAround = true;
        VisiblePlantsRender render;
        std::vector<int> counts{7, 7};
        const int n =
            render.render(vrste, izgledi, izbrano, camera, {false, false, true, false}, counts);
        QCOMPARE(n, 3);
        QCOMPARE(counts, (std::vector<int>{2, 0, 1}));
        QCOMPARE(render.treesPerLod[0], 1);
        QCOMPARE(render.treesPerLod[2], 1);
        QCOMPARE(render.treesPerLod[9], 1);
        QCOMPARE(render.treesPerLod[1] + render.treesPerLod[3] + render.treesPerLod[8], 0);

        // The last model drew the type-9 plant: capped size, its own turn. The
        // drawing itself adds one growth step and one spin step.
        const arbo::Pogled& zadnji = modeli[1]->pogled;
        const CRastlina& dalec = vrste[2].ziviPrimerkiTeVrste.front();
        QCOMPARE(zadnji.starostDrevesa, 1.0 + 0.001);
        QCOMPARE(zadnji.orbit, dalec.id * 17.19 + 5.37);
        QVERIFY(zadnji.animateGrow);
        QVERIFY(zadnji.animateOrbitAround);
        // The first model was last used for the third plant of species 0.
        const CRastlina& tretja = vrste[0].ziviPrimerkiTeVrste.back();
        QCOMPARE(modeli[0]->pogled.starostDrevesa, double(0.25f) + 0.001);
        QCOMPARE(modeli[0]->pogled.orbit, tretja.id * 17.19 + 5.37);
        QCOMPARE(glGetError(), GLenum(GL_NO_ERROR));
    }

    void disksWithoutTrees() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        ecosystem::render::Camera camera(nullptr, data.get());
        camera.x = 0.0f;
        camera.y = 10.0f;
        camera.z = 0.0f;
        setUpView(10.0f);
        for (auto& m : modeli)
            m->pogled.starostDrevesa = -5.0;
        VisiblePlantsRender render;
        std::vector<int> counts;
        const int n =
            render.render(vrste, izgledi, izbrano, camera, {true, true, true, false}, counts);
        glFinish();
        QCOMPARE(n, 3);
        QCOMPARE(counts, (std::vector<int>{2, 0, 1}));
        for (auto& m : modeli)
            QCOMPARE(m->pogled.starostDrevesa, -5.0);
        QCOMPARE(render.treesPerLod[2], 0);

        // The 20 m disk of the plant at (3, 0, -30) lies on the ground below the
        // horizon, in red (type 0), unlit and untextured.
        const QImage image = gl.fbo->toImage();
        int red = 0, redAbove = 0;
        for (int y = 0; y < imageSize; ++y)
            for (int x = 0; x < imageSize; ++x)
                if (image.pixel(x, y) == qRgb(255, 0, 0)) {
                    ++red;
                    redAbove += y < imageSize / 2;
                }
        QVERIFY(red > 100);
        QCOMPARE(redAbove, 0);
        QVERIFY(glIsEnabled(GL_DEPTH_TEST));
        QVERIFY(glIsEnabled(GL_LIGHTING));
        QVERIFY(glIsEnabled(GL_TEXTURE_2D));
    }

    void treesAreDrawn() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        ecosystem::render::Camera camera(nullptr, data.get());
        camera.x = 0.0f;
        camera.y = 2.0f;
        camera.z = 0.0f;
        setUpView(2.0f);
        glDisable(GL_TEXTURE_2D); // no textures made here: plain colours
        VisiblePlantsRender render;
        std::vector<int> counts;
        render.render(vrste, izgledi, izbrano, camera, {false, false, false, false}, counts);
        glFinish();
        const QImage image = gl.fbo->toImage();
        int drawn = 0;
        for (int y = 0; y < imageSize; ++y)
            for (int x = 0; x < imageSize; ++x)
                drawn += image.pixel(x, y) != qRgb(255, 255, 255);
        QVERIFY(drawn > 20);
    }
};

QTEST_MAIN(TestVisiblePlantsRender)
#include "tst_visibleplantsrender.moc"
