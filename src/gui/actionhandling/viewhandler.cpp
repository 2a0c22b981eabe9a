#include "gui/actionhandling/viewhandler.h"

#include "ecosystem/render/ecosystemrender.h"

namespace gui::actionhandling {

ViewHandler::ViewHandler(QObject* parent, ecosystem::render::EcosystemRender* model)
    : QObject(parent), model(model) {}

void ViewHandler::actionShow_ecosystem() {
    model->toggleSingleRender();
    emit forceRepaint();
}

} // namespace gui::actionhandling
