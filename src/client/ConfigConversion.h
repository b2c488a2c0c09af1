// SPDX-License-Identifier: Apache-2.0
// Configurations stay in their wire form inside the client; they become Qt
// types only where a view asks for them.
#pragma once

#include <QVariantMap>

#include "VornProtocol.h"

QVariantMap toVariantMap(const Vorn::Config& config);

// Every value is taken as its text form.
Vorn::Config toConfig(const QVariantMap& map);
