// SPDX-License-Identifier: Apache-2.0
// The serials heard under one address lately: two different ones within the
// window mean two units share the address. Standard C++ only.
#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

class SerialSightings {
public:
    using Clock = std::chrono::system_clock;
    // Serials heard longer ago than this no longer count.
    static constexpr std::chrono::seconds kWindow{15};

    // Notes that `serial` answered under the address at `now`, and forgets
    // serials not heard within the window.
    void record(std::string_view serial, Clock::time_point now);

    // The distinct serials heard within the window before `now`, first heard first.
    std::vector<std::string> seenWithin(Clock::time_point now) const;

    // Two or more different serials within the window before `now`.
    bool conflict(Clock::time_point now) const;

private:
    struct Sighting {
        std::string serial;
        Clock::time_point lastHeard;
    };
    static bool isRecent(const Sighting& sighting, Clock::time_point now);

    std::vector<Sighting> sightings_;  // in first-heard order
};
