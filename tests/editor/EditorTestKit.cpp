// SPDX-License-Identifier: Apache-2.0
#include "EditorTestKit.h"

#include <algorithm>

#include "PresenceClock.h"

namespace EditorTest {

Vorn::Config cleanUnit(const Vorn::Config& extra)
{
    Vorn::Config config = {{"SwitcherBand", "7"}, {"SwitcherModel", "0"}, {"AtemExtTally", "0"},
                           {"TallyType", "0"},    {"TallyGpioType", "0"}};
    return overlaid(config, extra);
}

Vorn::Config overlaid(Vorn::Config config, const Vorn::Config& changes)
{
    for (const auto& [key, value] : changes)
        config.insert_or_assign(key, value);
    return config;
}

std::optional<Device> FakeLink::unit(const std::string& ip) const
{
    const auto found = std::find_if(units_.begin(), units_.end(), [&](const Device& unit) { return unit.ip == ip; });
    if (found == units_.end())
        return std::nullopt;
    return *found;
}

bool FakeLink::isOnline(const Device& unit) const
{
    return isPresent(unit.lastSeen, now_);
}

void FakeLink::write(const std::string& ip, const Vorn::Config& changes)
{
    writes.push_back({ip, changes});
}

void FakeLink::report(const Vorn::Config& config, const std::string& ip)
{
    const auto found = std::find_if(units_.begin(), units_.end(), [&](const Device& unit) { return unit.ip == ip; });
    Device heard;
    heard.ip = ip;
    heard.config = config;
    heard.lastSeen = now_;
    if (found == units_.end())
        units_.push_back(heard);
    else
        *found = heard;
    emit changed();
}

void EditorFixture::open(const std::string& ip)
{
    editor.setLink(&link);
    editor.setIp(QString::fromStdString(ip));
}

std::optional<Vorn::Config> EditorFixture::lastWrite() const
{
    if (link.writes.empty())
        return std::nullopt;
    EXPECT_EQ(link.writes.back().ip, kUnitIp);
    return link.writes.back().changes;
}

}  // namespace EditorTest
