// SPDX-License-Identifier: Apache-2.0
// What the simulated units do with one received datagram: answer a discover
// with configuration reports, store a write. No I/O; the event loop sends.
#pragma once

#include <cstdint>
#include <vector>

#include "Datagram.h"
#include "SimDice.h"
#include "Unit.h"

namespace VornSim {

// Header with the address last octet first and command A2 (or the unit's
// `cmd` fault), the echoed sequence number, then one "Key:Value" LF line per
// setting and a closing NUL. Lines that would not fit one UDP datagram are left out.
Vorn::Bytes reportPacket(const Unit& unit, std::uint16_t seq);

// Handles `datagram` for every unit it reaches and returns the replies to send.
// A discover to a unit's address reaches that unit, any other destination
// reaches all; a write reaches only units at its destination address. The
// replies to one discover come in an order drawn afresh each time.
std::vector<Outgoing> respond(std::vector<Unit>& units, const Datagram& datagram, SimDice& dice);

}  // namespace VornSim
