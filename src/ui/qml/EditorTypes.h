// The device editor as QML sees it: each DeviceDetailView makes its own
// DeviceEditor and binds every control to it.
#pragma once

#include <QtQml/qqmlregistration.h>

#include "DeviceEditor.h"

struct DeviceEditorForeign {
    Q_GADGET
    QML_FOREIGN(DeviceEditor)
    QML_NAMED_ELEMENT(DeviceEditor)
};

// The verdict of the last save, read through DeviceEditor.verdict.
struct SaveVerdictForeign {
    Q_GADGET
    QML_FOREIGN(SaveVerdict)
    QML_NAMED_ELEMENT(SaveVerdict)
    QML_UNCREATABLE("SaveVerdict belongs to a DeviceEditor")
};
