#!/usr/bin/env bash
# Makes the practice's own certificate authority, and certificates for its database servers.
#
# usage: tls-certificates.sh FOLDER NAME...
#
# FOLDER gets practice-ca.key and practice-ca.crt, unless it has them, and for every NAME, which is the name or
# the address under which the workstations know a server, NAME.key and NAME.crt. The keys are readable for
# their owner only; practice-ca.key signs further servers and belongs on no server and no workstation.
# practice-ca.crt goes to every workstation. Certificates are valid for ten years.
set -euo pipefail

readonly days=3650

if [[ $# -lt 2 || $1 == -* ]]; then
  sed -n '2,9s/^# \{0,1\}//p' "$0" >&2
  exit 2
fi
folder=$1
shift
umask 077
mkdir -p "$folder"

new_key() { openssl genpkey -quiet -algorithm EC -pkeyopt ec_paramgen_curve:P-256 -out "$1"; }

# What a certificate says of the server: addresses are written otherwise than names. The nodes of a cluster show
# it to one another, and the one that asks is the other's client.
names_of() {
  if [[ $1 =~ ^[0-9.]+$ || $1 == *:* ]]; then echo "subjectAltName=IP:$1"; else echo "subjectAltName=DNS:$1"; fi
  echo 'basicConstraints=critical,CA:FALSE'
  echo 'extendedKeyUsage=serverAuth,clientAuth'
}

authority=$folder/practice-ca
if [[ ! -e $authority.key ]]; then
  new_key "$authority.key"
  openssl req -x509 -new -key "$authority.key" -sha256 -days "$days" -subj '/CN=Practice authority' \
    -addext 'basicConstraints=critical,CA:TRUE' -addext 'keyUsage=critical,keyCertSign,cRLSign' \
    -out "$authority.crt"
fi
for server in "$@"; do
  new_key "$folder/$server.key"
  openssl req -new -key "$folder/$server.key" -subj "/CN=$server" |
    openssl x509 -req -sha256 -days "$days" -CA "$authority.crt" -CAkey "$authority.key" -CAcreateserial \
      -extfile <(names_of "$server") -out "$folder/$server.crt" 2>/dev/null
  chmod 644 "$folder/$server.crt"
  echo "$folder/$server.crt"
done
chmod 644 "$authority.crt"
