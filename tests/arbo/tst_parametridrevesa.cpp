#include "arbo/parametridrevesa.h"
#include "support/parametri.h"

#include <QtTest>

#include <cmath>
#include <cstring>
#include <fstream>
#include <sstream>

using arbo::Krivulja;
using arbo::ParametriDrevesa;
using arbo::Tocka2D;

namespace {

Krivulja krivulja(std::initializer_list<Tocka2D> t) {
    Krivulja k;
    k.tocke = t;
    return k;
}

std::string preberi(const char* ime) {
    std::ifstream f(ime);
    std::stringstream s;
    s << f.rdbuf();
    return s.str();
}

void zapisi(const char* ime, const std::string& besedilo) {
    std::ofstream f(ime);
    f << besedilo;
}

} // namespace

class TestParametriDrevesa : public QObject {
    Q_OBJECT
private slots:
    void interpolation() {
        ParametriDrevesa p;
        Krivulja k = krivulja({{0, 0}, {1, 1}});
        QCOMPARE(p.interpoliraj(0.25, &k), 0.25);
        k = krivulja({{0, 0.1}, {0.5, 0.045}, {1, 0.1}});
        QVERIFY(std::fabs(p.interpoliraj(0.6, &k) - 0.056) < 1e-12);
        // Below the first vertex the first segment goes on; so does the last one.
        k = krivulja({{0.2, 0.2}, {0.4, 0.6}, {0.6, 0.6}});
        QVERIFY(std::fabs(p.interpoliraj(0.1, &k) - 0.0) < 1e-12);
        QVERIFY(std::fabs(p.interpoliraj(0.9, &k) - 0.6) < 1e-12);
        k = krivulja({{0, 0}, {0.5, 1}});
        QVERIFY(std::fabs(p.interpoliraj(0.75, &k) - 1.5) < 1e-12);
        // A vertical step: the segment with equal x yields its left y.
        k = krivulja({{0.5, 0.3}, {0.5, 0.9}});
        QCOMPARE(p.interpoliraj(0.1, &k), 0.3);
        QCOMPARE(p.interpoliraj(0.8, &k), 0.3);
    }

    void defaultTables() {
        ParametriDrevesa p;
        for (int g = 0; g < 15; ++g)
            for (int w = 0; w < 50; ++w) {
                const double ks = 0.75 + 0.01 * g; // 0.5 (0.5 + 0.3 g/15) + 0.5
                QVERIFY(std::fabs(p.verjetnostVejitve[g][w] - ks) < 1e-12);
                QVERIFY(std::fabs(p.kotVejitve[g][w] - 45.0) < 1e-12);
                QVERIFY(std::fabs(p.charMax[g][w] - 1.0) < 1e-12);
                QVERIFY(std::fabs(p.lengthScaling[g][w] - 1.0) < 1e-12);
                QCOMPARE(p.graviMorfizem[g][w], 0.0);
                const double x = g / 15.0;
                const double m = x < 0.5 ? 0.1 - 0.11 * x : 0.045 + 0.11 * (x - 0.5);
                QVERIFY(std::fabs(p.charMin[g][w] - 10 * m) < 1e-12);
            }
        QVERIFY(std::fabs(p.verjetnostVejitve[14][0] - 0.89) < 1e-12);
        QVERIFY(std::fabs(p.charMin[0][0] - 1.0) < 1e-12);
    }

    void tablesAreLimited() {
        ParametriDrevesa p;
        for (Krivulja* k :
             {&p.verjetnostiVejitveG, &p.verjetnostiVejitveW, &p.kotVejitveG, &p.kotVejitveW,
              &p.minCharacteristicLengthG, &p.minCharacteristicLengthW, &p.gravimorphismImpactG,
              &p.gravimorphismImpactW})
            *k = krivulja({{0, 1}, {1, 1}});
        p.recalculateRelativeParams();
        QCOMPARE(p.verjetnostVejitve[3][7], 1.0);
        QCOMPARE(p.kotVejitve[3][7], 180.0);
        QCOMPARE(p.graviMorfizem[3][7], 180.0);
        QCOMPARE(p.charMin[3][7], 20.0);
        // Below: the strand share never drops under one half, the angle has no floor.
        p.verjetnostiVejitveG = krivulja({{0, -1}, {1, -1}});
        p.kotVejitveG = krivulja({{0, -0.5}, {1, -0.5}});
        p.gravimorphismImpactG = krivulja({{0, -1}, {1, -1}});
        p.recalculateRelativeParams();
        QCOMPARE(p.verjetnostVejitve[0][0], 0.5);
        QCOMPARE(p.kotVejitve[0][0], -180.0);
        QCOMPARE(p.graviMorfizem[0][0], -180.0);
    }

