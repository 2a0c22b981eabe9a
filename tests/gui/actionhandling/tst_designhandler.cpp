#include "arbo/arbo.h"
#include "ecosystem/render/ecosystemrender.h"
#include "gui/actionhandling/designhandler.h"
#include "gui/design/distributiondesigner.h"
#include "gui/design/hoverpoints.h"
#include "gui/design/widgetgraph.h"
#include "gui/dialogs/advancedtreeproperties.h"
#include "gui/glformat.h"
#include "gui/mainwindow.h"
#include "support/mainwindowfixture.h"
#include "support/mouseover.h"
#include "support/parametri.h"

#include <QApplication>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QtTest>

#include <memory>

using arbo::Krivulja;
using arbo::ParametriDrevesa;
using gui::AdvancedTreeProperties;
using gui::DistributionDesigner;
using gui::actionhandling::DesignHandler;

// The design commands in the running program, in tree-edit mode: each designer
// on its curves, several dialogs at once with live edits, Cancel restoring the
// saved file, the hovered levels in the tree, the dialogs following the
// selected tree, and undo and redo over all of it.
class TestDesignHandler : public QObject {
    Q_OBJECT

    std::unique_ptr<gui::MainWindow> w;

    ecosystem::render::EcosystemRender* scene() { return w->currentModel; }
    arbo::Arbo* tree() { return scene()->getIzbranoArbo(); }
    DesignHandler* handler() { return w->designHandler; }
    DistributionDesigner* designer(int id) {
        for (DistributionDesigner* d : handler()->designers)
            if (d && d->isVisible() && d->ids == std::vector<int>{id})
                return d;
        return nullptr;
    }
    AdvancedTreeProperties* advanced() {
        w->ui.actionAdvanced_tree_properties->trigger();
        return handler()->advancedTreeProperties;
    }
    QByteArray saved(const QString& name) {
        tree()->pdPrepared.saveParameters(name.toStdString());
        QFile f(name);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    // Drags point i of a graph by (dx, dy); the end points are taken just
    // inside the graph's edges.
    static void drag(gui::WidgetGraph* g, int i, QPoint by) {
        QPoint p = g->points()[i].toPoint();
        p.setX(std::clamp(p.x(), 2, g->width() - 3));
        QTest::mousePress(g, Qt::LeftButton, {}, p);
        mouseOver(g, p + by, Qt::LeftButton);
        QTest::mouseRelease(g, Qt::LeftButton, {}, p + by);
    }
    static void type(QAbstractSpinBox* s, const QString& text) {
        s->setFocus();
        QTest::keyClick(s, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(s, text);
        QTest::keyClick(s, Qt::Key_Return);
    }
    static Krivulja* curveG(ParametriDrevesa& p, int id) {
        Krivulja* curves[6] = {&p.verjetnostiVejitveG,      &p.kotVejitveG,
                               &p.minCharacteristicLengthG, &p.maxCharacteristicLengthG,
                               &p.lengthScalingG,           &p.gravimorphismImpactG};
        return curves[id];
    }

private slots:
    void initTestCase() {
        QLocale::setDefault(QLocale::c());
        w = std::make_unique<gui::MainWindow>();
        QVERIFY(showWithScene(*w));
        w->ui.actionShow_ecosystem->trigger();
        QVERIFY(scene()->isSingleRender());
    }
    // Every test leaves the dialogs closed and the default tree as it was.
    void cleanup() {
        for (DistributionDesigner* d : handler()->designers)
            if (d)
                d->accept();
        if (handler()->advancedTreeProperties)
            handler()->advancedTreeProperties->accept();
        while (scene()->indexIzbranegaDrevesa != 5)
            w->ui.actionSelect_next_tree_parameters_tree_edit_mode->trigger();
        tree()->pdPrepared = ParametriDrevesa();
    }
    void cleanupTestCase() { w.reset(); }

    void commandsOpenTheirDesigners_data() {
        QTest::addColumn<QString>("action");
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("bottom");
        QTest::addColumn<QString>("top");
        QTest::newRow("strands") << "actionDesign_strand_distribution" << 0
                                 << " for strand distribution"
                                 << "50%"
                                 << "100%";
        QTest::newRow("angles") << "actionDesign_branching_angles" << 1
                                << " for branching angles distribution"
                                << "0°"
                                << "180°";
        QTest::newRow("minimal") << "actionDesign_branch_absolute_minimal_length" << 2
                                 << " for minimal absolute branch lengths distribution"
                                 << "0%"
                                 << "1000%";
        QTest::newRow("maximal") << "actionDesign_branch_absolute_maximal_length" << 3
                                 << " for maximal absolute branch lengths distribution"
                                 << "0%"
                                 << "1000%";
        QTest::newRow("scaling") << "actionDesign_branch_lenght_scaling" << 4
                                 << " for branch lengths scaling distribution"
                                 << "0%"
                                 << "1000%";
        QTest::newRow("gravimorphism") << "actionDesign_gravimorphism_impact_distribution" << 5
                                       << " for gravimorphism impact distribution"
                                       << "-180°"
                                       << "180°";
    }
    void commandsOpenTheirDesigners() {
        QFETCH(QString, action);
        QFETCH(int, id);
        QFETCH(QString, title);
        QFETCH(QString, bottom);
        QFETCH(QString, top);
        const QByteArray before = saved("before.tree.xml");
        auto* a = w->findChild<QAction*>(action);
        a->trigger();
        DistributionDesigner* d = designer(id);
        QVERIFY(d);
        QCOMPARE(d->windowTitle(), "Distribution designer" + title);
        QCOMPARE(d->labelG[0]->text(), bottom);
        QCOMPARE(d->labelG[4]->text(), top);
        QCOMPARE(d->labelW[4]->text(), QString("200%"));
        QCOMPARE(d->krivuljeG[0], curveG(tree()->pdPrepared, id));
        QCOMPARE(d->graphG->points().size(), qsizetype(d->krivuljeG[0]->tocke.size()));
        a->trigger(); // once more: the same designer comes to the front
        QCOMPARE(handler()->designers.size(), 1);
        QTest::mouseClick(d->findChild<QPushButton*>("okButton"), Qt::LeftButton);
        QVERIFY(!d->isVisible());
        QCOMPARE(saved("after.tree.xml"), before);
    }

    // Two designers and the advanced properties open at once, each edit live;
    // Cancel in each gives back the tree whose saved file is the same as before.
    void editsAndCancelRestoreTheSavedFile() {
        const QByteArray before = saved("before.tree.xml");
        const ParametriDrevesa p0 = tree()->pdPrepared;
        w->ui.actionDesign_strand_distribution->trigger();
        w->ui.actionDesign_branching_angles->trigger();
        AdvancedTreeProperties* a = advanced();
        DistributionDesigner* strands = designer(0);
        DistributionDesigner* angles = designer(1);
        QVERIFY(strands && angles && a && a->isVisible());
        QSignalSpy repaint(handler(), &DesignHandler::forceRepaint);
        QTest::mouseClick(strands->graphG, Qt::LeftButton, {},
                          QPoint(strands->graphG->width() / 2, 20));
        drag(strands->graphW, 0, {0, 30});
        drag(angles->graphG, 1, {0, -40});
        QTest::keyClick(a->sliderTrinkHeight, Qt::Key_End);
        QCOMPARE(tree()->pdPrepared.verjetnostiVejitveG.tocke.size(), size_t(3));
        QVERIFY(!testparametri::enakeTabele(tree()->pdPrepared, p0));
        QCOMPARE(tree()->pdPrepared.dolzinaDebla, 10.0);
        QVERIFY(repaint.count() >= 4);
        for (QDialog* dialog : {static_cast<QDialog*>(strands), static_cast<QDialog*>(angles),
                                static_cast<QDialog*>(a)})
            QTest::keyClick(dialog, Qt::Key_Escape);
        QVERIFY(handler()->designers.isEmpty());
        QVERIFY(testparametri::enakeTabele(tree()->pdPrepared, p0));
        QCOMPARE(saved("after.tree.xml"), before);
    }

    // The orders or depths under the mouse are the tree's highlight while
    // "color levels" is on; closing the designer clears it.
    void hoverColoursTheSelectedTree() {
        w->ui.actionDesign_strand_distribution->trigger();
        DistributionDesigner* d = designer(0);
        QTest::mouseClick(d->colorLevels, Qt::LeftButton);
        const arbo::Pogled& pogled = tree()->pogled;
        mouseOver(d->graphG, QPoint(d->graphG->width() / 2, 10));
        QCOMPARE(QList<int>(
                     {pogled.barvajGMin, pogled.barvajGMax, pogled.barvajWMin, pogled.barvajWMax}),
                 QList<int>({7, 7, -1, -1}));
        mouseOver(d->graphW, QPoint(2, 10));
        QCOMPARE(QList<int>(
                     {pogled.barvajGMin, pogled.barvajGMax, pogled.barvajWMin, pogled.barvajWMax}),
                 QList<int>({-1, -1, 0, 0}));
        d->accept();
        QCOMPARE(QList<int>(
                     {pogled.barvajGMin, pogled.barvajGMax, pogled.barvajWMin, pogled.barvajWMax}),
                 QList<int>({-1, -1, -1, -1}));
    }

    // Switching the tree or replacing its parameters: the open dialogs take up
    // the selected tree as it is now, and Cancel returns to that.
    void dialogsFollowTheSelectedTree() {
        arbo::Arbo* first = tree();
        Krivulja& strands = first->pdPrepared.verjetnostiVejitveG;
        strands.tocke.insert(strands.tocke.begin() + 1, arbo::Tocka2D(0.5, 0.3));
        first->pdPrepared.recalculateRelativeParams();
        const QByteArray firstBefore = saved("first.tree.xml");
        w->ui.actionDesign_strand_distribution->trigger();
        DistributionDesigner* d = designer(0);
        AdvancedTreeProperties* a = advanced();
        w->ui.actionSelect_next_tree_parameters_tree_edit_mode->trigger();
        arbo::Arbo* second = tree();
        QVERIFY(second != first);
        const QByteArray secondBefore = saved("second.tree.xml");
        QCOMPARE(d->krivuljeG[0], &second->pdPrepared.verjetnostiVejitveG);
        QCOMPARE(a->parametri, &second->pdPrepared);
        QCOMPARE(d->graphG->points().size(),
                 qsizetype(second->pdPrepared.verjetnostiVejitveG.tocke.size()));
        drag(d->graphG, 0, {0, 25});
        QTest::keyClick(a->sliderLeafDensity, Qt::Key_End);
        QVERIFY(saved("second.tree.xml") != secondBefore);
        QTest::keyClick(d, Qt::Key_Escape);
        QTest::keyClick(a, Qt::Key_Escape);
        QCOMPARE(saved("second.tree.xml"), secondBefore);

        // A parameter file loaded into the selected tree.
        w->ui.actionDesign_strand_distribution->trigger();
        d = designer(0);
        QVERIFY(tree()->pdPrepared.loadParameters("first.tree.xml"));
        emit scene()->selectedTreeReplaced();
        QCOMPARE(d->graphG->points().size(),
                 qsizetype(tree()->pdPrepared.verjetnostiVejitveG.tocke.size()));
        drag(d->graphG, 0, {0, 25});
        QTest::keyClick(d, Qt::Key_Escape);
        QCOMPARE(saved("second.tree.xml"), firstBefore);
        second->pdPrepared.loadParameters("second.tree.xml");
    }

    // Leaving the tree-edit mode closes the dialogs and keeps their edits.
    void leavingTreeEditModeClosesTheDialogs() {
        const QByteArray before = saved("before.tree.xml");
        w->ui.actionDesign_branch_lenght_scaling->trigger();
        QPointer<DistributionDesigner> d = designer(4);
        QPointer<AdvancedTreeProperties> a = advanced();
        drag(d->graphG, 0, {0, -30});
        w->ui.actionShow_ecosystem->trigger();
        QVERIFY(!scene()->isSingleRender());
        QVERIFY(!d || !d->isVisible());
        QVERIFY(!a || !a->isVisible());
        QVERIFY(saved("after.tree.xml") != before);
        w->ui.actionShow_ecosystem->trigger();
        QVERIFY(scene()->isSingleRender());
    }

    // Each finished drag, typed value or Apply is one step; Ctrl+Z in a
    // dialog and the Edit menu's entries step back and forth, the dialogs
    // showing the values they step to.
    void undoAndRedoStepThroughDesignEdits() {
        const QByteArray s0 = saved("s0.tree.xml");
        w->ui.actionDesign_strand_distribution->trigger();
        DistributionDesigner* d = designer(0);
        drag(d->graphG, 1, {0, -20});
        const QByteArray s1 = saved("s1.tree.xml");
        AdvancedTreeProperties* a = advanced();
        type(a->editTrinkHeight, "7");
        const QByteArray s2 = saved("s2.tree.xml");
        QVERIFY(s0 != s1 && s1 != s2);

        // The keys reach the dialog's undo and redo while a spin box has the
        // focus, as it has after typing (its line edit would take them).
        a->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(a));
        a->editTrinkHeight->setFocus();
        QCOMPARE(QApplication::focusWidget(), a->editTrinkHeight);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(saved("now.tree.xml"), s1);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z,
                        Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(saved("now.tree.xml"), s2);

        d->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(d));
        QTest::keyClick(d, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(saved("now.tree.xml"), s1);
        QCOMPARE(a->editTrinkHeight->value(), 5.0);
        w->ui.actionUndo_design_edit->trigger();
        QCOMPARE(saved("now.tree.xml"), s0);
        QCOMPARE(d->graphG->points()[1].y(), (1 - 0.8) * d->graphG->height());
        QTest::keyClick(d, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(saved("now.tree.xml"), s1);
        w->ui.actionRedo_design_edit->trigger();
        QCOMPARE(saved("now.tree.xml"), s2);
        QCOMPARE(a->editTrinkHeight->value(), 7.0);
        // Cancel after the steps still returns to what the dialogs opened on.
        QTest::keyClick(d, Qt::Key_Escape);
        QTest::keyClick(a, Qt::Key_Escape);
        QCOMPARE(saved("now.tree.xml"), s0);
    }
};

int main(int argc, char** argv) {
    gui::requestGlFormat();
    QApplication app(argc, argv);
    TestDesignHandler test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_designhandler.moc"
