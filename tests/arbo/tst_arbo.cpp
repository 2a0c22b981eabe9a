#include "arbo/arbo.h"
#include "arbo/neodvisnarast.h"
#include "support/glcontext.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

using arbo::Arbo;
using arbo::ParametriDrevesa;

namespace {

struct Zapis {
    char tip = 0; // 'B' or 'L'
    int id = 0;
    std::vector<std::array<double, 3>> oglisca;
    std::vector<std::string> vrstice;
};

std::string preberi(const QString& ime) {
    std::ifstream f(ime.toStdString());
    std::stringstream s;
    s << f.rdbuf();
    return s.str();
}

std::vector<Zapis> razcleni(const std::string& besedilo) {
    std::vector<Zapis> zapisi;
    std::istringstream in(besedilo);
    std::string vrstica;
    while (std::getline(in, vrstica)) {
        if (vrstica.size() > 1 && (vrstica[0] == 'B' || vrstica[0] == 'L') && vrstica[1] == ' ') {
            Zapis z;
            z.tip = vrstica[0];
            z.id = std::stoi(vrstica.substr(2));
            zapisi.push_back(z);
            continue;
        }
        std::istringstream v(vrstica);
        std::array<double, 3> p;
        v >> p[0] >> p[1] >> p[2];
        zapisi.back().oglisca.push_back(p);
        zapisi.back().vrstice.push_back(vrstica);
    }
    return zapisi;
}

// The record sequence re-derived from the splitting rules alone: which records
// appear, with which identifiers, and which earlier segment record's top ring
// each continuation starts from.
struct Pricakovano {
    char tip;
    int id;
    int nadaljujeZapis; // index of the record whose top ring is this one's bottom, or -1
};

struct Izpeljava {
    const ParametriDrevesa& p;
    int lod = 0;
    std::vector<Pricakovano> zapisi;
    int naslednjiId = 1;
    int zadnjiB = -1;

    void rasti(int stZil, int G, int W, int id, int spodaj) {
        if (stZil < 1 || (G > 0 && (G > 14 || W > 49)))
            return;
        const int Wt = std::min(W, 49);
        const int glavno = int(std::floor((stZil - 2) * p.verjetnostVejitve[G][Wt] + 0.5)) + 1;
        const int stransko = stZil - glavno;
        const int dopustni = lod == 0 ? 50 : 10 - lod;
        if (W < dopustni) {
            zapisi.push_back({'B', id, spodaj});
            zadnjiB = int(zapisi.size()) - 1;
        }
        const int vrh = zadnjiB;
        if (W > dopustni * dopustni || stZil == 1) {
            if (p.listi)
                for (int i = 0; i < p.gostotaListov; ++i)
                    zapisi.push_back({'L', id, -1});
            return;
        }
        if (stransko > 0)
            rasti(stransko, G + 1, W + 1, naslednjiId++, -1);
        if (glavno > 0)
            rasti(glavno, G, W + 1, id, vrh);
    }
};

} // namespace

class TestArbo : public QObject {
    Q_OBJECT
    OffscreenGl gl;

    std::string izvozi(Arbo& a, const QString& ime) {
        a.markSerializingToFile(ime.toStdString());
        a.drawSingleTreeCentered(-13, 0, -15, 0, 0);
        return preberi(ime);
    }
    // The four corners of a leaf of size s in OpenGL's current frame, as the
    // geometry file writes them: R_y(0, 90, 180, 270) (s, 0, 0).
    static std::vector<std::string> kotiListaGl(float s) {
        std::vector<std::string> vrstice;
        for (int k = 0; k < 4; ++k) {
            glPushMatrix();
            glRotated(90.0 * k, 0, 1, 0);
            glTranslated(s, 0, 0);
            GLfloat m[16];
            glGetFloatv(GL_MODELVIEW_MATRIX, m);
            glPopMatrix();
            std::ostringstream o;
            o << m[12] << ' ' << m[13] << ' ' << m[14];
            vrstice.push_back(o.str());
        }
        return vrstice;
    }

private slots:
    void initTestCase() { QVERIFY(gl.createWithViewState()); }

