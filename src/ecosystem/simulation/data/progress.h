#pragma once

#include <functional>
#include <string>

namespace ecosystem::data {

// How far long terrain work has come (the layers of a large grid take
// seconds). A program that shows progress installs a handler, as it installs
// the one for arbo::showUserMessage; without one nothing is reported. The
// handler always runs on the thread that started the work, never on a helper.
using ProgressHandler = std::function<void(const std::string& task, int done, int total)>;

void setProgressHandler(ProgressHandler handler);
void reportProgress(const std::string& task, int done, int total);

} // namespace ecosystem::data
