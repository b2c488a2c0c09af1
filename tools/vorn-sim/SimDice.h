// SPDX-License-Identifier: Apache-2.0
// Seeded chance for the simulated units: the `drop` fault's decisions and
// the order in which units answer a discover, reproducible for a given seed.
#pragma once

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

namespace VornSim {

class SimDice {
public:
    explicit SimDice(std::uint64_t seed) : drops_(seed), order_(seed ^ 0x9E3779B97F4A7C15ull) {}

    // Draws only for fractions strictly between 0 and 1, so units without
    // the fault do not change the sequence others see.
    bool drops(double fraction)
    {
        if (fraction <= 0.0)
            return false;
        if (fraction >= 1.0)
            return true;
        constexpr double kTwoToMinus53 = 1.0 / 9007199254740992.0;
        return static_cast<double>(drops_() >> 11) * kTwoToMinus53 < fraction;
    }

    // Units on a switch answer a broadcast in no fixed order: each discover
    // gets a fresh order of its own, drawn apart from the drop decisions.
    template <typename T>
    void shuffle(std::vector<T>& items)
    {
        std::shuffle(items.begin(), items.end(), order_);
    }

private:
    std::mt19937_64 drops_;
    std::mt19937_64 order_;
};

}  // namespace VornSim
