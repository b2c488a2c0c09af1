// SPDX-License-Identifier: Apache-2.0
#include "ClientLogging.h"

Q_LOGGING_CATEGORY(lcVornClient, "vorn.client", QtInfoMsg)
