#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# Two workstations of one site, set up as a new user would: a real PostgreSQL
# server started here with Debian's initdb and pg_ctl as an unprivileged user,
# listening on a Unix socket only, a role with a password and its database;
# and two windows, each in a LAN of the harness of its own whose simulator
# holds the same three units (same seed: same serials and addresses), each
# under its own host name (desk-a, desk-b) with its own X display, D-Bus
# session and AT-SPI registry. two-desks.py drives each window; the drivers
# take turns through files here. A socket file and plain files are all the
# two network namespaces share. Skips (77) with the reason where something
# cannot be had.
#   two-desks.sh LAN_HARNESS VORN_SIM VORNLINK [SHOTS_DIR]
# With SHOTS_DIR each desk leaves a screenshot there (desk-a.png, desk-b.png)
# once its History tab lists the other desk's save.
set -u
[ $# -eq 3 ] || [ $# -eq 4 ] || { echo "usage: two-desks.sh LAN_HARNESS VORN_SIM VORNLINK [SHOTS_DIR]" >&2; exit 2; }
harness=$1 sim=$2 program=$3 shots=${4:-}
here=$(cd "$(dirname "$0")" && pwd)
skip() { echo "two-desks: skipped: $*"; exit 77; }
. "$here/session-checks.sh"
command -v unshare >/dev/null 2>&1 || skip "no unshare (Debian: util-linux)"
if ! why=$("$harness" check 2>&1); then
  skip "no LAN of the harness: $why"
fi
pgbin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -t/ -k4,4n | tail -n 1)
[ -n "$pgbin" ] && [ -x "$pgbin/initdb" ] && [ -x "$pgbin/pg_ctl" ] ||
  skip "no initdb and pg_ctl under /usr/lib/postgresql (Debian: postgresql)"
# The harness needs root; the server refuses it and runs as nobody.
id nobody >/dev/null 2>&1 && command -v runuser >/dev/null 2>&1 || skip "no user nobody or no runuser to run the server as"

scratch=$(mktemp -d /tmp/vorn-two-desks-XXXXXX)
server=$scratch/server
turns=$scratch/turns
desk_a= desk_b=
finish() {
  for pid in $desk_a $desk_b; do
    kill -TERM "$pid" 2>/dev/null && wait "$pid"
  done
  for desk in a b; do
    [ -f "$scratch/desk-$desk.out" ] && sed "s/^/[desk $desk] /" "$scratch/desk-$desk.out"
  done
  [ -f "$server/data/postmaster.pid" ] && runuser -u nobody -- "$pgbin/pg_ctl" -D "$server/data" -m fast -w stop >/dev/null
  rm -rf "$scratch"
}
trap finish EXIT
trap 'exit 143' TERM INT HUP
chmod 711 "$scratch"
mkdir "$server" "$turns"
chown nobody "$server"
as_server() { runuser -u nobody -- "$@" >>"$scratch/server.out" 2>&1; }
as_server "$pgbin/initdb" -D "$server/data" -U vorn_admin --auth=trust --no-locale -E UTF8 --no-sync ||
  skip "initdb failed: $(tail -n 3 "$scratch/server.out")"
# The administrator on the socket without a password; everyone else with one.
printf 'local all vorn_admin trust\nlocal all all scram-sha-256\n' >"$server/data/pg_hba.conf"
as_server "$pgbin/pg_ctl" -D "$server/data" -l "$server/log" -w -t 60 \
  -o "-k $server -c listen_addresses='' -F" start ||
  skip "the server did not start: $(tail -n 3 "$server/log" 2>/dev/null)"
password=$(od -An -N12 -tx1 /dev/urandom | tr -d ' \n')
as_server "$pgbin/psql" -h "$server" -U vorn_admin -d postgres -v ON_ERROR_STOP=1 \
  -c "CREATE ROLE vornlink LOGIN PASSWORD '$password'" &&
  as_server "$pgbin/createdb" -h "$server" -U vorn_admin --owner vornlink vornlink ||
  { echo "two-desks: cannot make the role and database: $(tail -n 3 "$scratch/server.out")" >&2; exit 1; }
# Each desk copies this into its own ~/.pgpass; a socket folder stands for the host.
(umask 077 && echo "$server:5432:vornlink:vornlink:$password" >"$scratch/pgpass")
uri="postgresql://vornlink@/vornlink?host=$server"

# One desk: a LAN of its own with the three units, its own host name, display
# and D-Bus session. python3 -B: no bytecode cache in the sources.
desk() {
  exec "$harness" run --sim-bin "$sim" --sim "--count 3 --seed 1" -- \
    unshare --uts sh -c 'hostname "$0" && exec "$@"' "desk-$1" "$here/display-session.sh" \
    /usr/bin/python3 -B "$here/two-desks.py" "$1" "$program" "$uri" "$scratch/pgpass" "$turns" ${shots:+"$shots"} \
    >"$scratch/desk-$1.out" 2>&1
}
desk a &
desk_a=$!
desk b &
desk_b=$!
wait "$desk_a"
status_a=$?
wait "$desk_b"
status_b=$?
desk_a= desk_b=
[ "$status_a" -eq 0 ] && [ "$status_b" -eq 0 ] && exit 0
if [ "$status_a" -eq 77 ] || [ "$status_b" -eq 77 ]; then
  skip "a desk could not be set up (its output follows)"
fi
echo "two-desks: desk a ended with $status_a, desk b with $status_b" >&2
exit 1
