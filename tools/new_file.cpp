#include "tools/new_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "tools/tool_error.h"

namespace {

[[noreturn]] void Fail(const char* doing, const std::filesystem::path& file) {
  throw ToolError(kFailed, fmt::format("cannot {} {}: {}", doing, file.string(), std::strerror(errno)));
}

// A name in a folder is on the disk when the folder is. Not every file system can be asked for that.
void SyncFolder(const std::filesystem::path& file) {
  const std::filesystem::path folder = std::filesystem::absolute(file).parent_path();
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

}  // namespace

NewFile::NewFile(const std::filesystem::path& file) : m_file(file), m_temporary(file) {
  m_temporary += fmt::format(".{}.part", getpid());
  std::error_code ignored;
  if (std::filesystem::exists(file, ignored)) {
    throw ToolError(kFailed, fmt::format("{} exists already and is not overwritten", file.string()));
  }
  m_descriptor = open(m_temporary.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
  if (m_descriptor < 0) Fail("make", file);
}

NewFile::~NewFile() {
  close(m_descriptor);
  if (!m_finished) unlink(m_temporary.c_str());
}

void NewFile::Write(std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(m_descriptor, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) Fail("write", m_file);
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

// A link fails where a rename would put aside a file that somebody else has made meanwhile. Where there are
// no links, the rename has to do.
void NewFile::Finish() {
  if (fsync(m_descriptor) != 0) Fail("write", m_file);
  if (link(m_temporary.c_str(), m_file.c_str()) == 0) {
    unlink(m_temporary.c_str());
  } else if (errno == EEXIST || rename(m_temporary.c_str(), m_file.c_str()) != 0) {
    Fail("make", m_file);
  }
  m_finished = true;
  SyncFolder(m_file);
}
