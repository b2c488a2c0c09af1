// SPDX-License-Identifier: Apache-2.0
#include "DeviceEditor.h"

#include <utility>

#include "ConfigConversion.h"
#include "FleetValues.h"
#include "TranslatedMessage.h"
#include "SettingKeys.h"

DeviceEditor::DeviceEditor(QObject* parent) : SectionEditor(parent), header_(this), verdict_(this)
{
    // The verdict lets go of the link first: it may be about to go.
    connect(&links_, &LinkSlot::aboutToSwitch, this, [this] { verdict_.setLink(nullptr); });
    connect(&links_, &LinkSlot::switched, this, [this] { verdict_.setLink(links_.link()); });
    connect(&links_, &LinkSlot::changed, this, &DeviceEditor::refresh);
    for (EditorSection* section : sections())
        connect(section, &EditorSection::edited, this, [this, section] { onEdited(section); });
    refreshAll();
}

DeviceEditor::~DeviceEditor() = default;

void DeviceEditor::setIp(const QString& ip)
{
    if (ip == ip_)
        return;
    ip_ = ip;
    emit ipChanged();
    // Another unit: its fields replace the edits of the previous one.
    loadWhenReady();
}

void DeviceEditor::loadWhenReady()
{
    // Until the editor knows both its link and its unit there is nothing to load.
    if (links_.link() && !ip_.isEmpty())
        load();
    else
        refreshAll();
}

void DeviceEditor::load()
{
    const EditorLink* link = links_.link();
    const auto unit = link ? link->unit(ip_.toStdString()) : std::nullopt;
    store_.fields = loadFields(unit ? unit->config : Vorn::Config{});
    for (EditorSection* section : sections())
        section->untouch();
    const bool otherUnit = loadedFor_ != ip_;
    loadedFor_ = ip_;
    verdict_.clear();
    refreshAll();
    if (otherUnit)
        emit loadedForChanged();
    emit loaded();
}

void DeviceEditor::save()
{
    refresh();
    if (!sending_.canSave)
        return;
    write(Settings::overlay(changesOf(tally_.comparison()), changesOf(communication_.comparison())));
}

void DeviceEditor::applyNetwork()
{
    refresh();
    if (!networkValid(store_.fields) || !sending_.refusal.isEmpty())
        return;
    write(changesOf(network_.comparison()));
}

void DeviceEditor::takeValues(const Vorn::Config& values)
{
    store_.fields = loadFields(Settings::overlay(store_.live, values));
    verdict_.clear();
    refreshAll();
}

void DeviceEditor::write(const Vorn::Config& changes)
{
    // The fields stay as they are: the unit's next reply clears "dirty".
    EditorLink* link = links_.link();
    if (changes.empty() || !link)
        return;
    link->write(ip_.toStdString(), changes);
    verdict_.track(ip_.toStdString(), changes);
}

void DeviceEditor::onEdited(const EditorSection* section)
{
    // An edit that changes a field ends the verdict of the last save.
    verdict_.clear();
    update(section, false);
}

void DeviceEditor::update(const EditorSection* edited, bool fieldsReplaced)
{
    const EditorLink* link = links_.link();
    const auto unit = link ? link->unit(ip_.toStdString()) : std::nullopt;
    Vorn::Config live = unit ? unit->config : Vorn::Config{};
    const bool liveMoved = live != store_.live;
    store_.live = std::move(live);
    // Replies and clock ticks come through here; so does the save's verdict.
    verdict_.judge();
    Vorn::Config changes;
    for (EditorSection* section : sections()) {
        if (fieldsReplaced || liveMoved || section == edited)
            section->refresh();
        changes = Settings::overlay(changes, changesOf(section->comparison()));
    }
    header_.update(unit, unit && link->isOnline(*unit), ip_, store_.fields);

    Sending now;
    now.dirty = tally_.dirty() || communication_.dirty();
    if (const auto refused = sendRefusal(store_.fields, store_.live, changes))
        now.refusal = tr("Cannot send: %1").arg(translatedText(*refused));
    now.canSave = now.dirty && tally_.valid() && communication_.valid() && now.refusal.isEmpty();
    now.canApplyNetwork = network_.dirty() && network_.valid() && now.refusal.isEmpty();
    const Sending before = std::exchange(sending_, std::move(now));

    if (liveMoved)
        emit liveChanged();
    if (before.dirty != sending_.dirty)
        emit dirtyChanged();
    if (before.canSave != sending_.canSave)
        emit canSaveChanged();
    if (before.refusal != sending_.refusal)
        emit refusalChanged();
    if (before.canApplyNetwork != sending_.canApplyNetwork)
        emit canApplyNetworkChanged();
}

QVariantMap DeviceEditor::live() const
{
    return toVariantMap(store_.live);
}

QVariantList DeviceEditor::details() const
{
    QVariantList rows;
    for (const auto key : SettingKeys::kDetailKeys) {
        const auto entry = store_.live.find(key);
        if (entry == store_.live.end())
            continue;
        rows.append(QVariantMap{{QStringLiteral("key"), QString::fromStdString(entry->first)},
                                {QStringLiteral("value"), QString::fromStdString(entry->second)}});
    }
    return rows;
}
