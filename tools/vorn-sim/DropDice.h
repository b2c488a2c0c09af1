// Seeded decisions for the `drop` fault, reproducible for a given seed.
#pragma once

#include <cstdint>
#include <random>

namespace VornSim {

class DropDice {
public:
    explicit DropDice(std::uint64_t seed) : engine_(seed) {}

    // Draws only for fractions strictly between 0 and 1, so units without
    // the fault do not change the sequence others see.
    bool drops(double fraction)
    {
        if (fraction <= 0.0)
            return false;
        if (fraction >= 1.0)
            return true;
        constexpr double kTwoToMinus53 = 1.0 / 9007199254740992.0;
        return static_cast<double>(engine_() >> 11) * kTwoToMinus53 < fraction;
    }

private:
    std::mt19937_64 engine_;
};

}  // namespace VornSim
