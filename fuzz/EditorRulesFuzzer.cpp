// SPDX-License-Identifier: Apache-2.0
// Checks the editor's text rules against independent references: the
// dotted-quad check against a regular expression, and integers read from a
// unit's configuration against the strict decimal parse.
#include <cstdint>
#include <cstdlib>
#include <regex>
#include <string>

#include "DecimalInt.h"
#include "EditorRules.h"

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

// A piece is sign? digits+ whose value lies in 0...255 ("-0" and "-000" are 0).
bool pieceInRange(const std::string& piece)
{
    const bool negative = piece[0] == '-';
    std::string digits = (piece[0] == '+' || piece[0] == '-') ? piece.substr(1) : piece;
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
    if (negative)
        return digits == "0";
    return digits.size() < 3 || (digits.size() == 3 && digits <= "255");
}

bool referenceDottedQuad(const std::string& text)
{
    static const std::regex shape(R"(([+-]?[0-9]+)\.([+-]?[0-9]+)\.([+-]?[0-9]+)\.([+-]?[0-9]+))");
    std::smatch match;
    if (!std::regex_match(text, match, shape))
        return false;
    for (std::size_t i = 1; i <= 4; ++i) {
        if (!pieceInRange(match[i].str()))
            return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    require(EditorRules::isDottedQuad(text) == referenceDottedQuad(text));

    const Vorn::Config live = {{"TallyType", text}};
    const auto parsed = Vorn::parseDecimal(text);
    const std::int64_t value = EditorRules::liveInteger(live, "TallyType", 7);
    require(value == parsed.value_or(7));

    // Written back, an integer is canonical and reads as itself.
    const std::string written = EditorRules::integerText(value);
    require(Vorn::parseDecimal(written) == value);
    require(written[0] != '+');
    require(written == "0" || written.find_first_not_of('-') == std::string::npos ||
            written[written.find_first_not_of('-')] != '0');
    return 0;
}