    // The default tree's records, in the order and with the identifiers the
    // splitting rules give, 4 or 16 vertices a side; each continuation starts
    // from the ring its segment ended on, a quarter turn on.
    void defaultTreeRecordsAndSharedRings() {
        for (bool hq : {false, true}) {
            Arbo a;
            a.createKvadraticnePloskve();
            a.pogled.highQualityRendering = hq;
            const int n = hq ? 16 : 4;
            const auto z = razcleni(izvozi(a, "privzeto.crs"));
            Izpeljava iz{a.pd, 0, {}};
            iz.rasti(a.pd.stVsehZil, 0, 0, 0, -1);
            QCOMPARE(z.size(), iz.zapisi.size());
            int stB = 0, stL = 0, preverjenih = 0;
            for (size_t r = 0; r < z.size(); ++r) {
                QCOMPARE(z[r].tip, iz.zapisi[r].tip);
                QCOMPARE(z[r].id, iz.zapisi[r].id);
                QCOMPARE(int(z[r].oglisca.size()), z[r].tip == 'B' ? 4 * n : 4);
                (z[r].tip == 'B' ? stB : stL)++;
                const int p = iz.zapisi[r].nadaljujeZapis;
                if (p < 0)
                    continue;
                // Side i is written as bottom[i+1], top[i+1], top[i], bottom[i].
                for (int i = 0; i < n; ++i)
                    QCOMPARE(QString::fromStdString(z[r].vrstice[4 * i + 3]),
                             QString::fromStdString(z[p].vrstice[4 * ((i + n / 4) % n) + 2]));
                ++preverjenih;
            }
            QVERIFY(stB > 100 && stL > 100 && preverjenih > 50);
            QCOMPARE(a.delckiDrevesa.stSegmentov, stB);
            QCOMPARE(a.delckiDrevesa.stListov, stL);
        }
    }

    void trunkBaseRingByHand() {
        Arbo a;
        a.createKvadraticnePloskve();
        const auto z = razcleni(izvozi(a, "deblo.crs"));
        QCOMPARE(z[0].tip, 'B');
        QCOMPARE(z[0].id, 0);
        // Base ring vertex k: R_y(85 + 90k) (w, 0, w), w = sqrt(1000) * 0.01;
        // top ring the same at height 5 with w = sqrt(750) * 0.01.
        const double w = std::sqrt(1000.0) * double(0.01f), t = std::sqrt(750.0) * double(0.01f);
        for (int i = 0; i < 4; ++i) {
            const double th = (85.0 + 90.0 * i) * M_PI / 180.0;
            const auto& b = z[0].oglisca[4 * i + 3];
            const auto& v = z[0].oglisca[4 * i + 2];
            QVERIFY(std::fabs(b[0] - w * (std::cos(th) + std::sin(th))) < 2e-6);
            QVERIFY(std::fabs(b[1]) < 1e-6);
            QVERIFY(std::fabs(b[2] - w * (std::cos(th) - std::sin(th))) < 2e-6);
            QVERIFY(std::fabs(v[0] - t * (std::cos(th) + std::sin(th))) < 2e-6);
            QVERIFY(std::fabs(v[1] - 5.0) < 1e-5);
            QVERIFY(std::fabs(v[2] - t * (std::cos(th) - std::sin(th))) < 2e-6);
        }
    }

