// SPDX-License-Identifier: Apache-2.0
#include "CommandLine.h"

#include <CLI/CLI.hpp>

#include <set>

#include <QDate>
#include <QDateTime>

#include "Commands.h"
#include "AddressBlock.h"
#include "ExitCodes.h"
#include "Ipv4.h"
#include "SiteJournal.h"
#include "SiteLocation.h"

namespace VornCtl {
namespace {

constexpr double kDefaultTimeoutSeconds = 2.0;
constexpr double kShortestTimeoutSeconds = 0.001;
constexpr double kLongestTimeoutSeconds = 3600.0;

// Everything the five commands can be given.
struct Arguments {
    double timeout = kDefaultTimeoutSeconds;
    std::optional<int> expect;
    bool json = false;
    bool yes = false;
    bool dryRun = false;
    bool network = false;
    bool allowOtherSerial = false;
    std::string address;
    std::vector<std::string> pairs;
    std::vector<std::string> addresses;
    std::string output;
    std::string file;
    std::vector<std::string> ranges;
    std::string site;
    bool noSite = false;
    std::string unit;
    std::string since;
    std::string from;
    std::string to;
    bool merge = false;
    bool showSecrets = false;
};

// A usage problem found after parsing: one line, exit 2.
struct UsageError {
    std::string message;
};

int usageError(std::ostream& err, const std::string& message)
{
    err << "vornctl: " << message << "; try 'vornctl --help'\n";
    return kExitUsage;
}

// Every address of the --range blocks, in the order given, each once.
std::vector<std::string> scanAddresses(const std::vector<std::string>& ranges)
{
    std::vector<std::string> addresses;
    std::set<std::uint32_t> seen;
    for (const auto& text : ranges) {
        const auto parsed = Settings::parseAddressBlock(text);
        if (const auto* problem = std::get_if<Settings::AddressBlockProblem>(&parsed)) {
            using Kind = Settings::AddressBlockProblem::Kind;
            if (problem->kind == Kind::Reversed)
                throw UsageError{"the range '" + text + "' ends before it starts"};
            if (problem->kind == Kind::TooLarge)
                throw UsageError{"'" + text + "' covers " + std::to_string(problem->size) + " addresses; at most " +
                                 std::to_string(Settings::kMaxScanAddresses) + " can be scanned"};
            throw UsageError{"'" + text + "' is neither a CIDR block (10.78.5.0/24) nor a range (10.78.5.10-10.78.5.99)"};
        }
        for (const auto address : std::get<Settings::AddressBlock>(parsed).addresses()) {
            if (seen.insert(address.value()).second)
                addresses.push_back(address.toString());
        }
    }
    if (addresses.size() > Settings::kMaxScanAddresses)
        throw UsageError{"the ranges cover " + std::to_string(addresses.size()) + " addresses; at most " +
                         std::to_string(Settings::kMaxScanAddresses) + " can be scanned"};
    return addresses;
}

std::string canonicalAddress(const std::string& text)
{
    auto address = Settings::canonicalIpv4(text);
    if (!address)
        throw UsageError{"'" + text + "' is not an IPv4 address"};
    return *address;
}

// An ISO 8601 date ("2026-11-23", midnight UTC) or date and time
// ("2026-11-23T14:00:00Z", UTC when no offset is given).
Site::Time sinceTime(const std::string& text)
{
    const QString value = QString::fromStdString(text);
    QDateTime time = QDateTime::fromString(value, Qt::ISODate);
    if (!time.isValid()) {
        const QDate date = QDate::fromString(value, Qt::ISODate);
        if (date.isValid())
            time = date.startOfDay(Qt::UTC);
    } else if (time.timeSpec() == Qt::LocalTime) {
        time.setTimeSpec(Qt::UTC);
    }
    if (!time.isValid())
        throw UsageError{"--since '" + text + "' is not an ISO 8601 date or time"};
    // Beyond what the clock holds (the year 2262) nothing is that late.
    const auto latest = std::chrono::duration_cast<std::chrono::milliseconds>(Site::Time::max().time_since_epoch());
    if (time.toMSecsSinceEpoch() >= latest.count())
        return Site::Time::max();
    return Site::Time(std::chrono::milliseconds(time.toMSecsSinceEpoch()));
}

// The unit named on the command line: an address in its canonical text, else a serial.
std::string unitName(const std::string& text)
{
    return Settings::canonicalIpv4(text).value_or(text);
}

// The store the options name and, for a site server, the journal that
// stands in for it while it does not answer.
struct OpenedSite {
    std::unique_ptr<Site::SiteStore> store;
    std::optional<Site::SiteJournal> journal;

