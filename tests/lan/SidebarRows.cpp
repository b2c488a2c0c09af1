// SPDX-License-Identifier: Apache-2.0
#include "SidebarRows.h"

#include <sstream>

namespace LanTest {
namespace {

const std::string kPrefix = "vornlink.sidebar: rows ";

}  // namespace

nlohmann::json lastSidebarRows(const std::string& stderrText)
{
    nlohmann::json rows = nlohmann::json::array();
    std::istringstream lines(stderrText);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(kPrefix, 0) == 0)
            rows = nlohmann::json::parse(line.substr(kPrefix.size()));
    }
    return rows;
}

std::string sidebarRowsLine(const nlohmann::json& rows)
{
    return kPrefix + rows.dump();
}

}  // namespace LanTest
