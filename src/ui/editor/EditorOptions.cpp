// SPDX-License-Identifier: Apache-2.0
#include "EditorOptions.h"

#include <QCoreApplication>
#include <QVariantMap>

#include "EditorRules.h"
#include "SwitcherCatalog.h"
#include "TranslatedMessage.h"

namespace EditorOptions {
namespace {

// The translation of a text marked with QT_TRANSLATE_NOOP("EditorOptions", ...).
QString text(const char* source)
{
    return QCoreApplication::translate("EditorOptions", source);
}

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

QStringList sceneOptions()
{
    return {
        text(QT_TRANSLATE_NOOP("EditorOptions", "0 \u00B7 Quiet place (whisper)")),
        text(QT_TRANSLATE_NOOP("EditorOptions", "1 \u00B7 Most scenes (speak loudly)")),
        text(QT_TRANSLATE_NOOP("EditorOptions", "2 \u00B7 Very noisy (roar)")),
        text(QT_TRANSLATE_NOOP("EditorOptions", "3 \u00B7 Deafening (loud voice)")),
        text(QT_TRANSLATE_NOOP("EditorOptions", "4 \u00B7 Deafening (extreme)")),
    };
}

QStringList suppressOptions()
{
    return {
        text(QT_TRANSLATE_NOOP("EditorOptions", "0 \u00B7 Off")), text(QT_TRANSLATE_NOOP("EditorOptions", "1 \u00B7 1%")), text(QT_TRANSLATE_NOOP("EditorOptions", "2 \u00B7 2%")),
        text(QT_TRANSLATE_NOOP("EditorOptions", "3 \u00B7 3%")),  text(QT_TRANSLATE_NOOP("EditorOptions", "4 \u00B7 4%")), text(QT_TRANSLATE_NOOP("EditorOptions", "5 \u00B7 5%")),
    };
}

QStringList tallyBankOptions()
{
    return {
        text(QT_TRANSLATE_NOOP("EditorOptions", "Cameras 1\u2013" "12")),
        text(QT_TRANSLATE_NOOP("EditorOptions", "Cameras 13\u2013" "24")),
        text(QT_TRANSLATE_NOOP("EditorOptions", "Cameras 25\u2013" "36")),
        text(QT_TRANSLATE_NOOP("EditorOptions", "Cameras 37\u2013" "40")),
    };
}

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
