#pragma once

#include <QElapsedTimer>
#include <QString>

namespace simrunner {

// One line of progress on standard error, redrawn in place, shown only when
// standard error is a terminal (a log file gets none of it). When standard
// output goes to the same terminal, its lines scroll above the progress line.
class ProgressLine {
public:
    ProgressLine();

    bool active;           // standard error is a terminal
    bool outputIsTerminal; // standard output is one too

    // Draws text at most ten times a second, or now when forced.
    void show(const QString& text, bool force = false);
    // Takes the line away, before other output reaches the terminal.
    void clear();

private:
    QElapsedTimer sinceDrawn;
    bool drawn = false;
};

} // namespace simrunner
