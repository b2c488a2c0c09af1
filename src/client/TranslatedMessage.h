// SPDX-License-Identifier: Apache-2.0
// A message of the settings library as the window shows it: each template
// translated in its context, then filled.
#pragma once

#include <QString>

#include "Message.h"

QString translatedText(const Settings::Message& message);
