#include "support/fixed_service.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <utility>
#include <vector>

#include "support/cores.h"
#include "support/shared_memory.h"

namespace bench {

namespace {

constexpr int kReplyTimeoutMs = 40000;

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
  checked(listen(listener, SOMAXCONN), "listen");
  return listener;
}

class Server {
 public:
  Server(int lifeline, int weighing, int printing, std::string weighingReply,
         std::string printingReply, RequestWatch& watch)
      : entries_{{lifeline, POLLIN, 0}, {weighing, POLLIN, 0}, {printing, POLLIN, 0}},
        prints_(entries_.size(), false),
        replies_{std::move(weighingReply), std::move(printingReply)},
        watch_(watch) {}

  // Until the other end of the lifeline is closed.
  void run() {
    while (poll(entries_.data(), entries_.size(), -1) >= 0 && entries_[0].revents == 0) {
      for (std::size_t i = kFirstConnection; i < entries_.size(); ++i) {
        if (entries_[i].revents != 0) answer(i);
      }
      for (std::size_t i = 1; i < kFirstConnection; ++i) {
        if (entries_[i].revents == 0) continue;
        const int connection = accept(entries_[i].fd, nullptr, nullptr);
        if (connection < 0) continue;
        entries_.push_back({connection, POLLIN, 0});
        prints_.push_back(i == 2);
      }
    }
  }

 private:
  static constexpr std::size_t kFirstConnection = 3;  // behind the lifeline and the listeners

  // A request arrives in one piece: its client waits for the reply before it sends the next.
  void answer(std::size_t index) {
    char request[4096];
    const int connection = entries_[index].fd;
    const ssize_t count = recv(connection, request, sizeof(request) - 1, 0);
    if (count <= 0) {
      close(connection);
      entries_[index].fd = -1;  // poll passes over it
      return;
    }
    request[count] = '\0';
    watch_.note(request, static_cast<std::size_t>(count), prints_[index]);
    const std::string& reply = replies_[prints_[index] ? 1 : 0];
    send(connection, reply.data(), reply.size(), MSG_NOSIGNAL);
  }

  std::vector<pollfd> entries_;
  std::vector<bool> prints_;
  const std::string replies_[2];
  RequestWatch& watch_;
};

}  // namespace

const char kWeightReply[] =
    R"({"result":"0","net":"1.250","highResNet":"1.2503","tare":"0.200","zero":"0",)"
    R"("tareType":"T","unit":"kg","stable":"1","unitPrice":"0.00","total":"0.00"})";
const char kAgreedReply[] = R"({"result":"0"})";

std::string replyOfLength(std::size_t length) {
  constexpr std::size_t kMember = 32;
  constexpr std::size_t kFrame = 6;  // ,"":""
  std::string reply = R"({"result":"0")";
  while (reply.size() + 1 < length) {
    const std::size_t rest = length - 1 - reply.size();
    const std::size_t member = rest < kMember + kFrame ? rest : kMember;
    const std::string name = member > 2 * kFrame ? "member" : "";
    if (member < kFrame) throw std::logic_error("there is no reply of this length");
    reply += ",\"" + name + "\":\"" + std::string(member - kFrame - name.size(), 'x') + '"';
  }
  return reply + '}';
}

std::string FixedService::privateAddress() {
  const auto id = static_cast<unsigned>(getpid());
  return "127." + std::to_string(128 + id / 62500 % 64) + '.' + std::to_string(id / 250 % 250) +
         '.' + std::to_string(1 + id % 250);
}

FixedService::FixedService(std::string reply, int core, std::string address)
    : address_(std::move(address)), reply_(std::move(reply)), watch_(shareMemory<RequestWatch>()) {
  start(core, reply_);
}

FixedService::FixedService(std::string weighingReply, const std::string& printingReply)
    : address_(privateAddress()),
      reply_(std::move(weighingReply)),
      watch_(shareMemory<RequestWatch>()) {
  start(-1, printingReply);
}

void FixedService::start(int core, const std::string& printingReply) {
  const int weighing = listenOn(address_, kWeighingPort);
  const int printing = listenOn(address_, kPrintingPort);
  int ends[2];
  checked(pipe(ends), "pipe");
  process_ = checked(fork(), "fork");
  if (process_ == 0) {
    close(ends[1]);
    if (core >= 0) pinTo(core);
    Server(ends[0], weighing, printing, reply_, printingReply, *watch_).run();
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
  munmap(watch_, sizeof(RequestWatch));
}

int connectTo(const std::string& address, std::uint16_t port) {
  const int connection = checked(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), "socket");
  const sockaddr_in where = socketAddress(address, port);
  checked(connect(connection, reinterpret_cast<const sockaddr*>(&where), sizeof(where)), "connect");
  return connection;
}

void bareExchange(int connection, const std::string& request, std::size_t replyLength) {
  char reply[2049];
  pollfd entry = {connection, POLLIN, 0};
  if (send(connection, request.data(), request.size(), MSG_NOSIGNAL) <= 0 ||
      poll(&entry, 1, kReplyTimeoutMs) != 1 ||
      recv(connection, reply, sizeof(reply), 0) != static_cast<ssize_t>(replyLength)) {
    throw std::runtime_error("a bare exchange failed");
  }
}

}  // namespace bench
