// SPDX-License-Identifier: Apache-2.0
#include "VornConfig.h"

#include <algorithm>
#include <stdexcept>

namespace Vorn {
namespace {

bool keyBefore(const Config::value_type& entry, std::string_view key)
{
    return std::string_view(entry.first) < key;
}

}  // namespace

Config::Config(std::initializer_list<value_type> entries)
{
    entries_.reserve(entries.size());
    for (const auto& entry : entries)
        emplace(entry.first, entry.second);
}

Config Config::lastValueWins(std::vector<value_type> entries)
{
    const auto byKey = [](const value_type& a, const value_type& b) { return a.first < b.first; };
    // Units send their keys in one order; most reports need no sorting at all.
    if (!std::is_sorted(entries.begin(), entries.end(), byKey))
        std::stable_sort(entries.begin(), entries.end(), byKey);
    // Of each run of one key keep the last entry, which came last.
    auto kept = entries.begin();
    for (auto it = entries.begin(); it != entries.end(); ++it) {
        const auto next = std::next(it);
        if (next != entries.end() && next->first == it->first)
            continue;
        if (kept != it)
            *kept = std::move(*it);
        ++kept;
    }
    entries.erase(kept, entries.end());
    Config config;
    config.entries_ = std::move(entries);
    return config;
}

Config::iterator Config::lower_bound(std::string_view key)
{
    return std::lower_bound(entries_.begin(), entries_.end(), key, keyBefore);
}

Config::const_iterator Config::lower_bound(std::string_view key) const
{
    return std::lower_bound(entries_.begin(), entries_.end(), key, keyBefore);
}

Config::iterator Config::find(std::string_view key)
{
    const auto place = lower_bound(key);
    return place != end() && place->first == key ? place : end();
}

Config::const_iterator Config::find(std::string_view key) const
{
    const auto place = lower_bound(key);
    return place != end() && place->first == key ? place : end();
}

std::string& Config::at(std::string_view key)
{
    const auto place = find(key);
    if (place == end())
        throw std::out_of_range("Vorn::Config has no key " + std::string(key));
    return place->second;
}

const std::string& Config::at(std::string_view key) const
{
    const auto place = find(key);
    if (place == end())
        throw std::out_of_range("Vorn::Config has no key " + std::string(key));
    return place->second;
}

std::string& Config::operator[](std::string_view key)
{
    return emplace(std::string(key), std::string()).first->second;
}

Config::size_type Config::erase(std::string_view key)
{
    const auto place = find(key);
    if (place == end())
        return 0;
    entries_.erase(place);
    return 1;
}

}  // namespace Vorn
