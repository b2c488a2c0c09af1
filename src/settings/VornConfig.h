// SPDX-License-Identifier: Apache-2.0
// A unit's settings: text values by key, unique keys in byte order, like a
// std::map with the same lookups. The entries sit in one sorted block rather
// than one allocation each: a unit reports a few dozen short keys, a fleet
// holds thousands of units, and a reply is decoded for every datagram.
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Vorn {

class Config {
public:
    using key_type = std::string;
    using mapped_type = std::string;
    using value_type = std::pair<std::string, std::string>;
    using iterator = std::vector<value_type>::iterator;
    using const_iterator = std::vector<value_type>::const_iterator;
    using size_type = std::size_t;

    Config() = default;
    // As with a map, the first of several entries with one key is kept.
    Config(std::initializer_list<value_type> entries);

    iterator begin() { return entries_.begin(); }
    iterator end() { return entries_.end(); }
    const_iterator begin() const { return entries_.begin(); }
    const_iterator end() const { return entries_.end(); }
    const_iterator cbegin() const { return entries_.cbegin(); }
    const_iterator cend() const { return entries_.cend(); }

    size_type size() const { return entries_.size(); }
    bool empty() const { return entries_.empty(); }
    void clear() { entries_.clear(); }
    void reserve(size_type count) { entries_.reserve(count); }

    // The first entry whose key is not less than `key`.
    iterator lower_bound(std::string_view key);
    const_iterator lower_bound(std::string_view key) const;
    iterator find(std::string_view key);
    const_iterator find(std::string_view key) const;
    bool contains(std::string_view key) const { return find(key) != end(); }
    size_type count(std::string_view key) const { return contains(key) ? 1 : 0; }

    // The value of `key`; std::out_of_range when there is none.
    std::string& at(std::string_view key);
    const std::string& at(std::string_view key) const;

    // The value of `key`, added empty when there is none.
    std::string& operator[](std::string_view key);

    // Adds the entry unless the key is there; where it is, and whether it was added.
    template <typename Key, typename Value>
    std::pair<iterator, bool> emplace(Key&& key, Value&& value)
    {
        const auto place = lower_bound(key);
        if (place != end() && place->first == std::string_view(key))
            return {place, false};
        return {entries_.emplace(place, std::forward<Key>(key), std::forward<Value>(value)), true};
    }
    std::pair<iterator, bool> insert(value_type entry) { return emplace(std::move(entry.first), std::move(entry.second)); }

    // Adds the entry, or replaces the value of the key that is there.
    template <typename Value>
    std::pair<iterator, bool> insert_or_assign(std::string_view key, Value&& value)
    {
        const auto place = lower_bound(key);
        if (place != end() && place->first == key) {
            place->second = std::forward<Value>(value);
            return {place, false};
        }
        return {entries_.emplace(place, std::string(key), std::forward<Value>(value)), true};
    }

    // A configuration of the text pairs `entries`, in any order; where a key
    // comes more than once, its last value wins. The pairs are sorted as
    // views and each key and value is copied once, into its final place.
    using TextPair = std::pair<std::string_view, std::string_view>;
    static Config lastValueWins(std::span<TextPair> entries);

    // Removes the entry of `key`; how many were removed (0 or 1).
    size_type erase(std::string_view key);

    friend bool operator==(const Config&, const Config&) = default;

private:
    std::vector<value_type> entries_;
};

}  // namespace Vorn
