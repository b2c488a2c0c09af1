// SPDX-License-Identifier: Apache-2.0
#include "TempDir.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace LanTest {

TempDir::TempDir()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "vorn-lan-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("cannot create a temporary directory");
    path_ = pattern;
}

TempDir::~TempDir()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

}  // namespace LanTest
