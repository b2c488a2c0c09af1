// SPDX-License-Identifier: Apache-2.0
// A value or a message that says what was wrong; nothing in the simulator's
// library exits the process, the program decides what an error means.
#pragma once

#include <string>
#include <variant>

namespace VornSim {

struct Error {
    std::string message;

    bool operator==(const Error&) const = default;
};

template <class T>
using Result = std::variant<T, Error>;

}  // namespace VornSim
