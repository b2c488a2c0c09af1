// SPDX-License-Identifier: Apache-2.0
// A small file system that fills up: a tmpfs of a few hundred kilobytes,
// mounted in a mount namespace of the calling thread's own, so that the
// machine's mounts never see it. Threads started by the calling thread
// afterwards see it too. Needs root; otherwise it says why not.
#pragma once

#include <QString>
#include <QTemporaryDir>

#include <cstddef>
#include <string>

namespace ClientTest {

class SmallDisk {
public:
    explicit SmallDisk(std::size_t kibibytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool mounted() const { return mounted_; }
    // Why it could not be mounted, or empty.
    const std::string& whyNot() const { return whyNot_; }
    QString path() const { return dir_.path(); }

private:
    QTemporaryDir dir_;
    bool mounted_ = false;
    std::string whyNot_;
};

}  // namespace ClientTest
