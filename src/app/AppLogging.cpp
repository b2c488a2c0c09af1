#include "AppLogging.h"

Q_LOGGING_CATEGORY(lcWindow, "vornlink.window", QtWarningMsg)
