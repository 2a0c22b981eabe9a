#include "gui/design/distributiondesigner.h"
#include "gui/design/hoverpoints.h"
#include "gui/design/widgetgraph.h"

#include "support/mouseover.h"
#include "support/parametri.h"
#include <QCheckBox>
#include <QLabel>

#include <QtTest>

#include <memory>

using arbo::Krivulja;
using gui::DistributionDesigner;
constexpr auto same = testparametri::enakeKrivulje;

// The designer on its own, driven with the mouse: curves shown at and read
// back from the graph coordinates, auto proof, the highlighted levels, the
// readout and Cancel.
class TestDistributionDesigner : public QObject {
    Q_OBJECT

    Krivulja g, w;
    std::unique_ptr<DistributionDesigner> d;
    QList<std::pair<Krivulja, Krivulja>> updates; // what pointsUpdated handed on

    void open(const QStringList& labelsG = {"50%", "62,5%", "75%", "87,5%", "100%"}) {
        g = Krivulja{{{0, 0.5}, {0.5, 0.2}, {1, 0.8}}};
        w = Krivulja{{{0, 0.5}, {0.3, 0.4}, {1, 0.5}}};
        QString textsG[5], textsW[5] = {"0%", "50%", "100%", "150%", "200%"};
        const QString* pg[5];
        const QString* pw[5];
        for (int i = 0; i < 5; ++i) {
            textsG[i] = labelsG[i];
            pg[i] = &textsG[i];
            pw[i] = &textsW[i];
        }
        d = std::make_unique<DistributionDesigner>(nullptr, std::vector<int>{0},
                                                   std::vector<Krivulja*>{&g},
                                                   std::vector<Krivulja*>{&w}, pg, pw, " for x");
        updates.clear();
        connect(d.get(), &DistributionDesigner::pointsUpdated, this,
                [this](const std::vector<int>&, const std::vector<Krivulja*>& kg,
                       const std::vector<Krivulja*>& kw) {
                    updates << std::make_pair(*kg[0], *kw[0]);
                    delete kg[0];
                    delete kw[0];
                });
        d->show();
        QVERIFY(QTest::qWaitForWindowExposed(d.get()));
        d->setKrivulje();
    }
    static QPointF shownAt(gui::WidgetGraph* graph, const arbo::Tocka2D& t) {
        return {t.x * graph->width(), (1 - t.y) * graph->height()};
    }
    static void drag(gui::WidgetGraph* graph, QPointF from, QPoint to) {
        QTest::mousePress(graph, Qt::LeftButton, {}, from.toPoint());
        mouseOver(graph, to, Qt::LeftButton);
        QTest::mouseRelease(graph, Qt::LeftButton, {}, to);
    }

private slots:
    // Shown at (x * width, (1 - y) * height); a moved point comes back as
    // (px / width, 1 - py / height), the others exactly as they were, also
    // after the graphs were resized.
    void curvesInAndOut() {
        open();
        QCOMPARE(d->windowTitle(), QString("Distribution designer for x"));
        QCOMPARE(d->graphG->points(),
                 QPolygonF({shownAt(d->graphG, g.tocke[0]), shownAt(d->graphG, g.tocke[1]),
                            shownAt(d->graphG, g.tocke[2])}));
        QCOMPARE(d->graphG->hoverPoints->locks,
                 std::vector<unsigned>(
                     {gui::HoverPoints::LockToLeft, 0, gui::HoverPoints::LockToRight}));
        const Krivulja g0 = g, w0 = w;
        d->resize(d->width() + 137, d->height() + 51);
        QTRY_VERIFY(d->graphG->width() > 500);
        QVERIFY(updates.isEmpty());
        const double width = d->graphG->width(), height = d->graphG->height();
        const QPoint to(int(width * 0.6), int(height * 0.1));
        drag(d->graphG, shownAt(d->graphG, g.tocke[1]), to);
        QVERIFY(!updates.isEmpty());
        const Krivulja out = updates.last().first;
        QCOMPARE(out.tocke.size(), size_t(3));
        QCOMPARE(out.tocke[1].x, to.x() / width);
        QCOMPARE(out.tocke[1].y, 1 - to.y() / height);
        QVERIFY(same(Krivulja{{out.tocke[0]}}, Krivulja{{g0.tocke[0]}}));
        QVERIFY(same(Krivulja{{out.tocke[2]}}, Krivulja{{g0.tocke[2]}}));
        QVERIFY(same(updates.last().second, w0));
        // A click adds a point between the others; a right click takes it away.
        QTest::mouseClick(d->graphG, Qt::LeftButton, {}, QPoint(int(width * 0.8), 20));
        QCOMPARE(updates.last().first.tocke.size(), size_t(4));
        QTest::mouseClick(d->graphG, Qt::RightButton, {}, QPoint(int(width * 0.8), 20));
        QVERIFY(same(updates.last().first, out));
    }

    // With auto proof off nothing is handed on; switching it on hands on the graphs.
    void autoProof() {
        open();
        QTest::mouseClick(d->autoProof, Qt::LeftButton);
        QVERIFY(!d->autoProof->isChecked());
        drag(d->graphW, shownAt(d->graphW, w.tocke[1]), QPoint(d->graphW->width() / 2, 10));
        QVERIFY(updates.isEmpty());
        QTest::mouseClick(d->autoProof, Qt::LeftButton);
        QCOMPARE(updates.size(), 1);
        QCOMPARE(updates[0].second.tocke[1].y, 1 - 10.0 / d->graphW->height());
    }

