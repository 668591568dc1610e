// A service that does what a test tells it to, byte for byte.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tolvex::test {

// One port of the service. Requests are recorded in the order of their arrival, over all
// connections; each one takes the next step of the script. Where the script is at its end, the
// standing answer is given, or nothing. Every call returns when what it says has happened; any
// thread may call.
class ServicePort {
 public:
  virtual ~ServicePort() = default;

  // What the next request without a step of its own gets, one call for each request.
  virtual void answers(const std::string& reply) = 0;
  virtual void answersAfter(std::chrono::milliseconds delay, const std::string& reply) = 0;
  virtual void staysSilent() = 0;
  // A part of the answer, perhaps none of it; the rest when it is told to, on the same connection.
  virtual void holdsBack(const std::string& now, const std::string& later) = 0;
  virtual void closes() = 0;  // instead of an answer, in order
  virtual void resets() = 0;  // likewise, with a reset
  // Likewise, but sends no more while it goes on reading; or reads no more once it has answered.
  virtual void shutsSending() = 0;
  virtual void answersAndShutsReceiving(const std::string& reply) = 0;
  // One byte after the other, the first one after the interval.
  virtual void drips(std::chrono::milliseconds interval, const std::string& reply) = 0;
  // Beyond the script: the answer to every further request, made from the request.
  virtual void alwaysAnswers(std::function<std::string(const std::string&)> reply) = 0;
  void alwaysAnswers(const std::string& reply) {
    alwaysAnswers([reply](const std::string&) { return reply; });
  }

  // Forgets the steps that no request has taken.
  virtual void forgetsItsScript() = 0;

  virtual void sendsWhatItHeldBack() = 0;
  // Waits until a request has come to that step, at most ten seconds; returns whether it has.
  virtual bool holdsSomethingBack() = 0;

  // At once, on the newest connection.
  virtual void sends(const std::string& bytes) = 0;
  virtual void closesConnections() = 0;
  virtual void resetsConnections() = 0;

  // What becomes of further connections: read, or left unread, or ended as soon as they are there.
  enum class Welcome { kReads, kLeavesUnread, kCloses, kResets };
  virtual void welcomes(Welcome welcome) = 0;

  // Stops and takes up listening; connections that exist are reset by stopping.
  virtual void goesAway() = 0;
  virtual void comesBack() = 0;
  // Goes away, but in a way that nobody is told: a connect is not answered. Until it comes back.
  virtual void goesSilentlyAway() = 0;

  // From now on requests are not recorded: for runs of millions.
  virtual void keepsNoRequests() = 0;
  virtual std::vector<std::string> requests() = 0;
  // Those since the last time; waits until there are so many, at most ten seconds.
  virtual std::vector<std::string> takeRequests(std::size_t expected) = 0;
  virtual unsigned connections() = 0;  // accepted so far
  // Waits until so many connections were accepted, at most ten seconds; returns whether they were.
  virtual bool hasAccepted(unsigned connections) = 0;
  // Likewise, until so many are open at its end.
  virtual bool hasOpen(unsigned connections) = 0;
};

// Listens on both ports of an address of its own from construction to destruction.
class ScriptedService {
 public:
  // Throws std::runtime_error, naming the port, when one is taken.
  explicit ScriptedService(const std::string& address);
  ~ScriptedService();

  ServicePort& weighing();
  ServicePort& printing();

  // Short for weighing(), which most tests are about.
  void answers(const std::string& reply) { weighing().answers(reply); }
  std::vector<std::string> requests() { return weighing().requests(); }

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace tolvex::test
