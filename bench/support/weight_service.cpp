#include "support/weight_service.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>
#include <vector>

namespace bench {
namespace {

int checked(int result, const char* what) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), what);
  return result;
}

sockaddr_in socketAddress(const std::string& address, std::uint16_t port) {
  sockaddr_in result = {};
  result.sin_family = AF_INET;
  result.sin_port = htons(port);
  result.sin_addr.s_addr = inet_addr(address.c_str());
  return result;
}

int listenOn(const std::string& address, std::uint16_t port) {
  const int listener = checked(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket");
  const int on = 1;
  setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on));
  const sockaddr_in where = socketAddress(address, port);
  checked(bind(listener, reinterpret_cast<const sockaddr*>(&where), sizeof(where)), "bind");
  checked(listen(listener, 8), "listen");
  return listener;
}

// The first three are the lifeline and the listeners, the others are connections.
void serve(std::vector<pollfd> entries) {
  constexpr std::size_t kFirstConnection = 3;
  char request[4096];
  for (;;) {
    if (poll(entries.data(), entries.size(), -1) < 0) return;
    if (entries[0].revents != 0) return;
    for (std::size_t i = kFirstConnection; i < entries.size(); ++i) {
      if (entries[i].revents == 0) continue;
      if (recv(entries[i].fd, request, sizeof(request), 0) > 0) {
        send(entries[i].fd, WeightService::kReply, std::strlen(WeightService::kReply),
             MSG_NOSIGNAL);
      } else {
        close(entries[i].fd);
        entries[i].fd = -1;  // poll passes over it
      }
    }
    for (std::size_t i = 1; i < kFirstConnection; ++i) {
      if (entries[i].revents == 0) continue;
      const int connection = accept(entries[i].fd, nullptr, nullptr);
      if (connection >= 0) entries.push_back({connection, POLLIN, 0});
    }
  }
}

}  // namespace

const char WeightService::kReply[] =
    R"({"result":"0","net":"1.250","highResNet":"1.2503","tare":"0.200","zero":"0",)"
    R"("tareType":"T","unit":"kg","stable":"1","unitPrice":"0.00","total":"0.00"})";

WeightService::WeightService(const std::string& address) {
  const int weighing = listenOn(address, kWeighingPort);
  const int printing = listenOn(address, kPrintingPort);
  int ends[2];
  checked(pipe(ends), "pipe");
  process_ = checked(fork(), "fork");
  if (process_ == 0) {
    close(ends[1]);
    serve({{ends[0], POLLIN, 0}, {weighing, POLLIN, 0}, {printing, POLLIN, 0}});
    _exit(0);
  }
  close(ends[0]);
  close(weighing);
  close(printing);
  lifeline_ = ends[1];
}

WeightService::~WeightService() {
  close(lifeline_);
  waitpid(process_, nullptr, 0);
}

int connectTo(const std::string& address, std::uint16_t port) {
  const int connection = checked(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket");
  const sockaddr_in where = socketAddress(address, port);
  checked(connect(connection, reinterpret_cast<const sockaddr*>(&where), sizeof(where)), "connect");
  return connection;
}

}  // namespace bench
