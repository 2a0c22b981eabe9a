#pragma once

namespace gui {

// Asks for the GL context every view needs: fixed-function OpenGL in a 2.1
// compatibility context with depth and stencil, shared between views so that
// every view sees the scene's textures. Call before the application object.
void requestGlFormat();

} // namespace gui
