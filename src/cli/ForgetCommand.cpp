// SPDX-License-Identifier: Apache-2.0
// vornctl forget: a remembered unit, its versions and its writes removed.
#include "Commands.h"
#include "ExitCodes.h"

namespace VornCtl {

int runForget(SiteContext& context, const std::string& name)
{
    const auto unit = context.store.findUnit(name);
    if (!unit) {
        context.err << "vornctl: " << name << " is not a remembered unit\n";
        return kExitNoAnswer;
    }
    if (!context.store.forget(unit->key)) {
        context.err << "vornctl: cannot forget " << name << ": " << context.store.problem().toStdString() << '\n';
        return kExitFailure;
    }
    context.out << "forgot " << (unit->serial.empty() ? unit->address : unit->serial + " (" + unit->address + ")")
                << '\n'
                << std::flush;
    return kExitOk;
}

}  // namespace VornCtl
