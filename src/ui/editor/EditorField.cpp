// SPDX-License-Identifier: Apache-2.0
#include "EditorField.h"

#include <algorithm>
#include <stdexcept>
#include <variant>

#include "EditorOptions.h"
#include "EditorRules.h"
#include "ValueSafety.h"

namespace {

const Settings::EditableKey& rowOf(std::string_view key)
{
    const Settings::EditableKey* row = Settings::findEditableKey(key);
    if (!row)
        throw std::logic_error("no editable key " + std::string(key));
    return *row;
}

}  // namespace

EditorField::EditorField(std::string_view key, EditorStore& store, QObject* parent)
    : QObject(parent), store_(store), row_(rowOf(key))
{
}

bool EditorField::valid() const
{
    const std::string value = written();
    return !Settings::valueRefusal(row_.key, value) && Settings::fitsAddressRule(row_, value);
}

void EditorField::refresh(bool dirty)
{
    dirty_ = dirty;
    QVariantList now = snapshot();
    if (now == announced_)
        return;
    announced_ = std::move(now);
    emit changed();
}

void EditorField::untouch()
{
    touched_ = false;
}

void EditorField::noteEdit()
{
    touched_ = true;
    emit edited();
}

QVariantList EditorField::snapshot() const
{
    return shown() + QVariantList{dirty_, valid(), touched_, mixed()};
}

TextField::TextField(std::string_view key, EditorStore& store, QObject* parent)
    : EditorField(key, store, parent), member_(std::get<std::string EditorFields::*>(row().member))
{
}

void TextField::setText(const QString& text)
{
    edit(member_, text.toStdString());
}

NumberField::NumberField(std::string_view key, EditorStore& store, QObject* parent)
    : EditorField(key, store, parent), member_(std::get<std::int64_t EditorFields::*>(row().member))
{
}

void NumberField::setValue(qint64 value)
{
    edit(member_, std::int64_t{value});
}

std::string NumberField::written() const
{
    return EditorRules::integerText(value());
}

ChoiceField::ChoiceField(std::string_view key, QStringList options, EditorStore& store, QObject* parent)
    : NumberField(key, store, parent), options_(std::move(options))
{
}

int ChoiceField::index() const
{
    return EditorOptions::optionIndex(value(), options_.size());
}

StepperField::StepperField(std::string_view key, QString caption, EditorStore& store, QObject* parent)
    : NumberField(key, store, parent), caption_(std::move(caption))
{
}

QString StepperField::title() const
{
    return caption_.arg(QString::fromStdString(EditorRules::integerText(value())));
}

void StepperField::step(int delta)
{
    setValue(stepped(value(), delta));
}

std::int64_t StepperField::stepped(std::int64_t value, int delta)
{
    const bool upward = delta > 0;
    const bool blocked = upward ? value >= kMaximum : value <= kMinimum;
    if (delta == 0 || blocked)
        return value;
    // Clamping first keeps the sum clear of the 64-bit limits.
    const std::int64_t start = std::clamp(value, kMinimum - 1, kMaximum + 1);
    return std::clamp<std::int64_t>(start + delta, kMinimum, kMaximum);
}

SwitchField::SwitchField(std::string_view key, EditorStore& store, QObject* parent)
    : EditorField(key, store, parent), member_(std::get<bool EditorFields::*>(row().member))
{
}

void SwitchField::setChecked(bool checked)
{
    edit(member_, checked);
}

std::string SwitchField::written() const
{
    return std::string(checked() ? Settings::kSwitchOn : Settings::kSwitchOff);
}
