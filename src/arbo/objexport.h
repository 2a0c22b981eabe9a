#pragma once

#include <QCoreApplication>
#include <QString>

class QImage;

namespace arbo {

class Arbo;

// The tree as a Wavefront OBJ file for 3-D packages: one object of bark and one
// of leaves, triangles with positions, normals and texture coordinates in the
// tree's own coordinates (metres, y up), a material library naming the two
// texture images, and those images written beside it as PNG files.
// "tree.obj" comes with "tree.mtl", "tree_bark.png" and "tree_leaf.png".
class ObjExport {
    Q_DECLARE_TR_FUNCTIONS(ObjExport)
public:
    // Grows the tree as its next frame would draw it (at full detail, surfaces
    // also in wire-frame mode) without advancing its animation, and writes the
    // four files. When one of them cannot be written none is changed, and the
    // reason is returned in `error`.
    static bool write(Arbo& tree, const QString& fileName, const QImage& bark, const QImage& leaf,
                      QString& error);
};

} // namespace arbo
