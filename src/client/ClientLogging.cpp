#include "ClientLogging.h"

Q_LOGGING_CATEGORY(lcVornClient, "vorn.client", QtInfoMsg)
