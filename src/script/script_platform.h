// The surroundings of a program driven by a script: real files, a clock and random numbers that can be fixed, no window and no printer.
#pragma once

#include <optional>
#include <random>

#include "platform/posix/picture_decoder.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_system.h"

namespace ostrinka {

class ScriptClock : public Clock {
 public:
  // 12:00 of `day`, or the system's time.
  explicit ScriptClock(std::optional<Date> day) : day_(day) {}
  Date Now() override { return day_ ? Date(day_->days() + 0.5) : system_.Now(); }

 private:
  std::optional<Date> day_;
  SystemClock system_;
};

class ScriptRandom : public Random {
 public:
  explicit ScriptRandom(std::optional<uint64_t> seed) : engine_(seed ? *seed : std::random_device{}()) {}
  double Fraction() override { return static_cast<double>(engine_() >> 11) * 0x1.0p-53; }

 private:
  std::mt19937_64 engine_;
};

class NoWaiting : public Waiter {
 public:
  void Wait(int) override {}
};

struct ScriptPlatform {
  ScriptPlatform(const std::string& application_folder, UserInterface& ui, std::optional<Date> day, std::optional<uint64_t> seed)
      : clock(day), random(seed), pictures(files), download(files), platform{files,
                                                                             ui,
                                                                             clock,
                                                                             random,
                                                                             waiter,
                                                                             printer,
                                                                             pictures,
                                                                             download,
                                                                             serial,
                                                                             application_folder,
                                                                             application_folder + "user-settings/"} {
    files.KeepForUser(platform.user_settings);
  }

  PosixFileSystem files;
  ScriptClock clock;
  ScriptRandom random;
  NoWaiting waiter;
  NoPrinter printer;
  FilePictureDecoder pictures;
  HttpDownload download;
  PosixSerialPort serial;
  Platform platform;
};

}  // namespace ostrinka
