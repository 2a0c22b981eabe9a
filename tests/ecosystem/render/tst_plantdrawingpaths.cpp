// The plant walk grows trees either one after another on the drawing thread
// (each through drawSingleTreeAwayLOD) or, in batches, on several threads while
// the drawing thread draws those before them in order. Both must give the same
// frames, pixel for pixel, and leave the tree models in the same state,
// whatever the number of threads.

#include "ecosystem/render/visibleplantsrender.h"

#include "arbo/arbo.h"
#include "arbo/gltexture.h"
#include "ecosystem/render/camera.h"
#include "ecosystem/simulation/data/terraindata.h"
#include "ecosystem/simulation/entities/rastlina.h"
#include "ecosystem/simulation/entities/vrstarastlin.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"

#include "support/glcontext.h"
#include "support/imagecompare.h"

#include <GL/glu.h>

#include <QPainter>
#include <QtTest>

#include <cmath>
#include <memory>
#include <thread>

using ecosystem::data::CTerrainData;
using ecosystem::render::VisiblePlantsRender;
using ecosystem::simulationEntities::CRastlina;
using ecosystem::simulationEntities::CVrstaRastlin;

namespace {

const int imageSize = 160;
const float eyeY = 2.0f;

CVrstaRastlin species(CTerrainData& data, ecosystem::statistics::CEntitiesStatistics& stats,
                      int tip) {
    return CVrstaRastlin(&data, &stats, tip, 1, 0, 3, 10, 20, 0.8f, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                         0, 0, 0, 0, 0, 0, 1, 0, 0, 0);
}

void plant(CVrstaRastlin& vrsta, arbo::Tocka where, float velikost) {
    vrsta.ziviPrimerkiTeVrste.emplace_back(vrsta, ecosystem::Tocka2i(1, 1), where);
    CRastlina& r = vrsta.ziviPrimerkiTeVrste.back();
    r.trenutnaVelikost = velikost;
    r.trenutniRadij = 2.0f;
}

// Bark stripes and a round leaf whose corners are transparent, so that blending
// and the order of drawing show in the image.
QImage bark() {
    QImage s(16, 16, QImage::Format_ARGB32);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            s.setPixel(x, y, (x / 2) % 2 ? qRgba(120, 80, 40, 255) : qRgba(70, 50, 30, 255));
    return s;
}

QImage leaf() {
    QImage s(16, 16, QImage::Format_ARGB32);
    s.fill(qRgba(255, 255, 255, 0));
    QPainter p(&s);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(40, 140, 30, 230));
    p.drawEllipse(QRectF(2, 1, 12, 14));
    return s;
}

// One set of tree models: the default tree, a loaded one with another leaf
// type, and one coloured by order and depth.
struct Modeli {
    std::unique_ptr<arbo::Arbo> drevesa[3];
    std::vector<arbo::Arbo*> izgledi;

    Modeli(unsigned lubje, unsigned listi) {
        for (auto& d : drevesa) {
            d = std::make_unique<arbo::Arbo>();
            d->createKvadraticnePloskve();
            d->pogled.textureNames[0] = lubje;
            d->pogled.textureNames[1] = listi;
            izgledi.push_back(d.get());
        }
        drevesa[1]->pdPrepared.loadParameters(std::string(VIRELA_SOURCE_DIR) +
                                              "/bin/zbirka-4/smrekaMini.tree.xml");
        drevesa[2]->pogled.colorMonopodial = true;
        // A model listed twice (types 2 and 3) keeps one state across both.
        izgledi.push_back(drevesa[2].get());
    }
};

} // namespace

class TestPlantDrawingPaths : public QObject {
    Q_OBJECT
    OffscreenGl gl;
    bool haveGl = false;
    std::unique_ptr<CTerrainData> data;
    ecosystem::statistics::CEntitiesStatistics stats;
    std::vector<CVrstaRastlin> vrste;
    arbo::Arbo izbrano;
    unsigned lubje = 0, listi = 0;
    bool lodsDrawn[10] = {};

