// Draws the default tree and the five species trees as the tree-edit view does
// (800 x 600, off-screen) and reports milliseconds per frame, segments and
// leaves per frame and how the time splits between growing the tree on the CPU
// and drawing it.
//
//   bench_arbo [--frames N] [--png DIR] [--trees DIR] [--gl] [--hq] [--wind]
//
// --png DIR   also writes per tree into DIR a tree-edit image, the same of a
//             young plant (growth factor 0.3) and two ecosystem-distance images
// --trees DIR reads the species files from DIR instead of bin/zbirka-4
// --gl       the plain path: OpenGL's matrix stack and GLU quadrics
// Run under xvfb-run with QT_QPA_PLATFORM=xcb.

#include "arbo/arbo.h"
#include "arbo/gltexture.h"
#include "support/glcontext.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>

#include <cstdio>
#include <string>
#include <vector>

namespace {

// ":/gui/textures/x" is read from the source tree's resources/textures/x.
QImage naloziSliko(const std::string& ime) {
    QString pot = QString::fromStdString(ime);
    if (pot.startsWith(":/gui/textures/"))
        pot = QString(VIRELA_SOURCE_DIR "/resources/textures/") + pot.mid(15);
    return QImage(pot);
}

// Stand-ins while the texture images are not there yet.
QImage nadomestnoLubje() {
    QImage s(64, 64, QImage::Format_RGB32);
    QRandomGenerator r(7);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) {
            const int v = 60 + int(r.bounded(40)) + ((x / 4) % 2) * 25;
            s.setPixel(x, y, qRgb(v + 30, v + 10, v - 20));
        }
    return s;
}

QImage nadomestniList() {
    QImage s(64, 64, QImage::Format_RGB32);
    s.fill(Qt::white);
    QPainter p(&s);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(QColor(60, 130, 40));
    p.setPen(Qt::NoPen);
    p.drawEllipse(QRectF(12, 4, 40, 56));
    return s;
}

// Near-white pixels become fully transparent, as the scene does with tree textures.
void prozorno(QImage& s) {
    s = s.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < s.height(); ++y)
        for (int x = 0; x < s.width(); ++x) {
            const QRgb c = s.pixel(x, y);
            if (qRed(c) > 200 && qGreen(c) > 200 && qBlue(c) > 200)
                s.setPixel(x, y, qRgba(255, 255, 255, 0));
        }
}

void nastaviTeksture(arbo::Arbo& a) {
    QImage lubje = naloziSliko(a.pdPrepared.barkTextureFileName);
    QImage list = naloziSliko(a.pdPrepared.leafTextureFileName);
    if (lubje.isNull())
        lubje = nadomestnoLubje();
    if (list.isNull())
        list = nadomestniList();
    prozorno(lubje);
    prozorno(list);
    a.pogled.textureNames[0] = arbo::GlTexture::bind(lubje);
    a.pogled.textureNames[1] = arbo::GlTexture::bind(list);
    a.reloadIdTextures(true, true);
}

// The tree-edit frame with the camera's starting values.
void okvir(arbo::Arbo& a) {
    a.drawSingleTreeCentered(-13, 0, -15, 0, 0);
}

// A young plant, as the growth animation and the ecosystem draw one.
void okvirMlado(arbo::Arbo& a, double starost) {
    a.pogled.animateGrow = true;
    a.pogled.starostDrevesa = starost;
    okvir(a);
    a.pogled.animateGrow = false;
}