    void unknownTableIdChangesNothing() {
        ParametriDrevesa p;
        p.kotVejitveG = krivulja({{0, 1}, {1, 1}});
        const ParametriDrevesa prej(p);
        p.preracunajParametra(6);
        p.preracunajParametra(-1);
        QVERIFY(testparametri::enaki(p, prej));
        QCOMPARE(p.kotVejitve[0][0], 45.0); // the table was not recomputed either
        p.preracunajParametra(1);
        QCOMPARE(p.kotVejitve[0][0], 180.0);
    }

    void defaultFileText() {
        ParametriDrevesa p;
        QVERIFY(p.saveParameters("privzeto.tree.xml"));
        const std::string s = preberi("privzeto.tree.xml");
        const std::string zacetek = ":/gui/textures/bark.jpg\n:/gui/textures/leaf.png\n"
                                    "1000\t5\t0.01\t85\t0.3\t1\t0.1\t5\t1.5\t0\n"
                                    "2\t\n0\t0.5\n1\t0.8\n\n"
                                    "2\t\n0\t0.5\n1\t0.5\n\n";
        QCOMPARE(QString::fromStdString(s.substr(0, zacetek.size())),
                 QString::fromStdString(zacetek));
        QVERIFY(s.find("3\t\n0\t0.1\n0.5\t0.045\n1\t0.1\n\n") != std::string::npos);
        // 3 lines, then 12 blocks of count line, vertices and an empty line.
        QCOMPARE(int(std::count(s.begin(), s.end(), '\n')), 3 + 12 * 4 + 1);
    }

    void roundTrip() {
        ParametriDrevesa p;
        p.stVsehZil = 321;
        p.dolzinaDebla = 7.25;
        p.listi = false;
        p.tipListov = 3;
        p.barkTextureFileName = "bark with spaces\tand tab.png";
        p.minCharacteristicLengthW = krivulja({{0, 0.2}, {0.3, 0.7}, {1, 0.1}});
        p.recalculateRelativeParams();
        QVERIFY(p.saveParameters("krog.tree.xml"));
        ParametriDrevesa q;
        q.windSpeedNodirect = 9.5; // not stored: keeps its value
        QVERIFY(q.loadParameters("krog.tree.xml"));
        QCOMPARE(q.windSpeedNodirect, 9.5);
        q.windSpeedNodirect = p.windSpeedNodirect;
        QVERIFY(testparametri::enaki(p, q));
        // More than six significant digits are rounded on the way.
        p.dolzinaDebla = 1.23456789;
        QVERIFY(p.saveParameters("krog.tree.xml"));
        QVERIFY(q.loadParameters("krog.tree.xml"));
        QCOMPARE(q.dolzinaDebla, 1.23457);
    }

    void anyWhitespaceLayoutLoads() {
        std::string s = "b.png\nl.png\n  77 \n 3.5\n0.02 90 0.1 0 0.2\n\n4 1.0 2\n";
        for (int i = 0; i < 12; ++i)
            s += (i % 2 ? "2 0 0.3 1 0.6   " : "2\n0\n0.4\n\n1\n0.5\n");
        zapisi("razlicno.tree.xml", s);
        ParametriDrevesa p;
        QVERIFY(p.loadParameters("razlicno.tree.xml"));
        QCOMPARE(p.stVsehZil, 77);
        QCOMPARE(p.sirinaSteblaNaZilo, 0.02f);
        QCOMPARE(p.listi, false);
        QCOMPARE(p.windSpeed, 1.0);
        QCOMPARE(p.tipListov, 2); // the leaf type follows the wind speed
        QCOMPARE(p.gravimorphismImpactW.tocke[1].y, 0.6);
        QCOMPARE(p.graviMorfizem[0][0], 720 * (0.4 * 0.3) - 180);
    }

