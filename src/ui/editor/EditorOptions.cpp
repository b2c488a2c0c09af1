// SPDX-License-Identifier: Apache-2.0
#include "EditorOptions.h"

#include <QVariantMap>

#include "EditorRules.h"
#include "SwitcherCatalog.h"
#include "TranslatedMessage.h"

namespace EditorOptions {
namespace {

QVariantMap entry(const QString& label, const std::string& tag)
{
    return {{QStringLiteral("label"), label}, {QStringLiteral("tag"), QString::fromStdString(tag)}};
}

// The row of the preset with this tag, or the row after the presets.
int presetRow(std::int64_t band, std::int64_t model)
{
    const std::string tag = EditorRules::switcherTag(band, model);
    for (std::size_t row = 0; row < SwitcherCatalog::presets.size(); ++row) {
        const auto& preset = SwitcherCatalog::presets[row];
        if (EditorRules::switcherTag(preset.band, preset.model) == tag)
            return static_cast<int>(row);
    }
    return static_cast<int>(SwitcherCatalog::presets.size());
}

}  // namespace

int optionIndex(std::int64_t value, qsizetype count)
{
    return value >= 0 && value < count ? static_cast<int>(value) : -1;
}

QVariantList switcherEntries(std::int64_t band, std::int64_t model)
{
    QVariantList entries;
    for (const auto& preset : SwitcherCatalog::presets)
        entries.append(
            entry(translatedText(SwitcherCatalog::presetLabel(preset)), EditorRules::switcherTag(preset.band, preset.model)));
    if (presetRow(band, model) == static_cast<int>(SwitcherCatalog::presets.size()))
        entries.append(entry(translatedText(SwitcherCatalog::label(band, model)), EditorRules::switcherTag(band, model)));
    return entries;
}

int switcherIndex(std::int64_t band, std::int64_t model)
{
    return presetRow(band, model);
}

}  // namespace EditorOptions
