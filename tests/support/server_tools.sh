# What the scripts that run throw-away servers share; they source it.

readonly user=practice password=secret
# Whoever of these there is: the server's own package makes the first one, the bare server does not.
mariadb_user=$(id -un mysql 2>/dev/null || echo nobody)
readonly mariadb_user

# Runs a command as the server's own user, which may be the one we are.
as_user() {
  local name=$1
  shift
  if [[ $(id -u) -eq 0 ]]; then runuser -u "$name" -- "$@"; else "$@"; fi
}

give() { if [[ $(id -u) -eq 0 ]]; then chown "$1" "$2"; fi; }

# As many different ports as asked for.
free_ports() {
  python3 - "$1" <<'TEXT'
import socket, sys
sockets = [socket.socket() for _ in range(int(sys.argv[1]))]
for each in sockets:
    each.bind(("127.0.0.1", 0))
print(*[each.getsockname()[1] for each in sockets])
TEXT
}

wait_for() {
  local what=$1 attempt
  shift
  for attempt in $(seq 1 300); do
    if "$@" >/dev/null 2>&1; then return; fi
    sleep 0.1
  done
  echo "${0##*/}: $what does not answer" >&2
  return 1
}

postgresql_bin() { echo /usr/lib/postgresql/*/bin | tr ' ' '\n' | tail -1; }

# initdb HOME: an empty server in HOME/data, whose user has the password of all trials.
make_postgresql() {
  local home=$1
  mkdir "$home"
  echo "$password" >"$home/password"
  give postgres "$home"
  give postgres "$home/password"
  as_user postgres "$(postgresql_bin)/initdb" -D "$home/data" -U "$user" --pwfile="$home/password" \
    -A scram-sha-256 -E UTF8 --locale=C.UTF-8 -N >"$home/initdb.log"
}

make_mariadb() {
  local home=$1
  mkdir -p "$home/tmp"
  give "$mariadb_user" "$home"
  give "$mariadb_user" "$home/tmp"
  as_user "$mariadb_user" mariadb-install-db --no-defaults --datadir="$home/data" \
    --auth-root-authentication-method=normal --skip-test-db >"$home/install.log" 2>&1
}

# As root of the server, by its socket.
mariadb_at() {
  local home=$1
  shift
  mariadb --no-defaults -S "$home/socket" -u root "$@"
}

let_the_user_in() {
  mariadb_at "$1" <<TEXT
CREATE USER $user@'127.0.0.1' IDENTIFIED BY '$password';
CREATE USER $user@localhost IDENTIFIED BY '$password';
GRANT ALL ON *.* TO $user@'127.0.0.1' WITH GRANT OPTION;
GRANT ALL ON *.* TO $user@localhost WITH GRANT OPTION;
TEXT
}

# A process that has ended counts as gone before whoever started it has noticed.
lives() {
  local stat
  read -r stat 2>/dev/null <"/proc/$1/stat" && [[ ${stat##*) } != Z* ]]
}

# Ends the process whose id the server wrote into a file, and waits until it is gone. The file of a killed
# server would later name someone else's process.
end_process() {
  local file=$1 signal=$2 pid attempt
  [[ -r $file ]] || return 0
  pid=$(head -1 "$file")
  kill "-$signal" "$pid" 2>/dev/null || return 0
  for attempt in $(seq 1 600); do
    if ! lives "$pid"; then
      rm -f "$file"
      return 0
    fi
    sleep 0.05
  done
  kill -9 "$pid" 2>/dev/null || true
  rm -f "$file"
}