    // The level under the mouse, or while a point is dragged the levels of its
    // neighbours (the point itself at either end).
    void hoverRanges_data() {
        QTest::addColumn<bool>("depth");
        QTest::addColumn<int>("dragged"); // -1: hover only
        QTest::addColumn<double>("at");   // hovered level, in levels
        QTest::addColumn<int>("lo");
        QTest::addColumn<int>("hi");
        QTest::addColumn<QString>("text");
        QTest::newRow("order") << false << -1 << 7.5 << 7 << 7 << "G=7";
        QTest::newRow("last order") << false << -1 << 14.5 << 14 << 14 << "G=14";
        QTest::newRow("drag middle") << false << 1 << 0.0 << 0 << 15 << "G=0-15";
        QTest::newRow("drag first") << false << 0 << 0.0 << 0 << 7 << "G=0-7";
        QTest::newRow("drag last") << false << 2 << 0.0 << 7 << 15 << "G=7-15";
        QTest::newRow("depth") << true << -1 << 31.5 << 31 << 31 << "W=31";
        QTest::newRow("drag depth") << true << 1 << 0.0 << 0 << 50 << "W=0-50";
    }
    void hoverRanges() {
        QFETCH(bool, depth);
        QFETCH(int, dragged);
        QFETCH(double, at);
        QFETCH(int, lo);
        QFETCH(int, hi);
        QFETCH(QString, text);
        open();
        gui::WidgetGraph* graph = depth ? d->graphW : d->graphG;
        QSignalSpy reported(d.get(), depth ? &DistributionDesigner::hoverWChanged
                                           : &DistributionDesigner::hoverGChanged);
        mouseOver(graph, QPoint(graph->width() / 2, graph->height() / 2));
        QCOMPARE(reported.count(), 0); // colouring off
        QTest::mouseClick(d->colorLevels, Qt::LeftButton);
        QCOMPARE(reported.count(), 0);
        if (dragged < 0) {
            const int levels = depth ? 50 : 15;
            mouseOver(graph, QPoint(int(at / levels * graph->width()), 10));
        } else {
            // The last point sits on the right edge, just past the last pixel.
            const QPoint p = graph->points()[dragged].toPoint() - QPoint(dragged == 2 ? 3 : 0, 0);
            QTest::mousePress(graph, Qt::LeftButton, {}, p);
            mouseOver(graph, p + QPoint(dragged == 1 ? 3 : 0, 6), Qt::LeftButton);
        }
        QVERIFY(!reported.isEmpty());
        QCOMPARE(reported.last(), QList<QVariant>({lo, hi}));
        QCOMPARE(d->hoverIndex->text(), text);
        QTest::mouseClick(d->colorLevels, Qt::LeftButton); // off again: the highlight goes
        QCOMPARE(d->hoverIndex->text(), QString("no hover"));
    }

    // The curve's value under the mouse, in the unit of the labels.
    void readout_data() {
        QTest::addColumn<QStringList>("labels");
        QTest::addColumn<double>("y");
        QTest::addColumn<QString>("text");
        QTest::newRow("strands") << QStringList{"50%", "62,5%", "75%", "87,5%", "100%"} << 0.75
                                 << "G=0: 87,5%";
        QTest::newRow("angles") << QStringList{"0°", "45°", "90°", "135°", "180°"} << 0.75
                                << "G=0: 135°";
        QTest::newRow("lengths") << QStringList{"0%", "250%", "500%", "750%", "1000%"} << 0.123
                                 << "G=0: 123%";
        QTest::newRow("gravimorphism")
            << QStringList{"-180°", "-90°", "0°", "90°", "180°"} << 0.25 << "G=0: -90°";
    }
    void readout() {
        QFETCH(QStringList, labels);
        QFETCH(double, y);
        QFETCH(QString, text);
        open(labels);
        g = Krivulja{{{0, y}, {1, y}}};
        d->setKrivulje();
        mouseOver(d->graphG, QPoint(0, 5));
        QCOMPARE(d->valueG->text(), text);
        mouseOver(d->graphW, QPoint(0, 5)); // the depth graph: 0% ... 200%
        QCOMPARE(d->valueW->text(), QString("W=0: 100%"));
    }

    // Cancel puts the curves back exactly and hands them on once more.
    void cancelRestores() {
        open();
        const Krivulja g0 = g, w0 = w;
        drag(d->graphG, shownAt(d->graphG, g.tocke[1]), QPoint(40, 40));
        g = updates.last().first; // applied, as the handler would
        QVERIFY(!same(g, g0));
        QTest::keyClick(d.get(), Qt::Key_Escape);
        QVERIFY(!d->isVisible());
        QVERIFY(same(g, g0) && same(w, w0));
        QVERIFY(same(updates.last().first, g0) && same(updates.last().second, w0));
    }
};

QTEST_MAIN(TestDistributionDesigner)
#include "tst_distributiondesigner.moc"
