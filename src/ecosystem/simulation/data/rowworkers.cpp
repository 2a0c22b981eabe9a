#include "ecosystem/simulation/data/rowworkers.h"

#include "ecosystem/simulation/data/progress.h"

#include <QByteArray>
#include <QtGlobal>

#ifdef __linux__
#include <sched.h>
#endif

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

namespace ecosystem::data {

namespace {
const int minVertices = 2000;
const int maxThreads = 256;

// The cores this process may run on: a batch job given two cores of a large
// machine (taskset, a scheduler's binding) gets two threads.
int coresOfThisProcess() {
#ifdef __linux__
    cpu_set_t cores;
    CPU_ZERO(&cores);
    if (sched_getaffinity(0, sizeof cores, &cores) == 0 && CPU_COUNT(&cores) > 0)
        return CPU_COUNT(&cores);
#endif
    return int(std::thread::hardware_concurrency());
}

} // namespace

int layerThreadCount() {
    bool ok = false;
    const int forced = qEnvironmentVariableIntValue("VIRELA_THREADS", &ok);
    if (ok && forced >= 1)
        return std::min(forced, maxThreads);
    return std::clamp(coresOfThisProcess(), 1, maxThreads);
}

void forEachRow(int nrRows, int nrColumns, const std::string& task,
                const std::function<void(int row)>& rowWork) {
    const long long vertices = (long long)nrRows * nrColumns;
    const int nrThreads =
        vertices < minVertices ? 1 : std::min(layerThreadCount(), std::max(nrRows, 1));
    // Rows are handed out one at a time: their cost varies (rays towards a
    // near edge are short), so fixed shares would leave threads idle.
    std::atomic<int> nextRow{0}, rowsDone{0};
    auto work = [&] {
        for (int y; (y = nextRow++) < nrRows;) {
            rowWork(y);
            ++rowsDone;
        }
    };
    // A thread that cannot be started leaves its rows to the others.
    std::vector<std::thread> helpers;
    try {
        for (int i = 1; i < nrThreads; ++i)
            helpers.emplace_back(work);
    } catch (const std::system_error&) {
    }
    reportProgress(task, 0, nrRows);
    for (int y; (y = nextRow++) < nrRows;) {
        rowWork(y);
        reportProgress(task, ++rowsDone, nrRows);
    }
    for (std::thread& helper : helpers)
        helper.join();
    reportProgress(task, nrRows, nrRows);
}

} // namespace ecosystem::data
