#pragma once

// Comparing rendered frames: how many pixels differ, where, and by how much.

#include <QImage>
#include <QRect>

#include <cstdlib>

namespace imagecompare {

// Pixels of a whose colour differs from the same pixel of b (a and b of one
// size); with a tolerance, by more than that in some channel.
inline int differingPixels(const QImage& a, const QImage& b, int tolerance = 0) {
    int n = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            n += std::abs(qRed(p) - qRed(q)) > tolerance ||
                 std::abs(qGreen(p) - qGreen(q)) > tolerance ||
                 std::abs(qBlue(p) - qBlue(q)) > tolerance ||
                 std::abs(qAlpha(p) - qAlpha(q)) > tolerance;
        }
    return n;
}

// Pixels of the image that are not of the given (background) colour.
inline int pixelsOtherThan(const QImage& a, QRgb background) {
    int n = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            n += a.pixel(x, y) != background;
    return n;
}

// The smallest rectangle holding every differing pixel (empty when none differ).
inline QRect differingArea(const QImage& a, const QImage& b) {
    QRect area;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y))
                area |= QRect(x, y, 1, 1);
    return area;
}

// Mean absolute difference per colour channel (red, green, blue), 0 to 255.
inline double meanAbsoluteDifference(const QImage& a, const QImage& b) {
    double sum = 0.0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) +
                   std::abs(qBlue(p) - qBlue(q));
        }
    return sum / (3.0 * a.width() * a.height());
}

} // namespace imagecompare