    // Each bad file leaves the set as it was and says why (the reason's text).
    void badFilesKeepTheOldSet_data() {
        QTest::addColumn<QString>("besedilo");
        QTest::addColumn<QString>("razlog");
        const std::string dobro = "b.png\nl.png\n100 5 0.01 85 0.3 1 0.1 5 1.5 0\n";
        std::string krivulje;
        for (int i = 0; i < 12; ++i)
            krivulje += "2\t\n0\t0.5\n1\t0.5\n\n";
        const auto q = [](const std::string& s) { return QString::fromStdString(s); };
        const auto skalarji = [&](const std::string& vrstica) {
            return q("b\nl\n" + vrstica + "\n" + krivulje);
        };
        QTest::newRow("truncated") << q(dobro + krivulje.substr(0, krivulje.size() - 12))
                                   << "line 49: the file ends before the vertex of curve 12";
        QTest::newRow("letters") << skalarji("100 5 x 85 0.3 1 0.1 5 1.5 0")
                                 << "line 3: \"x\" is not a valid branch thickness per strand";
        QTest::newRow("bool 2") << skalarji("100 5 0.01 85 0.3 2 0.1 5 1.5 0")
                                << "line 3: \"2\" is not a valid leaves switch (0 or 1)";
        // Without strict tokens "0.1" would give listi 0 and listSize .1: all in place.
        QTest::newRow("missing gravicentralism")
            << skalarji("100 5 0.01 85 1 0.1 5 1.5 0")
            << "line 3: \"0.1\" is not a valid leaves switch (0 or 1)";
        QTest::newRow("strands one past the limit")
            << skalarji("100001 5 0.01 85 0.3 1 0.1 5 1.5 0")
            << "line 3: the strand count 100001 lies outside 0 to 100000";
        QTest::newRow("negative strands") << skalarji("-1 5 0.01 85 0.3 1 0.1 5 1.5 0")
                                          << "line 3: the strand count -1 lies outside 0 to 100000";
        QTest::newRow("leaf density one past the limit")
            << skalarji("100 5 0.01 85 0.3 1 0.1 1001 1.5 0")
            << "line 3: the leaf density 1001 lies outside 0 to 1000";
        QTest::newRow("leaf type 5") << skalarji("100 5 0.01 85 0.3 1 0.1 5 1.5 5")
                                     << "line 3: the leaf type 5 lies outside 0 to 4";
        // A token is kept to 64 characters, and is then no number whatever follows.
        QTest::newRow("a hundred digits")
            << skalarji(std::string(100, '1') + " 5 0.01 85 0.3 1 0.1 5 1.5 0")
            << "line 3: \"" + QString(64, '1') + "\" is not a valid strand count";
        QTest::newRow("not a number") << skalarji("100 nan 0.01 85 0.3 1 0.1 5 1.5 0")
                                      << "line 3: \"nan\" is not a valid trunk height";
        QTest::newRow("beyond double range")
            << skalarji("100 5 0.01 1e400 0.3 1 0.1 5 1.5 0")
            << "line 3: \"1e400\" is not a valid phyllotaxis angle";
        QTest::newRow("beyond float range")
            << skalarji("100 5 1e39 85 0.3 1 0.1 5 1.5 0")
            << "line 3: the branch thickness per strand 1e39 lies outside -1000000 to 1000000";
        QTest::newRow("one vertex") << q(dobro + "1\t\n0\t0.5\n\n" + krivulje.substr(16))
                                    << "line 4: the vertex count of curve 1 1 lies outside 2 to "
                                       "1000";
        QTest::newRow("no vertex") << q(dobro + "0\t\n\n" + krivulje.substr(16))
                                   << "line 4: the vertex count of curve 1 0 lies outside 2 to "
                                      "1000";
        QTest::newRow("a million vertices")
            << q(dobro + "1000000\t\n0\t0.5\n1\t0.5\n\n" + krivulje.substr(16))
            << "line 4: the vertex count of curve 1 1000000 lies outside 2 to 1000";
        QTest::newRow("count with a fraction")
            << q(dobro + "2.5\t\n0\t0.5\n1\t0.5\n\n" + krivulje.substr(16))
            << "line 4: \"2.5\" is not a valid vertex count of curve 1";
        QTest::newRow("vertex too far")
            << q(dobro + "2\t\n0\t0.5\n1\t-2e6\n\n" + krivulje.substr(16))
            << "line 6: the vertex of curve 1 -2e6 lies outside "
               "-1000000 to 1000000";
        // A step of 1e-303 in x makes the slope, and the table, overflow.
        QTest::newRow("tables overflow")
            << q(dobro + krivulje.substr(0, 16 * 8) + "2\t\n0\t0\n1e-303\t1000000\n\n" +
                 krivulje.substr(16 * 9))
            << "the curves give values beyond the range of numbers";
        QTest::newRow("text after the last curve")
            << q(dobro + krivulje + "7\n") << "line 52: unexpected \"7\" after the last curve";
        QTest::newRow("long name")
            << q(std::string(300, 'a') + "\nl\n" + dobro.substr(12) + krivulje)
            << "line 1: the bark texture file name is missing or longer "
               "than 254 characters";
        QTest::newRow("empty") << QString()
                               << "line 1: the bark texture file name is missing or longer than "
                                  "254 characters";
    }
    void badFilesKeepTheOldSet() {
        QFETCH(QString, besedilo);
        QFETCH(QString, razlog);
        zapisi("slabo.tree.xml", besedilo.toStdString());
        ParametriDrevesa p;
        p.stVsehZil = 4321;
        p.kotVejitveW = krivulja({{0, 0.1}, {1, 0.9}});
        p.recalculateRelativeParams();
        const ParametriDrevesa prej(p);
        std::string zakaj;
        QVERIFY(!p.loadParameters("slabo.tree.xml", &zakaj));
        QVERIFY(testparametri::enaki(p, prej));
        QCOMPARE(QString::fromStdString(zakaj), razlog);
    }

