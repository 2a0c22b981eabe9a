#include "arbo/usermessage.h"

#include <iostream>

namespace arbo {

namespace {
UserMessageHandler& handler() {
    static UserMessageHandler h;
    return h;
}
} // namespace

void setUserMessageHandler(UserMessageHandler h) {
    handler() = std::move(h);
}

void showUserMessage(const std::string& title, const std::string& text) {
    if (handler())
        handler()(title, text);
    else
        std::cerr << title << ": " << text << std::endl;
}

} // namespace arbo
