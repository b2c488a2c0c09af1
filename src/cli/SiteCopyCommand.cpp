// SPDX-License-Identifier: Apache-2.0
// vornctl site copy: one whole site store (file or server) into another.
#include <QFileInfo>

#include "Commands.h"
#include "ExitCodes.h"
#include "PostgresServer.h"
#include "SiteCopy.h"

namespace VornCtl {

int runSiteCopy(std::ostream& out, std::ostream& err, const SiteCopyRequest& request)
{
    const QString from = QString::fromStdString(request.from);
    const QString to = QString::fromStdString(request.to);
    // Opening a file that is not there would make an empty one.
    if (!Site::Postgres::isServerUri(from) && !QFileInfo::exists(from)) {
        err << "vornctl: there is no site file " << request.from << '\n';
        return kExitFailure;
    }
    auto source = Site::SiteStore::open(from);
    if (!source->canRead()) {
        err << "vornctl: cannot read the site " << request.from << ": " << source->problem().toStdString() << '\n';
        return kExitFailure;
    }
    auto target = Site::SiteStore::open(to);
    if (!target->canRecord()) {
        err << "vornctl: cannot write the site " << request.to << ": " << target->problem().toStdString() << '\n';
        return kExitFailure;
    }
    if (!request.merge && !target->holdsNothing()) {
        err << "vornctl: the site " << request.to << " already remembers units or activity; add --merge to copy into it\n";
        return kExitFailure;
    }
    Site::CopyCount count;
    const bool copied = Site::copySite(*source, *target, count);
    out << "copied " << count.units << " units, " << count.versions << " versions, " << count.writes << " writes and "
        << count.activity << " activity entries\n"
        << std::flush;
    if (!copied) {
        err << "vornctl: the copy stopped: " << target->problem().toStdString() << '\n';
        return kExitFailure;
    }
    return kExitOk;
}

}  // namespace VornCtl