    // Whole frames against the independent grower, byte for byte.
    void framesMatchAnIndependentGrower_data() {
        QTest::addColumn<int>("primer");
        for (int i = 0; i < 10; ++i)
            QTest::newRow(qPrintable(QString::number(i))) << i;
    }
    void framesMatchAnIndependentGrower() {
        QFETCH(int, primer);
        Arbo a;
        a.createKvadraticnePloskve();
        ParametriDrevesa& p = a.pdPrepared;
        arbo::Pogled& v = a.pogled;
        v.cas = 0.3 * primer;
        switch (primer) {
        case 1:
            v.highQualityRendering = true;
            break;
        case 2:
            v.animateWindSway = true;
            break;
        case 3:
            v.animateWindSway = true;
            v.animateGrow = true;
            v.starostDrevesa = 0.7;
            break;
        default: // 4 ... 9: bending towards the ground, every leaf type
            p.gravimorphismImpactG.tocke = {{0, 0.6}, {1, 0.35}};
            p.gravimorphismImpactW.tocke = {{0, 0.5}, {1, 0.9}};
            p.tipListov = (primer - 4) % 5;
            p.gostotaListov = primer == 9 ? 3 : 4 + primer % 2;
            p.stVsehZil = 300;
            p.recalculateRelativeParams();
            v.animateWindSway = primer % 2 == 1;
            v.highQualityRendering = primer == 8;
            break;
        }
        const arbo::Pogled prej = v;
        const std::string dobljeno = izvozi(a, QString("neodvisno%1.crs").arg(primer));
        QVERIFY(!dobljeno.empty());

        // The frame's strand count, height and wind phase from the animation rules.
        int stZil = p.stVsehZil;
        double visina = p.dolzinaDebla;
        if (prej.animateGrow) {
            const double r = prej.starostDrevesa > 1.0 ? 0.0 : prej.starostDrevesa;
            visina = (r + prej.korak) * p.dolzinaDebla;
            stZil = int(std::pow(std::sqrt(double(p.stVsehZil)) * r, 2));
        }
        NeodvisnaRast r(p);
        r.cas = prej.cas + 2 * M_PI / 100;
        r.veter = prej.animateWindSway;
        r.stTock = prej.highQualityRendering ? 16 : 4;
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        const std::string pricakovano = r.rasti(stZil, visina);
        QCOMPARE(a.pogled.cas, r.cas);
        if (dobljeno != pricakovano) {
            const auto c = razcleni(dobljeno), e = razcleni(pricakovano);
            QCOMPARE(c.size(), e.size());
            for (size_t i = 0; i < c.size(); ++i) {
                QCOMPARE(c[i].tip, e[i].tip);
                QCOMPARE(c[i].id, e[i].id);
                for (size_t k = 0; k < c[i].vrstice.size(); ++k)
                    QCOMPARE(QString::fromStdString(c[i].vrstice[k]),
                             QString::fromStdString(e[i].vrstice[k]));
            }
        }
        QVERIFY(dobljeno == pricakovano);
    }

    // Hidden leaves leave only segments; no strands, or a negative count, grow nothing.
    void leavesHiddenAndNoStrands() {
        Arbo a;
        a.createKvadraticnePloskve();
        a.pdPrepared.listi = false;
        for (const auto& z : razcleni(izvozi(a, "brez.crs")))
            QCOMPARE(z.tip, 'B');
        a.pdPrepared.listi = true;
        a.pdPrepared.stVsehZil = 0;
        QVERIFY(razcleni(izvozi(a, "nic.crs")).empty());
        a.pdPrepared.stVsehZil = -4; // negative: nothing grows, also while growing
        a.pogled.animateGrow = true;
        a.pogled.starostDrevesa = 0.5;
        QVERIFY(razcleni(izvozi(a, "negativno.crs")).empty());
    }

