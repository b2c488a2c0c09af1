#include "EditorTestKit.h"

namespace EditorTest {

Vorn::Config cleanUnit(const Vorn::Config& extra)
{
    Vorn::Config config = {{"SwitcherBand", "7"}, {"SwitcherModel", "0"}, {"AtemExtTally", "0"},
                           {"TallyType", "0"},    {"TallyGpioType", "0"}};
    for (const auto& [key, value] : extra)
        config.insert_or_assign(key, value);
    return config;
}

void EditorFixture::report(const Vorn::Config& config, const std::string& ip)
{
    client->ingest(Vorn::Reply{ip, Vorn::kCmdReport, config});
}

void EditorFixture::open(const std::string& ip)
{
    editor.setClient(client.get());
    editor.setIp(QString::fromStdString(ip));
}

QString EditorFixture::lastWrite() const
{
    const QString line = client->log().value(client->log().size() - 1);
    const QString marker = QStringLiteral("  write \u2192 ");
    const qsizetype at = line.indexOf(marker);
    if (at < 0)
        return {};
    return line.mid(at + marker.size());
}

}  // namespace EditorTest
