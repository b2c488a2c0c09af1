// SPDX-License-Identifier: Apache-2.0
// The client's table of units as the views read it: each element a
// const Device&, in address order. The table itself holds every unit on the
// heap, so that a unit joining the middle of a large table moves pointers,
// not records.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Device.h"

class DeviceTable {
public:
    using Slots = std::vector<std::unique_ptr<Device>>;

    class Iterator {
    public:
        explicit Iterator(Slots::const_iterator at) : at_(at) {}
        const Device& operator*() const { return **at_; }
        const Device* operator->() const { return at_->get(); }
        Iterator& operator++()
        {
            ++at_;
            return *this;
        }
        bool operator==(const Iterator&) const = default;

    private:
        Slots::const_iterator at_;
    };

    explicit DeviceTable(const Slots& units) : slots_(&units) {}

    Iterator begin() const { return Iterator(slots_->begin()); }
    Iterator end() const { return Iterator(slots_->end()); }
    std::size_t size() const { return slots_->size(); }
    bool empty() const { return slots_->empty(); }
    const Device& operator[](std::size_t row) const { return *(*slots_)[row]; }

private:
    const Slots* slots_;
};
