// SPDX-License-Identifier: Apache-2.0
#include "EditorField.h"

#include <algorithm>
#include <stdexcept>
#include <variant>

#include "EditorOptions.h"
#include "EditorRules.h"
#include "TranslatedMessage.h"
#include "ValueSafety.h"

EditorField::EditorField(std::string_view key, EditorStore& store, QObject* parent)
    : QObject(parent), store_(store), index_(Settings::rowIndex(key))
{
}

bool EditorField::valid() const
{
    const std::string value = written();
    return !Settings::valueRefusal(row().key, value) && Settings::fitsAddressRule(row(), value);
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

void EditorField::edit(FieldValue value)
{
    // Any value set on a mixed field is a choice for every unit.
    const bool differs = held() != value || mixed();
    store_.fields.at(index_) = std::move(value);
    if (!differs)
        return;
    touched_ = true;
    emit edited();
}

QVariantList EditorField::snapshot() const
{
    return shown() + QVariantList{dirty_, valid(), touched_, mixed()};
}

TextField::TextField(std::string_view key, EditorStore& store, QObject* parent) : EditorField(key, store, parent)
{
}

void TextField::setText(const QString& text)
{
    edit(text.toStdString());
}

NumberField::NumberField(std::string_view key, EditorStore& store, QObject* parent) : EditorField(key, store, parent)
{
}

void NumberField::setValue(qint64 value)
{
    edit(std::int64_t{value});
}

std::string NumberField::written() const
{
    return EditorRules::integerText(value());
}

ChoiceField::ChoiceField(std::string_view key, EditorStore& store, QObject* parent) : NumberField(key, store, parent)
{
    for (const Settings::MessageText& option : row().options)
        options_ << translatedText(Settings::Message(option));
}

int ChoiceField::index() const
{
    return EditorOptions::optionIndex(value(), options_.size());
}

StepperField::StepperField(std::string_view key, EditorStore& store, QObject* parent) : NumberField(key, store, parent)
{
}

QString StepperField::title() const
{
    const Settings::MessageText caption = row().caption.value_or(Settings::MessageText{"", "%1"});
    return translatedText(Settings::Message(caption, {Settings::Message::plain(EditorRules::integerText(value()))}));
}

void StepperField::step(int delta)
{
    setValue(stepped(value(), delta));
}

std::int64_t StepperField::stepped(std::int64_t value, int delta) const
{
    const std::int64_t minimum = row().minimum;
    const std::int64_t maximum = row().maximum;
    const bool upward = delta > 0;
    const bool blocked = upward ? value >= maximum : value <= minimum;
    if (delta == 0 || blocked)
        return value;
    // A value outside the range steps to its nearer end.
    if (value < minimum)
        return minimum;
    if (value > maximum)
        return maximum;
    return std::clamp<std::int64_t>(value + delta, minimum, maximum);
}

SwitchField::SwitchField(std::string_view key, EditorStore& store, QObject* parent) : EditorField(key, store, parent)
{
}

void SwitchField::setChecked(bool checked)
{
    edit(checked);
}

std::string SwitchField::written() const
{
    return std::string(checked() ? Settings::kSwitchOn : Settings::kSwitchOff);
}
