#include "arbo/parametridrevesa.h"

#include "arbo/bralecstevil.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <cmath>
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
    // The W-curve gives the same 50 values for every row: read once.
    double vw[stW];
    for (int wi = 0; wi < stW; ++wi)
        vw[wi] = interpoliraj(wi / 50.0, w);
    for (int gi = 0; gi < stG; ++gi) {
        double vg = interpoliraj(gi / 15.0, g);
        if (idParametra == 0)
            vg = 0.5 * vg + 0.5;
        for (int wi = 0; wi < stW; ++wi) {
            const double p = vg * vw[wi];
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

namespace {

QString prevedi(const char* besedilo) {
    return QCoreApplication::translate("arbo::ParametriDrevesa", besedilo);
}

// The items of the file in the words of the messages.
const char* const imenaStevil[10] = {
    QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "strand count"),
    QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "trunk height"),
    QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "branch thickness per strand"),
    QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "phyllotaxis angle"),
    QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "gravicentralism"),
    QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "leaves switch (0 or 1)"),
    QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "leaf size"),
    QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "leaf density"),
    QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "wind gust speed"),
    QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "leaf type")};

// Reads one item after another and says what went wrong with the first that
// is missing, malformed or out of range.
class Branje {
public:
    Branje(BralecStevil& f, std::string& razlog) : f(f), razlog(razlog) {}

    template <typename T> bool stevilo(T& v, const QString& ime, T najmanj, T najvec) {
        if (!f.beri(v))
            return napacno(ime);
        if (v < najmanj || v > najvec)
            return izven(ime, QString::number(double(najmanj), 'g', 10),
                         QString::number(double(najvec), 'g', 10));
        return true;
    }

    // Read as a double, so that a value beyond the float range is told as out
    // of the limits rather than as no number.
    bool stevilo(float& v, const QString& ime, double najmanj, double najvec) {
        double d = 0;
        if (!stevilo(d, ime, najmanj, najvec))
            return false;
        v = float(d);
        return true;
    }

    bool napacno(const QString& ime) {
        if (f.zeton().empty())
            return napaka(prevedi(QT_TRANSLATE_NOOP("arbo::ParametriDrevesa",
                                                    "line %1: the file ends before the %2"))
                              .arg(f.vrstica())
                              .arg(ime));
        return napaka(prevedi(QT_TRANSLATE_NOOP("arbo::ParametriDrevesa",
                                                "line %1: \"%2\" is not a valid %3"))
                          .arg(f.vrstica())
                          .arg(QString::fromStdString(f.zeton()), ime));
    }

    bool izven(const QString& ime, const QString& najmanj, const QString& najvec) {
        return napaka(prevedi(QT_TRANSLATE_NOOP("arbo::ParametriDrevesa",
                                                "line %1: the %2 %3 lies outside %4 to %5"))
                          .arg(f.vrstica())
                          .arg(ime, QString::fromStdString(f.zeton()), najmanj, najvec));
    }

    bool napaka(const QString& besedilo) {
        razlog = besedilo.toStdString();
        return false;
    }

private:
    BralecStevil& f;
    std::string& razlog;
};

} // namespace

// Only a regular file is read: a device or a pipe named here might never end.
bool ParametriDrevesa::loadParameters(std::string fileName, std::string* razlog) {
    std::string zakaj;
    QFile datoteka(QFile::decodeName(fileName.c_str()));
    bool prebrano = false;
    ParametriDrevesa novi(*this);
    if (!QFileInfo(datoteka).isFile() || !datoteka.open(QIODevice::ReadOnly)) {
        zakaj = prevedi(QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "the file cannot be read"))
                    .toStdString();
    } else {
        BralecStevil f(datoteka);
        prebrano = novi.beriVse(f, zakaj);
    }
    if (prebrano) {
        novi.recalculateRelativeParams();
        prebrano = novi.tabeleSoKoncne();
        if (!prebrano)
            zakaj = prevedi(QT_TRANSLATE_NOOP("arbo::ParametriDrevesa",
                                              "the curves give values beyond the range of numbers"))
                        .toStdString();
    }
    if (!prebrano) {
        if (razlog)
            *razlog = zakaj;
        return false;
    }
    *this = novi;
    return true;
}

