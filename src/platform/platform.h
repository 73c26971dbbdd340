// The surroundings of the program, as a bundle of small interfaces. Each front end has its own set.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/date.h"
#include "platform/canvas.h"
#include "platform/files.h"
#include "platform/printer.h"
#include "platform/user_interface.h"

namespace ostrinka {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual Date Now() = 0;  // local date and time
};

class Random {
 public:
  virtual ~Random() = default;
  virtual double Fraction() = 0;  // at least 0, below 1; never the same stream twice within a run unless seeded
};

class Waiter {
 public:
  virtual ~Waiter() = default;
  virtual void Wait(int milliseconds) = 0;
};

class PictureDecoder {
 public:
  virtual ~PictureDecoder() = default;
  virtual std::optional<Picture> Decode(const std::string& path) = 0;  // nothing when unreadable, unknown or above 64 million pixels
};

class Download {
 public:
  virtual ~Download() = default;
  // Fetches `url` to `path`; true only when the server answered with success and a complete body of at most `limit` bytes.
  virtual bool Fetch(const std::string& url, const std::string& path, int64_t limit) = 0;
};

class SerialPort {
 public:
  virtual ~SerialPort() = default;
  virtual bool Open(const std::string& device, int bits_per_second) = 0;
  virtual bool Write(const std::string& bytes) = 0;
  virtual int64_t Read(void* to, size_t length, int timeout_milliseconds) = 0;  // -1 on error, 0 on time-out
  virtual void Close() = 0;
};

struct Platform {
  FileSystem& files;
  UserInterface& ui;
  Clock& clock;
  Random& random;
  Waiter& waiter;
  Printer& printer;
  PictureDecoder& pictures;
  Download& download;
  SerialPort& serial;
  std::string application_folder;       // with a closing slash
  std::string user_settings;            // folder of the per-user settings store, with a closing slash
  EmbeddedPdf* embedded_pdf = nullptr;  // null where there is none
};

}  // namespace ostrinka
