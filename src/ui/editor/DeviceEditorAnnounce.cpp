// Change announcement: the editor compares what it shows now with what it
// last announced and emits one NOTIFY per property that really changed.
#include <utility>

#include "DeviceEditor.h"

namespace {

template <typename Value>
void notifyIf(DeviceEditor* editor, const Value& before, const Value& now, void (DeviceEditor::*signal)())
{
    if (before != now)
        emit(editor->*signal)();
}

}  // namespace

void DeviceEditor::announce()
{
    // Replies and clock ticks come through here; so does the save's verdict.
    verdict_.judge();
    // Copies, so a slot that edits again announces its own change safely.
    const Snapshot before = std::exchange(shown_, snapshot());
    const Snapshot now = shown_;
    announceState(before.state, now.state);
    announceView(before.view, now.view);
}

void DeviceEditor::announceState(const State& before, const State& now)
{
    const EditorFields& was = before.fields;
    const EditorFields& is = now.fields;
    notifyIf(this, was.atemIp, is.atemIp, &DeviceEditor::atemIpChanged);
    notifyIf(this, was.atemPort, is.atemPort, &DeviceEditor::atemPortChanged);
    notifyIf(this, was.channel, is.channel, &DeviceEditor::channelChanged);
    notifyIf(this, was.band, is.band, &DeviceEditor::bandChanged);
    notifyIf(this, was.model, is.model, &DeviceEditor::modelChanged);
    notifyIf(this, was.extTally, is.extTally, &DeviceEditor::extTallyChanged);
    notifyIf(this, was.tallyType, is.tallyType, &DeviceEditor::tallyTypeChanged);
    notifyIf(this, was.gpioType, is.gpioType, &DeviceEditor::gpioTypeChanged);
    notifyIf(this, before.loadedFor, now.loadedFor, &DeviceEditor::loadedForChanged);
    notifyIf(this, was.ipAddr, is.ipAddr, &DeviceEditor::ipAddrChanged);
    notifyIf(this, was.netmask, is.netmask, &DeviceEditor::netmaskChanged);
    notifyIf(this, was.gateway, is.gateway, &DeviceEditor::gatewayChanged);
    notifyIf(this, before.showNetConfirm, now.showNetConfirm, &DeviceEditor::showNetConfirmChanged);
    notifyIf(this, before.tab, now.tab, &DeviceEditor::tabChanged);
    notifyIf(this, was.scene, is.scene, &DeviceEditor::sceneChanged);
    notifyIf(this, was.suppress, is.suppress, &DeviceEditor::suppressChanged);
    notifyIf(this, was.wire2, is.wire2, &DeviceEditor::wire2Changed);
    notifyIf(this, was.password, is.password, &DeviceEditor::passwordChanged);
}

void DeviceEditor::announceView(const EditorView& was, const EditorView& is)
{
    notifyIf(this, was.live, is.live, &DeviceEditor::liveChanged);
    notifyIf(this, was.online, is.online, &DeviceEditor::onlineChanged);
    notifyIf(this, was.dirty, is.dirty, &DeviceEditor::dirtyChanged);
    notifyIf(this, was.netValid, is.netValid, &DeviceEditor::netValidChanged);
    notifyIf(this, was.netDirty, is.netDirty, &DeviceEditor::netDirtyChanged);
    notifyIf(this, was.netWarning, is.netWarning, &DeviceEditor::netWarningChanged);
    notifyIf(this, was.canApplyNetwork, is.canApplyNetwork, &DeviceEditor::canApplyNetworkChanged);
    notifyIf(this, was.canSave, is.canSave, &DeviceEditor::canSaveChanged);
    notifyIf(this, was.refusal, is.refusal, &DeviceEditor::refusalChanged);
    notifyIf(this, was.title, is.title, &DeviceEditor::titleChanged);
    notifyIf(this, was.onlineText, is.onlineText, &DeviceEditor::onlineTextChanged);
    notifyIf(this, was.switcherLabel, is.switcherLabel, &DeviceEditor::switcherLabelChanged);
    notifyIf(this, was.channelChip, is.channelChip, &DeviceEditor::channelChipChanged);
    notifyIf(this, was.firmwareChip, is.firmwareChip, &DeviceEditor::firmwareChipChanged);
    notifyIf(this, was.switcherSelection, is.switcherSelection, &DeviceEditor::switcherSelectionChanged);
    notifyIf(this, was.switcherEntries, is.switcherEntries, &DeviceEditor::switcherEntriesChanged);
    notifyIf(this, was.switcherIndex, is.switcherIndex, &DeviceEditor::switcherIndexChanged);
    notifyIf(this, was.extTallyIndex, is.extTallyIndex, &DeviceEditor::extTallyIndexChanged);
    notifyIf(this, was.sceneIndex, is.sceneIndex, &DeviceEditor::sceneIndexChanged);
    notifyIf(this, was.suppressIndex, is.suppressIndex, &DeviceEditor::suppressIndexChanged);
    notifyIf(this, was.tallyTypeTitle, is.tallyTypeTitle, &DeviceEditor::tallyTypeTitleChanged);
    notifyIf(this, was.gpioTypeTitle, is.gpioTypeTitle, &DeviceEditor::gpioTypeTitleChanged);
    notifyIf(this, was.canIncreaseTallyType, is.canIncreaseTallyType, &DeviceEditor::canIncreaseTallyTypeChanged);
    notifyIf(this, was.canDecreaseTallyType, is.canDecreaseTallyType, &DeviceEditor::canDecreaseTallyTypeChanged);
    notifyIf(this, was.canIncreaseGpioType, is.canIncreaseGpioType, &DeviceEditor::canIncreaseGpioTypeChanged);
    notifyIf(this, was.canDecreaseGpioType, is.canDecreaseGpioType, &DeviceEditor::canDecreaseGpioTypeChanged);
    notifyIf(this, was.confirmTitle, is.confirmTitle, &DeviceEditor::confirmTitleChanged);
    notifyIf(this, was.confirmMessage, is.confirmMessage, &DeviceEditor::confirmMessageChanged);
    notifyIf(this, was.details, is.details, &DeviceEditor::detailsChanged);
}
