// SPDX-License-Identifier: Apache-2.0
// A fresh directory under the system's temporary directory, removed with all
// its contents when the object goes away.
#pragma once

#include <filesystem>

namespace LanTest {

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

}  // namespace LanTest
