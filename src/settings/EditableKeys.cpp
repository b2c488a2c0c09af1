// SPDX-License-Identifier: Apache-2.0
#include "EditableKeys.h"

#include <algorithm>
#include <stdexcept>

#include "DecimalInt.h"
#include "Ipv4.h"
#include "ValueSafety.h"

namespace Settings {
namespace {

std::string rangeText(const EditableKey& entry)
{
    return std::to_string(entry.minimum) + "\u2013" + std::to_string(entry.maximum);
}

}  // namespace

const EditableKey* findEditableKey(std::string_view key)
{
    const auto found = std::find_if(kEditableKeys.begin(), kEditableKeys.end(),
                                    [&](const EditableKey& entry) { return entry.key == key; });
    return found != kEditableKeys.end() ? &*found : nullptr;
}

std::size_t rowIndex(std::string_view key)
{
    const EditableKey* entry = findEditableKey(key);
    if (!entry)
        throw std::out_of_range("not an editable key: " + std::string(key));
    return static_cast<std::size_t>(entry - kEditableKeys.data());
}

bool isSecret(std::string_view key)
{
    const EditableKey* entry = findEditableKey(key);
    return entry && entry->secret;
}

bool isNetworkKey(std::string_view key)
{
    const EditableKey* entry = findEditableKey(key);
    return entry && entry->network();
}

bool fitsAddressRule(const EditableKey& entry, std::string_view value)
{
    switch (entry.kind) {
    case ValueKind::AddressOrEmpty:
        return value.empty() || Ipv4::parse(value).has_value();
    case ValueKind::Address:
        return Ipv4::parse(value).has_value();
    default:
        return true;
    }
}

std::optional<std::string> settingRefusal(std::string_view key, std::string_view value)
{
    const EditableKey* entry = findEditableKey(key);
    if (!entry)
        return "unknown key " + std::string(key);
    if (auto refused = valueRefusal(key, value))
        return english(*refused);
    const std::string quoted = "\"" + std::string(value) + "\"";
    switch (entry->kind) {
    case ValueKind::Text:
        return std::nullopt;
    case ValueKind::Integer: {
        const auto number = Vorn::parseDecimal(value);
        if (!number)
            return std::string(key) + " " + quoted + " is not a whole number";
        if (*number < entry->minimum || *number > entry->maximum)
            return std::string(key) + " " + quoted + " is outside " + rangeText(*entry);
        return std::nullopt;
    }
    case ValueKind::Switch:
        if (value == kSwitchOn || value == kSwitchOff)
            return std::nullopt;
        return std::string(key) + " " + quoted + " is neither 1 (on) nor 0 (off)";
    case ValueKind::Address:
    case ValueKind::AddressOrEmpty:
        if (fitsAddressRule(*entry, value))
            return std::nullopt;
        return std::string(key) + " " + quoted + " is not an IPv4 address (four numbers 0\u2013255 joined by dots)"
            + (entry->kind == ValueKind::AddressOrEmpty ? ", nor empty" : "");
    }
    return std::nullopt;
}

std::string canonicalValue(std::string_view key, std::string_view value)
{
    const EditableKey* entry = findEditableKey(key);
    if (entry && entry->kind == ValueKind::Integer) {
        if (const auto number = Vorn::parseDecimal(value))
            return std::to_string(*number);
    }
    return std::string(value);
}

}  // namespace Settings
