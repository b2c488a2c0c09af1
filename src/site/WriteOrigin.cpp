// SPDX-License-Identifier: Apache-2.0
#include "WriteOrigin.h"

#include <pwd.h>
#include <unistd.h>

#include <QString>
#include <QSysInfo>


namespace Site {

std::string hostName()
{
    return QSysInfo::machineHostName().toStdString();
}

std::string userName()
{
    if (const passwd* entry = ::getpwuid(::geteuid()))
        return entry->pw_name;
    return std::to_string(::geteuid());
}

}  // namespace Site
