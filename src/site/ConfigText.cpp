// SPDX-License-Identifier: Apache-2.0
#include "ConfigText.h"

#include <nlohmann/json.hpp>

namespace Site {
namespace {

// Reported text is kept byte for byte, even where it is not UTF-8.
std::string dump(const nlohmann::json& json)
{
    return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace

std::string configText(const Vorn::Config& config)
{
    nlohmann::json object = nlohmann::json::object();
    for (const auto& [key, value] : config)
        object[key] = value;
    return dump(object);
}

Vorn::Config configFromText(const std::string& text)
{
    Vorn::Config config;
    const auto json = nlohmann::json::parse(text, nullptr, false);
    if (!json.is_object())
        return config;
    for (const auto& [key, value] : json.items()) {
        if (value.is_string())
            config.emplace(key, value.get<std::string>());
    }
    return config;
}

std::string keyListText(const std::vector<std::string>& keys)
{
    return dump(nlohmann::json(keys));
}

std::vector<std::string> keyListFromText(const std::string& text)
{
    std::vector<std::string> keys;
    const auto json = nlohmann::json::parse(text, nullptr, false);
    if (!json.is_array())
        return keys;
    for (const auto& key : json) {
        if (key.is_string())
            keys.push_back(key.get<std::string>());
    }
    return keys;
}

}  // namespace Site
