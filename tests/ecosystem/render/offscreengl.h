#pragma once

// A current OpenGL 2.1 compatibility context on an off-screen surface with a
// framebuffer object to draw into and OpenGL's default state, for the render
// tests (run under Xvfb).

#include "arbo/glokolje.h"

class OffscreenGl : public GlOkolje {
public:
    bool create(int width = 64, int height = 64) { return ustvariKontekst(width, height); }
};
