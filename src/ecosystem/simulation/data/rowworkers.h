#pragma once

#include <functional>
#include <string>

namespace ecosystem::data {

// Number of threads that share the rows of a layer: one per processor core
// this process may use, or the number in the environment variable
// VIRELA_THREADS (1 gives the single-thread run to compare against).
int layerThreadCount();

// Calls rowWork(y) once for every row y from 0 to nrRows - 1, spread over
// layerThreadCount() threads; the calling thread works too and reports the
// rows done as task. rowWork must read only what no row writes and write only
// its own row's entries: then the result is bit for bit that of one thread.
// Grids under minVertices vertices stay on the calling thread (starting
// threads would cost more than the work).
void forEachRow(int nrRows, int nrColumns, const std::string& task,
                const std::function<void(int row)>& rowWork);

} // namespace ecosystem::data
