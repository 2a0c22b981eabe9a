#pragma once

// Records what would have been shown to the user while it lives, in place of
// the information boxes the program installs.

#include "arbo/usermessage.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

class MessageCatcher {
public:
    std::vector<std::pair<std::string, std::string>> messages;
    // Runs while a message is shown, as a modal box's own event loop would.
    std::function<void()> whileShown;

    MessageCatcher() {
        arbo::setUserMessageHandler([this](const std::string& title, const std::string& text) {
            messages.emplace_back(title, text);
            if (whileShown)
                whileShown();
        });
    }
    ~MessageCatcher() { arbo::setUserMessageHandler(nullptr); }
    MessageCatcher(const MessageCatcher&) = delete;
    MessageCatcher& operator=(const MessageCatcher&) = delete;

    // "title: text" of every message, in order.
    std::vector<std::string> lines() const {
        std::vector<std::string> out;
        for (const auto& [title, text] : messages)
            out.push_back(title + ": " + text);
        return out;
    }
};
