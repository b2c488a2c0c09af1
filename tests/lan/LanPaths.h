// SPDX-License-Identifier: Apache-2.0
// Where the programs run on the private LAN are, as set by the build
// (compile definitions exported by the vorn_lan_fixture library).
#pragma once

namespace LanTest {

inline constexpr const char* kHarnessScript = VORN_LAN_HARNESS;
inline constexpr const char* kVornlinkBinary = VORN_LAN_VORNLINK;
inline constexpr const char* kSimulatorBinary = VORN_LAN_SIMULATOR;

}  // namespace LanTest
