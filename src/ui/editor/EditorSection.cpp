// SPDX-License-Identifier: Apache-2.0
#include "EditorSection.h"

#include <algorithm>

namespace {

// The field a row asks for: text for text and addresses, a switch, and for
// an integer a picker of its options, a stepper with its caption, or a plain number.
EditorField* makeField(const Settings::EditableKey& row, EditorStore& store, QObject* parent)
{
    switch (row.kind) {
    case Settings::ValueKind::Switch:
        return new SwitchField(row.key, store, parent);
    case Settings::ValueKind::Integer:
        if (!row.options.empty())
            return new ChoiceField(row.key, store, parent);
        if (row.caption)
            return new StepperField(row.key, store, parent);
        return new NumberField(row.key, store, parent);
    case Settings::ValueKind::Text:
    case Settings::ValueKind::Address:
    case Settings::ValueKind::AddressOrEmpty:
        break;
    }
    return new TextField(row.key, store, parent);
}

}  // namespace

EditorSection::EditorSection(Settings::Section section, EditorStore& store, QObject* parent)
    : QObject(parent), store_(store), section_(section)
{
    for (const Settings::EditableKey& row : Settings::kEditableKeys) {
        if (row.section != section)
            continue;
        EditorField* field = makeField(row, store_, this);
        fields_.push_back(field);
        connect(field, &EditorField::edited, this, &EditorSection::edited);
    }
}

EditorField* EditorSection::field(std::string_view key) const
{
    const auto found =
        std::find_if(fields_.begin(), fields_.end(), [&](const EditorField* field) { return field->unitKey() == key; });
    return found != fields_.end() ? *found : nullptr;
}

template <typename Field>
Field* EditorSection::typedField(const QString& key) const
{
    const QByteArray name = key.toLatin1();
    return fieldAs<Field>(std::string_view(name.constData(), static_cast<std::size_t>(name.size())));
}

TextField* EditorSection::textField(const QString& key) const
{
    return typedField<TextField>(key);
}

NumberField* EditorSection::numberField(const QString& key) const
{
    return typedField<NumberField>(key);
}

ChoiceField* EditorSection::choiceField(const QString& key) const
{
    return typedField<ChoiceField>(key);
}

StepperField* EditorSection::stepperField(const QString& key) const
{
    return typedField<StepperField>(key);
}

SwitchField* EditorSection::switchField(const QString& key) const
{
    return typedField<SwitchField>(key);
}

void EditorSection::refresh()
{
    keys_ = compareSection(store_.fields, store_.live, section_);
    const std::vector<KeyComparison>& keys = keys_;
    for (EditorField* field : fields_) {
        const auto entry = std::find_if(keys.begin(), keys.end(),
                                        [&](const KeyComparison& key) { return key.key == field->unitKey(); });
        field->refresh(entry != keys.end() && entry->differs);
    }
    dirty_ = anyDiffers(keys);
    valid_ = std::all_of(fields_.begin(), fields_.end(), [](const EditorField* field) { return field->valid(); });
    QVariantList now = shown() + QVariantList{dirty_, valid_};
    if (now == announced_)
        return;
    announced_ = std::move(now);
    emit changed();
}

void EditorSection::untouch()
{
    for (EditorField* field : fields_)
        field->untouch();
}
