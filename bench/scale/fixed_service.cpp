#include "fixed_service.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <new>
#include <system_error>
#include <vector>

#include "support/weight_service.h"

namespace bench::scale {
namespace {

constexpr char kAgreement[] = R"({"result":"0"})";
constexpr char kText[] = R"("text":")";

int checked(int result, const char* what) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), what);
  return result;
}

int listenOn(const std::string& address, std::uint16_t port) {
  const int listener = checked(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket");
  const int on = 1;
  setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on));
  sockaddr_in where = {};
  where.sin_family = AF_INET;
  where.sin_port = htons(port);
  where.sin_addr.s_addr = inet_addr(address.c_str());
  checked(bind(listener, reinterpret_cast<const sockaddr*>(&where), sizeof(where)), "bind");
  checked(listen(listener, SOMAXCONN), "listen");
  return listener;
}

class Server {
 public:
  Server(int lifeline, int weighing, int printing, std::string reply, Arrivals& arrivals)
      : entries_{{lifeline, POLLIN, 0}, {weighing, POLLIN, 0}, {printing, POLLIN, 0}},
        prints_(entries_.size(), false),
        reply_(std::move(reply)),
        arrivals_(arrivals) {}

  void run() {
    while (poll(entries_.data(), entries_.size(), -1) >= 0 && entries_[0].revents == 0) {
      for (std::size_t i = kListeners; i < entries_.size(); ++i) {
        if (entries_[i].revents != 0) answer(i);
      }
      for (std::size_t i = 1; i < kListeners; ++i) {
        if (entries_[i].revents == 0) continue;
        const int connection = accept(entries_[i].fd, nullptr, nullptr);
        if (connection < 0) continue;
        entries_.push_back({connection, POLLIN, 0});
        prints_.push_back(i == 2);
      }
    }
  }

 private:
  static constexpr std::size_t kListeners = 3;  // and the lifeline; connections follow

  // A request arrives in one piece: its client waits for the reply before it sends the next.
  void answer(std::size_t index) {
    const int connection = entries_[index].fd;
    const ssize_t count = recv(connection, request_.data(), request_.size() - 1, 0);
    if (count <= 0) {
      close(connection);
      entries_[index].fd = -1;  // poll passes over it
      return;
    }
    if (!prints_[index]) {
      arrivals_.weighing.fetch_add(1, std::memory_order_relaxed);
      send(connection, reply_.data(), reply_.size(), MSG_NOSIGNAL);
      return;
    }
    request_[static_cast<std::size_t>(count)] = '\0';
    countPrinting();
    send(connection, kAgreement, sizeof(kAgreement) - 1, MSG_NOSIGNAL);
  }

  void countPrinting() {
    arrivals_.printing.fetch_add(1, std::memory_order_relaxed);
    const char* const text = std::strstr(request_.data(), kText);
    if (text == nullptr) return;
    arrivals_.lines.fetch_add(1, std::memory_order_relaxed);
    const long number = std::strtol(text + sizeof(kText) - 1, nullptr, 10);
    if (number == 0) return;
    if (number != 1 && number != lastNumber_ + 1) arrivals_.misplaced.fetch_add(1);
    lastNumber_ = number;
  }

  std::vector<pollfd> entries_;
  std::vector<bool> prints_;
  const std::string reply_;
  Arrivals& arrivals_;
  std::array<char, 8192> request_ = {};
  long lastNumber_ = 0;
};

}  // namespace

FixedService::FixedService(const std::string& address, const std::string& weighingReply) {
  void* const shared =
      mmap(nullptr, sizeof(Arrivals), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
  arrivals_ = new (shared) Arrivals;
  const int weighing = listenOn(address, kWeighingPort);
  const int printing = listenOn(address, kPrintingPort);
  int ends[2];
  checked(pipe(ends), "pipe");
  process_ = checked(fork(), "fork");
  if (process_ == 0) {
    close(ends[1]);
    Server(ends[0], weighing, printing, weighingReply, *arrivals_).run();
    _exit(0);
  }
  close(ends[0]);
  close(weighing);
  close(printing);
  lifeline_ = ends[1];
}

FixedService::~FixedService() {
  close(lifeline_);
  waitpid(process_, nullptr, 0);
  munmap(arrivals_, sizeof(Arrivals));
}

}  // namespace bench::scale
