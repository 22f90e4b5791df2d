// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

/// A sequencer in memory in place of the kernel's: what alsa-lib offers for it is defined here
/// anew, and goes before the library's in a program that links this. One thread; a client may be
/// ended on another one, while the next one is already open. The last that was opened is the one
/// that fails, and reads; what was not read of an earlier one is lost.
struct FakeAlsa {
  struct Port {
    int client;
    int port;
    std::string clientName;
    std::string portName;
  };

  int openError = 0;       ///< 0, or the negative error of each attempt to open
  int readError = 0;       ///< the same of each attempt to read; see `fail`
  int firstPortError = 0;  ///< the same of a client's first port
  int portError = 0;       ///< and of each one after it
  int announceError = 0;   ///< and of who asks for news
  int connectFromError = 0;
  int connectToError = 0;
  int opened = 0;           ///< how often
  std::vector<Port> ports;  ///< of others: anyone may listen and send to them
  std::vector<int> heard;   ///< clients whose ports were connected
  std::vector<int> subscribed;
  int written = 0;                     ///< events
  int reads = 0;                       ///< attempts
  std::vector<unsigned> capabilities;  ///< of each port that was made

  static FakeAlsa& get();
  /// As a new machine.
  static void reset();
  /// Every read fails from now on, and the descriptor stays readable.
  void fail(int error);
  /// Everything works again for who opens it anew.
  void mend();

  /// The news of `type` about this port of another client, for who asked for news.
  static void announce(int type, int client, int port);
  /// Bytes from this port, as SysEx, for who listens to any port of that client: so does the kernel
  /// with a device of groups.
  static void send(int client, int port, const std::vector<std::uint8_t>& bytes);
  /// Events that have not been read.
  static std::size_t waiting();

  /// From now on the device takes nothing, and the kernel holds up who ends a port or a client that
  /// has subscribed to it, and then whoever subscribes next: for ten seconds, or until `release`.
  static void hang();
  static void release();
  /// Threads that were held up, since the last `reset`.
  static std::vector<std::thread::id> heldUp();
  /// Clients that have not been closed.
  static int open();
};
