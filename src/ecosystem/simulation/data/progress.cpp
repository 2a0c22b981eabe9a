#include "ecosystem/simulation/data/progress.h"

namespace ecosystem::data {

namespace {
ProgressHandler& handler() {
    static ProgressHandler h;
    return h;
}
} // namespace

void setProgressHandler(ProgressHandler h) {
    handler() = std::move(h);
}

void reportProgress(const std::string& task, int done, int total) {
    if (handler())
        handler()(task, done, total);
}

} // namespace ecosystem::data
