#include "arbo/parametridrevesa.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <fstream>
#include <locale>
#include <sstream>

namespace arbo {

namespace {
void nastavi(Krivulja& k, std::initializer_list<Tocka2D> tocke) {
    k.tocke.clear();
    for (const Tocka2D& t : tocke)
        k.tocke.push_back(t);
}
} // namespace

ParametriDrevesa::ParametriDrevesa() {
    defaultTreeParams();
}

void ParametriDrevesa::defaultTreeParams() {
    stVsehZil = 1000;
    dolzinaDebla = 5.0;
    sirinaSteblaNaZilo = 0.01f;
    phyllotaxisAngle = 85.0;
    graviCentralizem = 0.3;
    listi = true;
    listSize = 0.1f;
    gostotaListov = 5;
    tipListov = 0;
    windSpeed = 1.5;
    windSpeedNodirect = 2.5;
    barkTextureFileName = ":/gui/textures/bark.jpg";
    leafTextureFileName = ":/gui/textures/leaf.png";
    nastavi(verjetnostiVejitveG, {{0, 0.5}, {1, 0.8}});
    nastavi(verjetnostiVejitveW, {{0, 0.5}, {1, 0.5}});
    nastavi(kotVejitveG, {{0, 0.25}, {1, 0.25}});
    nastavi(kotVejitveW, {{0, 0.5}, {1, 0.5}});
    nastavi(minCharacteristicLengthG, {{0, 0.1}, {0.5, 0.045}, {1, 0.1}});
    nastavi(minCharacteristicLengthW, {{0, 0.5}, {1, 0.5}});
    nastavi(maxCharacteristicLengthG, {{0, 0.1}, {1, 0.1}});
    nastavi(maxCharacteristicLengthW, {{0, 0.5}, {1, 0.5}});
    nastavi(lengthScalingG, {{0, 0.1}, {1, 0.1}});
    nastavi(lengthScalingW, {{0, 0.5}, {1, 0.5}});
    nastavi(gravimorphismImpactG, {{0, 0.5}, {1, 0.5}});
    nastavi(gravimorphismImpactW, {{0, 0.5}, {1, 0.5}});
    recalculateRelativeParams();
}

// Piecewise linear. Below the first vertex the first segment is extrapolated;
// at or beyond the last vertex's x the last segment is extrapolated. A curve
// with one vertex is constant and an empty one is 0 (the loader never makes
// either).
double ParametriDrevesa::interpoliraj(double x, const Krivulja* parametri) {
    const std::vector<Tocka2D>& p = parametri->tocke;
    const size_t n = p.size();
    if (n == 0)
        return 0.0;
    if (n == 1)
        return p[0].y;
    size_t b = 1;
    if (!(p[1].x > x)) {
        b = 2;
        while (b < n && !(p[b].x > x))
            ++b;
        if (b == n)
            b = n - 1;
    }
    const Tocka2D& pa = p[b - 1];
    const Tocka2D& pb = p[b];
    const double k = pb.x == pa.x ? 0.0 : (pb.y - pa.y) / (pb.x - pa.x);
    return (x - pa.x) * k + pa.y;
}

void ParametriDrevesa::preracunajParametra(int idParametra) {
    if (idParametra < 0 || idParametra > 5)
        return;
    Krivulja* g = krivulja(2 * idParametra);
    Krivulja* w = krivulja(2 * idParametra + 1);
    double(*tabela)[stW] = nullptr;
    switch (idParametra) {
    case 0:
        tabela = verjetnostVejitve;
        break;
    case 1:
        tabela = kotVejitve;
        break;
    case 2:
        tabela = charMin;
        break;
    case 3:
        tabela = charMax;
        break;
    case 4:
        tabela = lengthScaling;
        break;
    default:
        tabela = graviMorfizem;
        break;
    }
    for (int gi = 0; gi < stG; ++gi) {
        double vg = interpoliraj(gi / 15.0, g);
        if (idParametra == 0)
            vg = 0.5 * vg + 0.5;
        for (int wi = 0; wi < stW; ++wi) {
            const double p = vg * interpoliraj(wi / 50.0, w);
            double v;
            switch (idParametra) {
            case 0:
                v = std::min(1.0, std::max(0.5, 2 * p));
                break;
            case 1:
                v = std::min(180.0, 360 * p);
                break;
            case 5:
                v = std::min(180.0, std::max(-180.0, 720 * p - 180));
                break;
            default:
                v = 20 * p;
                break;
            }
            tabela[gi][wi] = v;
        }
    }
}

void ParametriDrevesa::recalculateRelativeParams() {
    for (int id = 0; id <= 5; ++id)
        preracunajParametra(id);
}

Krivulja* ParametriDrevesa::krivulja(int i) {
    Krivulja* vse[12] = {&verjetnostiVejitveG,
                         &verjetnostiVejitveW,
                         &kotVejitveG,
                         &kotVejitveW,
                         &minCharacteristicLengthG,
                         &minCharacteristicLengthW,
                         &maxCharacteristicLengthG,
                         &maxCharacteristicLengthW,
                         &lengthScalingG,
                         &lengthScalingW,
                         &gravimorphismImpactG,
                         &gravimorphismImpactW};
    return vse[i];
}

// The file: the two texture names on lines of their own, then the scalars and
// the twelve curve blocks as whitespace-separated numbers (classic locale).
bool ParametriDrevesa::saveParameters(std::string fileName) {
    std::ostringstream f;
    f.imbue(std::locale::classic());
    f << barkTextureFileName << '\n' << leafTextureFileName << '\n';
    f << stVsehZil << '\t' << dolzinaDebla << '\t' << sirinaSteblaNaZilo << '\t' << phyllotaxisAngle
      << '\t' << graviCentralizem << '\t' << listi << '\t' << listSize << '\t' << gostotaListov
      << '\t' << windSpeed << '\t' << tipListov << '\n';
    for (int i = 0; i < 12; ++i)
        shraniParameter(f, *krivulja(i));
    // Written to a temporary file that replaces the old one only when complete.
    QSaveFile file(QFile::decodeName(fileName.c_str()));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const std::string text = f.str();
    if (file.write(text.data(), qint64(text.size())) != qint64(text.size())) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

void ParametriDrevesa::shraniParameter(std::ostream& f, const Krivulja& pk) {
    f << pk.tocke.size() << '\t' << '\n';
    for (const Tocka2D& t : pk.tocke)
        f << t.x << '\t' << t.y << '\n';
    f << '\n';
}

// A malformed or truncated file, a curve of fewer than two vertices or a texture
// name longer than the 254 characters the line reader holds leaves the set as it
// was and returns false. A file that does not open is not reported here: the
// caller tells the user.
bool ParametriDrevesa::loadParameters(std::string fileName) {
    std::ifstream f(fileName);
    if (!f.is_open())
        return false;
    f.imbue(std::locale::classic());
    ParametriDrevesa novi(*this);
    if (!novi.beriVse(f))
        return false;
    *this = novi;
    recalculateRelativeParams();
    return true;
}

bool ParametriDrevesa::beriVse(std::istream& f) {
    char vrstica[255];
    if (!f.getline(vrstica, sizeof vrstica))
        return false;
    barkTextureFileName = vrstica;
    if (!f.getline(vrstica, sizeof vrstica))
        return false;
    leafTextureFileName = vrstica;
    f >> stVsehZil >> dolzinaDebla >> sirinaSteblaNaZilo >> phyllotaxisAngle >> graviCentralizem >>
        listi >> listSize >> gostotaListov >> windSpeed >> tipListov;
    if (!f)
        return false;
    for (int i = 0; i < 12; ++i) {
        Krivulja* k = krivulja(i);
        naloziParameter(f, *k);
        if (!f || k->tocke.size() < 2)
            return false;
    }
    return true;
}

void ParametriDrevesa::naloziParameter(std::istream& f, Krivulja& pk) {
    pk.tocke.clear();
    int n = 0;
    if (!(f >> n))
        return;
    for (int i = 0; i < n; ++i) {
        double x, y;
        if (!(f >> x >> y))
            return;
        pk.tocke.push_back(Tocka2D(x, y));
    }
}

} // namespace arbo
