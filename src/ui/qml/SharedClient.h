// Owner of the process's one VornClient. Nothing is built up front: the client
// is made the first time a scene reads the VornClient singleton, and it lives
// as long as its owner (the whole run of the program).
#pragma once

#include <functional>
#include <memory>

#include "VornClient.h"

class SharedClient {
public:
    using Factory = std::function<std::unique_ptr<VornClient>()>;

    // The program keeps the default (device port, limited broadcast); tests
    // hand in a factory for a loopback client.
    explicit SharedClient(Factory factory = defaultFactory());
    ~SharedClient();
    SharedClient(const SharedClient&) = delete;
    SharedClient& operator=(const SharedClient&) = delete;

    // The client of the current owner, made on first use. Asking without an
    // owner is a programming error and stops the process.
    static VornClient* instance();

    bool isConstructed() const { return client_ != nullptr; }

private:
    static Factory defaultFactory();
    VornClient* client();

    Factory factory_;
    std::unique_ptr<VornClient> client_;
};
