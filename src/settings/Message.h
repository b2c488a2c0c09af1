// SPDX-License-Identifier: Apache-2.0
// A message for the user: an English template with %1..%9 and its arguments,
// each plain text or a message of its own. The command line prints it in
// English; the window translates each template by its context first.
#pragma once

#include <functional>
#include <string>
#include <vector>

// Marks a message template for the window's translation tools, which read
// it as QT_TRANSLATE_NOOP(context, text); here it is the text unchanged.
#define SETTINGS_TEXT(context, text) ::Settings::MessageText{context, text}

namespace Settings {

struct MessageText {
    const char* context;
    const char* text;
};

struct Message {
    Message(MessageText text, std::vector<Message> args = {});
    // An argument shown as it is: a key, a value, a path, a number.
    static Message plain(std::string text);

    std::string context;
    std::string text;  // the template, or the plain text
    bool isPlain = false;
    std::vector<Message> args;

    bool operator==(const Message&) const = default;
};

// Returns the template to fill for (context, text): a translation, or the text itself.
using TemplateLookup = std::function<std::string(const std::string& context, const std::string& text)>;

// The message with each %N replaced by its Nth argument, rendered the same way.
std::string render(const Message& message, const TemplateLookup& lookup);
// The message in English, as the templates are written.
std::string english(const Message& message);

}  // namespace Settings
