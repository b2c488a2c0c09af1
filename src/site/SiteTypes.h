// SPDX-License-Identifier: Apache-2.0
// What the site store keeps and gives back: plain values, times as UTC
// instants, configurations as the units report them.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "VornConfig.h"

namespace Site {

using Clock = std::chrono::system_clock;
using Time = Clock::time_point;

// One reply of one unit, as a discover round or a query heard it.
struct Sighting {
    std::string address;    // the unit's address from its report
    std::string interface;  // where it was heard ("studio0 · 10.77.1.1/24"), or empty
    Vorn::Config config;    // the whole configuration as reported
    Time heardAt;
    // The computer that heard it, "" when not known; none for this one.
    std::optional<std::string> host{};
};

enum class Verdict { Confirmed, NotConfirmed, NoAnswer, Moved };

// One write as it was sent, with its verdict once known.
struct WriteRecord {
    Time sentAt;
    std::string program;  // "vornlink" or "vornctl"
    std::string host;
    std::string user;
    std::string serial;   // the unit's serial when it reports one
    std::string address;  // where the write went
    Vorn::Config sent;    // the keys changed, with the values sent
    Verdict verdict = Verdict::Confirmed;
    std::vector<std::string> unconfirmedKeys;  // with NotConfirmed
};

struct ActivityEntry {
    Time at;
    std::string message;
};

struct RememberedUnit {
    std::string key;  // the store's name for the unit (see unitKey)
    std::string serial;
    std::string address;
    std::string interface;
    std::string firmware;
    Time firstSeen;
    Time lastSeen;
};

enum class Cause { FirstSeen, Written, Outside };

struct KeyChange {
    std::string key;
    std::string from;  // empty when the key was not reported before
    std::string to;    // empty when the key is no longer reported
    bool operator==(const KeyChange&) const = default;
};

// One configuration version of a unit and what caused it.
struct HistoryEntry {
    Time at;
    Cause cause = Cause::FirstSeen;
    std::optional<WriteRecord> write;  // with Cause::Written
    std::vector<KeyChange> changes;    // against the version before; none when first seen
    Vorn::Config config;
    std::string host;                  // the computer that heard it; empty when not known
};

// "serial:<Serial>" for a unit that reports a serial, else "address:<address>".
std::string unitKey(const std::string& serial, const std::string& address);
std::string serialOf(const Vorn::Config& config);

std::string verdictText(Verdict verdict);  // "confirmed", "not confirmed", "no answer", "moved"
std::optional<Verdict> verdictFromText(const std::string& text);

}  // namespace Site
