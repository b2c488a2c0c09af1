// SPDX-License-Identifier: Apache-2.0
#include "ValueSafety.h"

#include "SettingKeys.h"

namespace Settings {
namespace {

// The name of the first line-breaking character in `text`, or nothing.
std::optional<std::string_view> lineBreakIn(std::string_view text)
{
    for (const char c : text) {
        if (c == '\n')
            return "a line feed (LF)";
        if (c == '\r')
            return "a carriage return (CR)";
        if (c == '\0')
            return "a NUL character";
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

std::optional<std::string> keyRefusal(std::string_view key)
{
    if (key.empty())
        return std::string("a key is empty");
    if (key.find(':') != std::string_view::npos)
        return "key \"" + shown(key) + "\" holds a colon (:)";
    if (const auto what = lineBreakIn(key))
        return "key \"" + shown(key) + "\" holds " + std::string(*what);
    return std::nullopt;
}

std::optional<std::string> valueRefusal(std::string_view key, std::string_view value)
{
    if (const auto what = lineBreakIn(value))
        return "the value of " + shown(key) + " holds " + std::string(*what);
    return std::nullopt;
}

std::optional<std::string> configRefusal(const Vorn::Config& config)
{
    for (const auto& [key, value] : config) {
        if (auto refused = keyRefusal(key))
            return refused;
        if (auto refused = valueRefusal(key, value))
            return refused;
    }
    return std::nullopt;
}

std::optional<std::string> writeRefusal(const Vorn::Config& changes, const Vorn::Config& full)
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