    void setUpView() {
        glViewport(0, 0, imageSize, imageSize);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        gluPerspective(90.0, 1.0, 1.0, 30000.0);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glTranslatef(0, -eyeY, 0);
        glClearColor(1, 1, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glColor4f(1, 1, 1, 1);
        glPointSize(1.0f);
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_LIGHTING);
        glEnable(GL_LIGHT0);
        glEnable(GL_COLOR_MATERIAL);
        glEnable(GL_TEXTURE_2D);
        glEnable(GL_BLEND);
    }

    // Three frames of the walk.
    std::vector<QImage> frames(Modeli& modeli, int niti, std::vector<bool>& parallel,
                               std::size_t bajtov = std::size_t(512) << 20) {
        ecosystem::render::Camera camera(nullptr, data.get());
        camera.x = 0.0f;
        camera.y = eyeY;
        camera.z = 0.0f;
        VisiblePlantsRender render;
        render.stNiti = niti;
        render.najmanjKosovZaVzporedno = 0;
        render.najvecBajtovVLetu = bajtov;
        std::vector<QImage> slike;
        // Plain, wire frame, and with the neighbourhood disks between the trees.
        const VisiblePlantsRender::Flags flagsOfFrame[3] = {
            {false, false, true, false}, {false, false, true, true}, {true, false, true, false}};
        for (const VisiblePlantsRender::Flags& flags : flagsOfFrame) {
            setUpView();
            std::vector<int> counts;
            render.render(vrste, modeli.izgledi, izbrano, camera, flags, counts);
            for (int lod = 0; lod < 10; ++lod)
                lodsDrawn[lod] = lodsDrawn[lod] || render.treesPerLod[lod] > 0;
            parallel.push_back(render.lastWalkParallel);
            glFinish();
            slike.push_back(gl.fbo->toImage());
        }
        return slike;
    }

private slots:
    void initTestCase() {
        haveGl = gl.create(imageSize, imageSize);
        if (!haveGl)
            return;
        data = std::make_unique<CTerrainData>();
        data->buildTerrainData();
        lubje = arbo::GlTexture::bind(bark());
        listi = arbo::GlTexture::bind(leaf());
        for (int tip = 0; tip < 4; ++tip)
            vrste.push_back(species(*data, stats, tip));
        // Two plants of every species at the near edge of every level of
        // detail (distance 5 L^2 + 1 m, level L), fanned out across the view;
        // sizes from young to capped.
        for (int lod = 0; lod < 10; ++lod) {
            const float d = 5.0f * lod * lod + 1.0f;
            for (int tip = 0; tip < 4; ++tip)
                for (int k = 0; k < 2; ++k) {
                    const float kot = float((tip * 2 + k) - 3.5) * 0.09f;
                    plant(vrste[size_t(tip)], arbo::Tocka(d * std::sin(kot), 0, -d * std::cos(kot)),
                          0.3f + 0.25f * float((lod + tip + k) % 4));
                }
        }
        izbrano.pogled.animateWindSway = false;
        izbrano.pogled.animateOrbitAround = true;
    }

    void cleanupTestCase() {
        if (!haveGl)
            return;
        arbo::GlTexture::release(lubje);
        arbo::GlTexture::release(listi);
    }

    // With little memory for the trees on the way, every tree handed over
    // closes its batch and is drawn before the next is handed over.
    void sameFramesAndStateOnBothPaths_data() {
        QTest::addColumn<int>("niti");
        QTest::addColumn<qulonglong>("bajtov");
        QTest::newRow("2 threads") << 2 << qulonglong(512) * 1024 * 1024;
        QTest::newRow("3 threads") << 3 << qulonglong(512) * 1024 * 1024;
        QTest::newRow("7 threads") << 7 << qulonglong(512) * 1024 * 1024;
        QTest::newRow("2 threads, little memory") << 2 << qulonglong(1);
    }

