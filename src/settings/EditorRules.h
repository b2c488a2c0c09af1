// SPDX-License-Identifier: Apache-2.0
// The editor's small text rules: integers as the unit writes them, reading a
// key with its fallback, the dotted-quad check and the switcher tag.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "VornConfig.h"

namespace EditorRules {

// Plain decimal text: a '-' for negatives, no '+', no leading zeros.
std::string integerText(std::int64_t value);

// The value of `key`, or `missing` when the unit does not report it.
std::string liveText(const Vorn::Config& live, std::string_view key, std::string_view missing = {});

// The strict decimal parse of `key`'s value, or `fallback` when the key is
// missing (the empty text) or the text does not parse.
std::int64_t liveInteger(const Vorn::Config& live, std::string_view key, std::int64_t fallback);

// Four pieces separated by '.', each a strict decimal integer in 0...255.
// Leading zeros and a sign are accepted ("+1", "-0", "010").
bool isDottedQuad(std::string_view text);

// The switcher picker's tag: band, '.', model.
std::string switcherTag(std::int64_t band, std::int64_t model);

// (band, model) when exactly two of the '.'-separated pieces parse; pieces
// that do not parse are dropped first.
std::optional<std::pair<std::int64_t, std::int64_t>> parseSwitcherTag(std::string_view text);

}  // namespace EditorRules
