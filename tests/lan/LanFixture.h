// SPDX-License-Identifier: Apache-2.0
// Test support for running vornlink and vorn-sim on a private LAN of two
// network namespaces (no Qt, standard C++ and POSIX only). Link the static
// library vorn_lan_fixture; it also brings the paths of the programs.
//
//   IsolatedLan  the namespace pair (RAII); unavailableReason() for GTEST_SKIP
//   Process      a program inside one namespace, output captured to files
//   Simulator    vorn-sim in the units namespace with its receive log
//   readSimLog   the datagrams vorn-sim logged
//   TempDir      a scratch directory removed afterwards
//   kVornlinkBinary, kSimulatorBinary, kHarnessScript  (LanPaths.h)
//
// Example:
//   if (auto reason = LanTest::IsolatedLan::unavailableReason()) GTEST_SKIP() << *reason;
//   LanTest::TempDir dir;
//   LanTest::IsolatedLan lan;
//   LanTest::Simulator sim(lan, {"--count", "2"}, dir.path());
//   LanTest::Process app(lan.consoleNs(), {LanTest::kVornlinkBinary, "--selftest"}, dir.path());
//   EXPECT_EQ(app.wait(std::chrono::seconds(20)), 0);
//   auto received = sim.stopAndReadLog();
#pragma once

#include "IsolatedLan.h"
#include "LanPaths.h"
#include "Process.h"
#include "SimLog.h"
#include "Simulator.h"
#include "TempDir.h"
#include "TextFile.h"
