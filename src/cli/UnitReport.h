// SPDX-License-Identifier: Apache-2.0
// How vornctl shows a unit: one line for lists, "Key: Value" lines for show,
// and the JSON object of discover and show.
#pragma once

#include <string>
#include <tuple>
#include <vector>

#include <nlohmann/json.hpp>

#include "Ipv4.h"
#include "UnitLink.h"

namespace VornCtl {

// `text`, or "-" for an empty one, in a column.
std::string orDash(const std::string& text);

// The unit's name as the window's sidebar shows it.
std::string unitTitle(const Sighting& unit);

// The interface column and field: where the unit's report arrived.
std::string unitInterface(const Sighting& unit);
// What looks wrong: the unit's address on its network, then its reported values.
std::vector<std::string> unitWarnings(const Sighting& unit);

// "ADDRESS  TITLE  SWITCHER  Ch N  INTERFACE  WARNINGS" (blanks show as "-").
std::string unitLine(const Sighting& unit);

// {"address", "serial", "title", "firmware", "interface", "warnings", "config"}.
nlohmann::ordered_json unitJson(const Sighting& unit);

// "Key: Value" lines, write key table order first, then the others.
std::vector<std::string> configLines(const Vorn::Config& config);

// The sort key of an address: numerically, text that is no address last.
std::tuple<bool, Settings::Ipv4, std::string> addressOrder(const std::string& address);

// Units sorted by address (numerically; text that is no address last).
std::vector<Sighting> sortedByAddress(std::vector<Sighting> units);

}  // namespace VornCtl
