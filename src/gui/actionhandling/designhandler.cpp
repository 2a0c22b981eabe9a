#include "gui/actionhandling/designhandler.h"

#include "arbo/arbo.h"
#include "ecosystem/render/ecosystemrender.h"
#include "gui/design/distributiondesigner.h"
#include "gui/dialogs/advancedtreeproperties.h"

#include <utility>

namespace gui::actionhandling {

namespace {

// One design command: its value labels over the order (bottom to top) and its
// title suffix. The depth graph is 0% ... 200% for every command.
struct DesignCommand {
    const char* labelsG[5];
    const char* title;
};

const DesignCommand commands[6] = {
    {{"50%", "62,5%", "75%", "87,5%", "100%"},
     QT_TRANSLATE_NOOP("gui::actionhandling::DesignHandler", " for strand distribution")},
    {{"0°", "45°", "90°", "135°", "180°"},
     QT_TRANSLATE_NOOP("gui::actionhandling::DesignHandler", " for branching angles distribution")},
    {{"0%", "250%", "500%", "750%", "1000%"},
     QT_TRANSLATE_NOOP("gui::actionhandling::DesignHandler",
                       " for minimal absolute branch lengths distribution")},
    {{"0%", "250%", "500%", "750%", "1000%"},
     QT_TRANSLATE_NOOP("gui::actionhandling::DesignHandler",
                       " for maximal absolute branch lengths distribution")},
    {{"0%", "250%", "500%", "750%", "1000%"},
     QT_TRANSLATE_NOOP("gui::actionhandling::DesignHandler",
                       " for branch lengths scaling distribution")},
    {{"-180°", "-90°", "0°", "90°", "180°"},
     QT_TRANSLATE_NOOP("gui::actionhandling::DesignHandler",
                       " for gravimorphism impact distribution")}};

const char* const labelsW[5] = {"0%", "50%", "100%", "150%", "200%"};

// The pair of curves (over the order, over the depth) behind table id.
std::pair<arbo::Krivulja*, arbo::Krivulja*> curvesOf(arbo::ParametriDrevesa& p, int id) {
    switch (id) {
    case 0:
        return {&p.verjetnostiVejitveG, &p.verjetnostiVejitveW};
    case 1:
        return {&p.kotVejitveG, &p.kotVejitveW};
    case 2:
        return {&p.minCharacteristicLengthG, &p.minCharacteristicLengthW};
    case 3:
        return {&p.maxCharacteristicLengthG, &p.maxCharacteristicLengthW};
    case 4:
        return {&p.lengthScalingG, &p.lengthScalingW};
    default:
        return {&p.gravimorphismImpactG, &p.gravimorphismImpactW};
    }
}

} // namespace

DesignHandler::DesignHandler(QObject* parent, QWidget* parentWindow,
                             ecosystem::render::EcosystemRender* model)
    : QObject(parent), parentWindow(parentWindow), model(model) {
    connect(model, &ecosystem::render::EcosystemRender::selectedTreeReplaced, this,
            &DesignHandler::takeUpSelectedTree);
    editedTree = tree();
    treeEditMode = model->isSingleRender();
}

arbo::Arbo* DesignHandler::tree() const {
    return model->getIzbranoArbo();
}

void DesignHandler::actionDesign_strand_distribution() {
    openDesigner(0);
}
void DesignHandler::actionDesign_branching_angles() {
    openDesigner(1);
}
void DesignHandler::actionDesign_branch_absolute_minimal_length() {
    openDesigner(2);
}
void DesignHandler::actionDesign_branch_absolute_maximal_length() {
    openDesigner(3);
}
void DesignHandler::actionDesign_branch_lenght_scaling() {
    openDesigner(4);
}
void DesignHandler::actionDesign_gravimorphism_impact_distribution() {
    openDesigner(5);
}

void DesignHandler::raise(QWidget* dialog) {
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

// A command whose designer is open already brings it to the front: two
// designers of the same curves would overwrite each other's edits.
void DesignHandler::openDesigner(int id) {
    for (DistributionDesigner* d : std::as_const(designers))
        if (d && d->isVisible() && d->ids == std::vector<int>{id}) {
            raise(d);
            return;
        }
    const auto [g, w] = curvesOf(tree()->pdPrepared, id);
    QString textsG[5], textsW[5];
    const QString* pointersG[5];
    const QString* pointersW[5];
    for (int i = 0; i < 5; ++i) {
        textsG[i] = QString::fromUtf8(commands[id].labelsG[i]);
        textsW[i] = QString::fromUtf8(labelsW[i]);
        pointersG[i] = &textsG[i];
        pointersW[i] = &textsW[i];
    }
    createDesigner({id}, {g}, {w}, pointersG, pointersW, tr(commands[id].title));
}

void DesignHandler::createDesigner(const std::vector<int>& ids,
                                   const std::vector<arbo::Krivulja*>& krivuljeG,
                                   const std::vector<arbo::Krivulja*>& krivuljeW,
                                   const QString** labelsG, const QString** labelsW,
                                   const QString& title) {
    // What the tree was before this designer is a step of its own.
    commitDesignEdit();
    auto* d =
        new DistributionDesigner(parentWindow, ids, krivuljeG, krivuljeW, labelsG, labelsW, title);
    d->setAttribute(Qt::WA_DeleteOnClose);
    d->addActions(dialogActions);
    d->show();
    d->setKrivulje();
    connect(d, &DistributionDesigner::pointsUpdated, this, &DesignHandler::updateKrivulja);
    connect(d, &DistributionDesigner::hoverGChanged, this, &DesignHandler::applyHoverGChanged);
    connect(d, &DistributionDesigner::hoverWChanged, this, &DesignHandler::applyHoverWChanged);
    connect(d, &DistributionDesigner::designEditFinished, this, &DesignHandler::commitDesignEdit);
    // Cancel's restore (on rejected) has run when finished comes.
    connect(d, &QDialog::finished, this, &DesignHandler::designerClosed);
    designers << d;
}

// A closed dialog is hidden at once and deleted a little later.
void DesignHandler::designerClosed() {
    designers.removeIf(
        [](const QPointer<DistributionDesigner>& d) { return !d || !d->isVisible(); });
    clearHover();
    commitDesignEdit();
    emit forceRepaint();
}

void DesignHandler::updateKrivulja(const std::vector<int>& ids,
                                   const std::vector<arbo::Krivulja*>& krivuljeG,
                                   const std::vector<arbo::Krivulja*>& krivuljeW) {
    arbo::ParametriDrevesa& p = tree()->pdPrepared;
    for (size_t i = 0; i < ids.size(); ++i) {
        const auto [g, w] = curvesOf(p, ids[i]);
        *g = *krivuljeG[i];
        *w = *krivuljeW[i];
        delete krivuljeG[i];
        delete krivuljeW[i];
        p.preracunajParametra(ids[i]);
    }
    emit forceRepaint();
}

void DesignHandler::applyHoverGChanged(int lo, int hi) {
    arbo::Pogled& pogled = tree()->pogled;
    pogled.barvajGMin = lo;
    pogled.barvajGMax = hi;
    pogled.barvajWMin = -1;
    pogled.barvajWMax = -1;
    emit forceRepaint();
}

void DesignHandler::applyHoverWChanged(int lo, int hi) {
    arbo::Pogled& pogled = tree()->pogled;
    pogled.barvajWMin = lo;
    pogled.barvajWMax = hi;
    pogled.barvajGMin = -1;
    pogled.barvajGMax = -1;
    emit forceRepaint();
}

// No tree keeps a highlight once nothing points at it.
void DesignHandler::clearHover() {
    for (arbo::Arbo* t : model->izglediDrevesnihVrst) {
        t->pogled.barvajGMin = t->pogled.barvajGMax = -1;
        t->pogled.barvajWMin = t->pogled.barvajWMax = -1;
    }
}

void DesignHandler::actionAdvanced_tree_properties() {
    if (advancedTreeProperties && advancedTreeProperties->isVisible()) {
        raise(advancedTreeProperties);
        return;
    }
    commitDesignEdit();
    auto* dialog = new AdvancedTreeProperties(parentWindow, tree());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->addActions(dialogActions);
    connect(dialog, &AdvancedTreeProperties::forceRefresh, this, &DesignHandler::forceRepaint);
    connect(dialog, &AdvancedTreeProperties::designEditFinished, this,
            &DesignHandler::commitDesignEdit);
    // Cancel restores without a repaint of its own; the closed dialog's values show at once.
    connect(dialog, &QDialog::finished, this, &DesignHandler::designerClosed);
    advancedTreeProperties = dialog;
    dialog->show();
}

void DesignHandler::commitDesignEdit() {
    history.commit(tree());
}

void DesignHandler::actionUndo_design_edit() {
    stepHistory(&DesignHistory::undo);
}

void DesignHandler::actionRedo_design_edit() {
    stepHistory(&DesignHistory::redo);
}

// The open dialogs show the tree's values again; what their Cancel restores
// stays as it was.
void DesignHandler::stepHistory(bool (DesignHistory::*step)(arbo::Arbo*)) {
    if (!(history.*step)(tree()))
        return;
    for (DistributionDesigner* d : std::as_const(designers))
        if (d)
            d->setKrivulje();
    if (advancedTreeProperties)
        advancedTreeProperties->loadControls();
    emit forceRepaint();
}

// Leaving the tree-edit mode closes the dialogs as OK would; otherwise they take
// up the selected tree as it is now (another tree, or new parameters).
void DesignHandler::takeUpSelectedTree() {
    if (editedTree)
        history.commit(editedTree);
    const bool leaving = treeEditMode && !model->isSingleRender();
    treeEditMode = model->isSingleRender();
    editedTree = tree();
    clearHover();
    // Closing a designer takes it off the list: walk a copy.
    const QList<QPointer<DistributionDesigner>> open = designers;
    for (DistributionDesigner* d : open) {
        if (!d || !d->isVisible())
            continue;
        if (leaving) {
            d->accept();
            continue;
        }
        std::vector<arbo::Krivulja*> g, w;
        for (int id : d->ids) {
            const auto [kg, kw] = curvesOf(tree()->pdPrepared, id);
            g.push_back(kg);
            w.push_back(kw);
        }
        d->takeKrivulje(g, w);
    }
    if (advancedTreeProperties && advancedTreeProperties->isVisible()) {
        if (leaving)
            advancedTreeProperties->accept();
        else
            advancedTreeProperties->takeTree(tree());
    }
    history.commit(tree());
    emit forceRepaint();
}

} // namespace gui::actionhandling