    // Where what vornctl hears and writes goes, or nullptr.
    Site::SiteStore* recording()
    {
        if (store && store->canRecord())
            return store.get();
        if (journal && store->state() == Site::StoreState::Unreachable && journal->store().canRecord())
            return &journal->store();
        return nullptr;
    }
};

// Opens the store the options name, sends a server what waits in the
// journal, and says once what the user must know; no store with --no-site.
OpenedSite openSite(const Arguments& arguments, std::ostream& err)
{
    OpenedSite site;
    const auto path = Site::sitePath({arguments.noSite, QString::fromStdString(arguments.site)});
    if (!path)
        return site;
    site.store = Site::SiteStore::open(*path);
    auto& store = *site.store;
    if (auto aside = store.takeDamagedNotice())
        err << "vornctl: The site file was damaged; kept as " << aside->toStdString() << " and started a new one\n";
    if (store.onServer()) {
        site.journal.emplace();
        const std::string journal = site.journal->path().toStdString();
        if (store.canRecord() && !site.journal->sendTo(store))
            err << "vornctl: what waits in " << journal << " could not be sent yet: " << store.problem().toStdString()
                << '\n';
        if (store.state() == Site::StoreState::Unreachable)
            err << "vornctl: Site server unreachable: " << store.problem().toStdString() << "; keeping what is recorded in "
                << journal << " until it answers\n";
    }
    if (store.state() == Site::StoreState::Unavailable)
        err << "vornctl: Not remembering: " << store.problem().toStdString() << '\n';
    else if (store.state() == Site::StoreState::NewerSchema)
        err << "vornctl: " << store.problem().toStdString() << '\n';
    return site;
}

void addTimeout(CLI::App* command, Arguments& arguments, const std::string& what)
{
    command->add_option("--timeout", arguments.timeout, what + " (seconds, default 2, at most an hour)")
        ->check(CLI::Range(kShortestTimeoutSeconds, kLongestTimeoutSeconds))
        ->option_text("S");
}

}  // namespace

int runCommandLine(int argc, const char* const* argv, std::ostream& out, std::ostream& err)
{
    CLI::App app{"Checks, configures, backs up and restores base stations on the local network.", "vornctl"};
    app.set_version_flag("--version", std::string("vornctl ") + VORNCTL_VERSION);
    app.require_subcommand(1);
    // The site options are read before or after the command.
    app.fallthrough();
    app.footer("Exit status: 0 done, 1 failure (port taken, unreadable file), 2 bad usage, 3 fewer units than "
               "--expect, 4 a unit did not answer or is not remembered, 5 a unit reports other values than written.\n");
    Arguments arguments;
    auto* siteOption = app.add_option("--site", arguments.site, "the site file or server (postgresql://user@host/db)"
                                      " to remember units in (default: $VORNLINK_SITE, else "
                                      "$XDG_DATA_HOME/vornlink/site.sqlite)")
                           ->option_text("PATH|URI");
    app.add_flag("--no-site", arguments.noSite, "remember nothing")->excludes(siteOption);

    auto* discover = app.add_subcommand("discover", "List every unit that answers a broadcast discover.");
    addTimeout(discover, arguments, "how long to broadcast, every 0.5 s");
    discover->add_option("--expect", arguments.expect, "exit 3 when fewer units answer")
        ->check(CLI::NonNegativeNumber)
        ->option_text("N");
    discover->add_flag("--json", arguments.json, "a JSON array of units, sorted by address");
    discover->add_option("--range", arguments.ranges,
                         "instead of broadcasting, ask each address of a CIDR block or an A-B range by unicast "
                         "(repeatable, at most 4096 addresses in all)")
        ->option_text("CIDR|A-B");

    auto* show = app.add_subcommand("show", "Print one unit's configuration.");
    show->add_option("ADDRESS", arguments.address, "the unit's IPv4 address")->required();
    addTimeout(show, arguments, "how long to wait for the unit (three tries)");
    show->add_flag("--json", arguments.json, "the unit as a JSON object");

    auto* set = app.add_subcommand("set", "Write settings to one unit and check what it reports afterwards.");
    set->add_option("ADDRESS", arguments.address, "the unit's IPv4 address")->required();
    set->add_option("KEY=VALUE", arguments.pairs, "settings to write, e.g. Channel=5")->required();
    set->add_flag("--yes", arguments.yes, "allow IPAddress, Netmask and Gateway");
    addTimeout(set, arguments, "how long to wait for each answer");

    auto* backup = app.add_subcommand("backup", "Save units' configurations into one backup file.");
    backup->add_option("ADDRESS", arguments.addresses, "units to save (default: every unit that answers)");
    backup->add_option("-o,--output", arguments.output, "the file to write (default: standard output)")
        ->option_text("FILE");
    addTimeout(backup, arguments, "how long to look for units");

    auto* restore = app.add_subcommand("restore", "Write a backup file's settings back to its units.");
    restore->add_option("FILE", arguments.file, "a file written by vornctl backup")->required();
    restore->add_flag("--dry-run", arguments.dryRun, "show the differences, write nothing");
    restore->add_flag("--network", arguments.network, "also restore IPAddress, Netmask and Gateway");
    restore->add_flag("--yes", arguments.yes, "confirm --network");
    restore->add_flag("--allow-other-serial", arguments.allowOtherSerial,
                      "also restore a unit of the file onto another unit (another serial) answering at its address");
    addTimeout(restore, arguments, "how long to look for units and wait for answers");

    auto* units = app.add_subcommand("units", "List the units the site remembers and whether they answer now.");
    addTimeout(units, arguments, "how long to broadcast for the units that answer now");
    units->add_flag("--json", arguments.json, "a JSON array of units, sorted by address");

    auto* history = app.add_subcommand("history", "Show a remembered unit's configuration versions, newest first.");
    history->add_option("UNIT", arguments.unit, "the unit's serial or address")->required();
    history->add_flag("--json", arguments.json, "a JSON array of versions");
    history->add_option("--since", arguments.since, "only versions from this UTC date or time on")
        ->option_text("TIME");
    history->add_flag("--show-secrets", arguments.showSecrets, "show CallMagic values instead of (hidden)");

    auto* forget = app.add_subcommand("forget", "Remove a unit, its versions and its writes from the site.");
    forget->add_option("UNIT", arguments.unit, "the unit's serial or address")->required();
    forget->add_flag("--yes", arguments.yes, "confirm");

    auto* siteCommand = app.add_subcommand("site", "Work on a whole site store.");
    siteCommand->require_subcommand(1);
    auto* copy = siteCommand->add_subcommand("copy", "Copy every unit, version, write and activity entry of one site store "
                                              "into another (a file or a postgresql:// server).");
    copy->add_option("--from", arguments.from, "the site file or server URI to copy")->required()->option_text("PATH|URI");
    copy->add_option("--to", arguments.to, "the site file or server URI to copy into; refused when it remembers "
                                           "anything, unless --merge")
        ->required()
        ->option_text("PATH|URI");
    copy->add_flag("--merge", arguments.merge, "also copy into a store that remembers units or activity");

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& help) {
        return app.exit(help, out, err);
    } catch (const CLI::CallForAllHelp& help) {
        return app.exit(help, out, err);
    } catch (const CLI::CallForVersion& version) {
        return app.exit(version, out, err);
    } catch (const CLI::ParseError& error) {
        return usageError(err, error.what());
    }

