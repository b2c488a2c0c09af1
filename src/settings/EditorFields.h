// SPDX-License-Identifier: Apache-2.0
// The values the editor holds while the user edits one unit: one value per
// row of the editable-key table, of the type its kind is edited as. A fresh
// editor holds each row's value when missing.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "EditableKeys.h"

// Text (addresses, port, channel, password), an integer, or a switch.
using FieldValue = std::variant<std::string, std::int64_t, bool>;

class EditorFields {
public:
    EditorFields();

    // The value of the table's row `row`.
    const FieldValue& at(std::size_t row) const { return values_.at(row); }
    FieldValue& at(std::size_t row) { return values_.at(row); }

    // The value of `key`, which must be an editable key edited as that type.
    const std::string& text(std::string_view key) const;
    std::string& text(std::string_view key);
    std::int64_t integer(std::string_view key) const;
    std::int64_t& integer(std::string_view key);
    bool on(std::string_view key) const;
    bool& on(std::string_view key);

    bool operator==(const EditorFields&) const = default;

private:
    std::array<FieldValue, Settings::kEditableKeys.size()> values_;
};
