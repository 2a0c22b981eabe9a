#include "gui/glformat.h"

#include <QCoreApplication>
#include <QSurfaceFormat>

namespace gui {

void requestGlFormat() {
    QSurfaceFormat format;
    // 3.0+ without deprecated functions would give a core context: ask for 2.1.
    format.setVersion(2, 1);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setDepthBufferSize(24);
    format.setStencilBufferSize(8);
    QSurfaceFormat::setDefaultFormat(format);
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
}

} // namespace gui
