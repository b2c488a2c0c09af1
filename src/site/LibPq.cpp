// SPDX-License-Identifier: Apache-2.0
#include "LibPq.h"

#include <QLibrary>

#include <optional>
#include <type_traits>

namespace Site::Postgres {

const LibPq* libPq()
{
    static const std::optional<LibPq> loaded = []() -> std::optional<LibPq> {
        // The library stays loaded when this object goes: QLibrary unloads only when asked.
        QLibrary library(QStringLiteral("pq"), 5);
        if (!library.load())
            return std::nullopt;
        LibPq pq;
        bool complete = true;
        const auto take = [&](auto& function, const char* name) {
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(library.resolve(name));
            complete = complete && function != nullptr;
        };
        take(pq.conninfoParse, "PQconninfoParse");
        take(pq.conninfoFree, "PQconninfoFree");
        take(pq.freemem, "PQfreemem");
        take(pq.pingParams, "PQpingParams");
        take(pq.status, "PQstatus");
        take(pq.consumeInput, "PQconsumeInput");
        take(pq.backendPID, "PQbackendPID");
        take(pq.notifies, "PQnotifies");
        return complete ? std::optional<LibPq>(pq) : std::nullopt;
    }();
    return loaded ? &*loaded : nullptr;
}

}  // namespace Site::Postgres
