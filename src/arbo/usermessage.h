#pragma once

#include <functional>
#include <string>

namespace arbo {

// The one way for code below the user interface to tell the user something
// (a missing file, a driver warning). The GUI installs a handler that shows an
// information box with the title and text; tests install one that records them.
// Without a handler the message goes to standard error.
using UserMessageHandler = std::function<void(const std::string& title, const std::string& text)>;

void setUserMessageHandler(UserMessageHandler handler);
void showUserMessage(const std::string& title, const std::string& text);

} // namespace arbo
