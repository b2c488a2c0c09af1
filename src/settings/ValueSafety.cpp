// SPDX-License-Identifier: Apache-2.0
#include "ValueSafety.h"

#include "SettingKeys.h"

namespace Settings {
namespace {

// The name of the first line-breaking character in `text`, or nothing.
std::optional<Message> lineBreakIn(std::string_view text)
{
    for (const char c : text) {
        if (c == '\n')
            return SETTINGS_TEXT("ValueSafety", "a line feed (LF)");
        if (c == '\r')
            return SETTINGS_TEXT("ValueSafety", "a carriage return (CR)");
        if (c == '\0')
            return SETTINGS_TEXT("ValueSafety", "a NUL character");
    }
    return std::nullopt;
}

// The key as a message may show it: control characters escaped.
std::string shown(std::string_view key)
{
    std::string text;
    for (const char c : key) {
        if (c == '\n')
            text += "\\n";
        else if (c == '\r')
            text += "\\r";
        else if (c == '\0')
            text += "\\0";
        else
            text += c;
    }
    return text;
}

}  // namespace

std::optional<Message> keyRefusal(std::string_view key)
{
    if (key.empty())
        return SETTINGS_TEXT("ValueSafety", "a key is empty");
    if (key.find(':') != std::string_view::npos)
        return Message(SETTINGS_TEXT("ValueSafety", "key \"%1\" holds a colon (:)"), {Message::plain(shown(key))});
    if (auto what = lineBreakIn(key))
        return Message(SETTINGS_TEXT("ValueSafety", "key \"%1\" holds %2"), {Message::plain(shown(key)), std::move(*what)});
    return std::nullopt;
}

std::optional<Message> valueRefusal(std::string_view key, std::string_view value)
{
    if (auto what = lineBreakIn(value))
        return Message(SETTINGS_TEXT("ValueSafety", "the value of %1 holds %2"), {Message::plain(shown(key)), std::move(*what)});
    return std::nullopt;
}

std::optional<Message> configRefusal(const Vorn::Config& config)
{
    for (const auto& [key, value] : config) {
        if (auto refused = keyRefusal(key))
            return refused;
        if (auto refused = valueRefusal(key, value))
            return refused;
    }
    return std::nullopt;
}

std::optional<Message> writeRefusal(const Vorn::Config& changes, const Vorn::Config& full)
{
    for (const auto& entry : changes) {
        if (auto refused = keyRefusal(entry.first))
            return refused;
    }
    for (const auto key : SettingKeys::kWriteKeys) {
        const auto found = full.find(key);
        if (found == full.end())
            continue;
        if (auto refused = valueRefusal(key, found->second))
            return refused;
    }
    return std::nullopt;
}

}  // namespace Settings
