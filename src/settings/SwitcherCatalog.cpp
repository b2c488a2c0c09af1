// SPDX-License-Identifier: Apache-2.0
#include "SwitcherCatalog.h"

namespace SwitcherCatalog {

using Settings::Message;

Message presetLabel(const SwitcherPreset& preset)
{
    if (preset.label == kOtherLabel.text)
        return kOtherLabel;
    return Message::plain(std::string(preset.label));
}

Message label(std::int64_t band, std::int64_t model)
{
    for (const auto& preset : presets) {
        if (preset.band == band && preset.model == model)
            return presetLabel(preset);
    }
    // Every model of the ATEM family is an ATEM.
    if (band == presets.front().band)
        return presetLabel(presets.front());
    return Message(SETTINGS_TEXT("SwitcherCatalog", "Band %1 / Model %2"),
                   {Message::plain(std::to_string(band)), Message::plain(std::to_string(model))});
}

}  // namespace SwitcherCatalog
