#pragma once

#include <QImage>

namespace arbo {

// Replaces the GL widget's bind/delete-texture helpers: uploads an image as a
// mipmapped RGBA8 2-D texture in the current context and returns its name.
class GlTexture {
public:
    static unsigned int bind(const QImage& image);
    static void release(unsigned int name);
};

} // namespace arbo