// A plant seen from a walking eye 60 m away, 1.7 m above ground, as the
// ecosystem view draws it (grown to full size, level of detail by distance).
void okvirDalec(arbo::Arbo& a, float razdalja) {
    glClearColor(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(0, 1.7, razdalja, 0, 1.7 + razdalja * 0.2, 0, 0, 1, 0);
    const int lod = std::min(9, int(std::sqrt(razdalja / 5.0)));
    a.pogled.animateGrow = true;
    a.pogled.starostDrevesa = 1.0;
    glPushMatrix();
    a.drawSingleTreeAwayLOD(lod);
    glPopMatrix();
    a.pogled.animateGrow = false;
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    int stOkvirjev = 60;
    QString pngImenik, imenikDreves = VIRELA_SOURCE_DIR "/bin/zbirka-4/";
    bool naGl = false, hq = false, veter = false;
    for (int i = 1; i < argc; ++i) {
        const QString a = argv[i];
        if (a == "--frames" && i + 1 < argc)
            stOkvirjev = QString(argv[++i]).toInt();
        else if (a == "--png" && i + 1 < argc)
            pngImenik = argv[++i];
        else if (a == "--trees" && i + 1 < argc)
            imenikDreves = QString(argv[++i]) + "/";
        else if (a == "--gl")
            naGl = true;
        else if (a == "--hq")
            hq = true;
        else if (a == "--wind")
            veter = true;
    }
    OffscreenGl gl;
    if (!gl.createWithViewState(800, 600)) {
        std::fprintf(stderr, "no OpenGL context\n");
        return 1;
    }
    if (!pngImenik.isEmpty())
        QDir().mkpath(pngImenik);

    const std::vector<std::pair<std::string, std::string>> drevesa = {
        {"default", ""},
        {"grm5", "grm5.tree.xml"},
        {"vrba", "Vrba Zalujka (Salix Babylonica).tree.xml"},
        {"javor", "javorVelikZgorajGost.tree.xml"},
        {"smreka", "smrekaMini.tree.xml"},
        {"bukev", "manjseDefault100_vecjiListi.tree.xml"}};
    std::printf("%-8s %9s %7s %9s %8s %8s %7s\n", "tree", "ms/frame", "fps", "segments", "leaves",
                "gen ms", "gen %");
    for (const auto& [ime, datoteka] : drevesa) {
        arbo::Arbo a;
        a.createKvadraticnePloskve();
        if (!datoteka.empty() &&
            !a.pdPrepared.loadParameters(imenikDreves.toStdString() + datoteka)) {
            std::printf("%-8s cannot read %s\n", ime.c_str(), datoteka.c_str());
            continue;
        }
        nastaviTeksture(a);
        a.delckiDrevesa.sklad.naGl = naGl;
        a.pogled.highQualityRendering = hq;
        a.pogled.animateWindSway = veter;
        for (int i = 0; i < 5; ++i)
            okvir(a);
        glFinish();
        QElapsedTimer t;
        t.start();
        for (int i = 0; i < stOkvirjev; ++i)
            okvir(a);
        glFinish();
        const double ms = t.nsecsElapsed() / 1e6 / stOkvirjev;
        // The generator alone: the same frames gathered but not drawn.
        double msGen = 0;
        if (!naGl) {
            a.delckiDrevesa.risi = false;
            t.restart();
            for (int i = 0; i < stOkvirjev; ++i)
                okvir(a);
            glFinish();
            msGen = t.nsecsElapsed() / 1e6 / stOkvirjev;
            a.delckiDrevesa.risi = true;
        }
        std::printf("%-8s %9.2f %7.1f %9d %8d %8.2f %6.0f%%\n", ime.c_str(), ms, 1000.0 / ms,
                    a.delckiDrevesa.stSegmentov, a.delckiDrevesa.stListov, msGen,
                    100.0 * msGen / ms);
        if (!pngImenik.isEmpty()) {
            okvir(a);
            gl.fbo->toImage().save(pngImenik + "/" + QString::fromStdString(ime) + ".png");
            okvirMlado(a, 0.3);
            gl.fbo->toImage().save(pngImenik + "/" + QString::fromStdString(ime) + "_young.png");
            okvirDalec(a, 60);
            gl.fbo->toImage().save(pngImenik + "/" + QString::fromStdString(ime) + "_60m.png");
            okvirDalec(a, 150);
            gl.fbo->toImage().save(pngImenik + "/" + QString::fromStdString(ime) + "_150m.png");
        }
        arbo::GlTexture::release(a.pogled.textureNames[0]);
        arbo::GlTexture::release(a.pogled.textureNames[1]);
    }
    return 0;
}
