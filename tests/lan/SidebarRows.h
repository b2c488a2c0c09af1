// SPDX-License-Identifier: Apache-2.0
// The window's sidebar diagnostics (category vornlink.sidebar): each report
// is one line "vornlink.sidebar: rows " followed by a JSON array of
// [address, title, note] triples, one per row shown, top to bottom (note:
// the text after the address: "last seen …" while a remembered unit has not
// answered, then the warnings; empty for a unit without any).
#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace LanTest {

// The rows of the latest report in `stderrText`, or an empty array.
nlohmann::json lastSidebarRows(const std::string& stderrText);

// The report line for `rows`.
std::string sidebarRowsLine(const nlohmann::json& rows);

}  // namespace LanTest
