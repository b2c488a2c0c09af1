// SPDX-License-Identifier: Apache-2.0
#include "Unit.h"

namespace VornSim {

void FaultOverrides::applyTo(Faults& faults) const
{
    if (reportIp)
        faults.reportIp = reportIp;
    if (cmd)
        faults.cmd = cmd;
    if (silent)
        faults.silent = *silent;
    if (drop)
        faults.drop = *drop;
    if (delay)
        faults.delay = *delay;
    if (ignoreWrites)
        faults.ignoreWrites = *ignoreWrites;
    if (keepKey)
        faults.keepKey = keepKey;
}

}  // namespace VornSim
