// The program's server must not outlive it.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "tests/loss/loss_test_base.h"

namespace loss {
namespace {

namespace fs = std::filesystem;

TEST(OwnServer, EndsWithAProgramThatIsKilled) {
  int tell[2];
  ASSERT_EQ(pipe(tell), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const support::OwnServer server(OnPostgresql() ? "postgresql" : "mariadb");
    const std::string folder = server.Folder().string() + "\n";
    if (write(tell[1], folder.data(), folder.size()) < 0) _exit(1);
    raise(SIGKILL);
  }
  close(tell[1]);
  waitpid(child, nullptr, 0);
  std::string folder;
  for (char c = 0; read(tell[0], &c, 1) == 1 && c != '\n';) folder += c;
  close(tell[0]);
  ASSERT_NE(folder, "");
  const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (fs::exists(folder) && std::chrono::steady_clock::now() < patience) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  EXPECT_FALSE(fs::exists(folder));  // which goes after the server
}

}  // namespace
}  // namespace loss
