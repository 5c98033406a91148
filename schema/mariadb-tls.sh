#!/usr/bin/env bash
# Makes a MariaDB server take encrypted connections only, from its next start on.
#
# usage: mariadb-tls.sh CERTIFICATE KEY AUTHORITY OPTION-FILE DATA-FOLDER
#
# To be run on the server's machine as root. The certificate, its key and the authority's certificate
# (tls-certificates.sh) are copied into the server's data folder (/var/lib/mysql on Debian), and
# OPTION-FILE (/etc/mysql/mariadb.conf.d/90-practice-tls.cnf) is written anew. Restart the server then.
# Connections through a socket on the machine itself need no encryption.
set -euo pipefail

if [[ $# -ne 5 ]]; then
  sed -n '2,9s/^# \{0,1\}//p' "$0" >&2
  exit 2
fi
certificate=$1 key=$2 authority=$3 options=$4 data=$5
owner=$(stat -c '%U' "$data")
group=$(stat -c '%G' "$data")

put() {
  install -m "$1" "$2" "$3"
  if [[ $(id -u) -eq 0 ]]; then chown "$owner:$group" "$3"; fi
}

put 600 "$key" "$data/practice-server.key"
put 644 "$certificate" "$data/practice-server.crt"
put 644 "$authority" "$data/practice-ca.crt"
cat >"$options" <<TEXT
[mariadbd]
ssl_cert = $data/practice-server.crt
ssl_key = $data/practice-server.key
ssl_ca = $data/practice-ca.crt
tls_version = TLSv1.2,TLSv1.3
require_secure_transport = ON
TEXT
chmod 644 "$options"
echo "encrypted connections only, once the server has been restarted"