    std::variant<SetRequest, std::string> setRequest;
    HistoryRequest historyRequest;
    Settings::Backup backupFile;
    std::vector<std::string> scanned;
    try {
        scanned = scanAddresses(arguments.ranges);
        if (show->parsed() || set->parsed())
            arguments.address = canonicalAddress(arguments.address);
        for (auto& address : arguments.addresses)
            address = canonicalAddress(address);
        if (set->parsed()) {
            setRequest = parseSetRequest(arguments.address, arguments.pairs, arguments.yes);
            if (const auto* problem = std::get_if<std::string>(&setRequest))
                throw UsageError{*problem};
        }
        if (restore->parsed() && arguments.network && !arguments.yes && !arguments.dryRun)
            throw UsageError{"--network writes IPAddress, Netmask and Gateway; add --yes to confirm"};
        if ((units->parsed() || history->parsed() || forget->parsed()) && arguments.noSite)
            throw UsageError{"this command reads the site; drop --no-site"};
        if (forget->parsed() && !arguments.yes)
            throw UsageError{"forget removes the unit and its history from the site; add --yes to confirm"};
        if (history->parsed() && !arguments.since.empty())
            historyRequest.since = sinceTime(arguments.since);
    } catch (const UsageError& error) {
        return usageError(err, error.message);
    }
    if (restore->parsed()) {
        auto read = Settings::readBackupFile(arguments.file);
        if (const auto* problem = std::get_if<Settings::BackupError>(&read)) {
            err << "vornctl: " << Settings::english(problem->message) << '\n';
            return kExitFailure;
        }
        backupFile = std::get<Settings::Backup>(std::move(read));
    }

