#!/usr/bin/env bash
# Makes or changes an account on PostgreSQL that can work with the rows of one practice and nothing else.
#
# usage: postgresql-accounts.sh [--read-only] DATABASE ACCOUNT
#
# The account's new password is read from the standard input, one line. To be run in the name of the server's
# administrator, again after every change of the schema; psql's own variables (PGHOST, PGPORT, PGUSER,
# PGPASSWORD) say how to reach the server. Nobody else can connect to the database or make tables in it then.
# The password goes to no command line, and to the server's log only if a superuser cannot switch that off.
set -euo pipefail

usage() {
  sed -n '2,9s/^# \{0,1\}//p' "$0" >&2
  exit 2
}

rights='SELECT, INSERT, UPDATE, DELETE'
if [[ ${1:-} == --read-only ]]; then
  rights=SELECT
  shift
fi
[[ $# -eq 2 && $1 != -* && $2 != -* ]] || usage
IFS= read -r KYODBC_NEW_PASSWORD || true
[[ -n $KYODBC_NEW_PASSWORD ]] || usage
export KYODBC_NEW_PASSWORD

psql -X -q -v ON_ERROR_STOP=1 -v database="$1" -v account="$2" -v rights="$rights" -d "$1" <<'SQL'
\getenv password KYODBC_NEW_PASSWORD
SELECT rolsuper AS superuser FROM pg_roles WHERE rolname = current_user \gset
\if :superuser
SET log_statement = 'none';
SET log_min_duration_statement = -1;
SET log_min_error_statement = 'panic';
\endif
BEGIN;
SELECT format('CREATE ROLE %I', :'account')
  WHERE NOT EXISTS (SELECT FROM pg_roles WHERE rolname = :'account') \gexec
\if :superuser
ALTER ROLE :"account" NOSUPERUSER NOREPLICATION NOBYPASSRLS;
\endif
ALTER ROLE :"account" LOGIN NOCREATEDB NOCREATEROLE NOINHERIT PASSWORD :'password';
REVOKE ALL ON DATABASE :"database" FROM PUBLIC;
REVOKE ALL ON SCHEMA public FROM PUBLIC;
REVOKE EXECUTE ON FUNCTION spky_ping() FROM PUBLIC;
REVOKE ALL ON DATABASE :"database" FROM :"account";
REVOKE ALL ON SCHEMA public FROM :"account";
REVOKE ALL ON ALL TABLES IN SCHEMA public FROM :"account";
REVOKE ALL ON ALL SEQUENCES IN SCHEMA public FROM :"account";
GRANT CONNECT ON DATABASE :"database" TO :"account";
GRANT USAGE ON SCHEMA public TO :"account";
GRANT :rights ON ALL TABLES IN SCHEMA public TO :"account";
GRANT EXECUTE ON FUNCTION spky_ping() TO :"account";
COMMIT;
SQL
echo "$2: may ${rights,,} rows of $1"
