#pragma once

#include <QObject>

namespace ecosystem::render {
class EcosystemRender;
}

namespace gui::actionhandling {

// Carries out the display switches of the View menu: each flips one flag of
// the scene or of the selected tree, then asks every view to repaint.
class ViewHandler : public QObject {
    Q_OBJECT
public:
    ViewHandler(QObject* parent, ecosystem::render::EcosystemRender* model);

    ecosystem::render::EcosystemRender* model;

signals:
    void forceRepaint();

public slots:
    void actionShow_ecosystem();
};

} // namespace gui::actionhandling
