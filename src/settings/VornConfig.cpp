// SPDX-License-Identifier: Apache-2.0
#include "VornConfig.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>

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

Config Config::lastValueWins(std::span<TextPair> entries)
{
    // Keys mostly differ in their first letter, which is compared inline.
    const auto byKey = [](const TextPair& a, const TextPair& b) {
        if (!a.first.empty() && !b.first.empty() && a.first.front() != b.first.front())
            return static_cast<unsigned char>(a.first.front()) < static_cast<unsigned char>(b.first.front());
        return a.first < b.first;
    };
    // A stable sort keeps repeats in the order they came, so the last of each
    // run is the value that wins. A report's twenty-odd lines sort in place by
    // insertion, without the buffer std::stable_sort takes; long ones with it.
    constexpr std::size_t kSortInPlaceUpTo = 64;
    if (entries.size() > kSortInPlaceUpTo) {
        std::stable_sort(entries.begin(), entries.end(), byKey);
    } else {
        // Element by element: shifting a few pairs costs less than a call to memmove.
        for (std::size_t i = 1; i < entries.size(); ++i) {
            const TextPair entry = entries[i];
            std::size_t place = i;
            for (; place > 0 && byKey(entry, entries[place - 1]); --place)
                entries[place] = entries[place - 1];
            entries[place] = entry;
        }
    }
    Config config;
    config.entries_.reserve(entries.size());
    for (auto it = entries.begin(); it != entries.end(); ++it) {
        const auto next = std::next(it);
        if (next == entries.end() || next->first != it->first)
            config.entries_.emplace_back(std::piecewise_construct, std::forward_as_tuple(it->first),
                                          std::forward_as_tuple(it->second));
    }
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
