#include "support/scripted_service.h"

#include <boost/asio.hpp>
#include <condition_variable>
#include <deque>
#include <exception>
#include <list>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace tolvex::test {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using std::chrono::milliseconds;

// Takes one whole JSON object off the front of the bytes; empty when there is none yet.
std::string takeObject(std::string& bytes) {
  int depth = 0;
  bool inText = false;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char c = bytes[i];
    if (inText) {
      if (c == '\\') ++i;
      inText = c != '"';
    } else if (c == '"') {
      inText = true;
    } else if (c == '{') {
      ++depth;
    } else if (c == '}' && --depth == 0) {
      std::string object = bytes.substr(0, i + 1);
      bytes.erase(0, i + 1);
      return object;
    }
  }
  return {};
}

struct Step {
  enum Kind { kAnswer, kSilence, kClose, kReset, kHold, kShutSending, kShutReceiving, kDrip } kind;
  std::string reply;
  milliseconds delay{0};
  std::string heldBack{};
};

constexpr int kMoreThanMayWait = 4;

struct Connection {
  explicit Connection(tcp::socket s) : socket(std::move(s)), timer(socket.get_executor()) {}
  tcp::socket socket;
  asio::steady_timer timer;
  std::string received;
  bool deaf = false;
  char block[65536] = {};
};
using ConnectionPtr = std::shared_ptr<Connection>;

class Port : public ServicePort {
 public:
  Port(asio::io_context& io, const std::string& address, unsigned short port)
      : io_(io), endpoint_(asio::ip::make_address(address), port), acceptor_(io) {
    listen();
  }

