// SPDX-License-Identifier: Apache-2.0
// libpq, loaded when a site server is first opened instead of linked: a
// window or vornctl on a site file then never maps it, nor the TLS and LDAP
// libraries it brings (about 4 MiB resident from the start). A site server
// needs Qt SQL's PostgreSQL driver, which depends on libpq itself.
#pragma once

#include <libpq-fe.h>

namespace Site::Postgres {

// The libpq functions the store calls beside Qt SQL's driver.
struct LibPq {
    decltype(&::PQconninfoParse) conninfoParse = nullptr;
    decltype(&::PQconninfoFree) conninfoFree = nullptr;
    decltype(&::PQfreemem) freemem = nullptr;
    decltype(&::PQpingParams) pingParams = nullptr;
    decltype(&::PQstatus) status = nullptr;
    decltype(&::PQconsumeInput) consumeInput = nullptr;
    decltype(&::PQbackendPID) backendPID = nullptr;
    decltype(&::PQnotifies) notifies = nullptr;
};

// libpq, loaded on the first call and kept; nullptr when it cannot be loaded.
const LibPq* libPq();

}  // namespace Site::Postgres
