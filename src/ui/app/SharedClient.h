// SPDX-License-Identifier: Apache-2.0
// The client behind QML's SharedClient singleton. Each QML engine owns its
// client: it is made the first time a scene (or C++ through of()) asks for it
// and is deleted with the engine, after the engine's scenes are gone. There is
// no owner object beside the engine, so no declaration order to get right.
#pragma once

#include <functional>
#include <memory>

#include "VornClient.h"

class QQmlEngine;

namespace SharedClient {

using Factory = std::function<std::unique_ptr<VornClient>()>;

// The program's client: the device port, limited broadcast.
Factory deviceFactory();

// Says how `engine` makes its client; call it once, before the engine loads a
// scene. An engine asked for a client it was not given stops the process: a
// scene must never reach the device port by accident.
void provide(QQmlEngine& engine, Factory factory);

// The client of `engine`, made on first use.
VornClient* of(QQmlEngine& engine);

}  // namespace SharedClient