  void answers(const std::string& reply) override { plan({Step::kAnswer, reply}); }
  void answersAfter(milliseconds delay, const std::string& reply) override {
    plan({Step::kAnswer, reply, delay});
  }
  void staysSilent() override { plan({Step::kSilence, ""}); }
  void holdsBack(const std::string& now, const std::string& later) override {
    plan({Step::kHold, now, milliseconds(0), later});
  }
  void sendsWhatItHeldBack() override {
    inLoop([&] {
      if (holding_ == nullptr) throw std::logic_error("nothing was held back");
      write(holding_, heldBack_);  // to nobody, where the connection is gone
      holding_ = nullptr;
      const std::lock_guard<std::mutex> lock(mutex_);
      --heldCount_;
    });
  }
  bool holdsSomethingBack() override {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(10), [&] { return heldCount_ > 0; });
  }
  void closes() override { plan({Step::kClose, ""}); }
  void resets() override { plan({Step::kReset, ""}); }
  void shutsSending() override { plan({Step::kShutSending, ""}); }
  void answersAndShutsReceiving(const std::string& reply) override {
    plan({Step::kShutReceiving, reply});
  }
  void drips(milliseconds interval, const std::string& reply) override {
    plan({Step::kDrip, reply, interval});
  }
  void alwaysAnswers(std::function<std::string(const std::string&)> reply) override {
    inLoop([&] { standing_ = std::move(reply); });
  }

  void forgetsItsScript() override {
    inLoop([&] { script_.clear(); });
  }

  void sends(const std::string& bytes) override {
    inLoop([&] {
      if (open_.empty()) throw std::logic_error("nobody is connected");
      asio::write(open_.back()->socket, asio::buffer(bytes));
    });
  }
  void closesConnections() override {
    inLoop([&] { dropAll(false); });
  }
  void resetsConnections() override {
    inLoop([&] { dropAll(true); });
  }
  void welcomes(Welcome welcome) override {
    inLoop([&] { welcome_ = welcome; });
  }
  void goesAway() override {
    inLoop([&] { stopListening(); });
  }
  void comesBack() override {
    inLoop([&] {
      inTheWay_.clear();
      if (acceptor_.is_open()) stopListening();
      listen();
    });
  }
  // The system lets as many wait as it was told, and leaves the others without an answer.
  void goesSilentlyAway() override {
    inLoop([&] {
      stopListening();
      open(1);
      for (int i = 0; i < kMoreThanMayWait; ++i) {
        inTheWay_.emplace_back(io_);
        inTheWay_.back().async_connect(endpoint_, [](boost::system::error_code) {});
      }
    });
  }

  void keepsNoRequests() override {
    const std::lock_guard<std::mutex> lock(mutex_);
    keepsRequests_ = false;
  }
  std::vector<std::string> requests() override {
    const std::lock_guard<std::mutex> lock(mutex_);
    return requests_;
  }
  std::vector<std::string> takeRequests(std::size_t expected) override {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait_for(lock, std::chrono::seconds(10),
                      [&] { return requests_.size() >= taken_ + expected; });
    const auto since = requests_.begin() + static_cast<std::ptrdiff_t>(taken_);
    taken_ = requests_.size();
    return {since, requests_.end()};
  }
  unsigned connections() override {
    const std::lock_guard<std::mutex> lock(mutex_);
    return accepted_;
  }
  bool hasAccepted(unsigned connections) override {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(10),
                             [&] { return accepted_ >= connections; });
  }
  bool hasOpen(unsigned connections) override {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(10),
                             [&] { return openCount_ == connections; });
  }

  void listen() {
    open(asio::socket_base::max_listen_connections);
    accept();
  }

 private:
  void open(int mayWait) {
    acceptor_.open(endpoint_.protocol());
    acceptor_.set_option(tcp::acceptor::reuse_address(true));
    boost::system::error_code failure = bind();
    if (!failure) acceptor_.listen(mayWait, failure);
    if (failure) {
      throw std::runtime_error("cannot listen on " + endpoint_.address().to_string() + ":" +
                               std::to_string(endpoint_.port()) + ": " + failure.message() +
                               " (is a service or zelkad-sim running?)");
    }
  }

  void stopListening() {
    acceptor_.close();
    dropAll(true);
  }

  // The service's ports lie among those that the system gives to outgoing connections. One of
  // another test may hold a port of 127.0.0.1, never for long.
  boost::system::error_code bind() {
    const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    boost::system::error_code failure;
    acceptor_.bind(endpoint_, failure);
    // Windows calls it "access denied" where the other one did not ask for sharing.
    while ((failure == asio::error::address_in_use || failure == asio::error::access_denied) &&
           std::chrono::steady_clock::now() < patience) {
      std::this_thread::sleep_for(milliseconds(20));
      acceptor_.bind(endpoint_, failure);
    }
    return failure;
  }

  // Runs the work on the loop's thread and waits for it; its exception arrives here.
  // By a lock and not a promise: what looks for races between threads knows locks for certain.
  void inLoop(const std::function<void()>& work) {
    bool done = false;
    std::exception_ptr failure;
    asio::post(io_, [&] {
      std::exception_ptr thrown;
      try {
        work();
      } catch (...) {
        thrown = std::current_exception();
      }
      const std::lock_guard<std::mutex> lock(mutex_);
      failure = thrown;
      done = true;
      changed_.notify_all();
    });
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait(lock, [&] { return done; });
    if (failure != nullptr) std::rethrow_exception(failure);
  }

  void plan(const Step& step) {
    inLoop([&] { script_.push_back(step); });
  }

  void accept() {
    acceptor_.async_accept([this](boost::system::error_code failure, tcp::socket socket) {
      if (failure) return;
      socket.set_option(tcp::no_delay(true), failure);
      auto connection = std::make_shared<Connection>(std::move(socket));
      open_.push_back(connection);
      {
        const std::lock_guard<std::mutex> lock(mutex_);
        ++accepted_;
      }
      countOpen();
      if (welcome_ == Welcome::kReads) read(connection);
      if (welcome_ == Welcome::kCloses || welcome_ == Welcome::kResets) {
        drop(connection, welcome_ == Welcome::kResets);
      }
      accept();
    });
  }

  void read(const ConnectionPtr& connection) {
    connection->socket.async_read_some(
        asio::buffer(connection->block),
        [this, connection](boost::system::error_code failure, std::size_t count) {
          if (failure) {
            drop(connection, false);
            return;
          }
          connection->received.append(connection->block, count);
          for (;;) {
            const std::string request = takeObject(connection->received);
            if (request.empty()) break;
            serve(connection, request);
          }
          if (connection->socket.is_open() && !connection->deaf) read(connection);
        });
  }

  void serve(const ConnectionPtr& connection, const std::string& request) {
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      if (keepsRequests_) requests_.push_back(request);
      changed_.notify_all();
    }
    Step step{Step::kSilence, ""};
    if (!script_.empty()) {
      step = script_.front();
      script_.pop_front();
    } else if (standing_) {
      step = {Step::kAnswer, standing_(request)};
    }
    boost::system::error_code ignored;
    if (step.kind == Step::kClose || step.kind == Step::kReset) {
      drop(connection, step.kind == Step::kReset);
    } else if (step.kind == Step::kShutSending) {
      connection->socket.shutdown(tcp::socket::shutdown_send, ignored);
    } else if (step.kind == Step::kShutReceiving) {
      connection->socket.shutdown(tcp::socket::shutdown_receive, ignored);
      connection->deaf = true;
      write(connection, step.reply);
    } else if (step.kind == Step::kDrip) {
      drip(connection, step, 0);
    } else if (step.kind == Step::kAnswer && step.delay.count() > 0) {
      connection->timer.expires_after(step.delay);
      connection->timer.async_wait([connection, step](boost::system::error_code failure) {
        if (!failure) write(connection, step.reply);
      });
    } else if (step.kind == Step::kAnswer) {
      write(connection, step.reply);
    } else if (step.kind == Step::kHold) {
      write(connection, step.reply);
      holding_ = connection;
      heldBack_ = step.heldBack;
      {
        const std::lock_guard<std::mutex> lock(mutex_);
        ++heldCount_;
        changed_.notify_all();
      }
    }
  }

  static void drip(const ConnectionPtr& connection, const Step& step, std::size_t at) {
    if (at == step.reply.size()) return;
    connection->timer.expires_after(step.delay);
    connection->timer.async_wait([connection, step, at](boost::system::error_code failure) {
      if (failure) return;
      write(connection, step.reply.substr(at, 1));
      drip(connection, step, at + 1);
    });
  }

  static void write(const ConnectionPtr& connection, const std::string& reply) {
    boost::system::error_code ignored;
    asio::write(connection->socket, asio::buffer(reply), ignored);
  }

  void drop(const ConnectionPtr& connection, bool reset) {
    boost::system::error_code ignored;
    connection->timer.cancel();
    if (reset) connection->socket.set_option(asio::socket_base::linger(true, 0), ignored);
    connection->socket.close(ignored);
    open_.remove(connection);
    countOpen();
  }

  void countOpen() {
    const std::lock_guard<std::mutex> lock(mutex_);
    openCount_ = static_cast<unsigned>(open_.size());
    changed_.notify_all();
  }

  void dropAll(bool reset) {
    while (!open_.empty()) drop(ConnectionPtr(open_.front()), reset);
  }

  asio::io_context& io_;
  tcp::endpoint endpoint_;
  tcp::acceptor acceptor_;
  std::list<ConnectionPtr> open_;
  std::list<tcp::socket> inTheWay_;
  Welcome welcome_ = Welcome::kReads;
  std::deque<Step> script_;
  std::function<std::string(const std::string&)> standing_;
  ConnectionPtr holding_;
  std::string heldBack_;

  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::string> requests_;
  std::size_t taken_ = 0;
  unsigned accepted_ = 0;
  unsigned openCount_ = 0;
  unsigned heldCount_ = 0;
  bool keepsRequests_ = true;
};

}  // namespace

struct ScriptedService::Parts {
  explicit Parts(const std::string& address)
      : weighing(io, address, 53264), printing(io, address, 53265), thread([this] { io.run(); }) {}
  ~Parts() {
    io.stop();
    thread.join();
  }
  asio::io_context io{1};
  Port weighing;
  Port printing;
  std::thread thread;
};

ScriptedService::ScriptedService(const std::string& address)
    : parts_(std::make_unique<Parts>(address)) {}

ScriptedService::~ScriptedService() = default;

ServicePort& ScriptedService::weighing() { return parts_->weighing; }

ServicePort& ScriptedService::printing() { return parts_->printing; }

}  // namespace tolvex::test
