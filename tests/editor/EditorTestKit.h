// A device editor attached to a client that can reach loopback only, with
// time that moves by hand and replies fed straight into the client.
#pragma once

#include <memory>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "ClientTestKit.h"
#include "DeviceEditor.h"

// Readable QString values in failure messages.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace EditorTest {

// The edited unit; writes to it reach the fake unit of the client tests.
inline constexpr const char* kUnitIp = ClientTest::kUnitAddress;

// The least a unit can report and still load without a difference: the
// integer keys of "Save changes" (a missing one counts as the empty text),
// canonical; then `extra` on top.
Vorn::Config cleanUnit(const Vorn::Config& extra = {});

class EditorFixture : public testing::Test {
protected:
    std::uint16_t port = ClientTest::freeUdpPort();
    std::unique_ptr<VornClient> client = ClientTest::loopbackClient(port);
    ClientTest::ManualTime time{client->clock()};
    DeviceEditor editor;

    // A configuration report from the unit at `ip`, merged as the client would.
    void report(const Vorn::Config& config, const std::string& ip = kUnitIp);
    // The editor opened on `ip` of this client, as the window does on selection.
    void open(const std::string& ip = kUnitIp);
    // The changes of the client's latest write line, "" when the last line is no write.
    QString lastWrite() const;
};

}  // namespace EditorTest
