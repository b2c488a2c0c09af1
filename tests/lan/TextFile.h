// SPDX-License-Identifier: Apache-2.0
// The whole content of a file as text (empty when it cannot be read).
#pragma once

#include <filesystem>
#include <string>

namespace LanTest {

std::string readTextFile(const std::filesystem::path& path);

}  // namespace LanTest
