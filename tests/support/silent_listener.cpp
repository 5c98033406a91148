#include "tests/support/silent_listener.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace support {
namespace {

constexpr int kWaiting = 16;

sockaddr_in Loopback() {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

}  // namespace

SilentListener::SilentListener() : m_socket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  const sockaddr_in address = Loopback();
  if (m_socket < 0 || bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
      listen(m_socket, kWaiting) != 0) {
    throw std::runtime_error("cannot listen on loopback");
  }
}

SilentListener::~SilentListener() { close(m_socket); }

std::string SilentListener::Port() const {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &size);
  return std::to_string(ntohs(address.sin_port));
}

}  // namespace support
