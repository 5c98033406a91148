#include "tests/support/server_kind.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace support {

ServerKind::ServerKind() : m_process(getpid()) {}

std::string ServerKind::Acquire(const std::filesystem::path& folder, Tables tables) const {
  std::string database = folder.filename();
  if (m_made.contains(database)) return database;
  Make(database, tables);
  DropAllAtExit();
  Made made;
  made.session = std::make_unique<RawOdbc>(Connect(database));
  made.objects = ReadObjectsPatiently(*made.session);
  m_made[database] = std::move(made);
  return database;
}

void ServerKind::Release(const std::string& database, Tables tables) const {
  if (Renew(m_made.at(database), tables)) return;
  m_made.erase(database);
  Drop(database);
}

// Not left to destructors: drivers load libraries that clean up at the end of the process too, and what began
// last ends first. For the same reason each kind has a call at exit of its own: a kind that was made later is
// gone when that of an earlier one runs.
void ServerKind::DropAllAtExit() const {
  static std::vector<const ServerKind*> kinds;
  if (std::find(kinds.begin(), kinds.end(), this) != kinds.end()) return;
  kinds.push_back(this);
  std::atexit([] {
    const ServerKind* last = kinds.back();
    kinds.pop_back();
    last->DropAll();
  });
}

void ServerKind::DropAll() const noexcept {
  if (getpid() != m_process) {
    for (auto& [name, made] : m_made) (void)made.session.release();
    return;
  }
  try {
    while (!m_made.empty()) {
      const std::string database = m_made.begin()->first;
      m_made.erase(database);
      Drop(database);
    }
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "a practice stays on the server: %s\n", failure.what());
  }
}

ServerKind::Objects ServerKind::ReadObjects(RawOdbc& database) const {
  Objects objects;
  for (const Row& row : database.Query(ObjectsQuery())) {
    objects[row.at(0).value_or("")] = row.at(1).value_or("");
  }
  return objects;
}

// On a cluster a table that another program makes or drops meanwhile, of whatever database, may end this.
ServerKind::Objects ServerKind::ReadObjectsPatiently(RawOdbc& database) const {
  constexpr int kMoreAttempts = 9;
  for (int attempt = 0; attempt < kMoreAttempts; ++attempt) {
    try {
      return ReadObjects(database);
    } catch (const std::runtime_error& failure) {
      if (std::string_view(failure.what()).find(": 40001 ") == std::string_view::npos) throw;
    }
  }
  return ReadObjects(database);
}

// False when the test changed what cannot be put back; the database is then given up.
bool ServerKind::Renew(Made& made, Tables tables) const {
  try {
    EndOtherSessions(*made.session);
    if (!DropStrangers(made)) return false;
    Empty(*made.session, tables);
    return true;
  } catch (const std::runtime_error&) {
    return false;  // the test may have ended our session
  }
}

// Drops what the test made. False when something of the practice itself is missing or has changed.
bool ServerKind::DropStrangers(Made& made) const {
  const Objects objects = ReadObjects(*made.session);
  if (objects == made.objects) return true;
  for (const auto& object : made.objects) {
    const auto found = objects.find(object.first);
    if (found == objects.end() || found->second != object.second) return false;
  }
  for (const auto& [drop, definition] : objects) {
    if (!made.objects.contains(drop)) made.session->Exec(drop);
  }
  return ReadObjects(*made.session) == made.objects;
}

}  // namespace support
