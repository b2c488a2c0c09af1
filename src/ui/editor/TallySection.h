// SPDX-License-Identifier: Apache-2.0
// The Tally tab's fields: the switcher the unit follows (band and model,
// chosen together from the switcher picker), its address and port, the
// tally bank and the two type steppers.
#pragma once

#include "EditorSection.h"

class TallySection : public EditorSection {
    Q_OBJECT

    // The switcher picker: its entries {label, tag}, the row of the values
    // being edited, and their tag "band.model", which it also sets.
    Q_PROPERTY(QVariantList switcherEntries READ switcherEntries NOTIFY changed FINAL)
    Q_PROPERTY(int switcherIndex READ switcherIndex NOTIFY changed FINAL)
    Q_PROPERTY(QString switcherSelection READ switcherSelection WRITE setSwitcherSelection NOTIFY changed FINAL)
    // The switcher's name for the header chip.
    Q_PROPERTY(QString switcherLabel READ switcherLabel NOTIFY changed FINAL)

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

private:
    // The two numbers the switcher picker sets together.
    NumberField* const band_;
    NumberField* const model_;
};
