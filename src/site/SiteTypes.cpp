// SPDX-License-Identifier: Apache-2.0
#include "SiteTypes.h"

#include "SettingKeys.h"

namespace Site {

std::string unitKey(const std::string& serial, const std::string& address)
{
    return serial.empty() ? "address:" + address : "serial:" + serial;
}

std::string serialOf(const Vorn::Config& config)
{
    const auto serial = config.find(SettingKeys::kSerial);
    return serial == config.end() ? std::string() : serial->second;
}

std::string verdictText(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Confirmed: return "confirmed";
    case Verdict::NotConfirmed: return "not confirmed";
    case Verdict::NoAnswer: return "no answer";
    case Verdict::Moved: return "moved";
    }
    return {};
}

std::optional<Verdict> verdictFromText(const std::string& text)
{
    for (auto verdict : {Verdict::Confirmed, Verdict::NotConfirmed, Verdict::NoAnswer, Verdict::Moved}) {
        if (verdictText(verdict) == text)
            return verdict;
    }
    return std::nullopt;
}

}  // namespace Site
