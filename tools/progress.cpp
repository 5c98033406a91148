#include "tools/progress.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <utility>

namespace {

constexpr int kBarWidth = 40;
constexpr const char* kWipeLine = "\r\x1b[K";

}  // namespace

Progress::Progress(std::string what, std::uint64_t total)
    : m_what(std::move(what)), m_total(total), m_visible(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() {
  if (m_visible) std::fputs(kWipeLine, stderr);
}

void Progress::Reach(std::uint64_t done) {
  m_done = std::min(done, m_total);
  const int percent = m_total == 0 ? 100 : static_cast<int>(m_done * 100 / m_total);
  if (!m_visible || percent == m_percent) return;
  m_percent = percent;
  const std::size_t full = static_cast<std::size_t>(percent * kBarWidth / 100);
  fmt::print(stderr, "\r{:<10} [{}{}] {:>3}%", m_what, std::string(full, '#'),
             std::string(kBarWidth - full, ' '), percent);
  std::fflush(stderr);
}