// The two names on lines of their own, each at most 254 characters; then the
// scalars and curves as whitespace-separated numbers in any layout. Every
// token must be wholly the number it stands for (so a missing value cannot
// shift the rest into place), and nothing but whitespace may follow the last
// curve.
bool ParametriDrevesa::beriVse(BralecStevil& f, std::string& razlog) {
    Branje b(f, razlog);
    for (std::string* imeTeksture : {&barkTextureFileName, &leafTextureFileName}) {
        if (!f.beriVrstico(*imeTeksture, 254))
            return b.napaka(
                prevedi(QT_TRANSLATE_NOOP(
                            "arbo::ParametriDrevesa",
                            "line %1: the %2 texture file name is missing or longer than 254 "
                            "characters"))
                    .arg(f.vrstica())
                    .arg(imeTeksture == &barkTextureFileName
                             ? prevedi(QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "bark"))
                             : prevedi(QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "leaf"))));
    }
    const double m = najvecjaVrednost;
    auto ime = [](int i) { return prevedi(imenaStevil[i]); };
    const bool skalarji =
        b.stevilo(stVsehZil, ime(0), 0, najvecZil) && b.stevilo(dolzinaDebla, ime(1), -m, m) &&
        b.stevilo(sirinaSteblaNaZilo, ime(2), -m, m) &&
        b.stevilo(phyllotaxisAngle, ime(3), -m, m) && b.stevilo(graviCentralizem, ime(4), -m, m) &&
        (f.beri(listi) || b.napacno(ime(5))) && b.stevilo(listSize, ime(6), -m, m) &&
        b.stevilo(gostotaListov, ime(7), 0, najvecListov) && b.stevilo(windSpeed, ime(8), -m, m) &&
        b.stevilo(tipListov, ime(9), 0, 4);
    if (!skalarji)
        return false;
    for (int i = 0; i < 12; ++i)
        if (!naloziParameter(f, *krivulja(i), i + 1, razlog))
            return false;
    if (!f.naKoncu()) {
        int odvec = 0;
        f.beri(odvec); // only to find the stray token and its line
        return b.napaka(
            prevedi(QT_TRANSLATE_NOOP("arbo::ParametriDrevesa",
                                      "line %1: unexpected \"%2\" after the last curve"))
                .arg(f.vrstica())
                .arg(QString::fromStdString(f.zeton())));
    }
    return true;
}

bool ParametriDrevesa::naloziParameter(BralecStevil& f, Krivulja& pk, int stKrivulje,
                                       std::string& razlog) {
    Branje b(f, razlog);
    pk.tocke.clear();
    int n = 0;
    if (!b.stevilo(n,
                   prevedi(QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "vertex count of curve %1"))
                       .arg(stKrivulje),
                   2, najvecTockKrivulje))
        return false;
    pk.tocke.reserve(n);
    const QString oglisce =
        prevedi(QT_TRANSLATE_NOOP("arbo::ParametriDrevesa", "vertex of curve %1")).arg(stKrivulje);
    for (int i = 0; i < n; ++i) {
        double x, y;
        if (!b.stevilo(x, oglisce, -najvecjaVrednost, najvecjaVrednost) ||
            !b.stevilo(y, oglisce, -najvecjaVrednost, najvecjaVrednost))
            return false;
        pk.tocke.push_back(Tocka2D(x, y));
    }
    return true;
}

bool ParametriDrevesa::tabeleSoKoncne() const {
    for (const auto* tabela :
         {verjetnostVejitve, kotVejitve, charMin, charMax, lengthScaling, graviMorfizem})
        for (int g = 0; g < stG; ++g)
            for (int w = 0; w < stW; ++w)
                if (!std::isfinite(tabela[g][w]))
                    return false;
    return true;
}

} // namespace arbo