    // Every split keeps all strands but one in the trunk: with 100000 strands
    // the trunk runs 2501 segments deep (the first 50 drawn) before it ends in
    // leaves; one-strand
    // side branches start at every depth and are cut at depth 49.
    void extremeStrandCountsStayInBounds() {
        for (int stZil : {1, 2, 3, 100000}) {
            Arbo a;
            a.createKvadraticnePloskve();
            ParametriDrevesa& p = a.pdPrepared;
            p.stVsehZil = stZil;
            p.verjetnostiVejitveG.tocke = {{0, 1}, {1, 1}};
            p.verjetnostiVejitveW.tocke = {{0, 1}, {1, 1}};
            p.recalculateRelativeParams();
            a.pogled.animateWindSway = true;
            const auto z = razcleni(izvozi(a, "skrajno.crs"));
            Izpeljava iz{a.pd, 0, {}};
            iz.rasti(stZil, 0, 0, 0, -1);
            QCOMPARE(z.size(), iz.zapisi.size());
            for (size_t i = 0; i < z.size(); ++i)
                QCOMPARE(z[i].id, iz.zapisi[i].id);
            const int trunk =
                int(std::count_if(z.begin(), z.end(), [](const Zapis& r) { return r.id == 0; }));
            // Trunk segments drawn: min(S, 50); its five leaves either at its
            // last strand or at depth 2501.
            const int pricakovano = std::min(stZil, 50) + 5;
            QCOMPARE(trunk, pricakovano);
        }
        // The default shape at the file's limits would ask for some 10^8
        // leaves: a frame, drawn or in wire frame, holds what the largest tree
        // within 10 000 strands and 30 leaves a twig grows, and no more.
        Arbo a;
        a.pdPrepared.stVsehZil = ParametriDrevesa::najvecZil;
        a.pdPrepared.gostotaListov = ParametriDrevesa::najvecListov;
        for (bool zicnato : {false, true}) {
            a.pogled.wireframe = zicnato;
            int stZil;
            double visina;
            a.zacniOkvir(stZil, visina);
            a.zrasti(stZil, visina, arbo::MatrikaSklad::identiteta());
            const arbo::MrezaDrevesa& m = a.delckiDrevesa.mreza;
            QCOMPARE(a.delckiDrevesa.stSegmentov, 19999);
            QCOMPARE(a.delckiDrevesa.stListov, 300000);
            // Stems of 12 vertices, leaves of 4 and a point; in wire frame
            // 12 lines a stem, 4 a leaf.
            QCOMPARE(
                zicnato ? m.crte.oglisca.size() : m.lubje.oglisca.size() + m.listi.oglisca.size(),
                zicnato ? size_t(2 * (12 * 19999 + 4 * 300000)) : size_t(12 * 19999 + 4 * 300000));
            a.delckiDrevesa.mreza.izprazni();
        }
    }

    void levelOfDetailCutsTheTree() {
        Arbo a;
        a.createKvadraticnePloskve();
        a.markSerializingToFile("lod.crs");
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        a.drawSingleTreeAwayLOD(5);
        const auto z = razcleni(preberi("lod.crs"));
        Izpeljava iz{a.pd, 5, {}};
        iz.rasti(a.pd.stVsehZil, 0, 0, 0, -1);
        QCOMPARE(z.size(), iz.zapisi.size());
        for (size_t i = 0; i < z.size(); ++i)
            QCOMPARE(z[i].id, iz.zapisi[i].id);
    }

    // The curve designer's hovered orders or depths are drawn cyan, the rest
    // white; the order colouring wins over both. Three strands grow five
    // segments: trunk (G 0, W 0), twig (1, 1), trunk (0, 1), twig (1, 2),
    // trunk (0, 2), each the same number of stem vertices.
    void hoveredLevelsAreCyan_data() {
        QTest::addColumn<QList<int>>("ranges"); // G min, G max, W min, W max
        QTest::addColumn<QString>("colours");
        QTest::newRow("none") << QList<int>{-1, -1, -1, -1} << "wwwww";
        QTest::newRow("order 1") << QList<int>{1, 1, -1, -1} << "wcwcw";
        QTest::newRow("orders 0-1") << QList<int>{0, 1, -1, -1} << "ccccc";
        QTest::newRow("depth 1") << QList<int>{-1, -1, 1, 1} << "wccww";
        QTest::newRow("depths 2-49") << QList<int>{-1, -1, 2, 49} << "wwwcc";
        QTest::newRow("order 0 or depth 1") << QList<int>{0, 0, 1, 1} << "cccwc";
    }
    void hoveredLevelsAreCyan() {
        QFETCH(QList<int>, ranges);
        QFETCH(QString, colours);
        Arbo a;
        a.pdPrepared.stVsehZil = 3;
        a.pdPrepared.listi = false;
        a.pogled.barvajGMin = ranges[0];
        a.pogled.barvajGMax = ranges[1];
        a.pogled.barvajWMin = ranges[2];
        a.pogled.barvajWMax = ranges[3];
        int stZil;
        double visina;
        a.zacniOkvir(stZil, visina);
        a.zrasti(stZil, visina, arbo::MatrikaSklad::identiteta());
        const auto& oglisca = a.delckiDrevesa.mreza.lubje.oglisca;
        QCOMPARE(a.delckiDrevesa.stSegmentov, 5);
        const size_t naSegment = oglisca.size() / 5;
        QString dobljeno;
        for (size_t i = 0; i < 5; ++i) {
            const std::uint8_t* b = oglisca[i * naSegment].barva;
            dobljeno += b[0] == 255 && b[1] == 255 && b[2] == 255 ? 'w'
                        : b[0] == 0 && b[1] == 255 && b[2] == 255 ? 'c'
                                                                  : '?';
        }
        QCOMPARE(dobljeno, colours);
        a.pogled.colorMonopodial = true; // order colours: the twigs' blue is 1.0
        a.delckiDrevesa.mreza.izprazni();
        a.zacniOkvir(stZil, visina);
        a.zrasti(stZil, visina, arbo::MatrikaSklad::identiteta());
        QCOMPARE(int(oglisca[1 * naSegment].barva[2]), 255);
        QCOMPARE(int(oglisca[2 * naSegment].barva[2]), 51);
    }

