// SPDX-License-Identifier: Apache-2.0
#include "Options.h"

namespace VornSim {

std::string usageText()
{
    return R"(usage: vorn-sim [OPTION...]

Simulates base stations on UDP: every simulated unit answers a discover
(command A3) with its configuration report (A2) sent to the requester's
address at the listening port, and stores the settings of a write (A0)
addressed to it. A discover sent to a unit's own address reaches only that
unit; any other destination (a broadcast) reaches every unit.

Listening:
  --port P              UDP port to listen on and to answer to (default 23457)
  --bind ADDR           local IPv4 address to listen on (default 0.0.0.0)
  --log FILE            one JSON line per received datagram ('-' = stdout):
                        {"time","src","sport","dst","bytes" (hex)}
  --ready-file FILE     create FILE once listening

Units (generated, deterministic for a seed):
  --count N             number of units (default 3)
  --first-ip A.B.C.D    address of the first unit (default 10.232.1.1); the
                        others follow, skipping host parts .0 and .255
  --seed S              seed for generated settings, drop decisions and the
                        order of the replies to each discover (default 1)
Units from a file instead of --count/--first-ip:
  --units FILE.json     array of {"ip": "...", "config": {"Key": "Value", ...}}
                        with optional faults "reportIp", "cmd" (161 or "0xA1"),
                        "silent" (true), "drop" (0..1), "delayMs",
                        "ignoreWrites" (true), "keepKey" ("Channel"); any
                        address may be used, also one outside the link's
                        subnet, and one address may be listed twice
Extra units, with --count or with --units (may be repeated):
  --unit ADDR[=SERIAL]  one more unit at ADDR with a generated configuration
                        (SERIAL, when given, as its serial). ADDR may lie
                        outside the link's subnet (a unit with a wrong
                        address), or be another unit's address (two units
                        answering under one address, an address conflict)

Faults (UNIT is a unit's address or 'all'; each option may be repeated):
  --report-ip UNIT=ADDR put ADDR in the reply header instead of the unit's own
  --cmd UNIT=CODE       answer with command CODE (decimal or 0x hex) instead of A2
  --silent UNIT         never answer (writes still apply)
  --drop UNIT=FRACTION  ignore this fraction (0..1) of requests
  --delay UNIT=MS       answer MS milliseconds late
  --ignore-writes UNIT  answer discovers, but never store a write
  --keep-key UNIT=KEY   store writes except KEY, which keeps its old value

  -h, --help            show this text

The line "vorn-sim: N unit(s) listening on ADDR:PORT" goes to stderr once
listening; SIGINT or SIGTERM end the program. Exit status: 0 after a signal,
1 when the port cannot be bound, 2 for bad arguments.

Example: 50 units, one of them silent, another answering 300 ms late:
  vorn-sim --count 50 --first-ip 10.232.1.1 --silent 10.232.1.7 \
           --delay 10.232.1.9=300 --log -
Example: 3 units, a second unit under the first one's address, and a unit
with a factory-default address:
  vorn-sim --count 3 --unit 10.232.1.1=KT4-DUPL01 --unit 192.168.0.50
The namespace the simulator runs in must hold every unit's address as a
local address (scripts/lan-harness sets that up).
)";
}

}  // namespace VornSim
