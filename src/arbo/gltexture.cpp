#include "arbo/gltexture.h"

#include <GL/gl.h>
#include <GL/glu.h>

namespace arbo {

unsigned int GlTexture::bind(const QImage& image) {
    if (image.isNull())
        return 0;
    // GL's rows run bottom-up.
    const QImage rgba = image.convertToFormat(QImage::Format_RGBA8888).mirrored();
    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    gluBuild2DMipmaps(GL_TEXTURE_2D, GL_RGBA8, rgba.width(), rgba.height(), GL_RGBA,
                      GL_UNSIGNED_BYTE, rgba.constBits());
    return name;
}

void GlTexture::release(unsigned int name) {
    if (name != 0)
        glDeleteTextures(1, &name);
}

} // namespace arbo
