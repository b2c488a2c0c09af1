// SPDX-License-Identifier: Apache-2.0
#include "TallySection.h"

#include "EditorOptions.h"
#include "EditorRules.h"
#include "SwitcherCatalog.h"
#include "TranslatedMessage.h"

TallySection::TallySection(EditorStore& store, QObject* parent)
    : EditorSection(Settings::Section::Tally, store, parent),
      band_(fieldAs<NumberField>(SettingKeys::kSwitcherBand)),
      model_(fieldAs<NumberField>(SettingKeys::kSwitcherModel))
{
}

QVariantList TallySection::switcherEntries() const
{
    return EditorOptions::switcherEntries(band_->value(), model_->value());
}

int TallySection::switcherIndex() const
{
    return EditorOptions::switcherIndex(band_->value(), model_->value());
}

QString TallySection::switcherSelection() const
{
    return QString::fromStdString(EditorRules::switcherTag(band_->value(), model_->value()));
}

void TallySection::setSwitcherSelection(const QString& tag)
{
    const auto numbers = EditorRules::parseSwitcherTag(tag.toStdString());
    if (!numbers)
        return;
    const bool differs = band_->value() != numbers->first || model_->value() != numbers->second || band_->mixed() ||
                         model_->mixed();
    {
        // Both numbers change before the editor hears of either.
        const QSignalBlocker quietBand(band_);
        const QSignalBlocker quietModel(model_);
        band_->setValue(numbers->first);
        model_->setValue(numbers->second);
    }
    if (differs)
        emit edited();
}

QString TallySection::switcherLabel() const
{
    return translatedText(SwitcherCatalog::label(band_->value(), model_->value()));
}

QVariantList TallySection::shown() const
{
    return {switcherEntries(), switcherIndex(), switcherSelection(), switcherLabel()};
}
