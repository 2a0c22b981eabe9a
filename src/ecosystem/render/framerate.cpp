#include "ecosystem/render/framerate.h"

#include <sstream>

namespace ecosystem::render {

float FrameRate::frame() {
    if (!timer.isValid()) {
        timer.start();
        return addFrame(0);
    }
    return addFrame(timer.restart());
}

float FrameRate::addFrame(qint64 milliseconds) {
    msSum += milliseconds;
    ++frames;
    if (msSum <= 1000)
        return 0;
    const float fps = 1000.0f / float(msSum) * float(frames);
    msSum = 0;
    frames = 0;
    return fps;
}

std::string FrameRate::line(float fps) {
    std::ostringstream out;
    out << fps << "fps";
    return out.str();
}

} // namespace ecosystem::render
