// Why a port could not be opened.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace tolvex::sim {

enum class ListenFailure {
  /// Another program has the port.
  InUse,
  /// The address does not belong to this machine.
  NoSuchAddress,
  /// The system reserves the port.
  Denied,
  Other,
};

/// what() reads "cannot listen on 127.0.0.1:53264 (weighing): another program has this port".
class ListenError : public std::runtime_error {
 public:
  /// `cause` says in a few words why.
  ListenError(std::string portName, const std::string& address, std::uint16_t port,
              ListenFailure failure, const std::string& cause)
      : std::runtime_error("cannot listen on " + address + ":" + std::to_string(port) + " (" +
                           portName + "): " + cause),
        portName_(std::move(portName)),
        failure_(failure) {}

  /// What the port serves: "weighing", "printing" or "web".
  const std::string& portName() const { return portName_; }
  ListenFailure failure() const { return failure_; }

 private:
  std::string portName_;
  ListenFailure failure_;
};

}  // namespace tolvex::sim
