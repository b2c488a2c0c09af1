// SPDX-License-Identifier: Apache-2.0
// vornctl's commands. Each takes arguments already checked by the command
// line (and a bound link, a site store or both), writes results to `out` and
// progress to `err`, and returns the exit status.
#pragma once

#include <chrono>
#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "BackupFile.h"
#include "SiteRecording.h"
#include "SiteStore.h"
#include "UnitLink.h"

namespace VornCtl {

struct Context {
    std::ostream& out;
    std::ostream& err;
    UnitLink& link;
    std::chrono::milliseconds timeout;
    SiteRecording& site;
};

// `scanned` empty: every unit that answers broadcasts; otherwise the units
// that answer a unicast discover to one of these addresses.
int runDiscover(Context& context, const std::vector<std::string>& scanned, std::optional<int> expect, bool json);

int runShow(Context& context, const std::string& address, bool json);

struct SetRequest {
    std::string address;
    Vorn::Config changes;
};
// The pairs as a write, or why they cannot be written (a usage error).
std::variant<SetRequest, std::string> parseSetRequest(const std::string& address,
                                                      const std::vector<std::string>& pairs, bool yes);
int runSet(Context& context, const SetRequest& request);

// Units by address; empty means every unit that answers a broadcast.
int runBackup(Context& context, const std::vector<std::string>& addresses, const std::string& outputPath);

struct RestoreOptions {
    bool dryRun = false;
    bool network = false;  // also the network keys (needs --yes unless dry)
    bool allowOtherSerial = false;  // also onto another serial at a file unit's address
};
int runRestore(Context& context, const Settings::Backup& backup, const RestoreOptions& options);

// The commands on the site store alone.
struct SiteContext {
    std::ostream& out;
    std::ostream& err;
    Site::SiteStore& store;
};

// The remembered units; online is what answers a broadcast within `timeout`
// when `link` is there (the port was free), unknown otherwise.
int runUnits(SiteContext& context, UnitLink* link, std::chrono::milliseconds timeout, bool json);

struct HistoryRequest {
    std::string unit;  // a serial or an address
    bool json = false;
    std::optional<Site::Time> since;
    bool showSecrets = false;
};
int runHistory(SiteContext& context, const HistoryRequest& request);

int runForget(SiteContext& context, const std::string& unit);

struct SiteCopyRequest {
    std::string from;  // a site file or server URI
    std::string to;
    bool merge = false;  // also into a store that remembers something
};
int runSiteCopy(std::ostream& out, std::ostream& err, const SiteCopyRequest& request);

}  // namespace VornCtl
