// SPDX-License-Identifier: Apache-2.0
#include "SettingKeys.h"

#include <algorithm>

namespace SettingKeys {

bool isNetworkKey(std::string_view key)
{
    return std::find(kNetworkKeys.begin(), kNetworkKeys.end(), key) != kNetworkKeys.end();
}

}  // namespace SettingKeys