    // Two strands split into two one-strand twigs, each ending in three
    // staggered leaves; the leaf corners are re-derived with OpenGL's own stack
    // from the growing and drawing rules. The tip leaf's turn is taken back by
    // the opposite turn and shift, so the stepped leaves inherit what is left
    // of it.
    void staggeredLeavesFollowTheTipLeafTurnBack() {
        Arbo a;
        a.createKvadraticnePloskve();
        a.pdPrepared.stVsehZil = 2;
        a.pdPrepared.gostotaListov = 3;
        a.pdPrepared.tipListov = 2;
        a.pdPrepared.listSize = 0.37f;
        const auto z = razcleni(izvozi(a, "zamaknjeni.crs"));
        QCOMPARE(int(z.size()), 9);
        // B 0, B 1, three L 1, B 0 (continuation), three L 0.
        const float v = 0.37f;
        auto listi = [&](double vejica, size_t prvi) {
            glTranslated(0, vejica, 0);
            glTranslatef(0, v, 0); // the tip leaf
            glRotatef(180, 0, 0, 1);
            QCOMPARE(z[prvi].vrstice, kotiListaGl(v));
            glRotatef(-180, 0, 0, 1);
            glTranslatef(0, -v, 0);
            glTranslatef(0, 0, v); // two stepped leaves, vejica / 2 apart
            glPushMatrix();
            glTranslatef(0, 0, -v);
            glTranslatef(0, 0, v);
            QCOMPARE(z[prvi + 1].vrstice, kotiListaGl(v));
            glPopMatrix();
            glTranslated(0, -vejica / 2, 0);
            glPushMatrix();
            glTranslatef(0, 0, -v);
            glRotated(197.0, 0, 1, 0);
            glTranslatef(0, 0, v);
            glRotated(0.5 * 0.5 * 30.0, 1, 0, 0);
            QCOMPARE(z[prvi + 2].vrstice, kotiListaGl(v));
            glPopMatrix();
        };
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glRotated(85.0, 0, 1, 0); // trunk: 2 strands split 1 + 1, 45 degrees shared
        glTranslated(0, 5.0, 0);
        glRotated(0.3 * 22.5, 0, 0, 1);
        glPushMatrix();
        glTranslated(-0.5 * (std::sqrt(1.0) * 0.01f - 0.01f * std::sqrt(1.0)), 0, 0);
        glRotated(22.5, 0, 0, 1);
        glRotated(85.0, 0, 1, 0); // the side twig: length 1
        listi(1.0, 2);
        glPopMatrix();
        glRotated(-22.5, 0, 0, 1);
        glRotated(85.0, 0, 1, 0); // the continuation: length 1
        listi(1.0, 6);
    }
};

QTEST_MAIN(TestArbo)
#include "tst_arbo.moc"
