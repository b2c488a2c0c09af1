// SPDX-License-Identifier: Apache-2.0
// vornctl's exit statuses, as documented in its manual and the README.
#pragma once

namespace VornCtl {

inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;       // port taken, file unreadable, write refused
inline constexpr int kExitUsage = 2;         // bad arguments or values; nothing sent
inline constexpr int kExitTooFew = 3;        // discover --expect N: fewer answered
inline constexpr int kExitNoAnswer = 4;      // a unit did not answer
inline constexpr int kExitNotConfirmed = 5;  // a unit reports other values than written

}  // namespace VornCtl
