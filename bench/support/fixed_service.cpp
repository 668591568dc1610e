#include "support/fixed_service.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "support/cores.h"

namespace bench {

// Texts one behind another, each with its length before it.
struct SharedRecording {
  static constexpr std::size_t kRoom = std::size_t{1} << 20;
  std::atomic<bool> on{false};
  std::atomic<bool> overrun{false};
  std::atomic<std::size_t> used{0};
  char bytes[kRoom] = {};

  void add(const char* text, std::size_t length) {
    const std::size_t at = used.load();
    if (at + sizeof(length) + length > kRoom) {
      overrun = true;
      return;
    }
    std::memcpy(bytes + at, &length, sizeof(length));
    std::memcpy(bytes + at + sizeof(length), text, length);
    used.store(at + sizeof(length) + length);
  }
};

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
  checked(listen(listener, 8), "listen");
  return listener;
}

// Answers one request. False when the connection has ended.
bool answer(int connection, const std::string& reply, SharedRecording& recording) {
  char request[4096];
  const ssize_t count = recv(connection, request, sizeof(request), 0);
  if (count <= 0) return false;
  if (recording.on.load(std::memory_order_relaxed)) {
    recording.add(request, static_cast<std::size_t>(count));
  }
  return send(connection, reply.data(), reply.size(), MSG_NOSIGNAL) > 0;
}

// The first three are the lifeline and the listeners, the others are connections.
void serve(std::vector<pollfd> entries, const std::string& reply, SharedRecording& recording) {
  constexpr std::size_t kFirstConnection = 3;
  for (;;) {
    if (poll(entries.data(), entries.size(), -1) < 0) return;
    if (entries[0].revents != 0) return;
    for (std::size_t i = entries.size(); i-- > kFirstConnection;) {
      if (entries[i].revents == 0 || answer(entries[i].fd, reply, recording)) continue;
      close(entries[i].fd);
      entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(i));
    }
    for (std::size_t i = 1; i < kFirstConnection; ++i) {
      if (entries[i].revents == 0) continue;
      const int connection = accept(entries[i].fd, nullptr, nullptr);
      if (connection >= 0) entries.push_back({connection, POLLIN, 0});
    }
  }
}

SharedRecording* sharedRecording() {
  void* const memory = mmap(nullptr, sizeof(SharedRecording), PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
  return new (memory) SharedRecording;
}

}  // namespace

const char kWeightReply[] =
    R"({"result":"0","net":"1.250","highResNet":"1.2503","tare":"0.200","zero":"0",)"
    R"("tareType":"T","unit":"kg","stable":"1","unitPrice":"0.00","total":"0.00"})";
const char kAgreedReply[] = R"({"result":"0"})";

std::string FixedService::privateAddress() {
  const auto id = static_cast<unsigned>(getpid());
  return "127." + std::to_string(100 + (id >> 16) % 100) + '.' + std::to_string(id >> 8 & 255) +
         '.' + std::to_string(1 + id % 254);
}

FixedService::FixedService(std::string reply, int core, std::string address)
    : address_(std::move(address)), reply_(std::move(reply)), recording_(sharedRecording()) {
  const int weighing = listenOn(address_, kWeighingPort);
  const int printing = listenOn(address_, kPrintingPort);
  int ends[2];
  checked(pipe(ends), "pipe");
  process_ = checked(fork(), "fork");
  if (process_ == 0) {
    close(ends[1]);
    if (core >= 0) pinTo(core);
    serve({{ends[0], POLLIN, 0}, {weighing, POLLIN, 0}, {printing, POLLIN, 0}}, reply_,
          *recording_);
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
  munmap(recording_, sizeof(SharedRecording));
}

void FixedService::startRecording() {
  recording_->used = 0;
  recording_->on = true;
}

std::vector<std::string> FixedService::recorded() {
  recording_->on = false;
  if (recording_->overrun) throw std::runtime_error("the service received more than it can keep");
  std::vector<std::string> texts;
  for (std::size_t at = 0; at < recording_->used;) {
    std::size_t length;
    std::memcpy(&length, recording_->bytes + at, sizeof(length));
    texts.emplace_back(recording_->bytes + at + sizeof(length), length);
    at += sizeof(length) + length;
  }
  return texts;
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
