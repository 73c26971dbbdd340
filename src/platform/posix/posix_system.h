// Clock, random numbers, waiting, downloads and the serial port of a POSIX system.
#pragma once

#include <memory>

#include "platform/platform.h"

namespace ostrinka {

class SystemClock : public Clock {
 public:
  Date Now() override;
};

class SystemRandom : public Random {
 public:
  double Fraction() override;
};

class SystemWaiter : public Waiter {
 public:
  void Wait(int milliseconds) override;
};

// HTTP and HTTPS, at most 30 seconds.
class HttpDownload : public Download {
 public:
  explicit HttpDownload(FileSystem& files) : files_(files) {}
  bool Fetch(const std::string& url, const std::string& path, int64_t limit) override;

 private:
  FileSystem& files_;
};

class PosixSerialPort : public SerialPort {
 public:
  ~PosixSerialPort() override { Close(); }
  // Eight bits, no parity, one stop bit, no flow control.
  bool Open(const std::string& device, int bits_per_second) override;
  bool Write(const std::string& bytes) override;
  int64_t Read(void* to, size_t length, int timeout_milliseconds) override;
  void Close() override;

 private:
  int descriptor_ = -1;
};

// The folder of the running executable, with a closing slash; "./" when the system does not tell.
std::string ExecutableFolder();

}  // namespace ostrinka
