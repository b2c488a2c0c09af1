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
