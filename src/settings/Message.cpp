// SPDX-License-Identifier: Apache-2.0
#include "Message.h"

#include <utility>

namespace Settings {

Message::Message(MessageText text, std::vector<Message> args)
    : context(text.context), text(text.text), args(std::move(args))
{
}

Message Message::plain(std::string text)
{
    Message message(MessageText{"", ""});
    message.text = std::move(text);
    message.isPlain = true;
    return message;
}

std::string render(const Message& message, const TemplateLookup& lookup)
{
    if (message.isPlain)
        return message.text;
    const std::string pattern = lookup(message.context, message.text);
    std::string result;
    result.reserve(pattern.size());
    // One pass, so that an argument holding "%2" stays as it is.
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const char next = at + 1 < pattern.size() ? pattern[at + 1] : '\0';
        if (pattern[at] == '%' && next >= '1' && next <= '9') {
            const auto index = static_cast<std::size_t>(next - '1');
            if (index < message.args.size()) {
                result += render(message.args[index], lookup);
                ++at;
                continue;
            }
        }
        result += pattern[at];
    }
    return result;
}

std::string english(const Message& message)
{
    return render(message, [](const std::string&, const std::string& text) { return text; });
}

}  // namespace Settings
