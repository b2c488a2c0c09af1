// SPDX-License-Identifier: Apache-2.0
#include "TextFile.h"

#include <fstream>
#include <sstream>

namespace LanTest {

std::string readTextFile(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

}  // namespace LanTest
