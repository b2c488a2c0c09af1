// SPDX-License-Identifier: Apache-2.0
// The Communication tab's fields: intercom channel, call password, scene and
// silence-suppression levels, and the Wire2 switch.
#pragma once

#include "EditorOptions.h"
#include "EditorSection.h"

class CommunicationSection : public EditorSection {
    Q_OBJECT

    EDITOR_FIELD(TextField, channel, SettingKeys::kChannel)
    EDITOR_FIELD(TextField, password, SettingKeys::kCallMagic)
    EDITOR_FIELD(ChoiceField, scene, SettingKeys::kScenarioType, EditorOptions::sceneOptions())
    EDITOR_FIELD(ChoiceField, suppress, SettingKeys::kSilenceSuppress, EditorOptions::suppressOptions())
    EDITOR_FIELD(SwitchField, wire2, SettingKeys::kWire2Enable)

public:
    CommunicationSection(EditorStore& store, QObject* parent);

    // The unit's scene level (1) and suppression level (0), or their defaults.
    Q_INVOKABLE qint64 sceneDefault() const;
    Q_INVOKABLE qint64 suppressDefault() const;
};
