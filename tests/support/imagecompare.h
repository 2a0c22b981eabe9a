#pragma once

// Comparing rendered frames: how many pixels differ, where, and by how much.

#include <QImage>
#include <QRect>

#include <cstdlib>

namespace imagecompare {

// A grabbed frame as the window shows it: its colour channels as drawn, opaque.
// (A frame buffer image comes premultiplied, and blending leaves its alpha
// below 1 where leaves are: saved as is, those pixels would be brightened.)
inline QImage asShown(const QImage& a) {
    QImage shown(a.size(), QImage::Format_RGB32);
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            shown.setPixel(x, y, qRgb(qRed(p), qGreen(p), qBlue(p)));
        }
    return shown;
}

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

// Mean absolute difference per colour channel (red, green, blue), 0 to 255;
// with block > 1, of the images' block x block averages (how alike they look
// from a little farther away).
inline double meanAbsoluteDifference(const QImage& a, const QImage& b, int block = 1) {
    double sum = 0.0;
    int n = 0;
    for (int y0 = 0; y0 + block <= a.height(); y0 += block)
        for (int x0 = 0; x0 + block <= a.width(); x0 += block) {
            int d[3] = {0, 0, 0};
            for (int y = y0; y < y0 + block; ++y)
                for (int x = x0; x < x0 + block; ++x) {
                    const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
                    d[0] += qRed(p) - qRed(q);
                    d[1] += qGreen(p) - qGreen(q);
                    d[2] += qBlue(p) - qBlue(q);
                }
            sum += double(std::abs(d[0]) + std::abs(d[1]) + std::abs(d[2])) / (block * block);
            n += 3;
        }
    return n ? sum / n : 0.0;
}

} // namespace imagecompare
