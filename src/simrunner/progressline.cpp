#include "simrunner/progressline.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>

namespace simrunner {

namespace {

// A line longer than the terminal wraps, and a carriage return no longer
// reaches its start.
int terminalColumns() {
    winsize size{};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1)
        return size.ws_col;
    return 80;
}

} // namespace

ProgressLine::ProgressLine()
    : active(isatty(STDERR_FILENO) == 1), outputIsTerminal(isatty(STDOUT_FILENO) == 1) {}

void ProgressLine::show(const QString& text, bool force) {
    if (!active)
        return;
    if (drawn && !force && sinceDrawn.isValid() && sinceDrawn.elapsed() < 100)
        return;
    const QString line = text.left(terminalColumns() - 1);
    std::fprintf(stderr, "\r\033[K%s", line.toLocal8Bit().constData());
    std::fflush(stderr);
    drawn = true;
    sinceDrawn.start();
}

void ProgressLine::clear() {
    if (!active || !drawn)
        return;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    drawn = false;
}

} // namespace simrunner
