// SPDX-License-Identifier: Apache-2.0
// vornctl's bash completion run by bash on partial command lines, the line
// split at blanks and at "=" as readline does, and the zsh file parsed by zsh.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <sstream>
#include <string>

#include "EditableKeys.h"

namespace {

// Runs the shell command and returns its standard output and exit status.
std::pair<std::string, int> run(const std::string& command)
{
    std::string output;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return {output, -1};
    char buffer[512];
    while (std::fgets(buffer, sizeof buffer, pipe))
        output += buffer;
    return {output, ::pclose(pipe)};
}

std::string quoted(const std::string& text)
{
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + "'";
}

// The candidates bash completion offers for `line`, the cursor at its end.
std::set<std::string> candidates(const std::string& line)
{
    const std::string script =
        "source " + quoted(VORNCTL_BASH_COMPLETION) + "\n"
        "line=$1\n"
        "COMP_LINE=$line COMP_POINT=${#line}\n"
        "read -ra COMP_WORDS <<<\"${line//=/ = }\"\n"
        "[[ $line == *' ' || $line == *= ]] && COMP_WORDS+=('')\n"
        "COMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
        "_vornctl\n"
        "printf '%s\\n' \"${COMPREPLY[@]}\"\n";
    const auto [output, status] = run("bash -c " + quoted(script) + " completion " + quoted(line));
    EXPECT_EQ(status, 0) << line;
    std::set<std::string> found;
    std::istringstream lines(output);
    for (std::string candidate; std::getline(lines, candidate);)
        if (!candidate.empty())
            found.insert(candidate);
    return found;
}

std::set<std::string> everyKey()
{
    std::set<std::string> keys;
    for (const auto& entry : Settings::kEditableKeys)
        keys.insert(std::string(entry.key) + "=");
    return keys;
}

using Set = std::set<std::string>;

Set fromHelp(const std::string& command, const std::string& section);

TEST(Completion, CommandsAfterTheProgramName)
{
    EXPECT_EQ(candidates("vornctl "), (Set{"discover", "show", "set", "backup", "restore", "units", "history", "forget",
                                           "site", "--site", "--no-site", "--help", "--version"}));
    EXPECT_EQ(candidates("vornctl se"), (Set{"set"}));
    EXPECT_EQ(candidates("vornctl re"), (Set{"restore"}));
}

TEST(Completion, EachCommandsOwnOptions)
{
    EXPECT_EQ(candidates("vornctl discover --"), (Set{"--timeout", "--expect", "--json", "--range", "--help"}));
    EXPECT_EQ(candidates("vornctl history --s"), (Set{"--since", "--show-secrets"}));
    EXPECT_EQ(candidates("vornctl restore --d"), (Set{"--dry-run"}));
    EXPECT_EQ(candidates("vornctl set 10.0.0.1 --y"), (Set{"--yes"}));
    EXPECT_EQ(candidates("vornctl backup -"), (Set{"-o", "--output", "--timeout", "--help"}));
}

TEST(Completion, SiteOffersCopyAndThenCopysOptions)
{
    EXPECT_EQ(candidates("vornctl site "), (Set{"copy"}));
    EXPECT_EQ(candidates("vornctl site copy -"), (Set{"--from", "--to", "--merge", "--help"}));
    EXPECT_EQ(candidates("vornctl site copy --from laptop.sqlite --m"), (Set{"--merge"}));
    // The same options as `vornctl site copy --help` lists.
    EXPECT_EQ(candidates("vornctl site copy -"), fromHelp("site copy", "Options:"));
}

TEST(Completion, SetOffersEveryWritableKeyAfterTheAddress)
{
    EXPECT_EQ(candidates("vornctl set 10.0.0.1 Cha"), (Set{"Channel="}));
    EXPECT_EQ(candidates("vornctl set 10.0.0.1 "), everyKey());
    EXPECT_EQ(candidates("vornctl set 10.0.0.1 Channel=5 Wi"), (Set{"Wire2Enable="}));
    EXPECT_EQ(candidates("vornctl set --timeout 3 10.0.0.1 Tally"), (Set{"TallyType=", "TallyGpioType="}));
}

TEST(Completion, NothingWhereAnAddressOrAValueIsTyped)
{
    EXPECT_EQ(candidates("vornctl set "), Set{});
    EXPECT_EQ(candidates("vornctl show "), Set{});
    EXPECT_EQ(candidates("vornctl set 10.0.0.1 Channel="), Set{});
    EXPECT_EQ(candidates("vornctl discover --timeout "), Set{});
}

// What `vornctl [COMMAND] --help` lists: its subcommands, or the long
// options and the short ones other than -h.
Set fromHelp(const std::string& command, const std::string& section)
{
    const auto [help, status] = run(quoted(VORNCTL_PROGRAM) + " " + command + " --help");
    EXPECT_EQ(status, 0) << command;
    Set words;
    std::istringstream lines(help);
    bool inSection = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line[0] != ' ') {
            inSection = line == section;
            continue;
        }
        if (!inSection)
            continue;
        std::istringstream columns(line);
        std::string first;
        columns >> first;
        if (section == "Subcommands:") {
            words.insert(first);
            continue;
        }
        for (std::istringstream names(first); std::getline(names, first, ',');)
            if (first != "-h")
                words.insert(first);
    }
    return words;
}

TEST(Completion, OffersEveryCommandAndOptionVornctlsHelpLists)
{
    Set commands = fromHelp("", "Subcommands:");
    ASSERT_FALSE(commands.empty());
    Set expected = commands;
    expected.merge(fromHelp("", "Options:"));
    EXPECT_EQ(candidates("vornctl "), expected);
    for (const std::string& command : commands) {
        SCOPED_TRACE(command);
        EXPECT_EQ(candidates("vornctl " + command + " -"), fromHelp(command, "Options:"));
    }
}

TEST(Completion, ZshReadsItsCompletionFile)
{
    const auto [output, status] = run("zsh -n " + quoted(VORNCTL_ZSH_COMPLETION) + " 2>&1");
    EXPECT_EQ(status, 0) << output;
}

}  // namespace
