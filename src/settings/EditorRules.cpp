// SPDX-License-Identifier: Apache-2.0
#include "EditorRules.h"

#include <vector>

#include "DecimalInt.h"
#include "Ipv4.h"

namespace EditorRules {
namespace {

// Every piece between dots, empty ones included: "1..2" gives three.
std::vector<std::string_view> splitAtDots(std::string_view text)
{
    std::vector<std::string_view> pieces;
    std::size_t start = 0;
    for (;;) {
        const std::size_t dot = text.find('.', start);
        if (dot == std::string_view::npos) {
            pieces.push_back(text.substr(start));
            return pieces;
        }
        pieces.push_back(text.substr(start, dot - start));
        start = dot + 1;
    }
}

}  // namespace

std::string integerText(std::int64_t value)
{
    return std::to_string(value);
}

std::string liveText(const Vorn::Config& live, std::string_view key, std::string_view missing)
{
    const auto entry = live.find(key);
    return entry != live.end() ? entry->second : std::string(missing);
}

std::int64_t liveInteger(const Vorn::Config& live, std::string_view key, std::int64_t fallback)
{
    return Vorn::parseDecimal(liveText(live, key)).value_or(fallback);
}

bool isDottedQuad(std::string_view text)
{
    return Settings::Ipv4::parse(text).has_value();
}

std::string switcherTag(std::int64_t band, std::int64_t model)
{
    return integerText(band) + '.' + integerText(model);
}

std::optional<std::pair<std::int64_t, std::int64_t>> parseSwitcherTag(std::string_view text)
{
    std::vector<std::int64_t> numbers;
    for (const auto piece : splitAtDots(text)) {
        if (const auto value = Vorn::parseDecimal(piece))
            numbers.push_back(*value);
    }
    if (numbers.size() != 2)
        return std::nullopt;
    return std::pair{numbers[0], numbers[1]};
}

}  // namespace EditorRules
