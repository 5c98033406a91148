// A relay on loopback between a client and a server, which loses connections on command.
#ifndef KYODBC_TESTS_SUPPORT_RELAY_H
#define KYODBC_TESTS_SUPPORT_RELAY_H

#include <array>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <list>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace support {

enum class Way { kToServer, kToClient };

// How a connection is lost.
enum class Loss {
  kReset,   // both ends get a reset
  kFinish,  // both ends see an orderly end
  kSilent,  // the connections stay and carry nothing any more, as when the server hangs
  kDead,    // not even acknowledgements come any more, as when the server's machine or the network is gone
};

// One thread forwards bytes. Commands may come from any one other thread; when they return they are carried
// out. New connections are taken unless refused; those made after a loss work.
class Relay {
 public:
  // Forwards to 127.0.0.1:`server_port`. Throws std::runtime_error.
  explicit Relay(int server_port);
  ~Relay();  // cuts everything
  Relay(const Relay&) = delete;
  Relay& operator=(const Relay&) = delete;

  int Port() const { return m_port; }

  // Loses every connection that there is.
  void Lose(Loss loss);
  // Lets exactly `bytes` more pass in this direction, counted over all connections, then loses them. What the
  // other end sends after the last byte never arrives. Replaces an earlier order.
  void LoseAfter(Way way, std::size_t bytes, Loss loss);
  void CancelOrder();      // forgets LoseAfter
  bool OrderDone() const;  // LoseAfter has happened

  // True: new connections are refused, as by a machine on which no server runs.
  void Refuse(bool refuse);
  // True: new connections are taken and then hear nothing, as from a server that hangs.
  void TakeSilently(bool silent);

  // Bytes passed in this direction since the last ResetCounts.
  std::size_t Passed(Way way) const;
  void ResetCounts();
  // The ports from which the relay has connected to the server: how the server tells these sessions apart.
  std::vector<int> PortsAtServer() const;

 private:
  struct Link {
    std::array<int, 2> sockets{-1, -1};  // the client's, the server's
    bool silent = false;
  };
  struct Order {
    bool given = false;
    bool due = false;  // the last byte has passed
    bool done = false;
    Way way = Way::kToServer;
    std::size_t left = 0;
    Loss loss = Loss::kReset;
  };

  void Command(const std::function<void()>& command);
  void Run();
  bool RunCommand();
  void Wait(std::vector<int>* readable);
  void Listen();
  void TakeConnection();
  bool Forward(Link& link, Way way);
  bool Send(int socket, const char* bytes, std::size_t size);
  void LoseAll(Loss loss);
  static void End(Link& link, Loss loss);

  int m_server_port;
  int m_port = 0;
  int m_listener = -1;
  int m_wake = -1;
  bool m_take_silently = false;
  bool m_ending = false;
  std::list<Link> m_links;
  Order m_order;
  std::array<std::size_t, 2> m_passed{};
  mutable std::mutex m_mutex;
  std::condition_variable m_changed;
  std::function<void()> m_command;
  std::thread m_thread;
};

}  // namespace support

#endif