    if (copy->parsed())
        return runSiteCopy(out, err, {arguments.from, arguments.to, arguments.merge});
    const auto timeout = std::chrono::milliseconds(static_cast<std::int64_t>(arguments.timeout * 1000.0));
    auto site = openSite(arguments, err);
    auto& store = site.store;
    if (units->parsed() || history->parsed() || forget->parsed()) {
        if (!store->canRead())
            return kExitFailure;
        SiteContext siteContext{out, err, *store};
        if (history->parsed()) {
            historyRequest.unit = unitName(arguments.unit);
            historyRequest.json = arguments.json;
            historyRequest.showSecrets = arguments.showSecrets;
            return runHistory(siteContext, historyRequest);
        }
        if (forget->parsed())
            return runForget(siteContext, unitName(arguments.unit));
        UnitLink link;
        if (link.open())
            return runUnits(siteContext, &link, timeout, arguments.json);
        err << "vornctl: cannot bind UDP 23457 (is VornLink running?); whether units answer now is not known\n";
        return runUnits(siteContext, nullptr, timeout, arguments.json);
    }

    UnitLink link;
    if (!link.open()) {
        err << "vornctl: cannot bind UDP 23457 (is VornLink running?)\n";
        return kExitFailure;
    }
    SiteRecording recording(site.recording());
    Context context{out, err, link, timeout, recording};
    if (discover->parsed())
        return runDiscover(context, scanned, arguments.expect, arguments.json);
    if (show->parsed())
        return runShow(context, arguments.address, arguments.json);
    if (set->parsed())
        return runSet(context, std::get<SetRequest>(setRequest));
    if (backup->parsed())
        return runBackup(context, arguments.addresses, arguments.output);
    return runRestore(context, backupFile, {arguments.dryRun, arguments.network, arguments.allowOtherSerial});
}

}  // namespace VornCtl
