// Everything the editor shows that follows from its fields and the unit's
// latest reply, computed in one place so changes can be announced by comparison.
#pragma once

#include <optional>

#include <QString>
#include <QVariantList>

#include "Device.h"
#include "EditorSettings.h"

struct EditorView {
    Vorn::Config live;
    bool online = false;
    bool dirty = false;
    bool netValid = false;
    bool netDirty = false;
    bool netWarning = false;
    bool canApplyNetwork = false;
    // Why nothing can be sent (a field holds a line break or NUL), or empty.
    QString refusal;
    bool canSave = false;

    QString title;
    QString onlineText;
    QString switcherLabel;
    QString channelChip;
    QString firmwareChip;

    QString switcherSelection;
    QVariantList switcherEntries;
    int switcherIndex = 0;
    int extTallyIndex = -1;
    int sceneIndex = -1;
    int suppressIndex = -1;

    QString tallyTypeTitle;
    QString gpioTypeTitle;
    bool canIncreaseTallyType = false;
    bool canDecreaseTallyType = false;
    bool canIncreaseGpioType = false;
    bool canDecreaseGpioType = false;

    QString confirmTitle;
    QString confirmMessage;
    QVariantList details;
};

// `unit` is the client's record for `ip`, or none; `online` is the client's
// presence verdict for it.
EditorView presentEditor(const EditorFields& fields, const std::optional<Device>& unit, bool online,
                         const QString& ip);

// The type steppers' range.
using Settings::kTypeMaximum;
using Settings::kTypeMinimum;

// One step of a type stepper: the value moves by `delta` and lands inside the
// range (a reported 12 steps down to 9); a step away from the range, or past
// its end, leaves the value as it is.
std::int64_t steppedType(std::int64_t value, int delta);
