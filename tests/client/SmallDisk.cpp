// SPDX-License-Identifier: Apache-2.0
#include "SmallDisk.h"

#include <QFile>

#include <cerrno>
#include <cstring>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace ClientTest {

SmallDisk::SmallDisk(std::size_t kibibytes)
{
    if (::geteuid() != 0) {
        whyNot_ = "mounting a small tmpfs needs root";
        return;
    }
    if (::unshare(CLONE_NEWNS) != 0) {
        whyNot_ = std::string("no mount namespace of our own: ") + std::strerror(errno);
        return;
    }
    // Nothing mounted from here on reaches the machine's namespace.
    if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
        whyNot_ = std::string("cannot make the mounts private: ") + std::strerror(errno);
        return;
    }
    const std::string options = "size=" + std::to_string(kibibytes) + "k,mode=0700";
    if (::mount("vorn-small-disk", QFile::encodeName(dir_.path()).constData(), "tmpfs", MS_NOSUID | MS_NODEV,
                options.c_str()) != 0) {
        whyNot_ = std::string("cannot mount a tmpfs: ") + std::strerror(errno);
        return;
    }
    mounted_ = true;
}

SmallDisk::~SmallDisk()
{
    if (mounted_)
        ::umount2(QFile::encodeName(dir_.path()).constData(), MNT_DETACH);
}

}  // namespace ClientTest
