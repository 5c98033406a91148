#!/usr/bin/env bash
# Makes a PostgreSQL server take encrypted connections only, for one database.
#
# usage: postgresql-tls.sh DATABASE CERTIFICATE KEY
#
# To be run on the server's machine as root or as the server's user; psql's own variables (PGHOST, PGPORT,
# PGUSER, PGPASSWORD) say how to reach it as its administrator. Certificate and key (tls-certificates.sh) are
# copied into the server's data folder, and a line that refuses other connections to the database is put
# before all others of pg_hba.conf. Running sessions stay. Connections through a socket on the machine itself
# need no encryption.
set -euo pipefail

if [[ $# -ne 3 || $1 == -* ]]; then
  sed -n '2,11s/^# \{0,1\}//p' "$0" >&2
  exit 2
fi
database=$1 certificate=$2 key=$3
export PGDATABASE=${PGDATABASE:-postgres}

ask() { psql -X -q -A -t -v ON_ERROR_STOP=1 -c "$1"; }

data=$(ask 'SHOW data_directory')
rules=$(ask 'SHOW hba_file')
owner=$(stat -c '%U' "$data")
group=$(stat -c '%G' "$data")

put() {
  install -m "$1" "$2" "$3"
  if [[ $(id -u) -eq 0 ]]; then chown "$owner:$group" "$3"; fi
}

put 600 "$key" "$data/practice-server.key"
put 644 "$certificate" "$data/practice-server.crt"
line="hostnossl \"${database//\"/\"\"}\" all all reject"
if ! grep -qxF -- "$line" "$rules"; then
  # Written over, not moved in place, so that owner and rights of the file stay.
  changed=$(printf '%s\n' "$line" && cat "$rules")
  printf '%s\n' "$changed" >"$rules"
fi
ask "ALTER SYSTEM SET ssl_cert_file = 'practice-server.crt'"
ask "ALTER SYSTEM SET ssl_key_file = 'practice-server.key'"
ask "ALTER SYSTEM SET ssl_min_protocol_version = 'TLSv1.2'"
ask 'ALTER SYSTEM SET ssl = on'
ask 'SELECT pg_reload_conf()' >/dev/null
for _ in $(seq 1 50); do
  if [[ $(ask 'SHOW ssl') == on ]]; then
    echo "$database: encrypted connections only"
    exit 0
  fi
  sleep 0.1
done
echo "postgresql-tls.sh: the server does not take the certificate; its log says why" >&2
exit 1
