#include "tools/progress.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <utility>

#include "tools/interruption.h"

namespace {

constexpr int kBarWidth = 40;
constexpr const char* kWipeLine = "\r\x1b[K";
constexpr std::chrono::seconds kTooEarly{1};  // for an estimate
constexpr std::chrono::milliseconds kBetweenDrawings{200};

}  // namespace

std::string DurationText(std::chrono::seconds duration) {
  const auto seconds = duration.count();
  if (seconds < 60) return fmt::format("{} s", seconds);
  if (seconds < 3600) return fmt::format("{} min {} s", seconds / 60, seconds % 60);
  return fmt::format("{} h {} min", seconds / 3600, seconds % 3600 / 60);
}

Progress::Progress(std::string what, std::uint64_t total)
    : m_what(std::move(what)), m_total(total), m_visible(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() {
  if (m_visible) std::fputs(kWipeLine, stderr);
}

std::string Progress::Estimate() const {
  const auto taken = Clock::now() - m_start;
  if (taken < kTooEarly || m_done == 0 || m_done >= m_total) return {};
  const double left = std::chrono::duration<double>(taken).count() * static_cast<double>(m_total - m_done) /
                      static_cast<double>(m_done);
  return fmt::format(", {} left", DurationText(std::chrono::seconds(static_cast<std::int64_t>(left) + 1)));
}

void Progress::Draw(int percent) {
  m_percent = percent;
  m_drawn = Clock::now();
  const std::size_t full = static_cast<std::size_t>(percent * kBarWidth / 100);
  fmt::print(stderr, "{}{:<10} [{}{}] {:>3}%{}", kWipeLine, m_what, std::string(full, '#'),
             std::string(kBarWidth - full, ' '), percent, Estimate());
  std::fflush(stderr);
}

void Progress::Reach(std::uint64_t done) {
  Interruption::Check();
  m_done = std::min(done, m_total);
  if (!m_visible) return;
  const int percent = m_total == 0 ? 100 : static_cast<int>(m_done * 100 / m_total);
  if (percent != m_percent || Clock::now() - m_drawn > kBetweenDrawings) Draw(percent);
}
