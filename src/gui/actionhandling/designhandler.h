#pragma once

#include "gui/design/designhistory.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <vector>

class QAction;
class QWidget;

namespace arbo {
class Arbo;
class Krivulja;
} // namespace arbo

namespace ecosystem::render {
class EcosystemRender;
}

namespace gui {
class AdvancedTreeProperties;
class DistributionDesigner;
} // namespace gui

namespace gui::actionhandling {

// The tree design commands: six distribution designers (one pair of curves
// each), the advanced tree properties, and undo and redo over every design
// edit of a tree. The dialogs do not block and several can be open at once;
// they edit the scene's selected tree and follow it when it is switched or its
// parameters are replaced, and close (keeping their edits) when the tree-edit
// mode is left.
class DesignHandler : public QObject {
    Q_OBJECT
public:
    DesignHandler(QObject* parent, QWidget* parentWindow,
                  ecosystem::render::EcosystemRender* model);

    QWidget* parentWindow;
    ecosystem::render::EcosystemRender* model;
    // Actions the dialogs share with the main window, so that their shortcuts
    // (undo and redo) work while a dialog has the focus too.
    QList<QAction*> dialogActions;
    QList<QPointer<DistributionDesigner>> designers;
    QPointer<AdvancedTreeProperties> advancedTreeProperties;
    DesignHistory history;

signals:
    void forceRepaint();

public slots:
    void actionDesign_strand_distribution();
    void actionDesign_branching_angles();
    void actionDesign_branch_absolute_minimal_length();
    void actionDesign_branch_absolute_maximal_length();
    void actionDesign_branch_lenght_scaling();
    void actionDesign_gravimorphism_impact_distribution();
    void actionAdvanced_tree_properties();
    void actionUndo_design_edit();
    void actionRedo_design_edit();

    void createDesigner(const std::vector<int>& ids, const std::vector<arbo::Krivulja*>& krivuljeG,
                        const std::vector<arbo::Krivulja*>& krivuljeW, const QString** labelsG,
                        const QString** labelsW, const QString& title);
    void updateKrivulja(const std::vector<int>& ids, const std::vector<arbo::Krivulja*>& krivuljeG,
                        const std::vector<arbo::Krivulja*>& krivuljeW);
    void applyHoverGChanged(int lo, int hi);
    void applyHoverWChanged(int lo, int hi);
    // Records the selected tree's design as one undo step when it changed.
    void commitDesignEdit();
    // The scene replaced its selected tree (or left the tree-edit mode).
    void takeUpSelectedTree();

private:
    arbo::Arbo* tree() const;
    void openDesigner(int id);
    void designerClosed();
    void stepHistory(bool (DesignHistory::*step)(arbo::Arbo*));
    void clearHover();
    void raise(QWidget* dialog);

    arbo::Arbo* editedTree = nullptr;
    bool treeEditMode = false;
};

} // namespace gui::actionhandling
