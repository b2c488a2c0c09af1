// SPDX-License-Identifier: Apache-2.0
// The Tally tab's fields: the switcher the unit follows (band and model,
// chosen together from the switcher picker), its address and port, the
// tally bank and the two type steppers.
#pragma once

#include "EditorSection.h"
#include "EditorOptions.h"

class TallySection : public EditorSection {
    Q_OBJECT

    EDITOR_FIELD(TextField, atemIp, SettingKeys::kAtemIp)
    EDITOR_FIELD(TextField, atemPort, SettingKeys::kAtemPort)
    EDITOR_FIELD(NumberField, band, SettingKeys::kSwitcherBand)
    EDITOR_FIELD(NumberField, model, SettingKeys::kSwitcherModel)
    EDITOR_FIELD(ChoiceField, extTally, SettingKeys::kAtemExtTally, EditorOptions::tallyBankOptions())
    EDITOR_FIELD(StepperField, tallyType, SettingKeys::kTallyType, tr("type %1"))
    EDITOR_FIELD(StepperField, gpioType, SettingKeys::kTallyGpioType, tr("gpio %1"))

    // The switcher picker: its entries {label, tag}, the row of the values
    // being edited, and their tag "band.model", which it also sets.
    Q_PROPERTY(QVariantList switcherEntries READ switcherEntries NOTIFY changed)
    Q_PROPERTY(int switcherIndex READ switcherIndex NOTIFY changed)
    Q_PROPERTY(QString switcherSelection READ switcherSelection WRITE setSwitcherSelection NOTIFY changed)
    // The switcher's name for the header chip.
    Q_PROPERTY(QString switcherLabel READ switcherLabel NOTIFY changed)

public:
    TallySection(EditorStore& store, QObject* parent);

    QVariantList switcherEntries() const;
    int switcherIndex() const;
    QString switcherSelection() const;
    // A tag that does not hold exactly two integers leaves both numbers alone.
    void setSwitcherSelection(const QString& tag);
    QString switcherLabel() const;

protected:
    QVariantList shown() const override;
};
