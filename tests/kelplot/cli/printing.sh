#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Has a kelplot print a drawing on the queues of a print server that is started for that on loopback: one that keeps
# what it gets, one that refuses jobs, and one whose jobs fail. Exits with 77 where there is no print server to start.
set -euo pipefail
kelplot=$1
drawing=$2
cupsd=$(PATH=$PATH:/usr/sbin command -v cupsd) || { echo "cupsd is not installed"; exit 77; }

work=$(mktemp -d)
chmod 755 "$work"
server=
trap '[ -z "$server" ] || kill "$server"; wait; rm -rf "$work"' EXIT
mkdir -p "$work"/{etc,cache,run/certs,log,spool/tmp,programs/{backend,notifier,filter,monitor,cgi-bin,driver}}
mkdir -m 777 "$work/printed" # the server runs its programs as a user of their own
ln -s /usr/lib/cups/daemon "$work/programs/daemon"
cat >"$work/programs/backend/keep" <<EOF
#!/bin/sh
[ \$# -eq 0 ] && exit 0
cat >$work/printed/page.pdf "\${6:--}" && echo "copies=\$4 title=\$3 \$5" >$work/printed/options
EOF
cat >"$work/programs/backend/jam" <<EOF
#!/bin/sh
[ \$# -eq 0 ] && exit 0
echo "ERROR: The paper is jammed" >&2
exit 1
EOF
chmod 755 "$work"/programs/backend/*
queue() {
    printf '<Printer %s>\nInfo %s\nDeviceURI %s:/\nState Idle\nAccepting %s\nErrorPolicy abort-job\n</Printer>\n' "$@"
}
{ queue good "Ground floor" keep Yes; queue full "Cellar" keep No; queue jam "Attic" jam Yes; } >"$work/etc/printers.conf"
port=$((20000 + $$ % 20000))
cat >"$work/etc/cupsd.conf" <<EOF
Listen 127.0.0.1:$port
Browsing Off
DefaultAuthType None
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order allow,deny
</Limit>
</Policy>
EOF
cat >"$work/etc/cups-files.conf" <<EOF
ServerRoot $work/etc
RequestRoot $work/spool
TempDir $work/spool/tmp
CacheDir $work/cache
StateDir $work/run
ServerBin $work/programs
AccessLog $work/log/access
ErrorLog $work/log/error
PageLog $work/log/page
EOF
"$cupsd" -f -c "$work/etc/cupsd.conf" -s "$work/etc/cups-files.conf" &
server=$!
export CUPS_SERVER=127.0.0.1:$port

# expect STATUS PATTERN ARGUMENT...: what a run exits with and prints, both streams together
expect() {
    local status=0 told
    told=$("$kelplot" "${@:3}" 2>&1) || status=$?
    # shellcheck disable=SC2053
    if [ "$status" -ne "$1" ] || [[ $told != $2 ]]; then
        echo "kelplot ${*:3}: status $status: $told"
        exit 1
    fi
}

for _ in $(seq 100); do
    "$kelplot" --list-printers >/dev/null 2>&1 && break
    sleep 0.1
done
tab=$'\t'
expect 0 "full${tab}idle${tab}refusing${tab}${tab}Cellar*good${tab}idle${tab}accepting${tab}${tab}Ground floor*" --list-printers
expect 0 "good-[0-9]*" -d good -n 2 --sides short --paper A3 --landscape "$drawing"
grep -q "copies=2 title=flange_plate .*media=iso_a3_297x420mm .*sides=two-sided-short-edge" "$work/printed/options"
[[ $(pdfinfo "$work/printed/page.pdf") == *"Page size:"*"A3"* ]]
pdftoppm -r 20 -singlefile "$work/printed/page.pdf" "$work/page"
"$kelplot" --quiet --paper A3 --landscape -o "$work/file.pdf" "$drawing"
pdftoppm -r 20 -singlefile "$work/file.pdf" "$work/file"
cmp "$work/page.ppm" "$work/file.ppm"
expect 0 '*"file": "good-[0-9]*' --json -d good "$drawing"
expect 5 "kelplot: nowhere: The printer or class does not exist." -d nowhere "$drawing"
expect 5 "kelplot: full: Destination \"full\" is not accepting jobs." -d full "$drawing"
expect 5 "jam-*kelplot: jam: job * was aborted: The paper is jammed" -d jam "$drawing"
expect 0 "jam-*" -d jam --no-wait "$drawing"
kill "$server"
wait "$server" || true
server=
expect 5 "kelplot: 127.0.0.1: *" --list-printers
expect 5 "kelplot: 127.0.0.1: no print server answers" -d good "$drawing"
