#pragma once

#include <QElapsedTimer>

#include <string>

namespace ecosystem::render {

// Counts drawn frames; once more than a second of frame time has gathered it
// yields the rate (1000 / milliseconds * frames) and starts counting again.
class FrameRate {
public:
    // Call once per frame; returns the rate when a second is full, else 0.
    float frame();
    // Adds one frame that took the given milliseconds; same result as frame().
    float addFrame(qint64 milliseconds);
    // The standard output line: the number directly followed by "fps".
    static std::string line(float fps);

    qint64 msSum = 0;
    int frames = 0;

private:
    QElapsedTimer timer;
};

} // namespace ecosystem::render
