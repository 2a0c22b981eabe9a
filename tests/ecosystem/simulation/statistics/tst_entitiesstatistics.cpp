#include "arbo/krivulja.h"
#include "ecosystem/simulation/statistics/entitiesstatistics.h"

#include <QtTest>

using ecosystem::statistics::CEntitiesStatistics;

class TestEntitiesStatistics : public QObject {
    Q_OBJECT
private slots:
    void logLineOfAStep() {
        CEntitiesStatistics s;
        s.sumRenderTime = 260;
        s.sumSimmTime = 102;
        s.setStTrenutnoZivih(812);
        s.saveSimulationRutinesTimings(7, 40, 2, 5, 11, 9);
        QCOMPARE(QString::fromStdString(s.getLogText()),
                 QString("@7: time(render_all)=300 time(simm_all)=120 ||  time(render)=40 "
                         "time(dodaj)=2 time(zrasti)=5 time(pobij)=11 time(pobij_dominir)=9 ||  "
                         "nrPlants=812"));
        QCOMPARE(s.sumRenderTime, 300);
        QCOMPARE(s.sumSimmTime, 120);
    }

    void liveCurvesNumberTheirPoints() {
        CEntitiesStatistics s;
        s.addLiveSpecies({3, 0, 7, 1, 2});
        QCOMPARE(s.getGrafiStevilaRastlin()->size(), size_t(5));
        QCOMPARE(s.stTrenutnoZivih, 13);
        for (arbo::Krivulja* k : *s.getGrafiStevilaRastlin()) {
            QCOMPARE(k->tocke.size(), size_t(1));
            QCOMPARE(k->tocke[0].x, 0.0);
        }
        QCOMPARE((*s.getGrafiStevilaRastlin())[2]->tocke[0].y, 7.0);
        s.addLiveSpecies({4, 1, 6, 0, 2});
        const arbo::Krivulja& tretja = *(*s.getGrafiStevilaRastlin())[2];
        QCOMPARE(tretja.tocke.size(), size_t(2));
        QCOMPARE(tretja.tocke[1].x, 1.0);
        QCOMPARE(tretja.tocke[1].y, 6.0);
        QCOMPARE(s.stTrenutnoZivih, 13);
        QVERIFY(s.getGrafiStevilaUpodobljenihRastlin()->empty());
    }

    void renderedCurvesLeaveTheLivingCountAlone() {
        CEntitiesStatistics s;
        s.setStTrenutnoZivih(50);
        s.addRenderedSpecies({}); // a frame before the vegetation exists adds nothing
        s.addRenderedSpecies({10, 20});
        s.addRenderedSpecies({11, 21});
        s.addRenderedSpecies({12, 22});
        QCOMPARE(s.stTrenutnoZivih, 50);
        QCOMPARE(s.getGrafiStevilaUpodobljenihRastlin()->size(), size_t(2));
        const arbo::Krivulja& druga = *(*s.getGrafiStevilaUpodobljenihRastlin())[1];
        QCOMPARE(druga.tocke.size(), size_t(3));
        QCOMPARE(druga.tocke[2].x, 2.0);
        QCOMPARE(druga.tocke[2].y, 22.0);
        QVERIFY(s.getGrafiStevilaRastlin()->empty());
        // Each drawn point remembers how many steps had been counted; each
        // living point its step, going on from a loaded one.
        s.addLiveSpecies({1, 2});
        s.addRenderedSpecies({1, 2});
        s.addLiveSpecies({1, 2}, 30);
        s.addLiveSpecies({1, 2});
        s.addLiveSpecies({});
        QCOMPARE(s.korakiUpodobitev, std::vector<int>({0, 0, 0, 1}));
        QCOMPARE(s.korakiZivih, std::vector<int>({1, 30, 31}));
    }
};

QTEST_GUILESS_MAIN(TestEntitiesStatistics)
#include "tst_entitiesstatistics.moc"
