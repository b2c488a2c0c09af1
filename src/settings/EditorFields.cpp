// SPDX-License-Identifier: Apache-2.0
#include "EditorFields.h"

using Settings::EditableKey;
using Settings::ValueKind;

namespace {

FieldValue whenMissing(const EditableKey& row)
{
    if (row.kind == ValueKind::Integer)
        return row.whenMissing;
    if (row.kind == ValueKind::Switch)
        return row.whenMissing != 0;
    return std::string();
}

}  // namespace

EditorFields::EditorFields()
{
    for (std::size_t row = 0; row < values_.size(); ++row)
        values_[row] = whenMissing(Settings::kEditableKeys[row]);
}

const std::string& EditorFields::text(std::string_view key) const
{
    return std::get<std::string>(values_.at(Settings::rowIndex(key)));
}

std::string& EditorFields::text(std::string_view key)
{
    return std::get<std::string>(values_.at(Settings::rowIndex(key)));
}

std::int64_t EditorFields::integer(std::string_view key) const
{
    return std::get<std::int64_t>(values_.at(Settings::rowIndex(key)));
}

std::int64_t& EditorFields::integer(std::string_view key)
{
    return std::get<std::int64_t>(values_.at(Settings::rowIndex(key)));
}

bool EditorFields::on(std::string_view key) const
{
    return std::get<bool>(values_.at(Settings::rowIndex(key)));
}

bool& EditorFields::on(std::string_view key)
{
    return std::get<bool>(values_.at(Settings::rowIndex(key)));
}
