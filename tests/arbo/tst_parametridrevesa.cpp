#include "arbo/parametridrevesa.h"

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

bool enakeKrivulje(const Krivulja& a, const Krivulja& b) {
    if (a.tocke.size() != b.tocke.size())
        return false;
    for (size_t i = 0; i < a.tocke.size(); ++i)
        if (a.tocke[i].x != b.tocke[i].x || a.tocke[i].y != b.tocke[i].y)
            return false;
    return true;
}

bool enaka(const ParametriDrevesa& a, const ParametriDrevesa& b) {
    const Krivulja ParametriDrevesa::*k[12] = {&ParametriDrevesa::verjetnostiVejitveG,
                                               &ParametriDrevesa::verjetnostiVejitveW,
                                               &ParametriDrevesa::kotVejitveG,
                                               &ParametriDrevesa::kotVejitveW,
                                               &ParametriDrevesa::minCharacteristicLengthG,
                                               &ParametriDrevesa::minCharacteristicLengthW,
                                               &ParametriDrevesa::maxCharacteristicLengthG,
                                               &ParametriDrevesa::maxCharacteristicLengthW,
                                               &ParametriDrevesa::lengthScalingG,
                                               &ParametriDrevesa::lengthScalingW,
                                               &ParametriDrevesa::gravimorphismImpactG,
                                               &ParametriDrevesa::gravimorphismImpactW};
    for (auto c : k)
        if (!enakeKrivulje(a.*c, b.*c))
            return false;
    return a.stVsehZil == b.stVsehZil && a.dolzinaDebla == b.dolzinaDebla &&
           a.sirinaSteblaNaZilo == b.sirinaSteblaNaZilo &&
           a.phyllotaxisAngle == b.phyllotaxisAngle && a.graviCentralizem == b.graviCentralizem &&
           a.listi == b.listi && a.listSize == b.listSize && a.gostotaListov == b.gostotaListov &&
           a.tipListov == b.tipListov && a.windSpeed == b.windSpeed &&
           a.windSpeedNodirect == b.windSpeedNodirect &&
           a.barkTextureFileName == b.barkTextureFileName &&
           a.leafTextureFileName == b.leafTextureFileName &&
           std::memcmp(a.verjetnostVejitve, b.verjetnostVejitve, sizeof a.verjetnostVejitve) == 0 &&
           std::memcmp(a.graviMorfizem, b.graviMorfizem, sizeof a.graviMorfizem) == 0 &&
           std::memcmp(a.charMin, b.charMin, sizeof a.charMin) == 0;
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
        QVERIFY(enaka(p, prej));
        QCOMPARE(p.kotVejitve[0][0], 45.0); // the table was not recomputed either
        p.preracunajParametra(1);
        QCOMPARE(p.kotVejitve[0][0], 180.0);
    }

    void copyIsDeep() {
        ParametriDrevesa a;
        ParametriDrevesa b(a);
        b.kotVejitveG.tocke[0].y = 0.9;
        b.kotVejitve[2][2] = 1;
        QCOMPARE(a.kotVejitveG.tocke[0].y, 0.25);
        QCOMPARE(a.kotVejitve[2][2], 45.0);
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
        QVERIFY(enaka(p, q));
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

    void badFilesKeepTheOldSet_data() {
        QTest::addColumn<QString>("besedilo");
        std::string dobro = "b.png\nl.png\n100 5 0.01 85 0.3 1 0.1 5 1.5 0\n";
        std::string krivulje;
        for (int i = 0; i < 12; ++i)
            krivulje += "2\t\n0\t0.5\n1\t0.5\n\n";
        const auto q = [](const std::string& s) { return QString::fromStdString(s); };
        QTest::newRow("truncated") << q(dobro + krivulje.substr(0, krivulje.size() - 12));
        QTest::newRow("letters") << q("b\nl\n100 5 x 85 0.3 1 0.1 5 1.5 0\n" + krivulje);
        QTest::newRow("bool 2") << q("b\nl\n100 5 0.01 85 0.3 2 0.1 5 1.5 0\n" + krivulje);
        QTest::newRow("one vertex") << q(dobro + "1\t\n0\t0.5\n\n" + krivulje.substr(16));
        QTest::newRow("no vertex") << q(dobro + "0\t\n\n" + krivulje.substr(16));
        QTest::newRow("long name")
            << q(std::string(300, 'a') + "\nl\n" + dobro.substr(12) + krivulje);
        QTest::newRow("empty") << QString();
    }
    void badFilesKeepTheOldSet() {
        QFETCH(QString, besedilo);
        zapisi("slabo.tree.xml", besedilo.toStdString());
        ParametriDrevesa p;
        p.stVsehZil = 4321;
        p.kotVejitveW = krivulja({{0, 0.1}, {1, 0.9}});
        p.recalculateRelativeParams();
        const ParametriDrevesa prej(p);
        QVERIFY(!p.loadParameters("slabo.tree.xml"));
        QVERIFY(enaka(p, prej));
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
        QVERIFY(enaka(p, q));
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