    // The largest file the limits allow loads: every count at its limit, every
    // value at its bound, 1000 vertices in every curve.
    void limitsLoad() {
        std::string s = "b\nl\n100000 1e6 -1e6 1e6 -1e6 1 1e6 1000 -1e6 4\n";
        for (int k = 0; k < 12; ++k) {
            s += "1000\n";
            for (int i = 0; i < 1000; ++i)
                s += std::to_string(i / 999.0) + " " + (i % 2 ? "1e6" : "-1e6") + "\n";
        }
        zapisi("granice.tree.xml", s);
        ParametriDrevesa p;
        QVERIFY(p.loadParameters("granice.tree.xml"));
        QCOMPARE(p.stVsehZil, ParametriDrevesa::najvecZil);
        QCOMPARE(p.gostotaListov, ParametriDrevesa::najvecListov);
        QCOMPARE(int(p.gravimorphismImpactW.tocke.size()), ParametriDrevesa::najvecTockKrivulje);
    }

    // Every species file of the collection saves back to the same text and
    // loads again to the same set.
    void speciesCollectionRoundTrip_data() {
        QTest::addColumn<QString>("ime");
        for (const QString& ime :
             QDir(VIRELA_SOURCE_DIR "/bin/zbirka-4").entryList({"*.tree.xml"}, QDir::Files))
            QTest::newRow(qPrintable(ime)) << ime;
        QCOMPARE(QDir(VIRELA_SOURCE_DIR "/bin/zbirka-4").entryList({"*.tree.xml"}).size(), 5);
    }
    void speciesCollectionRoundTrip() {
        QFETCH(QString, ime);
        const std::string pot = (VIRELA_SOURCE_DIR "/bin/zbirka-4/" + ime).toStdString();
        ParametriDrevesa p;
        QVERIFY(p.loadParameters(pot));
        QVERIFY(p.barkTextureFileName.rfind(":/gui/textures/", 0) == 0);
        QVERIFY(p.saveParameters("vrsta.tree.xml"));
        QCOMPARE(QString::fromStdString(preberi("vrsta.tree.xml")),
                 QString::fromStdString(preberi(pot.c_str())));
        ParametriDrevesa q;
        QVERIFY(q.loadParameters("vrsta.tree.xml"));
        QVERIFY(testparametri::enaki(p, q));
        // The spruce: coniferous needles on the conifers' darker bark.
        if (ime == "smrekaMini.tree.xml") {
            QCOMPARE(q.tipListov, 4); // "Coniferous"
            QCOMPARE(q.leafTextureFileName, std::string(":/gui/textures/needles.png"));
            QCOMPARE(q.barkTextureFileName, std::string(":/gui/textures/barkconifer.jpg"));
        }
    }

    void missingFiles() {
        ParametriDrevesa p;
        p.stVsehZil = 55;
        QVERIFY(!p.loadParameters("ni/takega.tree.xml"));
        QVERIFY(!p.loadParameters(""));
        QCOMPARE(p.stVsehZil, 55);
        QVERIFY(!p.saveParameters("ni/takega/imenika.tree.xml"));
        // A save that cannot complete leaves the old file as it was.
        zapisi("obstojeca.tree.xml", "staro");
        QVERIFY(!p.saveParameters("obstojeca.tree.xml/pod"));
        QCOMPARE(QString::fromStdString(preberi("obstojeca.tree.xml")), QString("staro"));
    }
};

QTEST_GUILESS_MAIN(TestParametriDrevesa)
#include "tst_parametridrevesa.moc"
