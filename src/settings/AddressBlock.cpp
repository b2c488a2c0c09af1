// SPDX-License-Identifier: Apache-2.0
#include "AddressBlock.h"

#include "DecimalInt.h"

namespace Settings {
namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view trimmed(std::string_view text)
{
    const auto start = text.find_first_not_of(kBlanks);
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

std::variant<AddressBlock, AddressBlockProblem> checkedSize(AddressBlock block, std::uint64_t covered)
{
    if (covered > kMaxScanAddresses)
        return AddressBlockProblem{AddressBlockProblem::Kind::TooLarge, covered};
    return block;
}

std::variant<AddressBlock, AddressBlockProblem> parseCidr(std::string_view address, std::string_view prefixText)
{
    const auto base = Ipv4::parse(trimmed(address));
    prefixText = trimmed(prefixText);
    // Digits only: a prefix is never written with a sign.
    const bool digitsOnly = !prefixText.empty() && prefixText.find_first_not_of("0123456789") == std::string_view::npos;
    const auto prefix = digitsOnly ? Vorn::parseDecimal(prefixText) : std::nullopt;
    if (!base || !prefix || *prefix > 32)
        return AddressBlockProblem{AddressBlockProblem::Kind::Malformed};
    const int hostBits = 32 - static_cast<int>(*prefix);
    const std::uint64_t covered = std::uint64_t{1} << hostBits;
    const std::uint32_t hostMask = static_cast<std::uint32_t>(covered - 1);
    const std::uint32_t network = base->value() & ~hostMask;
    AddressBlock block{Ipv4(network), Ipv4(network | hostMask)};
    if (hostBits >= 2)
        block = {Ipv4(network + 1), Ipv4((network | hostMask) - 1)};
    return checkedSize(block, covered);
}

std::variant<AddressBlock, AddressBlockProblem> parseRange(std::string_view text)
{
    // An octet may carry a sign ("-0"), so the range's dash is the one with
    // an address on either side.
    for (auto dash = text.find('-'); dash != std::string_view::npos; dash = text.find('-', dash + 1)) {
        const auto first = Ipv4::parse(trimmed(text.substr(0, dash)));
        const auto last = Ipv4::parse(trimmed(text.substr(dash + 1)));
        if (!first || !last)
            continue;
        if (*last < *first)
            return AddressBlockProblem{AddressBlockProblem::Kind::Reversed};
        const AddressBlock block{*first, *last};
        return checkedSize(block, block.size());
    }
    return AddressBlockProblem{AddressBlockProblem::Kind::Malformed};
}

}  // namespace

std::vector<Ipv4> AddressBlock::addresses() const
{
    std::vector<Ipv4> all;
    all.reserve(static_cast<std::size_t>(size()));
    for (std::uint64_t value = first.value(); value <= last.value(); ++value)
        all.emplace_back(static_cast<std::uint32_t>(value));
    return all;
}

std::variant<AddressBlock, AddressBlockProblem> parseAddressBlock(std::string_view text)
{
    text = trimmed(text);
    if (const auto slash = text.find('/'); slash != std::string_view::npos)
        return parseCidr(text.substr(0, slash), text.substr(slash + 1));
    if (const auto single = Ipv4::parse(text))
        return AddressBlock{*single, *single};
    return parseRange(text);
}

}  // namespace Settings