    void sameFramesAndStateOnBothPaths() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        QFETCH(int, niti);
        QFETCH(qulonglong, bajtov);
        Modeli zaporedni(lubje, listi), vzporedni(lubje, listi);
        std::vector<bool> naDrugiNiti, naIstiNiti;
        const std::vector<QImage> a = frames(zaporedni, 1, naIstiNiti);
        const std::vector<QImage> b = frames(vzporedni, niti, naDrugiNiti, bajtov);
        QCOMPARE(naIstiNiti, (std::vector<bool>{false, false, false}));
        QCOMPARE(naDrugiNiti, (std::vector<bool>{true, true, true}));
        for (int lod = 0; lod < 10; ++lod)
            QVERIFY2(lodsDrawn[lod], qPrintable(QString("level %1").arg(lod)));
        for (size_t f = 0; f < a.size(); ++f) {
            // Not an empty or trivial frame: many pixels differ from the background.
            const int drawn = imagecompare::pixelsOtherThan(a[f], qRgb(255, 255, 255));
            QVERIFY2(drawn > imageSize * imageSize / 10, qPrintable(QString::number(drawn)));
            QCOMPARE(imagecompare::differingPixels(a[f], b[f]), 0);
        }
        for (int m = 0; m < 3; ++m) {
            const arbo::Arbo& x = *zaporedni.drevesa[m];
            const arbo::Arbo& y = *vzporedni.drevesa[m];
            QCOMPARE(y.pogled.cas, x.pogled.cas);
            QCOMPARE(y.pogled.starostDrevesa, x.pogled.starostDrevesa);
            QCOMPARE(y.pogled.orbit, x.pogled.orbit);
            QCOMPARE(y.pogled.lowQuality, x.pogled.lowQuality);
            QCOMPARE(y.pogled.wireframe, x.pogled.wireframe);
            QCOMPARE(y.idVejaNext, x.idVejaNext);
            QCOMPARE(y.delckiDrevesa.stSegmentov, x.delckiDrevesa.stSegmentov);
            QCOMPARE(y.delckiDrevesa.stListov, x.delckiDrevesa.stListov);
            QCOMPARE(y.delckiDrevesa.maxKotZasukaVetra, x.delckiDrevesa.maxKotZasukaVetra);
            for (int k = 0; k < 3; ++k)
                QCOMPARE(y.barvaStebla[k], x.barvaStebla[k]);
            for (int k = 0; k < 4; ++k)
                QCOMPARE(y.delckiDrevesa.trenutnaBarva()[k], x.delckiDrevesa.trenutnaBarva()[k]);
            QVERIFY(!x.pdZeNastavljen && !y.pdZeNastavljen);
        }
        QCOMPARE(glGetError(), GLenum(GL_NO_ERROR));
    }

    void threadCountFromTheEnvironment_data() {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<int>("threads"); // 0: the machine's
        QTest::newRow("one") << QByteArray("1") << 1;
        QTest::newRow("four") << QByteArray("4") << 4;
        QTest::newRow("zero") << QByteArray("0") << 0;
        QTest::newRow("not a number") << QByteArray("many") << 0;
        QTest::newRow("unset") << QByteArray() << 0;
    }

    void threadCountFromTheEnvironment() {
        QFETCH(QByteArray, value);
        QFETCH(int, threads);
        if (value.isNull())
            qunsetenv("VIRELA_THREADS");
        else
            qputenv("VIRELA_THREADS", value);
        const int machine = std::max(1, int(std::thread::hardware_concurrency()));
        QCOMPARE(VisiblePlantsRender().stNiti, threads ? threads : machine);
        qunsetenv("VIRELA_THREADS");
    }

    void swayingTreesStayOnTheDrawingThread() {
        if (!haveGl)
            QSKIP("no OpenGL context");
        Modeli modeli(lubje, listi);
        izbrano.pogled.animateWindSway = true;
        std::vector<bool> parallel;
        frames(modeli, 3, parallel);
        izbrano.pogled.animateWindSway = false;
        QCOMPARE(parallel, (std::vector<bool>{false, false, false}));
    }
};

QTEST_MAIN(TestPlantDrawingPaths)
#include "tst_plantdrawingpaths.moc"
