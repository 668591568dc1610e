// A warm call against the same bytes through ZeroMQ.
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <zmq.hpp>

#include "claims/claims.h"
#include "claims/warm_call.h"

namespace bench {
namespace {

// A REP socket in a process of its own that gives the same answer to everything. It has to be made
// before this process has a context of ZeroMQ, whose threads a fork would not take along.
class ZeromqService {
 public:
  ZeromqService(const std::string& reply, int core)
      : anyPort_("tcp://" + FixedService::privateAddress() + ":*") {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    parent_ = getpid();
    process_ = fork();
    if (process_ < 0) throw std::runtime_error("no further process");
    if (process_ == 0) {
      close(ends[0]);
      pinTo(core);
      serveReplies(reply, ends[1]);
    }
    close(ends[1]);
    char endpoint[128] = {};
    const ssize_t length = read(ends[0], endpoint, sizeof(endpoint) - 1);
    close(ends[0]);
    if (length <= 0) throw std::runtime_error("the service of ZeroMQ does not start");
    endpoint_ = endpoint;
  }
  ~ZeromqService() { waitpid(process_, nullptr, 0); }
  ZeromqService(const ZeromqService&) = delete;
  ZeromqService& operator=(const ZeromqService&) = delete;

  const std::string& endpoint() const { return endpoint_; }

 private:
  // Ends on an empty request, or when nobody has asked for a second and its maker is gone.
  [[noreturn]] void serveReplies(const std::string& reply, int whereToTell) const {
    try {
      zmq::context_t context;
      zmq::socket_t socket(context, zmq::socket_type::rep);
      socket.set(zmq::sockopt::rcvtimeo, 1000);
      socket.bind(anyPort_);
      const std::string endpoint = socket.get(zmq::sockopt::last_endpoint);
      if (write(whereToTell, endpoint.data(), endpoint.size()) < 0) _exit(1);
      close(whereToTell);
      zmq::message_t request;
      for (;;) {
        if (!socket.recv(request)) {
          if (getppid() != parent_) break;
          continue;
        }
        const bool last = request.size() == 0;
        socket.send(zmq::const_buffer(reply.data(), reply.size()));
        if (last) usleep(100000);  // until the answer has left
        if (last) break;
      }
    } catch (const std::exception&) {
    }
    _exit(0);
  }

  const std::string anyPort_;
  int parent_;
  int process_;
  std::string endpoint_;
};

class ZeromqClient {
 public:
  ZeromqClient(const std::string& endpoint, std::string request, std::string reply)
      : request_(std::move(request)),
        reply_(std::move(reply)),
        socket_(context_, zmq::socket_type::req) {
    socket_.set(zmq::sockopt::rcvtimeo, static_cast<int>(kWaitMs));
    socket_.set(zmq::sockopt::linger, 0);
    socket_.connect(endpoint);
  }
  ~ZeromqClient() {
    socket_.send(zmq::const_buffer("", 0));
    zmq::message_t ignored;
    (void)socket_.recv(ignored);
  }
  ZeromqClient(const ZeromqClient&) = delete;
  ZeromqClient& operator=(const ZeromqClient&) = delete;

  void exchange() {
    socket_.send(zmq::const_buffer(request_.data(), request_.size()));
    zmq::message_t answer;
    if (!socket_.recv(answer) || answer.to_string_view() != reply_) {
      throw std::runtime_error("an exchange through ZeroMQ failed, or got another reply");
    }
  }

 private:
  const std::string request_;
  const std::string reply_;
  zmq::context_t context_;
  zmq::socket_t socket_;
};

}  // namespace

Figure readStandardZeromq(const Setting& setting) {
  constexpr int kCallsPerBatch = 5;
  constexpr int kWarmUpExchanges = 500;
  const StateFolder state(Logging::kSilenced);
  const WarmCall warm(setting, kWeightReply);
  const ZeromqService service(warm.reply(), warm.cores().service);
  ZeromqClient client(service.endpoint(), warm.request(), warm.reply());
  for (int count = 0; count < kWarmUpExchanges; ++count) client.exchange();
  const Paired paired = measurePairs(
      setting.pairs, kCallsPerBatch, [&] { warm.call(); }, [&] { client.exchange(); });
  return ratioOf(paired, "library_us", "zeromq_us");
}

}  // namespace bench
