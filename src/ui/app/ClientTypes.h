// SPDX-License-Identifier: Apache-2.0
// The client's types as QML sees them: the type VornClient (views take one as
// a property), the singleton SharedClient (the engine's client, see
// SharedClient.h), the clock and the activity log that come with a client,
// and the device list model, which QML makes and points at a client.
#pragma once

#include <QJSEngine>
#include <QQmlEngine>
#include <QtQml/qqmlregistration.h>

#include "ActivityLog.h"
#include "DeviceListModel.h"
#include "PresenceClock.h"
#include "SharedClient.h"
#include "VornClient.h"

struct VornClientForeign {
    Q_GADGET
    QML_FOREIGN(VornClient)
    QML_NAMED_ELEMENT(VornClient)
    QML_UNCREATABLE("the window uses SharedClient")
};

// The same class as VornClient under another name. It has to be registered
// after VornClientForeign (the registrar goes by struct name), or QML no longer
// takes "VornClient" as a property type.
struct VornClientSingleton {
    Q_GADGET
    QML_FOREIGN(VornClient)
    QML_NAMED_ELEMENT(SharedClient)
    QML_SINGLETON

public:
    static VornClient* create(QQmlEngine* engine, QJSEngine*)
    {
        VornClient* client = SharedClient::of(*engine);
        // The engine's SharedClient holder deletes it, not the garbage collector.
        QJSEngine::setObjectOwnership(client, QJSEngine::CppOwnership);
        return client;
    }
};

struct PresenceClockForeign {
    Q_GADGET
    QML_FOREIGN(PresenceClock)
    QML_NAMED_ELEMENT(PresenceClock)
    QML_UNCREATABLE("the clock belongs to a VornClient")
};

struct ActivityLogForeign {
    Q_GADGET
    QML_FOREIGN(ActivityLog)
    QML_NAMED_ELEMENT(ActivityLog)
    QML_UNCREATABLE("the activity log belongs to a VornClient")
};

// A subclass, because a foreign registration does not make a type creatable here.
class QmlDeviceListModel : public DeviceListModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(DeviceListModel)

public:
    using DeviceListModel::DeviceListModel;
};
