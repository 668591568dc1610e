// One lazily made TCP connection.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "transport/tcp_socket.h"

namespace tolvex {

constexpr std::uint32_t kConnectTimeoutMs = 1000;

// A connection to one host and port, made when it is first needed. There is no framing: a send is
// one send of the system, a receive is one receive, and the bytes go up as they came. Takes no
// lock; the command exchange holds one around each send and its receive. Nothing throws but
// std::bad_alloc, when a socket object cannot be made.
//
// The operations are virtual so that a stand-in can take a connection's place; nobody deletes a
// client through this class.
class CTcpClient {
 public:
  // Copies the host (dotted IPv4 address or name). Only the low 16 bits of the port count. Connects
  // nothing.
  CTcpClient(const char* host, unsigned port);

  // Connects afresh, within kConnectTimeoutMs; a connection that exists is closed first. Returns
  // whether there is one now. A refused connect counts as one and fails in Send.
  virtual bool Open();

  // Shuts the connection down and discards the socket; nothing where there is none.
  virtual void Close();

  // Sends with one attempt, connecting first where there is no connection. After a failed attempt
  // it reconnects and tries once more. Returns the bytes accepted (possibly fewer than length), -1
  // when no connection could be opened, or the failed attempt's result (-1 or 0).
  virtual int Send(const char* data, unsigned length);

  // One blocking receive without a time-out, connecting first where there is no connection. Returns
  // the bytes received, 0 when the peer closed in order, -1 on failure. Writes no terminator.
  virtual int Recv(char* buffer, std::size_t length);

  // One receive after a wait of at most timeoutMs milliseconds. Returns the bytes received, 0 on a
  // time-out or when length is 0, -1 when there is no connection (it never connects), on failure,
  // and when the peer closed in order. Writes no terminator.
  virtual int RecvTimeout(char* buffer, unsigned length, unsigned timeoutMs);

  // Whether the connection has something to be received right now: bytes, its end or its failure. False
  // where there is no connection. Receives nothing.
  virtual bool HasUnread();

 private:
  std::unique_ptr<CTcpSocket> socket_;
  std::string host_;
  std::uint32_t port_;
};

}  // namespace tolvex
