#include "tests/support/relay.h"

#include <linux/filter.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace support {
namespace {

constexpr int kBacklog = 16;

std::size_t Index(Way way) { return way == Way::kToServer ? 0 : 1; }

sockaddr_in Loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

const sockaddr* Any(const sockaddr_in& address) { return reinterpret_cast<const sockaddr*>(&address); }

[[noreturn]] void Fail(const std::string& what) {
  throw std::runtime_error("relay: " + what + ": " + std::strerror(errno));
}

int NewSocket() {
  const int made = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (made < 0) Fail("socket");
  return made;
}

void SendAtOnce(int socket) {
  const int on = 1;
  setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

// The kernel throws every segment away that comes to this socket, before it acknowledges it.
void DropIncoming(int socket) {
  sock_filter drop = BPF_STMT(BPF_RET | BPF_K, 0);
  const sock_fprog program{1, &drop};
  if (setsockopt(socket, SOL_SOCKET, SO_ATTACH_FILTER, &program, sizeof program) != 0) Fail("filter");
}

// Closing with a linger time of 0 sends a reset.
void Close(int socket, bool reset) {
  if (reset) {
    const linger at_once{1, 0};
    setsockopt(socket, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
  }
  close(socket);
}

}  // namespace

Relay::Relay(int server_port) : m_server_port(server_port), m_wake(eventfd(0, EFD_CLOEXEC)) {
  if (m_wake < 0) Fail("eventfd");
  Listen();
  m_thread = std::thread([this] { Run(); });
}

Relay::~Relay() {
  Command([this] {
    LoseAll(Loss::kReset);
    m_ending = true;
  });
  m_thread.join();
  if (m_listener >= 0) close(m_listener);
  close(m_wake);
}

void Relay::Listen() {
  m_listener = NewSocket();
  const int on = 1;
  setsockopt(m_listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  sockaddr_in address = Loopback(m_port);
  socklen_t size = sizeof address;
  if (bind(m_listener, Any(address), size) != 0 || listen(m_listener, kBacklog) != 0) Fail("listen");
  getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &size);
  m_port = ntohs(address.sin_port);
}

// The thread that forwards carries every command out, so that no socket is closed under its hands.
void Relay::Command(const std::function<void()>& command) {
  std::unique_lock lock(m_mutex);
  m_command = command;
  const std::uint64_t one = 1;
  if (write(m_wake, &one, sizeof one) != sizeof one) Fail("wake");
  m_changed.wait(lock, [this] { return !m_command; });
}

void Relay::Lose(Loss loss) {
  Command([=, this] { LoseAll(loss); });
}

void Relay::LoseAfter(Way way, std::size_t bytes, Loss loss) {
  Command([=, this] { m_order = {true, false, false, way, bytes, loss}; });
}

void Relay::CancelOrder() {
  Command([this] { m_order = {}; });
}

bool Relay::OrderDone() const {
  const std::lock_guard lock(m_mutex);
  return m_order.done;
}

void Relay::Refuse(bool refuse) {
  Command([=, this] {
    if (refuse == (m_listener < 0)) return;
    if (refuse) {
      close(m_listener);
      m_listener = -1;
    } else {
      Listen();
    }
  });
}

void Relay::TakeSilently(bool silent) {
  Command([=, this] { m_take_silently = silent; });
}

std::size_t Relay::Passed(Way way) const {
  const std::lock_guard lock(m_mutex);
  return m_passed[Index(way)];
}

void Relay::ResetCounts() {
  Command([this] { m_passed = {}; });
}

std::vector<int> Relay::PortsAtServer() const {
  const std::lock_guard lock(m_mutex);
  std::vector<int> ports;
  for (const Link& link : m_links) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    if (getsockname(link.sockets[1], reinterpret_cast<sockaddr*>(&address), &size) == 0) {
      ports.push_back(ntohs(address.sin_port));
    }
  }
  return ports;
}

void Relay::Run() {
  for (;;) {
    std::vector<int> readable;
    Wait(&readable);
    const std::lock_guard lock(m_mutex);
    if (RunCommand()) {
      if (m_ending) return;
      continue;  // what was readable may be closed now
    }
    const auto ready = [&](int socket) {
      return std::find(readable.begin(), readable.end(), socket) != readable.end();
    };
    if (m_listener >= 0 && ready(m_listener)) TakeConnection();
    for (auto link = m_links.begin(); link != m_links.end();) {
      bool lives = true;
      for (const Way way : {Way::kToServer, Way::kToClient}) {
        // After the last byte of an order nothing passes, on no link.
        if (lives && !link->silent && !m_order.due && ready(link->sockets[Index(way)]))
          lives = Forward(*link, way);
      }
      link = lives ? std::next(link) : m_links.erase(link);
    }
    if (m_order.due) {
      LoseAll(m_order.loss);
      m_order = {};
      m_order.done = true;
    }
  }
}

bool Relay::RunCommand() {
  if (!m_command) return false;
  std::uint64_t count = 0;
  if (read(m_wake, &count, sizeof count) < 0) return false;
  m_command();
  m_command = nullptr;
  m_changed.notify_all();
  return true;
}

void Relay::Wait(std::vector<int>* readable) {
  std::vector<pollfd> watched;
  {
    const std::lock_guard lock(m_mutex);
    watched.push_back({m_wake, POLLIN, 0});
    if (m_listener >= 0) watched.push_back({m_listener, POLLIN, 0});
    for (const Link& link : m_links) {
      if (link.silent) continue;
      for (const int socket : link.sockets) watched.push_back({socket, POLLIN, 0});
    }
  }
  poll(watched.data(), watched.size(), -1);
  for (const pollfd& one : watched) {
    if (one.revents != 0) readable->push_back(one.fd);
  }
}

void Relay::TakeConnection() {
  Link link;
  link.sockets[0] = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
  if (link.sockets[0] < 0) return;
  if (m_take_silently) {
    link.silent = true;
    m_links.push_back(link);
    return;
  }
  link.sockets[1] = NewSocket();
  const sockaddr_in address = Loopback(m_server_port);
  if (connect(link.sockets[1], Any(address), sizeof address) != 0) {
    End(link, Loss::kReset);
    return;
  }
  for (const int socket : link.sockets) SendAtOnce(socket);
  m_links.push_back(link);
}

// Passes on what one end has sent. False when the link ended.
bool Relay::Forward(Link& link, Way way) {
  const std::size_t index = Index(way);
  char bytes[16384];
  std::size_t room = sizeof bytes;
  const bool counted = m_order.given && m_order.way == way;
  if (counted) room = std::min(room, m_order.left);
  if (room > 0) {
    const ssize_t got = recv(link.sockets[index], bytes, room, 0);
    if (got <= 0 || !Send(link.sockets[1 - index], bytes, static_cast<std::size_t>(got))) {
      // An end is passed on as it came.
      End(link, got == 0 ? Loss::kFinish : Loss::kReset);
      return false;
    }
    m_passed[index] += static_cast<std::size_t>(got);
    if (counted) m_order.left -= static_cast<std::size_t>(got);
  }
  if (counted && m_order.left == 0) m_order.due = true;
  return true;
}

bool Relay::Send(int socket, const char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t sent = send(socket, bytes, size, MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes += sent;
    size -= static_cast<std::size_t>(sent);
  }
  return true;
}

void Relay::LoseAll(Loss loss) {
  for (Link& link : m_links) {
    if (loss == Loss::kDead) DropIncoming(link.sockets[0]);
    if (loss == Loss::kSilent || loss == Loss::kDead) {
      link.silent = true;
    } else {
      End(link, loss);
    }
  }
  m_links.remove_if([](const Link& link) { return !link.silent; });
}

void Relay::End(Link& link, Loss loss) {
  for (int& socket : link.sockets) {
    if (socket >= 0) Close(socket, loss == Loss::kReset);
    socket = -1;
  }
}

}  // namespace support
