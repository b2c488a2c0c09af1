// SPDX-License-Identifier: Apache-2.0
#include "TallySection.h"

#include "EditorRules.h"
#include "SwitcherCatalog.h"
#include "TranslatedMessage.h"

TallySection::TallySection(EditorStore& store, QObject* parent)
    : EditorSection(Settings::Section::Tally, store, parent)
{
}

QVariantList TallySection::switcherEntries() const
{
    return EditorOptions::switcherEntries(band->value(), model->value());
}

int TallySection::switcherIndex() const
{
    return EditorOptions::switcherIndex(band->value(), model->value());
}

QString TallySection::switcherSelection() const
{
    return QString::fromStdString(EditorRules::switcherTag(band->value(), model->value()));
}

void TallySection::setSwitcherSelection(const QString& tag)
{
    const auto numbers = EditorRules::parseSwitcherTag(tag.toStdString());
    if (!numbers)
        return;
    const bool differs = band->value() != numbers->first || model->value() != numbers->second || band->mixed() ||
                         model->mixed();
    {
        // Both numbers change before the editor hears of either.
        const QSignalBlocker quietBand(band);
        const QSignalBlocker quietModel(model);
        band->setValue(numbers->first);
        model->setValue(numbers->second);
    }
    if (differs)
        emit edited();
}

QString TallySection::switcherLabel() const
{
    return translatedText(SwitcherCatalog::label(band->value(), model->value()));
}


QVariantList TallySection::shown() const
{
    return {switcherEntries(), switcherIndex(), switcherSelection(), switcherLabel()};
}
