// SPDX-License-Identifier: Apache-2.0
// Sole owner of a POSIX descriptor: closes it once, moves, never copies.
#pragma once

#include <unistd.h>

#include <utility>

namespace VornSim {

class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int fd) : fd_(fd) {}
    ~FileDescriptor()
    {
        if (fd_ >= 0)
            ::close(fd_);
    }
    FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(fd_, other.fd_);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    int get() const { return fd_; }
    bool isOpen() const { return fd_ >= 0; }

private:
    int fd_ = -1;
};

}  // namespace VornSim
