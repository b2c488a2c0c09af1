// SPDX-License-Identifier: Apache-2.0
#include "ConfigConversion.h"

QVariantMap toVariantMap(const Vorn::Config& config)
{
    QVariantMap map;
    for (const auto& [key, value] : config)
        map.insert(QString::fromStdString(key), QString::fromStdString(value));
    return map;
}

Vorn::Config toConfig(const QVariantMap& map)
{
    Vorn::Config config;
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        config.insert_or_assign(it.key().toStdString(), it.value().toString().toStdString());
    return config;
}
