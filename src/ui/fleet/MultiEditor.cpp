// SPDX-License-Identifier: Apache-2.0
#include "MultiEditor.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "FleetValues.h"

MultiEditor::MultiEditor(QObject* parent) : SectionEditor(parent)
{
    // The writer lets go of the link first: it may be about to go.
    connect(&links_, &LinkSlot::aboutToSwitch, this, [this] { writer_.setLink(nullptr); });
    connect(&links_, &LinkSlot::switched, this, [this] { writer_.setLink(links_.link()); });
    // A reply changes what a save would send, not what the sections compare.
    connect(&links_, &LinkSlot::changed, this, &MultiEditor::refresh);
    // An edit compares its own section once.
    for (EditorSection* section : {static_cast<EditorSection*>(&tally_), static_cast<EditorSection*>(&communication_)})
        connect(section, &EditorSection::edited, this, [this, section] {
            section->refresh();
            refresh();
        });
}

MultiEditor::~MultiEditor() = default;

void MultiEditor::setAddresses(const QStringList& addresses)
{
    if (addresses == addresses_)
        return;
    addresses_ = addresses;
    emit addressesChanged();
    // Another selection: its values replace the edits of the previous one.
    writer_.clear();
    load();
}

std::vector<EditorField*> MultiEditor::allFields() const
{
    std::vector<EditorField*> fields = tally_.fields();
    fields.insert(fields.end(), communication_.fields().begin(), communication_.fields().end());
    return fields;
}

Vorn::Config MultiEditor::liveOf(const QString& address) const
{
    const EditorLink* link = links_.link();
    const auto unit = link ? link->unit(address.toStdString()) : std::nullopt;
    return unit ? unit->config : Vorn::Config{};
}

void MultiEditor::load()
{
    // Mixed is decided on the values the editor compares, not the raw texts.
    std::vector<Vorn::Config> units;
    units.reserve(static_cast<std::size_t>(addresses_.size()));
    for (const QString& address : addresses_)
        units.push_back(comparedValues(liveOf(address)));
    const std::vector<EditorField*> fields = allFields();
    std::vector<std::string_view> keys;
    keys.reserve(fields.size());
    for (const EditorField* field : fields)
        keys.push_back(field->unitKey());
    const Settings::FleetValues values = Settings::fleetValues(units, keys);
    const auto isMixed = [&](std::string_view key) {
        return std::find(values.mixed.begin(), values.mixed.end(), key) != values.mixed.end();
    };

    // Shared values load as one unit's would. A mixed number, choice or
    // switch holds the first selected unit's value, so a first step starts
    // there; a mixed text stays empty under its "Mixed" placeholder.
    Vorn::Config shown = values.equal;
    for (const EditorField* field : fields) {
        if (isMixed(field->unitKey()) && !field->row().holdsText())
            shown.insert_or_assign(std::string(field->unitKey()), units.front().at(std::string(field->unitKey())));
    }
    store_.fields = loadFields(shown);
    store_.live = shown;
    // Band and model are one choice in the switcher picker: mixed together.
    const bool switcherMixed = isMixed(SettingKeys::kSwitcherBand) || isMixed(SettingKeys::kSwitcherModel);
    for (EditorField* field : fields) {
        const bool switcher =
            field->unitKey() == SettingKeys::kSwitcherBand || field->unitKey() == SettingKeys::kSwitcherModel;
        field->setMixed(switcher ? switcherMixed : isMixed(field->unitKey()));
    }
    tally_.untouch();
    communication_.untouch();
    tally_.refresh();
    communication_.refresh();
    refresh();
}

std::vector<BatchWriter::UnitWrite> MultiEditor::unitWrites() const
{
    std::vector<EditorField*> touched;
    for (EditorField* field : allFields())
        if (field->touched())
            touched.push_back(field);
    std::vector<BatchWriter::UnitWrite> writes;
    writes.reserve(static_cast<std::size_t>(addresses_.size()));
    for (const QString& address : addresses_) {
        const Vorn::Config live = liveOf(address);
        // The unit's own fields with the user's values in them, compared by
        // the single editor's rules; only the keys the user set may go out.
        EditorFields fields = loadFields(live);
        for (const EditorField* field : touched)
            field->copyTo(fields);
        Vorn::Config changes;
        for (const KeyComparison& key : compareSettings(fields, live)) {
            const bool set = std::any_of(touched.begin(), touched.end(),
                                         [&](const EditorField* field) { return field->unitKey() == key.key; });
            if (set && key.differs)
                changes.insert_or_assign(std::string(key.key), key.text);
        }
        writes.push_back({address.toStdString(), std::move(changes)});
    }
    return writes;
}

void MultiEditor::save()
{
    refresh();
    if (!canSave_)
        return;
    writer_.write(unitWrites());
}

void MultiEditor::refresh()
{
    const std::vector<EditorField*> fields = allFields();
    // Untouched fields send nothing, so the units need not be gone through.
    const bool anyTouched =
        std::any_of(fields.begin(), fields.end(), [](const EditorField* field) { return field->touched(); });
    const auto writes = anyTouched ? unitWrites() : std::vector<BatchWriter::UnitWrite>{};
    const bool dirty =
        std::any_of(writes.begin(), writes.end(), [](const BatchWriter::UnitWrite& unit) { return !unit.changes.empty(); });
    const bool valid = std::all_of(fields.begin(), fields.end(),
                                   [](const EditorField* field) { return !field->touched() || field->valid(); });
    const bool canSave = dirty && valid;
    if (dirty == dirty_ && canSave == canSave_)
        return;
    dirty_ = dirty;
    canSave_ = canSave;
    emit stateChanged();
}
