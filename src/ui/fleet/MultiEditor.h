// SPDX-License-Identifier: Apache-2.0
// The editor of several units at once: the Tally and Communication sections
// over one store loaded with the values all units share, each field marked
// mixed where they differ. Saving sends each unit its own latest reported
// configuration with only the fields the user set put over it, one write per
// unit, through the BatchWriter that lists every unit's verdict.
#pragma once

#include <string>
#include <vector>

#include <QObject>
#include <QStringList>

#include "BatchWriter.h"
#include "SectionEditor.h"

class MultiEditor : public SectionEditor {
    Q_OBJECT

    // Set from outside with the client (or a link): the selected units' addresses.
    Q_PROPERTY(QStringList addresses READ addresses WRITE setAddresses NOTIFY addressesChanged FINAL)

    // The verdicts of the last save, one row per unit.
    Q_PROPERTY(BatchWriter* writer READ writer CONSTANT FINAL)

    // Some unit would be sent a change; "Save to <N> units" also needs every set field valid.
    Q_PROPERTY(bool dirty READ dirty NOTIFY stateChanged FINAL)
    Q_PROPERTY(bool canSave READ canSave NOTIFY stateChanged FINAL)

public:
    explicit MultiEditor(QObject* parent = nullptr);
    ~MultiEditor() override;

    // Fills the fields from the units' live configurations: a value all of
    // them share, or mixed; forgets what the user set.
    Q_INVOKABLE void load();
    // Writes the fields the user set to every selected unit that differs.
    Q_INVOKABLE void save();

    QStringList addresses() const { return addresses_; }
    void setAddresses(const QStringList& addresses);

    BatchWriter* writer() { return &writer_; }

    bool dirty() const { return dirty_; }
    bool canSave() const { return canSave_; }

    // What each selected unit would be sent now, in selection order.
    std::vector<BatchWriter::UnitWrite> unitWrites() const;

signals:
    void addressesChanged();
    void stateChanged();

private:
    void linkReplaced() override { load(); }
    std::vector<EditorField*> allFields() const;
    Vorn::Config liveOf(const QString& address) const;
    // Re-reads the units: replies change what a save would send.
    void refresh();

    QStringList addresses_;
    BatchWriter writer_;
    bool dirty_ = false;
    bool canSave_ = false;
};
