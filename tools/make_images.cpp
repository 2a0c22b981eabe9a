// Writes the compiled-in textures and icons into resources/ of the repository whose root is
// given as the only argument. Every image is computed from fixed seeds, so two runs write
// identical files.

#include "images/icons.h"
#include "images/sky.h"
#include "images/splash.h"
#include "images/textures.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>

#include <cstdio>
#include <utility>

namespace {

bool save(const QImage& image, const QString& path) {
    const bool jpeg = path.endsWith(".jpg");
    QImageWriter writer(path, jpeg ? "jpg" : "png");
    if (jpeg)
        writer.setQuality(90);
    else
        writer.setQuality(0); // for PNG: the strongest compression
    if (!writer.write(image)) {
        std::fprintf(stderr, "cannot write %s: %s\n", qPrintable(path),
                     qPrintable(writer.errorString()));
        return false;
    }
    std::printf("%s\n", qPrintable(path));
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <repository root>\n", argv[0]);
        return 2;
    }
    // Text is drawn with QPainter, which needs a GUI application but no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QDir root(QString::fromLocal8Bit(argv[1]));
    const QString textures = root.filePath("resources/textures/");
    const QString icons = root.filePath("resources/icons/");
    if (!QDir().mkpath(textures) || !QDir().mkpath(icons)) {
        std::fprintf(stderr, "cannot create the resource folders\n");
        return 1;
    }
    bool ok = true;
    ok &= save(images::makeBark(), textures + "bark.jpg");
    ok &= save(images::makeBark(images::coniferBark), textures + "barkconifer.jpg");
    ok &= save(images::makeLeaf(), textures + "leaf.png");
    ok &= save(images::makeNeedles(), textures + "needles.png");
    ok &= save(images::makeDetail(), textures + "detail.png");
    for (int band = 1; band <= 5; ++band)
        ok &= save(images::makeGround(band), textures + QString("height%1.jpg").arg(band));
    using images::SkyFace;
    const std::pair<SkyFace, const char*> faces[] = {{SkyFace::North, "sky_n.png"},
                                                     {SkyFace::South, "sky_s.png"},
                                                     {SkyFace::East, "sky_e.png"},
                                                     {SkyFace::West, "sky_w.png"},
                                                     {SkyFace::Up, "sky_u.png"}};
    for (const auto& [face, name] : faces)
        ok &= save(images::makeSkyFace(face), textures + name);
    ok &= save(images::makeSkyGround(), textures + "sky_d.png");
    using Draw = void (*)(QPainter&);
    const std::pair<const char*, Draw> iconList[] = {
        {"fileopen.png", images::iconFileOpen},
        {"filesave.png", images::iconFileSave},
        {"strands.png", images::iconStrands},
        {"angles.png", images::iconAngles},
        {"scaling.png", images::iconScaling},
        {"gravimorphism.png", images::iconGravimorphism},
        {"treescalars.png", images::iconTreeScalars},
        {"ecosystem.png", images::iconEcosystem},
        {"moistureness.png", images::iconMoisture},
        {"sunniness.png", images::iconSunniness},
        {"windiness.png", images::iconWindiness},
        {"navigate.png", images::iconNavigate},
        {"grow.png", images::iconGrow},
        {"wind.png", images::iconWind},
        {"play.png", images::iconPlay},
        {"fileopenecosystem.png", images::iconFileOpenEcosystem},
        {"filesaveecosystem.png", images::iconFileSaveEcosystem},
        {"area.png", images::iconArea},
        {"stats.png", images::iconStats}};
    for (const auto& [name, draw] : iconList)
        ok &= save(images::renderIcon(draw), icons + name);
    ok &= save(images::makeAppIcon(), icons + "virela.png");
    ok &= save(images::makeSplash(), icons + "splash.png");
    return ok ? 0 : 1;
}
