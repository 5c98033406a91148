#!/usr/bin/env bash
# Makes or changes an account on MariaDB that can work with the rows of one practice and nothing else.
#
# usage: mariadb-accounts.sh [--read-only] [--from HOSTS] [--without-tls] DATABASE ACCOUNT [CLIENT-OPTION...]
#
# The account's new password is read from the standard input, one line. HOSTS are the machines that it may
# come from, as the server writes them ("192.168.1.%"; "%", any, without the option). It is let in over an
# encrypted connection only, unless --without-tls says that server and programs are on one machine. To be run
# in the name of the server's administrator; the options of the client ("-h db.practice.example -u root -p")
# say how to reach the server. The password goes to no command line.
set -euo pipefail

usage() {
  sed -n '2,11s/^# \{0,1\}//p' "$0" >&2
  exit 2
}

rights='SELECT, INSERT, UPDATE, DELETE' hosts='%' encryption='REQUIRE SSL'
while [[ ${1:-} == --* ]]; do
  case $1 in
    --read-only) rights=SELECT ;;
    --without-tls) encryption='REQUIRE NONE' ;;
    --from)
      hosts=${2:-}
      shift
      ;;
    *) usage ;;
  esac
  shift
done
[[ $# -ge 2 && -n $hosts ]] || usage
database=$1 account=$2
shift 2
IFS= read -r password || true
[[ -n $password ]] || usage

# In this mode of the session a quote is all that needs care.
text() { printf "'%s'" "${1//\'/\'\'}"; }
name() { printf '`%s`' "${1//\`/\`\`}"; }
# Of a name in a grant these two stand for others.
granted() {
  local escaped=${1//_/\\_}
  name "${escaped//%/\\%}"
}

user="$(text "$account")@$(text "$hosts")"
mariadb "$@" <<SQL
SET SESSION sql_mode = CONCAT(@@SESSION.sql_mode, ',NO_BACKSLASH_ESCAPES');
CREATE USER IF NOT EXISTS $user;
ALTER USER $user IDENTIFIED BY $(text "$password") $encryption;
REVOKE ALL PRIVILEGES, GRANT OPTION FROM $user;
GRANT $rights ON $(granted "$database").* TO $user;
GRANT EXECUTE ON PROCEDURE $(name "$database").spky_ping TO $user;
SQL
echo "$account from $hosts: may ${rights,,} rows of $database"
